#!/bin/bash
# Installs, on Debian, what building and testing need and the machine lacks. Prints one line.
#   install.sh build     compilers and libraries for the native library, the tools and the DLL, and Wine
#   install.sh test      that, and the test libraries, checkers and fuzzers
#   install.sh bench     that, and the libraries that the benchmarks compare with
# Exits with 0 where only Wine or the cross compilers cannot be had, after saying so; with 1 where
# the native build is not possible, or where ZENITHOR_CI is set and anything is missing.
set -u
export DEBIAN_FRONTEND=noninteractive

native="make cmake g++ python3 libcli11-dev libfmt-dev nlohmann-json3-dev"
windows="g++-mingw-w64-i686 g++-mingw-w64-x86-64 wine wine64 wine32:i386"
case "${1:-build}" in
  build) ;;
  test | bench)
    native="$native googletest libgtest-dev clang clang-tidy clang-format cppcheck libclang-rt-14-dev binutils git"
    windows="$windows xvfb xdotool llvm-14 lld-14 nsis"
    ;;&
  bench) native="$native libbenchmark-dev libnova-dev valgrind" ;;
  test) ;;
  *) echo "install.sh: build, test or bench, not \"$1\"" >&2; exit 1 ;;
esac

missing() {
  local name
  for name in "$@"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$name" 2>/dev/null | grep -qx installed || printf '%s ' "$name"
  done
}

log=$(mktemp)
trap 'rm -f "$log"' EXIT
install() { apt-get install -y --no-install-recommends -t bookworm "$@" >"$log" 2>&1; }

lacking=$(missing $native)
lacking_windows=$(missing $windows)
if [ -z "$lacking$lacking_windows" ]; then
  echo "Everything that is needed is installed."
  exit 0
fi
if ! command -v apt-get >/dev/null || [ "$(id -u)" != 0 ]; then
  echo "Please install, as root: $lacking$lacking_windows" >&2
  [ -z "$lacking" ] && [ -z "${ZENITHOR_CI:-}" ] && exit 0
  exit 1
fi
echo "Installing ${lacking}${lacking_windows}(Debian packages; a few minutes)."
[ -z "$lacking_windows" ] || dpkg --add-architecture i386
# One index of a foreign architecture may fail to load; what matters is whether the install works.
apt-get update >/dev/null 2>&1
if [ -n "$lacking" ] && ! install $lacking; then
  tail -n 5 "$log" >&2
  echo "These packages could not be installed: $lacking" >&2
  exit 1
fi
if [ -n "$lacking_windows" ] && ! install $lacking_windows; then
  echo "Wine or the Windows compilers could not be installed: going on with the native library." >&2
  if [ -n "${ZENITHOR_CI:-}" ]; then
    tail -n 5 "$log" >&2
    exit 1
  fi
fi
exit 0
