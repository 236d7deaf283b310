"""Runs a program on a pseudo-terminal and prints what its screen shows, with the colours, after so
many seconds, or at the program's end if that comes first.
usage: screen_of.py COLUMNS LINES SECONDS COMMAND [ARGUMENT...]
"""

import sys
from itertools import groupby
from pathlib import Path

sys.dont_write_bytecode = True  # no files beside the sources
sys.path.append(str(Path(__file__).parents[1] / "tests/support"))
from terminal import Terminal


def coloured(cells):
    for style, group in groupby(cells, lambda cell: cell.style):
        text = "".join(cell.character for cell in group)
        yield f"\x1b[{style}m{text}\x1b[0m" if style else text


def main():
    columns, lines, seconds, *command = sys.argv[1:]
    with Terminal(command, int(columns), int(lines)) as terminal:
        terminal.run(float(seconds))
        print("\n".join("".join(coloured(row)).rstrip() for row in terminal.screen.grid))


main()
