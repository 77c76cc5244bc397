"""Looking at pictures of the screen: pixels, and a comparison that forgives what no eye sees."""

import pathlib
import subprocess

BLOCK = 8  # pixels of a square that is compared by its mean colour
TOLERANCE = 24  # of 255, for one square
SHARE = 0.02  # of the squares may differ: text hinting, a driver's edge


class Picture:
    """The pixels of a PNG."""

    def __init__(self, file, scale=None):
        command = ["convert", str(file)]
        if scale:
            command += ["-scale", f"{100 / scale}%"]
        raw = subprocess.run(command + ["-depth", "8", "ppm:-"], capture_output=True, check=True).stdout
        head = raw.split(b"\n", 3)
        self.width, self.height = map(int, head[1].split())
        self.data = head[3]

    def pixel(self, x, y):
        at = 3 * (y * self.width + x)
        return tuple(self.data[at : at + 3])

    def count(self, wanted):
        """How many pixels `wanted(red, green, blue)` accepts."""
        data = self.data
        return sum(1 for at in range(0, len(data) - 2, 3) if wanted(data[at], data[at + 1], data[at + 2]))

    def colours(self):
        return {self.data[at : at + 3] for at in range(0, len(self.data) - 2, 3)}


def difference(one, other):
    """The share of squares whose mean colours differ more than a little; 1 if the sizes differ."""
    a, b = Picture(one, BLOCK), Picture(other, BLOCK)
    if (a.width, a.height) != (b.width, b.height):
        return 1.0
    differ = 0
    for at in range(0, len(a.data) - 2, 3):
        if max(abs(a.data[at + k] - b.data[at + k]) for k in range(3)) > TOLERANCE:
            differ += 1
    return differ / (a.width * a.height)


def check_like(taken, stored):
    """The picture taken looks like the stored one, which was looked at once."""
    stored = pathlib.Path(stored)
    if not stored.exists():
        raise AssertionError(f"no stored picture {stored}; look at {taken} and keep it")
    share = difference(taken, stored)
    if share > SHARE:
        raise AssertionError(f"{taken} differs from {stored} in {share:.1%} of its squares")
