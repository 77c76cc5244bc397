"""Exports and plans through the real dialogs."""

import subprocess

import base
from screen import wait_for

DATA = base.HERE.parent / "data"


def expected(name):
    """The stored file of the default aircraft, wherever the tests of the exports keep it."""
    found = sorted(base.HERE.parent.rglob(f"default.{name}"))
    if not found:
        raise AssertionError(f"no stored default.{name}")
    return found[0].read_bytes()


def choose_printer_file(program, file):
    """Answers the system's print dialog: into a PDF file."""
    program.dialog("Print")
    edit = wait_for(lambda: program.find("filename"), "the field of the file")
    program.screen.click(*edit.middle)
    program.screen.key("ctrl+a")
    program.screen.type(str(file))
    wait_for(lambda: program.text("filename") == str(file), "the typed name")
    program.push("Print")


def print_plans(program, boxes, file):
    """The Print command with just these boxes ticked."""
    program.click("Print")
    program.dialog("Select Views")
    for name in ("CheckSide", "CheckHtop", "CheckSections", "CheckVtop", "CheckFront", "CheckWing", "CheckRibs",
                 "CheckOverlap"):
        if program.get(name).checked != (name in boxes):
            program.click(name)
            wait_for(lambda: program.get(name).checked == (name in boxes), name)
    program.click("PrintCommand")
    if boxes:
        choose_printer_file(program, file)


class Output(base.WindowTest):
    def test_the_model_is_exported_as_stored(self):
        file = self.program.folder / "plane.wrl"
        self.program.save(file, "VRML")
        self.assertEqual(file.read_bytes(), expected("wrl"))

    def test_each_view_is_exported_as_its_drawing(self):
        for view in ("VTop", "Front", "Side", "HTop"):
            with self.subTest(view):
                self.program.click(view)
                file = self.program.folder / f"{view}.dxf"
                self.program.save(file, "DXF")
                self.assertEqual(file.read_bytes(), expected(f"{view}.dxf"))

    def test_solids_are_written_in_one_file_or_a_file_a_part(self):
        file = self.program.folder / "plane.stl"
        self.program.save(file, "STL", settle=False)
        self.program.dialog("Solids")
        self.take("solids", self.program.dialog())
        self.program.click("SaveCommand")
        self.program.no_dialog()
        wait_for(file.exists, "the solids")
        self.assertEqual(file.stat().st_size, 84 + 50 * int.from_bytes(file.read_bytes()[80:84], "little"))
        parts = self.program.folder / "parts.glb"
        self.program.save(parts, "glTF", settle=False)
        self.program.dialog("Solids")
        self.program.click("CheckEach")
        self.program.click("SaveCommand")
        self.program.no_dialog()
        wait_for((self.program.folder / "parts-servo-1.glb").exists, "the last part")
        self.assertFalse(parts.exists())
        self.assertEqual((self.program.folder / "parts-wing-1-left.glb").read_bytes()[:4], b"glTF")

    def test_the_model_for_strict_readers_has_its_blank(self):
        file = self.program.folder / "plane.wrl"
        self.program.save(file, "VRML2.0 for strict")
        self.assertEqual(file.read_bytes(), expected("wrl").replace(b"          size30", b"          size 30"))

    def test_a_cancel_prints_nothing_and_leaves_the_view(self):
        self.program.click("Side")
        self.program.click("Print")
        self.program.dialog("Select Views")
        self.take("print", self.program.dialog())
        self.program.click("CancelCommand")
        self.program.no_dialog()
        self.assertTrue(self.program.get("Side").checked)

    def test_no_box_prints_nothing_and_returns_to_the_top_view(self):
        self.program.click("Side")
        print_plans(self.program, [], None)
        self.screen.key("Escape")
        self.program.no_dialog()
        self.assertEqual(list(self.program.folder.glob("*.pdf")), [])

    def test_each_plan_gets_a_file_of_its_own(self):
        file = self.program.folder / "plan.pdf"
        self.program.click("Side")
        print_plans(self.program, ["CheckSide", "CheckHtop", "CheckSections", "CheckVtop", "CheckFront"], file)
        self.program.no_dialog()
        wait_for(lambda: (self.program.folder / "plan-htop.pdf").exists(), "the last plan")
        wait_for(lambda: self.program.get("VTop").checked, "the top view")
        pages = {name: self.pages(name) for name in ("side", "sections", "vtop", "front", "htop")}
        self.assertEqual(pages["sections"], 3)
        self.assertEqual((pages["vtop"], pages["front"]), (1, 1))
        self.assertGreaterEqual(pages["side"], 4)
        self.assertEqual(pages["side"], pages["htop"])
        self.assertFalse(file.exists())
        # Again: one question lists what would be replaced, and No leaves it.
        before = (self.program.folder / "plan-side.pdf").stat().st_mtime_ns
        print_plans(self.program, ["CheckSide"], file)
        self.program.push("No")
        self.program.no_dialog()
        self.assertEqual((self.program.folder / "plan-side.pdf").stat().st_mtime_ns, before)

    def test_ribs_are_printed_and_saved_with_what_was_typed(self):
        self.program.click("Print")
        self.program.dialog("Select Views")
        for name, text in (("StationsText", "3"), ("SkinText", "1")):
            self.program.enter(name, text, commit=None)
        self.program.click("CancelCommand")
        self.program.no_dialog()
        self.program.click("Print")
        self.program.dialog("Select Views")
        self.assertEqual(self.program.text("SkinText"), "0", "Cancel remembers nothing")
        for name in ("CheckWing", "CheckRibs"):
            self.program.click(name)
        for name, text in (("StationsText", "3"), ("SkinText", "many")):
            self.program.enter(name, text, commit=None)
        self.program.click("PrintCommand")
        self.program.push("OK")  # what was typed is no number
        self.program.enter("SkinText", "1", commit=None)
        self.take("print-ribs", self.program.dialog("Select Views"))
        self.program.click("PrintCommand")
        choose_printer_file(self.program, self.program.folder / "plan.pdf")
        self.program.no_dialog()
        self.assertEqual((self.pages("wing"), self.pages("ribs")), (6, 1))

        file = self.program.folder / "set.dxf"
        self.program.click("Save")
        self.program.choose_file(file, kind="Ribs DXF")
        self.program.dialog("Parts to Cut")
        self.assertEqual((self.program.text("StationsText"), self.program.text("SkinText")), ("3", "1"))
        self.program.click("OkCommand")
        wait_for(file.exists, f"{file}")
        self.program.no_dialog()
        self.assertEqual(file.read_text().count("POLYLINE"), 6)

    def pages(self, name):
        file = self.program.folder / f"plan-{name}.pdf"
        wait_for(file.exists, f"{file}")
        told = subprocess.run(["pdfinfo", str(file)], capture_output=True, text=True, check=True).stdout
        return int(next(line for line in told.splitlines() if line.startswith("Pages")).split()[1])

    def test_the_preview_shows_a_chosen_plan(self):
        self.program.click("Print")
        self.program.dialog("Select Views")
        if not self.program.get("CheckSide").checked:
            self.program.click("CheckSide")
        self.program.click("PreviewCommand")
        wait_for(lambda: any("Side view" in c.window for c in self.program.controls()), "the preview")
        self.take("preview")
        self.screen.key("Escape")
        wait_for(lambda: not any("Side view" in c.window for c in self.program.controls()), "its end")
        self.program.click("CancelCommand")
        self.program.no_dialog()


if __name__ == "__main__":
    base.main()
