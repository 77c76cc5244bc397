"""The flight round the aircraft: by mouse and by stick, and the window as before after it."""

import base
from pictures import difference
from screen import wait_for


class FlightTest(base.WindowTest):
    """What both kinds of flight do alike."""

    def take_off(self):
        self.program.click("FlyingPreview")
        wait_for(lambda: self.program.picture().width >= self.screen.size[0] - 2, "the full screen")

    def land(self):
        self.screen.key("Escape")
        wait_for(lambda: self.program.picture().width < self.screen.size[0] - 2, "the window's size")
        wait_for(lambda: not self.program.get("FlyingPreview").checked, "the key to be up")

    def moves(self):
        """Whether the picture changes from one look to the next."""
        return difference(self.take("flight-1"), self.take("flight-2")) > 0

    def same_aircraft(self, before):
        """The project saved now has the bytes of the file saved before the flight."""
        after = self.program.folder / "after.vln"
        self.program.save(after)
        self.assertEqual(after.read_bytes(), before.read_bytes())

    def saved_before(self):
        before = self.program.folder / "before.vln"
        self.program.save(before)
        return before


class FlightByMouse(FlightTest):
    def test_a_flight_fills_the_screen_follows_the_mouse_and_escape_ends_it(self):
        before = self.program.picture().place
        saved = self.saved_before()
        self.take_off()
        wait_for(lambda: self.program.text("FlyingInfo") == "Mouse enabled", "the mode")
        self.screen.move(700, 560)
        self.screen.until_seen_at(700, 560)
        self.take("flight")
        self.assertIsNone(self.program.find("Logo"))
        self.assertIsNone(self.program.find("Hints"))
        self.screen.click(640, 500)
        self.screen.click(640, 500, button=3)
        wait_for(self.moves, "the aircraft to move")
        self.land()
        wait_for(lambda: self.program.picture().place == before, "the window as before")
        self.program.get("Logo")
        self.program.get("Hints")
        self.same_aircraft(saved)

    def test_keys_in_a_flight_reach_no_field_and_no_view(self):
        self.program.click("LengthBText")
        self.take_off()
        self.screen.type("7xz")
        self.screen.key("Return")
        self.land()
        self.assertEqual(self.program.text("LengthBText"), "230")
        self.assertTrue(self.program.get("VTop").checked)
        self.program.enter("LengthBText", "240")
        wait_for(lambda: self.program.text("LengthBText") == "240", "the field to be open again")

    def test_the_toolbar_key_ends_a_flight_too(self):
        self.take_off()
        key = self.program.get("FlyingPreview")
        self.screen.click(*key.middle)
        wait_for(lambda: self.program.picture().width < self.screen.size[0] - 2, "the end of the flight")


class FlightByStick(FlightTest):
    starts = False

    def setUp(self):
        super().setUp()
        self.program = self.new_program()
        self.stick = self.program.plug_in_stick()
        self.program.start()

    def stand_still(self):
        """Each left click halves the speed; what then moves is turned by the stick."""
        middle = self.screen.size[0] // 2, self.screen.size[1] // 2
        before = self.program.seen()["presses"]
        self.screen.click(*middle, times=16)
        self.screen.until_seen("the clicks", lambda seen: seen["presses"] >= before + 16)
        wait_for(lambda: not self.moves(), "the aircraft to stand still")

    def test_each_axis_turns_the_aircraft_and_a_button_makes_it_yaw(self):
        saved = self.saved_before()
        self.take_off()
        wait_for(lambda: self.program.text("FlyingInfo") == "Joystick enabled", "the mode")
        self.stand_still()
        for name, tilt in {"roll": {"x": 20000}, "pitch": {"y": -20000}, "yaw": {"x": -20000, "buttons": 2}}.items():
            with self.subTest(name):
                self.stick.move(**tilt)
                wait_for(self.moves, "the turn")
                self.take(f"flight-{name}")
                self.stick.move()
                wait_for(lambda: not self.moves(), "the turn to end")
        self.land()
        self.same_aircraft(saved)

    def test_the_pointer_does_not_steer_beside_a_stick(self):
        self.take_off()
        self.stand_still()
        self.screen.move(60, self.screen.size[1] - 60)
        self.screen.until_seen_at(60, self.screen.size[1] - 60)
        self.assertFalse(self.moves())

    def test_a_stick_pulled_out_in_flight_leaves_its_last_turn_and_the_next_flight_to_the_mouse(self):
        self.take_off()
        self.stand_still()
        self.stick.move(x=20000)
        wait_for(self.moves, "the turn")
        self.stick.pull_out()
        wait_for(self.moves, "the last turn to go on")
        self.land()
        self.take_off()
        wait_for(lambda: self.program.text("FlyingInfo") == "Mouse enabled", "the mode")


if __name__ == "__main__":
    base.main()
