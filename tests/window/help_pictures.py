#!/usr/bin/env python3
"""Takes the pictures of the help from the real window: help_pictures.py PROGRAM [PICTURE...]

They go to docs/help/pictures, with few colours, since they travel in the help file; of those named the named ones
alone. Look at each before it is committed.
"""

import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

import views
from program import Program
from screen import Screen, wait_for
from test_output import choose_printer_file, print_plans

ROOT = pathlib.Path(__file__).resolve().parents[2]
TARGET = ROOT / "docs" / "help" / "pictures"
FRAME = 20  # a dialog's title bar


class Camera:
    def __init__(self, screen, program, wanted):
        self.screen, self.program, self.wanted = screen, program, wanted
        self.raw = pathlib.Path(tempfile.mkdtemp()) / "raw.png"

    def keep(self, name, place=None, colours=64):
        time.sleep(0.4)
        self.screen.picture(self.raw, place)
        self.shrink(self.raw, name, colours)

    def shrink(self, source, name, colours=64):
        if self.wanted and name not in self.wanted:
            return
        subprocess.run(["convert", str(source), "-strip", "+dither", "-colors", str(colours),
                        f"PNG8:{TARGET / name}.png"], check=True)

    def dialog(self, name, title):
        x, y, width, height = self.program.dialog(title).place
        self.keep(name, (x - 1, y - FRAME, width + 2, height + FRAME + 3))

    def open(self, example):
        """One of the examples, or another file by its whole name."""
        self.program.open(ROOT / "examples" / example)
        # What was clicked since the last one counts as a change; nobody wants it.
        time.sleep(1)
        if any(c.modal for c in self.program.controls()):
            self.program.push("Yes")
        self.program.no_dialog()


