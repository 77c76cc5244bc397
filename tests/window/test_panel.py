"""Every field of every tab, typed and committed with Enter; the lists, options and sliders."""

import base
import views
from pictures import Picture
from screen import wait_for

FIELDS = {
    1: dict(LengthBText="240", LengthEText="160", PosBText="190", PosEText="20", ElevationBText="55",
            ElevationEText="25", ThicknessBText="0.15", ThicknessEText="0.11", ShiftText="12", SpanText="1500"),
    2: dict(LengthBStabText="140", LengthEStabText="90", PosBStabText="660", PosEStabText="30",
            ElevationBStabText="60", ElevationEStabText="15", ThicknessBStabText="0.1",
            ThicknessEStabText="0.08", ShiftStabText="5", SpanStabText="520"),
    3: dict(LengthBRudderText="155", LengthERudderText="85", PosBRudderText="655", PosERudderText="90",
            ThicknessBRudderText="0.09", ThicknessERudderText="0.07", SpanRudderText="160",
            ShiftRudderText="35", Offset1RudderText="40", Offset2RudderText="-10"),
    0: dict(WidthFuselageText="30", HeightFuselageText="25", ElevationFuselageText="12",
            PosFuselageText="5", ElevOffsetText="2", NbCrossFuselageText="16"),
    4: dict(WidthServoText="16", HeightServoText="26", LengthServoText="33", PosServoText="210",
            ShiftServoText="-7", ElevationServoText="45"),
}
OFFSETS = dict(PosOffsetText="15", ShiftOffsetText="80")


