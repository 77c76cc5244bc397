#!/usr/bin/env python3
"""Each kind of file that the command line writes, beside the stored files and through other programs.

usage: test_exports.py VELNA ROOT
"""

import contextlib
import json
import math
import os
import pty
import re
import shutil
import signal
import subprocess
import sys
import time

from calling import AIRCRAFT, CURRENT, DATA, DEFAULT, ENVIRONMENT, EXAMPLES, EXPORTS, PROGRAM, ROOT, VIEWS, CommandLine, call, main

sys.path.insert(0, str(ROOT / "tests" / "window"))
from pictures import Picture, difference

POINT = 72 / 25.4  # of a millimetre
PAPERS = {"A4": (210, 297), "A3": (297, 420), "A2": (420, 594), "A1": (594, 841), "A0": (841, 1189),
          "Letter": (215.9, 279.4), "Legal": (215.9, 355.6), "100x1000": (100, 1000), "420.5x297": (420.5, 297)}


def told_of(pdf):
    """Pages, width and height in points, as another program tells them."""
    told = subprocess.run(["pdfinfo", pdf], capture_output=True, text=True, check=True).stdout
    lines = dict(line.split(":", 1) for line in told.splitlines())
    width, _, height = lines["Page size"].split()[:3]
    return int(lines["Pages"]), float(width), float(height)


def polylines(dxf):
    """The closed outlines of a drawing in millimetres."""
    found, words = [], dxf.read_text(encoding="ascii").split("\n")
    pairs = [(code.strip(), value.strip()) for code, value in zip(words[::2], words[1::2])]
    for n, pair in enumerate(pairs):
        if pair == ("0", "POLYLINE"):
            found.append([])
        elif pair == ("0", "VERTEX"):
            place = dict(pairs[n + 1 : n + 5])
            found[-1].append((float(place["10"]), float(place["20"])))
    return found


def paths(pdf):
    """The black outlines on paper in millimetres, y down, as mutool traces them."""
    told = subprocess.run(["mutool", "trace", pdf], capture_output=True, text=True, check=True).stdout
    found = []
    for transform, points in re.findall(r'<stroke_path [^>]*color="0 0 0"[^>]*transform="([^"]*)">(.*?)</stroke_path>', told,
                                        re.DOTALL):
        scale = float(transform.split()[0]) / POINT
        places = [(float(x) * scale, float(y) * scale) for x, y in re.findall(r'to x="([^"]*)" y="([^"]*)"', points)]
        if len(places) > 3:
            found.append(places[:-1] if places[0] == places[-1] else places)
    return found


