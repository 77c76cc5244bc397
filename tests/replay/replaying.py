"""What the tests of velna_replay share; each is called with the program and the folder of the stored files."""

import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM, DATA = Path(sys.argv[1]), Path(sys.argv[2])
VIEWS = DATA / "views/views.json"
SCENES = sorted(path for path in (DATA / "scene").glob("*.json") if path.name != "cases.json")


def run(*arguments, **variables):
    """Runs the program; a crash is an error by itself."""
    environment = {name: value for name, value in os.environ.items() if name != "CI"} | variables
    done = subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, timeout=120, env=environment)
    if done.returncode not in (0, 1, 2) or "Sanitizer" in done.stderr or "runtime error" in done.stderr:
        raise AssertionError(f"crashed on {arguments}: {done.returncode}\n{done.stderr}")
    return done


def main():
    unittest.main(argv=[sys.argv[0]], verbosity=1)


def same(a, b, tolerance=1e-9):
    if isinstance(a, list) and isinstance(b, list):
        return len(a) == len(b) and all(same(x, y, tolerance) for x, y in zip(a, b))
    if isinstance(a, bool) or isinstance(b, bool) or not isinstance(a, (int, float)) or not isinstance(b, (int, float)):
        return a == b
    return abs(a - b) <= tolerance * max(1, abs(a))


def read(path):
    return json.loads(Path(path).read_text())


class Replay(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="velna-replay-"))
        self.addCleanup(shutil.rmtree, self.folder)
        for file in (DATA / "scene").iterdir():
            if file.suffix != ".json":
                shutil.copy(file, self.folder)

    def put(self, content, name="file.json"):
        path = self.folder / name
        path.write_text(content if isinstance(content, str) else json.dumps(content))
        return path
