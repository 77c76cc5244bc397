"""The strip beside the logo, the wheel over the drawing, the picture's way back and tracing by two points."""

import re
import subprocess

import base
import views
from pictures import Picture, difference
from screen import wait_for

PICTURE = (400, 200)
MARK = 40, 80, 340, 80  # two points of the picture to trace, in its own pixels


class Strip(base.WindowTest):
    def setUp(self):
        super().setUp()
        self.area = self.program.get("DrawArea")
        self.view = views.vtop(self.area.width, self.area.height)

    def value(self):
        found = self.program.find("StripValue")
        return found.text if found else ""

    def place(self):
        """The pointer's place by the strip, as {axis: number}."""
        told = dict(re.findall(r"([xyz]) (-?[\d.]+)", self.program.text("StripPlace")))
        return {axis: float(number) for axis, number in told.items()}

    def hover(self, along, across):
        self.screen.hover(*self.area.at(*self.view.at(along, across)))

    def until_place(self, x, y, delta):
        def there():
            place = self.place()
            return place and abs(place["x"] - x) <= delta and abs(place["y"] - y) <= delta

        wait_for(there, f"the strip to tell x {x}, y {y}")

    def wheel(self, button, times=1):
        for _ in range(times):
            self.screen.tool("click", button)

    def settled(self, name, control):
        return Picture(self.still(name, control))

    def test_it_tells_the_place_and_what_a_drag_changes(self):
        pixel = 1 / self.view.zoom
        self.hover(300, 500)
        self.until_place(500, 300, pixel)
        self.assertEqual(self.value(), "")
        # The trailing corner of the tip.
        start = self.area.at(*self.view.at(700, 340))
        self.screen.press(*start)
        self.screen.drag_to(start, (start[0], start[1] + 30))
        wait_for(lambda: self.value().startswith("Tip chord "), "the dragged chord")
        chord, change = map(float, re.findall(r"[+-]?[\d.]+", self.value()))
        self.assertAlmostEqual(chord, 150 + 30 * pixel, delta=0.01)
        self.assertAlmostEqual(change, 30 * pixel, delta=0.01)
        self.take("strip-drag")
        self.screen.release()
        wait_for(lambda: self.value() == "", "the end of the drag")

    def test_a_field_tells_its_exact_number_and_the_visits_change(self):
        self.program.tab(1)
        self.program.enter("LengthEText", "150.37")
        wait_for(lambda: self.value() == "Tip chord 150.37 mm, +0.37", "the typed number")
        self.take("strip-field")
        self.screen.key("Tab")
        wait_for(lambda: not self.value().startswith("Tip chord"), "the next field")

    def test_it_covers_nothing(self):
        strip, logo = self.program.get("Strip"), self.program.get("Logo")
        self.assertGreaterEqual(strip.left, logo.left + logo.width)
        self.assertGreaterEqual(strip.top, self.area.top + self.area.height)
        self.assertLessEqual(strip.left + strip.width, self.screen.size[0])

    def test_the_wheel_zooms_about_the_pointer_and_sideways_pans(self):
        whole = self.settled("wheel-whole", self.area).data
        self.hover(300, 500)
        before = wait_for(self.place, "the place")
        self.wheel(4, 6)
        wait_for(lambda: self.settled("wheel-near", self.area).data != whole, "the larger drawing")
        self.until_place(before["x"], before["y"], 0.5 / self.view.zoom)
        self.take("wheel-near-screen")
        self.wheel(7, 2)
        wait_for(lambda: abs(self.place()["y"] - before["y"]) > 5, "the panned drawing")
        self.assertAlmostEqual(self.place()["x"], before["x"], delta=0.5 / self.view.zoom)
        self.wheel(6, 2)
        self.until_place(before["x"], before["y"], 0.5 / self.view.zoom)
        self.wheel(5, 30)
        self.screen.move(*self.area.at(6, 6))
        self.settled("wheel-far", self.area)
        self.program.click("VTop")
        self.screen.move(*self.area.at(6, 6))
        wait_for(lambda: self.settled("wheel-again", self.area).data == whole, "the fitted drawing")

    def test_a_drag_in_a_larger_drawing_moves_what_it_shows(self):
        self.hover(700, 265)
        self.wheel(4, 4)
        wait_for(lambda: self.program.find("StripPlace"), "the strip")
        start = self.area.at(*self.view.at(700, 265))
        self.screen.drag(start, (start[0], start[1] + 40))
        wait_for(lambda: self.program.number("PosEText") == int(10 + 20 / self.view.zoom), "half the way")

    def test_home_and_the_menu_bring_the_picture_back(self):
        pane = self.program.picture()
        start = self.still("home-start", pane)
        for way in ("key", "menu"):
            with self.subTest(way):
                self.screen.drag(pane.middle, (pane.middle[0] + 120, pane.middle[1] + 30))
                self.screen.click(*pane.middle, button=5, times=4)
                wait_for(lambda: difference(start, self.still("home-turned", pane)) > 0.02, "the turned picture")
                if way == "key":
                    self.screen.move(*self.area.at(6, 6))
                    self.screen.key("Home")
                else:
                    self.program.popup("StartView")
                wait_for(lambda: difference(start, self.still("home-back", pane)) == 0, "the picture of the start")

    def test_home_in_a_text_box_is_the_boxs_own(self):
        pane = self.program.picture()
        self.screen.drag(pane.middle, (pane.middle[0] + 120, pane.middle[1] + 30))
        turned = self.still("home-box", pane)
        self.program.tab(1)
        self.program.enter("LengthEText", "50", commit="Home")
        self.screen.type("1")
        wait_for(lambda: self.program.text("LengthEText") == "150", "the digit at the begin")
        self.screen.key("Escape")
        self.assertEqual(difference(turned, self.still("home-box", pane)), 0)

    def load_picture(self):
        file = self.program.folder / "plan.png"
        x1, y1, x2, y2 = MARK
        marks = [f"circle {x},{y} {x + 4},{y}" for x, y in ((x1, y1), (x2, y2))]
        subprocess.run(["convert", "-size", f"{PICTURE[0]}x{PICTURE[1]}", "xc:#e8e0c8", "-fill", "#0060ff",
                        "-draw", marks[0], "-draw", marks[1], str(file)], check=True)
        self.screen.move(*self.area.at(6, 6))
        self.program.popup("LoadBitmap")
        self.program.choose_file(file)
        self.program.no_dialog()

    def on_picture(self, x, y):
        """Where a pixel of the picture is seen right after it was loaded."""
        return self.area.at(self.area.width / 2 - PICTURE[0] / 2 + x, self.area.height / 2 - PICTURE[1] / 2 + y)

    def entry(self, name):
        """An entry of the menu as it is offered now; the menu closes again."""
        self.screen.click(*self.area.at(5, 5), button=3)
        menu = wait_for(lambda: (m := self.program.of_kind("QMenu")) and m[-1], "the menu")
        self.screen.key("Escape")
        wait_for(lambda: not self.program.of_kind("QMenu"), "the menu to close")
        return next(e for e in menu.entries if e["name"] == name)

    def test_two_points_make_a_picture_true(self):
        self.assertFalse(self.entry("TracePicture")["enabled"])
        self.load_picture()
        self.program.popup("TracePicture")
        wait_for(lambda: self.value().startswith("Click a point"), "the question for a point")
        x1, y1, x2, y2 = MARK
        self.screen.click(*self.on_picture(x1, y1))
        wait_for(lambda: self.value().startswith("Click the second point"), "the first point")
        self.take("trace-first")
        self.screen.click(*self.on_picture(x2, y2))
        self.program.dialog("Trace by Two Points")
        self.assertIn("How far apart", self.value())
        self.take("trace-question")
        self.screen.key("ctrl+a")
        self.screen.type("1000")
        self.screen.key("Return")
        self.program.no_dialog()
        drawn = self.settled("trace-true", self.area)
        self.assertGreater(drawn.count(lambda r, g, b: r + g + b == 0), 500, "the aircraft over the picture")
        self.measure(1000)
        self.assertTrue(self.entry("LockZoom")["checked"])

    def measure(self, length):
        """The marks of the picture lie `length` apart, by the strip's own places over them."""
        picture = self.settled("trace-drawing", self.area)
        x1, y1, _, _ = MARK
        first = self.on_picture(x1, y1)
        self.screen.hover(*first)
        left = wait_for(self.place, "the place of the first mark")["y"]
        right = first[0] + length * self.view.zoom
        self.assertLess(right - self.area.left, self.area.width)
        blue = [x for x in range(picture.width)
                for y in [round(first[1] - self.area.top)]
                if picture.pixel(x, y)[2] > 200 and picture.pixel(x, y)[0] < 60]
        # The second mark's middle is where the scale says.
        last = [x for x in blue if x > (first[0] - self.area.left + right - self.area.left) / 2]
        self.assertAlmostEqual((last[0] + last[-1]) / 2, right - self.area.left, delta=1.5)
        self.screen.hover(self.area.left + (last[0] + last[-1]) / 2, first[1])
        wait_for(lambda: abs(self.place()["y"] - left - length) < 2 / self.view.zoom, "the true distance")

    def test_escape_and_a_right_press_end_the_tracing(self):
        self.load_picture()
        for way in ("key", "press"):
            with self.subTest(way):
                self.program.popup("TracePicture")
                wait_for(lambda: self.value().startswith("Click a point"), "the question for a point")
                self.screen.click(*self.on_picture(50, 50))
                wait_for(lambda: self.value().startswith("Click the second"), "the first point")
                if way == "key":
                    self.screen.key("Escape")
                else:
                    self.screen.click(*self.on_picture(80, 80), button=3)
                wait_for(lambda: self.value() == "", "the end of the tracing")
                self.assertFalse(self.program.of_kind("QMenu"))
        self.assertFalse(self.entry("LockZoom")["checked"])


class SmallScreen(base.WindowTest):
    """Where room is short the strip still stands beside everything, and says what fits."""

    size = 800, 600

    def test_it_covers_nothing(self):
        area, strip = self.program.get("DrawArea"), self.program.get("Strip")
        panel = self.program.get("Parameters")
        self.assertGreaterEqual(strip.top, area.top + area.height)
        self.assertTrue(strip.left >= panel.left + panel.width or strip.top >= panel.top + panel.height)
        self.assertLessEqual(strip.left + strip.width, self.screen.size[0])
        self.screen.hover(*area.middle)
        wait_for(lambda: self.program.text("StripPlace"), "the place")
        self.take("strip-small")


if __name__ == "__main__":
    base.main()
