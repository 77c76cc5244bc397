"""Work that was not saved is there again after the program has been killed, whatever it was doing."""

import signal

import base
import views
from screen import wait_for

QUESTION = "Velna did not end properly the last time."


class Recovery(base.WindowTest):
    starts = False

    def setUp(self):
        super().setUp()
        self.program = self.new_program()
        self.state = self.program.folder / "state" / "velna"

    def new_program(self, **options):
        program = super().new_program(**options)
        # The crash is the program's own, not one that a sanitizer tells of.
        program.env["ASAN_OPTIONS"] += ":handle_segv=0"
        return program

    def works(self):
        return sorted(self.state.glob("unsaved-*.work"))

    def span_of(self, number):
        """A whole span that no other moment has, and the line that a file has for it."""
        return str(1300 + 2 * number), f"\r\n{650 + number}\r\n".encode()

    def type_span(self, number, program=None):
        """A new span of the wing, when it is kept."""
        text, line = self.span_of(number)
        (program or self.program).enter("SpanText", text)
        self.kept(line)
        return text

    def kept(self, line):
        wait_for(lambda: any(line in work.read_bytes() for work in self.works() if work.exists()), "the work to be kept")

    def texts(self, program=None):
        return [c.told.get("text", "") for c in (program or self.program).controls() if c.modal]

    def restore(self, picture=None):
        """The next start, its question, and Restore."""
        self.program.start(wait=False)
        self.program.button("Restore")
        self.assertTrue(any(text.startswith(QUESTION) for text in self.texts()), self.texts())
        if picture:
            self.take(picture)
        self.program.push("Restore")
        self.program.no_dialog()
        wait_for(lambda: self.program.ready("DrawArea"), "the main window")

    # ---- the moments of the kills: each leaves the program in the middle of something

    def at_rest(self):
        pass

    def in_mid_drag(self):
        area = self.program.get("DrawArea")
        span = self.program.number("SpanText") / 2
        zoom = 0.95 * min(area.width / (2 * span), area.height / 800)
        tip = area.at(*views.View(zoom, area.width / 2, (area.height - zoom * 800) / 2, 1).at(span, 190 + 75))
        self.screen.press(*tip)
        self.screen.drag_to(tip, (tip[0], tip[1] + 31))
        wait_for(lambda: self.program.text("PosEText") != "10", "the tip to follow")

    def with_open(self):
        self.program.click("Open")
        self.program.dialog()

    def with_preferences(self):
        self.program.click("Prefs")
        self.program.dialog("Preferences")

    def with_a_number_half_typed(self):
        self.program.enter("LengthBText", "23", commit=None)

    def in_a_flight(self):
        self.program.click("FlyingPreview")
        wait_for(lambda: (c := self.program.find("FlyingPreview")) and c.checked, "the flight")

    def with_the_menu(self):
        self.screen.click(*self.program.get("DrawArea").at(5, 5), button=3)
        wait_for(lambda: self.program.of_kind("QMenu"), "the popup menu")

    def with_a_failed_save(self):
        self.program.click("Save")
        self.program.choose_file("/sys/velna.vln")
        self.program.button("OK")

    def at_the_quit_question(self):
        self.screen.key("alt+F4")
        self.program.button("Yes")

    def in_the_manager(self):
        self.program.click("Manager")
        self.program.dialog("Fuselage Manager")

    def test_ten_kills_in_mid_work(self):
        moments = (self.at_rest, self.in_mid_drag, self.with_open, self.with_preferences, self.with_a_number_half_typed,
                   self.in_a_flight, self.with_the_menu, self.with_a_failed_save, self.at_the_quit_question,
                   self.in_the_manager)
        self.program.start()
        for number, moment in enumerate(moments):
            with self.subTest(moment.__name__):
                span = self.type_span(number)
                moment()
                self.program.die(signal.SIGKILL if number % 2 == 0 else signal.SIGSEGV)
                self.screen.tool("mouseup", 1)
                self.restore(picture="restore" if number == 0 else None)
                self.assertEqual(self.program.text("SpanText"), span)
                self.assertEqual(self.program.text("LengthBText"), "230")
                self.assertEqual(self.program.text("PosEText"), "10")
        # Nothing but the program's own place in the folder has come of it.
        self.assertEqual([p.name for p in sorted(self.state.iterdir())], ["unsaved-1.lock", "unsaved-1.work"])

    def test_a_kill_at_the_question_and_one_before_any_change_cost_nothing(self):
        self.program.start()
        span = self.type_span(1)
        self.program.die(signal.SIGKILL)
        self.program.start(wait=False)
        self.program.button("Restore")
        self.program.die(signal.SIGSEGV)
        self.restore()
        self.program.die(signal.SIGKILL)
        self.restore()
        self.assertEqual(self.program.text("SpanText"), span)

    def test_what_is_kept_under_an_open_dialog_comes_back(self):
        self.program.start()
        self.program.enter("SpanText", "1444")
        self.program.click("Prefs")
        self.program.dialog("Preferences")
        self.kept(b"\r\n722\r\n")
        self.program.die(signal.SIGKILL)
        self.restore()
        self.assertEqual(self.program.text("SpanText"), "1444")

    def test_two_programs_killed_at_once_each_leave_their_own(self):
        one, other = self.program, self.new_program()
        for program in (one, other):
            program.env["XDG_STATE_HOME"] = str(self.state.parent)
        one.start()
        self.type_span(1, one)
        other.start()
        self.assertEqual(self.texts(other), [])
        self.type_span(2, other)
        self.assertEqual(len(self.works()), 2)
        for program in (one, other):
            program.process.kill()
        one.die(signal.SIGKILL)
        other.die(signal.SIGKILL)

        other.start(wait=False)
        other.button("Restore")
        self.assertTrue(any("Older work that was not saved: 1 project." in text for text in self.texts(other)))
        self.take("restore-of-two")
        other.push("Restore")
        other.no_dialog()
        self.assertEqual(other.text("SpanText"), self.span_of(2)[0])
        one.start(wait=False)
        one.push("Restore")
        one.no_dialog()
        self.assertEqual(one.text("SpanText"), self.span_of(1)[0])

    def test_the_restored_project_has_its_name_and_asks_before_it_is_lost(self):
        self.program.start()
        named = self.program.folder / "named.vln"
        self.program.save(named)
        before = named.read_bytes()
        self.type_span(3)
        self.program.die(signal.SIGSEGV)
        self.program.start(wait=False)
        self.program.button("Restore")
        self.assertTrue(any(str(named) in text for text in self.texts()), self.texts())
        self.program.push("Restore")
        self.program.no_dialog()
        self.assertEqual(named.read_bytes(), before)
        self.program.open(named)
        self.program.push("No")  # to the question about the unsaved project
        self.program.no_dialog()
        self.assertEqual(self.program.text("SpanText"), self.span_of(3)[0])

    def test_discard_and_keep_for_later(self):
        self.program.start()
        self.type_span(1)
        self.program.die(signal.SIGKILL)
        self.program.start(wait=False)
        self.program.push("Keep for later")
        self.program.no_dialog()
        self.assertEqual(self.program.text("SpanText"), "1400")
        self.assertEqual(self.program.quit(), 0)
        self.program.start(wait=False)
        self.program.button("Discard")
        self.screen.key("Escape")  # the same as Keep for later
        self.program.no_dialog()
        self.assertEqual(len(self.works()), 1)
        self.assertEqual(self.program.quit(), 0)
        self.program.start(wait=False)
        self.program.push("Discard")
        self.program.no_dialog()
        self.assertEqual(self.program.text("SpanText"), "1400")
        self.assertEqual(list(self.state.iterdir()), [])

    def test_a_proper_end_and_a_save_leave_nothing(self):
        self.program.start()
        self.type_span(1)
        self.program.save(self.program.folder / "a.vln")
        wait_for(lambda: not list(self.state.iterdir()), "the work to go with the save")
        self.type_span(2)
        self.assertEqual(self.program.quit(), 0)
        self.assertEqual(list(self.state.iterdir()), [])
        self.program.start()
        self.assertEqual(self.texts(), [])

    def test_damaged_work_is_told_once_and_a_folder_that_cannot_be_is_told_once(self):
        self.state.mkdir(parents=True)
        (self.state / "unsaved-4.work").write_bytes(b"\x00noise" * 300)
        self.program.start(wait=False)
        self.program.button("OK")
        self.assertTrue(any("unsaved-4.damaged: it is no recovery file" in text for text in self.texts()), self.texts())
        self.take("damaged-work")
        self.program.push("OK")
        self.program.no_dialog()
        self.assertEqual(self.program.quit(), 0)
        self.assertEqual((self.state / "unsaved-4.damaged").read_bytes(), b"\x00noise" * 300)
        self.program.env["XDG_STATE_HOME"] = str(self.program.binary)
        self.program.start()
        self.program.enter("SpanText", "1300")
        self.program.button("OK")
        self.assertTrue(any("Not a directory" in text for text in self.texts()), self.texts())
        self.take("no-folder")
        self.program.push("OK")
        self.program.no_dialog()
        self.program.enter("SpanText", "1200")
        self.assertEqual(self.program.quit(), 0)


if __name__ == "__main__":
    base.main()
