#pragma once

#include <array>
#include <string>
#include <vector>

#include "common/Point.h"
#include "model/Rib.h"
#include "model/Units.h"

namespace velna {

/// A text on a part, with its lower left corner at a place.
struct PartText {
    Point2D at;
    double height = 0;  ///< of the font, millimetres
    std::string text;
};

/// A rectangle round something, millimetres, y up.
struct PartBox {
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;

    double width() const { return right - left; }
    double height() const { return top - bottom; }
    void reach(const Point2D& point);
};

/// Something to be cut out of a sheet at true scale: millimetres, x to the right, y up.
struct CutPart {
    std::string name;       ///< "wing 1 rib 003", a part of its file's name
    std::vector<Loop> cut;  ///< closed lines to cut along; the last point is joined to the first
    std::vector<std::array<Point2D, 2>> engrave;  ///< lines that are drawn on it
    std::vector<PartText> texts;                  ///< what is written on it or beside it
    bool turns = true;  ///< may lie turned, its texts below it; else they belong to their places

    /// Round all lines and texts; the width of texts is that of common letters.
    PartBox box() const;
};

/// How wide a text is about, in millimetres.
double textWidth(const std::string& text, double height);

/// The height of texts on paper, and of the first try elsewhere.
inline constexpr double partTextHeight = 3.5;

/// How texts on parts are written.
struct Lettering {
    int units = millimetres;  ///< of the lengths that they tell
    bool onPaper = false;     ///< in `partTextHeight` alone, which is the only one there
};

/// Writes `lines` on the part: inside it, on both sides of the line y = `axis` or above that, in
/// the largest letters that have room, and otherwise below it.
void label(CutPart& part, const std::vector<std::string>& lines, const Lettering& lettering,
           double axis = 0);

/// The same, to the right of x = `from`, where another line stands.
void labelBeside(CutPart& part, const std::vector<std::string>& lines, const Lettering& lettering,
                 double axis, double from);

/// The same part turned by a right angle, for a sheet that is higher than wide. Its texts stay
/// upright, below it; those that are wider than the part are broken behind their commas.
CutPart turned(const CutPart& part);

}  // namespace velna
