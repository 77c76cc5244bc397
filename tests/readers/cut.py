"""Lets other people's programs read the plans for machines that cut: DXF by ezdxf and GDAL, SVG by librsvg."""

import collections
import glob
import os
import re
import struct
import xml.etree.ElementTree as xml

SVG = "{http://www.w3.org/2000/svg}"
PLANS = ("wing", "ribs", "sections")
DOTS = 254  # an inch: 10 a millimetre
NEAR = 1e-5  # millimetres between the two files of a plan


def pairs_of(path):
    lines = open(path, encoding="ascii", newline="").read().split("\r\n")
    return list(zip(lines[::2], lines[1::2]))


def outlines_of(pairs):
    """The corners of each polyline."""
    outlines = []
    for n, (code, value) in enumerate(pairs):
        if (code, value) == ("0", "POLYLINE"):
            outlines.append([])
        elif (code, value) == ("0", "VERTEX"):
            point = dict(pairs[n + 1 : n + 5])
            outlines[-1].append((float(point["10"]), float(point["20"])))
    return outlines


def area(outline):
    return abs(sum(a[0] * b[1] - b[0] * a[1] for a, b in zip(outline, outline[1:] + outline[:1]))) / 2


def read_by_ezdxf(check, path, outlines, layers):
    import ezdxf

    try:
        drawing = ezdxf.readfile(path)
    except (OSError, ezdxf.DXFError) as failure:
        check.finding(path, f"ezdxf: {failure}")
        return
    auditor = drawing.audit()
    if auditor.has_errors or auditor.has_fixes:
        check.finding(path, f"ezdxf: {[error.message for error in auditor.errors + auditor.fixes]}")
    check.expect_equal(path, "ezdxf's unit", drawing.units, 4)
    found = collections.Counter(entity.dxf.layer for entity in drawing.modelspace())
    check.expect_equal(path, "ezdxf", dict(found), layers)
    known = {layer.dxf.name for layer in drawing.layers}
    check.expect_equal(path, "ezdxf's layers", {"cut", "engrave", "text"} <= known, True)
    polylines = list(drawing.modelspace().query("POLYLINE"))
    check.expect_equal(path, "ezdxf's closed lines", all(line.is_closed for line in polylines), True)
    for line, outline in zip(polylines, outlines):
        corners = [(point.x, point.y) for point in line.points()]
        check.expect_equal(path, "ezdxf's corners", corners, outline)


def read_by_gdal(check, path, layers):
    done = check.call(path, "ogrinfo", "-ro", "-al", path)
    if done is None:
        return
    if done.returncode != 0 or "ERROR" in done.stdout + done.stderr:
        check.finding(path, f"ogrinfo: {done.stderr.strip()}")
        return
    found = collections.Counter(re.findall(r"^  Layer \(String\) = (.*)$", done.stdout, re.MULTILINE))
    check.expect_equal(path, "ogrinfo", dict(found), layers)


def size_of_png(path):
    head = open(path, "rb").read(24)
    return struct.unpack(">II", head[16:24])


def read_by_rsvg(check, path, width, height):
    picture = path + ".png"
    done = check.call(path, "rsvg-convert", f"--dpi-x={DOTS}", f"--dpi-y={DOTS}", "-o", picture, path)
    if done is None:
        return
    if done.returncode != 0 or done.stderr.strip():
        check.finding(path, f"rsvg-convert: {done.stderr.strip() or done.returncode}")
        return
    for found, wanted in zip(size_of_png(picture), (width, height)):
        if abs(found - wanted * DOTS / 25.4) > 1.5:
            check.finding(path, f"rsvg-convert: {found} dots for {wanted} mm")
    os.remove(picture)


def check_svg(check, path, outlines, layers):
    root = xml.parse(path).getroot()
    width, height = (float(root.get(name).removesuffix("mm")) for name in ("width", "height"))
    check.expect_equal(path, "the view box", root.get("viewBox"), f"0 0 {root.get('width')[:-2]} {root.get('height')[:-2]}")
    groups = {group.get("id"): list(group) for group in root.findall(SVG + "g")}
    check.expect_equal(path, "the groups", {name: len(group) for name, group in groups.items() if group}, layers)
    for shape, outline in zip(groups["cut"], outlines):
        numbers = [float(number) for number in re.findall(r"-?\d+(?:\.\d+)?(?:E-?\d+)?", shape.get("d"))]
        corners = list(zip(numbers[::2], (height - y for y in numbers[1::2])))
        same = len(corners) == len(outline) and all(
            abs(a - b) < NEAR for here, there in zip(corners, outline) for a, b in zip(here, there)
        )
        if not same or not shape.get("d").endswith("Z"):
            check.finding(path, "an outline differs from that of the DXF file")
    read_by_rsvg(check, path, width, height)


def check_plan(check, stem):
    pairs = pairs_of(stem + ".dxf")
    outlines = outlines_of(pairs)
    kinds = {"POLYLINE", "LINE", "TEXT"}
    layers = collections.Counter(
        layer for (code, kind), (_, layer) in zip(pairs, pairs[1:]) if code == "0" and kind in kinds
    )
    if not outlines or min(area(outline) for outline in outlines) < 1:
        check.finding(stem, "an outline without an area, or none")
    read_by_ezdxf(check, stem + ".dxf", outlines, dict(layers))
    read_by_gdal(check, stem + ".dxf", dict(layers))
    check_svg(check, stem + ".svg", outlines, dict(layers))


def run(check, folder, projects):
    """Checks the plans of the projects in `folder`; how many there were."""
    stems = sorted(path.removesuffix(".dxf") for path in glob.glob(os.path.join(folder, "*.dxf")))
    check.expect_equal(folder, "the folder", len(stems), len(PLANS) * len(projects))
    for stem in stems:
        check_plan(check, stem)
    return len(stems)
