"""Projects and airfoils through the real dialogs."""

import os
import pathlib
import shutil

import base
import views
from screen import wait_for

AIRFOILS = base.HERE.parents[1] / "examples" / "airfoils"


class Files(base.WindowTest):
    def drag_tip(self):
        area = self.program.get("DrawArea")
        view = views.vtop(area.width, area.height)
        tip = view.at(700, 190 + 75)
        self.program.drag(tip, (tip[0], tip[1] + 31))
        wait_for(lambda: self.program.text("PosEText") != "10", "the tip to be swept")
        return self.program.text("PosEText")

    def test_what_was_dragged_is_there_again_after_save_end_start_and_open(self):
        swept = self.drag_tip()
        first = self.program.folder / "swept.vln"
        self.program.save(first)
        kept = first.read_bytes()
        self.assertTrue(kept.startswith(b"# VELNA File Format V 2.2.1\r\n"), kept[:40])
        self.assertEqual(self.program.quit(), 0)

        again = self.new_program().start()
        self.assertEqual(again.text("PosEText"), "10")
        again.open(first)
        wait_for(lambda: again.text("PosEText") == swept, "the swept wing")
        second = again.folder / "again.vln"
        again.save(second)
        self.assertEqual(second.read_bytes(), kept)

    def test_the_extension_is_added_before_the_question_about_overwriting(self):
        target = self.program.folder / "plane.vln"
        self.program.save(target)
        first = target.read_bytes()
        self.drag_tip()
        self.program.click("Save")
        self.program.choose_file(self.program.folder / "plane")
        self.program.push("No")
        self.assertEqual(target.read_bytes(), first)
        self.screen.key("Escape")
        self.program.no_dialog()
        self.program.click("Save")
        self.program.choose_file(self.program.folder / "plane")
        self.program.push("Yes")
        self.program.no_dialog()
        wait_for(lambda: target.read_bytes() != first, "the new project in place of the old one")
        self.assertEqual(sorted(p.name for p in self.program.folder.glob("plane*")), ["plane.vln"])

    def test_a_name_with_a_dot_gets_its_extension_too(self):
        target = self.program.folder / "glider v1.2.vln"
        target.write_bytes(b"another glider")
        self.program.click("Save")
        self.program.choose_file(self.program.folder / "glider v1.2")
        self.program.push("No")
        self.take("overwrite-with-a-dot")
        self.assertEqual(target.read_bytes(), b"another glider")
        self.screen.key("Escape")
        self.program.no_dialog()
        self.program.save(self.program.folder / "glider v1.3", settle=False)
        wait_for((self.program.folder / "glider v1.3.vln").exists, "the project")
        self.program.no_dialog()
        self.program.click("Save")
        self.program.choose_file(self.program.folder / "glider v1.4", "DXF")
        wait_for((self.program.folder / "glider v1.4.dxf").exists, "the drawing")
        self.program.no_dialog()

    def test_what_is_no_project_keeps_the_aircraft_and_is_named(self):
        swept = self.drag_tip()
        photo = self.program.folder / "photo.vln"
        photo.write_bytes(b"\xff\xd8\xff\xe0" + os.urandom(3000))
        self.program.open(photo)
        self.program.button("OK")
        self.take("no-project")
        texts = [c.told.get("text", "") for c in self.program.controls() if c.modal]
        self.assertTrue(any("photo.vln" in text for text in texts), texts)
        self.program.push("OK")
        self.program.no_dialog()
        self.assertEqual(self.program.text("PosEText"), swept)

    def test_a_save_leaves_the_users_own_files_alone_and_says_which_picture_is_missing(self):
        source = self.program.folder / "source.vln"
        self.program.save(source)
        lines = source.read_bytes().split(b"\r\n")
        self.assertEqual(lines[-5:], [b'""'] * 4 + [b""])
        lines[-5:-1] = [b'"sky.bmp"', b'""', b'""', b'"../precious"']
        source.write_bytes(b"\r\n".join(lines))
        shutil.copy(base.HERE.parents[1] / "tests" / "data" / "scene" / "tex_fin.bmp", self.program.folder / "sky.bmp")
        (self.program.folder / "precious").write_bytes(b"mine")
        there = self.program.folder / "there"
        there.mkdir()
        (there / "sky.bmp").write_bytes(b"mine")

        self.program.open(source)
        self.program.click("Save")
        self.program.choose_file(there / "again.vln")
        self.program.dialog()
        texts = [c.told.get("text", "") for c in self.program.controls() if c.modal]
        self.assertTrue(any("again.vln could not be saved completely.\nThe picture ../precious" in t for t in texts), texts)
        self.take("missing-picture")
        self.program.push("OK")
        self.program.no_dialog()
        self.assertEqual((there / "sky.bmp").read_bytes(), b"mine")
        self.assertEqual((there / "sky-2.bmp").read_bytes()[:2], b"BM")
        self.assertEqual((self.program.folder / "precious").read_bytes(), b"mine")
        self.assertEqual(sorted(p.name for p in there.iterdir()), ["again.vln", "sky-2.bmp", "sky.bmp"])
        self.assertTrue((there / "again.vln").read_bytes().endswith(b'"sky-2.bmp"\r\n""\r\n""\r\n"precious"\r\n'))

    def test_a_save_that_fails_says_so_once_and_the_question_stays(self):
        self.drag_tip()
        self.program.click("Save")
        self.program.choose_file("/sys/velna.vln")
        box = self.program.dialog()
        texts = [c.told.get("text", "") for c in self.program.controls() if c.modal]
        self.assertTrue(any("could not be saved" in text for text in texts), texts)
        self.assertTrue(box.modal)
        self.take("failed-save")
        self.program.push("OK")
        self.program.no_dialog()
        # Not saved: opening asks.
        self.program.save(self.program.folder / "x.vln")
        self.drag_again_and_open(self.program.folder / "x.vln", answer="No")

    def drag_again_and_open(self, file, answer):
        area = self.program.get("DrawArea")
        self.screen.click(*area.at(20, 20))
        self.program.open(file)
        self.program.button(answer)
        texts = [c.told.get("text", "") for c in self.program.controls() if c.modal]
        self.assertIn("The current project has not been saved and will be lost\nDo you want to proceed ?", texts)
        self.program.push(answer)
        self.program.no_dialog()

    def test_new_asks_and_resets(self):
        self.drag_tip()
        self.program.click("New")
        self.program.push("No")
        self.assertNotEqual(self.program.text("PosEText"), "10")
        self.program.click("New")
        self.program.push("Yes")
        wait_for(lambda: self.program.text("PosEText") == "10", "the default aircraft")

    def test_an_airfoil_sets_the_thickness_whatever_its_line_ends(self):
        for name, thickness in (("naca0009.xy", 0.09), ("naca4412.xy", 0.12)):
            self.program.open(AIRFOILS / name, "Airfoil")
            wait_for(lambda: abs(self.program.number("ThicknessBText") - thickness) < 0.002, name)
        unix = self.program.folder / "unix.xy"
        unix.write_bytes((AIRFOILS / "naca0009.xy").read_bytes().replace(b"\r\n", b"\n"))
        self.program.open(unix, "Airfoil")
        wait_for(lambda: abs(self.program.number("ThicknessBText") - 0.09) < 0.002, "the file with LF ends")

    def test_a_damaged_project_leaves_a_program_that_works(self):
        whole = self.program.folder / "whole.vln"
        self.program.save(whole)
        for name, data in (("cut.vln", whole.read_bytes()[:200]), ("noise.vln", os.urandom(3000)),
                           ("empty.vln", b"")):
            damaged = self.program.folder / name
            damaged.write_bytes(data)
            self.program.open(damaged)
            if name != "cut.vln":
                self.program.push("OK")
            self.program.no_dialog()
            self.assertEqual(self.program.get("VTop").checked, True)
        self.drag_tip()
        self.program.save(pathlib.Path(self.program.folder / "after.vln"))


if __name__ == "__main__":
    base.main()
