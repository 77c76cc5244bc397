#!/usr/bin/env python3
"""Makes the airfoil files of this folder from the NACA four-digit formulas.

E. N. Jacobs, K. E. Ward, R. M. Pinkerton, "The characteristics of 78 related airfoil sections from tests
in the variable-density wind tunnel", NACA Report 460, 1933. The first digit is the camber in hundredths of
the chord, the second its place in tenths, the last two the thickness in hundredths.

An .xy file is a title and then a point a line, x and height in chords, from the trailing edge along the lower
surface to the leading edge and back along the upper one. Lines end in CR LF. Two .dat files show the same points
as others write them: from the trailing edge over the top and back below, in percent; and the upper side,
then the lower one, each from the leading edge, behind a line that counts them.
"""

import math
import pathlib

AIRFOILS = ["0009", "0012", "2412", "4412", "6409"]
IN_OTHER_ORDERS = "2412"
POINTS_A_SIDE = 20


def half_thickness(t, x):
    return 5 * t * (0.2969 * math.sqrt(x) - 0.1260 * x - 0.3516 * x**2 + 0.2843 * x**3 - 0.1015 * x**4)


def camber(m, p, x):
    """Height and slope of the mean line."""
    if m == 0:
        return 0.0, 0.0
    if x < p:
        return m / p**2 * (2 * p * x - x**2), 2 * m / p**2 * (p - x)
    return m / (1 - p) ** 2 * (1 - 2 * p + 2 * p * x - x**2), 2 * m / (1 - p) ** 2 * (p - x)


def outline(digits):
    m, p, t = int(digits[0]) / 100, int(digits[1]) / 10, int(digits[2:]) / 100
    # Equal steps of the angle: the points crowd where the outline bends most.
    places = [(1 + math.cos(math.pi * k / POINTS_A_SIDE)) / 2 for k in range(POINTS_A_SIDE + 1)]
    lower, upper = [], []
    for x in places:
        height, slope = camber(m, p, x)
        angle, half = math.atan(slope), half_thickness(t, x)
        lower.append((x + half * math.sin(angle), height - half * math.cos(angle)))
        upper.append((x - half * math.sin(angle), height + half * math.cos(angle)))
    return lower + upper[-2::-1]


def decimal(value, places=5):
    text = f"{value:.{places}f}"
    return text if float(text) else text.lstrip("-")


def write(path, rows, end):
    path.write_bytes("".join(f"{row}{end}" for row in rows).encode("ascii"))


def write_other_orders(folder, digits):
    points = [(round(x, 5), round(z, 5)) for x, z in outline(digits)]
    percent = [f"{decimal(100 * x, 3):>9} {decimal(100 * z, 3):>9}" for x, z in reversed(points)]
    write(folder / f"naca{digits}-selig.dat", [f"NACA {digits}, in percent"] + percent, "\n")
    lower, upper = points[POINTS_A_SIDE::-1], points[POINTS_A_SIDE:]
    sides = [[f"{decimal(x):>9} {decimal(z):>9}" for x, z in side] for side in (upper, lower)]
    rows = [f"NACA {digits}", f"{len(upper):8}. {len(lower):8}.", "", *sides[0], "", *sides[1]]
    write(folder / f"naca{digits}-lednicer.dat", rows, "\n")


def main():
    folder = pathlib.Path(__file__).resolve().parent
    for digits in AIRFOILS:
        rows = [f"NACA {digits}"] + [f"{decimal(x)} {decimal(z)}" for x, z in outline(digits)]
        write(folder / f"naca{digits}.xy", rows, "\r\n")
    write_other_orders(folder, IN_OTHER_ORDERS)


if __name__ == "__main__":
    main()
