#!/bin/bash
# Installs, on Debian and its relatives, what a target needs and the machine lacks.
#   install.sh native|dll|run|test|bench|dist|deb|python|web
# Asks sudo once where the caller is not root. Compilers for Windows, Wine and the like are steps of
# their own: where one cannot be had, that is said and the rest goes on. Ends with 1 where the target
# is not possible at all, or where ZENITHOR_CI is set and anything is missing.
set -u
export DEBIAN_FRONTEND=noninteractive LC_ALL=C
target=${1:-run}

native="make cmake g++ python3 libcli11-dev libfmt-dev nlohmann-json3-dev"
checkers="googletest libgtest-dev clang clang-tidy clang-format cppcheck libclang-rt-dev binutils git pkg-config jq"
mingw32="g++-mingw-w64-i686"
mingw="$mingw32 g++-mingw-w64-x86-64"
python="python3-venv python3-numpy python3-pytest python3-hypothesis"
python_extras="python3-pandas python3-matplotlib python3-dask python3-distributed python3-zarr mypy"
wine="wine wine64 wine32:i386"
debian="build-essential dpkg-dev debhelper"
shells="zsh fish"
samples="fp-compiler fp-units-rtl luajit mono-mcs mono-runtime r-base-core ruby"
arm64="g++-aarch64-linux-gnu qemu-user libsimde-dev"
wasm="emscripten"
web="esbuild node-typescript"
browser="chromium fonts-dejavu-core"
npm=
command -v npm >/dev/null || npm="npm"

# What the target needs, as steps: step KIND SENTENCE PACKAGE...
# KIND is needed or extra, SENTENCE says what it means when the packages cannot be had. What a step
# does is set before each walk.
steps() {
  step needed "Nothing can be built." $native
  case $target in
    native) ;;
    dll)
      step needed "There is no compiler for Windows." $mingw
      step extra "zenithor.lib, for Microsoft's linker, is left out." llvm
      ;;
    run)
      step extra "The native library is used, not the DLL." $mingw32
      step extra "The native library is used, not the DLL." $wine
      ;;
    test)
      step needed "Tests cannot be built." $checkers
      step extra "The DLL is not tested." $mingw
      step extra "Links with Microsoft's import library are not tested." llvm lld
      step extra "The DLL is not tested." $wine
      step extra "The DLL's message box is not tested." xvfb xdotool
      step extra "The installer is not tested." nsis
      step extra "Nothing is tested for 64-bit ARM." $arm64
      step extra "Nothing is tested for WebAssembly." $wasm
      step extra "The Debian packages are not tested." $debian
      step extra "The package for JavaScript is not tested." $web
      step extra "The page is not tested." $browser $npm
      step extra "The package for Python is not tested." $python
      step extra "Data frames, plots and the cluster for Python are not tested." $python_extras
      step extra "Samples are tested in fewer languages." $samples
      step extra "The almanac's completions are tried in bash alone." $shells
      ;;
    bench)
      step needed "There is nothing to measure with." libbenchmark-dev libnova-dev valgrind
      step extra "WebAssembly is not timed." $wasm
      step extra "The DLL is not timed." $mingw32
      step extra "The DLL is not timed." $wine
      ;;
    dist)
      step needed "There is no compiler for Windows." $mingw
      step needed "There is no zenithor.lib for Microsoft's linker." llvm
      step extra "There is no installer." nsis
      step extra "The libraries for 64-bit ARM are left out." $arm64
      ;;
    deb)
      step needed "There are no packages." $debian
      ;;
    python)
      step extra "There are no wheels for Windows." $mingw
      step extra "There is no wheel for 64-bit ARM." g++-aarch64-linux-gnu libsimde-dev
      ;;
    web)
      step needed "There is no compiler for WebAssembly." $wasm
      step needed "Nothing turns TypeScript into a package." $web
      step extra "There is no page." $npm
      ;;
    *)
      echo "install.sh: native, dll, run, test, bench, dist, deb, python or web, not \"$target\"" >&2
      exit 1
      ;;
  esac
}

missing() {
  local name
  for name in "$@"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$name" 2>/dev/null | grep -qx installed || printf '%s ' "$name"
  done
}

all_missing() {
  step() { missing "${@:3}"; }
  steps
}

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
  step() { printf '%s ' "${@:3}"; }
  echo "Only on Debian is this looked after. Needed here, by Debian's names: $(steps)" >&2
  exit 0
fi
lacking=$(all_missing) || exit 1
if [ -z "$lacking" ]; then
  echo "Everything that is needed is installed."
  exit 0
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT

# Plainly first. Where two suites offer different versions, those of the installed release may fit
# together where the newest do not.
install() {
  local codename
  apt-get install -y --no-install-recommends "$@" >"$log" 2>&1 && return 0
  grep -Eq 'unmet dependencies|held broken packages' "$log" || return 1
  codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
  [ -n "$codename" ] &&
    apt-get install -y --no-install-recommends -t "$codename" "$@" >"$log" 2>&1
}

failed=0
install_step() {
  local kind=$1 sentence=$2 names
  names=$(missing "${@:3}")
  [ -z "$names" ] || install $names && return 0
  tail -n 8 "$log" | sed 's/^/    /' >&2
  echo "These packages could not be installed: $names" >&2
  echo "$sentence" >&2
  [ "$kind" = extra ] || exit 1
  [ -z "${ZENITHOR_CI:-}" ] || failed=1
}

if [ "$(id -u)" = 0 ]; then
  echo "Installing ${lacking}(Debian packages; a few minutes)."
  case $lacking in *:i386*) dpkg --add-architecture i386 ;; esac
  # One index of a foreign architecture may fail to load; what matters is whether the install works.
  apt-get update >/dev/null 2>&1
  step() { install_step "$@"; }
  steps
  exit "$failed"
fi

if command -v sudo >/dev/null; then
  echo "Installing needs sudo; what is missing: $lacking"
  sudo env ZENITHOR_CI="${ZENITHOR_CI:-}" "$0" "$target" && exit 0
fi
lacking=$(all_missing)
foreign=
case $lacking in *:i386*) foreign="dpkg --add-architecture i386; apt-get update; " ;; esac
echo "Please install, as root: ${foreign}apt-get install --no-install-recommends $lacking" >&2
step() { [ "$1" = extra ] && [ -z "${ZENITHOR_CI:-}" ] || missing "${@:3}"; }
[ -z "$(steps)" ]
