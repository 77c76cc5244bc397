"""A screen in memory with a window manager, and the hands that work on it."""

import contextlib
import os
import pathlib
import subprocess
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
WIDTH, HEIGHT = 1280, 1024
MOVE_PAUSE = 0.012  # a person's pointer is seen by the program at several places on its way
PATIENCE = 60  # seconds: other programs may have the processor, and a state that comes is never waited for longer


class Screen:
    """An X server of our own with software OpenGL and a window manager, openbox if not told; `with Screen() as
    screen:` ends both. The manager's input is the pipe `to_manager`."""

    def __init__(self, size=(WIDTH, HEIGHT), manager=("openbox", "--config-file", HERE / "openbox.xml")):
        self.size = size
        self.managed_by = manager
        self.to_manager = None
        self.kept = contextlib.ExitStack()
        self.heard = self.keep(tempfile.TemporaryFile("w+"))
        self.processes = []
        self.seen = None  # what has reached the program that is worked, from its start to its end
        self.env = dict(os.environ)
        for name in ("WAYLAND_DISPLAY", "XAUTHORITY", "QT_QPA_PLATFORM", "QT_SCALE_FACTOR"):
            self.env.pop(name, None)
        self.env.update(LIBGL_ALWAYS_SOFTWARE="1", LC_ALL="C.UTF-8", QT_STYLE_OVERRIDE="Fusion")

    def __enter__(self):
        read, write = os.pipe()
        command = ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{self.size[0]}x{self.size[1]}x24",
                   "+extension", "GLX", "+extension", "RANDR", "-nolisten", "tcp", "-noreset", "-r"]
        self._start(command, pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as told:
            number = told.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.env["DISPLAY"] = f":{number}"
        self.to_manager = self._start([str(word) for word in self.managed_by], stdin=subprocess.PIPE,
                                      stdout=self.heard, text=True).stdin
        wait_for(self._managed, "the window manager")
        return self

    def __exit__(self, *unused):
        for process in reversed(self.processes):
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
        self.to_manager.close()
        self.kept.close()

    def from_manager(self):
        """The lines that the window manager has written so far."""
        self.heard.seek(0)
        return self.heard.read().splitlines()

    def _start(self, command, **options):
        # The window manager keeps what it notes in a folder of its own.
        home = tempfile.gettempdir()
        env = dict(self.env, XDG_CACHE_HOME=home, XDG_CONFIG_HOME=home)
        options = dict(stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) | options
        self.processes.append(subprocess.Popen(command, env=env, **options))
        return self.processes[-1]

    def _managed(self):
        return "window id" in self.asked("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")

    def asked(self, *command):
        """What a command answers."""
        return subprocess.run(command, env=self.env, stdin=subprocess.DEVNULL, capture_output=True, text=True).stdout

    def keep(self, open_one):
        """Something that is given up with the screen."""
        return self.kept.enter_context(open_one) and open_one

    def tool(self, *words):
        """One call of xdotool."""
        told = subprocess.run(["xdotool", *map(str, words)], env=self.env, capture_output=True, text=True)
        if told.returncode:
            raise RuntimeError(f"xdotool {words}: {told.stderr}")
        return told.stdout

    def move(self, x, y):
        self.tool("mousemove", round(x), round(y))

    def click(self, x, y, button=1, keys=(), times=1):
        self.tool("mousemove", round(x), round(y), "sleep", MOVE_PAUSE)
        with self.held(keys):
            for _ in range(times):
                self.tool("click", button)

    def press(self, x, y, button=1):
        """The pointer comes from beside, and the program sees it hover first."""
        self.hover(x, y)
        self.tool("mousedown", button)
        self.until_seen("the press", lambda seen: seen["buttons"])

    def hover(self, x, y):
        x, y = round(x), round(y)
        self.tool("mousemove", x - 1, y + 1, "sleep", MOVE_PAUSE, "mousemove", x, y)
        self.until_seen_at(x, y)

    def release(self, button=1):
        self.tool("mouseup", button)
        self.until_seen("the release", lambda seen: not seen["buttons"])

    def until_seen(self, what, test):
        """A program that is late passes over the pointer's stops: each step waits until it has noticed the last."""
        if self.seen:
            wait_for(lambda: (told := self.seen()) and test(told), f"the program to see {what}")

    def until_seen_at(self, x, y):
        self.until_seen(f"the pointer at {x}, {y}", lambda seen: seen["at"] == [round(x), round(y)])

    def drag_to(self, start, end, steps=6):
        words = []
        for step in range(1, steps + 1):
            x = start[0] + (end[0] - start[0]) * step / steps
            y = start[1] + (end[1] - start[1]) * step / steps
            words += ["mousemove", round(x), round(y), "sleep", MOVE_PAUSE]
        self.tool(*words)
        self.until_seen_at(*end)

    def drag(self, start, end, button=1, keys=(), steps=6):
        """Press at `start`, move to `end`, release; `keys` are held from before the press to after the release."""
        with self.held(keys):
            self.press(*start, button=button)
            self.drag_to(start, end, steps)
            self.release(button)

    def held(self, keys):
        return Held(self, keys)

    def key(self, *names):
        for name in names:
            self.tool("key", name)

    def type(self, text):
        self.tool("type", "--delay", 8, "--", text)

    @contextlib.contextmanager
    def watch(self, *command):
        """Runs a command meanwhile; gives a function that returns the lines it has written so far."""
        with tempfile.NamedTemporaryFile() as lines:
            process = subprocess.Popen(command, env=self.env, stdin=subprocess.DEVNULL, stdout=lines)

            def written():
                return pathlib.Path(lines.name).read_text().splitlines() or [""]

            try:
                wait_for(lambda: written() != [""], f"the first line of {command[0]}")
                yield written
            finally:
                process.kill()
                process.wait()

    def picture(self, file, place=None):
        """Writes the screen, or the part at (x, y, width, height), as PNG."""
        command = ["import", "-silent", "-window", "root"]
        if place:
            x, y, width, height = place
            command += ["-crop", f"{width}x{height}+{x}+{y}", "+repage"]
        subprocess.run(command + [str(file)], env=self.env, check=True)
        return file


class Held:
    """Keys that are down inside a `with`."""

    def __init__(self, screen, keys):
        self.screen, self.keys = screen, keys

    def __enter__(self):
        for key in self.keys:
            self.screen.tool("keydown", key)
        self.wait("held", lambda down: set(self.keys) <= down)

    def __exit__(self, *unused):
        for key in self.keys:
            self.screen.tool("keyup", key)
        self.wait("let go", lambda down: not set(self.keys) & down)

    def wait(self, what, test):
        if self.keys:
            self.screen.until_seen(f"{self.keys} {what}", lambda seen: test(set(seen["keys"])))


def wait_for(condition, what, seconds=PATIENCE):
    """The condition's first true answer; looks again and again, since a program answers when it can."""
    end = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"waited {seconds:g} s for {what}")
        time.sleep(0.03)
