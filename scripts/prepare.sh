# What ./run and ./test have in common: install what is missing, build the release preset. Sourced by bash from
# the top folder.

packages=(
  g++ cmake ninja-build ccache mold          # build
  clang-format clang-tidy                    # the keepers
  libcups2-dev cups-daemon cups-client poppler-utils imagemagick  # printing, and a look at what was printed
  libqt6sql6-sqlite libqt6sql6-psql postgresql-15 python3  # databases, and a server for the tests
  libcli11-dev nlohmann-json3-dev qt6-base-dev qt6-svg-dev libfreeimage-dev libgtest-dev libsqlite3-dev  # libraries
  qt6-translations-l10n                      # the desktop's dialogs in Portuguese
  x11-xserver-utils                          # the screen's modes, for "RESVIDEO"
  fonts-dejavu-core fonts-liberation         # faces for "Courier New" and its like
  libcurl4-openssl-dev libffi-dev            # file transfer, calls of libraries
  libsndfile1-dev qt6-multimedia-dev qt6-webengine-dev  # files of sound, what is played and seen, pages of the net
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-libav  # the codecs that play
  pulseaudio pulseaudio-utils                # a sound server for the tests
  python3-pyftpdlib python3-openssl openssl  # a server of files for the tests
  binutils-mingw-w64-x86-64 icoutils desktop-file-utils  # icons, made and read by others
  python3-sphinx python3-myst-parser furo weasyprint  # the manual: pages, their theme, paper
  xvfb xauth xdotool libxcb1-dev sqlite3      # tests with a real display, and a look at what was exported
  vim-tiny libkf5syntaxhighlighting-tools     # editors, to look at their colours
)

is_installed() {
  [ "$(dpkg-query -W -f '${Status}' "$1" 2>/dev/null)" = "install ok installed" ]
}

# Runs a command quietly; where it fails, shows what it said.
quietly() {
  local said
  if ! said=$("$@" 2>&1); then
    printf '%s\n' "$said" >&2
    return 1
  fi
}

install_missing() {
  local missing=() package as_root=()
  for package in "${packages[@]}"; do
    is_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Faltam pacotes: ${missing[*]}. Instale-os como administrador e tente de novo." >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "Instalando: ${missing[*]}" >&2
  quietly "${as_root[@]}" apt-get update -qq
  quietly "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# build_release [TARGET...]: into build/release/bin; without a target, everything.
build_release() {
  [ -f build/release/build.ninja ] || quietly cmake --preset release
  local targets=()
  [ $# -gt 0 ] && targets=(--target "$@")
  echo "Compilando..." >&2
  quietly cmake --build --preset release "${targets[@]}"
}
