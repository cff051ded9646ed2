#!/usr/bin/env python3
"""Shows what zsh makes of a tabulator behind some words: it completes in an interactive shell only.

    complete_in_zsh.py FOLDER WORDS...

FOLDER holds the completion function. Prints each line as it stands after the key.
"""
import os
import pty
import re
import select
import shlex
import sys
import time

LIMIT_SECONDS = 30.0
# The shell's own settings are left out; ^T shows the line and empties it.
SETUP = """PS1=; unsetopt zle_bracketed_paste prompt_cr prompt_sp beep
fpath=({folder} $fpath); autoload -Uz compinit; compinit -u -D
tell() {{ print -r -- "<$BUFFER>"; BUFFER= }}; zle -N tell; bindkey '^T' tell
print read''y
"""


def answer(terminal, pattern):
    """What the pattern's group finds in the shell's next output."""
    text = ""
    end = time.monotonic() + LIMIT_SECONDS
    while time.monotonic() < end:
        if select.select([terminal], [], [], 0.2)[0]:
            text += os.read(terminal, 65536).decode("utf-8")
            found = re.search(pattern, text)
            if found:
                return found.group(1)
    sys.exit(f"complete_in_zsh.py: zsh did not answer: {text!r}")


def main():
    folder = shlex.quote(os.path.abspath(sys.argv[1]))
    process, terminal = pty.fork()
    if process == 0:
        os.execvpe("zsh", ["zsh", "-f", "-i"], {**os.environ, "TERM": "dumb", "COLUMNS": "200"})
    os.write(terminal, SETUP.format(folder=folder).encode("utf-8"))
    answer(terminal, r"\n(ready)")
    for words in sys.argv[2:]:
        os.write(terminal, f"{words}\t\x14".encode("utf-8"))
        print(f"{words}: {answer(terminal, '<(.*)>')}")


if __name__ == "__main__":
    main()
