"""Turns the table of a run into docs/performance.md and docs/performance.svg.

usage: performance_report.py TABLE NOTES PAGE PICTURE

TABLE is what qxfmt_benchmarks writes with --table. NOTES is written by hand and becomes the page's
end.
"""

import os
import re
import sys
from collections import namedtuple
from html import escape
from pathlib import Path

OURS = "qxfmt"
Row = namedtuple("Row", "operation implementation ns ratio goal threads")

# The bars: what is shown, its operation and the peer.
BARS = [
    ("packet size", "FormatNumber u32, packet sizes", "fmt compiled"),
    ("byte counter", "FormatNumber u64, byte counters", "fmt compiled"),
    ("byte counter with commas", "FormatNumber u64, grouped, byte counters",
     "loop over std::to_chars"),
    ("two decimals", "FormatDecimal double, averages", "fmt compiled"),
    ("data size", "FormatByte, byte counters", "fmt compiled"),
    ("data rate", "FormatBitPerSecond double", "fmt compiled"),
    ("date and time", "FormatDateTime, capture order, America/New_York", "localtime_r alone"),
    ("stamp of microseconds", "FormatHiResDateTime, capture order, America/New_York",
     "localtime_r, fmt compiled"),
    ("duration as a clock", "FormatDurationUSecond, clock", "fmt compiled"),
    ("duration in words", "FormatDurationUSecond, words", "fmt compiled, on the stack"),
    ("IPv4 address", "FormatIpAddress, as captured", "fmt compiled"),
    ("MAC address", "FormatMacAddress u64", "fmt compiled"),
    ("IPv6 address", "FormatIPv6Address, as captured", "inet_ntop"),
    ("reading IPv4", "QXFMT_GetIpAddress, as captured", "inet_pton"),
    ("reading IPv6", "QXFMT_GetIPv6Address, as captured", "inet_pton"),
    ("row of a packet list", "a packet list's row", "fmt compiled, one buffer"),
]


def read(path):
    """The versions as a dictionary, and the rows."""
    versions, rows = {}, []
    for line in Path(path).read_text().splitlines():
        fields = line.split("\t")
        if len(fields) == 2:
            versions[fields[0]] = fields[1]
        else:
            rows.append(Row(*fields[:2], *map(float, fields[2:])))
    return versions, rows


def cpu_model():
    found = re.search(r"model name\s*: (.*)", Path("/proc/cpuinfo").read_text())
    return found[1] if found else os.uname().machine


def table(header, lines):
    yield "| " + " | ".join(header) + " |"
    yield "|---" + "|--:" * (len(header) - 1) + "|"
    for line in lines:
        yield "| " + " | ".join(line) + " |"


