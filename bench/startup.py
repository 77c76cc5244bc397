#!/usr/bin/env python3
"""Time from the start to the first complete window, and resident memory, of the program beside empty
windows with as many child widgets, with and without an OpenGL picture. All in one run, by turns.
The program is measured as it is, and with a picture that stays dark: a software driver keeps more
memory for drawing than the whole window.

Use, on a screen (or in a virtual one): startup.py BUILD_FOLDER [ROUNDS]
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


def start(command, title, preload):
    """Seconds until the window is on screen, and the memory two seconds later."""
    environment = dict(os.environ, **({"LD_PRELOAD": preload} if preload else {}))
    begin = time.monotonic()
    with subprocess.Popen(command, stderr=subprocess.DEVNULL, env=environment) as program:
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
    build = os.path.abspath(sys.argv[1])
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    empty = f"{build}/bench/velna_empty_window"
    dark = f"{build}/bench/libvelna_dark_picture.so"
    with tempfile.TemporaryDirectory() as folder:
        # A copy with its own settings, so that no demonstration runs and nothing is written elsewhere.
        program = shutil.copy(f"{build}/src/shell/qt/velna", folder)
        with open(os.path.join(folder, "prefs.txt"), "w", newline="") as settings:
            settings.write('"Done"\r\n#FALSE#\r\n#TRUE#\r\n')
        rows = {
            "velna": ([program], "^Velna V", None),
            "velna, dark picture": ([program], "^Velna V", dark),
            "empty window": ([empty], "^Empty", None),
            "empty window with OpenGL": ([empty, "gl"], "^Empty", None),
            "one lit OpenGL triangle": ([empty, "lit"], "^Empty", None),
        }
        seen = {name: [] for name in rows}
        for _ in range(rounds):
            for name, row in rows.items():
                seen[name].append(start(*row))
    middle = {name: [statistics.median(column) for column in zip(*values)]
              for name, values in seen.items()}
    for name, (seconds, memory) in middle.items():
        ratios = "".join(f"   {own}: {middle[own][0] / seconds:.2f} x, {middle[own][1] / memory:.2f} x"
                         for own in ("velna", "velna, dark picture"))
        print(f"{name:26} {seconds * 1000:6.0f} ms {memory:6.0f} MB{ratios}")


if __name__ == "__main__":
    main()
