"""Files of the sizes that the window must stand, made of the default aircraft's own records."""

import pathlib
import struct
import zlib

EXAMPLE = pathlib.Path(__file__).resolve().parent.parent / "tests" / "data" / "projects" / "current" / "default.vln"


def write_lines(file, lines):
    file.write_text("\r\n".join(lines) + "\r\n", newline="")
    return file


def bodies(file, count, sections, points):
    """A project of `count` fuselages, each of so many sections, of so many points."""
    lines = EXAMPLE.read_text().splitlines()
    first, rudder, names = lines.index("Fuselage"), lines.index("Rudder"), lines.index("ObjectList")
    shape = lines[first + 3:first + 12]
    body = ["Fuselage", str(sections), str(points), *shape]
    for n in range(sections):
        width, height, place = 100 + n % 11, 100 + n % 7, f"{n * 2000 / sections:.6g}"
        body += [str(width), str(height), place, "10", "1", "1", "0.5"]
    shown = [line for n in range(count) for line in (f'"Fuselage {n + 1:03d}"', "#TRUE#")]
    rest = lines[rudder:names] + ["ObjectList", str(count), *shown] + lines[names + 4:] + ['""'] * (count - 1)
    return write_lines(file, [*lines[:first - 1], str(count), *body * count, *rest])


def airfoil(file, points):
    """The outline of a lens, from the trailing edge over the top and back below."""
    half = points // 2
    top = [(1 - n / half, 0.24 * (n / half) * (1 - n / half)) for n in range(half)]
    bottom = [(n / half, -0.16 * (n / half) * (1 - n / half)) for n in range(half + 1)]
    return write_lines(file, ["lens", *(f"{x:.9f} {y:.9f}" for x, y in top + bottom)])


def picture(file, side):
    """A PNG of `side` times `side` points, in stripes."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    line = b"\0" + bytes(range(256)) * (3 * side // 256) + bytes(3 * side % 256)
    packer = zlib.compressobj(1)
    packed = b"".join([*(packer.compress(line) for _ in range(side)), packer.flush()])
    head = struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)
    file.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", packed) + chunk(b"IEND", b""))
    return file
