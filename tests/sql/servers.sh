#!/usr/bin/env bash
# Runs servers.tsc against a real server that it starts on loopback, and expects of each what stands in
# servers.out; what the server itself says of a missing table is left out.
#
#   servers.sh TESSERA sqlite|postgresql|mariadb|odbc
#
# Ends with 77 where the server isn't installed.
set -eu
tessera=$1 engine=$2
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
chmod 755 "$work"
stop=:
finish() { $stop >/dev/null 2>&1 || true; rm -rf "$work"; }
trap finish EXIT

missing() { echo "não instalado: $1"; exit 77; }

# The command under an account that is not the administrator's, which servers refuse.
as() {
  local account=$1; shift
  if [ "$(id -u)" -eq 0 ]; then setpriv --reuid "$account" --regid "$account" --clear-groups "$@"; else "$@"; fi
}

free_port() { python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])'; }

start_postgresql() {
  local bin
  bin=$(dirname "$(ls /usr/lib/postgresql/*/bin/initdb 2>/dev/null | tail -n 1)") || true
  [ -x "$bin/initdb" ] || missing postgresql
  mkdir "$work/pg"
  [ "$(id -u)" -ne 0 ] || chown postgres "$work/pg"
  cd "$work/pg"
  as postgres "$bin/initdb" -D "$work/pg/data" -A trust -U tessera --no-locale -E UTF8 -N > /dev/null
  printf '%s\n' "listen_addresses='127.0.0.1'" "port=$port" "unix_socket_directories='$work/pg'" fsync=off \
    >> "$work/pg/data/postgresql.conf"
  as postgres "$bin/pg_ctl" -D "$work/pg/data" -l "$work/pg/log" -w start > /dev/null
  stop="as postgres $bin/pg_ctl -D $work/pg/data -m immediate stop"
  "$bin/createdb" -h 127.0.0.1 -p "$port" -U tessera loja
}

start_mariadb() {
  local server
  server=$(PATH=$PATH:/usr/sbin command -v mariadbd) || missing mariadb-server
  mkdir "$work/my"
  mariadb-install-db --no-defaults --datadir="$work/my" --auth-root-authentication-method=normal --skip-test-db \
    > /dev/null 2>&1
  [ "$(id -u)" -ne 0 ] || chown -R mysql "$work/my"
  as mysql "$server" --no-defaults --datadir="$work/my" --bind-address=127.0.0.1 --port="$port" \
    --socket="$work/my/s" --innodb-buffer-pool-size=16M --skip-log-bin 2> "$work/log" &
  stop="mariadb-admin --no-defaults --socket=$work/my/s -u root shutdown"
  local admin="mariadb-admin --no-defaults --socket=$work/my/s -u root"
  for _ in $(seq 100); do $admin ping > /dev/null 2>&1 && break; sleep .1; done
  mariadb --no-defaults --socket="$work/my/s" -u root -e "create database loja;
    create user tessera@'127.0.0.1' identified by 'tessera'; create user tessera@'localhost' identified by 'tessera';
    grant all on loja.* to tessera@'127.0.0.1'; grant all on loja.* to tessera@'localhost'"
}

port=$(free_port)
case $engine in
  sqlite) connection="loja.db" ;;
  postgresql) start_postgresql; connection="Driver=PostgreSQL;Server=127.0.0.1;Port=$port;Database=loja;Uid=tessera" ;;
  mariadb)
    start_mariadb
    connection="Driver=MariaDB;Server=127.0.0.1;Port=$port;Database=loja;Uid=tessera;Pwd=tessera" ;;
  odbc)
    grep -qs '^\[SQLite3\]' /etc/odbcinst.ini || missing libsqliteodbc
    connection="Driver={SQLite3};Database=$work/odbc.db" ;;
esac
if driver=$("$tessera" run --console "$here/driver.tsc" -- "$connection" 2>&1 | grep 'Instale o pacote'); then
  missing "${driver##* }"
fi

cp "$here/servers.tsc" "$here/gone.tsc" "$work/"
cd "$work"
"$tessera" run --console servers.tsc -- "$connection" 2>&1 | sed '/linha 64/I,$d; /Linha: 64/,$d' > out
diff -u "$here/servers.out" out

# The example needs nothing but the connection text to change.
cp -r "$here/../../examples/Biblioteca" "$work/"
"$tessera" run --console Biblioteca -- "$connection" < "$here/../examples/Biblioteca.in" > bib.out 2> bib.err
diff -u "$here/../examples/Biblioteca.err" bib.err
[ ! -s bib.out ]

# A server that goes away in the middle is an error of each operation, and the program goes on.
case $engine in
  postgresql | mariadb)
    mkfifo input
    "$tessera" run --console gone.tsc -- "$connection" < input > gone 2> gone.err &
    program=$!
    exec 3> input
    for _ in $(seq 100); do grep -q aberta gone 2>/dev/null && break; sleep .1; done
    $stop > /dev/null 2>&1
    stop=:
    echo pronto >&3
    exec 3>&-
    wait "$program"
    printf '%s\n' "aberta" "lido um" "ainda um" "fim" | diff -u - gone
    [ "$(grep -c 'SQL Error' gone.err)" -eq 2 ]
    ;;
esac
