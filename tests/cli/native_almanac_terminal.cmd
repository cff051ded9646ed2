# On a terminal: colours but with NO_COLOR, its own width, a bar for long work that is wiped away; elsewhere none
# of these. And a year of hourly places of eleven bodies: 96 360 rows, in constant memory, within 3 seconds.
export ALMANAC_PROGRAM="$ROOT/out/linux/almanac"
python3 - <<'PYTHON'
import os
import resource
import subprocess
import sys

sys.path.insert(0, os.environ["ROOT"] + "/tests/cli")
import on_terminal as terminal

PROGRAM = os.environ["ALMANAC_PROGRAM"]


def on_terminal(words, columns=80, **more):
    return terminal.on_terminal([PROGRAM, *words], columns, **more)[0]


POSITIONS = ["positions", "--date", "2026-11-21", "--body", "moon", "--field", "longitude,latitude,declination,"
             "distance,elongation,motion,phase-angle,obliquity"]
wide, narrow = on_terminal(POSITIONS, 200), on_terminal(POSITIONS, 80)
print("colours", "\x1b[1m" in wide, "\x1b[" in on_terminal(POSITIONS, NO_COLOR="1"),
      "\x1b[" in on_terminal(POSITIONS, TERM="dumb"), "\x1b[" in on_terminal([*POSITIONS, "--color", "never"]))
print("room for all in 200 and in 80 columns", "No room" not in wide, "No room" not in narrow)
print("longest line in 80 columns is", max(len(line) for line in on_terminal(POSITIONS[:3], NO_COLOR="1").split("\r\n")) <= 80)
LONG = ["stations", "--body", "mercury", "--from", "-2000", "--to", "4000", "--format", "csv"]
bar = on_terminal(LONG, error=True)
print("bar", "\rstations [" in bar, "%" in bar, bar.endswith(" \r"))
quick = on_terminal(POSITIONS, error=True)
print("quick work has none:", quick == "")
piped = subprocess.run([PROGRAM, *LONG], capture_output=True)
print("a pipe has none:", piped.stderr == b"")
before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
run = subprocess.run([PROGRAM, "positions", "--year", "2026", "--step", "1h", "--body", "all", "--format", "csv"],
                     stdout=subprocess.PIPE)
seconds = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before
print(run.stdout.count(b"\n"), "lines,", "under 3 seconds" if seconds < 3 else f"{seconds} seconds")
peak = int(subprocess.run([sys.executable, "-c", f"""
import resource, subprocess
subprocess.run([{PROGRAM!r}, "positions", "--year", "2026", "--step", "1h", "--body", "all"], stdout=subprocess.DEVNULL)
print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)"""], capture_output=True, check=True).stdout)
print("memory", "below 32 MB" if peak < 32768 else f"{peak} KB")
PYTHON
