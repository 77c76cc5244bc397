#pragma once

#include <string>
#include <vector>

#include "common/Outcome.h"
#include "common/Point.h"
#include "model/SymWingSections.h"

namespace velna {

/// A closed line: the last point is joined to the first one.
using Loop = std::vector<Point2D>;

/// The signed area inside a loop by the trapezoid (shoelace) formula, positive where it runs
/// counter-clockwise with y up; parts that are run round twice count twice.
double signedArea(const Loop& loop);

/// Why a part with this outline cannot be cut ("fewer than 3 points", "no area"); empty where it
/// can. Nothing reaches farther than `largestPart` from its own origin.
std::string whyNotCut(const Loop& outline);

/// At how many places a panel gets ribs. Root and tip are always among them.
struct StationWish {
    int count = 8;       ///< evenly spread, 2 to 1000; counts where `spacing` is 0
    double spacing = 0;  ///< millimetres along the developed span, from the root; 0: by `count`
};

/// A place of a rib.
struct Station {
    double share = 0;     ///< 0 at the root, 1 at the tip
    double position = 0;  ///< millimetres from the root along the developed span
};

inline constexpr int mostStations = 1000;

/// The stations of a panel whose developed span is `span` millimetres. Failed with a word where
/// the wish is none: fewer than 2 or more than 1000 stations, a spacing below 0 or not finite.
Outcome stationsOf(const StationWish& wish, double span, std::vector<Station>& stations);

/// The section of a panel's solid at one station: a straight loft between root and tip, whose
/// absolute heights run straight, not their ratio to the chord. There is no twist; sweep and
/// dihedral move a rib and do not change it.
struct Rib {
    Station station;
    double chord = 0;  ///< millimetres
    /// Millimetres, x backward from the airfoil's own origin, y up from the chord line, which runs
    /// from 0 to `chord`; a point for each of the airfoil, in its order.
    Loop outline;
    std::string why;  ///< why there is no rib ("no chord"); `outline` is empty then
};

/// The rib of `panel`, whose lengths are in `units`, at a station.
Rib ribAt(const SymWingSections& panel, int units, const Station& station);

}  // namespace velna
