#!/usr/bin/env bash
# The price list of the examples: what its PDF says is what its file of products adds up to, a page on the screen
# is the page of the PDF, and a sheet printed is the sheet previewed.   examples.sh TESSERA EXAMPLES
set -eu
tessera=$1
export CUPS_SERVER=/nowhere
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$2/Precos" "$work/"
cd "$work/Precos"

fail() { echo "$*" >&2; exit 1; }
await() { for _ in $(seq 200); do "$@" && return; sleep .05; done; fail "waited for: $*"; }

mkfifo input
"$tessera" run --console . < input > out 2> err &
program=$!
exec 3> input
await grep -q '1 of 11' err
printf 'clique BtnPdf\ntudo.pdf\n' >&3
await test -s tudo.pdf
cp XRel/*0002.png page.png
printf 'clique BtnImprimir\nimpresso.pdf\n' >&3
await grep -q 'impresso.pdf: 11' err
exec 3>&-
wait "$program" || fail "$(cat err)"
[ ! -e XRel ] || fail "the page files go"

# The words of both documents stand at the same places.
pdftotext -bbox tudo.pdf - | grep '<word' > previewed
pdftotext -bbox impresso.pdf - | grep '<word' > printed
cmp -s previewed printed || fail "the sheets differ: $(diff previewed printed | head -4)"

# Every product, each group's total, the sum, and a number on each page.
pdftotext -layout tudo.pdf text
tr -d '\r' < precos.txt > products
while IFS=';' read -r _ code product _ price; do
  grep -qE "^ *$code +$product +[0-9]+ +$price +[0-9.,]+$" text || fail "product $code $product $price"
done < products
totals=$(awk -F';' '{ gsub(",", ".", $5); of[$1] += $4 * $5; all += $4 * $5 } END { for (g in of) printf "%s;%.2f\n", g, of[g]; printf "ALL;%.2f\n", all }' products)
while IFS=';' read -r group total; do
  shown=$(echo "$total" | sed -E ':a; s/([0-9])([0-9]{3})([.,]|$)/\1,\2\3/; ta' | tr '.,' ',.')
  if [ "$group" = ALL ]; then wanted="500 produtos, no valor de $shown"; else wanted="Total de $group +$shown"; fi
  grep -qE "$wanted" text || fail "$wanted"
done <<< "$totals"
[ "$(grep -cE '^ *Página [0-9]+$' text)" = 11 ] && [ "$(grep -c 'LISTA DE PREÇOS' text)" = 11 ] || fail "heading and number of each page"
[ "$(pdfimages -list tudo.pdf | awk 'NR > 2 && $3 == "image" { print $11 }' | sort -u | wc -l)" = 1 ] || fail "the logo is written once"

# The page on the screen is that of the PDF, but for the painting of the letters' edges.
pdftoppm -r 96 -f 2 -l 2 -png tudo.pdf sheet
identify -format '%wx%h' sheet*.png | grep -qE '^79[34]x112[23]$' || fail "$(identify sheet*.png)"
far=$(compare -metric AE -fuzz 60% page.png "$(ls sheet*.png)" null: 2>&1 || true)
[ "${far%.*}" -lt 4000 ] || fail "$far pixels differ by far"
