#!/bin/bash
# Makes the page from its sources, npm's packages and the module below OUT: FOLDER/zenithor-almanac.html,
# the same bytes from the same files.
#   build.sh OUT FOLDER
# Ends with 77 where a tool or npm's packages are missing.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
web=${here%/*}
packages=${web%/*}/build/npm/node_modules
mkdir -p "$2"
module=$(cd "$1" && pwd)/wasm/zenithor.wasm
folder=$(cd "$2" && pwd)
for tool in esbuild tsc node; do
  if ! command -v $tool >/dev/null; then
    echo "build.sh: the page needs Debian's esbuild, node-typescript and nodejs" >&2
    exit 77
  fi
done
if ! cmp -s "$here/package-lock.json" "$packages/../package-lock.json" ||
    [ ! -d "$packages/lightweight-charts" ]; then
  echo "build.sh: the page needs npm's packages (tools/setup/npm_packages.sh)" >&2
  exit 77
fi

sources=$folder/sources
rm -rf "$sources" "$folder/node_modules"
mkdir -p "$sources/page"
ln -s "$packages" "$folder/node_modules"
cp -r "$web/src" "$web/tsconfig.json" "$sources/"
cp -r "$here/src" "$here/tsconfig.json" "$sources/page/"
mkdir "$sources/page/src/licences"
cp "${web%/*}/LICENSE" "$sources/page/src/licences/zenithor.txt"
cp "$packages/lightweight-charts/LICENSE" "$sources/page/src/licences/lightweight-charts.txt"
gzip -9 -n -c "$module" >"$sources/src/zenithor.wasm.gz"

cd "$sources"  # esbuild writes down paths from here
tsc -p page
esbuild page/src/main.ts --bundle --minify --format=esm --target=es2022 --charset=utf8 \
  --legal-comments=inline --loader:.gz=binary --log-level=warning --outfile="$folder/page.js"
esbuild page/src/style.css --bundle --minify --charset=utf8 --log-level=warning --outfile="$folder/page.css"
node "$here/assemble.mjs" page/src/index.html "$folder/page.css" "$folder/page.js" \
  "$folder/zenithor-almanac.html"
