#include "model/AirfoilOutline.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <utility>

#include "common/NumberText.h"
#include "common/ValueReader.h"
#include "model/Plane.h"

namespace velna::AirfoilOutline {

namespace {

constexpr std::size_t fewestPoints = 3;  // a triangle
/// A point this near to an end of the section, in chords, belongs to that end.
constexpr double nearEnd = 0.1;
/// How far a written chord may be from 1 or 100, and its nose from the origin, in that unit: flaps
/// and blunt noses move both a little.
constexpr double looseness = 0.05;
/// Ends of the two sides that are farther apart in x than this are joined.
constexpr double openEdge = 0.01;
/// What the points of one side may run back in all: the skin behind a nose or at a hinge does.
constexpr double mostBackward = 0.05;
/// Sides that meet in a thin tail cross by the rounding of their decimals; that is no crossing.
constexpr double roundedCrossing = 0.0005;
/// Twice the area, in squares of the chord, below which two sides are one but for rounding.
constexpr double leastArea = 1e-9;
/// All panels together may get this many points by one command.
constexpr std::size_t mostPoints = 4'000'000;

constexpr auto byX = [](const Point2D& a, const Point2D& b) { return a.x < b.x; };
constexpr auto byHeight = [](const Point2D& a, const Point2D& b) { return a.y < b.y; };

/// From the nose to the tail of a section.
struct Extent {
    double nose;
    double tail;

    explicit Extent(std::span<const Point2D> points)
        : nose(std::ranges::min_element(points, byX)->x),
          tail(std::ranges::max_element(points, byX)->x) {}

    double chord() const { return tail - nose; }
    bool atNose(double x) const { return x - nose <= nearEnd * chord(); }
    bool atTail(double x) const { return tail - x <= nearEnd * chord(); }
};

/// The nose's place; in the middle of a blunt one, whichever of its points comes first.
Point2D noseOf(const Points& points) {
    const double x = std::ranges::min_element(points, byX)->x;
    double lowest = HUGE_VAL;
    double highest = -HUGE_VAL;
    for (const Point2D& point : points) {
        if (point.x != x) continue;
        lowest = std::min(lowest, point.y);
        highest = std::max(highest, point.y);
    }
    return {x, lowest + (highest - lowest) / 2};
}

/// The number whose decimals are those of `value` with the point moved two places.
double hundredth(double value) {
    return value == 0 ? value : leadingNumber(numberText(value / 100));
}

/// Whether these are coordinates in units of `chord`, with the nose at the origin.
bool writtenFor(double chord, const Extent& extent, Point2D nose) {
    const double loose = looseness * chord;
    return std::abs(extent.chord() - chord) <= loose && std::abs(nose.x) <= loose &&
           std::abs(nose.y) <= loose;
}

void scale(Points& points) {
    const Extent extent(points);
    const double chord = extent.chord();
    if (!(chord > 0) || !std::isfinite(chord)) throw ReadFailure("its points have no chord");
    const Point2D nose = noseOf(points);
    if (writtenFor(100, extent, nose)) {
        for (Point2D& point : points) point = {hundredth(point.x), hundredth(point.y)};
    } else if (!writtenFor(1, extent, nose)) {
        for (Point2D& point : points)
            point = {(point.x - nose.x) / chord, (point.y - nose.y) / chord};
    }
    const auto [low, high] = std::ranges::minmax_element(points, byHeight);
    if (!(high->y - low->y <= 1)) throw ReadFailure("it is higher than it is long");
}

bool reachesBothEnds(std::span<const Point2D> run, const Extent& extent) {
    const Extent own(run);
    return extent.atNose(own.nose) && extent.atTail(own.tail);
}

/// Where the points jump from one end of the section to the other between two whole sides: the
/// number of points before that; 0 where they go round the section in one run.
std::size_t jumpBetweenSides(const Points& points, const Extent& extent) {
    bool nose = false;
    bool tail = false;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        nose = nose || extent.atNose(points[i].x);
        tail = tail || extent.atTail(points[i].x);
        const double step = std::abs(points[i + 1].x - points[i].x);
        if (!nose || !tail || step < (1 - 2 * nearEnd) * extent.chord()) continue;
        const auto rest = std::span(points).subspan(i + 1);
        return reachesBothEnds(rest, extent) ? i + 1 : 0;
    }
    return 0;
}

/// Turns a side so that it runs from the nose to the tail.
void runBackward(std::span<Point2D> side) {
    if (side.front().x > side.back().x) std::ranges::reverse(side);
}

/// Two sides become one run from the tail round the nose.
void joinSides(Points& points, std::size_t first) {
    const std::span<Point2D> sides(points);
    runBackward(sides.first(first));
    runBackward(sides.subspan(first));
    std::ranges::reverse(sides.first(first));
}

/// A run that goes round from the nose is begun anew at the tail, which it then has at both ends.
void beginAtTail(Points& points) {
    const auto tail = std::ranges::max_element(points, byX);
    const bool blunt = tail + 1 != points.end() && (tail + 1)->x == tail->x;
    const Point2D edge = *tail;
    std::rotate(points.begin(), blunt ? tail + 1 : tail, points.end());
    if (!blunt) points.push_back(edge);
}

/// One run round the section from its tail and back to it.
void unroll(Written& written) {
    Points& points = written.points;
    const Extent extent(points);
    const std::size_t told = written.firstSide;
    if (told > 0 && (!reachesBothEnds(std::span(points).first(told), extent) ||
                     !reachesBothEnds(std::span(points).subspan(told), extent)))
        throw ReadFailure("its sides do not reach from the nose to the tail");
    const std::size_t first = told > 0 ? told : jumpBetweenSides(points, extent);
    if (first > 0) {
        joinSides(points, first);
    } else if (!extent.atTail(points.front().x)) {
        if (!extent.atNose(points.front().x))
            throw ReadFailure("its points begin neither at the tail nor at the nose");
        if (extent.atNose(points.back().x)) beginAtTail(points);
    }
    if (!extent.atTail(points.front().x) || !extent.atTail(points.back().x))
        throw ReadFailure("its points do not go round the section");
}

void dropRepeated(Points& points) {
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() < fewestPoints) throw ReadFailure("too few points");
}

