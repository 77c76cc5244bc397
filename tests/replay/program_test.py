#!/usr/bin/env python3
"""velna_replay on the stored files, on changed expectations, and as it accepts.

usage: program_test.py VELNA_REPLAY TESTS_DATA
"""

import copy
import difflib
import json

from replaying import DATA, SCENES, VIEWS, Replay, main, read, run, same

# Nobody cares for these before a step tells them.
FREE = {"FuselageVTopFrame", "SmoothTopCommand", "SmoothDownCommand", "SmoothWidthCommand"}


class Stored(Replay):
    def same_members(self, expected, actual, where, free=frozenset()):
        names = (set(expected) | set(actual)) - free
        for name in names:
            self.assertIn(name, expected, where)
            self.assertIn(name, actual, where)
            self.assertTrue(same(expected[name], actual[name]), f"{where}: {name}: {expected[name]} {actual[name]}")
        return len(names)

    def compare_step(self, expected, actual, where):
        self.assertEqual(set(expected), set(actual), where)
        self.assertEqual(set(expected.get("gone", [])), set(actual.get("gone", [])), where)
        for surface, tolerance in (("lines", 1e-6), ("section", 1e-4)):
            self.assertEqual(len(expected.get(surface, [])), len(actual.get(surface, [])), where)
            for a, b in zip(expected.get(surface, []), actual.get(surface, [])):
                self.assertTrue(same(a, b, tolerance), f"{where}: {a} {b}")
        return self.same_members(expected["changed"], actual["changed"], where, FREE)

    def test_scenarios_come_out_as_they_are_stored(self):
        out = self.folder / "out.json"
        self.assertEqual(run(VIEWS, out).returncode, 0)
        stored, replayed = read(VIEWS), read(out)
        self.same_members(stored["base"], replayed["base"], "base", FREE)
        self.assertEqual([c["name"] for c in stored["cases"]], [c["name"] for c in replayed["cases"]])
        keys = 0
        for before, after in zip(stored["cases"], replayed["cases"]):
            name, expected, actual = before["name"], before["expected"], after["expected"]
            self.assertEqual((before["setup"], before["steps"]), (after["setup"], after["steps"]))
            self.assertEqual(len(expected["steps"]), len(actual["steps"]), name)
            for i, pair in enumerate(zip(expected["steps"], actual["steps"])):
                keys += self.compare_step(*pair, f"{name} step {i}")
            for part in ("end", "model_changed", "handles"):
                keys += self.same_members(expected[part], actual[part], f"{name} {part}")
        self.assertGreater(keys, 5000)
        self.assertEqual(run("--check", out).returncode, 0)

    def test_lines_of_every_step_and_surface_are_told_where_asked_for(self):
        out = self.folder / "out.json"
        self.assertEqual(run(VIEWS, out, "--lines").returncode, 0)
        steps = [step for case in read(out)["cases"] for step in case["expected"]["steps"]]
        self.assertTrue(all("lines" in step and "section" in step for step in steps))
        self.assertGreater(sum(bool(step["lines"]) for step in steps), 500)
        self.assertGreater(sum(bool(step["section"]) for step in steps), 50)
        self.assertEqual(run("--check", out).returncode, 0)

    def test_scenes_come_out_as_they_are_stored(self):
        self.assertEqual(len(SCENES), 13)
        for path in SCENES:
            out = self.folder / path.name
            self.assertEqual(run(path, out).returncode, 0, path)
            stored, replayed = read(path), read(out)
            self.assertEqual(list(stored), list(replayed))
            for name in ("name", "file", "steps", "messages", "primitives", "vertices"):
                self.assertEqual(stored[name], replayed[name], path)
            self.assertEqual(len(stored["soft"]), len(replayed["soft"]), path)
            self.assertEqual(set(stored["pictures"]), set(replayed["pictures"]))
            for name, picture in stored["pictures"].items():
                self.same_members(picture, replayed["pictures"][name], f"{path} {name}")
            places = [[call[1:] for call in scene["calls"] if call[0].startswith("glVertex3")]
                      for scene in (stored, replayed)]
            self.assertTrue(same(*places, 1e-6), path)
            self.assertEqual(run("--check", out).returncode, 0)

    def test_check_passes_on_each_stored_file(self):
        for path in [VIEWS, *SCENES]:
            done = run("--check", path)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""), path)


