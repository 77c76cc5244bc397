"""The program under test: its own folder, its window's controls by name, and gestures on them."""

import json
import os
import pathlib
import shutil
import socket
import subprocess
import tempfile

from screen import PATIENCE, wait_for

# A first record other than "DoIt" starts without the demonstration.
QUIET_PREFS = '"Done"\r\n#FALSE#\r\n#TRUE#\r\n'


class Control:
    """What one widget shows, and where it is: a snapshot."""

    def __init__(self, told):
        self.told = told
        self.name = told["name"]
        self.left, self.top, self.width, self.height = told["place"]

    def __getattr__(self, field):
        try:
            return self.told[field]
        except KeyError:
            raise AttributeError(f"{self.name} has no {field}: {self.told}") from None

    @property
    def handle(self):
        """Where a click works it: a box or a round button is as small as its sign, however wide its widget."""
        if self.kind in ("QCheckBox", "QRadioButton"):
            return self.left + 9, self.top + self.height // 2
        return self.middle

    @property
    def middle(self):
        return self.left + self.width // 2, self.top + self.height // 2

    def at(self, x, y):
        """A place inside, told from its corner."""
        return self.left + x, self.top + y


class Stick:
    """A joystick that lives in the program; it stands upright until it is moved."""

    def __init__(self, pipe):
        self.pipe = pipe
        os.mkfifo(pipe)

    def move(self, x=0, y=0, buttons=0):
        """Both axes from -32768 to 32767, and the mask of the buttons that are down."""
        self._tell(f"{x} {y} {buttons}\n")

    def pull_out(self):
        self._tell("out\n")

    def _tell(self, line):
        self.pipe.write_text(line)


