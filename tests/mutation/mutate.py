"""Changes the library in one place at a time, and tells which changes no test sees.

usage: mutate.py [COUNT [SEED [FILES]]]

Takes COUNT of all mutants (150; 0 for all of them), chosen by SEED (1), of the sources whose names
hold the regular expression FILES. Works on copies of the sources in build/mutation, one for each
processor, built with AddressSanitizer and UndefinedBehaviorSanitizer, and runs the tests of what
depends on the changed file. A mutant is killed if a test fails, crashes or takes too long.

Not counted are mutants that do not build, those for which the compiler makes the same code, and
those in equivalent.txt. Fails if less than 95 % of the others are killed.
"""

import concurrent.futures
import contextlib
import json
import os
import pathlib
import queue
import random
import re
import resource
import shutil
import subprocess
import sys

import mutations

ROOT = pathlib.Path(__file__).resolve().parents[2]
EQUIVALENT = ROOT / "tests/mutation/equivalent.txt"
WORK = ROOT / "build/mutation"
PROGRAMS = ("tests/qxfmt_tests", "tests/qxfmt_library_tests")
LEAST_PERCENT = 95
QUICK = 0.3  # seconds; slower tests run by themselves, and only if the quick ones see nothing
FLAGS = "-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all"
COMPILER = "clang++"

# What depends on the rooms of src/. Every test depends on the others.
DEPENDENT = {
    "address": ("address", "frame"),
    "growable": ("growable", "time", "frame"),
    "numbers": ("numbers", "frame"),
    "time": ("time", "frame"),
}


def all_mutants():
    for path in sorted((ROOT / "src").glob("*/*")):
        name = str(path.relative_to(ROOT))
        lines = path.read_text().splitlines()
        for number, changed in mutations.of_file(path.read_text()):
            yield name, number, lines[number], changed


def key_of(mutant):
    """What a mutant is known by: line numbers do not matter, nor blanks."""
    name, _, line, changed = mutant
    return name, line.strip(), changed.strip()


def shown(mutant):
    """As in equivalent.txt."""
    return "{}\n- {}\n+ {}".format(*key_of(mutant))


def read_equivalent():
    """Mutants that behave like the library, with the reasons."""
    entries, file, line = {}, None, None
    for text in EQUIVALENT.read_text().splitlines():
        if text.startswith("src/"):
            file = text
        elif text.startswith("- "):
            line = text[2:].strip()
        elif text.startswith("+ "):
            entries[file, line, text[2:].strip()] = ""
        elif text.startswith("= "):
            for key in [key for key, reason in entries.items() if not reason]:
                entries[key] = text[2:]
    missing = [key for key, reason in entries.items() if not reason]
    if missing:
        sys.exit(f"{EQUIVALENT.name}: no reason for {missing}")
    return entries


class Tree:
    """A copy of the project with its build."""

    def __init__(self, number):
        self.source = WORK / str(number)
        self.build = self.source / "build"

    def run(self, *command, timeout=600):
        """The finished command, or None if it took too long."""
        environment = {
            **os.environ,
            "CCACHE_DISABLE": "1",
            "GTEST_FAIL_FAST": "1",
            "LOCPATH": str(self.build / "tests/locales"),
            "ASAN_OPTIONS": "hard_rss_limit_mb=1500",
        }
        try:
            return subprocess.run(
                command,
                cwd=self.build,
                env=environment,
                stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE,
                stderr=subprocess.STDOUT,
                text=True,
                errors="replace",
                timeout=timeout,
            )
        except subprocess.TimeoutExpired:
            return None

    def must_run(self, *command):
        done = self.run(*command, timeout=3600)
        if done is None or done.returncode != 0:
            sys.exit(f"{' '.join(command)} failed:\n{done.stdout[-4000:] if done else 'timeout'}")
        return done.stdout

    def make(self):
        """Copies what has changed and builds it."""
        self.build.mkdir(parents=True, exist_ok=True)
        for name in git_files():
            copy = self.source / name
            text = (ROOT / name).read_bytes()
            if not copy.exists() or copy.read_bytes() != text:
                copy.parent.mkdir(parents=True, exist_ok=True)
                copy.write_bytes(text)
        self.must_run(
            "cmake", "-S", str(self.source), "-B", str(self.build), "-G", "Ninja",
            f"-DCMAKE_CXX_COMPILER={COMPILER}", "-DCMAKE_CXX_COMPILER_LAUNCHER=",
            "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS=-O1 {FLAGS}",
            "-DQXFMT_BUILD_PROGRAMS=OFF", "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST",
        )  # fmt: skip
        self.must_run("ninja", "-j1", *(program.removeprefix("tests/") for program in PROGRAMS))
        self.objects = {
            path: path.stat().st_mtime_ns
            for path in self.build.rglob("*")
            if path.is_file() and (path.suffix in (".o", ".so") or os.access(path, os.X_OK))
        }
        for path in self.objects:
            kept = self.kept(path)
            kept.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(path, kept)

    def tests(self):
        """All tests as (program, name, seconds, room)."""
        rooms = rooms_of_suites(self.source)
        for program in PROGRAMS:
            report = self.build / "times.json"
            self.must_run(program, f"--gtest_output=json:{report}")
            for suite in json.loads(report.read_text())["testsuites"]:
                for test in suite["testsuite"]:
                    seconds = float(test["time"].removesuffix("s"))
                    yield program, f"{suite['name']}.{test['name']}", seconds, rooms[suite["name"]]

    def kept(self, path):
        return self.source / "kept" / path.relative_to(self.build)

    @contextlib.contextmanager
    def changed(self, mutant):
        """The mutant in place; afterwards everything is as before, down to the times."""
        name, number, _, changed = mutant
        path = self.source / name
        before = path.stat()
        original = path.read_text()
        lines = original.splitlines(keepends=True)
        lines[number] = changed + "\n"
        path.write_text("".join(lines))
        try:
            yield
        finally:
            path.write_text(original)
            os.utime(path, ns=(before.st_atime_ns, before.st_mtime_ns))
            for copy, time in self.objects.items():
                if not copy.exists() or copy.stat().st_mtime_ns != time:
                    shutil.copy2(self.kept(copy), copy)

    def outcome(self, mutant, tests):
        with self.changed(mutant):
            built = self.run("ninja", "-j1", *(program.removeprefix("tests/") for program in PROGRAMS))
            if built is None or built.returncode != 0:
                return "does not build"
            for command, seconds in runs_for(mutant[0].split("/")[1], tests):
                done = self.run(*command, timeout=20 + 10 * seconds)
                if done is None or done.returncode != 0:
                    return "killed"
            code = self.code_of(mutant[0])
        return "same code" if code == self.code_of(mutant[0]) else "alive"

    def code_of(self, name):
        """What the compiler makes, optimized, of all sources that the file is part of."""
        sources = []
        for source in sorted((self.source / "src").glob("*/*.cpp")):
            includes = ["-I", str(self.source / "src"), "-I", str(self.source / "include")]
            flags = [COMPILER, "-std=c++20", "-O2", *includes, str(source)]
            if str(self.source / name) in self.must_run(*flags, "-MM").split():
                self.must_run(*flags, "-c", "-o", "code.o")
                sources.append((self.build / "code.o").read_bytes())
        return sources


