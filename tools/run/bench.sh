#!/bin/bash
# Builds and runs the timings: the native library, then the 32-bit DLL under Wine (where both can be
# had), each beside its baselines in the same run.
#   bench.sh
set -eu
cd "$(dirname "$0")/../.."
root=$PWD

echo "Building the native timings"
tools/run/build.sh linux zenithor bench_exports bench_redraw karvo
archive=out/data/archive
compact=build/bench/compact/archive
[ -f $compact/karvo.ndx ] || out/linux/karvo build --max-error 1 --out build/bench/compact >/dev/null
mkdir -p build/bench/profile/tavvin_files
ln -sfn "$root/$archive" build/bench/profile/tavvin_files/archive
XDG_DATA_HOME=$root/build/bench/profile build/linux/bench/bench_exports \
  out/linux/libzenithor.so $archive $compact
echo
XDG_DATA_HOME=$root/build/bench/profile build/linux/bench/bench_redraw out/linux/libzenithor.so $archive
echo
tools/run/build.sh linux bench_elementary
build/linux/bench/bench_elementary
echo
if tools/run/build.sh linux bench_series 2>/dev/null; then
  build/linux/bench/bench_series --benchmark_min_time=0.3 2>/dev/null
fi
echo
if tools/run/build.sh linux bench_values 2>/dev/null; then
  build/linux/bench/bench_values 2>/dev/null
fi
echo
if tools/run/build.sh linux bench_searches 2>/dev/null; then
  build/linux/bench/bench_searches --benchmark_min_time=0.3 2>/dev/null
fi

if [ -n "$(tools/setup/presets.sh wasm)" ]; then
  echo
  tools/run/bench_wasm.sh
fi

if [ -n "$(tools/setup/presets.sh win32)" ]; then
  echo
  echo "Building the timings of the 32-bit DLL"
  tools/run/build.sh win32 zenithor bench_exports bench_redraw
  roaming=$(tools/run/under_wine.sh cmd /c 'echo %APPDATA%' 2>/dev/null | tr -d '\r\n' | tr '\\' /)
  folder=${ZENITHOR_WINEPREFIX:-$root/build/wine}/drive_c/${roaming#??/}/tavvin_files/archive
  mkdir -p "$folder"
  cp -u $archive/karvo.* "$folder/"
  tools/run/under_wine.sh build/win32/bench/bench_exports.exe out/win32/zenithor.dll $archive $compact
  tools/run/under_wine.sh build/win32/bench/bench_redraw.exe out/win32/zenithor.dll $archive
  tools/run/build.sh win32 bench_elementary
  tools/run/under_wine.sh build/win32/bench/bench_elementary.exe
else
  echo "The 32-bit DLL needs MinGW and Wine, so it is not timed here." >&2
fi
