#!/usr/bin/env python3
"""Time from the start to the first complete window, the work for it, and resident memory: the program beside
an empty main window with as many child widgets of each kind, an OpenGL picture of the same size and format
among them. All in one run, by turns, on a screen in memory.

A software driver keeps and works more than the window itself, on both sides: two rows more leave it away.

Use: startup.py BUILD_FOLDER [ROUNDS]
"""
import glob
import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "window"))
from screen import Screen

# A program, its reference, the bars of time and memory, and what holds up one that is over, by a profile.
BARS = [
    ("program", "empty window", 1.2, 1.1, "shaders that the driver compiles for the light of the picture, 32 % of the work"),
    ("program without driver", "empty window without driver", 1.5, 1.25,
     "pages faulted in, 45 % of the work, and icons and drawings painted by the toolkit, 13 %"),
]
# Seconds of work that are more than a timer's tick or a blinking cursor.
LAST_WORK = 0.002


def resident(pid):
    """Resident memory in MB."""
    with open(f"/proc/{pid}/status") as status:
        return int(re.search(r"VmRSS:\s+(\d+)", status.read()).group(1)) / 1024


def worked(pid):
    """Seconds of processor time of all threads."""
    total = 0
    for file in glob.glob(f"/proc/{pid}/task/*/schedstat"):
        try:
            with open(file) as status:
                total += int(status.read().split()[0])
        except OSError:
            pass  # the thread has just ended
    return total / 1e9


def start(command, environment):
    """Seconds until the window is painted, for then the program rests; seconds of work until then; MB.

    The screen cannot be asked when a window is complete, and a mapped window may still be empty.
    """
    begin = time.monotonic()
    with subprocess.Popen(command, stderr=subprocess.DEVNULL, env=environment) as program:
        try:
            rest, work = 0, 0
            while (now := time.monotonic() - begin) < 2:
                done = worked(program.pid)
                if done - work > LAST_WORK:
                    rest, work = now, done
                time.sleep(0.001)
            return rest, work, resident(program.pid)
        finally:
            program.kill()


def measure(build, rounds):
    """The medians (seconds, seconds of work, MB) of each program."""
    empty = f"{build}/bench/velna_empty_window"
    with tempfile.TemporaryDirectory() as folder, Screen() as screen:
        # A copy with its own settings, so that no demonstration runs and nothing is written elsewhere.
        program = shutil.copy(f"{build}/src/shell/qt/velna", folder)
        with open(os.path.join(folder, "prefs.txt"), "w", newline="") as settings:
            settings.write('"Done"\r\n#FALSE#\r\n#TRUE#\r\n')
        dark = dict(screen.env, QT_XCB_GL_INTEGRATION="none", LD_PRELOAD=f"{build}/bench/libvelna_dark_picture.so")
        rows = {
            "program": ([program], screen.env),
            "empty window": ([empty, "gl"], screen.env),
            "program without driver": ([program], dark),
            "empty window without driver": ([empty], screen.env),
        }
        seen = {name: [] for name in rows}
        for _ in range(rounds):
            for name, row in rows.items():
                seen[name].append(start(*row))
    return {name: [statistics.median(column) for column in zip(*values)] for name, values in seen.items()}


def main():
    middle = measure(os.path.abspath(sys.argv[1]), int(sys.argv[2]) if len(sys.argv) > 2 else 5)
    for name, (seconds, work, memory) in middle.items():
        print(f"{name:28} {seconds * 1000:6.0f} ms, {work * 1000:6.0f} ms of work {memory:6.0f} MB")
    for own, reference, time_bar, memory_bar, held_up in BARS:
        times, work, memory = (mine / theirs for mine, theirs in zip(middle[own], middle[reference]))
        over = f"; over: {held_up}" if times > time_bar or memory > memory_bar else ""
        print(f"{own} / {reference}: {times:.2f} x the time (bar {time_bar}), {work:.2f} x the work, "
              f"{memory:.2f} x the memory (bar {memory_bar}){over}")


if __name__ == "__main__":
    main()
