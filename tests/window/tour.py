#!/usr/bin/env python3
"""Works through a project in the real program by mouse and keys, on a screen in memory, and leaves what came of
it in a folder: tour.py PROGRAM FOLDER

A person's evening with the program: a longer wing with an outer panel and dihedral, a fuselage with one more
section, a colour and a texture, a flight, then everything that leaves the program.
"""

import pathlib
import shutil
import subprocess
import sys
import time

import views
from program import Program
from screen import Screen, wait_for
from test_output import print_plans

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
PLANS = ["CheckSide", "CheckHtop", "CheckSections", "CheckVtop", "CheckFront"]


class Tour:
    def __init__(self, screen, program, folder):
        self.screen, self.program, self.folder = screen, program, folder
        self.area = program.get("DrawArea")

    def tell(self, file, what):
        print(f"{file}: {what}", flush=True)

    def picture(self, name, what):
        time.sleep(0.3)
        self.tell(self.screen.picture(self.folder / f"{name}.png"), what)

    def drag(self, fit, along, across, way, keys=()):
        view = fit(self.area.width, self.area.height)
        start = view.at(along, across)
        self.program.drag(start, (start[0] + way[0], start[1] + way[1]), keys=keys)

    def edit(self):
        self.picture("01-start", "the default aircraft")
        self.drag(views.vtop, 700, 265, (0, 20))
        self.program.enter("SpanText", "1500")
        self.program.click("IndexWingPlusButton")
        self.picture("02-top-view", "a swept wing with an outer panel")
        self.program.click("Front")
        self.program.enter("ElevationEText", "45")
        self.picture("03-front-view", "dihedral of the outer panel")
        self.program.click("Side")
        view = views.side(self.area.width, self.area.height)
        self.screen.click(*self.area.at(*view.at(450, 50)), keys=["ctrl"])
        wait_for(lambda: self.program.get("FuselageScroll").maximum == 4, "the new section")
        self.program.enter("NbCrossFuselageText", "24")
        self.picture("04-side-view", "a fuselage with one section more")
        self.program.click("HTop")
        self.picture("05-fuselage-from-above", "its widths")

    def dress(self):
        self.program.tab(1)
        self.program.click("Palette")
        self.program.dialog()
        field = next(c for c in self.program.controls() if c.modal and c.told.get("text", "").startswith("#"))
        self.screen.click(*field.middle)
        self.screen.key("ctrl+a")
        self.screen.type("#d03020")
        self.screen.key("Tab")
        self.program.push("OK")
        self.program.no_dialog()
        self.program.tab(0)
        self.program.open(EXAMPLES / "trainer_body.bmp", "Texture")
        self.program.no_dialog()
        pane = self.program.picture()
        x, y = pane.middle
        self.screen.drag((x, y), (x + 260, y + 30))
        self.picture("06-picture", "a colour and a texture, the model turned by the mouse")

    def fly(self):
        self.program.click("FlyingPreview")
        wait_for(lambda: self.program.picture().width >= self.screen.size[0] - 2, "the flight")
        self.screen.move(self.screen.size[0] // 2, self.screen.size[1] // 2)
        time.sleep(0.4)
        self.screen.click(self.screen.size[0] // 2, self.screen.size[1] // 2)
        self.picture("07-flight", "the flying preview")
        self.screen.key("Escape")
        wait_for(lambda: self.program.ready("Save") and not self.program.get("FlyingPreview").checked, "its end")

    def save_all(self):
        project = self.folder / "plane.vln"
        self.program.save(project)
        self.tell(project, "the project")
        model = self.folder / "plane.wrl"
        self.program.save(model, "VRML")
        self.tell(model, "the model as VRML 2.0")
        for view in ("VTop", "Front", "Side", "HTop"):
            self.program.click("Side") if view == "HTop" else None
            self.program.click(view)
            drawing = self.folder / f"plane-{view}.dxf"
            self.program.save(drawing, "DXF")
            self.tell(drawing, "the view's drawing as DXF")

    def print_all(self):
        print_plans(self.program, PLANS, self.folder / "plan.pdf")
        self.program.no_dialog()
        for name in ("side", "sections", "vtop", "front", "htop"):
            plan = self.folder / f"plan-{name}.pdf"
            wait_for(plan.exists, f"{plan}")
            self.tell(plan, "a building plan")
        if shutil.which("pdftoppm"):
            sheet = self.folder / "08-plan-sections"
            subprocess.run(["pdftoppm", "-png", "-r", "50", "-singlefile", "-f", "2",
                            str(self.folder / "plan-sections.pdf"), str(sheet)], check=True)
            self.tell(f"{sheet}.png", "a sheet of the sections")

    def look_again(self):
        self.program.open(self.folder / "plane.vln")
        self.program.no_dialog()
        self.picture("09-opened-again", "the project opened again")
        self.program.click("Help")
        wait_for(lambda: self.program.find("HelpBrowser"), "the help")
        self.picture("10-help", "the help")
        self.screen.key("Escape")


def main():
    binary, folder = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    probe = pathlib.Path(binary).resolve().parents[3] / "tests" / "window" / "plugins"
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    with Screen() as screen:
        program = Program(screen, binary, probe)
        try:
            program.start()
            tour = Tour(screen, program, folder)
            for part in (tour.edit, tour.dress, tour.fly, tour.save_all, tour.print_all, tour.look_again):
                part()
            if program.quit() != 0:
                sys.exit(f"the program ended badly:\n{program.errors()}")
        finally:
            program.end()


if __name__ == "__main__":
    main()
