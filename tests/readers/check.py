#!/usr/bin/env python3
"""Lets other people's programs read what Velna exports, and compares what they found.

    check.py BUILD-FOLDER EXPECTED-FOLDER PROJECT...

The projects are exported by velna_export_all; the models and drawings in EXPECTED-FOLDER, which the unit
tests hold the exports to, are read as well. Each reader has a time limit, since some never end on a
faulty file.
"""

import collections
import glob
import json
import os
import re
import shutil
import subprocess
import sys

import cut
import solids

LIMIT = 60  # seconds for one call of a reader
HERE = os.path.dirname(os.path.abspath(__file__))

findings = []


def finding(path, text):
    findings.append(f"{os.path.basename(path)}: {text}")


def call(path, *command):
    """The finished reader, or None where it could not be run or did not end."""
    try:
        return subprocess.run(command, capture_output=True, text=True, timeout=LIMIT)
    except (OSError, subprocess.TimeoutExpired) as failure:
        finding(path, f"{command[0]}: {failure}")
        return None


def expect_equal(path, who, found, expected):
    if found != expected:
        finding(path, f"{who} finds {found}, written were {expected}")


# VRML: what is written, counted from the text itself


def bracket(text, title):
    """The texts between the brackets behind each `title`."""
    return [block.split("[", 1)[1].split("]", 1)[0] for block in re.split(rf"\b{title}\b", text)[1:]]


def faces_of(block):
    faces, face = [], []
    for number in (int(value) for value in re.findall(r"-?\d+", block)):
        if number == -1:
            faces.append(face)
            face = []
        else:
            face.append(number)
    return faces


def written_model(path):
    text = open(path, encoding="utf-8").read()
    counts = collections.Counter()
    for node in re.split(r"\n    # ", text)[1:]:
        counts["shapes"] += 1
        if "geometry IndexedFaceSet" not in node:
            counts["boxes"] += 1
            continue
        points = [line for line in bracket(node, "coord Coordinate\\s+\\{\\s+point")[0].splitlines() if line.strip()]
        faces = faces_of(bracket(node, "coordIndex")[0])
        counts["points"] += len(points)
        counts["faces"] += len(faces)
        check_texture(path, node)
        if any(corner >= len(points) for face in faces for corner in face):
            finding(path, "a face names a point that is not there")
    for colour in re.findall(r"diffuseColor (.*)", text):
        if any(not 0 <= float(value) <= 1 for value in colour.split()):
            finding(path, f"colour {colour}")
    return counts


def check_texture(path, node):
    """No reader at hand sees a texture index that is out of range."""
    if "texCoordIndex" not in node:
        return
    places = [line for line in bracket(node, "texCoord TextureCoordinate \\s+\\{\\s+point")[0].splitlines() if line.strip()]
    if any(corner >= len(places) for face in faces_of(bracket(node, "texCoordIndex")[0]) for corner in face):
        finding(path, "a texture face names a place that is not there")


# The boxes' size stands without a blank behind the word ("size30 15 25"), as in every file that was ever
# exported. No reader here takes that: three skips the field, the others drop the file. What they read is a
# copy that differs in this one blank, so that everything else in the file is still held to be right.
BOX_SIZE = re.compile(r"^(          size)(?=[-0-9])", re.MULTILINE)


def readable_copy(path, folder):
    """The model with that blank, and beside it the pictures that it names, where they are missing."""
    text = open(path, encoding="utf-8", newline="").read()
    copy = os.path.join(folder, os.path.basename(path))
    with open(copy, "w", encoding="utf-8", newline="") as file:
        file.write(BOX_SIZE.sub(r"\1 ", text))
    for url in set(re.findall(r'url "([^"]+)"', text)):
        open(os.path.join(folder, url), "ab").close()
    return copy


def beyond_single_precision(path):
    """VRML's numbers are single precision: whether some do not fit, at which Coin complains and goes on."""
    numbers = re.findall(r"[-+]?[\d.]+E[-+]?\d+", open(path, encoding="utf-8").read())
    return any(0 < abs(float(number)) < 2.0**-126 or abs(float(number)) > 2.0**127 for number in numbers)


def read_by_coin(path, program, counts):
    done = call(path, program, path)
    if done is None:
        return
    complaints = done.stderr.splitlines()
    if beyond_single_precision(path):
        complaints = [line for line in complaints if "replacing with 0.0f" not in line and "Occurred at line" not in line]
    if complaints or not done.stdout:
        finding(path, f"Coin: {complaints or done.returncode}")
        return
    found = json.loads(done.stdout)
    expected = {
        "shapes": counts["shapes"],
        "face_sets": counts["shapes"] - counts["boxes"],
        "points": counts["points"],
        "faces": counts["faces"],
    }
    expect_equal(path, "Coin", found, expected)


def read_by_tovrmlx3d(path, counts):
    done = call(path, "tovrmlx3d", "--encoding=xml", path)
    if done is None:
        return
    if done.returncode != 0 or done.stderr.strip():
        # It ends with 0 even on errors; the errors stand on standard error.
        finding(path, f"tovrmlx3d: {done.stderr.strip() or done.returncode}")
        return
    found = collections.Counter()
    found["shapes"] = len(re.findall(r"<Shape\b", done.stdout))
    found["boxes"] = len(re.findall(r"<Box\b", done.stdout))
    for points in re.findall(r'<Coordinate\b[^>]*\bpoint="([^"]*)"', done.stdout):
        found["points"] += len(re.findall(r"[^\s,]+", points)) // 3
    for index in re.findall(r'\bcoordIndex="([^"]*)"', done.stdout):
        found["faces"] += len(faces_of(index))
    expect_equal(path, "tovrmlx3d", dict(found), dict(counts))


