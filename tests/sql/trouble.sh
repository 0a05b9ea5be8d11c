#!/usr/bin/env bash
# Database files in trouble: one that another user holds locked, and a disk without room. Each is an error of the
# operation, the program goes on, and the file stays whole.   trouble.sh TESSERA
set -eu
tessera=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

cat > locked.tsc <<'PROGRAM'
Var t String
SQL B.Abre "a.db"
SQL B.T.Abre "SELECT * FROM t"
SQL B.T.nome = "novo"
Escreva "pronto"
t = EntraTexto("preso")
SQL B.T.Atualiza
t = SQL(B.T.nome)
Escreva "em edição ", t
t = EntraTexto("solto")
SQL B.T.Atualiza
SQL B.Fecha
PROGRAM
sqlite3 a.db "CREATE TABLE t (id INTEGER PRIMARY KEY, nome TEXT); INSERT INTO t VALUES (1, 'velho')"
mkfifo input lock
"$tessera" run --console locked.tsc < input > out 2> err &
program=$!
exec 3> input
sqlite3 a.db < lock > locked &
holder=$!
exec 4> lock
for _ in $(seq 100); do grep -q pronto out && break; sleep .1; done
echo "BEGIN EXCLUSIVE; SELECT 'preso';" >&4
for _ in $(seq 100); do grep -q preso locked && break; sleep .1; done
started=$(date +%s)
echo sim >&3
for _ in $(seq 100); do grep -q edição out && break; sleep .1; done
[ $(($(date +%s) - started)) -ge 4 ]
echo "COMMIT;" >&4
exec 4>&-
wait "$holder"
echo sim >&3
exec 3>&-
wait "$program"
printf '%s\n' pronto 'em edição novo' | diff -u - out
[ "$(grep -c 'SQL Error database is locked' err)" -eq 1 ]
[ "$(sqlite3 a.db 'SELECT nome FROM t')" = novo ]

cat > full.tsc <<'PROGRAM'
Var t String, i Inteiro
SQL B.Abre "b.db"
SQL B.Execute "CREATE TABLE t (id INTEGER PRIMARY KEY, texto TEXT)"
SQL B.T.Abre "SELECT * FROM t"
t = Sequencia(16, "x")
Enquanto i < 14
  i++
  t = t & t
Repita
SQL B.T.Adiciona
SQL B.T.texto = t
SQL B.T.Atualiza
SQL B.T.texto = "curto"
SQL B.T.Atualiza
i = SQL(B.T.TotalRegistros)
Escreva "gravados ", i
SQL B.Fecha
PROGRAM
(ulimit -f 100; exec "$tessera" run --console full.tsc > full.out 2> full.err)
printf '%s\n' 'gravados 1' | diff -u - full.out
[ "$(grep -c 'SQL Error' full.err)" -eq 1 ]
[ "$(sqlite3 b.db 'PRAGMA integrity_check; SELECT texto FROM t' | tr '\n' ' ')" = "ok curto " ]
[ ! -e b.db-journal ]
