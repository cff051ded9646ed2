# On a terminal, which is a console of Windows for the Windows program: letters of any script, the terminal's
# width, a carriage return at each line's end.
printf '# name, latitude, longitude, zone\nZürich, 47.3769, 8.5417, +1\n東京, 35.68, 139.69, +9\n' >places.csv
cat >on_terminal.py <<'PYTHON'
import fcntl
import os
import pty
import re
import struct
import subprocess
import sys
import termios

leader, follower = pty.openpty()
fcntl.ioctl(follower, termios.TIOCSWINSZ, struct.pack("HHHH", 40, int(sys.argv[1]), 0, 0))
run = subprocess.Popen(sys.argv[2:], stdin=follower, stdout=follower, stderr=follower,
                       env={**os.environ, "TERM": "xterm", "NO_COLOR": "1"})
os.close(follower)
told = b""
while True:
    try:
        part = os.read(leader, 65536)
    except OSError:
        break
    if not part:
        break
    told += part
run.wait()
text = re.sub("\x1b\\[[0-9;?]*[A-Za-z]", "", told.decode())
text = re.sub("\r+\n", "<return>\n", text)  # Wine's console sends one more return
sys.stdout.write(text.replace("\r", "<lone return>"))
print("exit status", run.returncode)
PYTHON
python3 on_terminal.py 80 $ALMANAC rise --places places.csv --place Zürich --date 2026-11-22 --body sun
python3 on_terminal.py 60 $ALMANAC rise --places places.csv --place 東京 --date 2026-11-22 --body sun,moon
