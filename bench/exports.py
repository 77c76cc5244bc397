#!/usr/bin/env python3
"""Time of `velna --export` of each example to each kind of file, beside the start of an empty program with the same
libraries and the reading and writing alone. All in one run, by turns.

Use: exports.py BUILD_FOLDER [ROUNDS]
"""

import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

KINDS = {"vln": [], "wrl": [], "dxf": [], "pdf": ["--plan", "side"], "png": [], "svg": []}
WITH_PICTURES = ("vln", "wrl")  # the kinds that copy the pictures of the parts beside the file
THUMBNAIL = ["--as", "png", "--view", "top", "--size", "256"]
EXAMPLES = sorted((pathlib.Path(__file__).resolve().parent.parent / "examples").glob("*.vln"))
BAR = 1.3
THUMBNAIL_BAR = 0.2  # seconds
ENVIRONMENT = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}


def run(command):
    """Seconds of a call."""
    begin = time.monotonic()
    subprocess.run(command, env=ENVIRONMENT, check=True)
    return time.monotonic() - begin


def bare(command):
    """Seconds of reading and writing, as the program tells them."""
    return float(subprocess.run(command, env=ENVIRONMENT, check=True, capture_output=True, text=True).stdout)


def has_pictures(example):
    """Whether its parts carry pictures: then the toolkit loads its libraries for every kind of picture."""
    return any(line.strip('"').lower().endswith(".bmp") for line in example.read_text().splitlines())


def measure(build, words, rounds, empty_words):
    """Medians of the call, of an empty start and of the work alone."""
    program, empty, alone = (f"{build}/{path}" for path in
                             ("src/shell/qt/velna", "bench/velna_empty_program", "bench/velna_bare_exports"))
    seen = [(run([program, *words]), run([empty, *empty_words]), bare([alone, *words])) for _ in range(rounds)]
    return [statistics.median(column) for column in zip(*seen)]


def main():
    build, rounds = os.path.abspath(sys.argv[1]), int(sys.argv[2]) if len(sys.argv) > 2 else 9
    calls = {kind: ["--export", f"out.{kind}", *words] for kind, words in KINDS.items()}
    calls["thumbnail"] = ["--export", "thumbnail.tmp", *THUMBNAIL]
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        for example in EXAMPLES:
            for name, words in calls.items():
                empty_words = ["pictures"] if name in WITH_PICTURES and has_pictures(example) else []
                whole, empty, work = measure(build, [*words, example], rounds, empty_words)
                ratio = whole / (empty + work)
                over = "  over" if ratio > BAR or (name == "thumbnail" and whole > THUMBNAIL_BAR) else ""
                print(f"{example.stem:14} {name:10} {whole * 1000:7.1f} ms, empty start {empty * 1000:6.1f}, work alone "
                      f"{work * 1000:6.1f}: {ratio:.2f} x (bar {BAR}){over}")


if __name__ == "__main__":
    main()
