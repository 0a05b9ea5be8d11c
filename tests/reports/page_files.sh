#!/usr/bin/env bash
# The page files: pictures of the pages while the preview is open, nothing behind it, whatever ended the program;
# what a killed one left goes with the next report, and what is somebody else's stays.   page_files.sh TESSERA
set -eu
tessera=$1
export CUPS_SERVER=/nowhere
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() { echo "$*" >&2; exit 1; }
await() { for _ in $(seq 100); do "$@" && return; sleep .05; done; fail "waited for: $*"; }
shown() { grep -q relatorio "$1" 2>/dev/null; }
pages() { ls XRel 2>/dev/null | grep -cE '^[0-9]+TMP[0-9]{4}\.png$' || true; }

cat > dois.tsc <<'PROGRAM'
Rel.Config "SAIDA:VIDEO MARGEMESQ:600 MARGEMSUP:600"
Rel.Col 0, "TAM:10 CORTAB:255"
Rel.Col 1, "TAM:10 TABVER:FALSE"
Rel.Col 2, "TAM:200 TABVER:FALSE"
Rel.Add "", 0, 65280
Rel.Add "x"
Rel.Add "", 0, 255
Rel.Linha 2000, 4000, 16711680, 2000
Rel.NovaPagina
Rel.Fim
PROGRAM
start() {  # NAME: a program whose preview is open until its input ends
  mkfifo "$1.in"
  "$tessera" run --console dois.tsc < "$1.in" > "$1.out" 2> "$1.err" &
  process=$!
  exec {input}> "$1.in"
  await shown "$1.err"
}

# Two programs in one folder keep out of each other's way; one is killed, the other ends by itself.
start one; one=$process one_input=$input
[ "$(pages)" = 2 ] || fail "two pages while the preview is open: $(ls -A XRel)"
start two; two=$process two_input=$input
[ "$(pages)" = 4 ] || fail "the pages of both: $(ls -A XRel)"
echo x > XRel/12TMP0001.txt

# The colours of a page: its paper, a cell, and the cell's red rules, which meet at the corners; the second
# cell has no rule of its own on its right, and the third goes beyond the paper. A slanted line stands below them.
picture=$(ls XRel/*0001.png | head -1)
[ "$(identify -format '%wx%h' "$picture")" = 794x1123 ] || fail "the size of a page picture"
pixel() { convert "$picture" -format "%[hex:p{$1,$2}]" info: | cut -c1-6; }
[ "$(pixel 5 5)" = FFFFFF ] && [ "$(pixel 60 48)" = 00FF00 ] || fail "paper and cell"
for at in "40 40" "40 56" "60 40" "120 48"; do [ "$(pixel $at)" = FF0000 ] || fail "rule at $at: $(pixel $at)"; done
[ "$(pixel 120 40)" = 000000 ] || fail "the later rule lies above: $(pixel 120 40)"
[ "$(convert "$picture" -crop 30x12+122+43 -format '%[fx:minima<0.5]' info:)" = 1 ] || fail "the second cell's letter"
[ "$(pixel 200 48)" = FF0000 ] && [ "$(pixel 200 40)" = 000000 ] || fail "no vertical rule: $(pixel 200 48)"
[ "$(pixel 793 48)" = FF0000 ] && [ "$(pixel 0 49)" = FFFFFF ] || fail "a cell ends with the paper"
[ "$(pixel 241 107) $(pixel 239 106) $(pixel 245 107)" = "2C2CFF D3D3FF FFFFFF" ] || fail "a slanted line is smooth"

kill -9 "$one"; wait "$one" 2>/dev/null || true
exec {one_input}>&-
[ "$(pages)" = 4 ] || fail "a killed program leaves its pages"
start three; three=$process three_input=$input
[ "$(pages)" = 4 ] || fail "the killed one's pages went, the other's stayed: $(ls -A XRel)"
exec {three_input}>&-; wait "$three"
kill -TERM "$two"; wait "$two" || true
exec {two_input}>&-
[ "$(ls -A XRel)" = 12TMP0001.txt ] || fail "only the stranger is left: $(ls -A XRel)"
rm -r XRel
start four; exec {input}>&-; wait "$process"
[ ! -e XRel ] || fail "the folder goes with the last page"

# A report without an end goes with its program, and its pages with the next report of the same program.
cat > semfim.tsc <<'PROGRAM'
Var nome String
Rel.Config "SAIDA:VIDEO"
Rel.NovaPagina
Rel.NovaPagina
Rel.Config "SAIDA:VIDEO"
Rel.NovaPagina
nome = Diretorio("XRel\*.png")
Enquanto nome <> ""
  Escreva "uma"
  nome = Diretorio()
Repita
FimJanela
PROGRAM
"$tessera" run --console semfim.tsc > out < /dev/null
[ "$(cat out)" = uma ] && [ ! -e XRel ] || fail "a report without an end: $(cat out; ls -A XRel)"

# A folder that can't be made is the failure of the first page; nothing is previewed.
echo x > XRel
"$tessera" run --console dois.tsc > out 2> err < /dev/null
grep -q 'Erro no comando REL.NOVAPAGINA' err && grep -q 'Erro no comando REL.FIM' err || fail "$(cat err)"
! grep -q relatorio err || fail "no preview: $(cat err)"