def shape_of(outline):
    """How far each corner lies from the first, the second and the one in the middle: the same wherever and however it lies."""
    # Paper is written in thousandths, where corners may fall on each other.
    outline = [corner for corner, former in zip(outline, outline[-1:] + outline) if math.dist(corner, former) > 0.003]
    marks = outline[0], outline[1], outline[len(outline) // 2]
    return [math.dist(corner, mark) for corner in outline for mark in marks]


def alike(one, other):
    return len(one) == len(other) and all(abs(a - b) < 0.05 for a, b in zip(one, other))


class Exports(CommandLine):
    def test_every_stored_aircraft_gives_its_stored_model_and_drawings(self):
        models = [file.stem for file in EXPORTS.glob("*.wrl")]
        self.assertGreaterEqual(len(models), 14)
        for name in models:
            with self.subTest(name):
                project = AIRCRAFT[name]
                for view, stored in VIEWS.items():
                    drawing = self.export("out.dxf", project, "--view", view)
                    self.assertEqual(drawing.read_bytes(), (EXPORTS / f"{name}.{stored}.dxf").read_bytes())
                model = self.export("out.wrl", project)
                self.assertEqual(model.read_bytes(), (EXPORTS / f"{name}.wrl").read_bytes())
                self.export("out.vln", project)

    def test_pictures_stand_beside_models_and_projects(self):
        self.export("plane.wrl", AIRCRAFT["tex_all"])
        self.export("copy.vln", AIRCRAFT["tex_all"])
        self.assertEqual(self.names(), ["copy.vln", "plane.wrl", "tex_fin.bmp", "tex_fin.jpg", "tex_fus.bmp", "tex_fus.jpg",
                                        "tex_stab.BMP", "tex_stab.jpg", "tex_wing1.bmp", "tex_wing1.jpg",
                                        "tex_wing2.bmp", "tex_wing2.jpg"])
        # Again: what is there is the project's own, and is replaced.
        before = self.names()
        self.export("plane.wrl", AIRCRAFT["tex_all"])
        self.export("copy.vln", self.folder / "copy.vln")
        self.assertEqual(self.names(), before)

    def test_a_picture_of_somebody_elses_is_left_alone(self):
        (self.folder / "tex_fin.jpg").write_bytes(b"mine")
        model = self.export("plane.wrl", AIRCRAFT["tex_all"])
        self.assertEqual((self.folder / "tex_fin.jpg").read_bytes(), b"mine")
        self.assertIn(b"tex_fin-2.jpg", model.read_bytes())

    def test_every_older_version_is_converted(self):
        legacy = DATA / "projects" / "legacy"
        stored = [file for file in legacy.glob("*.resaved.vln") if not file.name.startswith("V0.1")]
        self.assertEqual(len(stored), 13)
        for file in stored:
            with self.subTest(file.name):
                project = self.folder / file.name.replace(".resaved", "")
                shutil.copy(legacy / project.name, project)
                done = call("--export", project, project)
                # Of some the pictures were never kept.
                self.assertTrue(done.returncode == 0 or "could not be put beside the project" in done.stderr, done.stderr)
                self.assertEqual(project.read_bytes().split(b"\n")[0], b"# VELNA File Format V 2.2.1\r")
                call("--export", self.folder / "again.vln", project)
                self.assertEqual((self.folder / "again.vln").read_bytes(), project.read_bytes())

    def test_a_drawing_has_the_size_that_is_asked_for(self):
        for size, pixels in {(): (900, 500), ("--size", "1"): (1, 1), ("--size", "128"): (128, 128),
                             ("--size=640x48",): (640, 48), ("--size", "3000x2000"): (3000, 2000)}.items():
            picture = Picture(self.export("out.png", *size, DEFAULT))
            self.assertEqual((picture.width, picture.height), pixels)
            text = self.export("out.svg", *size, DEFAULT).read_text()
            self.assertIn(f'width="{pixels[0]}" height="{pixels[1]}"', text)

    def test_lines_as_lines_look_like_lines_as_pixels(self):
        for name, project in AIRCRAFT.items():
            for view in VIEWS:
                with self.subTest(name, view=view):
                    drawn = self.export("drawn.png", project, "--view", view)
                    lines = self.export("lines.svg", project, "--view", view)
                    painted = self.folder / "painted.png"
                    subprocess.run(["rsvg-convert", lines, "-o", painted], check=True)
                    self.assertLess(difference(drawn, painted), 0.002)

    def test_a_thumbnail_is_made_as_a_desktop_asks_for_it(self):
        for project in EXAMPLES:
            out = self.folder / "thumbnail.tmp"
            self.done("--export", out, "--as", "png", "--view", "top", "--size", "256", project)
            self.assertEqual(out.read_bytes()[:8], b"\x89PNG\r\n\x1a\n")
            self.assertGreater(len(Picture(out).colours()), 1)

    def test_each_plan_is_a_file_of_its_own(self):
        self.done("--export", self.folder / "plan.pdf", "--plan", "side", DEFAULT)
        self.assertEqual(self.names(), ["plan-side.pdf"])
        self.done("--export", self.folder / "plan.pdf", "--plan=top", "--plan=front", "--plan=htop", "--plan=sections",
                  DEFAULT)
        self.assertEqual(self.names(), [f"plan-{name}.pdf" for name in ("front", "htop", "sections", "side", "vtop")])
        self.assertEqual(told_of(self.folder / "plan-sections.pdf")[0], 3)
        self.assertEqual(told_of(self.folder / "plan-front.pdf")[0], 1)

    def test_sheets_have_the_size_that_is_asked_for(self):
        for paper, (width, height) in PAPERS.items():
            with self.subTest(paper):
                self.done("--export", self.folder / "o.pdf", "--plan", "front", "--paper", paper, DEFAULT)
                _, across, upright = told_of(self.folder / "o-front.pdf")
                self.assertAlmostEqual(across, width * POINT, delta=0.6)
                self.assertAlmostEqual(upright, height * POINT, delta=0.6)
        self.done("--export", self.folder / "o.pdf", "--plan", "front", "--landscape", DEFAULT)
        _, across, upright = told_of(self.folder / "o-front.pdf")
        self.assertAlmostEqual(across, 297 * POINT, delta=0.6)
        self.assertAlmostEqual(upright, 210 * POINT, delta=0.6)

    def test_sheets_to_be_taped_have_words_on_them(self):
        self.done("--export", self.folder / "o.pdf", "--plan", "side", "--tape", DEFAULT)
        told = subprocess.run(["pdftotext", self.folder / "o-side.pdf", "-"], capture_output=True, text=True,
                              check=True).stdout
        self.assertIn("mm", told)

    def test_ribs_are_cut_as_they_are_wished(self):
        self.export("ribs.dxf", "--plan", "ribs", "--stations", "4", "--skin", "1.5", "--slot", "30,6,4,top", DEFAULT)
        self.export("wing.svg", "--plan", "wing", DEFAULT)
        self.assertEqual(self.names(), ["ribs.dxf", "wing.svg"])
        self.done("--export", self.folder / "o.pdf", "--plan", "wing", "--plan", "ribs", "--skin", "1.5", DEFAULT)
        self.assertEqual(self.names(), ["o-ribs.pdf", "o-wing.pdf", "ribs.dxf", "wing.svg"])
        self.export("each.dxf", "--plan", "ribs", "--stations", "4", "--each", DEFAULT)
        self.assertGreater(len(self.names()), 6)

    def test_a_model_for_strict_readers_has_its_blank(self):
        model = self.export("o.wrl", "--strict", DEFAULT).read_bytes()
        self.assertEqual(model, (EXPORTS / "default.wrl").read_bytes().replace(b"          size30", b"          size 30"))

    def test_solids_of_every_stored_aircraft_are_whole(self):
        for name, project in AIRCRAFT.items():
            with self.subTest(name):
                done = call("--export", self.folder / "o.stl", "--cut", project)
                if name == "exponents":
                    self.assertIn("No part of the aircraft gives a solid: wing 1 left (larger than 1000000 mm)", done.stderr)
                    self.assertEqual((done.returncode, self.names()), (1, []))
                    continue
                # What encloses nothing is left out, which is told.
                self.assertTrue(done.returncode == 0 or ": Left out: " in done.stderr, done.stderr)
                solids = (self.folder / "o.stl").read_bytes()
                self.assertEqual(len(solids), 84 + 50 * int.from_bytes(solids[80:84], "little"))
                (self.folder / "o.stl").unlink()

    def test_solids_have_their_pictures_and_materials_beside_them_or_in_them(self):
        self.export("plane.obj", AIRCRAFT["tex_all"])
        before = self.names()
        self.assertIn("plane.mtl", before)
        self.assertIn("tex_fin.jpg", before)
        self.export("plane.obj", AIRCRAFT["tex_all"])
        self.assertEqual(self.names(), before, "what is the export's own is replaced")
        (self.folder / "tex_fin.jpg").write_bytes(b"mine")
        self.export("other.obj", AIRCRAFT["tex_all"])
        self.assertEqual((self.folder / "tex_fin.jpg").read_bytes(), b"mine")
        there = self.names()
        self.export("plane.glb", AIRCRAFT["tex_all"])
        self.assertEqual(self.names(), sorted([*there, "plane.glb"]))

    def test_each_part_is_a_file_named_after_its_project(self):
        out = self.folder / "out"
        out.mkdir()
        self.done("--export", out, "--as", "stl", "--each", *EXAMPLES[:3])
        for project in EXAMPLES[:3]:
            self.assertTrue((out / f"{project.stem}-fuselage-1.stl").exists(), self.names(out))
            self.assertFalse((out / f"{project.stem}.stl").exists())
        whole = len(self.names(out))
        self.done("--export", out, "--as", "stl", "--each", "--cut", *EXAMPLES[:3])
        self.assertGreater(len(self.names(out)), whole)

    def test_ribs_on_paper_have_the_size_of_the_drawing(self):
        """To a twentieth of a millimetre, as another program reads the paper."""
        wishes = "--plan", "ribs", "--stations", "5", "--skin", "1.5", "--slot", "30,6,4,top"
        for project in (DEFAULT, *EXAMPLES):
            with self.subTest(project.name):
                call("--export", self.folder / "o.pdf", *wishes, "--paper", "A3", project)
                call("--export", self.folder / "o.dxf", *wishes, project)
                drawn = [shape_of(outline) for outline in polylines(self.folder / "o.dxf")]
                printed = [shape_of(outline) for outline in paths(self.folder / "o-ribs.pdf")]
                self.assertGreater(len(drawn), 8)
                self.assertEqual(len(printed), len(drawn))
                for shape in drawn:
                    self.assertTrue(any(alike(shape, other) for other in printed), shape[:3])

    def test_figures_are_told(self):
        told = call("--info", DEFAULT)
        self.assertEqual((told.returncode, told.stderr), (0, ""))
        self.assertIn("26.600 dm2", told.stdout)
        figures = json.loads(call("--info", "--json", "--mass", "1800", "--speed", "54", DEFAULT).stdout)
        self.assertAlmostEqual(figures["wing"]["area_projected_dm2"], 26.6, delta=1e-9)
        self.assertEqual(figures["flight"]["mass_g"], 1800)

    def test_of_twin_fuselages_the_chosen_one_is_drawn(self):
        drawings = {self.export("o.dxf", "--view", "htop", "--fuselage", n, AIRCRAFT["twin_fuselage"]).read_bytes()
                    for n in ("1", "2")}
        self.assertEqual(len(drawings), 2)

    def test_a_relative_project_is_the_same(self):
        here = self.export("here.wrl", "scene/tex_all.vln", cwd=DATA)
        self.done("--export", "there.wrl", AIRCRAFT["tex_all"], cwd=self.folder)
        self.assertEqual(here.read_bytes(), (self.folder / "there.wrl").read_bytes())

    def test_odd_names_are_bytes(self):
        project = self.folder / "gl\udcfc\x01ck \"'.vln"
        shutil.copy(DEFAULT, project)
        os.mkdir(self.folder / "o")
        for kind in ("vln", "wrl", "dxf", "png", "svg", "stl", "3mf", "obj", "glb"):
            self.done("--export", self.folder / "o", "--as", kind, project)
            self.assertTrue((self.folder / "o" / project.with_suffix(f".{kind}").name).exists())
        self.done("--export", self.folder / "o", "--as", "pdf", "--plan=side", project)
        self.assertTrue((self.folder / "o" / (project.stem + "-side.pdf")).exists())

    def test_an_interrupted_export_leaves_nothing_unfinished(self):
        out = self.folder / "out"
        out.mkdir()
        words = [PROGRAM, "--export", out, "--as", "dxf"] + [DEFAULT] * 5000
        with subprocess.Popen(words, env=ENVIRONMENT, stderr=subprocess.PIPE, text=True) as process:
            while not self.names(out):
                time.sleep(0.01)
            process.send_signal(signal.SIGINT)
            told = process.communicate()[1].splitlines()
        self.assertEqual(process.returncode, -signal.SIGINT)
        self.assertEqual(told[-1], f"velna: {out}: interrupted")
        self.assertEqual(self.names(out), ["default.dxf"])

    @staticmethod
    def all_of(terminal):
        """What a terminal was told by programs that have all ended: it comes in pieces."""
        told = b""
        with contextlib.suppress(OSError):
            while piece := os.read(terminal, 4096):
                told += piece
        return told.decode()

    def test_a_terminal_is_told_how_far_the_work_is(self):
        terminal, end = pty.openpty()
        words = [PROGRAM, "--export", self.folder, "--as", "svg", *EXAMPLES[:3]]
        done = subprocess.run(words, env=ENVIRONMENT, stderr=end, check=True)
        os.close(end)
        told = self.all_of(terminal)
        os.close(terminal)
        self.assertEqual(done.returncode, 0)
        self.assertIn(f"\r\x1b[K1 of 3: {EXAMPLES[0]}", told)
        self.assertTrue(told.endswith("\r\x1b[K"), repr(told))


if __name__ == "__main__":
    main()
