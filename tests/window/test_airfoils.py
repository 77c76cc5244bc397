"""Airfoils in any order, NACA sections, and the outline in the wing tab."""

import base
from screen import wait_for

EXAMPLES = base.HERE.parents[1] / "examples"
ANY_ORDER = "Airfoil in any order"


class Airfoils(base.WindowTest):
    def setUp(self):
        super().setUp()
        self.program.tab(1)
        self.screen.move(5, 5)

    def outline(self, name):
        """The outline as it stands on the screen."""
        return self.still(name, self.program.get("WingOutline")).read_bytes()

    def choose(self, entry):
        self.program.click("RecentFiles")
        entries = wait_for(lambda: (m := self.program.find("RecentFilesMenu")) and m.entries, "the menu")
        x, y, width, height = next(e for e in entries if e["name"] == entry)["place"]
        self.screen.click(x + width // 2, y + height // 2)

    def choose_panel(self, number):
        """By a click on an end of the list's bar."""
        bar = self.program.get("IndexWingsScroll")
        self.screen.click(bar.left + (4 if number == "1" else bar.width - 4), bar.middle[1])
        wait_for(lambda: self.program.text("IdWingLabel") == number, f"panel {number}")
        self.screen.move(5, 5)

    def saved(self, name):
        file = self.program.folder / name
        self.program.save(file)
        return file.read_bytes()

    def test_a_file_of_each_order_gives_the_same_project_and_outline(self):
        before = self.outline("outline-first")
        files = []
        pictures = set()
        for number, (name, kind) in enumerate((("naca2412.xy", "Airfoil"), ("naca2412-selig.dat", ANY_ORDER),
                                               ("naca2412-lednicer.dat", ANY_ORDER))):
            self.program.open(EXAMPLES / "airfoils" / name, kind)
            self.program.no_dialog()
            wait_for(lambda: self.program.text("ThicknessBText") == "0.12", "the thickness")
            pictures.add(self.outline(f"outline-{number}"))
            files.append(self.saved(f"{number}.vln"))
        self.assertEqual(files[1], files[0])
        self.assertEqual(files[2], files[0])
        self.assertEqual(len(pictures), 1)
        self.assertNotIn(before, pictures)

    def test_what_is_no_airfoil_is_told_and_the_wing_stays(self):
        before = self.saved("before.vln")
        letter = self.program.folder / "letter.dat"
        letter.write_text("Dear Sir,\nthe wing is too heavy.\n")
        self.program.open(letter, ANY_ORDER)
        box = self.program.dialog("Velna")
        self.take("no-airfoil", box)
        self.assertTrue(any("no airfoil (it has no lines of two numbers" in c.told.get("text", "")
                            for c in self.program.controls() if c.modal))
        self.program.push("OK")
        self.program.no_dialog()
        self.assertEqual(self.saved("after.vln"), before)

    def test_a_naca_section_is_looked_at_taken_and_undone(self):
        before = self.outline("naca-before")
        self.choose("NacaSection")
        dialog = self.program.dialog("NACA section")
        shown = set()
        for number in ("2412", "6415", "23012"):
            self.program.enter("NacaNumber", number, "Tab")
            shown.add(self.still(f"naca-{number}", self.program.get("NacaOutline")).read_bytes())
        self.assertEqual(len(shown), 3)
        self.take("naca-dialog", dialog)
        self.program.enter("NacaNumber", "2012", "Tab")
        wait_for(lambda: self.program.text("NacaWord").startswith("No section: with camber"), "the word")
        self.assertFalse(self.program.find("OkCommand").enabled)
        self.take("naca-nonsense", dialog)
        self.program.enter("NacaNumber", "4415", "Tab")
        self.assertEqual(self.program.text("NacaWord"), "")
        self.program.enter("NacaPoints", "35", "Tab")
        self.program.click("OkCommand")
        self.program.no_dialog()
        wait_for(lambda: self.program.text("ThicknessBText") == "0.15", "the section")
        self.assertNotEqual(self.outline("naca-after"), before)
        self.program.click("Undo")
        wait_for(lambda: self.program.text("ThicknessBText") == "0.13", "the old section")
        self.screen.move(5, 5)
        self.assertEqual(self.outline("naca-undone"), before)

    def test_the_dialog_is_worked_by_the_keyboard(self):
        self.choose("NacaSection")
        self.program.dialog("NACA section")
        self.screen.type("0009")
        self.screen.key("Tab", "Tab")
        self.screen.key("alt+a")
        wait_for(lambda: self.program.get("NacaAllPanels").told.get("checked"), "all panels")
        self.screen.key("Return")
        self.program.no_dialog()
        wait_for(lambda: self.program.text("ThicknessBText") == "0.09", "the section")
        self.choose("NacaSection")
        self.program.dialog("NACA section")
        self.assertEqual(self.program.text("NacaNumber"), "0009")
        self.assertTrue(self.program.get("NacaAllPanels").told.get("checked"))
        self.screen.key("Escape")
        self.program.no_dialog()

    def test_an_airfoil_goes_on_all_panels_and_the_outline_follows_the_panel(self):
        self.program.click("IndexWingPlusButton")
        wait_for(lambda: self.program.text("IdWingLabel") == "2", "panel 2")
        first = self.outline("panel-2-built-in")
        self.program.open(EXAMPLES / "airfoils" / "naca6409.xy", "Airfoil")
        self.program.no_dialog()
        second = self.outline("panel-2")
        self.assertNotEqual(first, second)
        self.choose_panel("1")
        self.assertEqual(self.outline("panel-1"), first)
        self.choose_panel("2")
        self.choose("AirfoilOnAll")
        self.choose_panel("1")
        self.assertEqual(self.outline("panel-1-after"), second)


class SmallWindow(base.WindowTest):
    """Where there is no room the picture gives way to the fields."""

    size = 640, 480

    def test_the_fields_are_as_reachable_as_ever(self):
        self.program.tab(1)
        panel = self.program.get("Parameters")
        self.take("wing-tab-small", panel)
        outline = self.program.get("WingOutline")
        span = self.program.get("SpanText")
        self.assertGreaterEqual(outline.top, span.top + span.height)
        self.assertLessEqual(outline.top + outline.height, panel.top + panel.height)


if __name__ == "__main__":
    base.main()
