#include "model/ClosedSolid.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <utility>

#include "common/Turn.h"
#include "model/PlaneOutline.h"
#include "model/SectionPoints.h"

namespace velna {
namespace {

using Corners = std::vector<std::uint32_t>;

constexpr long long wholeTurn = 4096;  // points between two questions

void turnOver(ClosedSolid& solid) {
    for (Triangle& triangle : solid.triangles) std::swap(triangle[1], triangle[2]);
    for (Triangle& triangle : solid.sources) std::swap(triangle[1], triangle[2]);
}

/// What a section is, as far as its solid is concerned.
enum class SectionShape { Point, Line, Ring, Touching };

/// Whether the road over `corners` and back to the first goes forth and back over the same edges
/// alone: the outline has shrunk to a line.
bool isLine(const Corners& corners) {
    Corners road;
    for (const std::uint32_t corner : corners) {
        if (road.size() > 1 && road[road.size() - 2] == corner) {
            road.pop_back();
        } else {
            road.push_back(corner);
        }
    }
    std::size_t first = 0;
    std::size_t end = road.size();
    while (end - first > 1) {
        if (road[first] == road[end - 1] || road[first] == road[end - 2]) {
            --end;
        } else if (road[first + 1] == road[end - 1]) {
            ++first;
        } else {
            return false;
        }
    }
    return true;
}

/// Joins a loft's sections.
class Joining {
public:
    Joining(const Loft& loft, const SolidOrder& order, ClosedSolid& solid)
        : loft_(loft), order_(order), solid_(solid), vertices_(loft.points.size()) {
        // The other two coordinates, as the section's plane is looked at.
        double Point3D::*const all[] = {&Point3D::x, &Point3D::y, &Point3D::z};
        right_ = all[loft.across == all[0] ? 1 : 0];
        up_ = all[loft.across == all[2] ? 1 : 2];
    }

    Outcome run() {
        // What held another solid keeps its memory: fresh pages cost more than filling them.
        solid_.points.clear();
        solid_.triangles.clear();
        solid_.bays.clear();
        solid_.sources.clear();
        solid_.points.reserve(loft_.points.size());
        if (loft_.sectionPoints < 3) return Outcome::failed(NoSolid::fewPoints);
        if (loft_.sections() < 2) return Outcome::failed(NoSolid::noLength);
        for (std::size_t section = 0; section < loft_.sections(); ++section) {
            const Outcome taken = take(section);
            if (!taken.isDone()) return taken;
        }
        if (planes_.front() == planes_.back()) return Outcome::failed(NoSolid::noLength);
        join();
        if (cancelled_) return Outcome::cancelled();
        return finish();
    }

private:
    std::size_t at(std::size_t section, std::size_t place) const {
        return section * loft_.sectionPoints + place;
    }

    Outcome take(std::size_t section);
    bool hold(std::size_t section);
    void makeVertices(std::size_t section);
    void makePlain(std::size_t section);
    void makeRing();
    std::uint32_t vertexAt(const Point3D& point);
    SectionShape shapeOfRing() const;
    void join();
    void joinBay(std::size_t section);
    void joinPlain(std::size_t section);
    void closeEnd(std::size_t section, bool first);
    void add(const std::array<std::size_t, 3>& sources);
    Outcome finish();

