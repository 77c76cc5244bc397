"""The views as they stand on the screen: where a fit puts the aircraft, and what a key or a press leaves there."""

import pathlib

import base
import views
from pictures import Picture
from screen import wait_for

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
WHITE = b"\xff\xff\xff"


def ink(pixels):
    """Which pixels are not paper, whatever their colour: lines that cross are drawn in another order at a move."""
    return [pixels[at : at + 3] != WHITE for at in range(0, len(pixels), 3)]


class Views(base.WindowTest):
    def drawing(self, name, control="DrawArea"):
        return Picture(self.take(name, self.program.get(control)))

    def nose_rows(self, name):
        """The rows of the drawing that a black line touches in its left tenth, where nothing but the nose is."""
        picture = self.drawing(name)
        columns = range(0, picture.width // 10)
        return [y for y in range(picture.height) if any(picture.pixel(x, y) == (0, 0, 0) for x in columns)]

    def aside(self):
        """The pointer over the drawing, where nothing lights."""
        self.screen.move(*self.program.get("DrawArea").at(6, 6))

    def settled(self, name, before=None):
        """The drawing once it stands still, and differs from `before`."""
        last = [self.drawing(name).data]

        def still():
            former, last[0] = last[0], self.drawing(name).data
            return former == last[0] and (before is None or former != before)

        wait_for(still, f"the drawing {name}")
        return last[0]

    def test_htop_centres_a_hull_that_lies_to_one_side(self):
        self.program.open(EXAMPLES / "twin_hull.vln")
        self.program.no_dialog()
        self.program.click("Side")
        self.program.click("HTop")
        self.aside()
        self.settled("htop-twin-hull")
        rows = self.nose_rows("htop-twin-hull")
        self.assertAlmostEqual((rows[0] + rows[-1]) / 2, self.program.get("DrawArea").height / 2, delta=3)

    def test_key_a_stands_when_it_comes_up_and_goes_with_a_key_of_a_control(self):
        self.program.click("Side")
        self.aside()
        whole = self.settled("side-whole")
        self.screen.key("a")
        section = self.settled("side-section", before=whole)
        # A check box keeps the key that ticks it; the form sees it all the same.
        self.program.click("LinkedCurvaturesCheck")
        self.aside()
        self.assertEqual(self.settled("side-section-still"), section)
        self.screen.key("space")
        self.assertEqual(self.settled("side-whole-again", before=section), whole)

    def test_a_removal_lets_the_neighbour_be(self):
        self.program.click("Side")
        area = self.program.get("DrawArea")
        x, y = area.at(*views.side(area.width, area.height).at(200, 60))
        with self.screen.held(["ctrl"]):
            self.screen.press(x, y)
            self.screen.tool("mousemove", x, y - 1, "sleep", 0.05, "mousemove", x, y - 30, "sleep", 0.05)
            self.screen.tool("mouseup", 1)
        wait_for(lambda: self.program.get("FuselageScroll").maximum == 2, "the removal")
        self.program.click("Side")
        self.assertEqual(self.program.text("ElevationFuselageText"), "30")

    def test_another_fuselages_section_fills_its_picture(self):
        self.program.tab(0)
        self.program.click("IndexFusPlusButton")
        wait_for(lambda: self.program.value("IndexFusScroll") == 2, "the second fuselage")
        self.program.enter("WidthFuselageText", "400")
        bar = self.program.get("IndexFusScroll")
        for number, x in ((1, 4), (2, bar.width - 4)):
            self.screen.click(*bar.at(x, bar.height // 2))
            wait_for(lambda: self.program.value("IndexFusScroll") == number, f"fuselage {number}")
            picture = self.drawing(f"section-of-fuselage-{number}", "DrawSectionArea")
            columns = [at % picture.width for at, drawn in enumerate(ink(picture.data)) if drawn]
            self.assertAlmostEqual((max(columns) - min(columns)) / picture.width, 0.9, delta=0.03)


if __name__ == "__main__":
    base.main()
