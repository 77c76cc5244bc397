"""What the command line writes without a window is what the window's own commands write, byte for byte."""

import os
import re
import subprocess

import base
from pictures import Picture
from screen import wait_for
from test_output import print_plans

DATA = base.HERE.parent / "data"
KEYS = {"top": ["VTop"], "front": ["Front"], "side": ["Side"], "htop": ["Side", "HTop"]}
PLANS = {"side": "CheckSide", "sections": "CheckSections", "top": "CheckVtop", "front": "CheckFront",
         "htop": "CheckHtop"}
SOLIDS = {"stl": "STL", "3mf": "3MF", "obj": "OBJ", "glb": "glTF"}


def aircraft():
    """The stored projects by their names; those of the scenes have their pictures beside them."""
    found = {}
    for folder in ("projects/current", "scene"):
        found.update((file.stem, file) for file in sorted((DATA / folder).glob("*.vln")))
    return found


def drawing_of(pdf):
    """A PDF file without its date, its identity, and the program that it names."""
    pdf = re.sub(rb"/CreationDate \([^)]*\)|/Creator \(.*?\)\n|/Producer \(.*?\)\n", b"", pdf, flags=re.DOTALL)
    pdf = re.sub(rb"/ID \[.*?\]", b"", pdf, flags=re.DOTALL)
    # Where the objects lie in the file follows from the rest.
    return re.sub(rb"\nxref\n.*", b"", pdf, flags=re.DOTALL)


class CommandLine(base.WindowTest):
    def export(self, out, project, *words):
        env = {key: value for key, value in self.program.env.items()
               if key not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_GENERIC_PLUGINS")}
        done = subprocess.run([base.BINARY, "--export", out, *words, project], env=env, capture_output=True,
                              text=True, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def folders(self, name):
        """One for what the window writes, one for what the command line does."""
        made = [self.program.folder / f"{name}-{by}" for by in ("window", "line")]
        for folder in made:
            folder.mkdir()
        return made

    def same_files(self, one, other, of=bytes):
        self.assertEqual(sorted(os.listdir(one)), sorted(os.listdir(other)))
        for name in os.listdir(one):
            with self.subTest(file=name):
                self.assertEqual(of((one / name).read_bytes()), of((other / name).read_bytes()))

    def open(self, project):
        self.program.open(project, "Velna")
        self.program.no_dialog()

    def show(self, view):
        for key in KEYS[view]:
            self.program.click(key)
            wait_for(lambda key=key: self.program.get(key).checked, key)

    def drawing_size(self):
        area = self.program.get("DrawArea")
        return f"{area.width}x{area.height}"

    def exports_are_the_same(self, name, project):
        self.open(project)
        window, line = self.folders(name)
        for view in KEYS:
            self.show(view)
            self.program.save(window / f"{view}.dxf", "DXF")
            self.export(line / f"{view}.dxf", project, "--view", view)
        self.program.save(window / "model.wrl", "VRML")
        self.export(line / "model.wrl", project)
        # The model's export has shown what was hidden, which a project tells.
        self.open(project)
        self.program.save(window / "copy.vln", "Velna")
        self.export(line / "copy.vln", project)
        self.same_files(window, line)

    def strict_models_are_the_same(self, name, project):
        # In folders of their own: a run of the program knows the pictures that it has put beside the other model.
        self.open(project)
        window, line = self.folders(f"{name}-strict")
        self.program.save(window / "strict.wrl", "VRML2.0 for strict")
        self.export(line / "strict.wrl", project, "--strict")
        self.same_files(window, line)

    def solids_are_the_same(self, name, project):
        self.open(project)
        window, line = self.folders(f"{name}-solids")
        for ending, kind in SOLIDS.items():
            with self.subTest(kind):
                left_out = self.save_solids(window / f"plane.{ending}", kind)
                done = subprocess.run([base.BINARY, "--export", line / f"plane.{ending}", project], env=self.program.env,
                                      capture_output=True, text=True, check=False)
                # What the window tells in a message ends the command with 1.
                self.assertEqual(done.returncode, int(left_out), done.stderr)
                self.assertEqual("(" in done.stderr, left_out, done.stderr)
        self.same_files(window, line)

    def save_solids(self, file, kind):
        """By the window; whether a message has told of parts that are left out."""
        def message():
            return [c for c in self.program.controls() if c.isWindow and c.modal and c.window != "Solids"]

        self.program.save(file, kind, settle=False)
        self.program.dialog("Solids")
        self.program.click("SaveCommand")
        wait_for(lambda: file.exists() or message(), "the solids")
        if told := bool(message()):
            self.program.push("OK")
        self.program.no_dialog()
        return told

    def views_are_the_same(self, name, project):
        self.open(project)
        _, line = self.folders(f"{name}-views")
        for view in KEYS:
            with self.subTest(view):
                self.show(view)
                seen = Picture(self.still(f"drawing-{name}-{view}", self.program.get("DrawArea")))
                self.export(line / f"{view}.png", project, "--view", view, "--size", self.drawing_size())
                drawn = Picture(line / f"{view}.png")
                self.assertEqual((drawn.width, drawn.height), (seen.width, seen.height))
                self.assertEqual(drawn.data, seen.data)
                self.assertGreater(len(drawn.colours()), 1)

    def plans_are_the_same(self, name, project):
        self.open(project)
        window, line = self.folders(f"{name}-plans")
        self.plans(project, window, line, [])

    def every_way(self, name, project):
        self.exports_are_the_same(name, project)
        self.strict_models_are_the_same(name, project)
        self.solids_are_the_same(name, project)
        self.views_are_the_same(name, project)
        self.plans_are_the_same(name, project)

    def plans(self, project, window, line, words, boxes=()):
        # A plan of more sheets than can be counted is refused by both, with a box in the window.
        wanted = {plan: box for plan, box in PLANS.items() if project.stem != "exponents" or plan in ("top", "front")}
        print_plans(self.program, [*wanted.values(), *boxes], window / "plan.pdf")
        self.program.no_dialog()
        wait_for(lambda: len(os.listdir(window)) == len(wanted), "the last plan")
        plans = [word for plan in wanted for word in ("--plan", plan)]
        self.export(line / "plan.pdf", project, *plans, "--size", self.drawing_size(), *words)
        self.same_files(window, line, drawing_of)

    def test_plans_to_be_taped(self):
        project = aircraft()["default"]
        self.open(project)
        self.plans(project, *self.folders("taped"), ["--tape"], ["CheckOverlap"])


def a_test_of(name, project):
    """One that says which aircraft it is about, with a program of its own."""
    return lambda self: self.every_way(name, project)


for _name, _project in aircraft().items():
    setattr(CommandLine, f"test_{_name}_by_window_and_by_command_line", a_test_of(_name, _project))


if __name__ == "__main__":
    base.main()
