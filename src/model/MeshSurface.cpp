#include <algorithm>
#include <cmath>

#include "model/BodySolid.h"
#include "model/Lengths.h"
#include "model/MeshHalves.h"
#include "model/MeshSections.h"
#include "model/SuperEllipse.h"

namespace velna {

namespace {

/// Gives `grid` the bounds 0 to `rows` by 0 to `columns`. A grid that has them already keeps its
/// memory: the rebuild writes every entry that it uses, and row 0 and column 0 are never written.
template <class T>
void sizeGrid(Array2<T>& grid, int rows, int columns) {
    if (grid.rows() != rows || grid.columns() != columns) grid.allocate(rows, columns);
}

}  // namespace

double MeshSections::outlineCos(double t, double p) {
    return signedPower(std::cos(t), p);
}

double MeshSections::outlineSin(double t, double p) {
    return signedPower(std::sin(t), p) + 1.0;
}

namespace {

/// What the points of one half of the section at storage index k have in common.
struct HalfSection {
    double x = 0;
    double halfWidth;
    double shift;
    double rise;  ///< height of the half, above or below the widest line
    double base;
    double elevation;
    double elevationOffset;

    HalfSection(const MeshSections& body, int k, double share)
        : halfWidth(body.width(k) / 2),
          shift(body.shift),
          rise(share * body.height(k)),
          base((body.bias_curve(k) - 1) * body.height(k)),
          elevation(body.elevation(k)),
          elevationOffset(body.elevation_offset) {
        assignFinite(x, body.pos(k) + body.pos_offset);
    }

    double y(double cosine) const { return halfWidth * cosine + shift; }
    double z(double sine) const { return (rise * sine - base) + elevation + elevationOffset; }

    /// Whether every point of the half on `ellipse` is finite: none is larger than the sum of the
    /// parts' sizes. So the rebuild's hot loop need not ask at each coordinate.
    bool bounded(const SuperEllipse& ellipse) const {
        return ellipse.withinUnit() && std::isfinite(std::abs(halfWidth) + std::abs(shift)) &&
               std::isfinite(std::abs(rise) + std::abs(base) + std::abs(elevation) +
                             std::abs(elevationOffset));
    }

    /// Writes the half's points into `row`; a coordinate that is not finite keeps what it was.
    void write(Point3D* row, const SuperEllipse& ellipse) const {
        Point3D* point = row + static_cast<int>(ellipse.first());
        if (bounded(ellipse)) {
            for (const auto& place : ellipse.places())
                *point++ = {x, y(place.cosine), z(place.sine)};
            return;
        }
        for (const auto& place : ellipse.places())
            assignFinite(*point++, x, y(place.cosine), z(place.sine));
    }
};

}  // namespace

BodySolid::BodySolid() = default;
BodySolid::BodySolid(const BodySolid& other) = default;
BodySolid::BodySolid(BodySolid&& other) noexcept = default;
BodySolid& BodySolid::operator=(const BodySolid& other) = default;
BodySolid& BodySolid::operator=(BodySolid&& other) noexcept = default;
BodySolid::~BodySolid() = default;

void BodySolid::create(const MeshSections& body) {
    buildSections(body, 1, prepare(body));
}

int BodySolid::prepare(const MeshSections& body) {
    nb_sections = body.nb_sections;
    nb_cross = body.nb_cross;
    shift_ = body.shift;
    picture.carry(body.texture_filename);
    if (nb_cross < 2) return 0;
    length_ = body.lengthPoint();
    sizeGrid(points, body.sectionCount(), nb_cross);
    return points.rows();
}

void BodySolid::buildSections(const MeshSections& body, int first, int last) {
    if (first > last) return;
    const MeshHalves halves(nb_cross);
    SuperEllipse upper(1, halves.upperLast, nb_cross);
    SuperEllipse lower(halves.lowerFirst, nb_cross, nb_cross);
    for (int i = first; i <= last; ++i) {
        const int k = body.storageIndex(i);
        upper.setExponent(body.curvature(k));
        lower.setExponent(body.curvature2(k));
        const HalfSection upperHalf(body, k, body.bias_curve(k));
        const HalfSection lowerHalf(body, k, 1.0 - body.bias_curve(k));
        Point3D* row = points.row(i);
        if (halves.unset != 0 || !upperHalf.bounded(upper) || !lowerHalf.bounded(lower))
            std::fill(row + 1, row + nb_cross + 1, Point3D{upperHalf.x, 0, 0});
        upperHalf.write(row, upper);
        // The same angle from the formula would leave a rounding error on the widest line.
        assignFinite(row[halves.opposite], upperHalf.x, -body.width(k) / 2 + body.shift,
                     body.elevation(k) + -upperHalf.base + body.elevation_offset);
        lowerHalf.write(row, lower);
    }
}

int BodySolid::sections() const {
    return std::min<int>(nb_sections, points.rows());
}

int BodySolid::cross() const {
    return std::min<int>(nb_cross, points.columns());
}

Point3D BodySolid::meshPoint(int j, int i, bool mirrored) const {
    if (i < 1 || i > points.rows() || j < 1 || j > points.columns()) return {};
    Point3D point = points(i, j);
    if (mirrored) assignFinite(point.y, point.y - 2 * shift_);
    return point;
}

Point2D BodySolid::texCoordAt(int j, int i) const {
    if (i < 1 || i > points.rows() || j < 1 || j > points.columns() || length_ == 0) return {};
    Point2D place{0, (j - 1) / (points.columns() - 1.0)};
    assignFinite(place.x, points(i, 1).x / length_);
    return place;
}

}  // namespace velna
