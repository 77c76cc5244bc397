"""Start and end of the window on a system that refuses: whichever call about the user's own folders fails, once or from there on,
the program opens and closes, and each file is as it was or as it is to be; unsaved work of a crash stands.

VELNA_STARTS=N makes so many starts (10 if not told; 0 one for each call, in each beginning, which takes a quarter of an hour),
VELNA_STARTS_SEED=N draws them again.
"""

import errno
import os
import random
import signal
import unittest

import base
from screen import PATIENCE, wait_for

STARTS = int(os.environ.get("VELNA_STARTS", 10))
SEED = int(os.environ.get("VELNA_STARTS_SEED", random.randrange(10000)))
ERRORS = errno.EIO, errno.ENOSPC, errno.EACCES, errno.EROFS
INCHES = '"Done"\r\n#TRUE#\r\n#FALSE#\r\n'
BEGINNINGS = "first", "usual", "crashed"


class RefusedStart(base.WindowTest):
    starts = False

    def own_folders(self, program):
        return [program.folder / "config" / "velna", program.folder / "state" / "velna"]

    def begin(self, beginning):
        """A program with what its user's folders hold at such a start."""
        program = self.new_program(below="libexec/velna")
        config, state = self.own_folders(program)
        if beginning == "first":
            return program
        config.mkdir(parents=True)
        (config / "prefs.txt").write_text(INCHES, newline="")
        (config / "settings.txt").write_text("recent=/models/glider.vln\r\n", newline="")
        state.mkdir(parents=True)
        (state / "unsaved-1.lock").touch()
        if beginning == "crashed":
            (state / "unsaved-1.work").write_bytes(self.left_work())
        return program

    def left_work(self):
        """What a program leaves that is killed with unsaved work; made once."""
        if not hasattr(self, "work"):
            program = self.new_program().start()
            program.enter("SpanText", "1444")
            works = wait_for(lambda: list((program.folder / "state" / "velna").glob("*.work")), "the work to be kept")
            program.die(signal.SIGKILL)
            self.work = works[0].read_bytes()
        return self.work

    def files(self, program):
        """The files of the user's own folders with their bytes, wherever the program lies; a lock holds none."""
        found = {}
        for folder in self.own_folders(program):
            found |= {path.name: path.read_bytes() for path in folder.glob("*") if path.suffix != ".lock"}
        return {name: data.replace(os.fsencode(program.folder), b"") for name, data in found.items()}

    def opens(self, program):
        """Answers what is asked and told on the way; true when the window can be worked."""
        program.running_or_raise()
        controls = program.controls()
        if not any(control.modal and control.isWindow for control in controls):
            return program.ready("DrawArea")
        shown = {control.told.get("text", "").replace("&", "") for control in controls if control.modal}
        for caption in {"Keep for later", "OK"} & shown:
            program.push(caption)
            program.no_dialog()
        return False

    def asks_to_quit(self, program):
        """Presses the window's close key, again where a window that has just closed has taken it."""
        self.screen.key("alt+F4")
        try:
            return wait_for(lambda: "Yes" in [control.told.get("text", "").replace("&", "") for control in program.controls()],
                            "the question", 3)
        except AssertionError:
            return False

    def run_through(self, program, number=0, goes_on=False, error=0):
        """A start and a quit with that call refused; the exit status and the calls there were."""
        log = program.folder / "refusals"
        under = ":".join(str(folder) for folder in self.own_folders(program))
        program.env |= dict(LD_PRELOAD=str(base.BUILD / "preloaded" / "libvelna_refusal.so"), REFUSAL_UNDER=under,
                            REFUSAL_LOG=str(log), REFUSAL_NUMBER=str(number), REFUSAL_ERROR=str(error),
                            REFUSAL_GOES_ON="1" if goes_on else "")
        # The sanitizers need not stand before it.
        program.env["ASAN_OPTIONS"] += ":verify_asan_link_order=0"
        program.start(wait=False)
        wait_for(lambda: self.opens(program), "the window")
        wait_for(lambda: self.asks_to_quit(program), "the question at the end")
        program.push("Yes")
        status = program.process.wait(PATIENCE)
        program.process = None
        return status, log.read_text().splitlines() if log.exists() else []

    @staticmethod
    def judge(old, new, now, status, told):
        """What there is to blame, or nothing."""
        if status != 0:
            return f"it ends with {status}"
        left = [name for name in now if name.startswith(".velna-") and name not in told]
        if left:
            return f"it leaves {left}"
        torn = [name for name, data in now.items()
                if not name.startswith(".velna-") and data not in (old.get(name), new.get(name), old.get("unsaved-1.work"))]
        if torn:
            return f"neither old nor new: {torn}"
        gone = [name for name, data in old.items() if name not in now and data not in now.values()]
        return f"gone: {gone}" if gone else ""

    def learn(self, beginning):
        """What a start and a quit leave where nothing is refused, and the calls that they make."""
        program = self.begin(beginning)
        status, calls = self.run_through(program)
        new = self.files(program)
        program.end()
        self.assertEqual(status, 0)
        return new, calls

    def attack(self, beginning, new, calls, number, goes_on):
        error = ERRORS[(number + goes_on) % len(ERRORS)]
        with self.subTest(beginning=beginning, call=calls[number - 1], goes_on=goes_on, error=errno.errorcode[error]):
            program = self.begin(beginning)
            old = self.files(program)
            status, made = self.run_through(program, number, goes_on, error)
            self.assertTrue(any(call.endswith(" refused") for call in made), made)
            self.assertEqual(self.judge(old, new, self.files(program), status, program.errors()), "")
            program.end()

    def test_each_call_refused_once_and_from_there_on(self):
        draw = random.Random(SEED)
        for beginning in BEGINNINGS if STARTS == 0 else draw.sample(BEGINNINGS, 1):
            new, calls = self.learn(beginning)
            self.assertGreater(len(calls), 12)
            tries = [(number, goes_on) for number in range(1, len(calls) + 1) for goes_on in (False, True)]
            drawn = tries if STARTS == 0 else draw.sample(tries, min(STARTS, len(tries)))
            print(f"{beginning}: {len(drawn)} of {len(tries)} refusals, VELNA_STARTS_SEED={SEED}")
            for number, goes_on in drawn:
                self.attack(beginning, new, calls, number, goes_on)


class TheJudge(unittest.TestCase):
    def test_finds_what_is_wrong(self):
        old, new = {"prefs.txt": b"old", "unsaved-1.work": b"work"}, {"prefs.txt": b"new", "unsaved-1.work": b"work"}

        def judged(now, status=0, told=""):
            return RefusedStart.judge(old, new, now, status, told)

        self.assertEqual(judged(old), "")
        self.assertEqual(judged(new), "")
        self.assertEqual(judged({"prefs.txt": b"new", "unsaved-1.damaged": b"work"}), "")
        self.assertIn("ends with", judged(old, -11))
        self.assertIn("leaves", judged(old | {".velna-abc123": b""}))
        self.assertEqual(judged(old | {".velna-abc123": b""}, 0, ".velna-abc123 could not be removed"), "")
        self.assertIn("neither", judged(old | {"prefs.txt": b"ne"}))
        self.assertIn("gone", judged({"prefs.txt": b"new"}))
        self.assertIn("gone", judged({"unsaved-1.work": b"work"}))


if __name__ == "__main__":
    base.main()
