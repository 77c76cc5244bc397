#pragma once

#include <memory>
#include <vector>

#include "common/Point.h"
#include "model/Rib.h"

namespace velna {

/// A flat part with or without holes, in millimetres: what can be cut out of a sheet. Places are
/// kept to a millionth of a millimetre; all must lie within `largestPart`.
class Region {
public:
    /// The inside of `outline`: where its winding number has the sign of the whole area. So of an
    /// outline that crosses itself the loops that turn the other way are no part of it.
    explicit Region(const Loop& outline);
    Region(const Region& other);
    Region& operator=(const Region&) = delete;
    ~Region();

    /// Leaves the points that keep a distance of `distance` from everything outside: an erosion by
    /// a disc, with arcs that are true to 0.005 mm. 0 or less changes nothing.
    void erode(double distance);
    /// Takes the rectangle between two opposite corners away.
    void remove(Point2D corner, Point2D opposite);

    /// The borders, none of which crosses another: outer ones counter-clockwise, holes clockwise.
    std::vector<Loop> loops() const;
    /// How many pieces it has come to.
    int pieces() const;
    bool empty() const;

private:
    struct Paths;
    void dropScraps();

    std::unique_ptr<Paths> paths_;
};

/// The area inside borders such as those of a region.
double areaInside(const std::vector<Loop>& loops);

}  // namespace velna
