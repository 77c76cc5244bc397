"""A hand without a plan: gestures on whatever the program shows, the same again for the same seed."""

import random

# Its own folder holds what it may open and replace; a dialog for files gets a name from here, and never more.
NAMES = ("glider.vln", "trainer.vln", "twin_hull.vln", "cut.vln", "noise.vln", "noise.png", "trainer_wing.bmp",
         "eppler.dat", "noise.dat", "new.vln", "new.wrl", "new.dxf", "new.pdf", "new.stl", "new.obj", "new", "", " ",
         "missing.vln", "x" * 60)
NUMBERS = ("0", "1", "-1", "2", "7", "12.5", "-0.25", "1000", "1e9", "-1e300", "1E308", "", "abc", "1,5", "0.0001", "32767",
           "99999999999", "%", "1 2", ".")
KEYS = ("Return", "Escape", "Tab", "space", "Up", "Down", "Left", "Right", "Home", "End", "Prior", "Next", "BackSpace",
        "Menu", "plus", "minus", *"abcdefghijklmnopqrstuvwxyz0123456789", *(f"F{n}" for n in range(1, 13)))
HELD = ("ctrl", "alt", "shift")
SURFACES = ("DrawArea", "DrawSectionArea", "Render")


class Monkey:
    """`gesture(controls)` gives the words for one call of xdotool, and how many events they make."""

    def __init__(self, seed):
        self.random = random.Random(seed)

    def gesture(self, controls):
        menus = [c for c in controls if c.kind == "QMenu"]
        if menus:
            return self._menu(menus[-1])
        modal = [c for c in controls if c.modal]
        if any(c.name == "fileNameEdit" for c in modal):
            return self._files(modal)
        reachable = modal or [c for c in controls if c.active] or controls
        if not reachable:
            return ["key", "Escape"], 2
        gestures = [self._click, self._click, self._drag, self._drag, self._wheel, self._key, self._type, self._resize]
        if modal:  # a dialog is left now and then, or the hand would stay in it for good
            gestures += [self._leave, self._click]
        return self.random.choice(gestures)(reachable)

    def _menu(self, menu):
        entries = [entry["place"] for entry in menu.entries if entry["enabled"]]
        if not entries or self.random.random() < 0.3:
            return ["key", "Escape"], 2
        x, y, width, height = self.random.choice(entries)
        return self._at((x + width // 2, y + height // 2)) + ["click", "1"], 3

    def _files(self, controls):
        if self.random.random() < 0.4:
            return ["key", "Escape"], 2
        kinds = [c for c in controls if c.name == "fileTypeCombo"]
        if kinds and self.random.random() < 0.4:
            # The list is worked by keys: its rows would hide the name.
            downs = ["Down"] * self.random.randrange(12)
            return ["key", "alt+t", *(word for down in downs for word in ("key", down))], 2 + 2 * len(downs)
        name = self.random.choice(NAMES)
        edit = next(c for c in controls if c.name == "fileNameEdit")
        return self._at(edit.middle) + ["click", "1", "key", "ctrl+a", "key", "BackSpace",
                                        *(["type", name] if name else []), "key", "Return"], 10 + 2 * len(name)

    def _place(self, control):
        return (control.left + self.random.randrange(max(1, control.width)),
                control.top + self.random.randrange(max(1, control.height)))

    def _at(self, place):
        return ["mousemove", str(place[0]), str(place[1])]

    def _click(self, controls):
        control = self.random.choice([c for c in controls if c.enabled] or controls)
        place = control.handle if self.random.random() < 0.6 else self._place(control)
        button = self.random.choice("1111123")
        times = self.random.choice((1, 1, 1, 2, 3))
        return self._at(place) + ["click", "--repeat", str(times), "--delay", "5", button], 1 + 2 * times

    def _drag(self, controls):
        surfaces = [c for c in controls if c.name in SURFACES or "Slider" in c.kind] or controls
        surface = self.random.choice(surfaces)
        button = self.random.choice("11123")
        held = [key for key in HELD if self.random.random() < 0.15]
        moves = [word for _ in range(self.random.randrange(1, 6))
                 for word in (*self._at(self._place(surface)), "sleep", "0.01")]
        words = self._at(self._place(surface))
        words += [word for key in held for word in ("keydown", key)] + ["mousedown", button, *moves]
        # A key in the middle of it, as a hand that slips does.
        if self.random.random() < 0.1:
            words += ["key", self.random.choice(KEYS)]
        words += ["mouseup", button] + [word for key in held for word in ("keyup", key)]
        return words, 3 + len(moves) // 5 + 2 * len(held)

    def _wheel(self, controls):
        times = self.random.randrange(1, 5)
        return self._at(self._place(self.random.choice(controls))) + [
            "click", "--repeat", str(times), "--delay", "5", self.random.choice("4567")], 1 + 2 * times

    def _key(self, _):
        held = [key for key in HELD if self.random.random() < 0.15]
        return ["key", "+".join((*held, self.random.choice(KEYS)))], 2 + 2 * len(held)

    def _type(self, controls):
        fields = [c for c in controls if c.kind in ("QLineEdit", "FieldBox", "QSpinBox") or c.told.get("focus")]
        number = self.random.choice(NUMBERS)
        words = self._at(self.random.choice(fields or controls).middle) + ["click", "1", "key", "ctrl+a"]
        return words + (["type", "--delay", "5", number] if number else ["key", "BackSpace"]) + [
            "key", self.random.choice(("Return", "Tab", "Escape"))], 8 + 2 * len(number)

    def _resize(self, _):
        width, height = self.random.randrange(300, 1280), self.random.randrange(200, 1024)
        return ["getactivewindow", "windowsize", str(width), str(height)], 1

    def _leave(self, _):
        return ["key", self.random.choice(("Escape", "Return"))], 2
