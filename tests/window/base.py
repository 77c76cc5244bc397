"""What every window test stands on: a screen for the file, a fresh program for each test, and pictures kept."""

import pathlib
import sys
import unittest

from pictures import check_like
from program import Program
from screen import HEIGHT, WIDTH, Screen, wait_for

HERE = pathlib.Path(__file__).resolve().parent
STORED = HERE / "pictures"
BINARY = None
BUILD = None
LATE = 20  # seconds after which a picture that differs will not become like the stored one any more


class WindowTest(unittest.TestCase):
    """A test has `self.screen`, and `self.program` unless the class sets `starts` to False; the screen
    has the class's `size`, and is made by its `new_screen`."""

    starts = True
    size = WIDTH, HEIGHT
    kind = Program

    @classmethod
    def setUpClass(cls):
        cls.screen = cls.enterClassContext(cls.new_screen())
        cls.taken = BUILD / "taken"
        cls.taken.mkdir(parents=True, exist_ok=True)

    @classmethod
    def new_screen(cls):
        return Screen(cls.size)

    def setUp(self):
        self.program = self.new_program() if self.starts else None
        if self.program:
            self.program.start()

    def new_program(self, **options):
        program = self.kind(self.screen, BINARY, BUILD / "plugins", **options)
        self.addCleanup(self._finish, program)
        return program

    def _finish(self, program):
        errors = program.errors() if program.log.exists() else ""
        ended = program.process.poll() if program.process else None
        if program.process and ended is None:
            self.take(f"{self.id().split('.')[-1]}-last")
        program.end()
        self.assertNotIn("Sanitizer", errors)
        self.assertNotIn("runtime error", errors)
        self.assertIn(ended, (None, 0), errors)

    def take(self, name, control=None):
        """A picture of the screen, or of one control, kept in the build folder."""
        place = control.place if control else None
        return self.screen.picture(self.taken / f"{name}.png", place)

    def still(self, name, control):
        """A picture of a control that does not change any more: what was drawn late is in it."""
        def same():
            before = self.take(name, control).read_bytes()
            return self.take(name, control).read_bytes() == before

        wait_for(same, f"{name} to stand still")
        return self.taken / f"{name}.png"

    def looks(self, name, control=None):
        """The screen, or one control, looks like the stored picture of that name."""
        def like():
            try:
                check_like(self.take(name, control), STORED / f"{name}.png")
            except AssertionError:
                return False
            return True

        try:
            wait_for(like, "", LATE)
        except AssertionError:
            check_like(self.take(name, control), STORED / f"{name}.png")


def main():
    """Called by each test file: program, build folder of these tests, then unittest's own words."""
    global BINARY, BUILD
    BINARY, BUILD = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    unittest.main(module="__main__", argv=[sys.argv[0]] + sys.argv[3:], verbosity=2)
