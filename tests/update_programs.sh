#!/usr/bin/env bash
# Rewrites the expectations of the programs named, or of all: tests/update_programs.sh TESSERA [NAME...]
# A new program gets its files this way. Read the difference before you keep it: this proves nothing.
set -eu
tests=$(cd "$(dirname "$0")" && pwd)
tessera=${1:-}; [ -x "$tessera" ] || { sed -n '2,3p' "$0" >&2; exit 2; }
shift
wanted=" $* "

update() {  # programs' folder, expectations' folder
  local program name
  for program in "$1"/*; do
    case $program in *.tsc) ;; *) [ -d "$program" ] || continue ;; esac
    name=$(basename "$program" .tsc)
    case $wanted in "  " | *" $name "*) "$tests/run_program.sh" --update "$tessera" "$program" "$2/$name" ;; esac
  done
}
update "$tests/programs" "$tests/programs"
update "$tests/../examples" "$tests/examples"
