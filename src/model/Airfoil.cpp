#include "model/Airfoil.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "common/Finite.h"
#include "common/NumberText.h"
#include "model/NearestInX.h"

namespace velna::Airfoil {

namespace {

/// From the trailing edge along the lower surface to the leading edge and back along the upper one.
/// The fourth row is no mirror of the thirteenth; aircraft have been built with it.
constexpr std::array<Point2D, 16> builtInProfile{{
    {1.0, 0.0},
    {0.6, -0.06},
    {0.3, -0.065},
    {0.225, -0.0625},
    {0.15, -0.06},
    {0.1, -0.05},
    {0.05, -0.04},
    {0.0, -0.005},
    {0.0, 0.005},
    {0.05, 0.04},
    {0.1, 0.05},
    {0.15, 0.06},
    {0.2, 0.0625},
    {0.3, 0.065},
    {0.6, 0.06},
    {1.0, 0.0},
}};

constexpr double farAway = 1000000;

/// The two points nearest in x that span the opposite surface. The heights live on from one point
/// of the profile to the next: where nothing is left to search, the last ones found serve.
struct OppositeSurface {
    double y1 = 0;
    double y2 = 0;
    double height = 0;

    /// Looks from point `i` at what is left of `points`.
    void lookFrom(const Array1<Point3D>& outline, int i, NearestInX& points) {
        double d1 = farAway;
        double d2 = farAway;
        if (const int nearest = points.nearest(i, farAway); nearest != NearestInX::none) {
            y1 = outline(nearest).z;
            d1 = points.distance(i, nearest);
        }
        if (const int second = points.nearest(i, farAway, y1); second != NearestInX::none) {
            y2 = outline(second).z;
            d2 = points.distance(i, second);
        }
        assignFinite(height, (d2 * y1 + d1 * y2) / (d1 + d2));
    }
};

}  // namespace

void fillBuiltIn(Array1<Point3D>& points, int nb) {
    const int last = std::min({nb, points.upper(), static_cast<int>(builtInProfile.size())});
    for (int i = 1; i <= last; ++i) {
        const Point2D& row = builtInProfile[static_cast<std::size_t>(i) - 1];
        points(i).x = row.x;
        points(i).z = row.y;
    }
}

void normalize(Array1<Point3D>& points, int nb, double& thickness1, double& thickness2) {
    const int last = std::min(nb, points.upper());
    double xMin = 1000;
    double xMax = -1000;
    double thick = -1;
    OppositeSurface opposite;
    NearestInX across(points, std::max(last, 0));
    if (last >= 1) across.remove(1);
    for (int i = 1; i <= last; ++i) {
        // A point's neighbour is of the same surface.
        if (i < last) across.remove(i + 1);
        opposite.lookFrom(points, i, across);
        const double thickness = std::abs(opposite.height - points(i).z);
        if (thickness > thick) assignFinite(thick, thickness);
        if (points(i).x > xMax) xMax = points(i).x;
        if (points(i).x < xMin) xMin = points(i).x;
    }
    // Heights are divided by the rounded ratio, so that height times ratio gives the file's back.
    double ratio = thickness1;
    if (assignFinite(ratio, roundHalfEven(thick / (xMax - xMin) * 100) / 100)) {
        thickness1 = ratio;
        thickness2 = ratio;
    }
    for (int i = 1; i <= last; ++i) assignFinite(points(i).z, points(i).z / thickness1);
}

}  // namespace velna::Airfoil