def take(camera):
    screen, program = camera.screen, camera.program
    area = program.get("DrawArea")
    strip_and_tracing(camera, area)
    take_figures(camera)
    camera.open("trainer.vln")
    pane = program.picture()
    x, y = pane.middle
    screen.click(x, y, button=5, times=3)  # the wheel: a little farther
    screen.drag((x, y), (x + 300, y + 40))
    camera.keep("textured", pane.place, 128)
    camera.keep("main-window", colours=128)
    for view in ("VTop", "Front", "Side", "HTop"):
        program.click(view)
        camera.keep(f"view-{view.lower()}", area.place, 8)
    for tab in range(5):
        program.tab(tab)
        if tab == 0:
            scroll = program.get("FuselageScroll")
            screen.click(scroll.left + scroll.width - 5, scroll.middle[1])
        camera.keep(f"tab-{tab}", program.get("Parameters").place)
    screen.click(*area.at(300, 60), button=3)
    menu = wait_for(lambda: (m := program.of_kind("QMenu")) and m[0], "the menu")
    camera.keep("popup", menu.place)
    screen.key("Escape")
    bar, redo = program.get("Bar"), program.get("Redo")
    camera.keep("undo", (bar.left, bar.top, redo.left + redo.width + 8, bar.height))
    for button, name, title, end in (("Prefs", "preferences", "Preferences", "CancelCommand"),
                                     ("Manager", "manager", "Fuselage Manager", "CloseCommand"),
                                     ("Print", "print", "Select Views", "CancelCommand")):
        program.click(button)
        program.dialog(title)
        camera.dialog(name, title)
        program.click(end)
        program.no_dialog()
    program.click("Save")
    program.choose_file(camera.raw.parent / "glider.3mf", "3MF")
    program.dialog("Solids")
    camera.dialog("solids", "Solids")
    program.click("CancelCommand")
    program.no_dialog()
    print_plans(program, ["CheckSide"], camera.raw.parent / "plan.pdf")
    program.no_dialog()
    plan = camera.raw.parent / "plan-side.pdf"
    wait_for(plan.exists, "the plan")
    subprocess.run(["pdftoppm", "-png", "-r", "60", "-singlefile", str(plan), str(plan.with_suffix(""))], check=True)
    camera.shrink(plan.with_suffix(".png"), "plan-side", 8)
    ribs(camera)
    camera.open("glider.vln")
    screen.click(x, y, button=5, times=6)
    screen.drag((x, y), (x - 200, y + 60))
    camera.keep("picture", pane.place, 128)
    camera.open("sport_inches.vln")
    camera.keep("example-inches", pane.place, 64)
    camera.open("twin_hull.vln")
    camera.keep("example-twin", pane.place, 64)
    program.click("FlyingPreview")
    wait_for(lambda: program.picture().width >= screen.size[0] - 2, "the flight")
    screen.move(screen.size[0] // 2, screen.size[1] // 2)
    time.sleep(0.8)
    camera.keep("flight", colours=64)
    screen.key("Escape")
    wait_for(lambda: program.picture().width < screen.size[0] - 2, "the end of the flight")


def type_ribs(program):
    for name, text in (("SpacingText", "60"), ("SkinText", "1.5"), ("SlotsText", "30,6,4,top; 30,6,4,bottom")):
        program.enter(name, text, commit=None)


def ribs(camera):
    """The rib set of the trainer: the form, its first sheet, and the same as a file for a cutter."""
    program, folder = camera.program, camera.raw.parent
    camera.open("trainer.vln")
    program.click("Print")
    program.dialog("Select Views")
    for name in ("CheckWing", "CheckRibs", "CheckOverlap"):
        if not program.get(name).checked:
            program.click(name)
    type_ribs(program)
    camera.dialog("ribs-print", "Select Views")
    program.click("PrintCommand")
    choose_printer_file(program, folder / "set.pdf")
    program.push("OK")  # some slots have no room
    program.no_dialog()
    plan = folder / "set-ribs.pdf"
    subprocess.run(["pdftoppm", "-png", "-r", "60", "-singlefile", str(plan), str(plan.with_suffix(""))], check=True)
    camera.shrink(plan.with_suffix(".png"), "ribs-sheet", 8)
    program.click("Save")
    program.choose_file(folder / "set.svg", kind="Ribs SVG")
    program.dialog("Parts to Cut")
    camera.dialog("ribs-form", "Parts to Cut")
    program.click("OkCommand")
    program.push("OK")
    program.no_dialog()
    subprocess.run(["rsvg-convert", "-b", "white", "-w", "1100", "-o", str(folder / "set.png"), str(folder / "set.svg")],
                   check=True)
    camera.shrink(folder / "set.png", "ribs-svg", 16)


def strip_and_tracing(camera, area):
    """With the aircraft of the start: the strip in mid-drag, and a plan of which two points are asked for."""
    screen, program = camera.screen, camera.program
    program.click("VTop")
    view = views.vtop(area.width, area.height)
    foot = program.get("Strip")
    below = (area.left, area.top, area.width, foot.top + foot.height - area.top)
    tip = area.at(*view.at(700, 265))
    screen.press(*tip)
    screen.drag_to(tip, (tip[0], tip[1] + 12))
    camera.keep("strip", below, 16)
    screen.drag_to((tip[0], tip[1] + 12), tip)
    screen.release()
    plan = camera.raw.parent / "plan.png"
    subprocess.run(["convert", "-size", "640x300", "xc:#f4ecd8", "-fill", "none", "-stroke", "#305080", "-draw",
                    "polyline 60,120 320,90 580,120 580,160 320,190 60,160 60,120", "-draw", "line 320,40 320,270",
                    str(plan)], check=True)
    program.popup("LoadBitmap")
    program.choose_file(plan)
    program.no_dialog()
    program.popup("TracePicture")
    wait_for(lambda: program.text("StripValue").startswith("Click a point"), "the question for a point")
    screen.click(area.left + area.width // 2 - 260, area.top + area.height // 2 - 30)
    wait_for(lambda: program.text("StripValue").startswith("Click the second"), "the first point")
    camera.keep("tracing", below, 32)
    screen.key("Escape")
    program.popup("ClearBitmap")


def take_figures(camera):
    """The window of figures of the aircraft of the start, with a mass and a speed."""
    screen, program = camera.screen, camera.program
    program.click("Figures")
    window = program.get("FiguresWindow")
    for name, text in (("FiguresMass", "1800"), ("FiguresSpeed", "54")):
        screen.click(*program.get(name).middle)
        wait_for(lambda: program.get(name).active, f"the focus in {name}")
        screen.type(text)
    camera.keep("figures", (window.left - 1, window.top - FRAME, window.width + 2, window.height + FRAME + 3), 32)
    screen.key("Escape")


def menu_beside(camera, key, arrow, name):
    """The keys of the toolbar's left end, and the menu open under one's arrow."""
    camera.program.click(arrow)
    menu = wait_for(lambda: camera.program.find(arrow + "Menu"), "the menu")
    time.sleep(0.3)
    left, top = camera.program.get("New").left - 4, camera.program.get(key).top - 4
    camera.keep(name, (left, top, max(menu.left + menu.width, left + 240) - left + 4, menu.top + menu.height - top + 4), 32)
    camera.screen.key("Escape")


def take_naca(camera):
    """The dialog of a NACA section, over the wing."""
    program, screen = camera.program, camera.screen
    program.click("RecentFiles")
    entries = wait_for(lambda: (m := program.find("RecentFilesMenu")) and m.entries, "the menu")
    x, y, width, height = next(e for e in entries if e["name"] == "NacaSection")["place"]
    screen.click(x + width // 2, y + height // 2)
    program.dialog("NACA section")
    program.enter("NacaNumber", "23012", "Tab")
    camera.dialog("naca", "NACA section")
    screen.key("Escape")
    program.no_dialog()


def take_files(camera):
    """Recent projects, a drop, and work that was not saved."""
    program, screen = camera.program, camera.screen
    models = pathlib.Path(tempfile.gettempdir()) / "models"  # a name that can be shown
    models.mkdir(exist_ok=True)
    for name in ("glider.vln", "sport_inches.vln", "twin_hull.vln"):
        shutil.copy(ROOT / "examples" / name, models)
        camera.open(models / name)
    (models / "sport_inches.vln").unlink()
    menu_beside(camera, "Open", "RecentFiles", "recent")
    menu_beside(camera, "Save", "MoreSaves", "save-again")
    take_naca(camera)
    program.enter("SpanText", "1111")
    wait_for(lambda: list(program.folder.glob("state/velna/*.work")), "the work to be kept")
    program.die(signal.SIGKILL)
    program.start(wait=False)
    program.button("Restore")
    camera.dialog("recovery", "Velna")
    program.push("Discard")
    program.no_dialog()
    shutil.rmtree(models)


def main():
    binary = sys.argv[1]
    probe = pathlib.Path(binary).resolve().parents[3] / "tests" / "window" / "plugins"
    TARGET.mkdir(exist_ok=True)
    with Screen() as screen:
        program = Program(screen, binary, probe)
        try:
            camera = Camera(screen, program, sys.argv[2:])
            program.start()
            take(camera)
            take_files(camera)
        finally:
            program.end()


if __name__ == "__main__":
    main()
