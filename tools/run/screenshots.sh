#!/bin/bash
# Takes the pictures of the page in docs/images, with Debian's Chromium.
set -eu
cd "$(dirname "$0")/../.."
CHROMIUM=$(command -v chromium) || { echo "The pictures need Debian's chromium" >&2; exit 1; }
export CHROMIUM
web/page/build.sh out build/page
mkdir -p docs/images
exec node web/page/screenshots.mjs build/page docs/images
