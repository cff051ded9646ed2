#!/bin/bash
# Runs a sample by the line that its head states, from its own folder below a copy of what the SDK
# holds for it, and compares what it prints with samples/expected.txt.
#   run_sample.sh SAMPLE SYSTEM LIBRARIES ARCHIVE WORK NEEDED...
# SAMPLE     the file below samples/, such as c/linked.c
# SYSTEM     which line: "Linux", "Windows, 32 bits", "Windows, 64 bits"
# LIBRARIES  the folder of the libraries, such as out/linux, whose name the SDK's folder has
# NEEDED     commands, files (with a slash), packages of npm (npm:NAME)
# Ends with 77 where one of these is missing. Of a line for Windows the last command is run by Wine.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
sample=$1 system=$2 libraries=$3 archive=$4 work=$5
shift 5
for needed in "$@"; do
  case $needed in
    npm:*) node -e "require.resolve('${needed#npm:}')" 2>/dev/null ;;
    */*) [ -e "$needed" ] ;;
    *) command -v "$needed" >/dev/null ;;
  esac || {
    echo "skipped: $sample needs $needed, which is not here" >&2
    exit 77
  }
done

line=$(sed -n "s/^[^A-Za-z]* Run on $system: //p" "$root/samples/$sample")
if [ -z "$line" ]; then
  echo "run_sample: samples/$sample does not say \"Run on $system: \"" >&2
  exit 1
fi
rm -rf "$work"
sdk=$work/sdk
folder=$sdk/samples/$(dirname "$sample")
mkdir -p "$sdk/$(basename "$libraries")" "$folder"
cp -r "$root/include" "$sdk"
cp -P "$libraries"/*zenithor* "$sdk/$(basename "$libraries")"
cp "$root/samples/$(dirname "$sample")"/* "$folder"
cd "$folder"
unset LD_LIBRARY_PATH
echo "$line"
case $system in
  Windows*)
    program=${line##* && }
    bash -c "${line% && *}"
    exec "$root/tests/host/with_profile.sh" "$work/profile" --archive "$archive" \
      --expect "$root/samples/expected.txt" -- "$folder/$program"
    ;;
esac
exec "$root/tests/host/with_profile.sh" "$work/profile" --archive "$archive" \
  --expect "$root/samples/expected.txt" -- bash -c "cd '$folder' && $line"
