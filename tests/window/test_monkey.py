"""A hand without a plan on the real window: it never crashes, never hangs, and what it saves can be read.

VELNA_MONKEY_EVENTS=N sets how many events it makes (5,000 if not told), VELNA_MONKEY_SEED=N repeats a run.
"""

import os
import random
import shutil
import signal
import socket
import subprocess
import sys
import time
import unittest

import base
from monkey import Monkey
from screen import PATIENCE
from watchdog import Hang, Watchdog

EVENTS = int(os.environ.get("VELNA_MONKEY_EVENTS", 5000))
EXAMPLES = base.HERE.parent.parent / "examples"
LAST = 40  # gestures that are told where something went wrong


class Run:
    """A program, started again whenever the hand has ended it, in a folder that holds what may be opened."""

    def __init__(self, screen, program, seed):
        self.screen, self.program, self.seed = screen, program, seed
        self.monkey, self.done, self.starts, self.gestures, self.windows = Monkey(seed), 0, 0, [], set()
        program.env["ASAN_OPTIONS"] += ":handle_abort=1"
        self._fill()

    def _fill(self):
        noise = random.Random(1)
        for file in [*EXAMPLES.glob("*.vln"), *EXAMPLES.glob("*.bmp")]:
            shutil.copy(file, self.program.folder)
        whole = (EXAMPLES / "trainer.vln").read_bytes()
        (self.program.folder / "cut.vln").write_bytes(whole[:len(whole) // 2])
        (self.program.folder / "eppler.dat").write_text("title\n1 0\n0.5 0.1\n0 0\n0.5 -0.05\n1 0\n")
        for name in ("noise.vln", "noise.png", "noise.dat"):
            (self.program.folder / name).write_bytes(noise.randbytes(2000))

    def begin(self):
        self.program.socket.unlink(missing_ok=True)
        self.program.start()
        # Its windows follow the hand's own gestures: nothing waits for what an event has done.
        self.screen.seen = None
        self.starts += 1
        self.watchdog = Watchdog(self.program.process.pid, self.program.answer)

    def act(self):
        """One gesture more, on what is shown now."""
        told = self.watchdog.answer()
        if told is None:
            self._ended()
            return
        controls = self.program.snapshot(told)
        self.windows.update(control.window for control in controls if control.isWindow)
        words, events = self.monkey.gesture(controls)
        self.gestures.append(words)
        try:
            self.screen.tool(*words)
        except RuntimeError:  # the window that was to be sized has gone
            pass
        self.done += events

    def _ended(self):
        code = self.program.process.wait(PATIENCE)
        if code:
            raise AssertionError(f"ended with {code}:\n{self.program.errors()}")
        self.begin()

    def leave(self):
        """Dialogs and menus first, then the window."""
        for _ in range(30):
            told = self.watchdog.answer()
            if told is None:
                break
            asks = any(c.modal and c.told.get("text") == "&Yes" for c in self.program.snapshot(told))
            self.screen.key(*(["alt+y"] if asks else ["Escape", "alt+F4"]))
            time.sleep(0.2)
        code = self.program.process.wait(PATIENCE)
        if code:
            raise AssertionError(f"ended with {code} at the quit:\n{self.program.errors()}")

    def log(self):
        return "\n".join(" ".join(words) for words in self.gestures[-LAST:])


class MonkeyTest(base.WindowTest):
    starts = False

    def test_it_does_what_comes_and_the_program_stays(self):
        seed = int(os.environ.get("VELNA_MONKEY_SEED", random.randrange(1 << 31)))
        program = self.new_program()
        run = Run(self.screen, program, seed)
        run.begin()
        try:
            while run.done < EVENTS:
                run.act()
            run.leave()
        except Exception as failure:
            if isinstance(failure, Hang):
                program.process.send_signal(signal.SIGABRT)
                program.process.wait(PATIENCE)
            self.fail(f"seed {seed}, event {run.done}: {failure}\n{program.errors()}\nlast gestures:\n{run.log()}")
        print(f"seed {seed}: {run.done} events, {len(run.gestures)} gestures, {run.starts} starts, windows: "
              f"{', '.join(sorted(run.windows))}", file=sys.stderr)
        self.every_saved_project_can_be_read(program)

    def every_saved_project_can_be_read(self, program):
        for file in program.folder.glob("*"):
            bad = file.name in ("cut.vln", "noise.vln")
            if bad or not file.is_file() or not file.read_bytes().startswith(b"# VELNA File"):
                continue
            done = subprocess.run([base.BINARY, "--info", file], env=program.env, capture_output=True, text=True, check=False)
            self.assertEqual((done.returncode, done.stderr), (0, ""), file)


class WatchdogTest(unittest.TestCase):
    """It tells a program that sleeps from one that works, and one that works on and on from one that ends."""

    def program(self, code):
        process = subprocess.Popen([sys.executable, "-c", code], stdout=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    @staticmethod
    def silent(seconds):
        time.sleep(seconds)

    def test_one_that_sleeps_hangs(self):
        process = self.program("import time; time.sleep(600)")
        time.sleep(0.5)
        with self.assertRaisesRegex(Hang, "asleep"):
            Watchdog(process.pid, self.silent, quiet=0.3).answer()

    def test_one_that_works_without_an_end_hangs_later(self):
        process = self.program("while True: pass")
        with self.assertRaisesRegex(Hang, "at work"):
            Watchdog(process.pid, self.silent, quiet=0.5, longest=2).answer()

    def test_one_that_works_for_a_while_is_waited_for(self):
        process = self.program("while True: pass")
        answers = iter((None, None, {"controls": []}))
        watchdog = Watchdog(process.pid, lambda seconds: time.sleep(seconds) or next(answers), quiet=0.5)
        self.assertEqual(watchdog.answer(), {"controls": []})

    def test_one_that_has_ended_is_none(self):
        process = self.program("pass")
        process.wait()
        self.assertIsNone(Watchdog(process.pid, self.silent, quiet=0.1).answer())


class MonkeySelf(unittest.TestCase):
    def test_the_same_seed_makes_the_same_gestures(self):
        one, other, third = Monkey(7), Monkey(7), Monkey(8)
        told = [[m.gesture([]) for _ in range(5)] + [m._key(None) for _ in range(30)] for m in (one, other, third)]
        self.assertEqual(told[0], told[1])
        self.assertNotEqual(told[0], told[2])


if __name__ == "__main__":
    base.main()
