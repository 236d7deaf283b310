"""Changes the library in one place at a time, and tells which changes no test sees.

usage: mutate.py [COUNT [SEED [FILES]]]

Takes COUNT of all mutants (150; 0 for all of them), chosen by SEED (1), of the sources whose names
hold the regular expression FILES. Works on copies of the project in build/mutation, one for each
processor, and runs the tests of what depends on the changed file. A mutant is killed if a test
fails, crashes or takes too long. One that lives is tried again with AddressSanitizer and
UndefinedBehaviorSanitizer, whose build takes longer.

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
import shutil
import subprocess
import sys
import threading

import mutations

ROOT = pathlib.Path(__file__).resolve().parents[2]
EQUIVALENT = ROOT / "tests/mutation/equivalent.txt"
WORK = ROOT / "build/mutation"
LEAST_PERCENT = 95
TARGETS = ("qxfmt_tests", "qxfmt_library_tests")
PROGRAMS = tuple(f"tests/{target}" for target in TARGETS)
QUICK = 0.3  # seconds; slower tests run by themselves, and only if the quick ones see nothing
COMPILER = "clang++"
PLAIN = "-O0"
SANITIZED = "-O1 -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all"

SANITIZED_USE = threading.Lock()

# Rooms whose tests see what is built from the sources of another room.
USERS = {"text": ("numbers", "growable"), "growable": ("time",)}


def all_mutants():
    """Each as (file, number of the line, what the mutant is known by, what the line becomes)."""
    for path in sorted((ROOT / "src").glob("*/*")):
        name = str(path.relative_to(ROOT))
        lines = [line.strip() for line in path.read_text().splitlines()]
        for number, changed in mutations.of_file(path.read_text()):
            line = lines[number]
            nth = lines[: number + 1].count(line)
            key = (name, f"{line} #{nth}" if nth > 1 else line, changed.strip())
            yield name, number, key, changed


def key_of(mutant):
    """Line numbers do not matter, nor blanks. The second of two lines that are alike ends in #2."""
    return mutant[2]


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
    """A copy of the project with its build, for one mutant at a time."""

    def __init__(self, name, flags):
        self.source = WORK / name
        self.build = self.source / "build"
        self.flags = flags

    def run(self, *command, cpu_seconds=1200):
        """The finished command. It ends after so many seconds of work, or after 20 minutes."""
        environment = {
            **os.environ,
            "CCACHE_DISABLE": "1",
            "GTEST_FAIL_FAST": "1",
            "LOCPATH": str(self.build / "tests/locales"),
            "ASAN_OPTIONS": "hard_rss_limit_mb=1500",
        }
        try:
            return subprocess.run(
                ["prlimit", f"--cpu={cpu_seconds}", "--core=0", *command],
                cwd=self.build,
                env=environment,
                stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE,
                stderr=subprocess.STDOUT,
                text=True,
                errors="replace",
                timeout=1200,
            )
        except subprocess.TimeoutExpired as late:
            return subprocess.CompletedProcess(command, 1, str(late))

    def must_run(self, *command):
        done = self.run(*command)
        if done.returncode != 0:
            sys.exit(f"{' '.join(command)} failed:\n{done.stdout[-4000:]}")
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
            "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={self.flags}",
            "-DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=lld", "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld",
            "-DQXFMT_HARDENING=OFF", "-DQXFMT_BUILD_PROGRAMS=OFF",
            "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST",
            f"-DCMAKE_PROJECT_qxfmt_INCLUDE={self.source}/tests/mutation/precompiled.cmake",
        )  # fmt: skip
        self.must_run("ninja", "-j1", *TARGETS)
        self.users = self.find_users()
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

    def kills(self, mutant, tests):
        """Whether a test sees the mutant, which is in place; None if that does not build."""
        if self.run("ninja", "-j1", *TARGETS).returncode != 0:
            return None
        rooms = {source.parent.name for source in self.users[mutant[0]]}
        rooms |= {"frame", mutant[0].split("/")[1]}
        for room in sorted(rooms):
            rooms.update(USERS.get(room, ()))
        for command, seconds in runs_for(rooms, tests):
            if self.run(*command, cpu_seconds=int(5 + 5 * seconds)).returncode != 0:
                return True
        return False

    def code_of(self, name):
        """What the compiler makes, optimized, of all sources that the file is part of."""
        code = []
        for source in self.users[name]:
            self.must_run(*self.compile(source), "-O2", "-c", "-o", "code.o")
            code.append((self.build / "code.o").read_bytes())
        return code

    def compile(self, source):
        includes = ["-I", f"{self.source}/src", "-I", f"{self.source}/include"]
        return [COMPILER, "-std=c++20", *includes, str(source)]

    def find_users(self):
        """The sources that each file of src/ is part of."""
        users = {}
        for source in sorted((self.source / "src").glob("*/*.cpp")):
            for part in self.must_run(*self.compile(source), "-MM").split():
                users.setdefault(part.removeprefix(f"{self.source}/"), []).append(source)
        return users


def outcome_of(mutant, tree, sanitized, tests):
    with tree.changed(mutant):
        killed = tree.kills(mutant, tests)
        if killed is None:
            return "does not build"
        if killed:
            return "killed"
        code = tree.code_of(mutant[0])
    if code == tree.code_of(mutant[0]):
        return "same code"
    with SANITIZED_USE, sanitized.changed(mutant):
        return "killed" if sanitized.kills(mutant, tests) else "alive"


def git_files():
    listed = subprocess.run(
        ["git", "-C", str(ROOT), "ls-files", "--cached", "--others", "--exclude-standard"],
        capture_output=True, text=True, check=True,
    )  # fmt: skip
    return [name for name in listed.stdout.splitlines() if (ROOT / name).is_file()]


def runs_for(rooms, tests):
    """Command lines with the seconds that they take, the quick tests of a program in one."""
    tests = [test for test in tests if test[3] in rooms]
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

    outcomes = {"killed": [], "alive": [], "does not build": [], "same code": []}
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        trees = [Tree(f"plain-{number}", PLAIN) for number in range(os.cpu_count())]
        sanitized = Tree("sanitized", SANITIZED)
        list(pool.map(Tree.make, [*trees, sanitized]))
        tests = list(sanitized.tests())
        free = queue.Queue()
        for tree in trees:
            free.put(tree)

        def try_out(mutant):
            tree = free.get()
            try:
                return mutant, outcome_of(mutant, tree, sanitized, tests)
            finally:
                free.put(tree)

        for done in concurrent.futures.as_completed(pool.submit(try_out, mutant) for mutant in counted):
            mutant, outcome = done.result()
            outcomes[outcome].append(mutant)
            if outcome == "alive":
                print(f"alive:\n{shown(mutant)}\n", flush=True)
            tried = sum(map(len, outcomes.values()))
            if tried % 25 == 0:
                print(f"{tried} of {len(counted)} tried", file=sys.stderr, flush=True)

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
