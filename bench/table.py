#!/usr/bin/env python3
"""The benchmarks as one table: each row beside its reference, medians of rounds that are worked in turn.

Use: table.py BUILD_FOLDER [ROUNDS]
"""

import json
import os
import statistics
import subprocess
import sys

# Program, row, its reference in the same program, and the bar: at most so many times the reference, a point for a
# point where both count their points, so that a step's largest size beside its smallest shows how it grows. A row
# without a reference carries its ratio itself.
ROWS = [
    ("mesh", "createOneExponent", "writePointsFromTables", 1.2),
    ("mesh", "createOwnExponents", "writePointsFromPowers", 1.2),
    ("figures", "figuresOfAChange/ownExponents:0/hull:1", "trianglesAlone/ownExponents:0", 0.5),
    ("figures", "figuresOfAChange/ownExponents:1/hull:1", "trianglesAlone/ownExponents:1", 0.5),
    ("figures", "allFigures/ownExponents:0", "trianglesAlone/ownExponents:0", 2.5),
    ("figures", "allFigures/ownExponents:1", "trianglesAlone/ownExponents:1", 2.0),
    ("growth", "importAirfoil/32767", "importAirfoil/32", 1.5),
    ("growth", "importInAnyOrder/32767", "importInAnyOrder/32", 1.5),
    ("growth", "rebuildHull/3997574/process_time", "rebuildHull/4000/process_time", 1.3),
    ("growth", "rebuildHullByTheClock/real_time", "rebuildHullInOneThread/real_time", 1.1),
    ("growth", "hullMemory/iterations:1", None, 1.1),
    ("growth", "frontOfSelected", "frontOfAll", 0.2),
    ("live", "dragStep/100000/process_time", "replay/100000/process_time", 1.15),
    ("live", "sliderStep/60000/process_time", "replay/60000/process_time", 1.15),
    ("scene", "replayedFrame/process_time", "replayedFrameBare/process_time", 1.1),
    ("scene", "rebuild/bodies:0/process_time", "replayedFrame/process_time", 1.1),
    ("scene", "rebuild/bodies:1/process_time", "rebuild/bodies:0/process_time", 1.15),
    ("scene", "rebuild/bodies:20/process_time", "rebuildBare/process_time", 1.15),
    ("scene", "flightFrame/process_time", "flightFrameBare/process_time", 1.1),
    ("picture", "convertWingPicture", "toolkitAlone", 1.2),
    ("history", "historyStep", "compareAndKeep", 1.2),
    ("history", "historyNoStep", "compareAlone", 1.2),
    ("output", "vrmlExport/1000000/process_time", "vrmlBareLoop/process_time", 1.3),
    ("output", "dxfFrontExport/1000000/process_time", "dxfBareLoop/process_time", 1.3),
    ("solid", "stlWrite/process_time", "stlBareLoop/process_time", 1.7),
    ("solid", "solidExport/stl/process_time", "stlBareLoop/process_time", 1.7),
    ("plan", "planFront/400000/process_time", "planBare/400000/process_time", 1.2),
    ("plan", "planWatched/400000/process_time", "planFront/400000/process_time", 1.05),
    ("output", "vrmlWatched/400000/process_time", "vrmlExport/400000/process_time", 1.05),
    ("rib", "packRibs/200", None, 1.0),
    ("rib", "cutRibs/200", "offsetBare/200", 1.5),
    ("project", "save/iterations:7", None, 1.3),
    ("project", "read/iterations:7", None, 1.5),
    ("project", "wingsWithRecords/iterations:7", None, 1.5),
    ("project", "readLegacy/iterations:7", None, 1.5),
    ("recovery", "dragKept", "dragAlone", 1.05),
    ("recovery", "handOver", "twoCopies", 2.0),
    ("raster", "ownLines", "toolkitLines", 1.1),
]
# Program and row of what is worked at four sizes over three decades: a point of the largest takes at most so many times
# what one of the second takes (the smallest carries what every run costs).
GROWTH = [
    ("output", "vrmlExport/{}/process_time", [4000, 40000, 400000, 4000000], 1.3),
    ("output", "dxfFrontExport/{}/process_time", [4000, 40000, 400000, 4000000], 1.3),
    ("plan", "planFront/{}/process_time", [4000, 40000, 400000, 4000000], 1.3),
    ("project", "growth/save/{}/process_time", [276, 2760, 27600, 276000], 1.3),
    ("project", "growth/read/{}/process_time", [276, 2760, 27600, 276000], 1.3),
]
# Rows whose memory counts: "more_MB" against "limit_MB".
PROMISES = [("project", "promised/wings/iterations:1"), ("project", "promised/fuselages/iterations:1")]
# What holds up a row that is over its bar, by a profile of it.
HELD_UP = {
    "drag 1 of 500 sections in HTop/editor": "lines 72 %, outlines cut into lines 9 %, which the bare list has behind it",
    "redraw HTop/editor": "outlines cut into lines, as in the drag there",
    "slider step on 500 sections/editor": "lines 44 %, cleared surface 20 %, outlines cut into lines 4 %",
    "replayedFrame/process_time": "the driver's threads; nothing of the program above 3 %, and no more by the clock",
    "convertWingPicture": "the quarter turn's image of 64 MB: rotation and page faults",
    "vrmlExport/1000000/process_time": "digits of numbers 36 %, of indices 13 %",
    "dxfFrontExport/1000000/process_time": "digits 25 %, and the outlines, which the bare loop has behind it",
    "wingsWithRecords/iterations:7": "the loop over digits in takeNumber",
}
# Each of the editor's rows has its reference beside it.
OWN, REFERENCE, REDRAW_BAR = "/editor", "/lines", 1.1
PROGRAMS = ["mesh", "figures", "growth", "views", "scene", "live", "picture", "history", "output", "solid", "plan", "rib",
            "project", "recovery", "raster"]


