"""The forms of the toolbar: preferences, manager, help, colour, and F1 in them."""

import base
from pictures import Picture
from screen import wait_for


class Dialogs(base.WindowTest):
    def shows(self, name, text):
        wait_for(lambda: (c := self.program.find(name)) and c.text == text, f"{name} to show {text}")

    def preferences(self, option=None, scale=None, close="CloseCommand"):
        self.program.click("Prefs")
        self.program.dialog("Preferences")
        if option:
            self.program.click(option)
        if scale:
            self.program.enter("ScaleText", scale, commit="End")
        self.program.click(close)
        self.program.no_dialog()

    def test_inches_and_back_keep_every_length(self):
        first, second = self.program.folder / "1.vln", self.program.folder / "2.vln"
        self.program.save(first)
        self.preferences("InchesOption")
        self.shows("LengthBText", "9.06")
        self.shows("SpanText", "55.12")
        self.program.save(self.program.folder / "inches.vln")
        self.preferences("MillimetersOption")
        self.shows("SpanText", "1400")
        self.program.save(second)
        old, new = first.read_text().splitlines(), second.read_text().splitlines()
        self.assertEqual(len(old), len(new))
        for a, b in zip(old, new):
            try:
                self.assertAlmostEqual(float(a), float(b), 9)
            except ValueError:
                self.assertEqual(a, b)

    def test_a_scale_of_50_halves_the_aircraft_once(self):
        self.program.click("Prefs")
        dialog = self.program.dialog("Preferences")
        self.program.enter("ScaleText", "50", commit="End")
        self.shows("SpanLabel", "700")
        self.take("preferences", dialog)
        self.program.click("CloseCommand")
        self.program.no_dialog()
        self.shows("SpanText", "700")
        self.shows("LengthBText", "115")
        self.preferences()
        self.shows("SpanText", "700")
        for text in ("0", "-3", "abc"):
            self.preferences(scale=text)
            self.shows("SpanText", "700")

    def test_cancel_leaves_unit_and_scale(self):
        self.preferences("InchesOption", "50", close="CancelCommand")
        self.shows("SpanText", "1400")
        self.assertEqual(self.program.quit(), 0)
        self.assertEqual((self.program.folder / "prefs.txt").read_bytes(), b'"Done"\r\n#FALSE#\r\n#TRUE#\r\n')

    def test_the_preferences_are_worked_by_letters_with_alt(self):
        self.program.click("Prefs")
        dialog = self.program.dialog("Preferences")
        self.take("preferences-letters", dialog)
        self.screen.key("alt+i")
        wait_for(lambda: self.program.get("InchesOption").checked, "inches")
        self.screen.key("alt+s")
        wait_for(lambda: self.program.get("ScaleText").focus, "the scale")
        self.screen.key("ctrl+a", "5", "alt+x", "0", "End")
        self.shows("ScaleText", "50")
        self.screen.key("alt+m", "alt+c")
        self.program.no_dialog()
        self.shows("SpanText", "700")

    def test_the_manager_hides_and_shows_and_chooses(self):
        self.program.tab(0)
        self.program.click("IndexFusPlusButton")
        self.shows("IdFusLabel", "2")
        self.program.click("Side")
        self.program.click("Manager")
        dialog = self.program.dialog("Fuselage Manager")
        self.take("manager", dialog)
        rows = self.program.get("ListView").rows
        self.assertEqual([row["cells"][:3] for row in rows],
                         [["Fuselage 001", "Shown", "003"], ["Fuselage 002", "Shown", "003"]])
        self.row(0)
        self.program.click("HideCommand")
        wait_for(lambda: self.program.get("ListView").rows[0]["cells"][1] == "Hidden", "the first to be hidden")
        self.assertFalse(self.program.get("ListView").rows[0]["checked"])
        self.program.click("ShowCommand")
        wait_for(lambda: self.program.get("ListView").rows[0]["checked"], "the first to be shown")
        self.row(0)
        self.program.click("CloseCommand")
        self.program.no_dialog()
        self.shows("IdFusLabel", "1")

    def row(self, number):
        x, y, width, height = self.program.get("ListView").rows[number]["place"]
        self.screen.click(x + width - 10, y + height // 2)

    def test_a_hidden_fuselage_is_gone_from_view_and_picture(self):
        self.program.click("VTop")
        before = self.take("shown", self.program.picture())
        self.program.click("Manager")
        self.program.dialog("Fuselage Manager")
        self.row(0)
        self.program.click("HideCommand")
        self.program.click("CloseCommand")
        self.program.no_dialog()
        wait_for(lambda: self.lit(self.take("hidden", self.program.picture())) < self.lit(before) - 2000,
                 "the picture without a fuselage")

    def lit(self, file):
        return Picture(file).count(lambda r, g, b: r > 30)

    def test_help_and_f1_open_the_right_pages(self):
        self.program.click("Help")
        wait_for(lambda: self.program.find("HelpBrowser"), "the help window")
        self.assertIn("Velna draws radio-controlled", self.program.text("HelpBrowser"))
        self.take("help-contents")
        self.screen.key("Escape")
        wait_for(lambda: not self.program.find("HelpBrowser"), "the help window to close")
        self.program.tab(3)
        self.program.click("SpanRudderText")
        self.screen.key("F1")
        wait_for(lambda: "Rudder tab" in self.program.text("HelpBrowser")[:40], "the page of the tab")
        self.screen.key("Escape")
        self.program.click("Prefs")
        self.program.dialog("Preferences")
        self.screen.key("F1")
        wait_for(lambda: (c := self.program.find("HelpBrowser")) and c.text.startswith("Preferences"), "its page")
        # The help can be used beside the dialog.
        self.program.click("HelpSearch")
        self.screen.type("ruler")
        wait_for(lambda: len(self.program.get("HelpContents").rows) < 8, "the search")
        self.take("help-search")
        self.screen.key("Escape")
        wait_for(lambda: not self.program.find("HelpBrowser"), "the help window to close")
        self.program.click("CancelCommand")
        self.program.no_dialog()

    def test_the_help_stands_beside_the_drawing_and_marks_its_page(self):
        def marked():
            return [row["cells"][0] for row in self.program.get("HelpContents").rows if row["selected"]]

        self.program.click("Help")
        window = self.program.get("HelpWindow")
        area = self.program.get("DrawArea")
        self.assertLessEqual(window.top + window.height, area.top)
        self.assertGreaterEqual(window.left, area.left)
        wait_for(lambda: marked() == ["Contents"], "the mark on the contents")
        row = next(r for r in self.program.get("HelpContents").rows if r["cells"] == ["The main window"])
        x, y, width, height = row["place"]
        self.screen.click(x + width // 2, y + height // 2)
        wait_for(lambda: marked() == ["The main window"], "the mark on the page")
        self.screen.key("Down")
        wait_for(lambda: self.program.text("HelpBrowser").startswith("The first-use demonstration"), "the next page")
        self.program.click("HelpBack")
        wait_for(lambda: marked() == ["The main window"], "the mark to come back")
        self.take("help-beside")

    def test_a_missing_help_file_gives_a_plain_message(self):
        (self.program.folder / "Velna.HLP").unlink()
        self.program.click("Help")
        wait_for(lambda: "is missing or damaged" in self.program.text("HelpBrowser"), "the message")
        self.assertEqual([c for c in self.program.controls() if c.modal], [])

    def test_a_colour_is_seen_in_the_picture_and_a_cancel_changes_nothing(self):
        self.program.click("Palette")
        self.program.dialog()
        self.screen.key("Escape")
        self.program.no_dialog()
        self.program.click("Palette")
        dialog = self.program.dialog()
        self.take("palette", dialog)
        field = next(c for c in self.program.of_kind("QLineEdit", "QColorDialog") if c.told.get("text", "").startswith("#"))
        self.screen.click(*field.middle)
        self.screen.key("ctrl+a")
        self.screen.type("#c81414")
        self.screen.key("Tab")
        self.program.push("OK")
        self.program.no_dialog()

        def red():
            file = self.take("red-wing", self.program.picture())
            return Picture(file).count(lambda r, g, b: r > g + 60 and r > b + 60)

        wait_for(lambda: red() > 5000, "a red wing")


if __name__ == "__main__":
    base.main()
