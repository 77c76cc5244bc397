"""Every handle of every object dragged in each view, with and without Shift, by a real mouse."""

import math

import base
import views
from screen import wait_for


class Drags(base.WindowTest):
    def check_handle(self, view, handle):
        """Out: the panel shows the new value while the button is held. Back: it shows the old one again."""
        area = self.program.get("DrawArea")
        start = area.at(*handle.place)
        end = start[0] + handle.way[0], start[1] + handle.way[1]
        self.screen.move(start[0] + 40, start[1] + 40)
        self.screen.hover(*start)
        with self.screen.held(["shift"] if handle.shift else []):
            self.screen.press(*start)
            self.screen.drag_to(start, end)
            for field, (value, right, down) in handle.fields.items():
                shown = value + (handle.way[0] * right + handle.way[1] * down) / view.zoom
                self.check_shows(field, math.floor(shown), handle)
            self.screen.drag_to(end, start)
            for field, (value, _, _) in handle.fields.items():
                self.check_shows(field, value, handle)
            self.screen.release()

    def check_shows(self, field, value, handle):
        def shows():
            control = self.program.find(field)
            return control is not None and control.text == str(value)

        try:
            wait_for(shows, "")
        except AssertionError:
            control = self.program.find(field)
            self.take(f"drag-{handle.name.replace(' ', '-')}")
            self.fail(f"{handle.name}: {field} shows {control.text if control else 'nothing'}, expected {value}")

    def check_view(self, button, handles):
        area = self.program.get("DrawArea")
        view, rows = handles(area.width, area.height)
        for tab, handle in rows:
            with self.subTest(handle.name):
                self.program.click(button)
                self.check_handle(view, handle)
                self.assertEqual(self.program.get("Parameters").told.get("value", tab), tab)
        self.program.click(button)
        self.take(f"view-{button}", self.program.get("DrawArea"))

    def test_vtop_edits_wing_stabiliser_and_fuselage(self):
        self.check_view("VTop", views.vtop_handles)

    def test_front_edits_wing_stabiliser_and_fin(self):
        self.check_view("Front", views.front_handles)

    def test_side_edits_sections(self):
        self.check_view("Side", views.side_handles)

    def test_side_edits_the_fin_which_the_rudder_tab_brings_into_view(self):
        self.program.click("Side")
        self.program.tab(3)
        area = self.program.get("DrawArea")
        view, rows = views.fin_handles(area.width, area.height)
        for _, handle in rows:
            with self.subTest(handle.name):
                self.screen.move(*area.at(30, 30))
                self.screen.key("c")
                self.check_handle(view, handle)
        self.take("view-Side-rudder", area)

    def test_a_menu_opened_in_mid_drag_ends_it(self):
        area = self.program.get("DrawArea")
        view, rows = views.vtop_handles(area.width, area.height)
        handle = next(row for _, row in rows if "PosEText" in row.fields and not row.shift)
        start = area.at(*handle.place)
        self.program.click("VTop")
        self.screen.move(start[0] + 40, start[1] + 40)
        self.screen.press(*start)
        self.screen.drag_to(start, (start[0], start[1] + 20))
        wait_for(lambda: self.program.text("PosEText") != "10", "the drag")
        self.screen.tool("click", 3)
        wait_for(lambda: self.program.of_kind("QMenu"), "the menu")
        self.screen.release()
        self.screen.key("Escape")
        wait_for(lambda: not self.program.of_kind("QMenu"), "the menu to close")
        left = self.program.text("PosEText")
        self.screen.drag_to((start[0], start[1] + 20), (start[0], start[1] + 80))
        self.assertEqual(self.program.text("PosEText"), left)

    def test_htop_edits_widths(self):
        self.program.click("Side")
        self.check_view("HTop", views.htop_handles)

    def test_boxes_move_in_side_and_htop_under_their_tab(self):
        for button, key in (("Side", "c"), ("HTop", "v")):
            self.program.click(button)
            self.program.tab(4)
            area = self.program.get("DrawArea")
            self.screen.move(*area.at(30, 30))
            self.screen.key(key)
            view, handles = views.box_handles(area.width, area.height, button)
            for handle in handles:
                with self.subTest(f"{handle.name} in {button}"):
                    self.screen.key(key)
                    self.check_handle(view, handle)
            self.take(f"boxes-{button}", area)


if __name__ == "__main__":
    base.main()
