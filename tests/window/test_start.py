"""Start and end of the program: what stands at first, what is asked, what prefs.txt holds."""

import os

import base
from screen import PATIENCE, wait_for


class Start(base.WindowTest):
    starts = False

    def test_opens_in_the_top_view_with_the_wing_tab(self):
        program = self.new_program().start()
        self.assertTrue(program.get("VTop").checked)
        self.assertFalse(program.get("HTop").enabled)
        self.assertEqual(program.get("Main").window, "Velna V2.2.1")
        self.assertEqual(program.text("LengthBText"), "230")
        self.assertEqual(program.text("SpanText"), "1400")
        self.looks("start")

    def test_all_five_tabs_are_inside_the_panel(self):
        program = self.new_program().start()
        panel = program.get("Parameters")
        bar = next(c for c in program.controls() if "tabs" in c.told)
        self.assertEqual(len(bar.tabs), 5)
        for tab in bar.tabs:
            left, _, width, _ = tab["place"]
            self.assertGreaterEqual(left, panel.left)
            self.assertLessEqual(left + width, panel.left + panel.width)

    def test_nothing_overlaps_and_nothing_is_cut_off(self):
        program = self.new_program().start()
        parts = [program.get(name) for name in ("Bar", "Parameters", "DrawArea")] + [program.picture()]
        for part in parts:
            self.assertGreaterEqual(part.left, 0)
            self.assertLessEqual(part.left + part.width, self.screen.size[0])
            self.assertLessEqual(part.top + part.height, self.screen.size[1])
        for one in parts:
            for other in parts:
                if one is not other:
                    apart = (one.left + one.width <= other.left or other.left + other.width <= one.left or
                             one.top + one.height <= other.top or other.top + other.height <= one.top)
                    self.assertTrue(apart, f"{one.name} overlaps {other.name}")

    def test_without_prefs_starts_quietly_and_writes_them_at_the_end(self):
        program = self.new_program(prefs=None).start()
        self.assertEqual([c for c in program.controls() if c.modal], [])
        self.assertEqual(program.quit(), 0)
        self.assertEqual((program.folder / "prefs.txt").read_bytes(), b'"Done"\r\n#FALSE#\r\n#TRUE#\r\n')

    def test_a_folder_whose_name_is_no_text_is_found(self):
        program = self.new_program(prefs='"Done"\r\n#TRUE#\r\n#FALSE#\r\n', below=os.fsdecode(b"gl\xfcck"))
        program.start()
        wait_for(lambda: program.text("SpanText") == "55.12", "the inches that its settings ask for")
        program.click("Help")
        wait_for(lambda: program.find("HelpBrowser"), "the help window")
        self.assertIn("Velna draws radio-controlled", program.text("HelpBrowser"))
        self.screen.key("Escape")
        wait_for(lambda: not program.find("HelpBrowser"), "the help window to close")
        (program.installed / "prefs.txt").unlink()
        self.assertEqual(program.quit(), 0)
        self.assertTrue((program.installed / "prefs.txt").exists())

    def test_an_installed_program_leaves_its_folder_alone_whoever_starts_it(self):
        program = self.new_program(prefs='"Done"\r\n#TRUE#\r\n#FALSE#\r\n', below="libexec/velna")
        before = {path.name: path.read_bytes() for path in program.installed.iterdir() if path != program.binary}
        program.start()
        wait_for(lambda: program.text("SpanText") == "55.12", "the inches of the settings that came with it")
        self.assertEqual(program.quit(), 0)
        after = {path.name: path.read_bytes() for path in program.installed.iterdir() if path != program.binary}
        self.assertEqual(after, before)
        self.assertEqual((program.folder / "config/velna/prefs.txt").read_bytes(), b'"Done"\r\n#TRUE#\r\n#FALSE#\r\n')

    def test_the_desktop_knows_the_window_by_its_entry(self):
        self.new_program().start()
        window = self.screen.tool("search", "--onlyvisible", "--name", "^Velna V").split()[0]
        told = self.screen.asked("xprop", "-id", window, "WM_CLASS")
        self.assertIn('WM_CLASS(STRING) = "velna", "velna"', told)

    def test_without_any_opengl_it_tells_so_and_leaves_the_settings_alone(self):
        prefs = '"DoIt"\r\n#TRUE#\r\n#FALSE#\r\n'
        program = self.new_program(prefs=prefs)
        program.env["QT_XCB_GL_INTEGRATION"] = "none"
        program.start(wait=False)
        program.dialog("Fatal Error In Velna")
        texts = [c.told.get("text") for c in program.controls()]
        self.assertIn("Fatal Error: Could not retrieve pixel format!", texts)
        self.take("fatal")
        self.screen.key("Return")
        self.assertEqual(program.process.wait(PATIENCE), 1)
        program.process = None
        self.assertEqual((program.folder / "prefs.txt").read_bytes(), prefs.encode())

    def test_quit_asks_and_no_goes_on(self):
        program = self.new_program().start()
        self.screen.key("alt+F4")
        program.dialog()
        texts = [c.told.get("text") for c in program.controls()]
        self.assertIn("Do you really want to quit Velna ?", texts)
        self.take("quit")
        self.screen.key("Return")  # No is the default
        program.no_dialog()
        self.assertIsNone(program.process.poll())
        self.screen.key("alt+F4")
        program.dialog()
        self.screen.key("Escape")
        program.no_dialog()
        self.assertEqual(program.quit(), 0)

    def test_stored_inches_convert_the_default_aircraft(self):
        program = self.new_program(prefs='"Done"\r\n#TRUE#\r\n#FALSE#\r\n').start()
        wait_for(lambda: program.text("LengthBText") == "9.06", "the chord in inches")
        self.assertEqual(program.text("SpanText"), "55.12")
        self.assertEqual(program.quit(), 0)
        self.assertEqual((program.folder / "prefs.txt").read_bytes(), b'"Done"\r\n#TRUE#\r\n#FALSE#\r\n')

    def test_the_window_stays_maximised(self):
        program = self.new_program().start()
        before = program.get("DrawArea").place
        window = self.screen.tool("search", "--onlyvisible", "--name", "^Velna V").split()[0]
        with self.screen.watch("xprop", "-spy", "-id", window, "_NET_WM_STATE") as states:
            # Each change of the state writes a line; the restored state itself may be over before it is read.
            def restored():
                self.screen.tool("mousemove", 640, 9, "click", "--repeat", 2, "--delay", 60, 1)
                try:
                    return wait_for(lambda: len(states()) > 1, "a change", 5)
                except AssertionError:  # two clicks too far apart for a double one
                    return False

            wait_for(restored, "the window to be restored")
            wait_for(lambda: "MAXIMIZED" in states()[-1], "the window to be maximised again")
        wait_for(lambda: program.get("DrawArea").place == before, "the layout to be as it was")


if __name__ == "__main__":
    base.main()
