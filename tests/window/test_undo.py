"""Undo and redo by buttons, menu and keys, in the real window."""

import base
from screen import wait_for


class Undo(base.WindowTest):
    def shows(self, name, text):
        wait_for(lambda: (c := self.program.find(name)) and c.text == text, f"{name} to show {text}")

    def tip(self, name, text):
        wait_for(lambda: (c := self.program.find(name)) and c.told.get("tip") == text, f"{name}'s tip {text}")

    def to_drawing(self):
        self.screen.click(*self.program.get("DrawArea").at(15, 15))

    def test_typed_numbers_come_back_by_buttons_menu_and_keys(self):
        program = self.program
        program.tab(1)
        self.tip("Undo", "Undo (Alt+Backspace)")
        program.enter("LengthEText", "77")
        program.enter("LengthBText", "200")
        self.tip("Undo", "Undo Root chord (Alt+Backspace)")
        program.click("Undo")
        self.shows("LengthBText", "230")
        self.tip("Redo", "Redo Root chord (Alt+Shift+Backspace)")
        program.popup("UndoStep")
        self.shows("LengthEText", "150")
        program.popup("RedoStep")
        self.shows("LengthEText", "77")
        self.to_drawing()
        self.screen.key("alt+shift+BackSpace")
        self.shows("LengthBText", "200")
        self.screen.key("alt+BackSpace")
        self.shows("LengthBText", "230")
        self.take("undo", program.get("Bar"))
        program.click("Redo")
        self.shows("LengthBText", "200")

    def test_the_key_in_a_field_takes_the_number_first(self):
        program = self.program
        program.tab(1)
        program.enter("LengthEText", "77")
        program.enter("SpanText", "1600", commit=None)
        self.screen.key("alt+BackSpace")
        self.shows("SpanText", "1400")
        self.shows("LengthEText", "77")
        self.screen.key("alt+shift+BackSpace")
        self.shows("SpanText", "1600")

    def test_one_visit_is_one_step(self):
        program = self.program
        program.tab(1)
        program.enter("SpanText", "1600")
        self.screen.type("5")
        self.screen.key("Return")
        program.enter("LengthEText", "77")
        program.click("Undo")
        self.shows("LengthEText", "150")
        program.click("Undo")
        self.shows("SpanText", "1400")

    def test_a_drag_and_a_slider_are_one_step_each(self):
        program = self.program
        program.tab(1)
        area = program.get("DrawArea")
        zoom = 0.95 * min(area.width / 1400, area.height / 800)
        tip = round(area.width / 2 + zoom * 700), round((area.height - zoom * 800) / 2 + zoom * 265)
        program.drag(tip, (tip[0], tip[1] + 30), steps=12)
        wait_for(lambda: program.text("PosEText") != "10", "the drag")
        self.tip("Undo", "Undo Tip sweep (Alt+Backspace)")
        program.tab(0)
        slider = program.get("CurvatureSlider")
        start = program.value("CurvatureSlider")
        thumb = 8  # half of its height
        handle = slider.middle[0], round(slider.top + slider.height - thumb
                                         - (start - 1) / 349 * (slider.height - 2 * thumb))
        self.screen.drag(handle, (handle[0], handle[1] - 30), steps=10)
        wait_for(lambda: program.value("CurvatureSlider") != start, "the slider")
        program.click("Undo")
        wait_for(lambda: program.value("CurvatureSlider") == start, "the slider back")
        program.click("Undo")
        program.tab(1)
        self.shows("PosEText", "10")
        self.tip("Undo", "Undo (Alt+Backspace)")

    def test_ctrl_z_waits_for_its_tick(self):
        program = self.program
        program.tab(1)
        program.enter("LengthEText", "77")
        program.click("Side")
        self.to_drawing()
        self.screen.key("ctrl+z")
        wait_for(lambda: program.get("VTop").told["checked"], "Z to be the top view")
        program.tab(1)
        self.shows("LengthEText", "77")
        program.click("Prefs")
        program.dialog("Preferences")
        program.click("CtrlZCheck")
        self.take("preferences")
        program.click("CloseCommand")
        program.no_dialog()
        program.click("Side")
        self.to_drawing()
        self.screen.key("ctrl+z")
        program.tab(1)
        self.shows("LengthEText", "150")
        program.click("LengthEText")
        self.screen.key("ctrl+y")
        self.shows("LengthEText", "77")
        self.assertTrue(program.get("Side").told["checked"], "the view stays where it is")
        program.quit()
        program.start()
        program.tab(1)
        program.enter("LengthEText", "78")
        self.screen.key("ctrl+z")
        self.shows("LengthEText", "150")

    def test_new_brings_back_what_was_not_saved(self):
        program = self.program
        program.tab(1)
        program.enter("LengthEText", "77")
        program.click("New")
        program.push("Yes")
        program.no_dialog()
        self.shows("LengthEText", "150")
        self.tip("Undo", "Undo New (Alt+Backspace)")
        program.click("Undo")
        self.shows("LengthEText", "77")


if __name__ == "__main__":
    base.main()
