"""What every window test stands on: a screen for the file, a fresh program for each test, and pictures kept."""

import pathlib
import sys
import unittest

from pictures import check_like
from program import Program
from screen import HEIGHT, WIDTH, Screen

HERE = pathlib.Path(__file__).resolve().parent
STORED = HERE / "pictures"
BINARY = None
BUILD = None


class WindowTest(unittest.TestCase):
    """A test has `self.screen`, and `self.program` unless the class sets `starts` to False; the screen
    has the class's `size`."""

    starts = True
    size = WIDTH, HEIGHT

    @classmethod
    def setUpClass(cls):
        cls.screen = cls.enterClassContext(Screen(cls.size))
        cls.taken = BUILD / "taken"
        cls.taken.mkdir(parents=True, exist_ok=True)

    def setUp(self):
        self.program = self.new_program() if self.starts else None
        if self.program:
            self.program.start()

    def new_program(self, **options):
        program = Program(self.screen, BINARY, BUILD / "plugins", **options)
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

    def looks(self, name, control=None):
        """The screen, or one control, looks like the stored picture of that name."""
        check_like(self.take(name, control), STORED / f"{name}.png")


def main():
    """Called by each test file: program, build folder of these tests, then unittest's own words."""
    global BINARY, BUILD
    BINARY, BUILD = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    unittest.main(module="__main__", argv=[sys.argv[0]] + sys.argv[3:], verbosity=2)