class Program:
    def __init__(self, screen, binary, probe_folder, prefs=QUIET_PREFS, below="."):
        """Installed in a folder of its own, or `below` it."""
        self.screen = screen
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velna-"))
        self.installed = self.folder / below
        self.installed.mkdir(parents=True, exist_ok=True)
        self.binary = self.installed / "velna"
        self.command = [self.binary]
        self.log = self.folder / "stderr.txt"
        self.socket = self.folder / "probe"
        self._install(pathlib.Path(binary), prefs)
        self.env = dict(screen.env, HOME=str(self.folder), XDG_CONFIG_HOME=str(self.folder / "config"),
                        XDG_STATE_HOME=str(self.folder / "state"),
                        ASAN_OPTIONS="detect_leaks=0:exitcode=99", UBSAN_OPTIONS="print_stacktrace=1",
                        QT_PLUGIN_PATH=str(probe_folder),
                        QT_QPA_GENERIC_PLUGINS=f"velnaprobe:{self.socket}")
        self.process = None

    def plug_in_stick(self):
        """A virtual joystick, there from the next start on."""
        stick = Stick(self.folder / "stick")
        self._plug_in("velnastick", stick.pipe)
        return stick

    def can_lose_picture(self):
        """Gives a function: when it is called, the picture's native window goes, and comes back empty."""
        sign = self.folder / "loss"
        self._plug_in("velnaloss", sign)
        return sign.touch

    def _plug_in(self, plugin, told):
        self.env["QT_QPA_GENERIC_PLUGINS"] += f",{plugin}:{told}"

    def _install(self, binary, prefs):
        try:
            os.link(binary, self.binary)
        except OSError:
            shutil.copy2(binary, self.binary)
        for beside in ("Velna.HLP",):
            if (binary.parent / beside).exists():
                shutil.copy2(binary.parent / beside, self.installed)
        if prefs is not None:
            (self.installed / "prefs.txt").write_text(prefs, newline="")

    def start(self, wait=True, words=()):
        """With these words on its command line, in its own folder."""
        with open(self.log, "ab") as log:
            self.process = subprocess.Popen([*self.command, *words], env=self.env, cwd=self.folder, stdin=subprocess.DEVNULL,
                                            stdout=log, stderr=log)
        self.screen.seen = self.seen
        if wait:
            wait_for(lambda: self.running_or_raise() and self.ready("DrawArea"), "the main window")
        return self

    def running_or_raise(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the program ended with {self.process.returncode}:\n{self.errors()}")
        return True

    def errors(self):
        return self.log.read_text(errors="replace")

    def die(self, sign):
        """The program ends in the middle of its work, by this signal; it can be started again."""
        self.process.send_signal(sign)
        self.process.wait(PATIENCE)
        self.process = None
        self.socket.unlink(missing_ok=True)

    def end(self):
        """Ends the program from outside, and drops its folder."""
        if self.process and self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(PATIENCE)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        if self.screen.seen == self.seen:
            self.screen.seen = None
        shutil.rmtree(self.folder, ignore_errors=True)

    # ---- looking

    def controls(self):
        """Every visible control; none while the program does not answer."""
        return self.snapshot(self._ask())

    @staticmethod
    def snapshot(told):
        """The visible controls of an answer."""
        return [Control(control) for control in told.get("controls", [])]

    def answer(self, seconds):
        """All that it tells at once; empty when it has not answered in so many seconds."""
        return self._ask(seconds)

    def seen(self):
        """What of mouse and keyboard has reached the program; empty while it does not answer."""
        return self._ask().get("seen", {})

    def platform(self):
        """The toolkit's name for what the program draws on."""
        return wait_for(self._ask, "the program")["platform"]

    def _ask(self, seconds=PATIENCE):
        try:
            with socket.socket(socket.AF_UNIX) as link:
                link.settimeout(seconds)
                link.connect(str(self.socket))
                parts = []
                while part := link.recv(1 << 16):
                    parts.append(part)
            return json.loads(b"".join(parts) or b"{}")
        except (OSError, json.JSONDecodeError):
            return {}

    def find(self, name):
        for control in self.controls():
            if control.name == name:
                return control
        return None

    def ready(self, name):
        """The control when it can be worked: enabled, in the active window."""
        control = self.find(name)
        return control if control and control.enabled and control.active else None

    def get(self, name):
        return wait_for(lambda: self.find(name), f'the control "{name}"')

    def text(self, name):
        return self.get(name).text

    def value(self, name):
        return self.get(name).value

    def number(self, name):
        return float(self.text(name))

    def of_kind(self, *kinds):
        return [control for control in self.controls() if control.kind in kinds]

    def dialog(self, title=None):
        """The modal window that is open, by its title."""
        def look():
            for control in self.controls():
                if control.isWindow and control.modal and (title is None or title in control.window):
                    return control
            return None

        return wait_for(look, f"a dialog {title or ''}")

    def no_dialog(self):
        wait_for(lambda: not any(c.isWindow and c.modal for c in self.controls()), "the dialog to close")

    def button(self, text):
        """A push button by its caption, whatever its mnemonic; of the newest window if there are several."""
        def look():
            found = [c for c in self.controls() if c.told.get("text", "").replace("&", "") == text
                     and "Button" in c.kind and c.active and c.enabled]
            return found[-1] if found else None

        return wait_for(look, f'the button "{text}"')

    def picture(self):
        """The picture in three dimensions; its toolbar key has the name."""
        return wait_for(lambda: (found := self.of_kind("QWindowContainer")) and found[0], "the picture")

    # ---- doing

    def click(self, name, button=1, keys=()):
        control = wait_for(lambda: self.ready(name), f'"{name}" to be enabled and in the active window')
        self.screen.click(*control.handle, button=button, keys=keys)
        return control

    def push(self, caption):
        self.screen.click(*self.button(caption).middle)

    def tab_bar(self):
        def look():
            return next((c for c in self.controls() if len(c.told.get("tabs", ())) == 5), None)

        return wait_for(look, "the panel's tabs")

    def click_tab(self, number, button=1):
        x, y, width, height = self.tab_bar().tabs[number]["place"]
        self.screen.click(x + width // 2, y + height // 2, button=button)

    def tab(self, number):
        """Opens a tab of the panel by a click on it."""
        self.click_tab(number)
        wait_for(lambda: self.tab_bar().value == number, f"tab {number}")

    def enter(self, name, text, commit="Return"):
        """Types a value into a field, as a person does: into it, all of it, the value, Enter."""
        self.click(name)
        self.screen.key("ctrl+a")
        self.screen.type(text)
        if commit:
            self.screen.key(commit)

    def drag(self, start, end, keys=(), button=1, area="DrawArea", steps=6):
        """A drag on the drawing area, both places in its own pixels."""
        surface = self.get(area)
        self.screen.drag(surface.at(*start), surface.at(*end), button=button, keys=keys, steps=steps)

    def popup(self, entry, at=(5, 5)):
        """A right press on the drawing area, and an entry of the menu, by its name."""
        surface = self.get("DrawArea")
        self.screen.click(*surface.at(*at), button=3)
        menu = wait_for(lambda: (m := self.of_kind("QMenu")) and m[-1], "the popup menu")
        for told in menu.entries:
            if told["name"] == entry:
                x, y, width, height = told["place"]
                self.screen.click(x + width // 2, y + height // 2)
                return
        raise AssertionError(f"no entry {entry} in {menu.entries}")

    def choose_file(self, name, kind=None):
        """Answers an open file dialog: the filter whose caption starts with `kind`, then the path."""
        self.dialog()
        if kind:
            combo = wait_for(lambda: self.find("fileTypeCombo"), "the filter box")
            self.screen.click(*combo.middle)
            wait_for(lambda: self._combo_row(kind), f"the filter {kind}")
            x, y, width, height = self._combo_row(kind)["place"]
            self.screen.click(x + width // 2, y + height // 2)
            wait_for(lambda: (c := self.find("fileTypeCombo")) and c.text.startswith(kind), "the filter")
        self.click("fileNameEdit")
        self.screen.key("ctrl+a")
        self.screen.type(str(name))
        wait_for(lambda: self.text("fileNameEdit") == str(name), "the typed name")
        self.screen.key("Return")

    def _combo_row(self, kind):
        for control in self.controls():
            for row in control.told.get("rows", []):
                if row["cells"] and row["cells"][0].startswith(kind):
                    return row
        return None

    def save(self, name, kind=None, settle=True):
        self.click("Save")
        self.choose_file(name, kind)
        if settle:
            self.no_dialog()
            wait_for(lambda: pathlib.Path(name).exists(), f"{name}")

    def open(self, name, kind=None):
        self.click("Open")
        self.choose_file(name, kind)

    def quit(self):
        """The window's close key, and Yes to the question."""
        self.screen.key("alt+F4")
        self.push("Yes")
        self.process.wait(PATIENCE)
        return self.process.returncode
