#!/usr/bin/env python3
"""The whole program on a system that refuses: whichever call for a file fails, once or from there on, the old files stand
or the new ones, one line tells it, and the exit status too.

usage: test_refused.py VELNA ROOT
"""

import os
import re
import signal
import subprocess

from calling import DATA, DEFAULT, ENVIRONMENT, PROGRAM, CommandLine, main

# What changes files, and what opens them.
CALLS = "openat", "write", "fsync", "fchmod", "rename", "link", "unlink", "close"
ERRORS = "ENOSPC", "EIO", "EDQUOT", "EROFS", "EACCES"
TEXTURED = DATA / "scene" / "tex_all.vln"
LEFT = re.compile(r"^\.velna-\w{6}~?$")


def traced(log, *words, refuse=()):
    """The program under a watch that writes its calls into `log`, and refuses some."""
    tracer = ["strace", "-f", "-y", "-o", log, "-e", f"trace={','.join(CALLS)}", *(f"--inject={rule}" for rule in refuse)]
    return subprocess.run([*tracer, PROGRAM, *words], env=ENVIRONMENT, capture_output=True, text=True, timeout=120, check=False)


def calls_for(log, folder):
    """(call, its number among those of its name) of each call that is about files of `folder`."""
    counted = dict.fromkeys(CALLS, 0)
    for line in log.read_text(errors="replace").splitlines():
        found = re.match(r"\d+\s+(\w+)\((.*)", line)
        if not found or found[1] not in counted:
            continue
        counted[found[1]] += 1
        if str(folder) in found[2]:
            yield found[1], counted[found[1]]


class Refused(CommandLine):
    def setUp(self):
        super().setUp()
        self.out = self.folder / "out"
        self.log = self.folder / "calls"

    def put_old_files(self, names):
        subprocess.run(["rm", "-rf", self.out], check=True)
        self.out.mkdir()
        for name in names:
            (self.out / name).write_text("old")

    def files(self):
        return {name: (self.out / name).read_bytes() for name in os.listdir(self.out) if not LEFT.match(name)}

    def judge(self, old, new, done):
        """What there is to blame, or nothing."""
        files, told = self.files(), done.stderr
        if done.returncode not in (0, 1) or "Sanitizer" in told or "runtime error" in told:
            return f"it has crashed: {done.returncode} {told}"
        if (done.returncode == 0) != (told == ""):
            return f"status {done.returncode} with the words: {told!r}"
        left = [name for name in os.listdir(self.out) if LEFT.match(name) and name not in told]
        if left:
            return f"left over are {left}, told is: {told!r}"
        if done.returncode == 0 and not self.same(files, new):
            return "it says that all went well, and it did not"
        mixed = {name for name in files.keys() | old.keys() if files.get(name) != old.get(name) and name not in told}
        if mixed and not self.same(files, new):
            return f"new and old stand together: {mixed}, told is: {told!r}"
        return ""

    @staticmethod
    def whole(data):
        """A plan's bytes without what tells the time of its making."""
        return re.sub(rb"D:\d{14}[^)]*|<[0-9A-Fa-f-]{32,}>|uuid:[-0-9a-f]+|\d{4}-\d\d-\d\dT[^<]*", b"", data)

    def same(self, one, other):
        return {name: self.whole(data) for name, data in one.items()} == {name: self.whole(data) for name, data in other.items()}

    def attack(self, old, *words, goes_on=False):
        """Refuses each call that is about the folder `out` in turn; gives how many there are."""
        self.put_old_files(old)
        done = traced(self.log, *words)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        new = self.files()
        calls = list(calls_for(self.log, self.out))
        for number, (call, ordinal) in enumerate(calls):
            if goes_on and call == "write":
                continue  # the sanitizers write into pipes of their own, and would fail with it
            error = ERRORS[number % len(ERRORS)]
            with self.subTest(call=call, ordinal=ordinal, error=error, goes_on=goes_on):
                self.put_old_files(old)
                before = self.files()
                rule = f"{call}:error={error}:when={ordinal}{'+' if goes_on else ''}"
                self.assertEqual(self.judge(before, new, traced(self.log, *words, refuse=[rule])), "")
        return len(calls)

    def test_of_a_plan_each_call_refused_once_and_from_there_on(self):
        words = "--export", self.out / "o.pdf", "--plan", "front", DEFAULT
        for goes_on in False, True:
            self.assertGreater(self.attack(["o-front.pdf"], *words, goes_on=goes_on), 6)

    def test_of_a_model_with_its_pictures_each_call_refused_once(self):
        self.assertGreater(self.attack(["o.wrl", "tex_fus.jpg"], "--export", self.out / "o.wrl", TEXTURED), 20)

    def test_the_judge_finds_what_is_wrong(self):
        old, new = {"one": b"old", "two": b"old"}, {"one": b"new", "two": b"new"}

        def judged(files, status=0, told=""):
            self.put_old_files([])
            for name, data in files.items():
                (self.out / name).write_bytes(data)
            return self.judge(old, new, subprocess.CompletedProcess([], status, "", told))

        self.assertEqual(judged(new), "")
        self.assertEqual(judged(old, 1, "velna: one: no room\n"), "")
        self.assertIn("crashed", judged(old, -signal.SIGSEGV))
        self.assertIn("went well", judged(old))
        self.assertIn("with the words", judged(old, 1))
        self.assertIn("together", judged(old | {"two": b"ne"}, 1, "velna: no room\n"))
        self.assertIn("left over", judged(old | {".velna-abc123": b""}, 1, "velna: no room\n"))


if __name__ == "__main__":
    main()
