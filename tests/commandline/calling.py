"""What the tests of the command line share; each is called with the program and the project's folder."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

PROGRAM, ROOT = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
DATA = ROOT / "tests" / "data"
CURRENT = DATA / "projects" / "current"
EXPORTS = DATA / "exports"
DEFAULT = CURRENT / "default.vln"
VIEWS = {"top": "VTop", "front": "Front", "side": "Side", "htop": "HTop"}

# The stored aircraft; those of the scenes have their pictures beside them.
AIRCRAFT = {file.stem: file for folder in (CURRENT, DATA / "scene") for file in sorted(folder.glob("*.vln"))}
EXAMPLES = sorted((ROOT / "examples").glob("*.vln"))

# Nobody's screen, and no word of the user's on what the toolkit shall draw on.
UNSET = "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"
ENVIRONMENT = {name: value for name, value in os.environ.items() if name not in UNSET}
ENVIRONMENT["ASAN_OPTIONS"] = "detect_leaks=0:exitcode=99"


def call(*words, **options):
    """Calls the program; a crash is an error by itself."""
    done = subprocess.run([PROGRAM, *words], env=ENVIRONMENT | options.pop("env", {}), capture_output=True, text=True,
                          timeout=300, check=False, errors="surrogateescape", **options)
    if done.returncode not in (0, 1, 2) or "Sanitizer" in done.stderr or "runtime error" in done.stderr:
        raise AssertionError(f"crashed on {words}: {done.returncode}\n{done.stderr}")
    return done


class CommandLine(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velna-line-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def done(self, *words, **options):
        """A call that does all it is asked for, and says nothing."""
        done = call(*words, **options)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""), words)

    def export(self, name, *words, **options):
        """The export to a file of that name; returns the file."""
        self.done("--export", self.folder / name, *words, **options)
        return self.folder / name

    def fails(self, status, *words, **options):
        """A call that ends so, with one complaint, which is returned without the program's name."""
        done = call(*words, **options)
        self.assertEqual((done.returncode, done.stdout), (status, ""), done.stderr)
        self.assertTrue(done.stderr.startswith("velna: ") and done.stderr.endswith("\n"), done.stderr)
        self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
        return done.stderr[len("velna: ") : -1]

    def names(self, folder=None):
        return sorted(os.listdir(folder or self.folder))


def main():
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=1)
