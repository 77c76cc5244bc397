"""What comes back at the next start: the folders of the dialogs, the print form's additions, the places of windows."""

import shutil

import base
from screen import wait_for

EXAMPLES = base.HERE.parents[1] / "examples"


class Kept(base.WindowTest):
    def start_again(self):
        self.assertEqual(self.program.quit(), 0)
        self.program.socket.unlink(missing_ok=True)
        self.program.start()

    def test_a_dialog_opens_where_it_was_last_served(self):
        place = self.program.folder / "my aircraft"
        place.mkdir()
        shutil.copy(EXAMPLES / "glider.vln", place / "glider.vln")
        self.program.open(place / "glider.vln")
        self.program.no_dialog()
        self.start_again()
        self.program.click("Open")
        self.program.dialog()
        wait_for(lambda: self.program.text("lookInCombo") == str(place), "the folder of the last time")
        self.take("kept-folder")

    def test_one_whose_folder_has_gone_opens_elsewhere(self):
        place = self.program.folder / "gone"
        place.mkdir()
        self.program.save(place / "a.vln")
        shutil.rmtree(place)
        self.start_again()
        self.program.click("Save")
        self.program.dialog()
        self.assertEqual(self.program.text("fileNameEdit"), "")
        self.screen.key("Escape")
        self.program.no_dialog()

    def test_the_sheets_to_tape_stay_ticked_and_the_plans_do_not(self):
        self.program.click("Print")
        self.program.click("CheckSide")
        self.program.click("CheckOverlap")
        self.program.click("PrintCommand")
        self.program.button("Cancel")
        self.screen.key("Escape")
        self.program.no_dialog()
        self.start_again()
        self.program.click("Print")
        wait_for(lambda: self.program.find("CheckOverlap"), "the print form")
        self.assertTrue(self.program.get("CheckOverlap").checked)
        self.assertFalse(self.program.get("CheckSide").checked)
        self.program.click("CancelCommand")

    def open_help(self):
        self.program.click("Help")
        wait_for(lambda: self.program.find("HelpBrowser"), "the help window")
        wait_for(lambda: self.program.get("HelpWindow").active, "the help window to be in front")
        return self.program.get("HelpWindow")

    def close_help(self):
        self.screen.key("Escape")
        wait_for(lambda: not self.program.find("HelpBrowser"), "the help window to close")

    def test_the_help_stands_where_it_was_put(self):
        first = self.open_help()
        window = self.screen.tool("search", "--onlyvisible", "--name", "^Velna Help$").split()[0]
        self.screen.tool("windowsize", window, 700, 450, "windowmove", window, 300, 200)
        wait_for(lambda: self.program.get("HelpWindow").width == 700, "the larger window")
        wait_for(lambda: self.program.get("HelpWindow").place != first.place, "the help to be moved")
        # Its frame is put there; where it ends up is what counts.
        left = self.still_place("HelpWindow")
        self.close_help()
        self.open_help()
        self.assertEqual(self.still_place("HelpWindow"), left)
        self.close_help()
        self.start_again()
        self.open_help()
        self.assertEqual(self.still_place("HelpWindow"), left)

    def still_place(self, name):
        places = []

        def same():
            places.append(self.program.get(name).place)
            return len(places) > 4 and len({tuple(place) for place in places[-4:]}) == 1

        wait_for(same, f"{name} to stand still")
        return places[-1]


if __name__ == "__main__":
    base.main()