class Changed(Replay):
    """An expectation that does not hold is told, and nothing else."""

    def case(self, views, name):
        return next(case for case in views["cases"] if case["name"] == name)

    def report(self, document):
        path = self.put(document)
        done = run("--check", path)
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        return [line.removeprefix(f"{path}: ") for line in done.stdout.splitlines()]

    def test_the_first_differing_step_and_key_are_told(self):
        views = read(VIEWS)
        steps = self.case(views, "insert_then_remove")["expected"]["steps"]
        key = next(key for key in steps[1]["changed"] if key != "mode")
        steps[1]["changed"][key] = 12345
        steps[2]["changed"]["tab"] = 77
        told = self.report(views)
        self.assertEqual(len(told), 1)
        self.assertTrue(told[0].startswith(f"insert_then_remove: step 1: {key} is "), told)
        self.assertTrue(told[0].endswith("expected 12345"), told)

    def test_each_part_of_an_expectation_counts(self):
        views = read(VIEWS)
        views["cases"] = [case for case in views["cases"] if case["name"].startswith(("view_VTop", "section", "insert"))]
        first = self.case(views, "view_VTop_default")["expected"]
        sectioned = next(case for case in views["cases"]
                         if any(step.get("section") for step in case["expected"]["steps"]))
        changed = next(case for case in views["cases"] if case["expected"]["model_changed"])
        place = next(i for i, step in enumerate(sectioned["expected"]["steps"]) if step.get("section"))
        key = next(iter(changed["expected"]["model_changed"]))
        for name, spoil, told in [
            ("line", lambda: first["steps"][0]["lines"][3].__setitem__(0, -5), "view_VTop_default: step 0: lines, call 3"),
            ("colour", lambda: first["steps"][0]["lines"][3].__setitem__(4, "dim"), "view_VTop_default: step 0: lines, call 3"),
            ("lines", lambda: first["steps"][0]["lines"].pop(), "view_VTop_default: step 0: lines, number of calls"),
            ("end", lambda: first["end"].__setitem__("zoom", 3), "view_VTop_default: end: zoom is"),
            ("handles", lambda: first["handles"].__setitem__("Rudder.paint", 3), "view_VTop_default: end: Rudder.paint is"),
            ("changed", lambda: first["steps"][0]["changed"].__setitem__("nothing", 3), "view_VTop_default: step 0: nothing is missing"),
            ("gone", lambda: first["steps"][0].__setitem__("gone", ["zoom"]), "view_VTop_default: step 0: zoom is"),
            ("base", lambda: views["base"].__setitem__("text.SpanText", "1"), "base: text.SpanText is"),
            ("section", lambda: sectioned["expected"]["steps"][place]["section"].pop(), f"{sectioned['name']}: step {place}: section, "),
            ("model", lambda: changed["expected"]["model_changed"].pop(key), f"{changed['name']}: end: {key} is"),
            ("all of it", lambda: self.case(views, "view_VTop_default").pop("expected"), "view_VTop_default: has no"),
        ]:
            with self.subTest(name):
                spoilt = copy.deepcopy(views)
                spoil()
                told_lines = self.report(views)
                self.assertTrue(any(line.startswith(told) for line in told_lines), told_lines[:3])
                views.clear()
                views.update(spoilt)
                first = self.case(views, "view_VTop_default")["expected"]
                sectioned = self.case(views, sectioned["name"])
                changed = self.case(views, changed["name"])

    def test_each_part_of_a_scene_counts(self):
        original = read(DATA / "scene/tex_all.json")
        vertex = next(i for i, call in enumerate(original["calls"]) if call[0].startswith("glVertex3"))
        texture = next(i for i, call in enumerate(original["calls"]) if call[0] == "glTexImage2D")
        for name, spoil, told in [
            ("vertex", lambda s: s["calls"][vertex].__setitem__(1, 9999), "tex_all: primitive 0 vertex 0: place"),
            ("texture", lambda s: s["calls"][texture].__setitem__(-1, "tex_fin.bmp"), "another texture"),
            ("message", lambda s: s["messages"].append("no"), "tex_all: messages is"),
            ("primitives", lambda s: s.__setitem__("primitives", 1), "tex_all: primitives is"),
            ("vertices", lambda s: s.__setitem__("vertices", 1), "tex_all: vertices is"),
            ("size", lambda s: s["pictures"]["Fuselages(1)"].__setitem__("xtex", 5), "tex_all: pictures, Fuselages(1).xtex is"),
            ("place", lambda s: s["pictures"]["Rudder"]["tipTexCoords"].__setitem__(2, 5), "tex_all: pictures, Rudder.tipTexCoords is"),
            ("object", lambda s: s["pictures"].pop("Rudder"), "tex_all: pictures, Rudder should have none"),
            ("step", lambda s: s["steps"].insert(0, "Wings(1).span := 900"), "tex_all: primitive"),
        ]:
            with self.subTest(name):
                scene = copy.deepcopy(original)
                spoil(scene)
                told_lines = self.report(scene)
                self.assertTrue(any(told in line for line in told_lines), told_lines[:3])

    def test_a_question_without_an_answer_is_told_and_not_written_down(self):
        views = read(VIEWS)
        case = next(c for c in views["cases"] if any("answer" in s for s in c["steps"]))
        place = next(i for i, step in enumerate(case["steps"]) if "answer" in step)
        del case["steps"][place]["answer"]
        told = self.report(views)
        self.assertTrue(any("a question without an answer" in line for line in told), told)
        done = run(self.put(views), self.folder / "out.json")
        self.assertEqual(done.returncode, 2)
        self.assertIn(f"{case['name']}: step {place}: a question without an answer", done.stderr)
        self.assertFalse((self.folder / "out.json").exists())


