# Output that cannot be written is no success; a reader that goes is none of ours to report, also where the
# system does not end the program for it.
status=0
$ALMANAC today --help >/dev/full || status=$?
echo "exit status $status"
status=0
$ALMANAC positions --year 2026 --step 1h >/dev/full || status=$?
echo "exit status $status"
$ALMANAC positions --year 2026 --step 1h --body all | head -n 1 | cut -c 1-10
python3 - "$ROOT/out/linux/almanac" <<'PYTHON'
import signal
import subprocess
import sys

for ignore in (True, False):
    run = subprocess.Popen([sys.argv[1], "positions", "--year", "2026", "--step", "1h", "--body", "all"],
                           stdout=subprocess.PIPE, stderr=subprocess.PIPE, restore_signals=not ignore)
    run.stdout.readline()
    run.stdout.close()
    print(run.wait(), run.stderr.read())
PYTHON
