#include "model/Rib.h"

#include <algorithm>
#include <cmath>

#include "common/NumberText.h"
#include "model/Panels.h"

namespace velna {

namespace {

/// A station so near before the tip is the tip's own.
constexpr double sameStation = 1e-6;
/// Square millimetres: what is smaller is the rounding of an area of nothing.
constexpr double smallestArea = 1e-6;

Outcome refuse(const std::string& number) {
    return Outcome::failed("Ribs need from 2 to " + std::to_string(mostStations) +
                           " stations on a panel, root and tip among them: " + number + ".");
}

Outcome byCount(int count, double span, std::vector<Station>& stations) {
    if (count < 2 || count > mostStations)
        return refuse(std::to_string(count) + " is no such number");
    for (int k = 0; k < count; ++k) {
        const double share = static_cast<double>(k) / (count - 1);
        stations.push_back({share, k == 0 ? 0 : share * span});
    }
    return {};
}

Outcome bySpacing(double spacing, double span, std::vector<Station>& stations) {
    if (!(spacing > 0) || !std::isfinite(spacing))
        return Outcome::failed("The spacing of ribs is a number above 0.");
    stations.push_back({0, 0});
    for (int k = 1; k * spacing < span - sameStation; ++k) {
        if (k + 1 >= mostStations)
            return refuse("a spacing of " + numberText(spacing) + " mm gives more");
        stations.push_back({k * spacing / span, k * spacing});
    }
    stations.push_back({1, span});
    return {};
}

bool withinReach(const Loop& outline) {
    return std::all_of(outline.begin(), outline.end(), [](const Point2D& point) {
        return std::abs(point.x) <= largestPart && std::abs(point.y) <= largestPart;
    });
}

}  // namespace

double signedArea(const Loop& loop) {
    double twice = 0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const Point2D& a = loop[i];
        const Point2D& b = loop[i + 1 < loop.size() ? i + 1 : 0];
        twice += a.x * b.y - b.x * a.y;
    }
    return twice / 2;
}

std::string whyNotCut(const Loop& outline) {
    if (outline.size() < 3) return "fewer than 3 points";
    if (!withinReach(outline)) return "larger than 1000000 mm";
    if (std::abs(signedArea(outline)) < smallestArea) return "no area";
    return {};
}

Outcome stationsOf(const StationWish& wish, double span, std::vector<Station>& stations) {
    stations.clear();
    Outcome outcome = wish.spacing == 0 ? byCount(wish.count, span, stations)
                                        : bySpacing(wish.spacing, span, stations);
    if (!outcome.isDone()) stations.clear();
    return outcome;
}

Rib ribAt(const SymWingSections& panel, int units, const Station& station) {
    const double mm = millimetresOf(units);
    const double t = station.share;
    const double root = panel.length1 * mm;
    const double tip = panel.length2 * mm;
    const double height = (1 - t) * root * panel.thickness1 + t * tip * panel.thickness2;
    Rib rib;
    rib.station = station;
    rib.chord = (1 - t) * root + t * tip;
    rib.outline.reserve(static_cast<std::size_t>(panel.pointCount()));
    for (int i = 1; i <= panel.pointCount(); ++i) {
        const Point3D point = panel.airfoilPoint(i);
        rib.outline.push_back({point.x * rib.chord, point.z * height});
    }
    rib.why = rib.chord <= 0 ? "no chord" : whyNotCut(rib.outline);
    if (!rib.why.empty()) rib.outline.clear();
    return rib;
}

}  // namespace velna