def run(build, program):
    """The rows of one run by name."""
    command = [os.path.join(build, "bench", f"velna_{program}_bench"), "--benchmark_format=json", "--benchmark_min_time=0.1"]
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}
    told = subprocess.run(command, capture_output=True, text=True, check=True, env=environment).stdout
    return {row["name"]: row for row in json.loads(told[told.index("{") :])["benchmarks"]}


def ratio_of(rows, row, reference):
    """How many times the reference a row takes in one run; None where it was not measured."""
    if row not in rows or "error_occurred" in rows[row] or (reference and reference not in rows):
        return None
    return rows[row]["ratio"] if reference is None else time_of(rows[row]) / time_of(rows[reference])


def time_of(row):
    """A row's time, by the clock where it is measured so; of one point where it counts them."""
    if "items_per_second" in row:
        return 1 / row["items_per_second"]
    return row["real_time" if row["name"].endswith("/real_time") else "cpu_time"]


def wanted(program, rows):
    """(row, reference, bar) of a program."""
    yield from (entry[1:] for entry in ROWS if entry[0] == program)
    for name in rows:
        if name.endswith(OWN):
            yield name, name.removesuffix(OWN) + REFERENCE, REDRAW_BAR


def median(runs, row, key):
    """The median of a figure of a row over all runs; None where it was not measured."""
    found = [rows[row][key] for rows in runs if key in rows.get(row, {})]
    return statistics.median(found) if found else None


def print_growth(runs):
    """Nanoseconds and bytes a point at each size."""
    print(f"\n{'program':9} {'growth over three decades':37} {'ns a point':>27} {'bytes a point':>31} {'grows':>6} {'bar':>6}")
    for program, name, sizes, bar in GROWTH:
        rows = [name.format(size) for size in sizes]
        times = [median(runs[program], row, "cpu_time") for row in rows]
        if None in times:
            print(f"{program:9} {name:37} not measured")
            continue
        times = [time * 1e6 / size for time, size in zip(times, sizes)]
        above = [median(runs[program], row, "MB_above") * 1e6 / size for row, size in zip(rows, sizes)]
        grows = times[-1] / times[1]
        shown = " ".join(f"{time:6.0f}" for time in times) + "    " + " ".join(f"{memory:6.1f}" for memory in above)
        print(f"{program:9} {name:37} {shown} {grows:6.2f} {bar:6.2f}{'  over' if grows > bar else ''}")


def print_promises(runs):
    """What tiny files cost that promise as many objects as a count can tell."""
    print()
    for program, row in PROMISES:
        more, limit = median(runs[program], row, "more_MB"), median(runs[program], row, "limit_MB")
        print(f"{program:9} {row:45} {more:6.1f} MB of {limit:.0f}{'  over' if more > limit else ''}")


def main():
    build, rounds = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 5
    ratios, runs = {}, {program: [] for program in PROGRAMS}
    for _ in range(rounds):
        for program in PROGRAMS:
            rows = run(build, program)
            runs[program].append(rows)
            for row, reference, bar in wanted(program, rows):
                ratios.setdefault((program, row, bar), []).append(ratio_of(rows, row, reference))
    print(f"{'program':9} {'row':45} {'ratio':>6} {'least':>6} {'most':>6} {'bar':>6}")
    for (program, row, bar), found in ratios.items():
        if None in found:
            print(f"{program:9} {row:45} not measured")
            continue
        median = statistics.median(found)
        over = f"  over: {HELD_UP.get(row, 'not profiled')}" if median > bar else ""
        print(f"{program:9} {row:45} {median:6.2f} {min(found):6.2f} {max(found):6.2f} {bar:6.2f}{over}")
    print_growth(runs)
    print_promises(runs)


main()
