#!/usr/bin/env python3
"""Calls that cannot be followed: each ends with its status and one line that says why, and leaves nothing half-written.

usage: test_bad_input.py VELNA ROOT
"""

import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import unittest

from calling import CURRENT, DEFAULT, ENVIRONMENT, EXAMPLES, EXPORTS, PROGRAM, CommandLine, call, main

KINDS = {"vln": [], "wrl": [], "dxf": [], "pdf": ["--plan", "side"], "png": [], "svg": [], "stl": [], "3mf": [], "obj": [], "glb": []}
NOBODY = 65534
GLIDER = EXAMPLES[0]


class WrongCalls(CommandLine):
    def refuses(self, problem, *words):
        self.assertEqual(self.fails(2, *words), problem)
        self.assertEqual(self.names(), [])

    def test_options_that_contradict_each_other(self):
        out = str(self.folder / "o")
        self.refuses("--plan makes no sense for .wrl", "--export", f"{out}.wrl", "--plan", "side", DEFAULT)
        self.refuses("--view makes no sense for .vln", "--export", f"{out}.vln", "--view", "side", DEFAULT)
        self.refuses(f'--as dxf contradicts the ending of "{out}.wrl"', "--export", f"{out}.wrl", "--as", "dxf", DEFAULT)
        self.refuses("--view is given twice", "--export", f"{out}.dxf", "--view=top", "--view=top", DEFAULT)
        self.refuses("--landscape makes no sense for a --paper of WxH", "--export", f"{out}.pdf", "--plan=side",
                     "--paper", "100x200", "--landscape", DEFAULT)
        self.refuses("--export and --info are two calls", "--export", f"{out}.wrl", "--info", DEFAULT)
        self.refuses("--view makes no sense with such a --plan", "--export", f"{out}.dxf", "--plan=ribs", "--view=top",
                     DEFAULT)
        self.refuses("--view makes no sense without --export", "--view", "top", DEFAULT)
        self.refuses("--strict makes no sense for .dxf", "--export", f"{out}.dxf", "--strict", DEFAULT)
        self.refuses("--cut makes no sense for .wrl", "--export", f"{out}.wrl", "--cut", DEFAULT)
        self.refuses("--each makes no sense for .wrl", "--export", f"{out}.wrl", "--each", DEFAULT)
        self.refuses("--skin makes no sense for .stl", "--export", f"{out}.stl", "--skin=1", DEFAULT)
        self.refuses("--plan makes no sense for .glb", "--export", f"{out}.glb", "--plan=ribs", DEFAULT)

    def test_endings_and_kinds_that_are_unknown(self):
        for name in ("o", "o.", "o.doc", ".wrl/o", "o.wrl2"):
            out = self.folder / name
            self.refuses(f'"{out}" does not tell its kind; --as KIND does', "--export", out, DEFAULT)
        self.refuses('--as takes KIND, not "doc"', "--export", self.folder / "o", "--as", "doc", DEFAULT)

    def test_sizes_and_sheets_that_are_none(self):
        for size in ("0", "0x5", "-1", "1e3", "nonsense", "100000", "10001x1", ""):
            self.refuses(f'--size takes N|WxH, not "{size}"', "--export", self.folder / "o.png", "--size", size, DEFAULT)
        for paper in ("0x0", "0x297", "A5", "1e9x1e9", "210"):
            self.refuses(f'--paper takes A4|A3|A2|A1|A0|Letter|Legal|WxH, not "{paper}"', "--export",
                         self.folder / "o.pdf", "--plan", "side", "--paper", paper, DEFAULT)
        self.assertIn("no printable area", self.fails(1, "--export", self.folder / "o.pdf", "--plan", "side", "--paper",
                                                      "5x5", DEFAULT))
        self.assertEqual(self.names(), [])

    def test_words_that_are_missing(self):
        self.refuses("--export needs OUT", "--export")
        self.refuses("--export needs a project", "--export", self.folder / "o.wrl")
        self.refuses("--info needs a project", "--info")
        for text in ("", "-1", "x", "nan", "1e999", "12 g"):
            self.refuses(f'--mass takes G, not "{text}"', "--info", "--mass", text, DEFAULT)

    def test_what_is_unknown_is_told_with_how_calls_are_made(self):
        done = call("--bogus")
        self.assertEqual(done.returncode, 2)
        self.assertTrue(done.stderr.startswith("velna: unknown option --bogus\nUsage: velna [FILE]\n"))


