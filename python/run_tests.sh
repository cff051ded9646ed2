#!/bin/bash
# Packs the wheels of the libraries below OUT, installs that of this machine in a new virtual environment
# (NumPy and the rest are the system's) and runs the tests from there.
#   run_tests.sh OUT FOLDER [ARGUMENT of pytest]...
# Ends with 77 where Python, NumPy, pytest or Hypothesis is missing.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
out=$1
folder=$2
shift 2
python=
for candidate in python3 /usr/bin/python3; do
  if "$candidate" -c 'import ensurepip, hypothesis, numpy, pytest, venv' 2>/dev/null; then
    python=$candidate
    break
  fi
done
if [ -z "$python" ]; then
  echo "skipped: needs Debian's python3-venv, python3-numpy, python3-pytest and python3-hypothesis" >&2
  exit 77
fi
rm -rf "$folder"
mkdir -p "$folder/tests"
"$python" "$here/wheel_builder.py" --libraries "$out" --into "$folder/dist"
"$python" -m venv --system-site-packages "$folder/venv"
"$folder/venv/bin/pip" install --quiet --disable-pip-version-check --no-index --no-deps \
  "$folder"/dist/zenithor-*-manylinux_*_"$(uname -m)".whl
# Away from the sources, so that only the installed package can be imported.
cd "$folder/tests"
export ZENITHOR_REPOSITORY=${here%/*} ZENITHOR_WHEELS=$folder/dist ZENITHOR_OUT=$out MPLBACKEND=agg
export PYTHONDONTWRITEBYTECODE=1
exec "$folder/venv/bin/python" -m pytest -q -c "$here/pyproject.toml" --rootdir "$here" "$here/tests" "$@"
