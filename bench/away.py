#!/usr/bin/env python3
"""How long the released window is away while a hand works at an aircraft of 400,000 points, and while it opens and
saves files of 10 MB and pictures as large as it takes: the longest time that it does not answer without the busy
pointer or a bar to tell why, beside the same on the default aircraft. 2 s are the bar.

Use: away.py BUILD_FOLDER [DEED...]
"""
import contextlib
import ctypes
import itertools
import os
import pathlib
import signal
import sys
import tempfile
import threading
import time

import large
from startup import worked

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "window"))
from program import Program
from screen import Screen, wait_for

BAR = 2.0
EYE = 0.02  # seconds between two looks at the pointer
BUSY = ("watch", "wait", "")


class CursorImage(ctypes.Structure):
    """XFixesCursorImage of X11/extensions/Xfixes.h."""
    _fields_ = [("place", ctypes.c_short * 2), ("form", ctypes.c_ushort * 4), ("serial", ctypes.c_ulong),
                ("pixels", ctypes.c_void_p), ("atom", ctypes.c_ulong), ("name", ctypes.c_char_p)]


class Pointer:
    """What the user sees of the pointer, whatever program shows it."""

    def __init__(self, display):
        self.x11, self.fixes = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXfixes.so.3")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.fixes.XFixesGetCursorImage.argtypes = [ctypes.c_void_p]
        self.fixes.XFixesGetCursorImage.restype = ctypes.POINTER(CursorImage)
        self.x11.XFree.argtypes = [ctypes.c_void_p]
        self.display = self.x11.XOpenDisplay(display.encode())

    def is_busy(self):
        image = self.fixes.XFixesGetCursorImage(self.display)
        name = (image.contents.name or b"").decode()
        self.x11.XFree(image)
        # A pointer that moves has a name for its start alone, and none for the pictures behind it.
        return name in BUSY


class Watch:
    """Asks the program again and again from `with` to its end; `away` is then the longest time without an answer and
    without a sign, `work` what of that the processor took, `sign` whether there ever was one."""

    def __init__(self, program, pointer):
        self.program, self.pointer = program, pointer
        self.away, self.work, self.sign, self.looks, self.ends = 0, 0, "", [], False
        self.threads = [threading.Thread(target=call) for call in (self._look, self._ask)]

    def __enter__(self):
        for thread in self.threads:
            thread.start()
        return self

    def __exit__(self, *unused):
        self.ends = True
        for thread in self.threads:
            thread.join()

    def _look(self):
        while not self.ends:
            self.looks.append((time.monotonic(), worked(self.program.process.pid), self.pointer.is_busy()))
            time.sleep(EYE)

    def _ask(self):
        bar = False
        while not self.ends:
            begin, work = time.monotonic(), worked(self.program.process.pid)
            told = self.program.answer(600)
            if not bar:
                self._silence(begin, work)
            bar = any(control["kind"] == "QProgressDialog" for control in told.get("controls", []))
            self.sign = "bar" if bar else self.sign
            time.sleep(EYE)

    def _silence(self, begin, work):
        """The parts between two looks at a busy pointer."""
        end = (time.monotonic(), worked(self.program.process.pid), True)
        for now, done, busy in [*(look for look in list(self.looks) if look[0] > begin), end]:
            if not busy:
                continue
            if now - begin > self.away:
                self.away, self.work = now - begin, done - work
            begin, work = now, done
            if now != end[0]:
                self.sign = self.sign or "pointer"


