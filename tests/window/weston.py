"""A Wayland desktop in memory: weston, on the screen in memory that sees its picture and has its mouse and keys."""

import pathlib
import re
import tempfile

from program import Program
from screen import PATIENCE, Screen, wait_for

# What weston leaves to a maximised window beside the frame that the window draws itself: left, top.
FRAME = 3, 30

SETTINGS = """[keyboard]
repeat-rate=0
[core]
idle-time=0
[shell]
panel-position=none
locking=false
animation=none
startup-animation=none
close-animation=none
"""


class Weston(Screen):
    """`native` programs know of no X server; the others get weston's own, and both."""

    def __init__(self, native):
        super().__init__()
        self.native = native
        self.shift = FRAME if native else (0, 0)

    def __enter__(self):
        super().__enter__()
        self.folder = pathlib.Path(self.keep(tempfile.TemporaryDirectory(prefix="weston-")).name)
        self.env["XDG_RUNTIME_DIR"] = str(self.folder)
        (self.folder / "weston.ini").write_text(SETTINGS)
        log = self.folder / "log"
        command = ["weston", "--backend=x11-backend.so", "--use-pixman", "--fullscreen", "--socket=wayland-velna",
                   f"--width={self.size[0]}", f"--height={self.size[1]}", f"--log={log}",
                   f"--config={self.folder / 'weston.ini'}"]
        self._start(command if self.native else command + ["--xwayland"])
        wait_for((self.folder / "wayland-velna").exists, "weston")
        self.desktop = {"WAYLAND_DISPLAY": "wayland-velna", "XDG_SESSION_TYPE": "wayland"}
        if not self.native:
            display = wait_for(lambda: re.search(r"xserver listening on display (:\d+)", log.read_text()), "XWayland")
            self.desktop["DISPLAY"] = display[1]
        return self

    def move(self, x, y):
        super().move(x + self.shift[0], y + self.shift[1])

    def click(self, x, y, **options):
        inside = max(y, 5)  # the program is not told of the pointer over its frame
        wait_for(lambda: self.arrives(x, inside), f"the program to see the pointer at {x}, {inside}")
        super().click(x + self.shift[0], y + self.shift[1], **options)

    def arrives(self, x, y):
        """Weston adds up the pointer's steps, and may miss one: driven into a corner it knows the place again."""
        self.move(x, y)
        try:
            wait_for(lambda: self.seen()["at"] == [round(x), round(y)], "the pointer", 3)
        except AssertionError:
            self.tool("mousemove", self.size[0] - 1, self.size[1] - 1, "sleep", 0.5, "mousemove", 0, 0, "sleep", 0.5)
            return False
        return True

    def picture(self, file, place=None):
        if place:
            place = place[0] + self.shift[0], place[1] + self.shift[1], *place[2:]
        return super().picture(file, place)


class NativeProgram(Program):
    """Nobody knows where Wayland puts a dialog, so dialogs are answered by keys; nor where the window stands
    before it is maximised, so that is waited for."""

    def start(self, wait=True):
        super().start(wait)
        if wait:
            wait_for(lambda: (main := self.find("Main")) and main.width > self.screen.size[0] - 10, "the whole screen")
        return self

    def push(self, caption):
        text = self.button(caption).text
        self.screen.key(f"alt+{text[text.index('&') + 1].lower()}" if "&" in text else "Return")

    def quit(self):
        self.screen.tool("mousemove", self.screen.size[0] - 18, 15, "click", 1)
        self.push("Yes")
        self.process.wait(PATIENCE)
        return self.process.returncode


class OnWeston:
    """For a test of windows: its screen is weston, and its programs are started there."""

    native = True
    kind = NativeProgram

    @classmethod
    def new_screen(cls):
        return Weston(cls.native)

    def new_program(self, **options):
        program = super().new_program(**options)
        program.env.pop("DISPLAY")
        program.env.update(self.screen.desktop)
        return program
