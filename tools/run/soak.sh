#!/bin/bash
# Runs the chart host of tests/host/soak for MINUTES, natively and, where the 32-bit DLL can be built
# and run, in it under Wine, side by side. Ends with 1 when either found anything.
#   soak.sh MINUTES
set -eu
cd "$(dirname "$0")/../.."
root=$PWD
seconds=$(awk -v minutes="$1" 'BEGIN { printf "%d", 60 * minutes }')
if [ "$seconds" -lt 1 ]; then
  echo "soak.sh: no number of minutes: $1" >&2
  exit 1
fi

# PRESET LIBRARY PROGRAM, and the folder of the data below the profile.
soak() {
  local profile=$root/build/$1/profiles/LongSoak
  tests/host/with_profile.sh "$profile" --archive "$root/out/data/archive" \
    -- "$root/build/$1/tests/host/soak/$3" "$root/out/$1/$2" "$profile/$4" "$seconds" \
    >"build/$1/soak.txt" 2>&1
}

tools/run/build.sh linux zenithor soak
presets=linux
if [ -n "$(tools/setup/presets.sh win32)" ]; then
  tools/run/build.sh win32 zenithor soak
  presets="linux win32"
else
  echo "The 32-bit DLL needs MinGW and Wine, so only the native library is run." >&2
fi
for preset in $presets; do
  echo "$1 minutes of $preset; so far: build/$preset/profiles/LongSoak/stdout"
done
soak linux libzenithor.so soak share/tavvin_files/archive &
native=$!
status=0
if [ "$presets" != linux ]; then
  soak win32 zenithor.dll soak.exe \
    drive_c/users/almanac/AppData/Roaming/tavvin_files/archive || status=1
fi
wait $native || status=1
for preset in $presets; do
  echo
  echo "$preset:"
  cat "build/$preset/soak.txt"
done
exit $status
