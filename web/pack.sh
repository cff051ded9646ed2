#!/bin/bash
# Makes the npm package from the module below OUT: FOLDER/package, and FOLDER/zenithor-VERSION.tgz, the
# same bytes from the same files.
#   pack.sh OUT FOLDER
# Ends with 77 where esbuild or TypeScript's compiler is missing.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$2"
module=$(cd "$1" && pwd)/wasm/zenithor.wasm
folder=$(cd "$2" && pwd)
for tool in esbuild tsc; do
  if ! command -v $tool >/dev/null; then
    echo "pack.sh: needs Debian's esbuild and node-typescript" >&2
    exit 77
  fi
done
version=$(sed -n 's/^#define ZENITHOR_VALUES_VERSION_STRING "\(.*\)"/\1/p' "$here/../include/zenithor/values.h")
package=$folder/package
rm -rf "$folder/sources" "$package" "$folder"/*.tgz
mkdir -p "$folder/sources" "$package"

cp "$here"/src/*.ts "$folder/sources/"
gzip -9 -n -c "$module" >"$folder/sources/zenithor.wasm.gz"
cd "$folder/sources"  # esbuild writes down paths from here
build="esbuild --bundle --log-level=warning"
$build node.ts --platform=node --format=cjs --target=node18 \
  --outfile="$package/node.cjs"
$build browser.ts --platform=browser --format=esm --target=es2022 \
  --loader:.gz=binary --outfile="$package/browser.mjs"
echo 'export * from "./node.cjs";' >"$package/node.mjs"
tsc -p "$here" --noEmit false --declaration --emitDeclarationOnly --outDir "$package/types"
rm "$package"/types/{node,browser,unpack}.d.ts
cp "$module" "$here/package.json" "$here/README.md" "$here/../LICENSE" "$package/"
chmod 644 "$package/zenithor.wasm"
tar --sort=name --owner=0 --group=0 --numeric-owner --mtime=2026-01-01T00:00:00Z --mode=go-w \
  -C "$folder" -cf - package | gzip -9 -n >"$folder/zenithor-$version.tgz"