/// A side that ends before the other is led to the edge.
void close(Points& points) {
    const Point2D first = points.front();
    const Point2D last = points.back();
    if (last.x - first.x > openEdge) points.insert(points.begin(), last);
    if (first.x - last.x > openEdge) points.push_back(first);
}

/// Turns the run so that it begins along the lower side.
void lowerSideFirst(Points& points) {
    double area = 0;  // twice that of the section, above 0 where it is gone round by its top
    Point2D from = points.back();
    for (const Point2D& to : points) {
        area += from.x * to.y - to.x * from.y;
        from = to;
    }
    if (std::abs(area) < leastArea) throw ReadFailure("it has no height");
    if (area > 0) std::ranges::reverse(points);
}

void expectForward(std::span<const Point2D> side) {
    double backward = 0;
    for (std::size_t i = 1; i < side.size(); ++i)
        backward += std::max(0.0, side[i - 1].x - side[i].x);
    if (backward > mostBackward) throw ReadFailure("its points run back and forth");
}

/// The heights of a side, asked for from the nose backward.
class SideHeights {
public:
    explicit SideHeights(std::span<const Point2D> side) : side_(side) {}

    double at(double x) {
        while (at_ + 2 < side_.size() && side_[at_ + 1].x < x) ++at_;
        const Point2D& from = side_[at_];
        const Point2D& to = side_[at_ + 1];
        if (to.x <= from.x) return to.y;
        const double part = std::clamp((x - from.x) / (to.x - from.x), 0.0, 1.0);
        return from.y + part * (to.y - from.y);
    }

private:
    std::span<const Point2D> side_;
    std::size_t at_ = 0;
};

/// `sign` 1: expects `side` not below `other`; -1: not above.
void expectApart(std::span<const Point2D> side, std::span<const Point2D> other, double sign) {
    SideHeights heights(other);
    for (const Point2D& point : side) {
        if (sign * (point.y - heights.at(point.x)) >= -roundedCrossing) continue;
        throw ReadFailure("its sides cross at " + fixedText(point.x * 100, 0) + " % of the chord");
    }
}

void expectSides(const Points& points) {
    const auto nose = std::ranges::min_element(points, byX);
    // Where the nose is an end of the run there is one side only.
    if (nose == points.begin() || nose + 1 == points.end()) throw ReadFailure("it has no nose");
    const Points lower(std::reverse_iterator(nose + 1), points.rend());
    const std::span<const Point2D> upper(nose, points.end());
    expectForward(lower);
    expectForward(upper);
    expectApart(upper, lower, 1);
    expectApart(lower, upper, -1);
}

void expectRoom(std::size_t points) {
    if (points <= std::size_t{Plane::largestCount}) return;
    throw ReadFailure(std::to_string(points) + " points; a panel holds " +
                      std::to_string(Plane::largestCount));
}

void expectRoomOnAll(const Project& project, std::size_t points) {
    if (static_cast<std::size_t>(project.nbWings) * points > mostPoints)
        throw ReadFailure("too many points for " + std::to_string(project.nbWings) + " panels");
}

}  // namespace

Points arranged(Written written) {
    Points& points = written.points;
    expectRoom(points.size());
    if (points.size() < fewestPoints) throw ReadFailure("too few points");
    scale(points);
    unroll(written);
    dropRepeated(points);
    close(points);
    expectRoom(points.size());
    lowerSideFirst(points);
    expectSides(points);
    return std::move(points);
}

Points ofRoot(const SymWingSections& wing) {
    Points outline;
    const int last = wing.pointCount();
    outline.reserve(static_cast<std::size_t>(last));
    for (int i = 1; i <= last; ++i) {
        const Point3D point = wing.airfoilPoint(i);
        outline.push_back({point.x, point.z * wing.thickness1});
    }
    return outline;
}

void put(SymWingSections& wing, const Points& outline) {
    SymWingSections changed = wing;
    changed.nb = static_cast<std::int16_t>(outline.size());
    changed.allocate();
    int i = 0;
    for (const Point2D& point : outline) changed.setAirfoilPoint(++i, point.x, point.y);
    changed.normalizeAirfoil();
    // The ratio has two decimals: one of 0 would leave a plate.
    if (!(changed.thickness1 > 0)) throw ReadFailure("it is thinner than half a percent");
    wing = std::move(changed);
}

void putOnWing(Project& project, const Points& outline, bool everyPanel) {
    SymWingSections& current = project.Wings(project.currentWing);
    if (everyPanel) expectRoomOnAll(project, outline.size());
    put(current, outline);
    if (everyPanel) copyToEveryPanel(project);
}

void copyToEveryPanel(Project& project) {
    const SymWingSections current = project.Wings(project.currentWing);
    const int points = current.pointCount();
    expectRoomOnAll(project, static_cast<std::size_t>(points));
    for (int wing = 1; wing <= project.nbWings; ++wing) {
        if (wing == project.currentWing) continue;
        SymWingSections& panel = project.Wings(wing);
        panel.nb = static_cast<std::int16_t>(points);
        panel.thickness1 = current.thickness1;
        panel.thickness2 = current.thickness2;
        panel.allocate();
        for (int i = 1; i <= points; ++i) panel.airfoilPoint(i) = current.airfoilPoint(i);
    }
}

}  // namespace velna::AirfoilOutline
