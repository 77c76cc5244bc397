"""A log-out of the desktop: it is asked for while it can still be called off, whatever is open."""

import subprocess

import base
from screen import PATIENCE, wait_for


class Desktop:
    """The desktop's side of a log-out; `words` is what the program has answered so far."""

    def __init__(self, binary):
        self.process = subprocess.Popen([binary], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.address = self.process.stdout.readline().strip()

    def log_out(self):
        self.process.stdin.write("log out\n")
        self.process.stdin.flush()

    def hear(self):
        return self.process.stdout.readline().strip()

    def end(self):
        self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()


class LogOut(base.WindowTest):
    starts = False

    def setUp(self):
        super().setUp()
        self.desktop = Desktop(base.BUILD / "plugins" / "velna_logout")
        self.addCleanup(self.desktop.end)
        self.program = self.new_program()
        self.program.env["SESSION_MANAGER"] = self.desktop.address
        self.program.start()
        self.assertEqual(self.desktop.hear(), "stays")

    def asked(self):
        self.assertEqual(self.desktop.hear(), "asks")
        wait_for(lambda: "Do you really want to quit Velna ?" in
                 [c.told.get("text") for c in self.program.controls()], "the question")

    def log_out_with_a_yes(self):
        self.desktop.log_out()
        self.asked()
        self.program.push("Yes")
        self.assertEqual([self.desktop.hear(), self.desktop.hear()], ["answered", "ready"])
        self.assertEqual(self.program.process.wait(PATIENCE), 0)
        self.assertEqual((self.program.folder / "prefs.txt").read_bytes(), b'"Done"\r\n#FALSE#\r\n#TRUE#\r\n')

    def test_no_calls_it_off_and_the_next_one_asks_again(self):
        self.program.enter("SpanText", "1234")
        for _ in range(2):
            self.desktop.log_out()
            self.asked()
            self.take("logout")
            self.screen.key("Return")  # No is the default
            self.program.no_dialog()
            self.assertEqual([self.desktop.hear(), self.desktop.hear()], ["called off", "stays"])
            self.assertEqual(self.program.text("SpanText"), "1234")

    def test_yes_ends_the_program_without_a_second_question(self):
        self.log_out_with_a_yes()

    def test_with_a_dialog_open_too(self):
        for opened, title in (("Prefs", "Preferences"), ("Open", None), ("Manager", None), ("Palette", None)):
            with self.subTest(opened):
                if opened != "Prefs":
                    self.setUp()
                self.program.click(opened)
                self.program.dialog(title)
                self.log_out_with_a_yes()

    def test_in_a_flight_too(self):
        self.program.click("FlyingPreview")
        wait_for(lambda: (c := self.program.find("FlyingPreview")) and c.checked, "the flight")
        self.log_out_with_a_yes()


if __name__ == "__main__":
    base.main()