def read_by_three(paths, modules, counts_of):
    done = call(HERE, "node", os.path.join(HERE, "vrml.js"), modules, *paths)
    if done is None or done.returncode != 0:
        finding(HERE, f"node: {done.stderr.strip() if done else 'no answer'}")
        return
    answers = done.stdout.splitlines()
    expect_equal(HERE, "three", len(answers), len(paths))
    triangles_of_a_box = 12
    for path, answer in zip(paths, answers):
        counts = counts_of[path]
        expected = {
            "meshes": counts["shapes"],
            "triangles": counts["faces"] + triangles_of_a_box * counts["boxes"],
        }
        found = json.loads(answer)
        complaints = found.pop("complaints")
        expect_equal(path, "three", found, expected)
        # The form that is exported: it must be the boxes' size, and nothing else, that it stumbles at.
        known = [text for text in complaints if re.search(r"Unknown field: size[-0-9]", text)]
        expect_equal(path, "three's complaints", complaints, known)
        expect_equal(path, "three's unknown sizes", len(known), counts["boxes"])


# DXF


def written_drawing(path):
    """How many lines each layer has, and no other kind of thing."""
    lines = [line.strip() for line in open(path, encoding="utf-8")]
    pairs = list(zip(lines[::2], lines[1::2]))
    kinds = collections.Counter(value for code, value in pairs if code == "0")
    layers = collections.Counter(value for code, value in pairs if code == "8")
    expect_equal(path, "the text", dict(kinds), {"SECTION": 1, "LINE": layers.total(), "ENDSEC": 1, "EOF": 1})
    return dict(layers)


def read_by_ezdxf(path, layers):
    import ezdxf

    try:
        drawing = ezdxf.readfile(path)
    except (OSError, ezdxf.DXFError) as failure:
        finding(path, f"ezdxf: {failure}")
        return
    auditor = drawing.audit()
    if auditor.has_errors:
        finding(path, f"ezdxf: {[error.message for error in auditor.errors]}")
    found = collections.Counter(entity.dxf.layer for entity in drawing.modelspace().query("LINE"))
    expect_equal(path, "ezdxf", dict(found), layers)


def read_by_dxflib(path, program, layers):
    done = call(path, program, path)
    if done is not None:
        expect_equal(path, "dxflib", json.loads(done.stdout) if done.returncode == 0 else None, layers)


def read_by_gdal(path, layers):
    done = call(path, "ogrinfo", "-ro", "-al", path)
    if done is None:
        return
    if done.returncode != 0 or "ERROR" in done.stdout + done.stderr:
        finding(path, f"ogrinfo: {done.stderr.strip()}")
        return
    found = collections.Counter(re.findall(r"^  Layer \(String\) = (.*)$", done.stdout, re.MULTILINE))
    expect_equal(path, "ogrinfo", dict(found), layers)


def install_three(build):
    """three as the lock file pins it, in the build folder."""
    folder = os.path.join(build, "node")
    os.makedirs(folder, exist_ok=True)
    for name in ("package.json", "package-lock.json", ".npmrc"):
        shutil.copy(os.path.join(HERE, name), folder)
    modules = os.path.join(folder, "node_modules")
    pinned = json.load(open(os.path.join(HERE, "package-lock.json")))["packages"]["node_modules/three"]["version"]
    try:
        present = json.load(open(os.path.join(modules, "three", "package.json")))["version"]
    except OSError:
        present = None
    if present != pinned:
        subprocess.run(["npm", "ci", "--silent", "--no-audit", "--no-fund"], cwd=folder, check=True, timeout=5 * LIMIT)
    return modules


def main(build, expected, projects):
    exports = os.path.join(build, "exports")
    shutil.rmtree(exports, ignore_errors=True)
    plans = os.path.join(exports, "cut")
    os.makedirs(plans)
    subprocess.run([os.path.join(build, "velna_export_all"), exports, *projects], check=True, timeout=5 * LIMIT)
    models, drawings = (
        sorted(glob.glob(os.path.join(exports, kind)) + glob.glob(os.path.join(expected, kind)))
        for kind in ("*.wrl", "*.dxf")
    )
    expect_equal(exports, "the folder", len(glob.glob(os.path.join(exports, "*.wrl"))), len(projects))
    expect_equal(exports, "the folder", len(glob.glob(os.path.join(exports, "*.dxf"))), 4 * len(projects))

    counts_of = {path: written_model(path) for path in models}
    copies = os.path.join(build, "copies")
    shutil.rmtree(copies, ignore_errors=True)
    os.makedirs(copies)
    for path, counts in counts_of.items():
        copy = readable_copy(path, copies)
        read_by_coin(copy, os.path.join(build, "velna_coin_reader"), counts)
        read_by_tovrmlx3d(copy, counts)
    modules = install_three(build)
    read_by_three(models, modules, counts_of)
    bodies = solids.read_all(finding, call, build, exports, modules, os.path.join(HERE, "solids.js"))
    expect_equal(exports, "the folder", bodies, len(solids.WRITTEN) * len(projects))
    for path in drawings:
        layers = written_drawing(path)
        read_by_ezdxf(path, layers)
        read_by_dxflib(path, os.path.join(build, "velna_dxflib_reader"), layers)
        read_by_gdal(path, layers)

    cut_plans = cut.run(sys.modules[__name__], plans, projects)

    total = sum(counts_of.values(), collections.Counter())
    print(
        f"{len(models)} models: {dict(total)}; {len(drawings)} drawings; {cut_plans} plans to cut; "
        f"{bodies} files of solids; {len(findings)} findings"
    )
    print("\n".join(findings))
    return 1 if findings or not models or not drawings else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2], sys.argv[3:]))
