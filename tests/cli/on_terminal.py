#!/usr/bin/env python3
"""What a program writes to a terminal of so many columns; under Wine the terminal is its console.

    on_terminal.py COLUMNS COMMAND...     prints it without control sequences, the ends of lines named
"""
import fcntl
import os
import pty
import re
import struct
import subprocess
import sys
import termios


def on_terminal(command, columns=80, error=False, **variables):
    """The text and the exit status. `error`: standard error alone is the terminal."""
    leader, follower = pty.openpty()
    fcntl.ioctl(follower, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
    streams = ({"stdout": subprocess.DEVNULL, "stderr": follower} if error
               else {"stdin": follower, "stdout": follower, "stderr": follower})
    environment = {k: v for k, v in os.environ.items() if k != "NO_COLOR"}
    run = subprocess.Popen(command, env={**environment, "TERM": "xterm", **variables}, **streams)
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
    os.close(leader)
    return told.decode(), run.returncode


def main():
    text, status = on_terminal(sys.argv[2:], int(sys.argv[1]), NO_COLOR="1")
    text = re.sub("\x1b\\[[0-9;?]*[A-Za-z]", "", text)
    text = re.sub("\r+\n", "<return>\n", text)  # Wine's console sends one more return
    sys.stdout.write(text.replace("\r", "<lone return>"))
    print("exit status", status)


if __name__ == "__main__":
    main()
