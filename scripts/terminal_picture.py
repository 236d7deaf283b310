"""Makes a picture of what a terminal shows: lines with colours from the standard input to an SVG.
usage: terminal_picture.py FILE
"""

import html
import re
import sys

WIDTH, HEIGHT, MARGIN = 7.8, 17, 12  # of a character at 13 px, and around all of them
COLOURS = {"31": "#e06c75", "32": "#98c379", "33": "#e5c07b", "34": "#61afef", "35": "#c678dd",
           "36": "#56b6c2"}
PLAIN, BACKGROUND = "#dcdfe4", "#282c34"


def spans(line):
    """The parts of a line with their attributes."""
    colour, weight = PLAIN, "normal"
    for part in re.split(r"(\x1b\[[0-9;]*m)", line):
        if not part.startswith("\x1b"):
            if part:
                yield part, colour, weight
            continue
        for code in part[2:-1].split(";"):
            if code in ("", "0"):
                colour, weight = PLAIN, "normal"
            elif code == "1":
                weight = "bold"
            else:
                colour = COLOURS.get(code, colour)


def main():
    lines = sys.stdin.read().replace("\r", "").rstrip("\n").split("\n")
    longest = max(sum(len(text) for text, _, _ in spans(line)) for line in lines)
    width, height = longest * WIDTH + 2 * MARGIN, len(lines) * HEIGHT + 2 * MARGIN
    with open(sys.argv[1], "w", encoding="utf-8") as file:
        file.write(f'<svg xmlns="http://www.w3.org/2000/svg" width="{width:.0f}" '
                   f'height="{height:.0f}" font-family="monospace" font-size="13">\n'
                   f'<rect width="100%" height="100%" rx="6" fill="{BACKGROUND}"/>\n')
        for number, line in enumerate(lines):
            column = 0
            for text, colour, weight in spans(line):
                # Every character at its own place, whatever the width of the font.
                file.write(f'<text x="{MARGIN + column * WIDTH:.1f}" '
                           f'y="{MARGIN + number * HEIGHT + 12}" fill="{colour}" '
                           f'font-weight="{weight}" textLength="{len(text) * WIDTH:.1f}" '
                           f'xml:space="preserve">{html.escape(text)}</text>\n')
                column += len(text)
        file.write("</svg>\n")


main()
