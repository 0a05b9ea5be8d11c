#!/usr/bin/env bash
# Sound, video, recorder and camera with real windows, a sound server of its own and files of several kinds; and that
# nothing ends a program where a package is missing.   windows.sh TESSERA
set -eu
tessera=$1
work=$(mktemp -d)
servers=()
cleanup() {
  for server in "${servers[@]}"; do kill "$server" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT
cd "$work"
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$work/run HOME=$work
mkdir -m 700 run pa

fail() { echo "$*" >&2; exit 1; }
await() { for _ in $(seq 100); do "$@" && return; sleep .05; done; fail "waited for: $*"; }
line() { sed -n "$1p" saida.txt | tr -d '\r'; }

# A sound of two seconds, 16 bits, one channel: a plain header and a slow wave.
python3 - <<'PYTHON'
import math, struct, wave
sound = wave.open('dois.wav', 'wb')
sound.setnchannels(1); sound.setsampwidth(2); sound.setframerate(8000)
sound.writeframes(b''.join(struct.pack('<h', int(9000 * math.sin(i / 5))) for i in range(16000)))
sound.close()
PYTHON

cat > toca.tsc <<'PROGRAM'
Var f String, i Inteiro
AbreArquivo S, "saida.txt", TEXTOGRAVACAO
Som A, "dois.wav"
Som B, "dois.wav"
Som A.Tocar
Som B.Tocar
Som B.Loop = "SIM"
f = A.Tempo
GravaArquivo S, f
Aguarde 700
Som A.Pausar
Aguarde 250
f = A.Posicao
GravaArquivo S, f
Aguarde 400
f = A.Posicao
GravaArquivo S, f
Som A.Continuar
Enquanto i < 24
  Aguarde 100
  i++
Repita
f = A.Posicao
GravaArquivo S, f
f = B.Posicao
GravaArquivo S, f
Som A.Remove
Som B.Fim
GravaArquivo S, "fim"
FechaArquivo S
FimJanela
PROGRAM

played() {  # how it went, whatever the machine's pace
  [ "$(line 1)" = 2000 ] || fail "$1: the length: $(cat saida.txt)"
  [ "$(line 2)" -gt 0 ] && [ "$(line 2)" -lt 2000 ] || fail "$1: it plays: $(cat saida.txt)"
  [ "$(line 3)" = "$(line 2)" ] || fail "$1: a pause holds: $(cat saida.txt)"
  [ "$(line 4)" = 2000 ] || fail "$1: it goes on to its end: $(cat saida.txt)"
  [ "$(line 5)" -lt 2000 ] || fail "$1: the marked one began anew: $(cat saida.txt)"
  [ "$(line 6)" = fim ] || fail "$1: it comes to its end"
}

# No sound server at all.
export PULSE_SERVER=unix:$work/nowhere
timeout 40 "$tessera" run toca.tsc > out 2> err || fail "without a sound server: $(cat err)"
[ ! -s err ] || fail "it says nothing: $(cat err)"
played "without a server"

# A server with a sink that nobody hears, and a microphone that hears a pipe.
pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --log-target=file:"$work/pa/log" \
  -L "module-native-protocol-unix auth-anonymous=1 socket=$work/pa/native" \
  -L "module-null-sink sink_name=lab rate=44100 channels=2" \
  -L "module-pipe-source source_name=labmic file=$work/pa/mic format=s16le rate=44100 channels=2" > /dev/null 2>&1 &
servers+=($!)
export PULSE_SERVER=unix:$work/pa/native
await test -S pa/native
await test -p pa/mic
timeout 40 "$tessera" run toca.tsc > out 2> err || fail "with a sound server: $(cat err)"
played "with a server"

# What the microphone hears is what is saved; the program computes and waits meanwhile.
cat > grava.tsc <<'PROGRAM'
GravaSom "INICIAR"
Aguarde 1500
GravaSom "PARAR"
GravaSom "SALVAR", "voz.wav"
FimJanela
PROGRAM
head -c 352800 /dev/urandom > heard
(cat heard > pa/mic) &
timeout 40 "$tessera" run grava.tsc > out 2> err || fail "the recorder: $(cat err)"
python3 - <<'PYTHON' || fail "the recording is what was heard"
import wave
voice = wave.open('voz.wav')
assert voice.getparams()[:3] == (2, 2, 44100), voice.getparams()
frames = voice.readframes(voice.getnframes())
assert frames == open('heard', 'rb').read(), len(frames)
PYTHON

# A box is a window that nobody answers here: a program's own clock ends it.
cat > caixas.tsc <<'PROGRAM'
Var i Inteiro
AbreArquivo S, "saida.txt", TEXTOGRAVACAO
Temporizador Fecha.Ativa, 600
Som A, "dois.wav"
Som A.Tocar
GravaSom "INICIAR"
WebCam "CONFIG", 1, 1, 5, 5
WebCam "INICIA"
Navegador "ATIVA", 1, 1, 5, 5
Aguarde 300
GravaArquivo S, "fim"
FechaArquivo S
FimJanela
Sub Temporizador_Fecha()
FechaArquivo S
FimJanela
FimSub
PROGRAM

# Without each package of plug-ins in turn, and without each part: no signal ends the program.
programs=$(dirname "$(readlink -f "$tessera")")
plugins=$(dirname "$(find /usr/lib -name libgstcoreelements.so | head -n 1)")
export PULSE_SERVER=unix:$work/nowhere
survives() {  # WHAT COMMAND...
  local what=$1; shift
  local status=0
  "$@" > out 2> err || status=$?
  [ $status -lt 124 ] || fail "$what: the program ended by $status: $(cat err)"
}
for package in gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-libav; do
  mkdir "$package"
  ln -s "$plugins"/*.so "$package"
  for file in $(dpkg -L "$package" | grep '\.so$'); do rm -f "$package/$(basename "$file")"; done
  survives "$package" env GST_PLUGIN_SYSTEM_PATH_1_0="$work/$package" GST_REGISTRY="$work/$package.bin" \
    timeout 30 "$tessera" run caixas.tsc
done
mkdir bare
cp "$programs"/tessera "$programs"/tessera-runtime bare
for part in sound media web; do
  rm -f bare/*.so
  for file in "$programs"/libtessera_*.so; do
    case $file in *_$part.so) echo x > "bare/libtessera_$part.so" ;; *) ln -s "$file" bare ;; esac
  done
  [ $part != sound ] || bare/tessera run --console caixas.tsc 2>&1 | grep -q 'Instale o pacote libsndfile1' ||
    fail "the package is not named"
  survives "libtessera_$part.so" timeout 30 bare/tessera run caixas.tsc
done
