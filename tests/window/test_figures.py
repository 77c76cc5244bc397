"""The window of figures: beside the views, live while dragging, copied from, and back in its place."""

import signal

import base
import views
from pictures import difference
from screen import wait_for


class Figures(base.WindowTest):
    def setUp(self):
        super().setUp()
        self.area = self.program.get("DrawArea")
        self.view = views.vtop(self.area.width, self.area.height)

    def open(self):
        self.program.click("Figures")
        return self.program.get("FiguresWindow")

    def figure(self, label, group="Wing"):
        """Value and unit of a line of a group."""
        inside = False
        for row in self.program.get("FiguresList").rows:
            cells = (row["cells"] + ["", ""])[:3]
            if inside and cells[0] == label:
                return cells[1], cells[2]
            inside = inside and (cells[1] != "" or cells[0] != "") if cells[0] != group else True
        return None

    def until(self, label, value, unit, group="Wing"):
        wait_for(lambda: self.figure(label, group) == (value, unit), f"{label} {value} {unit}")

    def fill(self, name, text):
        """Into a field of a window that may not be the active one."""
        self.screen.click(*self.program.get(name).middle)
        wait_for(lambda: self.program.get(name).active, f"the focus in {name}")
        self.screen.key("ctrl+a")
        self.screen.key("BackSpace")
        if text:
            self.screen.type(text)

    def test_it_opens_beside_the_views_and_follows_a_drag_before_its_release(self):
        self.open()
        self.until("Span", "1400.0", "mm")
        self.assertTrue(self.program.get("DrawArea").active)
        tip = self.area.at(*self.view.at(700, 340))  # its trailing corner
        self.screen.hover(*tip)
        self.screen.press(*tip)
        self.screen.drag_to(tip, (tip[0], tip[1] + 30))
        wait_for(lambda: (f := self.figure("Tip chord")) and f[0] != "150.0", "the figure of the drag")
        self.take("figures-drag")
        self.screen.release()
        dragged = self.figure("Tip chord")
        self.program.click("Undo")
        self.until("Tip chord", "150.0", "mm")
        self.program.click("Redo")
        self.until("Tip chord", dragged[0], "mm")
        self.program.click("Figures")
        wait_for(lambda: not self.program.find("FiguresWindow"), "the window to close")

    def test_a_text_that_is_no_number_is_marked_and_its_figures_empty(self):
        self.open()
        self.fill("FiguresMass", "1330")
        self.until("Wing loading", "50.0", "g/dm2", "Flight")
        plain = self.still("figures-mass", self.program.get("FiguresMass"))
        self.fill("FiguresMass", "-1330")
        self.until("Wing loading", "", "", "Flight")
        marked = self.still("figures-mass-marked", self.program.get("FiguresMass"))
        self.assertGreater(difference(plain, marked), 0)
        self.fill("FiguresMass", "")
        self.fill("FiguresSpeed", "54")
        self.until("Reynolds number, root", "236188", "", "Flight")

    def test_the_marks_lie_over_the_drawing_and_leave_it_as_it_was(self):
        window = self.open()
        # Nothing of the drawing is covered.
        self.assertLessEqual(window.top + window.height, self.area.top)
        middle = self.area.left + self.area.width // 2
        place = (middle - 60, self.area.top, 120, self.area.height)
        before = self.screen.picture(self.taken / "marks-before.png", place).read_bytes()
        box = self.program.get("FiguresMarks")
        self.screen.click(*box.handle)
        wait_for(lambda: self.program.get("FiguresMarks").checked, "the tick")
        picture = lambda name: self.screen.picture(self.taken / name, place).read_bytes()
        wait_for(lambda: picture("marks-on.png") != before, "the marks")
        self.screen.click(*box.handle)
        wait_for(lambda: picture("marks-off.png") == before, "the drawing without marks")

    def test_its_place_comes_back_at_the_next_start(self):
        window = self.open()
        self.screen.tool("search", "--name", "^Figures$", "windowmove", "400", "150")
        wait_for(lambda: self.program.get("FiguresWindow").left < window.left - 100, "the window to move")
        moved = self.program.get("FiguresWindow")
        self.program.click("Figures")
        wait_for(lambda: not self.program.find("FiguresWindow"), "the window to close")
        settings = self.program.folder / "config" / "velna" / "settings.txt"
        self.assertIn("figures-window=", settings.read_text())
        self.program.die(signal.SIGKILL)
        self.program.start()
        back = self.open()
        self.assertEqual((back.left, back.top), (moved.left, moved.top))


if __name__ == "__main__":
    base.main()
