#include <algorithm>
#include <cmath>

#include "common/Finite.h"
#include "common/NumberText.h"
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

/// What the points of one half of a section have in common.
struct HalfSection {
    double halfWidth;
    double shift;
    double rise;  ///< height of the half, above or below the widest line
    double base;
    double elevation;
    double elevationOffset;

    /// Writes the half's points into `row`; the values that are not finite stay 0.
    void write(Point3D* row, const SuperEllipse& ellipse) const {
        const SuperEllipse::Place* place = ellipse.places();
        for (int j = ellipse.first(); j <= ellipse.last(); ++j, ++place) {
            assignFinite(row[j].y, halfWidth * place->cosine + shift);
            assignFinite(row[j].z, (rise * place->sine - base) + elevation + elevationOffset);
        }
    }
};

}  // namespace

void MeshSections::create() {
    if (nb_cross < 2) return;
    const int sections = sectionCount();
    const double middle = nb_cross / 2.0;
    const int opposite = roundToInt(middle + 1);
    SuperEllipse upper(1, roundToInt(middle), nb_cross);
    SuperEllipse lower(roundToInt(middle + 2), nb_cross, nb_cross);
    sizeGrid(points, sections, nb_cross);
    for (int i = 1; i <= sections; ++i) {
        const int k = storageIndex(i);
        Point3D* row = points.row(i);
        double x = 0;
        assignFinite(x, pos(k) + pos_offset);
        std::fill(row + 1, row + nb_cross + 1, Point3D{x, 0, 0});
        const double base = (bias_curve(k) - 1) * height(k);
        HalfSection half{width(k) / 2, shift,        height(k) * bias_curve(k),
                         base,         elevation(k), elevation_offset};
        upper.setExponent(curv = curvature(k));
        half.write(row, upper);
        // The same angle from the formula would leave a rounding error on the widest line.
        assignFinite(row[opposite].y, -width(k) / 2 + shift);
        assignFinite(row[opposite].z, elevation(k) + -base + elevation_offset);
        half.rise = (1.0 - bias_curve(k)) * height(k);
        lower.setExponent(curv = curvature2(k));
        half.write(row, lower);
    }
    createTexCoords();
}

void MeshSections::createTexCoords() {
    sizeGrid(texCoords, points.rows(), points.columns());
    const double length = lengthPoint();
    std::vector<double> round(static_cast<std::size_t>(nb_cross) + 1);
    if (length != 0)
        for (int j = 1; j <= nb_cross; ++j)
            round[static_cast<std::size_t>(j)] = (j - 1) / (nb_cross - 1.0);
    for (int i = 1; i <= points.rows(); ++i) {
        double u = 0;
        assignFinite(u, length != 0 ? points(i, 1).x / length : 0);
        Point2D* row = texCoords.row(i);
        for (int j = 1; j <= nb_cross; ++j) row[j] = {u, round[static_cast<std::size_t>(j)]};
    }
}

Point3D MeshSections::meshPoint(int j, int i, bool mirrored) const {
    if (i < 0 || i > points.rows() || j < 0 || j > points.columns()) return {};
    Point3D point = points(i, j);
    if (mirrored) assignFinite(point.y, point.y - 2 * shift);
    return point;
}

Point2D MeshSections::texCoordAt(int j, int i) const {
    if (i < 0 || i > texCoords.rows() || j < 0 || j > texCoords.columns()) return {};
    return texCoords(i, j);
}

}  // namespace velna