    const Loft& loft_;
    const SolidOrder& order_;
    ClosedSolid& solid_;
    double Point3D::*right_;
    double Point3D::*up_;
    std::vector<std::uint32_t> vertices_;  ///< of each point of the loft
    std::vector<double> planes_;           ///< where each section lies
    std::vector<bool> plain_;  ///< whether its points are vertices of its own, one after the other
    std::vector<Point2D> flat_;  ///< the section in hand
    std::vector<Point3D> held_;  ///< its points
    SectionPoints alike_;
    Corners ring_;  ///< its corners, by their places in it
    /// What earlier sections of the same plane have put there: a point of the file is known by its
    /// coordinates.
    std::map<std::pair<double, double>, std::uint32_t> inPlane_;
    std::array<Corners, 2> endRings_;
    SectionShape former_ = SectionShape::Ring;
    long long points_ = 0;
    bool steps_ = false;    ///< two neighbouring sections lie in one plane
    bool lines_ = false;    ///< an end is a line
    bool inStep_ = false;   ///< the bay in hand lies between two such
    bool withArea_ = true;  ///< so have all triangles of these bays
    bool cancelled_ = false;
};

/// Takes a section's points as the file will hold them; false where one is too far away.
bool Joining::hold(std::size_t section) {
    held_.resize(loft_.sectionPoints);
    flat_.resize(loft_.sectionPoints);
    const auto near = [](double value) { return std::abs(value) <= largestCoordinate; };
    const CoordinateForm form = order_.form;
    for (std::size_t j = 0; j < held_.size(); ++j) {
        const Point3D& point = loft_.points[at(section, j)];
        if (!near(point.x) || !near(point.y) || !near(point.z)) return false;
        held_[j] = {heldCoordinate(point.x, form), heldCoordinate(point.y, form),
                    heldCoordinate(point.z, form)};
        flat_[j] = {held_[j].*right_, held_[j].*up_};
    }
    return true;
}

std::uint32_t Joining::vertexAt(const Point3D& point) {
    const auto vertex = static_cast<std::uint32_t>(solid_.points.size());
    if (!inPlane_.empty()) {
        const auto [place, added] = inPlane_.try_emplace({point.*right_, point.*up_}, vertex);
        if (!added) return place->second;
    }
    solid_.points.push_back(point);
    return vertex;
}

/// A vertex for each of the section's points.
void Joining::makePlain(std::size_t section) {
    const auto to = vertices_.begin() + static_cast<std::ptrdiff_t>(at(section, 0));
    std::iota(to, to + static_cast<std::ptrdiff_t>(held_.size()),
              static_cast<std::uint32_t>(solid_.points.size()));
    solid_.points.insert(solid_.points.end(), held_.begin(), held_.end());
}

void Joining::makeVertices(std::size_t section) {
    const double plane = held_.front().*loft_.across;
    const bool step = section > 0 && planes_.back() == plane;
    planes_.push_back(plane);
    steps_ = steps_ || step;
    if (!step) inPlane_.clear();
    if (step && inPlane_.empty()) {
        for (std::size_t j = 0; j < held_.size(); ++j) {
            const std::uint32_t vertex = vertices_[at(section - 1, j)];
            const Point3D& point = solid_.points[vertex];
            inPlane_.try_emplace({point.*right_, point.*up_}, vertex);
        }
    }
    const Corners& first = alike_.take(flat_);
    plain_.push_back(!step && alike_.allDiffer());
    if (plain_.back()) return makePlain(section);
    for (std::size_t j = 0; j < held_.size(); ++j) {
        vertices_[at(section, j)] =
            first[j] == j ? vertexAt(held_[j]) : vertices_[at(section, first[j])];
    }
}

/// The section's corners, each but once where it comes several times in a row.
void Joining::makeRing() {
    const Corners& first = alike_.first();
    ring_.clear();
    for (std::uint32_t j = 0; j < first.size(); ++j)
        if (ring_.empty() || ring_.back() != first[j]) ring_.push_back(first[j]);
    while (ring_.size() > 1 && ring_.back() == ring_.front()) ring_.pop_back();
}

SectionShape Joining::shapeOfRing() const {
    if (ring_.size() == 1) return SectionShape::Point;
    std::vector<Point2D> outline;
    if (!alike_.allDiffer()) {
        outline.reserve(ring_.size());
        for (const std::uint32_t corner : ring_) outline.push_back(flat_[corner]);
    }
    if (isSimple(alike_.allDiffer() ? flat_ : outline)) return SectionShape::Ring;
    return isLine(ring_) ? SectionShape::Line : SectionShape::Touching;
}

Outcome Joining::take(std::size_t section) {
    if (!hold(section)) return Outcome::failed(NoSolid::tooLarge);
    makeVertices(section);
    makeRing();
    const SectionShape shape = shapeOfRing();
    const bool last = section + 1 == loft_.sections();
    const bool end = section == 0 || last;
    // From a line to a point there would be a sheet of no thickness.
    const bool sheet = (shape == SectionShape::Line && former_ == SectionShape::Point) ||
                       (shape == SectionShape::Point && former_ == SectionShape::Line);
    former_ = shape;
    if (shape == SectionShape::Touching || sheet || (shape == SectionShape::Line && !end))
        return Outcome::failed(NoSolid::touching);
    lines_ = lines_ || shape == SectionShape::Line;
    if (end && shape == SectionShape::Ring) endRings_[last ? 1 : 0] = ring_;
    return {};
}

void Joining::add(const std::array<std::size_t, 3>& sources) {
    Triangle corners{};
    Triangle from{};
    for (std::size_t n = 0; n < corners.size(); ++n) {
        corners[n] = vertices_[sources[n]];
        from[n] = static_cast<std::uint32_t>(sources[n]);
    }
    if (corners[0] == corners[1] || corners[1] == corners[2] || corners[2] == corners[0]) return;
    if (inStep_) {
        const auto flat = [this](std::uint32_t vertex) {
            return Point2D{solid_.points[vertex].*right_, solid_.points[vertex].*up_};
        };
        withArea_ = withArea_ && turn(flat(corners[0]), flat(corners[1]), flat(corners[2])) != 0;
    }
    solid_.triangles.push_back(corners);
    if (order_.keepSources) solid_.sources.push_back(from);
}

/// The band between two sections of vertices of their own: no triangle of it can be left out.
void Joining::joinPlain(std::size_t section) {
    const auto n = static_cast<std::uint32_t>(loft_.sectionPoints);
    const auto append = [n](std::vector<Triangle>& triangles, std::uint32_t here,
                            std::uint32_t far) {
        triangles.resize(triangles.size() + 2 * std::size_t{n});
        Triangle* to = &triangles.back() - 2 * std::size_t{n} + 1;
        for (std::uint32_t j = 0; j < n; ++j) {
            const std::uint32_t next = j + 1 == n ? 0 : j + 1;
            *to++ = {here + j, here + next, far + next};
            *to++ = {here + j, far + next, far + j};
        }
    };
    append(solid_.triangles, vertices_[at(section, 0)], vertices_[at(section + 1, 0)]);
    if (!order_.keepSources) return;
    append(solid_.sources, static_cast<std::uint32_t>(at(section, 0)),
           static_cast<std::uint32_t>(at(section + 1, 0)));
}

/// The band between a section and the next.
void Joining::joinBay(std::size_t section) {
    if (plain_[section] && plain_[section + 1]) return joinPlain(section);
    const std::size_t n = loft_.sectionPoints;
    inStep_ = planes_[section] == planes_[section + 1];
    for (std::size_t j = 0; j < n; ++j) {
        const std::size_t next = j + 1 == n ? 0 : j + 1;
        const std::size_t far = at(section + 1, next);
        add({at(section, j), at(section, next), far});
        add({at(section, j), far, at(section + 1, j)});
    }
    inStep_ = false;
}

/// The flat face of an end, against the edges of the band beside it.
void Joining::closeEnd(std::size_t section, bool first) {
    const Corners& ring = endRings_[first ? 0 : 1];
    std::vector<Point2D> outline;
    for (const std::uint32_t j : ring) {
        const Point3D& point = solid_.points[vertices_[at(section, j)]];
        outline.push_back({point.*right_, point.*up_});
    }
    for (const OutlineTriangle& t : triangulated(outline)) {
        std::array corners{at(section, ring[t[0]]), at(section, ring[t[1]]),
                           at(section, ring[t[2]])};
        if (first) std::swap(corners[0], corners[2]);
        add(corners);
    }
}

void Joining::join() {
    const std::size_t bays = loft_.sections() - 1;
    solid_.triangles.reserve(2 * (loft_.points.size() + loft_.sectionPoints));
    if (order_.keepSources) solid_.sources.reserve(solid_.triangles.capacity());
    for (std::size_t bay = 0; bay < bays && !cancelled_; ++bay) {
        solid_.bays.push_back(solid_.triangles.size());
        if (bay == 0) closeEnd(0, true);
        joinBay(bay);
        points_ += static_cast<long long>(loft_.sectionPoints);
        if (points_ < wholeTurn && bay + 1 < bays) continue;
        cancelled_ = order_.goesOn && !order_.goesOn(std::exchange(points_, 0));
    }
    closeEnd(bays, false);
    solid_.bays.push_back(solid_.triangles.size());
}

Outcome Joining::finish() {
    const double volume = volumeOf(solid_);
    if (volume == 0) return Outcome::failed(NoSolid::noThickness);
    const bool closed = withArea_ && (!(steps_ || lines_) || isClosed(solid_));
    if (!closed) return Outcome::failed(NoSolid::touching);
    if (volume < 0) turnOver(solid_);
    return {};
}

}  // namespace

// Not inlined: GCC 12 works two coordinates at once then, and loses the rounding of one.
[[gnu::noinline]] double heldCoordinate(double value, CoordinateForm form) {
    constexpr double decimals = 1e9;
    const double held = form == CoordinateForm::Single
                            ? static_cast<float>(value)
                            : std::nearbyint(value * decimals) / decimals;
    return held + 0.0;
}

void ClosedSolid::mirror() {
    for (Point3D& point : points) point.y = 0.0 - point.y;
    turnOver(*this);
}

double volumeOf(const ClosedSolid& solid) {
    if (solid.points.empty()) return 0;
    const Point3D& o = solid.points.front();
    const auto from = [&o](const Point3D& p) { return Point3D{p.x - o.x, p.y - o.y, p.z - o.z}; };
    double sum = 0;
    for (const Triangle& triangle : solid.triangles) {
        const Point3D a = from(solid.points[triangle[0]]);
        const Point3D b = from(solid.points[triangle[1]]);
        const Point3D c = from(solid.points[triangle[2]]);
        sum += a.x * (b.y * c.z - b.z * c.y) + a.y * (b.z * c.x - b.x * c.z) +
               a.z * (b.x * c.y - b.y * c.x);
    }
    return sum / 6;
}

bool isClosed(const ClosedSolid& solid) {
    constexpr unsigned half = 32;
    std::vector<std::uint64_t> edges;
    std::vector<std::uint64_t> reversed;
    for (const Triangle& triangle : solid.triangles) {
        for (std::size_t n = 0; n < triangle.size(); ++n) {
            const std::uint64_t from = triangle[n];
            const std::uint64_t to = triangle[(n + 1) % triangle.size()];
            edges.push_back(from << half | to);
            reversed.push_back(to << half | from);
        }
    }
    std::ranges::sort(edges);
    std::ranges::sort(reversed);
    return edges == reversed && std::ranges::adjacent_find(edges) == edges.end();
}

Outcome buildSolid(const Loft& loft, const SolidOrder& order, ClosedSolid& solid) {
    return Joining(loft, order, solid).run();
}

}  // namespace velna
