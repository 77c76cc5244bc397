#!/usr/bin/env python3
"""What only answers on a system that refuses: whichever call about the project or the answer fails, once or from there on, the
whole answer comes, or one line tells why not, and the exit status too. Nobody's own folders are asked for anything.

usage: test_refused_answers.py VELNA ROOT
"""

import re
import shutil
import subprocess

from calling import DEFAULT, ENVIRONMENT, PROGRAM, CommandLine, main

CALLS = "openat", "read", "newfstatat", "write", "close"
ERRORS = "EIO", "ENOSPC", "EACCES", "EROFS"


class RefusedAnswers(CommandLine):
    def setUp(self):
        super().setUp()
        self.own = self.folder / "own"
        self.out = self.folder / "out"
        self.out.mkdir()
        self.own.mkdir()
        self.project = shutil.copy(DEFAULT, self.out)
        self.log = self.folder / "calls"

    def asked(self, *words, refuse=()):
        """The program under a watch, with its answer in a file; the status, the answer and what is complained of."""
        tracer = ["strace", "-f", "-y", "-o", self.log, "-e", f"trace={','.join(CALLS)}", *(f"--inject={rule}" for rule in refuse)]
        own = {name: str(self.own) for name in ("HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME")}
        with open(self.out / "answer", "wb+") as answer:
            done = subprocess.run([*tracer, PROGRAM, *words], env=ENVIRONMENT | own, stdout=answer, stderr=subprocess.PIPE,
                                  text=True, timeout=120, check=False)
            answer.seek(0)
            return done.returncode, answer.read(), done.stderr

    def calls(self):
        """(call, its number among those of its name) of each that is about the project or the answer."""
        counted = dict.fromkeys(CALLS, 0)
        for line in self.log.read_text(errors="replace").splitlines():
            found = re.match(r"\d+\s+(\w+)\((.*)", line)
            if found and found[1] in counted:
                counted[found[1]] += 1
                if str(self.out) in found[2]:
                    yield found[1], counted[found[1]]

    @staticmethod
    def judge(whole, status, answer, told):
        """What there is to blame, or nothing."""
        if status not in (0, 1) or "Sanitizer" in told or "runtime error" in told:
            return f"it has crashed: {status} {told}"
        if status == 0:
            return "" if answer == whole and not told else f"it says that all went well: {answer!r} {told!r}"
        return "" if told.startswith("velna: ") and told.count("\n") == 1 else f"it does not tell why: {told!r}"

    def attack(self, *words):
        """Refuses each call in turn; gives how many there are."""
        status, whole, told = self.asked(*words)
        self.assertEqual((status, told), (0, ""))
        calls = list(self.calls())
        self.assertNotIn(str(self.own), self.log.read_text(errors="replace"))
        for number, (call, ordinal) in enumerate(calls):
            for goes_on in False, True:
                if goes_on and call == "write":
                    continue  # the sanitizers write into pipes of their own, and would fail with it
                error = ERRORS[(number + goes_on) % len(ERRORS)]
                with self.subTest(words=words, call=call, ordinal=ordinal, error=error, goes_on=goes_on):
                    rule = f"{call}:error={error}:when={ordinal}{'+' if goes_on else ''}"
                    self.assertEqual(self.judge(whole, *self.asked(*words, refuse=[rule])), "")
        return len(calls)

    def test_of_the_figures_each_call_refused_once_and_from_there_on(self):
        self.assertGreater(self.attack("--info", self.project), 4)
        self.assertGreater(self.attack("--info", self.project, "--json"), 4)

    def test_of_version_and_help_each_call_refused_once_and_from_there_on(self):
        for word in "--version", "--help":
            self.assertGreater(self.attack(word), 0)

    def test_the_judge_finds_what_is_wrong(self):
        self.assertEqual(self.judge(b"all", 0, b"all", ""), "")
        self.assertEqual(self.judge(b"all", 1, b"", "velna: no room\n"), "")
        self.assertIn("crashed", self.judge(b"all", -11, b"", ""))
        self.assertIn("went well", self.judge(b"all", 0, b"al", ""))
        self.assertIn("tell why", self.judge(b"all", 1, b"", ""))
        self.assertIn("tell why", self.judge(b"all", 1, b"", "velna: one\nvelna: two\n"))


if __name__ == "__main__":
    main()
