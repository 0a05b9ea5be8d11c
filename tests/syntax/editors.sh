#!/usr/bin/env bash
# The colours for editors, held against a small program by each editor's own means: editors.sh FOLDER-OF-COLOURS
# An editor that is not installed is passed over.
set -u
colours=$(realpath "$1")
sample=$(cd "$(dirname "$0")" && pwd)/sample.tsc
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT
failed=0
fail() { echo "$*" >&2; failed=1; }

# Every word of the language stands in each of the files.
for word in Enquanto FimSe Escreva AdicionaRegistro SQL Rel Navegador; do
  for file in kate/tessera.xml vim/syntax/tessera.vim vscode/syntaxes/tessera.tmLanguage.json geany/filetypes.Tessera.conf; do
    grep -qiw "$word" "$colours/$file" || fail "$file lacks $word"
  done
done
python3 -m json.tool "$colours/vscode/package.json" > /dev/null || fail "package.json"

# The rules of VS Code: what each line's first match of a rule is. Its engine knows more than Python's, but not for these.
python3 - "$colours" "$sample" <<'PY' || failed=1
import json, re, sys
rules = json.load(open(sys.argv[1] + "/vscode/syntaxes/tessera.tmLanguage.json"))["patterns"]
def scopes(line):
    found, at = [], 0
    while at < len(line):
        best = None
        for rule in rules:
            pattern = rule.get("match") or '"[^"]*("|$)'
            match = re.compile(pattern).search(line, at)
            if match and match.end() > match.start() and (best is None or match.start() < best[0].start()):
                best = (match, rule["name"])
        if best is None: break
        found.append((best[0].group(), best[1].split(".")[0] + "." + best[1].split(".")[1]))
        at = best[0].end()
    return found
lines = open(sys.argv[2], encoding="utf-8").read().splitlines()
wanted = {
    0: [("' uma palavra: Escreva", "comment.line")],
    1: [("Var", "keyword.control"), ("String", "storage.type"), ("Inteiro", "storage.type")],
    2: [("EntraTexto", "support.function"), ("\"Se 'nome'\"", "string.quoted")],
    4: [("escreva", "support.function"), ('"Linha "', "string.quoted")],
    5: [(".Txt", "entity.other"), ("3.5", "constant.numeric")],
    6: [("Repita", "keyword.control")],
    7: [("TamLin", "variable.language")],
    8: [],
}
status = 0
for number, expected in wanted.items():
    seen = scopes(lines[number])
    if number == 5: seen = [s for s in seen if s[0] != "Caixa"]
    if seen != expected:
        print("vscode, line", number + 1, seen, "instead of", expected, file=sys.stderr)
        status = 1
sys.exit(status)
PY

if command -v vim > /dev/null; then
  group() {  # line column
    vim -u NONE -N -es --cmd "set rtp^=$colours/vim" -c 'syntax on' -c "edit $sample" -c 'set ft=tessera' \
      -c "redir! > $work/group" -c "echo synIDattr(synID($1, $2, 1), 'name')" -c 'redir END' -c 'qa!' < /dev/null > /dev/null 2>&1
    tr -d '\n' < "$work/group"
  }
  while read -r line column wanted; do
    seen=$(group "$line" "$column")
    [ "${seen:-none}" = "$wanted" ] || fail "vim, $line:$column: ${seen:-none} instead of $wanted"
  done <<'EOT'
1 20 tesseraComment
2 1 tesseraBlock
2 10 tesseraType
3 10 tesseraCommand
3 22 tesseraText
4 1 tesseraBlock
5 4 tesseraCommand
6 9 tesseraProperty
6 16 tesseraNumber
8 6 tesseraVariable
9 1 none
EOT
fi

highlighter=$(command -v kate-syntax-highlighter || command -v kate-syntax-highlighter5)
if [ -n "$highlighter" ]; then
  mkdir -p "$work/data/org.kde.syntax-highlighting/syntax"
  cp "$colours/kate/tessera.xml" "$work/data/org.kde.syntax-highlighting/syntax/"
  XDG_DATA_HOME=$work/data QT_QPA_PLATFORM=offscreen "$highlighter" --syntax Tessera --output-format html \
    "$sample" > "$work/kate.html" 2> "$work/kate.err" || fail "kate: $(cat "$work/kate.err")"
  [ -s "$work/kate.err" ] && fail "kate: $(cat "$work/kate.err")"
  coloured() { grep -qE "<span[^>]*>[^<]*$1" "$work/kate.html" || fail "kate: $1 has no colour"; }
  coloured 'Enquanto'; coloured 'Repita'; coloured 'escreva'; coloured 'TamLin'; coloured 'Inteiro'; coloured '3\.5'
  grep -qE '<span[^>]*>enquanto' "$work/kate.html" && fail "kate: enquanto is no word of the language"
fi
exit $failed
