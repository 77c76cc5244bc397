"""A copy of the project with a build folder of its own, in which one source at a time is changed."""

import contextlib
import filecmp
import json
import os
import pathlib
import resource
import shlex
import shutil
import signal
import subprocess
import time

import sources

# What the sources include of the standard library, compiled once: a mutant's object then takes half a second.
PRECOMPILED = (
    "algorithm array bit charconv chrono cmath cstdint filesystem fstream functional iostream map memory numeric "
    "optional set span sstream string string_view thread tuple unordered_map utility variant vector").split()
# How a mutant is compiled. Warnings are off: a variable that a mutation leaves unused must not keep it from compiling.
FLAGS = ["-O1", "-w"]
MEMORY = 8 << 30  # bytes that a test program may take
# A test that takes longer, in seconds, runs only where all faster ones passed.
FAST = 0.25
# Seconds that each program may take above four times its own, and a third of those that it may stand still.
SPARE = 10


class DoesNotBuild(Exception):
    """The compiler or the linker refuses; the text is what it said."""


def call(command, folder, environment=None):
    """Runs `command` there; what it printed. DoesNotBuild if it fails."""
    told = subprocess.run(command, cwd=folder, capture_output=True, text=True, errors="replace", env=environment)
    if told.returncode != 0:
        raise DoesNotBuild(told.stdout + told.stderr)
    return told.stdout


class Tree:
    """The copy of `root` under `place`, configured; only files that differ are written, so that a second run builds
    little."""

    def __init__(self, root, place, headers=PRECOMPILED, spare=SPARE):
        self.sources, self.home, self.spare = place / "tree", place / "home", spare
        # Laid out and compiled as ./test lays out and compiles the core as released, so that ccache knows all of it.
        self.build = self.sources / "build" / "golden"
        self.copy(root)
        self.build.mkdir(parents=True, exist_ok=True)
        self.configure(headers)
        self.commands = {}
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            words = shlex.split(entry["command"])
            self.commands[words[words.index("-o") + 1]] = entry
        self.includers = None

    def copy(self, root):
        wanted = set(sources.files(root))
        for name in wanted:
            target = self.sources / name
            if not target.is_file() or not filecmp.cmp(root / name, target, shallow=False):
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(root / name, target)
                shutil.copymode(root / name, target)
        for name in set(sources.files(self.sources)) - wanted:
            (self.sources / name).unlink()

    def configure(self, headers):
        header = self.build / "precompiled.h"
        text = "".join(f"#include <{name}>\n" for name in headers)
        if not header.is_file() or header.read_text() != text:
            header.write_text(text)
            call(["c++", "-std=c++20", "-ffp-contract=off", *FLAGS, "-x", "c++-header", str(header),
                  "-o", f"{header}.gch"], self.build)
        self.flags = [*FLAGS, "-include", str(header)]
        call(["cmake", "-G", "Ninja", "-S", str(self.sources), "-B", str(self.build), "-DCMAKE_BUILD_TYPE=Release",
              "-DCMAKE_CXX_FLAGS_RELEASE=-O2", "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=mold", "-DVELNA_QT=OFF"], self.build)

    def make(self, programs):
        """Builds those test programs of the sources as they are."""
        call(["cmake", "--build", str(self.build), "-j", str(os.cpu_count()), "--target", *programs], self.build,
             os.environ | {"CCACHE_BASEDIR": str(self.sources), "CCACHE_NOHASHDIR": "1"})

    def path_of(self, program):
        return next(path for path in (self.build / "tests" / program, self.build / program) if path.is_file())

    def objects_of(self, program):
        """The objects that are linked into it."""
        return [name for name in self.linking(program) if name in self.commands]

    def linking(self, program):
        """The command that links it."""
        target = str(self.path_of(program).relative_to(self.build))
        last = call(["ninja", "-t", "commands", "-s", target], self.build).strip().splitlines()[-1]
        return shlex.split(last.removeprefix(": && ").removesuffix(" && :"))

    def including(self, name):
        """The objects that are compiled of the file `name`."""
        if self.includers is None:
            self.includers = {}
            for block in call(["ninja", "-t", "deps"], self.build).split("\n\n"):
                lines = block.strip().splitlines()
                for line in lines[1:]:
                    self.includers.setdefault(os.path.realpath(self.build / line.strip()), []).append(
                        lines[0].split(":")[0])
        return self.includers.get(os.path.realpath(self.sources / name), [])

    @contextlib.contextmanager
    def changed(self, name, text):
        """The file `name` holds `text` meanwhile, and afterwards is what it was, time and all."""
        path = self.sources / name
        before, times = path.read_bytes(), path.stat()
        try:
            path.write_text(text)
            yield
        finally:
            path.write_bytes(before)
            os.utime(path, ns=(times.st_atime_ns, times.st_mtime_ns))

    def compile(self, name, text):
        """The objects with `text` in the place of `name`, as {object: its new path}. Raises DoesNotBuild."""
        made = {}
        with self.changed(name, text):
            for index, output in enumerate(self.including(name)):
                entry = self.commands[output]
                command = [word for word in shlex.split(entry["command"]) if not word.endswith("ccache")]
                made[output] = str(self.build / f"mutant{index}.o")
                command[command.index("-o") + 1] = made[output]
                command[command.index("-c") : command.index("-c")] = self.flags
                call(command, entry["directory"])
        return made

    def same(self, name, objects):
        """Whether `objects` are what comes out of `name` as it is."""
        texts = {path: pathlib.Path(path).read_bytes() for path in objects.values()}
        self.compile(name, (self.sources / name).read_text())
        return all(pathlib.Path(path).read_bytes() == text for path, text in texts.items())

    def link(self, program, objects):
        """The path of that test program with `objects` in place of its own."""
        command, path = self.linking(program), self.build / f"{program}_mutant"
        command = [objects.get(word, word) for word in command]
        command[command.index("-o") + 1] = str(path)
        call(command, self.build)
        return path

    def uses(self, program, objects):
        return any(name in objects for name in self.objects_of(program))


