#!/usr/bin/env python3
"""Time from the start to the first complete window, and resident memory, of the program beside empty
windows with as many child widgets, with and without an OpenGL picture. All in one run, by turns.

Use, on a screen (or in a virtual one): startup.py VELNA EMPTY_WINDOW [ROUNDS]
"""
import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time


def resident(pid):
    """Resident memory in MB."""
    with open(f"/proc/{pid}/status") as status:
        return int(re.search(r"VmRSS:\s+(\d+)", status.read()).group(1)) / 1024


def start(command, title):
    """Seconds until the window is on screen, and the memory two seconds later."""
    begin = time.monotonic()
    with subprocess.Popen(command, stderr=subprocess.DEVNULL) as program:
        try:
            while True:
                found = subprocess.run(
                    ["xdotool", "search", "--onlyvisible", "--pid", str(program.pid), "--name", title],
                    capture_output=True, check=False)
                if found.stdout:
                    break
                if time.monotonic() - begin > 30:
                    raise RuntimeError(f"{command[0]}: no window")
            seconds = time.monotonic() - begin
            time.sleep(2)
            return seconds, resident(program.pid)
        finally:
            program.kill()


def main():
    velna, empty = sys.argv[1:3]
    rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 5
    with tempfile.TemporaryDirectory() as folder:
        # A copy with its own settings, so that no demonstration runs and nothing is written elsewhere.
        program = shutil.copy(velna, folder)
        with open(os.path.join(folder, "prefs.txt"), "w", newline="") as settings:
            settings.write('"Done"\r\n#FALSE#\r\n#TRUE#\r\n')
        rows = {
            "velna": ([program], "^Velna V"),
            "empty window": ([empty], "^Empty"),
            "empty window with OpenGL": ([empty, "gl"], "^Empty"),
        }
        seen = {name: [] for name in rows}
        for _ in range(rounds):
            for name, (command, title) in rows.items():
                seen[name].append(start(command, title))
    middle = {name: [statistics.median(column) for column in zip(*values)]
              for name, values in seen.items()}
    for name, (seconds, memory) in middle.items():
        print(f"{name:26} {seconds * 1000:6.0f} ms {memory:6.0f} MB   velna is "
              f"{middle['velna'][0] / seconds:.2f} x, {middle['velna'][1] / memory:.2f} x")


if __name__ == "__main__":
    main()
