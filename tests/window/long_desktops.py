"""The program under a window manager of a desktop that many have."""

import base
from screen import Screen, wait_for


class Xfce(base.WindowTest):
    @classmethod
    def new_screen(cls):
        return Screen(cls.size, ["dbus-launch", "xfwm4", "--compositor=off"])

    def states(self):
        window = self.screen.tool("search", "--onlyvisible", "--name", "^Velna V").split()[0]
        return self.screen.asked("xprop", "-id", window, "_NET_WM_STATE")

    def test_a_window_dragged_by_its_title_bar_is_maximised_again(self):
        before = self.program.get("DrawArea").place
        title = self.screen.size[0] // 2, 10
        self.screen.tool("mousemove", *title, "sleep", 0.2, "mousedown", 1)
        try:
            for step in range(1, 40):
                self.screen.tool("mousemove", title[0] + 5 * step, title[1] + 8 * step, "sleep", 0.02)
            wait_for(lambda: "MAXIMIZED" not in self.states(), "the restored window")
            self.take("xfce-dragged")
        finally:
            self.screen.tool("mouseup", 1)
        wait_for(lambda: "MAXIMIZED_VERT" in self.states(), "the maximised window")
        wait_for(lambda: self.program.get("DrawArea").place == before, "the layout as it was")
        self.take("xfce-let-go")


if __name__ == "__main__":
    base.main()
