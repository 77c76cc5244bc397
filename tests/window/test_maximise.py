"""A restored window asks to be maximised until its window manager listens."""

import time

import base
from screen import Screen, wait_for


class AHardOfHearingManager(base.WindowTest):
    @classmethod
    def new_screen(cls):
        return Screen(cls.size, [base.BUILD / "plugins" / "velna_manager"])

    def restore(self, ignored):
        """The window is restored, and so many wishes to be maximised again are ignored."""
        self.told_before = len(self.screen.from_manager())
        self.screen.to_manager.write(f"{ignored}\n")
        self.screen.to_manager.flush()

    def told(self):
        """What the manager has done with each wish since then."""
        return self.screen.from_manager()[self.told_before :]

    def test_it_is_asked_until_it_listens(self):
        before = self.program.get("DrawArea").place
        for _ in range(2):
            self.restore(2)
            wait_for(lambda: self.told()[:3] == ["ignored", "ignored", "granted"], "a third wish")
            wait_for(lambda: self.program.get("DrawArea").place == before, "the layout to be as it was")

    def test_one_that_never_listens_is_left_alone(self):
        self.restore(-1)
        wait_for(lambda: len(self.told()) > 2, "several wishes")
        wait_for(self.silence, "the last wish")
        self.assertEqual(set(self.told()), {"ignored"})
        self.program.enter("SpanText", "1234")
        wait_for(lambda: self.program.text("SpanText") == "1234", "a program that works")

    def silence(self):
        """No wish for several times the pause between two."""
        before = len(self.told())
        time.sleep(3)
        return len(self.told()) == before


if __name__ == "__main__":
    base.main()