class Hand:
    """A person's, who waits until the program rests after each deed."""

    def __init__(self, screen, program, files):
        self.screen, self.program, self.files = screen, program, files

    def rest(self):
        still = 0
        while still < 4:
            work = worked(self.program.process.pid)
            time.sleep(0.1)
            asking = [c for c in self.program.controls() if c.isWindow and c.modal]
            if any(c.kind == "QMessageBox" for c in asking):
                self.screen.key("Return")
            still = 0 if asking or worked(self.program.process.pid) - work > 0.02 else still + 1

    def open(self, name, kind="Velna"):
        self.program.open(self.files / name, kind)

    def open_on_wing(self, name, kind):
        self.program.tab(1)
        self.open(name, kind)

    def save(self, name, kind):
        file = self.files / name
        file.unlink(missing_ok=True)
        self.program.save(file, kind, settle=False)
        if kind in ("STL", "3MF", "OBJ", "glTF"):
            self.program.dialog("Solids")
            self.program.click("SaveCommand")
        wait_for(file.exists, name, 600)

    def click(self, *names):
        for name in names:
            self.program.click(name)
            self.rest()

    def drag(self, view):
        """Of the first handle that lights up under the pointer."""
        self.click(view)
        area = self.program.get("DrawArea")
        for x, y in itertools.product(range(area.width // 2, area.width, 37), range(4, area.height, 4)):
            self.screen.move(*area.at(x, y))
            if self.program.get("DrawArea").cursor != area.cursor:
                self.screen.drag(area.at(x, y), area.at(x + 40, y + 20))
                return
        raise AssertionError(f"nothing to be dragged in {view}")

    def wheel(self):
        for button in (4, 5):
            self.screen.click(*self.program.get("DrawArea").at(300, 200), button=button, times=3)

    def type(self):
        self.program.tab(1)
        self.program.enter("SpanText", "1234")

    def turn(self):
        left, top = self.program.picture().middle
        self.screen.drag((left, top), (left + 60, top + 20))

    def stop(self):
        """From outside, for a second: what the watch must see."""
        self.program.process.send_signal(signal.SIGSTOP)
        time.sleep(1)
        self.program.process.send_signal(signal.SIGCONT)

    def look_at_figures(self):
        self.click("Figures")
        self.drag("VTop")
        self.click("Figures")


GESTURES = {
    "drag in VTop": lambda hand: hand.drag("VTop"),
    "drag in Front": lambda hand: hand.drag("Front"),
    "drag in Side": lambda hand: hand.drag("Side"),
    "HTop": lambda hand: hand.click("HTop"),
    "zoomed with the wheel": Hand.wheel,
    "number typed": Hand.type,
    "undone, made again": lambda hand: hand.click("Undo", "Redo"),
    "picture turned": Hand.turn,
    "drag beside the figures": Hand.look_at_figures,
    "saved": lambda hand: hand.save("out.vln", "Velna"),
    "saved as VRML": lambda hand: hand.save("out.wrl", "VRML"),
    "saved as DXF": lambda hand: hand.save("out.dxf", "DXF"),
    "saved as STL": lambda hand: hand.save("out.stl", "STL"),
    "saved as 3MF": lambda hand: hand.save("out.3mf", "3MF"),
    "saved as glTF": lambda hand: hand.save("out.glb", "glTF"),
}
FILES = {
    "airfoil of 10 MB": lambda hand: hand.open_on_wing("lens.dat", "Airfoil in any order"),
    "picture of 100 megapixels": lambda hand: hand.open_on_wing("stripes.png", "Texture"),
    "saved with that picture": lambda hand: hand.save("copy.vln", "Velna"),
    "saved as VRML with it": lambda hand: hand.save("copy.wrl", "VRML"),
    "10 MB of sections opened": lambda hand: hand.open("sections.vln"),
    "10 MB of sections saved": lambda hand: hand.save("out.vln", "Velna"),
}


@contextlib.contextmanager
def started(screen, build, files):
    """A hand at the program, which has settings of its own."""
    program = Program(screen, f"{build}/src/shell/qt/velna", f"{build}/tests/window/plugins")
    program.env.pop("ASAN_OPTIONS")
    program.start()
    screen.seen = None  # its answers are what is measured
    try:
        yield Hand(screen, program, files)
    finally:
        program.end()


def watched(hand, pointer, deed):
    """What there is to tell of one deed, up to where the program rests."""
    hand.rest()
    with Watch(hand.program, pointer) as watch:
        deed(hand)
        hand.rest()
    return watch


def row(name, watch, reference=""):
    """Prints what was seen, and `reference` beside it: seconds on the default aircraft."""
    print(f"{name:28} {watch.away:8.2f} {watch.work:8.2f} {reference:>8}  {watch.sign:8}"
          f"{'over' if watch.away > BAR else ''}", flush=True)


def main():
    build, wished = os.path.abspath(sys.argv[1]), sys.argv[2:]

    def chosen(deeds):
        return {name: deed for name, deed in deeds.items() if not wished or name in wished}

    with tempfile.TemporaryDirectory() as folder, Screen() as screen:
        files, pointer = pathlib.Path(folder), Pointer(screen.env["DISPLAY"])
        large.bodies(files / "points.vln", 20, 200, 100)
        large.bodies(files / "sections.vln", 10, 32767, 8)
        large.airfoil(files / "lens.dat", 400000)
        large.picture(files / "stripes.png", 10000)
        print(f"{'':28} {'away s':>8} {'of work':>8} {'default':>8}  sign")
        with started(screen, build, files) as hand:
            row("stopped for 1 s", watched(hand, pointer, Hand.stop))
            small = {name: watched(hand, pointer, deed) for name, deed in chosen(GESTURES).items()}
        with started(screen, build, files) as hand:
            row("400,000 points opened", watched(hand, pointer, lambda hand: hand.open("points.vln")))
            for name, deed in chosen(GESTURES).items():
                row(name, watched(hand, pointer, deed), f"{small[name].away:.2f}")
        with started(screen, build, files) as hand:
            for name, deed in chosen(FILES).items():
                row(name, watched(hand, pointer, deed))


if __name__ == "__main__":
    main()
