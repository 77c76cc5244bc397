#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/AirfoilOutline.h"

/// Sections of the NACA four- and five-digit families.
///
/// Four digits (E. N. Jacobs, K. E. Ward, R. M. Pinkerton, NACA Report 460, 1933): the camber in
/// hundredths of the chord, its place in tenths, and the thickness in hundredths. Five digits (E.
/// N. Jacobs, R. M. Pinkerton, NACA Report 537, 1935; I. H. Abbott, A. E. von Doenhoff, "Theory of
/// Wing Sections", 1949, section 6.4 and appendix): the design lift coefficient times 20/3, the
/// place of the camber in twentieths, 1 for a mean line that turns up at the tail, and the
/// thickness.
namespace velna::NacaSection {

/// What the digits tell. Only `number` makes one.
struct Digits {
    double camber = 0;     ///< four digits: the greatest height of the mean line, in chords
    double place = 0;      ///< four digits: where that lies, in chords
    double thickness = 0;  ///< in chords
    int meanLine = 0;      ///< five digits: the first three without the lift, as 30 or 31; else 0
    double lift = 0;       ///< five digits: the design lift coefficient
};

/// A section's number, with or without "NACA" before it, as Digits; throws ReadFailure, with a
/// reason to be told, for a number that no section of these families has.
Digits number(std::string_view text);

/// The height of the mean line at `x`, and its slope there, in chords.
struct MeanLine {
    double height;
    double slope;
};
MeanLine meanLineAt(const Digits& digits, double x);

/// Half the thickness at `x`, in chords; with a `closed` edge it ends at 0, else as published, at
/// about a hundredth of the whole thickness.
double halfThicknessAt(const Digits& digits, double x, bool closed);

inline constexpr int fewestPoints = 9;
inline constexpr int mostPoints = 999;

/// `points` points (from `fewestPoints` to `mostPoints`, taken into that range) of the section as a
/// wing panel has them: from the trailing edge along the lower side to the nose and back along the
/// upper one. They stand at equal steps of the angle, and so crowd where the outline bends most; an
/// odd number has one at the nose itself.
AirfoilOutline::Points outline(const Digits& digits, int points, bool closed);

}  // namespace velna::NacaSection
