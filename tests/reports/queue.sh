#!/usr/bin/env bash
# A real print queue on loopback: a document arrives there as the program made it, and a queue that nobody knows
# is told.   queue.sh TESSERA
set -eu
tessera=$1
command -v cupsd lpadmin > /dev/null || PATH=$PATH:/usr/sbin
command -v cupsd lpadmin lpstat > /dev/null || exit 77
work=$(mktemp -d)
server=
trap 'if [ -n "$server" ]; then kill "$server"; wait "$server" 2>/dev/null; fi; rm -rf "$work"' EXIT
cd "$work"
chmod 755 "$work"

fail() { echo "$*" >&2; cat "$work/log/error" >&2 2>/dev/null || true; exit 1; }

programs=$(dirname "$(dpkg -L cups-daemon | grep '/daemon$')")
mkdir -p etc/ppd spool/tmp cache run/certs log out bin/backend
for part in daemon filter notifier; do ln -sfn "$programs/$part" "bin/$part"; done
cat > bin/backend/tofile <<'BACKEND'
#!/bin/sh
[ $# -eq 0 ] && { echo "direct tofile:/ x x"; exit 0; }
umask 022
echo "$5" > "${DEVICE_URI#tofile:}/job-$1.options"
cat ${6:+"$6"} > "${DEVICE_URI#tofile:}/job-$1.pdf"
BACKEND
chmod 755 bin/backend/tofile
user=$(id -un) group=$(id -gn)
if [ "$user" = root ]; then
  user=lp group=lp
  chmod 1777 out
  chown -R root:lp spool run cache
  chmod 1770 spool/tmp
fi
port=$((20000 + $$ % 20000))
printf '%s\n' "User $user" "Group $group" "SystemGroup lpadmin" "ErrorLog $work/log/error" \
  "AccessLog $work/log/access" "PageLog $work/log/page" "CacheDir $work/cache" "RequestRoot $work/spool" \
  "ServerRoot $work/etc" "StateDir $work/run" "TempDir $work/spool/tmp" "ServerBin $work/bin" > etc/cups-files.conf
printf '%s\n' "Listen 127.0.0.1:$port" 'Browsing Off' 'WebInterface No' 'DefaultAuthType None' '<Location />' \
  'Order allow,deny' 'Allow from 127.0.0.1' '</Location>' '<Policy default>' '<Limit All>' 'Order deny,allow' \
  '</Limit>' '</Policy>' > etc/cupsd.conf
cupsd -f -c "$work/etc/cupsd.conf" -s "$work/etc/cups-files.conf" > /dev/null 2>&1 &
server=$!
export CUPS_SERVER=127.0.0.1:$port
for _ in $(seq 100); do lpstat -r 2> /dev/null | grep -q ' is running' && break; sleep .1; done
for queue in Lab Outra; do lpadmin -p $queue -E -v "tofile:$work/out" -m raw 2> /dev/null; done
lpadmin -d Outra

cat > nota.tsc <<'PROGRAM'
Imp.Escreva "número um"
Imp.Fim
CaixaDialogo "", "", "", "IMPRESSORA", ""
Imp.Escreva "número dois"
Imp.NovaPagina
Imp.Fim
PROGRAM
arrived() { for _ in $(seq 100); do [ -s "out/job-$1.pdf" ] && pdfinfo "out/job-$1.pdf" > /dev/null 2>&1 && return; sleep .1; done; fail "job $1"; }

# The system's default, then the one chosen in the dialog.
echo Lab | "$tessera" run --console nota.tsc 2> err
[ "$(cat err)" = "[impressora] Outra: 1
[dialogo] IMPRESSORA
[impressora] Lab: 2" ] || fail "$(cat err)"
arrived 1; arrived 2
grep -q 'print-scaling=none' out/job-1.options || fail "nothing is made to fit: $(cat out/job-1.options)"
pdftotext out/job-1.pdf - | grep -q 'número um' || fail "text of the first"
pdftotext out/job-2.pdf - | grep -q 'número dois' || fail "text of the second"
pdfinfo out/job-2.pdf | grep -q '^Pages: *2$' || fail "pages of the second"

# A queue given from outside; one that the system does not know.
echo | "$tessera" run --console --printer Lab nota.tsc 2> err
grep -q '^\[impressora\] Lab: 1$' err && grep -q '^\[impressora\] Lab: 2$' err || fail "$(cat err)"
arrived 3
echo Desconhecida | "$tessera" run --console nota.tsc 2> err
grep -q 'Erro no comando IMP.FIM' err || fail "$(cat err)"