class Accepted(Replay):
    def changed_lines(self, before, after):
        lines = difflib.unified_diff(before.splitlines(), after.splitlines(), lineterm="", n=0)
        return [line for line in list(lines)[2:] if line[0] in "+-"]

    def test_what_holds_is_left_as_it_is(self):
        for source in [VIEWS, *SCENES]:
            path = self.put(source.read_text(), source.name)
            done = run("--accept", path)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
            self.assertEqual(path.read_text(), source.read_text())

    def test_a_changed_step_is_one_line_of_a_difference_and_noted(self):
        document = read(VIEWS)
        steps = next(case for case in document["cases"] if case["name"] == "insert_then_remove")["expected"]["steps"]
        steps[1]["changed"]["mode"] = 12345
        path = self.put(document)
        done = run("--accept", path)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("insert_then_remove: step 1: mode is", done.stdout)
        after = read(path)
        self.assertEqual(after.pop("accepted")["cases"], ["insert_then_remove"])
        # Everything that held says what it said, to the digit.
        del steps[1]["changed"]["mode"]
        self.assertEqual(after, document)
        self.assertEqual(run("--check", path).returncode, 0)
        # Laid out as what is stored: nothing else differs but the note.
        changed = self.changed_lines(VIEWS.read_text(), path.read_text())
        self.assertLessEqual(len(changed), 4, changed)

    def test_a_difference_in_a_stored_file_is_read_line_by_line(self):
        text = VIEWS.read_text()
        document = read(VIEWS)
        case = document["cases"][0]
        at = next(i for i, step in enumerate(case["expected"]["steps"]) if step.get("lines"))
        line = json.dumps(case["expected"]["steps"][at], separators=(",", ":"))
        self.assertEqual(text.count("\n  " + line), 1, "an expected step has a line of its own")
        path = self.put(text.replace(line, line.replace("black", "white", 1), 1))
        self.assertEqual(run("--accept", path).returncode, 0)
        changed = self.changed_lines(text, path.read_text())
        self.assertTrue(all(not row.startswith("-  ") for row in changed), changed)

    def test_a_new_scenario_gets_its_expectations(self):
        document = read(VIEWS)
        document["cases"] = [document["cases"][0], {"name": "new", "setup": [], "steps": [
            {"op": "view", "view": "Side", "lines": True}, {"op": "tab", "tab": 3}]}]
        path = self.put(document)
        self.assertEqual(run("--check", path).returncode, 1)
        self.assertEqual(run("--accept", path).returncode, 0)
        after = read(path)
        self.assertEqual(after["accepted"]["cases"], ["new"])
        self.assertEqual(len(after["cases"][1]["expected"]["steps"]), 2)
        self.assertEqual(after["cases"][0], document["cases"][0])
        self.assertEqual(run("--check", path).returncode, 0)

    def test_a_step_at_the_end_of_a_scenario_is_added(self):
        document = read(VIEWS)
        document["cases"] = document["cases"][:1]
        document["cases"][0]["steps"].append({"op": "view", "view": "Side"})
        path = self.put(document)
        self.assertIn("nothing is expected", run("--check", path).stdout)
        self.assertEqual(run("--accept", path).returncode, 0)
        self.assertEqual(read(path)["cases"][0]["expected"]["steps"][0], document["cases"][0]["expected"]["steps"][0])
        self.assertEqual(run("--check", path).returncode, 0)

    def test_the_base_is_accepted_key_by_key(self):
        document = read(VIEWS)
        document["base"]["text.SpanText"] = "1"
        path = self.put(document)
        self.assertEqual(run("--accept", path).returncode, 0)
        after = read(path)
        self.assertEqual(after["base"], read(VIEWS)["base"])
        self.assertEqual(after["accepted"]["cases"], ["base"])

    def test_a_scene_keeps_what_holds(self):
        text = (DATA / "scene/tex_all.json").read_text()
        path = self.put(text.replace('"vertices": ', '"vertices": 1', 1))
        done = run("--accept", path)
        self.assertEqual(done.returncode, 0)
        self.assertIn("tex_all: vertices is", done.stdout)
        after = read(path)
        self.assertEqual(after.pop("accepted")["cases"], ["tex_all"])
        self.assertEqual(after, json.loads(text))
        self.assertTrue(path.read_text().startswith(text.rstrip("\n } \n]")), "laid out as it was")

    def test_a_scene_that_draws_otherwise_is_taken_whole(self):
        scene = read(DATA / "scene/cross2.json")
        scene["steps"].insert(0, "Wings(1): span := 650, length1 := 200")
        path = self.put(scene)
        done = run("--accept", path)
        self.assertEqual(done.returncode, 0)
        self.assertIn("vertex", done.stdout)
        after = read(path)
        self.assertEqual(len(after["soft"]), len(scene["soft"]))
        self.assertEqual(after["accepted"]["cases"], ["cross2"])
        self.assertEqual(run("--check", path).returncode, 0)

    def test_nothing_is_accepted_on_a_server(self):
        document = read(VIEWS)
        document["base"]["zoom"] = 1
        path = self.put(document)
        before = path.read_bytes()
        for value in ("true", ""):
            done = run("--accept", path, CI=value)
            self.assertEqual((done.returncode, done.stderr.count("\n")), (2, 1))
            self.assertEqual(path.read_bytes(), before)
        self.assertEqual(run("--check", path, CI="true").returncode, 1)


if __name__ == "__main__":
    main()
