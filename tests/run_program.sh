#!/usr/bin/env bash
# Runs one program of the language on the console host, or with its windows, and compares what came out with what
# is expected: the same on both.
#
#   run_program.sh [--update | --windows] TESSERA PROGRAM EXPECTED
#
# EXPECTED is a path without extension; beside it stand
#   .in      stdin, no file: empty        .out     stdout, no file: empty
#   .err     stderr, no file: empty       .status  exit status, no file: 0
#   .args    arguments of the program, one a line
# With --update the last three are rewritten from what came out; read the difference before you keep it.
set -u

update=no how=--console
case ${1:-} in
  --update) update=yes; shift ;;
  --windows) how='--script -'; shift ;;
esac
[ $# -eq 3 ] || { sed -n '2,11p' "$0" >&2; exit 2; }
tessera=$1 program=$2 expected=$3

work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT

input=/dev/null
[ -f "$expected.in" ] && input=$expected.in
arguments=()
[ -f "$expected.args" ] && mapfile -t arguments < "$expected.args"

# A program may write beside itself, so a copy of it runs.
cp -r "$program" "$work/"
program=$work/$(basename "$program")

# No printer of the machine is met here.
export CUPS_SERVER=/nowhere
# Nor a display: the windows stand on one that nobody sees.
unset DISPLAY WAYLAND_DISPLAY
# shellcheck disable=SC2086
"$tessera" run $how "$program" -- "${arguments[@]}" < "$input" > "$work/out" 2> "$work/err"
echo $? > "$work/status"

# A file that says what its absence says is not kept.
keep() {
  if [ "$(cat "$2")" = "$3" ] && ! [ -s "$2" -a -z "$3" ]; then rm -f "$1"; else cp "$2" "$1"; fi
}

if [ $update = yes ]; then
  keep "$expected.out" "$work/out" ""
  keep "$expected.err" "$work/err" ""
  keep "$expected.status" "$work/status" 0
  exit 0
fi

failed=0
compare() {
  local wanted=$expected.$1
  if ! [ -f "$wanted" ]; then wanted=$work/default; printf '%s' "$2" > "$wanted"; fi
  if ! cmp -s "$wanted" "$work/$1"; then
    failed=1
    diff -u --label "expected $1" --label "actual $1" "$wanted" "$work/$1"
  fi
}
compare out ""
compare err ""
compare status $'0\n'
exit $failed
