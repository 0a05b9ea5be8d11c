#!/usr/bin/env bash
# Documents read back: where each word stands on its sheet, in twips, as the rules of the report say.
#   documents.sh TESSERA
set -eu
tessera=$1
export CUPS_SERVER=/nowhere
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() { echo "$*" >&2; exit 1; }

# word PDF PAGE TEXT: the twips of its left edge, its upper and its right one. A line is as high as the font's
# ascent and descent together, which is what the reader gives.
word() {
  pdftotext -bbox -f "$2" -l "$2" "$1" - | sed -n "s|.*xMin=\"\(.*\)\" yMin=\"\(.*\)\" xMax=\"\(.*\)\" yMax=.*>$3</word>|\1 \2 \3|p" |
    head -1 | awk '{ printf "%d %d %d\n", $1 * 20 + .5, $2 * 20 + .5, $3 * 20 + .5 }'
}

# near NAME WANTED GOT: within a few twips.
near() {
  local d=$(($3 - $2))
  [ ${d#-} -le 6 ] || fail "$1: wanted $2, got $3"
}

cat > cells.tsc <<'PROGRAM'
Rel.Config "SAIDA:IMPRESSORA, MARGEMESQ:600, MARGEMSUP:500"
Rel.Col 0, "TAM:10 NFONT:ARIAL TFONT:10 ALIGN:ESQ"
Rel.Col 1, "TAM:20 NFONT:COURIER TFONT:10 ALIGN:DIR"
Rel.Col 2, "TAM:20 NFONT:COURIER TFONT:10 ALIGN:CEN BOLD:true"
Rel.Add "Ação", 255
Rel.Add "12,50"
Rel.Add "meio"
Rel.NovaLinha
Rel.Imprime "livre", 300
Rel.NovaPagina
Rel.Add "outra"
Rel.Add "1234567890123456789012345"
Rel.Fim
PROGRAM
"$tessera" run --console --printer cells.pdf cells.tsc 2> err || fail "$(cat err)"
[ "$(cat err)" = "[impressora] cells.pdf: 2" ] || fail "$(cat err)"
pdfinfo cells.pdf | grep -q '^Pages: *2$' || fail "two sheets"
pdfinfo cells.pdf | grep -q 'A4' || fail "A4"
pdffonts cells.pdf | tail -n +3 | grep -v 'yes yes\|yes no  yes' && fail "fonts go with the document"

# Cells: the left one 50 twips from its edge, the right one 100 from its own, the middle one between. A character
# of the typewriter's face is 120 twips wide.
read -r left top right < <(word cells.pdf 1 Ação); near "left cell" 650 "$left"
read -r left top right < <(word cells.pdf 1 12,50); near "right cell" $((600 + 1200 + 2400 - 50)) "$right"
near "its start" $((right - 5 * 120)) "$left"
read -r left top right < <(word cells.pdf 1 meio)
near "middle cell" $((600 + 3600 + 50 + (2400 - 4 * 120) / 2)) "$left"
height=$(pdftotext -bbox -f 1 -l 1 cells.pdf - | sed -n 's|.*yMin="\(.*\)" xMax=".*" yMax="\(.*\)">meio</word>|\1 \2|p' | awk '{ printf "%d", ($2 - $1) * 20 + .5 }')
near "its line" $((500 + (240 - height) / 2)) "$top"
# Free text on the second line.
read -r left top right < <(word cells.pdf 1 livre); near "free text" 900 "$left"; near "its top" $((500 + 240 + 25)) "$top"
# A cut text keeps the character that passes 2400 - 200 twips: the nineteenth.
pdftotext -f 2 -l 2 cells.pdf - | grep -q ' 1234567890123456789$' || fail "cut: $(pdftotext -f 2 -l 2 cells.pdf -)"

# Direct printing: row before column, the second line one height below, a document sent at the program's end.
cat > straight.tsc <<'PROGRAM'
Imp.Fonte "Nome", "Courier New", "Tamanho", 10
Imp.Posicione 1440, 2880
Imp.Escreva "um", " dois"
Imp.Escreva "abaixo"
Imp.NovaPagina
Imp.Escreva "alto"
PROGRAM
"$tessera" run --console --printer straight.pdf straight.tsc 2> err
[ "$(cat err)" = "[impressora] straight.pdf: 2" ] || fail "$(cat err)"
read -r left top right < <(word straight.pdf 1 um); near "column" 2880 "$left"; near "row" 1440 "$top"
read -r left below right < <(word straight.pdf 1 abaixo); near "line start" 0 "$left"
[ "$below" -gt "$((top + 200))" ] && [ "$below" -lt "$((top + 260))" ] || fail "line step: $((below - top))"
read -r left top right < <(word straight.pdf 2 alto); near "new page" 0 "$((left + top))"

# A picture stands where `Posicione` was last, whatever was printed since, and at the corner before; a pixel of it
# is 15 twips. A cell's ground and rules are in its document as on its page.
convert -size 20x10 xc:red BMP3:selo.bmp
cat > pictures.tsc <<'PROGRAM'
Imp.Desenhe "selo.bmp"
Imp.Posicione 3000, 1500
Imp.Escreva "texto"
Imp.Desenhe "selo.bmp"
Imp.Fim
Rel.Config "SAIDA:IMPRESSORA MARGEMESQ:1500 MARGEMSUP:1500"
Rel.Col 0, "TAM:10 CORTAB:255"
Rel.Add "", 0, 65280
Rel.NovaLinha
Rel.Img "selo.bmp", 150
Rel.Linha 0, 1500, 16711680, 0
Rel.Fim
PROGRAM
"$tessera" run --console --printer pictures.pdf pictures.tsc 2> err
[ "$(cat err)" = "[impressora] pictures.pdf: 1
[impressora] pictures-2.pdf: 1" ] || fail "$(cat err)"
pdftoppm -r 96 -png -singlefile pictures.pdf straight
pdftoppm -r 96 -png -singlefile pictures-2.pdf report
pixel() { convert "$1" -format "%[hex:p{$2,$3}]" info: | cut -c1-6; }
is() { [ "$(pixel "$1" "$2" "$3")" = "$4" ] || fail "$1 at $2,$3: wanted $4, got $(pixel "$1" "$2" "$3")"; }
for at in "1 1" "18 8" "102 202" "118 208"; do is straight.png $at FF0000; done
for at in "22 5" "5 12" "97 205" "160 205" "110 216"; do is straight.png $at FFFFFF; done
is report.png 140 108 00FF00
for at in "112 118" "128 124"; do is report.png $at FF0000; done
# The advancing picture has moved the line below itself.
[ "$(pixel report.png 150 125)" != FFFFFF ] || fail "the line behind the picture"

# What can't be written is told, and the next document has its chance.
cat > nowhere.tsc <<'PROGRAM'
Imp.Escreva "um"
Imp.Fim
Escreva "adiante"
PROGRAM
"$tessera" run --console --printer falta/nada.pdf nowhere.tsc > out 2> err
[ "$(cat out)" = adiante ] && grep -q 'Erro no comando IMP.FIM' err || fail "$(cat out err)"
[ ! -e falta ] || fail "no folder is made"
