"""The demonstration of the first use, run by itself: four boxes, a changed wing, a fourth section, an open menu."""

import base
from screen import wait_for

# The settings that a fresh installation starts with.
ASKED_FOR = (base.HERE.parents[1] / "src" / "shell" / "prefs.txt").read_bytes().decode()

# What the menu begins with.
MENU = ["Change", "InsRem", "LoadBitmap", "MoveBitmap", "SizeBitmap", "LockZoom", "ClearBitmap"]


class Demonstration(base.WindowTest):
    starts = False

    def box(self, program, words):
        """The message box with these words, looked at and answered."""
        def look():
            return any(words in c.told.get("text", "") for c in program.controls() if c.modal)

        wait_for(look, f"the box about {words}")
        self.take(f"demonstration-{words.split()[0]}")
        self.assertIn("First use Help", {c.window for c in program.controls() if c.modal})
        program.push("OK")

    def test_it_runs_once_from_the_first_box_to_the_open_menu(self):
        program = self.new_program(prefs=ASKED_FOR).start(wait=False)
        self.box(program, "The cursor will move AUTOMATICALLY")
        self.box(program, "MOUSE edits ...")
        self.box(program, "SHIFT button for horizontal moves ...")
        self.assertNotEqual(program.text("PosEText"), "10")
        self.box(program, "CTRL key for insert/remove sections ...")
        self.assertNotEqual(program.text("SpanText") if program.find("SpanText") else "", "1400")
        menu = wait_for(lambda: (m := program.of_kind("QMenu")) and m, "the open menu")
        self.take("demonstration-end")
        self.assertEqual([entry["name"] for entry in menu[0].entries[:7]], MENU)
        self.screen.key("Escape")
        wait_for(lambda: program.get("FuselageScroll").maximum == 4, "the fourth section")
        self.assertEqual(program.quit(), 0)
        self.assertTrue((program.folder / "prefs.txt").read_bytes().startswith(b'"Done"\r\n'))
        program.start()
        self.assertEqual([c for c in program.controls() if c.modal], [])

    def test_escape_stops_it(self):
        program = self.new_program(prefs=ASKED_FOR).start(wait=False)
        self.box(program, "The cursor will move AUTOMATICALLY")
        self.box(program, "MOUSE edits ...")
        wait_for(lambda: any(c.active for c in program.controls()), "a window that takes the keys")
        self.screen.key("Escape")
        program.no_dialog()
        wait_for(lambda: program.ready("DrawArea"), "the window")
        program.click("Front")
        wait_for(lambda: program.get("Front").checked, "a program that answers")
        self.assertEqual([c for c in program.controls() if c.modal], [])
        self.assertEqual(program.quit(), 0)


if __name__ == "__main__":
    base.main()
