"""The picture in three dimensions: turned, zoomed, shifted, textured, and drawn while dragging."""

import subprocess

import base
import views
from pictures import Picture, difference
from screen import wait_for


def lit(file):
    return Picture(file).count(lambda r, g, b: r > 30)


class ThePicture(base.WindowTest):
    def shot(self, name):
        return self.take(name, self.program.picture())

    def test_the_default_aircraft_stands_in_it(self):
        self.looks("picture-default", self.program.picture())

    def test_drag_turns_shift_drag_zooms_right_drag_shifts(self):
        pane = self.program.picture()
        x, y = pane.middle
        first = self.shot("turn-0")
        self.screen.drag((x, y), (x + 150, y + 60))
        wait_for(lambda: difference(first, self.shot("turn-1")) > 0.02, "the turned picture")
        turned = self.still("turn-1", self.program.picture())
        self.screen.drag((x, y), (x, y + 90), keys=["shift"])
        wait_for(lambda: lit(self.shot("turn-2")) < lit(turned) * 0.9, "the picture farther away")
        farther = self.still("turn-2", self.program.picture())
        self.screen.drag((x, y), (x + 200, y - 40), button=3)
        wait_for(lambda: difference(farther, self.shot("turn-3")) > 0.01, "the shifted picture")
        wheel = self.still("turn-4", self.program.picture())
        self.screen.click(x, y, button=4, times=3)
        wait_for(lambda: lit(self.shot("turn-5")) > lit(wheel), "the wheel to bring it nearer")

    def test_it_is_there_again_after_the_window_was_away_or_covered(self):
        before = self.still("away-0", self.program.picture())
        window = self.screen.tool("search", "--onlyvisible", "--name", "Velna V").split()[0]
        self.screen.tool("windowminimize", "--sync", window)
        wait_for(lambda: lit(self.screen.picture(self.taken / "away-1.png")) < lit(before) / 10, "the minimised window")
        self.screen.tool("windowmap", "--sync", window)
        self.screen.tool("windowactivate", "--sync", window)
        wait_for(lambda: difference(before, self.shot("away-2")) == 0, "the picture after the minimised window")
        self.screen.key("F1")
        wait_for(lambda: self.program.find("HelpWindow"), "the help over it")
        wait_for(lambda: difference(before, self.shot("away-3")) > 0.05, "the help to be painted")
        self.screen.key("Escape")
        wait_for(lambda: difference(before, self.shot("away-4")) == 0, "the picture behind the help")

    def test_render_pressed_follows_a_drag(self):
        self.program.click("Render")
        wait_for(lambda: self.program.get("Render").checked, "the pressed key")
        area = self.program.get("DrawArea")
        view = views.vtop(area.width, area.height)
        start = area.at(*view.at(700, 265))
        before = self.still("live-0", self.program.picture())
        self.screen.press(*start)
        self.screen.drag_to(start, (start[0], start[1] + 80))
        wait_for(lambda: difference(before, self.shot("live-1")) > 0.01, "the live picture")
        self.screen.release()

    def test_a_texture_lies_on_each_element_and_comes_off(self):
        picture = self.program.folder / "stripes.bmp"
        subprocess.run(["convert", "-size", "300x200", "gradient:red-lime", f"BMP3:{picture}"], check=True)
        for tab in (1, 0, 2, 3):
            with self.subTest(tab=tab):
                self.program.tab(tab)
                self.program.open(picture, "Texture")
                self.program.no_dialog()
                # The fin is seen from the nose: few pixels, but none of them was coloured before.
                wait_for(lambda: self.coloured() > 100, "the texture")
                if tab == 1:
                    self.take("textured-wing", self.program.picture())
                self.program.tab(tab)
                self.program.click("Open")
                self.program.dialog()
                self.choose_texture_filter()
                self.screen.key("Escape")
                self.program.no_dialog()
                wait_for(lambda: self.coloured() == 0, "the texture to be gone")

    def choose_texture_filter(self):
        combo = self.program.get("fileTypeCombo")
        self.screen.click(*combo.middle)
        row = wait_for(lambda: self.program._combo_row("Texture"), "the filter")
        x, y, width, height = row["place"]
        self.screen.click(x + width // 2, y + height // 2)
        wait_for(lambda: self.program.text("fileTypeCombo").startswith("Texture"), "the filter")

    def coloured(self):
        return Picture(self.shot("texture")).count(lambda r, g, b: abs(r - g) > 60)


class LostPicture(base.WindowTest):
    starts = False

    def test_a_lost_window_gets_its_picture_back(self):
        self.program = self.new_program()
        lose = self.program.can_lose_picture()
        self.program.start()
        pane = self.program.picture()
        wait_for(lambda: lit(self.take("lost-0", pane)) > 1000, "the picture")
        whole = self.still("lost-0", pane)
        lose()
        wait_for(lambda: "was lost" in self.program.errors(), "the loss")
        wait_for(lambda: difference(whole, self.take("lost-1", pane)) < 0.01, "the same picture")
        self.screen.drag(pane.middle, pane.at(100, 100))
        wait_for(lambda: difference(whole, self.take("lost-2", pane)) > 0.01, "the turned picture")
        self.assertGreater(lit(self.taken / "lost-2.png"), 1000)


class Background(base.WindowTest):
    """A picture behind a view, from the popup menu and the keys."""

    def setUp(self):
        super().setUp()
        self.file = self.program.folder / "plan.png"
        subprocess.run(["convert", "-size", "400x200", "xc:#40a0f0", str(self.file)], check=True)
        self.area = self.program.get("DrawArea")

    def blue(self):
        shot = Picture(self.take("background", self.area))
        return shot.count(lambda r, g, b: (r, g, b) == (0x40, 0xA0, 0xF0))

    def load(self):
        self.screen.move(*self.area.at(40, 40))
        self.screen.key("o")
        self.program.choose_file(self.file)
        self.program.no_dialog()
        wait_for(lambda: self.blue() > 70000, "the picture")

    def test_it_is_loaded_sized_moved_and_cleared(self):
        self.load()
        self.program.popup("SizeBitmap")
        self.program.dialog("Size")
        self.screen.key("ctrl+a")
        self.screen.type("50")
        self.screen.key("Return")
        self.program.no_dialog()
        wait_for(lambda: 19000 < self.blue() <= 20000, "a quarter of the surface")
        left = self.leftmost()
        middle = self.area.width // 2 - 120, self.area.height // 2 - 60
        self.program.drag(middle, (middle[0] - 100, middle[1] + 30), keys=["alt"])
        wait_for(lambda: self.leftmost() == left - 100, "the picture 100 pixels to the left")
        self.program.popup("LockZoom")
        self.program.popup("ClearBitmap")
        wait_for(lambda: self.blue() == 0, "no picture")

    def leftmost(self):
        shot = Picture(self.take("background", self.area))
        for x in range(shot.width):
            for y in range(0, shot.height, 7):
                if shot.pixel(x, y) == (0x40, 0xA0, 0xF0):
                    return x
        return None

    def test_a_drag_over_it_leaves_no_trace(self):
        self.load()
        self.program.click("VTop")
        clean = self.take("trace-0", self.area)
        view = views.vtop(self.area.width, self.area.height)
        tip = self.area.at(*view.at(700, 265))
        self.screen.press(*tip)
        self.screen.drag_to(tip, (tip[0], tip[1] + 40))
        self.screen.drag_to((tip[0], tip[1] + 40), tip)
        self.screen.release()
        self.screen.move(*self.area.at(30, 30))
        wait_for(lambda: Picture(self.take("trace-1", self.area)).data == Picture(clean).data,
                 "the very same view")


if __name__ == "__main__":
    base.main()
