#!/usr/bin/env bash
# `MudaIcone` on a real executable of the other system, made by its own tools and read back by others.
#   icons.sh TESSERA
set -eu
tessera=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# An icon file from plain pictures: colours by name, sides in pixels.
icon() {
  local file=$1 colour=$2 side pictures=()
  shift 2
  for side in "$@"; do
    python3 - "$colour" "$side" "$file.$side.png" <<'PICTURE'
import struct, sys, zlib
colour, side, name = bytes.fromhex(sys.argv[1]), int(sys.argv[2]), sys.argv[3]
def chunk(kind, data):
    return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))
rows = zlib.compress((b'\0' + (colour + b'\xff') * side) * side)
open(name, 'wb').write(b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', struct.pack('>IIBBBBB', side, side, 8, 6, 0, 0, 0))
                       + chunk(b'IDAT', rows) + chunk(b'IEND', b''))
PICTURE
    pictures+=("$file.$side.png")
  done
  icotool -c -o "$file" "${pictures[@]}"
}
icon velho.ico ff0000 32 16
icon novo.ico 00ff00 16 48

printf '1 ICON "velho.ico"\n' > p.rc
printf '.globl start\nstart: ret\n' > p.s
x86_64-w64-mingw32-windres --preprocessor=cat p.rc recursos.o
x86_64-w64-mingw32-as p.s -o p.o
x86_64-w64-mingw32-ld -e start p.o recursos.o -o p.exe
cp p.exe antes.exe

cat > Muda.tsc <<'PROGRAM'
Var r String
r = MudaIcone("p.exe", "novo.ico")
Escreva r
FimJanela
PROGRAM
[ "$("$tessera" run --console Muda.tsc < /dev/null)" = "Ícone alterado com sucesso!" ]

# The first icon is the new file's first picture, and the other one is as it was.
wrestool -x -t 14 p.exe > lido.ico
icotool -l lido.ico | sed 's/ --bit.*//' > lista
printf '%s\n' '--icon --index=1 --width=16 --height=16' '--icon --index=2 --width=16 --height=16' | diff -u - lista
icotool -x -i 1 -o primeiro.png lido.ico
icotool -x -i 1 -o esperado.png novo.ico
cmp primeiro.png esperado.png
wrestool -x -R -t 3 -n 2 antes.exe > segundo.antes
wrestool -x -R -t 3 -n 2 p.exe | cmp - segundo.antes
[ "$(stat -c %s p.exe)" -eq "$(stat -c %s antes.exe)" ]
[ ! -e p.exe.antigo ]