class Projects(CommandLine):
    def test_what_is_no_whole_project(self):
        whole = DEFAULT.read_bytes()
        bad = {"text": b"Dear all,\n", "empty": b"", "cut": whole[: len(whole) // 2],
               "old": b"# VELNA File Format V0.1\r\n1\r\n2\r\n"}
        for name, content in bad.items():
            (self.folder / f"{name}.vln").write_bytes(content)
        os.mkfifo(self.folder / "pipe.vln")
        os.mkdir(self.folder / "folder.vln")
        reasons = {"text": "no Velna project", "empty": "no Velna project",
                   "cut": "not a whole project", "pipe": "not a regular file",
                   "old": "projects of version 0.1 are not supported any more", "folder": "not a regular file",
                   "missing": "No such file or directory"}
        before = self.names()
        for name, reason in reasons.items():
            project = self.folder / f"{name}.vln"
            for kind, words in KINDS.items():
                self.assertEqual(self.fails(1, "--export", self.folder / f"o.{kind}", *words, project), f"{project}: {reason}")
            self.assertEqual(self.fails(1, "--info", "--json", project), f"{project}: {reason}")
        self.assertEqual(self.names(), before)

    def test_a_fuselage_that_does_not_exist(self):
        for kind in ("dxf", "png", "svg"):
            self.assertEqual(self.fails(1, "--export", self.folder / f"o.{kind}", "--view", "htop", "--fuselage", "2", DEFAULT),
                             f"{DEFAULT}: no fuselage 2, it has 1")
        self.assertEqual(self.fails(1, "--export", self.folder / "o.pdf", "--plan", "htop", "--fuselage", "7", DEFAULT),
                         f"{DEFAULT}: no fuselage 7, it has 1")
        self.assertEqual(self.names(), [])

    def test_of_a_thousand_projects_ten_are_bad(self):
        projects, out = self.folder / "projects", self.folder / "out"
        projects.mkdir()
        out.mkdir()
        files = [projects / f"{i:03}.vln" for i in range(1000)]
        for i, file in enumerate(files):
            file.write_bytes(b"nothing" if i % 100 == 50 else DEFAULT.read_bytes())
        done = call("--export", out, "--as", "dxf", *files)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr.splitlines(), [f"velna: {file}: no Velna project" for file in files[50::100]])
        drawing = (EXPORTS / "default.VTop.dxf").read_bytes()
        written = list(out.iterdir())
        self.assertEqual(len(written), 990)
        self.assertTrue(all(file.read_bytes() == drawing for file in written))


