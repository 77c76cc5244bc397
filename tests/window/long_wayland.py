"""The program on a Wayland desktop: through the desktop's X server where it has one, natively where it has none."""

import base
import test_demonstration
import test_logout
from pictures import Picture
from program import Program
from screen import wait_for
from weston import OnWeston


class Wayland(OnWeston, base.WindowTest):
    def lit(self):
        shot = self.take(f"wayland-{self.native}", self.program.picture())
        return Picture(shot).count(lambda r, g, b: r > 30)

    def place(self):
        return self.program.get("Main").place, self.program.picture().place

    def check_picture_and_flight(self):
        wait_for(lambda: self.lit() > 1000, "the picture")
        before = self.place()
        self.program.click("FlyingPreview")
        wait_for(lambda: self.program.get("FlyingPreview").checked, "the flight")
        wait_for(lambda: self.program.picture().width >= self.screen.size[0] - 2, "the full screen")
        self.take(f"wayland-{self.native}-flight")
        self.screen.key("Escape")
        wait_for(lambda: not self.program.get("FlyingPreview").checked, "the end of the flight")
        wait_for(lambda: self.place() == before, "the window as before")
        wait_for(lambda: self.lit() > 1000, "the picture after the flight")
        self.program.enter("SpanText", "1234")
        wait_for(lambda: self.program.text("SpanText") == "1234", "a program that works")


class Natively(Wayland):
    def test_the_picture_shows_and_a_flight_ends_without_ending_the_program(self):
        self.assertEqual(self.program.platform(), "wayland")
        self.check_picture_and_flight()

    def test_what_is_denied_is_told_once(self):
        told = [line for line in self.program.errors().splitlines() if line.strip()]
        self.assertEqual(len(told), 1, told)
        self.assertIn("without an X server", told[0])
        self.assertIn("before a log-out", told[0])

    def test_a_restored_window_is_maximised_again(self):
        before = self.place()
        restore = self.screen.size[0] - 42, -15  # in the frame, which the program draws
        self.screen.click(*restore)
        wait_for(lambda: self.place() != before, "the restored window")
        wait_for(lambda: self.place() == before, "the maximised window")

    def test_an_x_server_that_does_not_answer_leaves_wayland(self):
        self.program.end()
        self.program.process = None
        self.program = self.new_program()
        self.program.env["DISPLAY"] = ":12345"
        self.program.start()
        self.assertEqual(self.program.platform(), "wayland")


class Demonstration(OnWeston, test_demonstration.Demonstration):
    """It ends with the open menu, whose window no press has asked for."""


class LogOut(OnWeston, test_logout.LogOut):
    """A desktop that has no X server is answered too."""


class ThroughX(Wayland):
    native = False
    kind = Program

    def test_the_program_takes_x_by_itself_and_all_works(self):
        self.assertEqual(self.program.platform(), "xcb")
        self.check_picture_and_flight()
        self.assertEqual(self.program.errors().strip(), "")

    def test_the_user_may_choose_otherwise(self):
        self.program.end()
        self.program.process = None
        self.program = self.new_program()
        self.program.env["QT_QPA_PLATFORM"] = "wayland"
        self.program.start()
        self.assertEqual(self.program.platform(), "wayland")


if __name__ == "__main__":
    base.main()
