#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "common/Outcome.h"
#include "common/Point.h"

namespace velna {

/// What a file can hold of a coordinate: 32 bits, or a text of nine decimals.
enum class CoordinateForm { Single, Decimal };

/// The nearest number that the file holds; zero is never negative.
double heldCoordinate(double value, CoordinateForm form);

/// Sections of equally many points in parallel planes, each point belonging to the one of the same
/// place in the next section.
struct Loft {
    std::size_t sectionPoints = 0;
    std::vector<Point3D> points;            ///< millimetres, section by section
    double Point3D::*across = &Point3D::x;  ///< the coordinate that tells one plane from another

    std::size_t sections() const { return sectionPoints == 0 ? 0 : points.size() / sectionPoints; }
};

/// How a solid is built.
struct SolidOrder {
    CoordinateForm form = CoordinateForm::Single;
    bool keepSources = false;
    /// Asked now and then; false ends the work. None runs to its end.
    std::function<bool(long long points)> goesOn = {};
};

/// Three places in a list.
using Triangle = std::array<std::uint32_t, 3>;

/// A closed surface of triangles, oriented outward: each edge is used once in each direction.
struct ClosedSolid {
    std::vector<Point3D> points;      ///< millimetres, as the file holds them, no two alike
    std::vector<Triangle> triangles;  ///< none without area
    /// The first triangle of each bay between two sections, and the end. The first bay has the flat
    /// face before it, the last one the face behind it.
    std::vector<std::size_t> bays;
    /// Of each triangle the points of the loft that its corners come from, where that was wished.
    std::vector<Triangle> sources;

    /// Becomes its mirror image about y = 0.
    void mirror();
};

/// By the divergence theorem: positive where the triangles are oriented outward.
double volumeOf(const ClosedSolid& solid);

/// Whether each edge is used once in each direction.
bool isClosed(const ClosedSolid& solid);

/// Joins the sections to a solid: between two of them each quad is cut from its point j to point
/// j + 1 of the next; the ends get flat faces. Points of a section that are nearer than 1e-6 mm in
/// each coordinate are one. Failed with the reason in a few words where that gives no solid.
Outcome buildSolid(const Loft& loft, const SolidOrder& order, ClosedSolid& solid);

/// A coordinate beyond this, in millimetres, is refused.
inline constexpr double largestCoordinate = 1e6;

/// Why there is no solid; more reasons in `SolidParts.h`.
namespace NoSolid {
inline constexpr const char* fewPoints = "fewer than 3 outline points";
inline constexpr const char* noLength = "no length";
inline constexpr const char* noThickness = "no thickness";
inline constexpr const char* tooLarge = "larger than 1000000 mm";
inline constexpr const char* touching = "a section that crosses or touches itself";
inline constexpr const char* insideOut = "turned inside out";
inline constexpr const char* folded = "folded";
}  // namespace NoSolid

}  // namespace velna