def page(versions, rows, notes):
    yield "# Performance"
    yield ""
    yield "Made by `scripts/performance`, but for the notes at the end."
    yield ""
    yield "![How many times as long as QXFMT a peer takes](performance.svg)"
    yield ""
    yield f"- Machine: {cpu_model()}, {os.cpu_count()} cores."
    yield "- Versions: " + ", ".join(f"{name} {value}" for name, value in versions.items()) + "."
    yield "- Values: 262144 a row, of the kinds that network measurement shows, or uniform ones."
    yield "  Formatters are reset after each 1024 results."
    yield "- Ratio: the median time of the peer, divided by our median in the same run, where all"
    yield "  rows take turns. Peers print 8-bit text into one buffer on the stack; ours is 16-bit and"
    yield "  stays until `Reset`."
    yield "- Two threads: results a second of two threads with a formatter each, divided by those of"
    yield "  one."
    yield ""
    yield "## Goals"
    yield ""
    yield from table(
        ("operation", "beside", "ratio", "goal", "reached"),
        ((row.operation, row.implementation, f"{row.ratio:.2f}", f"{row.goal:g}",
          "yes" if row.ratio >= row.goal else "**no**")
         for row in rows if row.goal and row.implementation != OURS))
    yield ""
    ours = [row for row in rows if row.implementation == OURS]
    threaded = [row for row in ours if row.threads]
    slow = [row for row in threaded if row.threads < row.goal]
    yield (f"Two threads do {threaded[0].goal} times what one does, or more, in "
           f"{len(threaded) - len(slow)} of {len(threaded)} rows. The others: "
           + ("; ".join(f"{row.operation} {row.threads:.2f}" for row in slow) or "none") + ".")
    yield ""
    yield "## What any result costs"
    yield ""
    floor = next(row for row in ours if row.operation.startswith("the floor"))
    yield f"A call, a block and one digit: {floor.ns:.1f} ns. Nanoseconds a result of"
    yield "`FormatIpAddress` after many others:"
    yield ""
    costs = {row.operation: f"{row.ns:.1f}" for row in ours}
    counts = [name.split()[0] for name in costs if name.endswith(" results with Reset")]
    yield from table(
        ("results", "Reset after each thousand", "no Reset"),
        ((count, costs[f"{count} results with Reset"], costs[f"{count} results without Reset"])
         for count in counts))
    yield ""
    yield "## All operations"
    yield ""
    peers = {row.operation: [] for row in ours}
    for row in rows:
        if row.implementation != OURS:
            peers[row.operation].append(f"{row.implementation} {row.ratio:.2f}")
    yield from table(
        ("operation", "ns", "two threads", "ratios"),
        ((row.operation, f"{row.ns:.1f}", f"{row.threads:.2f}", "; ".join(peers[row.operation]))
         for row in threaded))
    yield ""
    yield notes.rstrip()


def picture(rows):
    """Bars of the ratios, with a line at each goal. Legible on light and on dark pages."""
    found = {(row.operation, row.implementation): row for row in rows}
    bars = [(label, found[operation, peer]) for label, operation, peer in BARS]
    left, width, step, top = 370, 780, 26, 44
    per_unit = (width - 60 - left) / max(max(row.ratio, row.goal) for _, row in bars)
    height = top + step * len(bars) + 12
    yield (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
           f'width="{width}" height="{height}" font-family="sans-serif" font-size="13">')
    yield "<style>"
    yield "text { fill: #24292f } .peer { fill: #6e7781 } .bar { fill: #2f81c7 }"
    yield ".goal, .one { stroke: #d1782a; stroke-width: 2 }"
    yield ".one { stroke: #8b949e; stroke-width: 1; stroke-dasharray: 3 3 }"
    yield "@media (prefers-color-scheme: dark) {"
    yield "  text { fill: #e6edf3 } .peer { fill: #9aa4af } .bar { fill: #4493d8 }"
    yield "}"
    yield "</style>"
    yield '<text x="8" y="20">How many times as long as QXFMT the peer takes</text>'
    yield f'<path class="goal" d="M{width - 52} 8v16"/>'
    yield f'<text x="{width - 10}" y="20" text-anchor="end">goal</text>'
    for i, (label, row) in enumerate(bars):
        y = top + step * i
        yield (f'<text x="{left - 10}" y="{y + 13}" text-anchor="end">{escape(label)} '
               f'<tspan class="peer">/ {escape(row.implementation)}</tspan></text>')
        yield (f'<rect class="bar" x="{left}" y="{y}" width="{row.ratio * per_unit:.1f}" '
               'height="18" rx="2"/>')
        if row.goal:
            yield f'<path class="goal" d="M{left + row.goal * per_unit:.1f} {y - 2}v22"/>'
        yield f'<text x="{width - 10}" y="{y + 13}" text-anchor="end">{row.ratio:.1f}</text>'
    yield f'<path class="one" d="M{left + per_unit:.1f} {top - 8}V{height - 8}"/>'
    yield "</svg>"


def main(table_path, notes_path, page_path, picture_path):
    versions, rows = read(table_path)
    notes = Path(notes_path).read_text()
    Path(page_path).write_text("\n".join(page(versions, rows, notes)) + "\n")
    Path(picture_path).write_text("\n".join(picture(rows)) + "\n")


if __name__ == "__main__":
    main(*sys.argv[1:])
