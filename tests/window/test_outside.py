"""Files from outside: on the command line, dropped on the window, chosen among the recent ones; and the keys that
stand beside the told ones."""

import os
import shutil
import subprocess
import urllib.parse

import base
from screen import PATIENCE, wait_for

EXAMPLES = base.HERE.parents[1] / "examples"
UNSAVED = "The current project has not been saved and will be lost\nDo you want to proceed ?"


class Outside(base.WindowTest):
    starts = False

    def setUp(self):
        super().setUp()
        self.program = self.new_program()
        self.glider = shutil.copy(EXAMPLES / "glider.vln", self.program.folder / "glider.vln")
        self.twin = shutil.copy(EXAMPLES / "twin_hull.vln", self.program.folder / "twin_hull.vln")

    def texts(self):
        return [c.told.get("text", "") for c in self.program.controls() if c.modal]

    def told(self, *words):
        """The one message box says all of `words`, and is closed."""
        self.program.button("OK")
        self.assertTrue(any(all(word in text for word in words) for text in self.texts()), self.texts())
        self.program.push("OK")
        self.program.no_dialog()

    def is_open(self, name):
        def saved_name():
            self.program.click("MoreSaves")
            entry = wait_for(lambda: self.entries("MoreSavesMenu"), "the menu beside Save")[0]
            self.screen.key("Escape")
            wait_for(lambda: not self.entries("MoreSavesMenu"), "the menu to close")
            return entry["text"].replace("&", "")

        wait_for(lambda: saved_name() == f"Save {name} again\tShift+F12", f"{name} to be open")

    def entries(self, menu):
        found = self.program.find(menu)
        return found.entries if found else []

    def choose(self, arrow, entry):
        """Opens the menu beside a key of the toolbar, and chooses an entry."""
        self.program.click(arrow)
        entries = wait_for(lambda: self.entries(arrow + "Menu"), "the menu")
        x, y, width, height = next(e for e in entries if e["name"] == entry)["place"]
        self.screen.click(x + width // 2, y + height // 2)

    # ---- the command line

    def run_with(self, *words):
        """The program to its end, without a screen."""
        env = {k: v for k, v in self.program.env.items() if k not in ("DISPLAY", "QT_QPA_GENERIC_PLUGINS")}
        ended = subprocess.run([self.program.binary, *words], env=env, cwd=self.program.folder, capture_output=True)
        return ended.returncode, ended.stdout.decode(), ended.stderr.decode()

    def test_version_help_and_what_is_unknown_need_no_screen(self):
        self.assertEqual(self.run_with("--version"), (0, "Velna 2.2.1\n", ""))
        status, out, err = self.run_with("--help")
        self.assertEqual((status, err), (0, ""))
        self.assertTrue(out.startswith("Usage: velna [FILE]\n"), out)
        for words in (["--bogus"], ["a.vln", "b.vln"], [""]):
            status, nothing, complaint = self.run_with(*words)
            self.assertEqual((status, nothing), (2, ""))
            self.assertRegex(complaint, r"^velna: .*\nUsage: velna \[FILE\]\n(.*\n)*velna --help tells more\.\n$")

    def test_a_project_is_opened_and_the_demonstration_stays_due(self):
        prefs = self.program.folder / "prefs.txt"
        prefs.write_bytes(b'"DoIt"\r\n#FALSE#\r\n#TRUE#\r\n')
        self.program.start(words=["glider.vln"])
        self.assertEqual(self.texts(), [])
        self.is_open("glider.vln")
        self.take("opened-by-name")
        self.assertEqual(self.program.quit(), 0)
        self.assertTrue(prefs.read_bytes().startswith(b'"DoIt"'))

    def test_an_airfoil_and_a_picture_do_what_open_does(self):
        self.program.start(words=[EXAMPLES / "airfoils" / "naca0009.xy"])
        wait_for(lambda: abs(self.program.number("ThicknessBText") - 0.09) < 0.002, "the airfoil")
        self.assertEqual(self.program.quit(), 0)
        self.program.start(words=[EXAMPLES / "trainer_wing.bmp"])
        self.assertEqual(self.texts(), [])
        self.program.save(self.program.folder / "textured.vln")
        self.assertTrue((self.program.folder / "trainer_wing.bmp").exists())

    def test_what_cannot_be_opened_is_told_and_the_program_goes_on(self):
        os.mkfifo(self.program.folder / "pipe.vln")
        odd = os.fsdecode(b"gl\xfcck\n.vln")
        for word, reason in (("/dev/zero", "not a regular file"), ("pipe.vln", "not a regular file"),
                             (".", "not a regular file"), ("missing.vln", "No such file"), (odd, "No such file")):
            with self.subTest(word):
                self.program.start(words=[word], wait=False)
                self.told("could not be opened. The aircraft stays as it is.", reason)
                wait_for(lambda: self.program.ready("DrawArea"), "the main window")
                self.assertEqual(self.program.text("SpanText"), "1400")
                self.assertEqual(self.program.quit(), 0)

    def test_a_name_of_odd_bytes_is_opened(self):
        name = os.fsdecode(b"gl\xfcck.vln")
        os.rename(self.glider, self.program.folder / name)
        self.program.start(words=[name])
        self.assertEqual(self.texts(), [])
        wait_for(lambda: self.program.text("SpanText") != "1400", "the glider")

    # ---- drops

    def drop(self, addresses, at, result):
        """Drags a list of addresses out of another program, and lets it go at a place of the screen."""
        source = subprocess.Popen([base.BUILD / "plugins" / "velna_drag_source"], env=self.screen.env, text=True,
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.addCleanup(self.end, source)
        source.stdin.write("".join(address + "\r\n" for address in addresses))
        source.stdin.close()
        self.assertEqual(source.stdout.readline().strip(), "ready")
        x, y = at
        self.screen.tool("mousemove", 30, 20, "mousedown", 1, "sleep", 0.1)
        for step in range(1, 9):
            self.screen.tool("mousemove", 30 + (x - 30) * step // 8, 20 + (y - 20) * step // 8, "sleep", 0.05)
        self.screen.tool("sleep", 0.3, "mouseup", 1)
        self.assertEqual(source.stdout.readline().strip(), result)

    @staticmethod
    def end(source):
        source.kill()
        source.wait()
        source.stdout.close()

    @staticmethod
    def address(path):
        return "file://" + urllib.parse.quote(os.fsencode(path))

    def test_a_file_dropped_anywhere_on_the_window_is_opened(self):
        self.program.start()
        places = (("DrawArea", "glider.vln", self.glider), ("SpanText", "twin_hull.vln", self.twin),
                  (None, "glider.vln", self.glider), ("Bar", "twin_hull.vln", self.twin))
        for control, title, file in places:
            with self.subTest(control):
                place = (self.program.get(control) if control else self.program.picture()).middle
                self.drop([self.address(file)], place, "taken")
                self.is_open(title)
                self.assertEqual(self.texts(), [])

    def test_a_drop_asks_the_same_question_about_the_unsaved_project(self):
        self.program.start()
        self.program.enter("SpanText", "1234")
        self.drop([self.address(self.glider)], self.program.get("DrawArea").middle, "taken")
        self.program.button("No")
        self.assertIn(UNSAVED, self.texts())
        self.take("drop-question")
        self.program.push("No")
        self.program.no_dialog()
        self.assertEqual(self.program.text("SpanText"), "1234")

    def test_other_drops_are_told_in_one_message(self):
        self.program.start()
        middle = self.program.get("DrawArea").middle
        odd = self.program.folder / os.fsdecode(b"gl\xfcck.vln")
        shutil.copy(self.glider, odd)
        for addresses, words in (([self.address(self.program.folder)], ["not a regular file"]),
                                 ([self.address(self.glider)] * 1000, ["1000 files", "one file at a time"]),
                                 (["https://models.example/a.vln"], ["It is no file of this computer."])):
            self.drop(addresses, middle, "taken")
            self.told("could not be opened. The aircraft stays as it is.", *words)
        self.assertEqual(self.program.text("SpanText"), "1400")
        self.drop([self.address(odd)], middle, "taken")
        wait_for(lambda: self.program.text("SpanText") != "1400", "the file of odd bytes")

    def test_a_dialog_takes_no_drop(self):
        self.program.start()
        self.program.click("Prefs")
        self.program.dialog("Preferences")
        area = self.program.get("DrawArea")
        self.drop([self.address(self.glider)], area.at(10, area.height - 10), "refused")
        self.program.click("CancelCommand")
        self.program.no_dialog()
        self.assertEqual(self.program.text("SpanText"), "1400")

    # ---- recent projects, save again, keys

    def test_recent_projects_hang_on_an_arrow_beside_open(self):
        self.program.start()
        self.program.click("RecentFiles")
        self.assertEqual([e["enabled"] for e in wait_for(lambda: self.entries("RecentFilesMenu"), "the menu")],
                         [False, False, True, True])
        self.screen.key("Escape")
        for file in (self.glider, self.twin):
            self.program.open(file)
            self.is_open(file.name)
        self.twin.unlink()
        self.program.click("RecentFiles")
        entries = wait_for(lambda: self.entries("RecentFilesMenu"), "the menu")
        self.take("recent")
        self.assertTrue(entries[0]["text"].startswith("&1  twin_hull.vln"), entries)
        self.assertEqual([e["enabled"] for e in entries], [False, True, True, True, True])
        self.screen.key("Escape")
        self.choose("RecentFiles", "Recent2")
        self.is_open("glider.vln")
        self.assertEqual(self.program.quit(), 0)
        self.program.start()
        self.choose("RecentFiles", "Recent1")
        self.is_open("glider.vln")
        self.choose("RecentFiles", "ClearRecent")
        self.program.click("RecentFiles")
        self.assertEqual(len(wait_for(lambda: self.entries("RecentFilesMenu"), "the menu")), 4)
        self.screen.key("Escape")

    def test_the_arrows_are_worked_by_the_keyboard(self):
        self.program.start(words=["glider.vln"])
        self.program.enter("SpanText", "1234")
        wait_for(lambda: self.program.find("Open"), "the toolbar")
        for _ in range(60):
            if self.program.get("RecentFiles").focus:
                break
            self.screen.key("Tab")
        self.assertTrue(self.program.get("RecentFiles").focus)
        self.screen.key("space")
        wait_for(lambda: self.entries("RecentFilesMenu"), "the menu")
        self.screen.key("Down", "Return")
        self.program.button("No")
        self.assertIn(UNSAVED, self.texts())
        self.program.push("No")

    def test_save_again_asks_nothing(self):
        self.program.start(words=["glider.vln"])
        before = self.glider.read_bytes()
        self.program.enter("SpanText", "1234")
        self.choose("MoreSaves", "SaveAgain")
        wait_for(lambda: self.glider.read_bytes() != before, "the project to be saved")
        self.assertEqual(self.texts(), [])
        once = self.glider.read_bytes()
        # Also what has been typed and not yet been taken.
        self.program.enter("SpanText", "1236", commit=None)
        self.screen.key("shift+F12")
        wait_for(lambda: self.glider.read_bytes() != once, "the project to be saved again")
        self.assertIn(b"\r\n618\r\n", self.glider.read_bytes())

    def test_save_again_asks_for_a_name_where_there_is_none(self):
        self.program.start()
        self.screen.key("shift+F12")
        self.program.choose_file(self.program.folder / "first.vln")
        wait_for((self.program.folder / "first.vln").exists, "the project")
        self.program.no_dialog()
        self.is_open("first.vln")

    def test_free_keys_work_everywhere_and_ctrl_s_waits_for_its_tick(self):
        self.program.start(words=["glider.vln"])
        before = self.glider.read_bytes()
        for focused in ("DrawArea", "SpanText"):
            self.program.click(focused) if focused == "SpanText" else self.screen.click(
                *self.program.get("DrawArea").at(5, 5))
            self.screen.key("ctrl+n")
            self.program.button("No")
            self.assertIn("Do you really want to reset your project ?", self.texts())
            self.program.push("No")
            self.program.no_dialog()
            self.screen.key("ctrl+p")
            self.program.dialog("Select Views")
            self.program.click("CancelCommand")
            self.program.no_dialog()
            self.screen.key("ctrl+s")
            self.screen.key("ctrl+q")
            self.program.button("No")
            self.assertIn("Do you really want to quit Velna ?", self.texts())
            self.program.push("No")
            self.program.no_dialog()
        self.assertEqual(self.glider.read_bytes(), before)
        self.screen.key("ctrl+q")
        self.program.push("Yes")
        self.assertEqual(self.program.process.wait(PATIENCE), 0)

        settings = self.program.folder / "config" / "velna" / "settings.txt"
        settings.write_bytes(settings.read_bytes() + b"ctrl-z-undoes=yes\r\n")
        self.program.start(words=["glider.vln"])
        self.program.enter("SpanText", "1234")
        self.screen.key("ctrl+s")
        wait_for(lambda: self.glider.read_bytes() != before, "Ctrl+S to save")
        self.assertEqual(self.texts(), [])


if __name__ == "__main__":
    base.main()