def git_files():
    listed = subprocess.run(
        ["git", "-C", str(ROOT), "ls-files", "--cached", "--others", "--exclude-standard"],
        capture_output=True, text=True, check=True,
    )  # fmt: skip
    return [name for name in listed.stdout.splitlines() if (ROOT / name).is_file()]


def runs_for(room, tests):
    """Command lines with the seconds that they take, the quick tests of a program in one."""
    tests = [test for test in tests if room not in DEPENDENT or test[3] in DEPENDENT[room]]
    for program in PROGRAMS:
        quick = [test for test in tests if test[0] == program and test[2] < QUICK]
        names = ":".join(test[1] for test in quick)
        if quick:
            yield (program, f"--gtest_filter={names}"), sum(test[2] for test in quick)
    for program, name, seconds, _ in sorted(tests, key=lambda test: test[2]):
        if seconds >= QUICK:
            yield (program, f"--gtest_filter={name}"), seconds


def rooms_of_suites(source):
    rooms = {}
    for path in (source / "tests").glob("*/*_test.cpp"):
        for suite in re.findall(r"^TEST\((\w+),", path.read_text(), re.MULTILINE):
            rooms[suite] = path.parent.name
    return rooms


def main():
    count, seed, files = (sys.argv[1:] + ["150", "1", ""][len(sys.argv) - 1 :])[:3]
    mutants = list(all_mutants())
    equivalent = read_equivalent()
    stale = set(equivalent) - {key_of(mutant) for mutant in mutants}
    for key in sorted(stale):
        print("in equivalent.txt, but no mutant any more:", *key, sep="\n  ")
    chosen = [mutant for mutant in mutants if re.search(files, mutant[0])]
    if int(count) > 0:
        chosen = random.Random(int(seed)).sample(chosen, min(int(count), len(chosen)))
    counted = [mutant for mutant in chosen if key_of(mutant) not in equivalent]

    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    trees = queue.Queue()
    outcomes = {"killed": [], "alive": [], "does not build": [], "same code": []}
    workers = os.cpu_count() or 1

    def try_out(mutant):
        tree = trees.get()
        try:
            return mutant, tree.outcome(mutant, tests)
        finally:
            trees.put(tree)

    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        made = [Tree(number) for number in range(workers)]
        list(pool.map(Tree.make, made))
        tests = list(made[0].tests())
        for tree in made:
            trees.put(tree)
        for mutant, outcome in pool.map(try_out, counted):
            outcomes[outcome].append(mutant)
            if outcome == "alive":
                print(f"alive:\n{shown(mutant)}\n", flush=True)

    killed, alive = len(outcomes["killed"]), len(outcomes["alive"])
    percent = 100 * killed / max(1, killed + alive)
    print(
        f"{len(chosen)} of {len(mutants)} mutants: {killed} killed, {alive} alive, "
        f"{len(chosen) - len(counted)} in equivalent.txt, "
        f"{len(outcomes['same code'])} with the same code, "
        f"{len(outcomes['does not build'])} do not build: "
        f"{percent:.1f} % killed (at least {LEAST_PERCENT} %)"
    )
    sys.exit(percent < LEAST_PERCENT or bool(stale))


main()
