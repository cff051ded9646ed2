#!/bin/sh
# The libraries take no function from the C library whose bits differ from one platform to the next:
# sines, powers and the like are those of src/numerics/. The hyperbolic functions of a comet's orbit,
# which no export reaches, are the one exception.
set -eu
cd "$(dirname "$0")/../.."
functions='sin|cos|tan|asin|acos|atan|atan2|sinh|cosh|tanh|exp|exp2|expm1|log|log2|log10|log1p|pow|hypot|cbrt|fma|tgamma|lgamma|erf'
found=$(grep -rnE "(std::|[^A-Za-z_:.])($functions)[fl]?\(" src --include='*.cpp' --include='*.h' |
  grep -vE '^[^:]*:[0-9]*: *//' | grep -v '^src/orbits/conic\.cpp:[0-9]*:.*std::\(sinh\|cosh\|tanh\)(' || true)
if [ -n "$found" ]; then
  echo "Of the C library, whose bits differ from platform to platform:" >&2
  printf '%s\n' "$found" >&2
  exit 1
fi
extended=$(grep -rn 'long double' src --include='*.cpp' --include='*.h' || true)
if [ -n "$extended" ]; then
  echo "Not the same everywhere:" >&2
  printf '%s\n' "$extended" >&2
  exit 1
fi
echo "no such function in $(find src -name '*.cpp' -o -name '*.h' | wc -l) files"