class Panel(base.WindowTest):
    def shows(self, name, text):
        wait_for(lambda: (c := self.program.find(name)) and c.text == text, f"{name} to show {text}")

    def fill(self, tab):
        self.program.tab(tab)
        for name, text in FIELDS[tab].items():
            with self.subTest(name):
                self.program.enter(name, text)
                self.shows(name, text)

    def test_every_field_of_every_tab_is_committed_and_kept(self):
        for tab in FIELDS:
            self.fill(tab)
        area = self.program.get("DrawArea")
        self.program.click("VTop")
        # The fuselage's offsets show after a press on its first line.
        surface = self.find_nose(area)
        self.screen.click(*surface)
        for name, text in OFFSETS.items():
            self.program.enter(name, text)
            self.shows(name, text)
        saved = self.program.folder / "fields.vln"
        self.program.save(saved)
        self.program.quit()

        again = self.new_program().start()
        again.open(saved)
        for tab, fields in FIELDS.items():
            again.tab(tab)
            for name, text in fields.items():
                self.assertEqual(again.text(name), text, name)
            self.take(f"tab-{tab}-filled", again.get("Parameters"))
        second = again.folder / "second.vln"
        again.save(second)
        self.assertEqual(second.read_bytes(), saved.read_bytes())

    def find_nose(self, area):
        """The first line of the fuselage as FIELDS leave it: section 1 at 5, 30 wide."""
        # wing: span 750 - 12 each side + shift 12; stab to 660 + 30 + 90 = 780; 660 + 140 = 800; body to 800
        half, start, end = 750, 5, 800
        zoom = 0.95 * min(area.width / (2 * half), area.height / (end - start))
        yoff = (area.height - zoom * (start + end)) / 2
        return area.at(area.width // 2, round(yoff + zoom * start))

    def test_leaving_a_field_loses_the_last_digit_and_the_next_key_keeps_it(self):
        self.program.enter("LengthBText", "300", commit=None)
        self.program.click("LengthEText")
        self.screen.key("Tab")  # commits the other field only
        self.program.click("Front")
        wait_for(lambda: self.program.get("Front").checked, "the front view")
        self.program.tab(1)
        self.program.enter("PosEText", "10")
        self.program.click("IndexWingPlusButton")
        wait_for(lambda: self.program.value("IndexWingsScroll") == 2, "the second panel")
        self.program.click("IndexWingMinusButton")
        # Each key commits the text before it: the last digit is the one that was lost.
        self.shows("LengthBText", "30")
        self.program.enter("LengthBText", "300", commit="Down")
        self.program.click("VTop")
        self.program.click("IndexWingPlusButton")
        self.program.click("IndexWingMinusButton")
        self.shows("LengthBText", "300")

    def test_walking_through_the_fields_cuts_no_fraction_off(self):
        self.program.enter("LengthBText", "240.5")
        self.program.click("IndexWingPlusButton")
        self.shows("IdWingLabel", "2")
        self.program.click("IndexWingMinusButton")
        self.shows("LengthBText", "240")
        self.program.click("LengthBText")
        self.screen.key("Home", "End", "Return", "Tab", "shift+Tab", "Down")
        # A letter with Alt is no text. The number after it shows that all keys have been seen.
        self.screen.key("alt+x")
        self.program.enter("LengthEText", "99")
        self.shows("LengthEText", "99")
        self.assertEqual(self.program.text("LengthBText"), "240")
        saved = self.program.folder / "fraction.vln"
        self.program.save(saved)
        self.assertIn("240.5", saved.read_text().split())

    def test_a_field_tells_what_the_aircraft_has_not_taken(self):
        def tells(tip):
            wait_for(lambda: self.program.get("LengthBText").tip == tip, f"the tip {tip!r}", 4)

        plain = self.take("field", self.program.get("LengthBText"))
        self.program.enter("LengthBText", "1234", commit=None)
        tells("Enter takes this number")
        self.screen.move(5, 5)
        self.program.click("LengthEText")
        tinted = self.take("field-typed", self.program.get("LengthBText"))
        light = Picture(plain).count(lambda r, g, b: r == g == b == 255)
        self.assertGreater(light, 100)
        self.assertEqual(Picture(tinted).count(lambda r, g, b: r == g == b == 255), 0)
        self.program.click("LengthBText")
        self.screen.key("Return")
        tells("")
        for text, tip in {"1234,5": "Taken: 1234", "1.5mm": "Taken: 1.5", "abc": "Taken: 0"}.items():
            self.program.enter("LengthBText", text)
            tells(tip)
            self.assertEqual(self.program.text("LengthBText"), text)
        self.program.click("IndexWingPlusButton")
        self.program.click("IndexWingMinusButton")
        tells("")
        self.shows("LengthBText", "0")

    def test_a_new_panel_continues_the_wing_outward(self):
        self.program.click("IndexWingPlusButton")
        self.shows("IdWingLabel", "2")
        for name, text in dict(PosBText="190", PosEText="0", LengthBText="150", LengthEText="105",
                               ElevationBText="50", ShiftText="700", SpanText="1820").items():
            self.shows(name, text)
        self.looks("two-panels", self.program.get("DrawArea"))
        self.program.click("IndexWingMinusButton")
        self.shows("IdWingLabel", "1")

    def test_fuselages_are_added_copied_and_removed_after_a_question(self):
        self.program.tab(0)
        self.program.enter("WidthFuselageText", "44")
        self.program.click("IndexFusPlusButton", keys=["ctrl"])
        self.shows("IdFusLabel", "2")
        self.shows("WidthFuselageText", "44")
        self.program.click("IndexFusPlusButton")
        self.shows("IdFusLabel", "3")
        self.shows("WidthFuselageText", "20")
        self.program.click("IndexFusMinusButton")
        self.program.push("No")
        self.shows("IdFusLabel", "3")
        self.program.click("IndexFusMinusButton")
        self.program.push("Yes")
        self.shows("IdFusLabel", "2")

    def test_no_outline_points_grey_all_fields_but_their_own(self):
        self.program.tab(0)
        self.program.enter("NbCrossFuselageText", "0", commit=None)
        self.program.click("IndexFusPlusButton")
        self.shows("IdFusLabel", "2")
        scroll = self.program.get("IndexFusScroll")
        self.screen.click(scroll.left + 6, scroll.middle[1])
        wait_for(lambda: not self.program.get("WidthFuselageText").enabled, "the grey fields")
        self.assertTrue(self.program.get("NbCrossFuselageText").enabled)
        self.program.enter("NbCrossFuselageText", "8", commit=None)
        wait_for(lambda: self.program.get("WidthFuselageText").enabled, "the fields")

    def test_boxes_take_their_size_from_the_catalogue(self):
        self.program.tab(4)
        self.program.click("ReceiverOption")
        combo = self.program.get("ReceiverCombo")
        self.screen.click(*combo.middle)
        self.screen.key("Down", "Return")
        wait_for(lambda: self.program.text("ReceiverCombo") == "Supreme", "the receiver")
        for name, text in dict(LengthServoText="55", WidthServoText="33", HeightServoText="19").items():
            self.shows(name, text)
        self.program.click("VerticalServoOption")
        self.program.click("IndexServosPlusButton")
        self.shows("IdEquipLabel", "2")
        self.assertTrue(self.program.get("ServoOption").checked)
        self.take("electronics", self.program.get("Parameters"))

    def test_sliders_shape_the_section_live(self):
        self.program.click("Side")
        area = self.program.get("DrawSectionArea")
        before = self.take("section-before", area)
        for name in ("CurvatureSlider", "Curvature2Slider", "BiasSlider"):
            with self.subTest(name):
                slider = self.program.get(name)
                value = slider.value
                self.screen.click(slider.middle[0], slider.top + slider.height - 4)
                wait_for(lambda: self.program.value(name) != value, f"{name} to move")
        self.assertEqual(self.program.value("CurvatureSlider"), self.program.value("Curvature2Slider"))
        self.assertNotEqual(before.read_bytes(), self.take("section-after", area).read_bytes())
        self.program.click("LinkedCurvaturesCheck")
        both = self.program.value("Curvature2Slider")
        slider = self.program.get("CurvatureSlider")
        self.screen.click(slider.middle[0], slider.top + 4)
        wait_for(lambda: self.program.value("CurvatureSlider") != both, "the upper half alone")
        self.assertEqual(self.program.value("Curvature2Slider"), both)

    def test_any_text_is_taken_without_harm(self):
        for text in ("", "letters", "1e999", "-0", "1,5", "9" * 300, "1E308", "-1E308"):
            with self.subTest(text):
                self.program.enter("LengthBText", text or " ")
                self.program.running_or_raise()
        self.program.enter("LengthBText", "230")
        self.program.click("Front")
        self.program.click("Side")
        self.program.click("VTop")
        self.assertTrue(self.program.get("VTop").checked)


class Sections(base.WindowTest):
    def sections(self):
        return self.program.get("FuselageScroll").maximum

    def test_ctrl_inserts_between_two_sections_and_removes_one(self):
        for button, fit in (("Side", views.side), ("HTop", views.htop)):
            with self.subTest(button):
                self.program.click(button)
                area = self.program.get("DrawArea")
                view = fit(area.width, area.height)
                middle = 60 if button == "Side" else 0
                gap = area.at(*view.at(350, 50 if button == "Side" else 10))
                self.screen.click(*gap, keys=["ctrl"])
                wait_for(lambda: self.sections() == 4, "the fourth section")
                self.take(f"inserted-{button}", area)
                bar = area.at(*view.at(350, 50 if button == "Side" else -10))
                self.screen.click(*bar, keys=["ctrl"])
                wait_for(lambda: self.sections() == 3, f"three sections again, at {middle}")

    def test_the_menu_arms_an_insertion_for_one_click(self):
        self.program.click("Side")
        area = self.program.get("DrawArea")
        view = views.side(area.width, area.height)
        self.program.popup("InsRem")
        self.screen.click(*area.at(*view.at(350, 50)))
        wait_for(lambda: self.sections() == 4, "the fourth section")
        self.screen.click(*area.at(*view.at(500, 45)))
        self.assertEqual(self.sections(), 4)

    def test_the_menu_comes_and_is_worked_by_keys_too(self):
        self.program.click("Side")
        area = self.program.get("DrawArea")
        gap = area.at(*views.side(area.width, area.height).at(350, 50))
        for number, key in enumerate(("Menu", "shift+F10"), 4):
            with self.subTest(key):
                self.screen.move(*area.at(7, 7))
                wait_for(lambda: self.program.get("DrawArea").focus, "the focus")
                self.screen.key(key)
                menu = wait_for(lambda: (m := self.program.of_kind("PopupMenu", "QMenu")) and m[-1], "the menu")
                self.assertEqual((menu.left, menu.top), area.at(7, 7))
                self.screen.key("Down", "Down", "Return")  # Insert/Remove Section
                wait_for(lambda: not self.program.of_kind("PopupMenu", "QMenu"), "the menu to close")
                self.screen.click(*gap)
                wait_for(lambda: self.sections() == number, f"{number} sections")
                gap = area.at(*views.side(area.width, area.height).at(275, 50))

    def test_smooth_evens_out_the_line(self):
        self.program.click("Side")
        scroll = self.program.get("FuselageScroll")
        self.screen.click(scroll.left + scroll.width - 5, scroll.middle[1])
        wait_for(lambda: self.program.text("FuselageSectionLabel") == "2", "section 2")
        self.assertEqual(self.program.text("HeightFuselageText"), "100")
        self.program.click("SmoothTopCommand")
        self.program.click("HTop")
        self.program.click("SmoothWidthCommand")
        # The panel shows the new numbers when the section is chosen again.
        self.screen.click(scroll.left + 5, scroll.middle[1])
        wait_for(lambda: self.program.text("FuselageSectionLabel") == "1", "section 1")
        self.screen.click(scroll.left + scroll.width - 5, scroll.middle[1])
        wait_for(lambda: self.program.text("FuselageSectionLabel") == "2", "section 2 again")
        # Top line: three quarters of 110 and a quarter of the line from 30 to 40 at 200 of 800, less 10.
        self.shows("HeightFuselageText", "80")
        self.shows("WidthFuselageText", "79")

    def shows(self, name, text):
        wait_for(lambda: self.program.text(name) == text, f"{name} to show {text}")


class Tabs(base.WindowTest):
    def test_only_the_left_button_opens_one(self):
        self.program.tab(3)
        for button in (2, 3):
            self.program.click_tab(1, button)
        # The keys after the clicks show that the clicks have been seen.
        self.program.enter("SpanRudderText", "177")
        wait_for(lambda: self.program.text("SpanRudderText") == "177", "the field of the fin")
        self.assertEqual(self.program.tab_bar().value, 3)


class OnALowScreen(base.WindowTest):
    size = 1024, 420

    def test_the_wheel_scrolls_the_page_and_works_no_control_on_its_way(self):
        self.program.tab(0)
        bar = self.program.get("FuselageScroll")
        self.screen.click(*bar.middle, button=5, times=2)
        wait_for(lambda: self.program.get("FuselageScroll").top < bar.top, "the page to scroll")
        self.assertEqual(self.program.value("FuselageScroll"), 1)


if __name__ == "__main__":
    base.main()
