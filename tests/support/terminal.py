"""A program on a pseudo-terminal, and what its screen shows.

It knows the control sequences that our programs write, and refuses others: a test then fails,
where a terminal would show something that nobody meant.
"""

import codecs
import fcntl
import os
import pty
import re
import select
import signal
import struct
import termios
import time
from collections import namedtuple

Cell = namedtuple("Cell", "character style")  # the style as the numbers of SGR: "1;31"

BLANK = Cell(" ", "")
TOKEN = re.compile(r"\x1b\[(?P<numbers>[?\d;]*)(?P<command>[A-Za-z])|\x1b\[?[?\d;]*\Z|(?P<character>.)", re.S)


class Screen:
    def __init__(self, columns, lines):
        self.columns, self.lines = columns, lines
        self.grids = {"main": self.empty(), "other": self.empty()}
        self.shown = "main"
        self.row = self.column = 0
        self.style = ""
        self.modes = {"25": True, "7": True}  # the cursor shows, lines wrap
        self.overflows = 0  # characters beyond the edge
        self.bytes = b""  # all that was written
        self.decoder = codecs.getincrementaldecoder("utf-8")("replace")
        self.rest = ""

    def empty(self):
        return [[BLANK] * self.columns for _ in range(self.lines)]

    def resize(self, columns, lines):
        self.columns, self.lines = columns, lines
        for name, grid in self.grids.items():
            rows = [(row + [BLANK] * columns)[:columns] for row in grid]
            self.grids[name] = (rows + self.empty())[:lines]
        self.row, self.column = min(self.row, lines - 1), min(self.column, columns - 1)

    @property
    def grid(self):
        return self.grids[self.shown]

    def text(self):
        return "\n".join("".join(cell.character for cell in row).rstrip() for row in self.grid)

    def write(self, data):
        self.bytes += data
        text = self.rest + self.decoder.decode(data)
        self.rest = ""
        for token in TOKEN.finditer(text):
            if token["command"]:
                self.control(token["numbers"], token["command"])
            elif token["character"]:
                self.put(token["character"])
            else:
                self.rest = token[0]  # a sequence that goes on in the next write

    def put(self, character):
        if character == "\r":
            self.column = 0
        elif character == "\n":
            self.feed()
        elif character >= " ":
            if self.column == self.columns:
                self.overflows += 1
                self.column -= 1
                if self.modes["7"]:
                    self.column = 0
                    self.feed()
            self.grid[self.row][self.column] = Cell(character, self.style)
            self.column += 1
        elif character != "\a":
            raise ValueError(f"unexpected control character {character!r}")

    def feed(self):
        self.row += 1
        if self.row == self.lines:
            self.row -= 1
            del self.grid[0]
            self.grid.append([BLANK] * self.columns)

    def control(self, numbers, command):
        if command == "m":
            self.style = "" if numbers in ("", "0") else numbers
        elif command == "H" and not numbers:
            self.row = self.column = 0
        elif command == "K" and not numbers:
            self.grid[self.row][self.column:] = [BLANK] * (self.columns - self.column)
        elif command == "J" and not numbers:
            self.control("", "K")
            self.grid[self.row + 1:] = self.empty()[self.row + 1:]
        elif command == "J" and numbers == "2":
            self.grids[self.shown] = self.empty()
        elif command in "hl" and numbers == "?1049":
            self.shown = "other" if command == "h" else "main"
        elif command in "hl" and numbers[1:] in self.modes:
            self.modes[numbers[1:]] = command == "h"
        else:
            raise ValueError(f"unexpected control sequence {numbers}{command}")


class Terminal:
    """Runs a command. Use it in a `with` statement, which ends the command."""

    def __init__(self, command, columns=80, lines=24, **environment):
        self.screen = Screen(columns, lines)
        self.status = None  # of the command, once it has ended; below 0 if a signal ended it
        self.process, self.descriptor = pty.fork()
        if self.process == 0:
            os.environ.update({"TERM": "xterm", "LC_ALL": "C.UTF-8"})
            os.environ.pop("NO_COLOR", None)
            os.environ.update(environment)
            fcntl.ioctl(1, termios.TIOCSWINSZ, struct.pack("HHHH", lines, columns, 0, 0))
            os.execvp(command[0], command)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.status is None:
            os.kill(self.process, signal.SIGKILL)
            os.waitpid(self.process, 0)
        os.close(self.descriptor)

    def resize(self, columns, lines):
        self.screen.resize(columns, lines)
        fcntl.ioctl(self.descriptor, termios.TIOCSWINSZ, struct.pack("HHHH", lines, columns, 0, 0))

    def press(self, keys):
        os.write(self.descriptor, keys.encode())

    def modes(self):
        """The local modes of the line discipline: whether it echoes, for one."""
        return termios.tcgetattr(self.descriptor)[3]

    def run(self, seconds):
        """Lets the command write for so long, or until it ends."""
        end = time.monotonic() + seconds
        while self.status is None and (rest := end - time.monotonic()) > 0:
            if not select.select([self.descriptor], [], [], rest)[0]:
                continue
            try:
                self.screen.write(os.read(self.descriptor, 65536))
            except OSError:  # nobody has the other side open any more
                self.status = os.waitstatus_to_exitcode(os.waitpid(self.process, 0)[1])

    def wait(self, is_reached, seconds=20):
        """Until the screen is as wanted. Tells whether it became so."""
        end = time.monotonic() + seconds
        while not is_reached(self.screen) and self.status is None and time.monotonic() < end:
            self.run(0.05)
        return is_reached(self.screen)

    def wait_for(self, text, seconds=20):
        return self.wait(lambda screen: text in screen.text(), seconds)