class TestProgram:
    """A test program, and how long its tests take on the sources as they are."""

    def __init__(self, tree, name):
        self.tree, self.name = tree, name
        self.seconds = None
        report = tree.build / f"{name}.json"
        passed, told = self.run(tree.path_of(name), f"--gtest_output=json:{report}")
        if not passed:
            raise SystemExit(f"{name} fails without any mutation: {told}")
        suites = json.loads(report.read_text())["testsuites"]
        tests = {f"{test['classname']}.{test['name']}": float(test["time"].removesuffix("s"))
                 for suite in suites for test in suite["testsuite"]}
        self.seconds = sum(tests.values())
        self.slow = sorted(name for name, seconds in tests.items() if seconds > FAST)

    def killer(self, path, slow):
        """What fails of the slow tests, or of all others, in the program at `path`; "" if nothing does."""
        if slow and not self.slow:
            return ""
        names = ":".join(self.slow)
        passed, told = self.run(path, "--gtest_fail_fast", f"--gtest_filter={names if slow else '-' + names}")
        return "" if passed else told

    def run(self, path, *arguments):
        """(whether it passes, what fails if not). A program that takes several times as long as it does unchanged, or
        waits for what does not come, is one that hangs."""
        bound = 600 if self.seconds is None else int(4 * self.seconds) + self.tree.spare
        with self.home_of_its_own() as surroundings:
            started = time.monotonic()
            process = subprocess.Popen(
                [str(path), "--gtest_brief=1", *arguments], cwd=self.tree.home, env=surroundings, text=True,
                errors="replace", stdout=subprocess.PIPE, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL,
                start_new_session=True, preexec_fn=lambda: bound_process(bound))
            try:
                # Other work may share the machine: the bound proper is on the processor's time.
                told = printed(process, 10 * bound, 3 * self.tree.spare)
                if told is None:
                    return False, "hangs"
            finally:
                if process.poll() is None:
                    os.killpg(process.pid, signal.SIGKILL)
                    process.communicate()
        if process.returncode == 0:
            return True, ""
        return False, verdict(told, process.returncode, time.monotonic() - started)

    @contextlib.contextmanager
    def home_of_its_own(self):
        """A mutant may write anywhere: what it takes for the user's folders is one that goes away."""
        home = self.tree.home
        shutil.rmtree(home, ignore_errors=True)
        home.mkdir()
        own = {"HOME": home, "TMPDIR": home, "XDG_CONFIG_HOME": home / "config", "XDG_CACHE_HOME": home / "cache"}
        try:
            yield os.environ | {name: str(path) for name, path in own.items()}
        finally:
            shutil.rmtree(home, ignore_errors=True)


def printed(process, longest, still):
    """All that the process prints to its end; None where it runs longer, or has long done nothing at all."""
    began = moved = time.monotonic()
    before = 0
    while True:
        try:
            return process.communicate(timeout=1)[0]
        except subprocess.TimeoutExpired:
            now = time.monotonic()
        taken, busy = work_of(process.pid)
        if busy or taken != before:
            moved, before = now, taken
        if now - moved > still or now - began > longest:
            return None


def work_of(group):
    """(what the processes of the group have taken of the processor, whether one of them runs or is about to)."""
    taken, busy = 0, False
    for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
        try:
            fields = stat.read_text().rpartition(")")[2].split()
        except OSError:  # it has ended meanwhile
            continue
        if int(fields[2]) == group:
            taken += sum(map(int, fields[11:15]))
            busy = busy or fields[0] in "RD"
    return taken, busy


def bound_process(seconds):
    for kind, most in ((resource.RLIMIT_CPU, seconds), (resource.RLIMIT_AS, MEMORY), (resource.RLIMIT_CORE, 0)):
        resource.setrlimit(kind, (most, most))


def verdict(told, code, seconds):
    """The name of the first test that failed, or how the program ended."""
    for line in told.splitlines():
        if line.startswith("[  FAILED  ] "):
            return line.removeprefix("[  FAILED  ] ").split(" ")[0].rstrip(",")
    if code == -signal.SIGXCPU or code == -signal.SIGKILL:
        return f"hangs ({seconds:.0f} s)"
    return f"ends by signal {-code}" if code < 0 else f"ends with {code}"
