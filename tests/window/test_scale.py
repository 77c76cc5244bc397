"""Screens of more dots to the inch: the whole window larger, by 1.25, 1.5 and 2, and two screens side by side that differ."""

import math
import subprocess

import base
import views
from pictures import SHARE, difference
from screen import HEIGHT, PATIENCE, WIDTH, Screen, wait_for


class ScaledScreen(Screen):
    """A screen on which the program takes so many dots for its pixel. Places are told in the program's pixels."""

    def __init__(self, factor):
        super().__init__((round(WIDTH * factor), round(HEIGHT * factor)))
        self.factor = factor
        self.env["QT_SCALE_FACTOR"] = str(factor)

    def tool(self, *words):
        words = list(words)
        for at, word in enumerate(words):
            if word == "mousemove":
                words[at + 1 : at + 3] = [round(place * self.factor) for place in words[at + 1 : at + 3]]
        return super().tool(*words)

    def picture(self, file, place=None):
        """In the program's pixels too: what it looks like from farther away."""
        super().picture(file, place and [round(length * self.factor) for length in place])
        size = place[2:] if place else (WIDTH, HEIGHT)
        subprocess.run(["mogrify", "-strip", "-resize", "{}x{}!".format(*size), str(file)], check=True)
        return file


class Scaled:
    """What holds at each scale."""

    factor = 1

    @classmethod
    def new_screen(cls):
        return ScaledScreen(cls.factor)

    def test_the_window_is_as_sharp_and_as_whole_as_unscaled(self):
        wait_for(lambda: self.program.text("SpanText") == "1400", "the default aircraft")
        self.looks(f"scale-{self.factor}")

    def test_nothing_overlaps_and_nothing_is_cut_off(self):
        parts = [self.program.get(name) for name in ("Bar", "Parameters", "DrawArea")] + [self.program.picture()]
        for part in parts:
            self.assertGreaterEqual(min(part.left, part.top), 0)
            self.assertLessEqual(part.left + part.width, WIDTH)
            self.assertLessEqual(part.top + part.height, HEIGHT)

    def test_a_drag_takes_along_what_lies_under_the_pointer(self):
        area = self.program.get("DrawArea")
        view, handles = views.vtop_handles(area.width, area.height)
        handle = next(handle for _, handle in handles if handle.name == "tip with Shift")
        start = handle.place
        self.program.drag(start, (start[0] + handle.way[0], start[1] + handle.way[1]), keys=["shift"])
        expected = math.floor(1400 + 2 * handle.way[0] / view.zoom)
        # A place between two dots of the screen is a dot's part of a pixel away.
        wait_for(lambda: abs(self.program.number("SpanText") - expected) <= 2 / view.zoom, f"a span of {expected}")


class ByAQuarter(Scaled, base.WindowTest):
    factor = 1.25


class ByHalf(Scaled, base.WindowTest):
    factor = 1.5


class Doubled(Scaled, base.WindowTest):
    factor = 2


class TwoScreens(base.WindowTest):
    """Side by side, of which the right one has twice the dots."""

    starts = False

    @classmethod
    def new_screen(cls):
        screen = Screen((2 * WIDTH, HEIGHT))
        screen.env["QT_SCREEN_SCALE_FACTORS"] = "left=1;right=2"
        return screen

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for name, output, left in (("left", "screen", 0), ("right", "none", WIDTH)):
            place = f"{WIDTH}/340x{HEIGHT}/270+{left}+0"
            subprocess.run(["xrandr", "--setmonitor", name, place, output], env=cls.screen.env, check=True,
                           stdout=subprocess.DEVNULL)

    def on(self, left, name):
        """The picture of one of the screens."""
        return self.screen.picture(self.taken / f"{name}.png", (left, 0, WIDTH, HEIGHT))

    def test_a_window_that_goes_to_another_screen_looks_as_if_it_had_started_there(self):
        program = self.new_program()
        program.env["QT_SCREEN_SCALE_FACTORS"] = "left=2;right=2"
        program.start()
        self.still("started", program.get("Main"))
        started = self.on(0, "started-there")
        self.screen.key("alt+F4")
        program.dialog()
        self.screen.key("alt+y")  # the pointer's places are not those of this screen
        self.assertEqual(program.process.wait(PATIENCE), 0)

        program = self.new_program().start()
        self.screen.key("super+Right")
        wait_for(lambda: program.get("DrawArea").left >= WIDTH, "the window to be on the right screen")
        wait_for(lambda: difference(self.on(WIDTH, "moved-there"), started) <= SHARE, "the same picture")


if __name__ == "__main__":
    base.main()
