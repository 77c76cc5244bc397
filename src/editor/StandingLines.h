#pragma once

#include <array>
#include <cmath>
#include <set>

namespace velna {

/// The lines that stand on a surface where each inverts what it crosses. What a move draws anew
/// stands there already, and inverted once more it would go; what a move takes off may never have
/// been drawn, and would come. So a line is inverted only where that changes whether it stands.
class StandingLines {
public:
    /// Whether the line, to be drawn or taken off, has to be inverted; it is noted as it then is.
    bool changes(double x1, double y1, double x2, double y2, bool takenOff) {
        const Line line =
            x1 < x2 || (x1 == x2 && y1 < y2) ? Line{x1, y1, x2, y2} : Line{x2, y2, x1, y1};
        for (const double coordinate : line)
            if (!std::isfinite(coordinate)) return false;
        return takenOff ? lines_.erase(line) > 0 : lines_.insert(line).second;
    }
    /// The surface has been cleared.
    void clear() { lines_.clear(); }

    friend bool operator==(const StandingLines&, const StandingLines&) = default;

private:
    using Line = std::array<double, 4>;  // the left end first
    std::set<Line> lines_;
};

}  // namespace velna