class Targets(CommandLine):
    def test_an_out_that_is_no_file(self):
        os.mkfifo(self.folder / "pipe")
        for out, reason in {self.folder / "pipe": "Invalid argument", pathlib.Path("/dev/null"): "Invalid argument",
                            self.folder / "none" / "o": "No such file or directory",
                            DEFAULT / "o": "Not a directory"}.items():
            for kind in KINDS.keys() - {"pdf"}:
                self.assertEqual(self.fails(1, "--export", out, "--as", kind, DEFAULT), f"{out}: {reason}")
        self.assertEqual(self.names(), ["pipe"])
        self.assertTrue(pathlib.Path("/dev/null").is_char_device())

    def test_several_projects_need_a_folder(self):
        two = [DEFAULT, CURRENT / "wings3.vln"]
        (self.folder / "file.dxf").write_bytes(b"old")
        for name in ("file.dxf", "none"):
            self.assertEqual(self.fails(2, "--export", self.folder / name, "--as", "dxf", *two),
                             f"{self.folder / name}: several projects need a folder that is there")
        self.assertEqual((self.folder / "file.dxf").read_bytes(), b"old")

    def test_two_projects_of_one_name(self):
        (self.folder / "a").mkdir()
        (self.folder / "out").mkdir()
        shutil.copy(CURRENT / "wings3.vln", self.folder / "a" / "default.vln")
        out = self.folder / "out" / "default.svg"
        self.assertEqual(self.fails(1, "--export", self.folder / "out", "--as", "svg", DEFAULT, self.folder / "a" / "default.vln"),
                         f"{self.folder / 'a' / 'default.vln'}: {out} holds {DEFAULT} already")

    def test_a_folder_that_cannot_be_written(self):
        def as_nobody():
            if os.geteuid() == 0:
                os.setgroups([])
                os.setgid(NOBODY)
                os.setuid(NOBODY)

        # The program where anybody can start it.
        here = self.folder / "bin"
        here.mkdir()
        shutil.copy(PROGRAM, here / "velna")
        shutil.copy(DEFAULT, self.folder / "plane.vln")
        self.folder.chmod(0o555)
        self.addCleanup(self.folder.chmod, 0o755)
        before = self.names()
        for kind, words in KINDS.items():
            out = self.folder / f"o.{kind}"
            done = subprocess.run([here / "velna", "--export", out, *words, self.folder / "plane.vln"], env=ENVIRONMENT,
                                  capture_output=True, text=True, preexec_fn=as_nobody, check=False)
            self.assertEqual(done.returncode, 1, done.stderr)
            self.assertRegex(done.stderr, f"^velna: {re.escape(str(out))}: .*Permission denied\n$")
        self.assertEqual(self.names(), before)

    def test_a_full_disk(self):
        def full():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (100, 100))

        for kind, words in KINDS.items():
            out = self.folder / ("o-side.pdf" if kind == "pdf" else f"o.{kind}")
            out.write_bytes(b"old")
            told = self.fails(1, "--export", self.folder / f"o.{kind}", *words, DEFAULT, preexec_fn=full)
            self.assertIn("File too large", told)
            self.assertEqual(out.read_bytes(), b"old")
        self.assertEqual(len(self.names()), len(KINDS))

    def test_a_disk_that_fills_between_the_parts(self):
        """Files of parts take their places together, or none does."""
        def full():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (20_000, 20_000))  # more than half the wing, less than the hull

        (self.folder / "o-fin.stl").write_bytes(b"old")
        told = self.fails(1, "--export", self.folder / "o.stl", "--each", GLIDER, preexec_fn=full)
        self.assertIn("File too large", told)
        self.assertEqual(self.names(), ["o-fin.stl"])
        self.assertEqual((self.folder / "o-fin.stl").read_bytes(), b"old")

    def test_thousands_of_parts_each_in_a_file(self):
        """As many as there are wished, with few files open at once."""
        def few():
            resource.setrlimit(resource.RLIMIT_NOFILE, (64, 64))

        self.done("--export", self.folder / "o.svg", "--plan", "ribs", "--stations", "1000", "--each", DEFAULT, preexec_fn=few)
        self.assertEqual(len(self.names()), 2000)

    def test_an_answer_that_cannot_be_written(self):
        for words in (["--help"], ["--version"], ["--info", DEFAULT]):
            with open("/dev/full", "w", encoding="utf-8") as full:
                done = subprocess.run([PROGRAM, *words], env=ENVIRONMENT, stdout=full, stderr=subprocess.PIPE, text=True,
                                      check=False)
            self.assertEqual((done.returncode, done.stderr), (1, "velna: standard output: No space left on device\n"))


@unittest.skipUnless(shutil.which("strace"), "needs strace")
class Calls(CommandLine):
    """What the system is asked for, even where there is a screen."""

    def traced(self, *words):
        log = self.folder / "calls"
        subprocess.run(["strace", "-f", "-qq", "-e", "trace=openat,open,connect,execve", "-o", log, PROGRAM, *words],
                       env=ENVIRONMENT | {"DISPLAY": ":7", "WAYLAND_DISPLAY": "wayland-7"}, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return log.read_text(encoding="utf-8", errors="replace").splitlines()

    def test_no_display_and_no_device_is_opened(self):
        calls = {kind: ["--export", self.folder / f"o.{kind}", *words, DEFAULT] for kind, words in KINDS.items()}
        calls["tape"] = ["--export", self.folder / "t.pdf", "--plan=side", "--tape", DEFAULT]
        calls["ribs"] = ["--export", self.folder / "ribs.dxf", "--plan=ribs", DEFAULT]
        calls["info"] = ["--info", DEFAULT]
        for name, words in calls.items():
            with self.subTest(name):
                lines = self.traced(*words)
                opened = [match[1] for line in lines if (match := re.search(r'open(?:at)?\(.*?"([^"]*)"', line))]
                self.assertTrue(any(path.endswith("default.vln") for path in opened))
                screens = re.compile(r"^/dev/(?!null$|urandom$)|X11-unix|/cups/|\.HLP$|prefs\.txt$|settings\.txt$")
                self.assertEqual([path for path in opened if screens.search(path)], [])
                # The system's own table of users is asked for by a socket.
                self.assertEqual([line for line in lines if "connect(" in line and "nscd" not in line], [])

    def test_a_drawing_asks_for_no_plugin(self):
        for kind in KINDS.keys() - {"pdf"}:
            lines = self.traced("--export", self.folder / f"o.{kind}", DEFAULT)
            self.assertEqual([line for line in lines if "/plugins/" in line], [], kind)


if __name__ == "__main__":
    main()
