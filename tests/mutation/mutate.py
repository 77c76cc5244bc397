#!/usr/bin/env python3
"""Makes one-line mutations in a layer, one at a time, and lists those that its tests let pass.

    mutate.py LAYER [COUNT] [SEED] [--also LAYER]... [--only WORD] [--again] [--place FOLDER]

COUNT mutants (30 if not told) of src/LAYER are tried, drawn by SEED (1 if not told): each is compiled, linked into the
layer's test program, and killed when a test of it fails or hangs. `--also` names layers whose tests too are run where
the first pass. What does not compile, and what compiles to the very same object, does not count. `--only` takes files
with WORD in their name. `--again` tries those once more that the last run of the layer let pass.

All is done on a copy in FOLDER, build/mutants if not told: two runs at once need one each. The table of survivors is
printed, and each mutant's fate kept there.
"""

import argparse
import dataclasses
import json
import pathlib
import signal
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "checks"))

import mutations  # noqa: E402
import sources  # noqa: E402
from tree import DoesNotBuild, TestProgram, Tree  # noqa: E402

# A header that more objects include costs too long.
MOST_OBJECTS = 4
REFUSED, SAME, KILLED, SURVIVES = "does not compile", "the same code", "killed", "survives"


def read(arguments):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("layer")
    parser.add_argument("count", nargs="?", type=int, default=30)
    parser.add_argument("seed", nargs="?", default="1")
    parser.add_argument("--also", action="append", default=[], metavar="LAYER")
    parser.add_argument("--only", default="", metavar="WORD")
    parser.add_argument("--again", action="store_true")
    parser.add_argument("--place", type=pathlib.Path, default=sources.ROOT / "build" / "mutants", metavar="FOLDER")
    return parser.parse_args(arguments)


def candidates(tree, layer, word):
    """The mutations of the layer's sources, and of its headers that few objects include."""
    found = []
    for name in sources.files(tree.sources / "src" / layer, ".cpp", ".h"):
        path = pathlib.PurePath("src", layer, name)
        objects = tree.including(path)
        if len(name.parts) == 1 and word in name.name and 0 < len(objects) <= MOST_OBJECTS:
            found += mutations.mutations(str(path), (tree.sources / path).read_text())
    return found


def fate(tree, programs, mutation):
    """(what became of the mutant, by what)."""
    text = (tree.sources / mutation.file).read_text()
    try:
        objects = tree.compile(mutation.file, mutations.applied(text, mutation))
        linked = [(each, tree.link(each.name, objects)) for each in programs if tree.uses(each.name, objects)]
    except DoesNotBuild:
        return REFUSED, ""
    for slow in (False, True):
        if slow and tree.same(mutation.file, objects):
            return SAME, ""
        for program, path in linked:
            if told := program.killer(path, slow):
                return KILLED, told
    return SURVIVES, ""


def tried(tree, programs, order, count):
    """[(mutation, fate, by what)] of the first in `order` until `count` of them count."""
    results, counted = [], 0
    for mutation in order:
        if counted == count:
            break
        started = time.monotonic()
        what, by = fate(tree, programs, mutation)
        results.append((mutation, what, by))
        counted += what in (KILLED, SURVIVES)
        print(f"{counted:3}/{count} {mutation.file}:{mutation.line} {mutation.kind}: {what} {by} "
              f"({time.monotonic() - started:.0f} s)", flush=True)
        if what == SURVIVES:
            print(f"        {mutation.before.strip()}\n        {mutation.after.strip()}", flush=True)
    return results


def table(results):
    """The survivors as rows of a Markdown table."""
    def cell(text):
        return "`" + text.strip().replace("|", "\\|") + "`"

    rows = ["| where | before | after |", "|---|---|---|"]
    for mutation, what, _ in results:
        if what == SURVIVES:
            rows.append(f"| {mutation.file}:{mutation.line} | {cell(mutation.before)} | {cell(mutation.after)} |")
    return "\n".join(rows)


def summary(layer, results):
    number = {what: sum(fate == what for _, fate, _ in results) for what in (REFUSED, SAME, KILLED, SURVIVES)}
    return (f"{layer}: {number[KILLED] + number[SURVIVES]} mutants, {number[KILLED]} killed, "
            f"{number[SURVIVES]} survive; {number[REFUSED]} did not compile, {number[SAME]} were the same code")


def found_again(tree, mutation):
    """The mutation where its line stands today, the nearest of those that read alike; None where it is gone."""
    path = tree.sources / mutation.file
    lines = path.read_text().split("\n") if path.is_file() else []
    places = [number for number, line in enumerate(lines, 1) if line == mutation.before]
    if not places:
        print(f"gone: {mutation.file}:{mutation.line} {mutation.before.strip()}", flush=True)
        return None
    return dataclasses.replace(mutation, line=min(places, key=lambda number: abs(number - mutation.line)))


def kept(tree, place, layer):
    """What survived the last run of the layer, and still finds its line."""
    last = json.loads((place / f"{layer}.json").read_text())
    survivors = [mutations.Mutation(**entry["mutation"]) for entry in last if entry["fate"] == SURVIVES]
    return [again for mutation in survivors if (again := found_again(tree, mutation))]


def main(arguments):
    told = read(arguments)
    place = told.place.resolve()
    place.mkdir(parents=True, exist_ok=True)
    tree = Tree(sources.ROOT, place)
    names = [f"velna_{layer}_test" for layer in [told.layer, *told.also]]
    print("Building " + ", ".join(names), flush=True)
    tree.make(names)
    programs = [TestProgram(tree, name) for name in names]
    if told.again:
        order = kept(tree, place, told.layer)
        results = tried(tree, programs, order, len(order))
    else:
        found = candidates(tree, told.layer, told.only)
        order = mutations.drawn(found, f"{told.layer} {told.seed}")
        results = tried(tree, programs, order, told.count)
    for program in programs:  # what a mutant has spoilt would have killed all after it
        TestProgram(tree, program.name)
    kept_file = place / f"{told.layer}{'-again' if told.again else ''}.json"
    entries = [{"mutation": dataclasses.asdict(made), "fate": what, "by": by} for made, what, by in results]
    kept_file.write_text(json.dumps(entries, indent=1))
    print(f"\n{table(results)}\n\n{summary(told.layer, results)}")
    return results


if __name__ == "__main__":
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))  # so that what was changed is restored
    main(sys.argv[1:])
