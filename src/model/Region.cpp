#include "model/Region.h"

#include <algorithm>
#include <cmath>

#include <polyclipping/clipper.hpp>

#include "model/Panels.h"

namespace velna {

namespace {

namespace Lib = ClipperLib;

/// Steps of a millimetre: the library counts in whole numbers.
constexpr double steps = 1e6;
/// Millimetres. The library rounds the number of an arc's chords, which makes an arc of one chord
/// up to 2.25 times as wrong as this.
constexpr double arcTolerance = 0.002;
/// Square millimetres: what is smaller is rounding, and nobody can cut it.
constexpr double smallestPiece = 1e-6;

Lib::IntPoint counted(const Point2D& point) {
    return {std::llround(point.x * steps), std::llround(point.y * steps)};
}

Loop measured(const Lib::Path& path) {
    Loop loop;
    loop.reserve(path.size());
    for (const Lib::IntPoint& point : path)
        loop.push_back(
            {static_cast<double>(point.X) / steps, static_cast<double>(point.Y) / steps});
    return loop;
}

}  // namespace

struct Region::Paths {
    Lib::Paths all;
};

Region::Region(const Loop& outline) : paths_(std::make_unique<Paths>()) {
    Lib::Path path;
    path.reserve(outline.size());
    for (const Point2D& point : outline) path.push_back(counted(point));
    if (!Lib::Orientation(path)) Lib::ReversePath(path);
    Lib::SimplifyPolygon(path, paths_->all, Lib::pftPositive);
    dropScraps();
}

Region::Region(const Region& other) : paths_(std::make_unique<Paths>(*other.paths_)) {}

Region::~Region() = default;

void Region::erode(double distance) {
    if (!(distance > 0)) return;
    if (distance > largestPart) {
        paths_->all.clear();
        return;
    }
    Lib::ClipperOffset offset;
    offset.ArcTolerance = arcTolerance * steps;
    offset.AddPaths(paths_->all, Lib::jtRound, Lib::etClosedPolygon);
    Lib::Paths left;
    offset.Execute(left, -distance * steps);
    paths_->all = std::move(left);
    dropScraps();
}

void Region::remove(Point2D corner, Point2D opposite) {
    const Lib::IntPoint a = counted(corner);
    const Lib::IntPoint b = counted(opposite);
    Lib::Clipper clipper;
    clipper.AddPaths(paths_->all, Lib::ptSubject, true);
    clipper.AddPath({{a.X, a.Y}, {b.X, a.Y}, {b.X, b.Y}, {a.X, b.Y}}, Lib::ptClip, true);
    Lib::Paths left;
    clipper.Execute(Lib::ctDifference, left, Lib::pftNonZero, Lib::pftNonZero);
    paths_->all = std::move(left);
    dropScraps();
}

void Region::dropScraps() {
    std::erase_if(paths_->all, [](const Lib::Path& path) {
        return std::abs(Lib::Area(path)) < smallestPiece * steps * steps;
    });
}

std::vector<Loop> Region::loops() const {
    std::vector<Loop> loops;
    loops.reserve(paths_->all.size());
    for (const Lib::Path& path : paths_->all) loops.push_back(measured(path));
    return loops;
}

int Region::pieces() const {
    return static_cast<int>(
        std::count_if(paths_->all.begin(), paths_->all.end(),
                      [](const Lib::Path& path) { return Lib::Orientation(path); }));
}

bool Region::empty() const {
    return paths_->all.empty();
}

double areaInside(const std::vector<Loop>& loops) {
    double area = 0;
    for (const Loop& loop : loops) area += signedArea(loop);
    return std::abs(area);
}

}  // namespace velna
