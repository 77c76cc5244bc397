"""Light and dark desktops, and a change between them while the program runs. The colours come by the platform theme
that sets them where a desktop has none of its own, and that follows its settings file."""

import base
from pictures import Picture, check_like
from screen import wait_for

LETTERS = {False: "#ff000000", True: "#fff0f0f0"}
GROUND = {False: "#ffefefef", True: "#ff2b2b2b"}
BASE = {False: "#ffffffff", True: "#ff1e1e1e"}
SETTINGS = """[Appearance]
color_scheme_path={folder}/colours.conf
custom_palette=true
style=Fusion
"""


def colours(dark):
    """The toolkit's roles in their order: letters and grounds, frames from light to dark between them."""
    ink, ground, field = LETTERS[dark], GROUND[dark], BASE[dark]
    frames = ["#ff4a4a4a", "#ff3d3d3d", "#ff151515", "#ff202020"] if dark else ["#ffffffff", "#ffcacaca", "#ff9f9f9f", "#ffb8b8b8"]
    link, visited = ("#ff6db3ff", "#ffc79bff") if dark else ("#ff0000ff", "#ffff00ff")
    grey = "#ff808080"

    def row(letters):
        return ", ".join([letters, ground, *frames, letters, "#ffffffff", letters, field, ground, "#ff000000", "#ff308cc6",
                          "#ffffffff", link, visited, ground, "#ffffffff", "#ffffffdc", "#ff000000", grey])

    return f"[ColorScheme]\nactive_colors={row(ink)}\ndisabled_colors={row(grey)}\ninactive_colors={row(ink)}\n"


class Theme(base.WindowTest):
    starts = False

    def desktop(self, dark):
        """A program that is not started yet, on such a desktop."""
        program = self.new_program()
        program.env["QT_QPA_PLATFORMTHEME"] = "qt6ct"
        program.env.pop("QT_STYLE_OVERRIDE", None)
        self.change(program, dark)
        return program

    def change(self, program, dark):
        folder = program.folder / "config/qt6ct"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "colours.conf").write_text(colours(dark))
        # The theme looks again, three seconds later, when something is put into the folder.
        (folder / "new").write_text(SETTINGS.format(folder=folder))
        (folder / "new").rename(folder / "qt6ct.conf")

    def ground(self, program):
        """The colour of the toolbar beside its last key."""
        bar = program.get("Bar")
        picture = Picture(self.screen.picture(self.taken / "ground.png", (bar.left + bar.width - 9, bar.top + 9, 1, 1)))
        return "#ff%02x%02x%02x" % picture.pixel(0, 0)

    def wait_for_ground(self, program, dark):
        wait_for(lambda: self.ground(program) == GROUND[dark], "the desktop's ground")

    def test_on_a_dark_desktop_everything_but_the_drawing_is_dark(self):
        program = self.desktop(dark=True).start()
        self.wait_for_ground(program, dark=True)
        drawing = Picture(self.take("dark-drawing", program.get("DrawArea")))
        self.assertGreater(drawing.count(lambda *rgb: rgb == (255, 255, 255)), 0.9 * drawing.width * drawing.height)
        self.looks("dark")

    def test_a_change_while_the_program_runs_gives_what_a_start_gives(self):
        started = {}
        for dark in (False, True):
            program = self.desktop(dark).start()
            self.wait_for_ground(program, dark)
            started[dark] = [self.still(f"started-{tab}-{dark}", self.tab(program, tab)) for tab in range(5)]
            self.assertEqual(program.quit(), 0)
        program = self.desktop(dark=False).start()
        for dark in (True, False):
            self.change(program, dark)
            self.wait_for_ground(program, dark)
            for tab in range(5):
                check_like(self.still(f"changed-{tab}-{dark}", self.tab(program, tab)), started[dark][tab])

    def tab(self, program, number):
        """The whole window, with this tab open."""
        program.tab(number)
        self.screen.move(640, 500)
        return program.get("Main")

    def with_help(self, program):
        program.click("Help")
        wait_for(lambda: program.find("HelpBrowser"), "the help window")
        return program

    def test_a_help_that_is_open_follows(self):
        program = self.with_help(self.desktop(dark=True).start())
        started = self.still("started-help", program.get("HelpWindow"))
        self.screen.key("Escape")
        self.assertEqual(program.quit(), 0)
        program = self.with_help(self.desktop(dark=False).start())
        self.change(program, dark=True)
        self.wait_for_ground(program, dark=True)
        check_like(self.still("changed-help", program.get("HelpWindow")), started)

    def test_a_manager_that_is_open_follows(self):
        program = self.desktop(dark=False).start()
        program.click("Manager")
        program.dialog("Fuselage Manager")
        self.change(program, dark=True)
        self.wait_for_ground(program, dark=True)
        self.looks("dark-manager", program.get("ObjectList"))


if __name__ == "__main__":
    base.main()
