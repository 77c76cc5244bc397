"""Other people's readers of solids: what they find must be what the files themselves tell."""

import glob
import json
import math
import os
import re
import struct
import subprocess
import zipfile

# glTF lengths are metres.
CUBIC_METRE = 1e9
# Volumes of 32-bit coordinates, far from the origin, as readers of 32 bits add them up.
TOLERANCE = 2e-3


def volume(corners):
    """Of triangles of three points each."""
    return sum(
        a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) + a[2] * (b[0] * c[1] - b[1] * c[0])
        for a, b, c in corners
    ) / 6


def written_obj(path):
    points, bodies, triangles = [], 0, []
    for line in open(path, encoding="utf-8"):
        words = line.split()
        if words[:1] == ["v"]:
            points.append(tuple(float(word) for word in words[1:]))
        bodies += words[:1] == ["o"]
        if words[:1] == ["f"]:
            triangles.append([points[int(word.split("/")[0]) - 1] for word in words[1:]])
    return {"bodies": bodies, "triangles": len(triangles), "volume": volume(triangles)}


def written_stl(path):
    data = open(path, "rb").read()
    count = struct.unpack_from("<I", data, 80)[0]
    triangles = [
        [struct.unpack_from("<3f", data, 84 + 50 * n + 12 * corner) for corner in (1, 2, 3)] for n in range(count)
    ]
    return {"bodies": 1, "triangles": count, "volume": volume(triangles)}


def written_3mf(path):
    text = zipfile.ZipFile(path).read("3D/3dmodel.model").decode()
    found = {"bodies": 0, "triangles": 0, "volume": 0.0}
    for body in text.split("<object ")[1:]:
        points = [tuple(map(float, point)) for point in re.findall(r'<vertex x="(.*?)" y="(.*?)" z="(.*?)"', body)]
        faces = re.findall(r'<triangle v1="(\d+)" v2="(\d+)" v3="(\d+)"', body)
        found["bodies"] += 1
        found["triangles"] += len(faces)
        found["volume"] += volume([[points[int(n)] for n in face] for face in faces])
    return found


def written_glb(path):
    data = open(path, "rb").read()
    length = struct.unpack_from("<I", data, 12)[0]
    model, binary = json.loads(data[20 : 20 + length]), 28 + length

    def numbers(accessor, form, size):
        entry = model["accessors"][accessor]
        start = binary + model["bufferViews"][entry["bufferView"]]["byteOffset"]
        return [struct.unpack_from(form, data, start + size * n) for n in range(entry["count"])]

    found = {"bodies": len(model["nodes"][0]["children"]), "triangles": 0, "volume": 0.0}
    for mesh in model["meshes"]:
        for primitive in mesh["primitives"]:
            points = numbers(primitive["attributes"]["POSITION"], "<3f", 12)
            corners = [points[n[0]] for n in numbers(primitive["indices"], "<I", 4)]
            triangles = list(zip(corners[::3], corners[1::3], corners[2::3]))
            found["triangles"] += len(triangles)
            found["volume"] += volume(triangles)
    return found


WRITTEN = {".stl": written_stl, ".obj": written_obj, ".3mf": written_3mf, ".glb": written_glb}


def compare(finding, path, who, found, written):
    """`finding(path, text)` notes a difference."""
    kind = os.path.splitext(path)[1]
    scale = CUBIC_METRE if kind == ".glb" else 1
    keys = ["triangles"] if kind == ".stl" else ["bodies", "triangles"]
    for key in keys:
        if found[key] != written[key]:
            finding(path, f"{who} finds {found[key]} {key}, written were {written[key]}")
    if not math.isclose(found["volume"] * scale, written["volume"], rel_tol=TOLERANCE):
        finding(path, f"{who} finds a volume of {found['volume'] * scale}, written was {written['volume']}")


def read_by_admesh(finding, call, path):
    """Nothing in the file needs to be mended."""
    done = call(path, "admesh", "--exact", "--normal-directions", "--normal-values", path)
    if done is None:
        return
    for what in (
        "Total disconnected facets",
        "Degenerate facets",
        "Edges fixed",
        "Facets removed",
        "Facets added",
        "Facets reversed",
        "Backwards edges",
        "Normals fixed",
    ):
        counts = [int(count) for count in re.findall(rf"{what}\s*:\s*(\d+)(?:\s+(\d+))?", done.stdout) for count in count if count]
        if not counts or any(counts):
            finding(path, f"admesh, {what}: {counts}")


def read_by_lib3mf(finding, call, build, path, written):
    """Each body is manifold and oriented, the unit is the millimetre, and nothing is complained of."""
    done = call(path, os.path.join(build, "velna_threemf_reader"), path)
    if done is None or done.returncode != 0:
        finding(path, f"lib3mf: {done.stderr.strip() if done else 'no answer'}")
        return
    found = json.loads(done.stdout)
    compare(finding, path, "lib3mf", found, written)
    if found["complaints"]:
        finding(path, f"lib3mf: {found['complaints']} complaints")


def read_all(finding, call, build, exports, modules, node_program):
    """How many files were read."""
    paths = sorted(path for kind in WRITTEN for path in glob.glob(os.path.join(exports, "*" + kind)))
    written = {path: WRITTEN[os.path.splitext(path)[1]](path) for path in paths}
    for path in paths:
        done = call(path, os.path.join(build, "velna_solid_reader"), path)
        if done is None or done.returncode != 0:
            finding(path, f"assimp: {done.stderr.strip() if done else 'no answer'}")
            continue
        compare(finding, path, "assimp", json.loads(done.stdout), written[path])
        if path.endswith(".stl"):
            read_by_admesh(finding, call, path)
        if path.endswith(".3mf"):
            read_by_lib3mf(finding, call, build, path, written[path])
    # Its reader of 3MF needs a browser's reader of XML.
    by_three = [path for path in paths if not path.endswith(".3mf")]
    done = call(exports, "node", node_program, modules, *by_three)
    answers = done.stdout.splitlines() if done else []
    if len(answers) != len(by_three):
        finding(exports, f"three: {done.stderr.strip() if done else 'no answer'}")
    for path, answer in zip(by_three, answers):
        found = json.loads(answer)
        compare(finding, path, "three", found, written[path])
        if found["open"] or found["complaints"]:
            finding(path, f"three: {found['open']} open edges, {found['complaints']}")
    return len(paths)
