#!/usr/bin/env bash
# The browser on a virtual screen: a page of a server on loopback is seen, its scripts run, it follows its window, and
# what it asks of the machine goes to the desktop. Skipped where the part is not built.   pages.sh TESSERA
set -eu
tessera=$1
[ -e "$(dirname "$(readlink -f "$tessera")")/libtessera_web.so" ] || exit 77
work=$(mktemp -d)
servers=()
cleanup() {
  for server in "${servers[@]}"; do kill "$server" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT
cd "$work"
mkdir -m 700 run
mkdir site bin
export XDG_RUNTIME_DIR=$work/run HOME=$work PATH=$work/bin:$PATH
unset QT_QPA_PLATFORM

fail() { echo "$*" >&2; exit 1; }
await() { for _ in $(seq 300); do "$@" && return; sleep .05; done; fail "waited for: $*"; }
asked() { grep -q "$1" asked 2>/dev/null; }
colour() { import -window root -crop "1x1+$1+$2" -depth 8 txt:- | sed -n 's/.*\(#[0-9A-F]\{6\}\).*/\1/p'; }
shows() { [ "$(colour "$1" "$2")" = "$3" ]; }

# The desktop's own browser, which only writes down where it was sent.
printf '#!/bin/sh\necho "$1" >> "%s/opened"\n' "$work" > bin/xdg-open
chmod +x bin/xdg-open

cat > site/index.html <<'PAGE'
<body style="margin:0;background:#204080"><a href="/nova.html" target="_blank" style="display:block;height:2000px"></a>
<script>fetch('/script')</script></body>
PAGE
echo '<body style="background:#108030">' > segunda.html

cat > server.py <<'PYTHON'
import http.server, os
os.chdir('site')
class Handler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, form, *values):
        with open('../asked', 'a') as log: log.write(form % values + '\n')
server = http.server.HTTPServer(('127.0.0.1', 0), Handler)
with open('../port.new', 'w') as port: port.write(str(server.server_port))
os.rename('../port.new', '../port')
server.serve_forever()
PYTHON
python3 server.py & servers+=($!)
await test -e port
Xvfb -displayfd 6 6> display -screen 0 1280x1024x24 -nolisten tcp > /dev/null 2>&1 & servers+=($!)
await test -s display
export DISPLAY=:$(cat display)

cat > paginas.tsc <<'PROGRAM'
Janela Tamanho = 30, 80, Posicao = 0, 0
Botao BArquivo, 0.2, 1, 2, 10, "Arquivo"
Botao BVolta, 0.2, 15, 2, 10, "Volta"
Navegador "URL", LinhaComando
Navegador "ATIVA", 3, 1, 28, 78
Enquanto 1 = 1
  Aguarde CliqueBotao
  Se Retorno = "BArquivo"
    Navegador "URL", "segunda.html"
  FimSe
  Se Retorno = "BVolta"
    Navegador "VOLTAR"
  FimSe
Repita
PROGRAM
"$tessera" run --no-check paginas.tsc -- "http://127.0.0.1:$(cat port)/" > out 2> err & program=$!
servers+=($program)

await asked 'GET / '
await asked 'GET /script'
await shows 300 200 '#204080'
xdotool mousemove 40 15 click 1
await shows 300 200 '#108030'
xdotool mousemove 150 15 click 1
await shows 300 200 '#204080'

# A new window is the desktop's. A page that has just come back may miss the first click.
opens_a_window() { xdotool mousemove 300 200 click 1; sleep .3; test -s opened; }
await opens_a_window
grep -qx "http://127.0.0.1:$(cat port)/nova.html" opened || fail "the desktop's browser was sent to: $(cat opened)"
asked 'nova.html' && fail "the page was opened here too"

# A person makes the window larger, and the page with it.
shows 900 600 '#204080' && fail "the page is larger than its window"
xdotool search --onlyvisible --name Tessera windowsize 1000 700
await shows 900 600 '#204080'

kill -TERM $program
for _ in $(seq 200); do kill -0 $program 2> /dev/null || break; sleep .05; done
kill -0 $program 2> /dev/null && fail "a polite end ends it"
exit 0
