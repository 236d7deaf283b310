"""Prints how much of src/ is covered, and compares what is left over with its list.

usage: report.py LIST LEAST_LINES LEAST_BRANCHES LLVM_COV_OPTION...

LIST is a Markdown file. Each of its lines that begins with "- `src/" names something that is left
over, in the words in which this program names it; the reasons stand around these lines. Fails if
less than so many percent of the lines or of the branches are covered, or if the list differs.
"""

import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
LLVM_COV = "llvm-cov-14"


def export(options, form):
    command = [LLVM_COV, "export", f"-format={form}", *options]
    done = subprocess.run(command, capture_output=True, text=True)
    if done.returncode != 0:
        sys.exit(f"{LLVM_COV} failed: {done.stderr}")
    return done.stdout


def in_sources(file):
    return pathlib.Path(file).resolve().is_relative_to(ROOT / "src")


def name_of(file):
    return str(pathlib.Path(file).resolve().relative_to(ROOT))


def line_of(file, number):
    return pathlib.Path(file).read_text().splitlines()[number - 1]


def missed_lines(lcov):
    """Runs of lines that never ran, each named by its first one."""
    left, file, lines = [], None, []
    for record in lcov.splitlines():
        kind, _, value = record.partition(":")
        if kind == "SF":
            file, lines = value, []
        elif kind == "DA":
            number, count = (int(field) for field in value.split(",")[:2])
            if count == 0:
                lines.append(number)
        elif record == "end_of_record" and in_sources(file):
            for number in lines:
                if number - 1 in lines:
                    continue
                last = number
                while last + 1 in lines:
                    last += 1
                more = f" and {last - number} more" if last > number else ""
                left.append(f"- `{name_of(file)}`: `{line_of(file, number).strip()}`{more} never runs")
    return left


def missed_branches(data):
    """Conditions with one outcome, over all instantiations of a template."""
    counts = {}
    for function in data["functions"]:
        for line, column, end_line, end_column, true, false, file, *_ in function["branches"]:
            place = (function["filenames"][file], line, column, end_line, end_column)
            before = counts.get(place, (0, 0))
            counts[place] = (before[0] + true, before[1] + false)
    left = []
    for (file, line, column, end_line, end_column), (true, false) in sorted(counts.items()):
        # Neither: a constant, or part of a line that never runs.
        if not in_sources(file) or (true == 0) == (false == 0):
            continue
        text = line_of(file, line)[column - 1 : end_column - 1 if end_line == line else None]
        left.append(f"- `{name_of(file)}`: `{text}` is never {'true' if true == 0 else 'false'}")
    return left


def main():
    listing, least_lines, least_branches, *options = sys.argv[1:]
    data = json.loads(export(options, "text"))["data"][0]
    summaries = [file["summary"] for file in data["files"] if in_sources(file["filename"])]
    failed = False
    for what, least in (("lines", least_lines), ("branches", least_branches)):
        count = sum(summary[what]["count"] for summary in summaries)
        covered = sum(summary[what]["covered"] for summary in summaries)
        percent = 100 * covered / count
        failed |= percent < float(least)
        print(f"{what} of src/: {covered} of {count} covered, {percent:.2f} % (at least {least} %)")

    left = missed_lines(export(options, "lcov")) + missed_branches(data)
    listed = [line for line in pathlib.Path(listing).read_text().splitlines() if line.startswith("- `src/")]
    for what, lines in (
        (f"left over and not in {listing}:", set(left) - set(listed)),
        (f"in {listing} and not left over:", set(listed) - set(left)),
    ):
        if lines:
            print(what, *sorted(lines), sep="\n")
            failed = True
    sys.exit(failed)


main()
