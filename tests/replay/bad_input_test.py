#!/usr/bin/env python3
"""velna_replay on files, scenarios and scenes that are none.

usage: bad_input_test.py VELNA_REPLAY TESTS_DATA
"""

from replaying import DATA, VIEWS, Replay, main, read, run


class BadInput(Replay):
    """One line on standard error, exit status 2, and nothing written."""

    def refused(self, *arguments, says=""):
        done = run(*arguments)
        self.assertEqual(done.returncode, 2, (arguments, done.stdout[:500], done.stderr[:500]))
        self.assertEqual(done.stderr.count("\n"), 1, done.stderr[:500])
        self.assertIn(says, done.stderr)
        return done

    def refused_everywhere(self, content, says):
        path = self.put(content)
        before = path.read_bytes()
        self.refused(path, self.folder / "out.json", says=says)
        self.refused("--check", path, says=says)
        self.refused("--accept", path, says=says)
        self.assertFalse((self.folder / "out.json").exists())
        self.assertEqual(path.read_bytes(), before)

    def scenario(self, **members):
        views = read(VIEWS)
        views["cases"] = [views["cases"][0] | members]
        return views

    def test_words_that_are_no_command(self):
        for words in ([], ["a.json"], ["a.json", "b.json", "c.json"], ["--lines"], ["--check", "--accept"],
                      ["--check", "--lines"], ["--nonsense", "a.json", "b.json"], ["", "b.json"]):
            self.refused(*words, says="usage: ")

    def test_files_that_are_not_there_or_hold_no_json(self):
        self.refused(self.folder / "none.json", self.folder / "out.json", says="cannot be read")
        self.refused("--check", self.folder, says="cannot be read")
        self.refused(VIEWS, self.folder / "none" / "out.json", says="cannot be written")
        for content, says in [("", "parse error"), ("{", "parse error"), ("\x00\xff", "parse error"),
                              ("[]", "is no object"), ("{}", "holds neither"), ("5", "is no object"),
                              ('{"a":' * 100000 + "1" + "}" * 100000, "nested too deeply"), ('{"a":1e999}', "number overflow"),
                              ((DATA / "scene/cases.json").read_text(), "holds neither"),
                              ('{"cases":{},"base":{}}', '"cases" is no list'), ('{"cases":[],"base":{}}', '"surface"'),
                              ('{"cases":[],"base":5}', '"base" no object')]:
            self.refused_everywhere(content, says)

    def test_scenarios_that_cannot_be_run(self):
        for members, says in [
            ({"name": 5}, "a case without a name"), ({"steps": 5}, '"steps" is no list'), ({"setup": {}}, '"setup" is no list'),
            ({"steps": [5]}, "step 0: is no object"), ({"setup": ["x"]}, "setup 0: is no object"),
        ]:
            with self.subTest(members=members):
                self.refused_everywhere(self.scenario(**members), says)
        for name in ("steps", "setup"):
            document = self.scenario()
            del document["cases"][0][name]
            self.refused_everywhere(document, f'no "{name}"')

    def test_steps_that_are_none(self):
        for step, says in [
            ({}, 'no "op"'), ({"op": 5}, '"op" cannot be 5'), ({"op": "jump"}, 'no such step: "jump"'),
            ({"op": "view"}, 'no "view"'), ({"op": "view", "view": "Below"}, "no such view"),
            ({"op": "press", "button": 1, "shift": 0, "x": 1}, 'no "y"'),
            ({"op": "press", "button": 1, "shift": 0, "x": 1e300, "y": 0}, '"x" cannot be'),
            ({"op": "press", "button": 1.5, "shift": 0, "x": 1, "y": 0}, '"button" cannot be'),
            ({"op": "key", "code": 70000, "shift": 0}, '"code" cannot be'),
            ({"op": "flag", "name": "nokey", "value": True}, ""), ({"op": "menu", "entry": "None"}, "no such control"),
            ({"op": "text", "control": "NoText", "text": "1"}, "no such control"),
            ({"op": "toolbar", "key": "Save"}, "no such toolbar key"), ({"op": "manager", "action": "fly"}, "no such action"),
            ({"op": "manager", "action": "show", "selected": [99]}, ""), ({"op": "manager", "action": "show", "selected": [0]}, ""),
            ({"op": "prefs", "inches": 1, "scale": "100"}, '"inches" cannot be'),
            ({"op": "key", "code": 79, "shift": 0, "picture": [1]}, '"picture" cannot be'),
            ({"op": "tab", "tab": 1, "lines": "yes"}, '"lines" cannot be'),
        ]:
            with self.subTest(step=step):
                document = self.scenario(steps=[{"op": "refresh"}, step])
                self.refused("--check", self.put(document), says="view_VTop_default: step 1: " + says)

    def test_setups_that_are_none(self):
        for entry, says in [
            ({}, 'no "transform"'), ({"transform": [1, 2]}, '"transform"'), ({"transform": [1, 2, "3"]}, '"transform"'),
            ({"set": "Wings(1).span"}, 'no "value"'), ({"set": "Wings(1).span", "value": "x"}, '"value" cannot be'),
            ({"set": "Wings(9).span", "value": 1}, "no such object"), ({"set": "Wings(0).span", "value": 1}, "no such object"),
            ({"set": "Wings(x).span", "value": 1}, ""), ({"set": "Wings(1).colour", "value": 1}, "no such field"),
            ({"set": "Balloon.span", "value": 1}, "no such object"), ({"set": "balloon", "value": 1}, "no such field"),
            ({"set": "currentFuselage", "value": 2}, "no such object"), ({"set": "Fuselages(1).width(40)", "value": 2}, "no such object"),
            ({"set": "Fuselages(1).weight(1)", "value": 2}, "no such field"), ({"set": "Fuselages(1).nb_cross", "value": -3}, "nb_cross"),
            ({"set": "Fuselages(1).nb_sections", "value": 900}, "no such object"), ({"set": "Fuselages(1).sel_sec", "value": 1.5}, ""),
            ({"set": "Fuselages(1).transparent", "value": 3}, ""), ({"call": "addTail"}, "no such call"),
            ({"call": "tick"}, 'no "index"'), ({"call": "tick", "index": 5, "value": True}, "no such item"),
            ({"fuselage": 1, "sections": []}, '"sections"'), ({"fuselage": 1, "sections": [[1, 2]]}, '"sections"'),
            ({"fuselage": 7, "sections": [[1, 2, 3, 4, 5, 6, 7]]}, "no such fuselage"),
        ]:
            with self.subTest(entry=entry):
                done = self.refused(self.put(self.scenario(setup=[entry])), self.folder / "out.json", says=says)
                self.assertIn("view_VTop_default: setup", done.stderr)

    def test_too_many_objects(self):
        self.refused_everywhere(self.scenario(setup=[{"call": "addBox"}] * 1200), "more than 1000")

    def test_expectations_that_hold_too_little(self):
        for expected in ({}, {"steps": []}, {"steps": [{}]}, {"steps": [{"changed": {}}]}, 5, {"steps": 5},
                         {"steps": [{"changed": {}, "lines": 5}]}, {"steps": [5]}):
            with self.subTest(expected=expected):
                self.refused("--check", self.put(self.scenario(expected=expected)), says="view_VTop_default: ")
        document = self.scenario()
        del document["base"]
        self.refused("--check", self.put(document), says='no "base"')

    def test_another_surface(self):
        document = self.scenario()
        document["surface"]["DrawArea"] = [100, 100]
        self.refused_everywhere(document, '"surface" is not')

    def test_scenes_that_cannot_be_run(self):
        for members, says in [
            ({"name": None}, "a case without a name"), ({"file": 5}, 'no text "file"'), ({"file": "none.vln"}, "default: "),
            ({"file": "square8.bmp"}, "no Velna project"), ({"check": "roughly"}, '"check"'), ({"steps": []}, "the last of"),
            ({"steps": ["jump", "renderScene(true), recorded"]}, "no such step: jump"),
            ({"steps": ["Rudder.span := x", "renderScene(true), recorded"]}, "no such step"),
            ({"steps": ["Rudder.span := 5 6", "renderScene(true), recorded"]}, "no such step"),
            ({"steps": ["Rudder.span := 5,", "renderScene(true), recorded"]}, "no such step"),
            ({"steps": ["Rudder.colour := 5", "renderScene(true), recorded"]}, "no such field"),
            ({"steps": ["Wings(7).span := 5", "renderScene(true), recorded"]}, "no such field"),
            ({"steps": [5, "renderScene(true), recorded"]}, "no such step: 5"),
            ({"calls": 5}, '"calls" is no list'), ({"calls": [[]]}, "call 0: no call"), ({"calls": [["glEnd"]]}, "call 0: glEnd"),
            ({"calls": [["glBegin", "GL_QUADS"], ["glBegin", "GL_QUADS"]]}, "call 1: glBegin"),
            ({"calls": [["glVertex3f", 1, 2]]}, "call 0: no call"), ({"calls": [["glMaterialfv", "a", "b", [1]]]}, "call 0: no call"),
            ({"calls": [["glBindTexture", "a", 1.5]]}, "call 0: no call"), ({"soft": [-1]}, '"soft"'), ({"soft": 5}, '"soft"'),
            ({"pictures": [1]}, '"pictures"'), ({"pictures": {"Rudder": 1}}, '"pictures"'),
        ]:
            with self.subTest(members=members):
                self.refused("--check", self.put(read(DATA / "scene/default.json") | members), says=says)
        for name in ("messages", "soft", "pictures", "primitives", "vertices"):
            scene = read(DATA / "scene/default.json")
            del scene[name]
            self.refused_everywhere(scene, f'no "{name}"')


if __name__ == "__main__":
    main()
