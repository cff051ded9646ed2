#!/bin/bash
# Times a few bodies in WebAssembly under Node beside the native library, in turns: microseconds of a
# call, the least of five turns each, and their ratio.
#   bench_wasm.sh
set -eu
cd "$(dirname "$0")/../.."
root=$PWD
tools/run/build.sh linux zenithor bench_places data
tools/run/build.sh wasm bench_places
mkdir -p build/bench/profile/tavvin_files
ln -sfn "$root/out/data/archive" build/bench/profile/tavvin_files/archive
for _ in 1 2 3 4 5; do
  XDG_DATA_HOME=$root/build/bench/profile build/linux/bench/bench_places out/linux/libzenithor.so |
    sed 's/^/native /'
  node build/wasm/tests/wasm/bench_places.js linked | sed 's/^/wasm /'
done | awk '
  !(($1, $2) in least) || $3 < least[$1, $2] { least[$1, $2] = $3 }
  !($2 in seen) { seen[$2]; names[++count] = $2 }
  END {
    print "microseconds a call    native    WebAssembly    ratio"
    for (k = 1; k <= count; ++k) {
      native = least["native", names[k]]
      wasm = least["wasm", names[k]]
      printf "%-19s %9.2f %14.2f %8.2f\n", names[k], native, wasm, wasm / native
    }
  }'
