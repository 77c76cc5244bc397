#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "common/List.h"
#include "common/Palette.h"
#include "common/Point.h"
#include "model/Transform.h"
#include "model/WingSection.h"

namespace velna {

class ReplacedFile;
class ValueReader;

/// A five-point closed outline, entries 1 to 5 used, point 5 being point 1.
using Outline = std::array<Point2D, 6>;

/// Both halves of a panel in plan with the nose to the left.
struct HTopOutlines {
    Outline points{};
    Outline mirrored{};
};

/// Handle codes of a wing panel, in `paint` during a drag and in `selected_part` while hovering.
namespace WingPart {
inline constexpr int tipEdge = 0;
inline constexpr int tipTrailing = 2;
inline constexpr int rootTrailing = 3;
inline constexpr int rootEdge = 4;
inline constexpr int none = 5;
inline constexpr int tipLeading = 6;
inline constexpr int rootLeading = 7;
}  // namespace WingPart

/// One symmetric lifting surface panel: a wing panel or the stabiliser.
class SymWingSections {
public:
    std::unique_ptr<WingSection> Left;   ///< solid on the +y side
    std::unique_ptr<WingSection> Right;  ///< its mirror image
    std::int16_t nb = 16;                ///< number of airfoil points (never of panels)
    double span = 0;                     ///< half panel along y, root to tip
    double length1 = 0;                  ///< root chord
    double length2 = 0;                  ///< tip chord
    double thickness1 = 0;               ///< root thickness as a fraction of the chord
    double thickness2 = 0;               ///< tip thickness as a fraction of the chord
    double pos1 = 0;                     ///< x of the root's leading edge
    double pos2 = 0;        ///< sweep: x of the tip's leading edge relative to the root's
    double elevation1 = 0;  ///< z of the root
    double elevation2 = 0;  ///< dihedral: z of the tip relative to the root's
    double shift = 0;       ///< y of the root
    std::string airfoil_filename;
    std::string qualified_texture_filename;  ///< bare file name of the picture

    SymWingSections();

    // model/
    /// New solids, built-in airfoil, no picture, default colour; the lengths stand as they are.
    void init();
    /// `airfoil` afresh for `nb` points, and both solids' copies.
    void allocate();
    /// Rebuilds both solids.
    void create();
    void init_airfoil();
    void normalizeAirfoil();
    Point3D airfoilPoint(int i) const { return airfoil(i); }
    void setAirfoilPoint(int i, double x, double z) { airfoil(i) = {x, 0, z}; }
    /// Points that `airfoil` really holds; `nb` may promise more.
    int airfoilSize() const { return airfoil.upper(); }
    /// How many airfoil points there are to draw: the smaller of `nb` and `airfoilSize`.
    int pointCount() const;
    void switchToInches();
    void switchToMillimeters();
    void rescale(double k);
    const std::string& texture_filename() const { return textureFile; }
    void set_texture_filename(const std::string& file);
    void set_texture_loaded(bool loaded);
    const Point3D& color() const { return color_; }
    void set_color(const Point3D& c) { color_ = c; }
    // The outlines in drawing units. A coordinate that is not finite keeps what `points` has.
    Array1<Point2D> computeSidePoints(const Transform& at, Array1<Point2D> points = {}) const;
    HTopOutlines computeHTopPoints(const Transform& at, HTopOutlines outlines = {}) const;
    Outline computeFrontPoints(const Transform& at, Outline points = {}) const;
    Outline computeVTopPoints(const Transform& at, Outline points = {}) const;
    /// Largest x or y of a plan outline, rounded, not below 0.
    static std::int16_t xMaxVtopGet(const Outline& vtopPoints);
    static std::int16_t yMaxVtopGet(const Outline& vtopPoints);

    // persistence/
    void save(ReplacedFile& file) const;
    void read(ValueReader& file);
    void readV101(ValueReader& file);
    void readV0212(ValueReader& file);
    void save_airfoil(ReplacedFile& file) const;
    void read_airfoil(ValueReader& file);
    /// Reads `nb` points from an airfoil file's bytes behind its title line and normalises; throws
    /// ReadFailure where a number is missing, with the points read so far in place.
    void loadAirfoilFile(const std::string& bytes);

private:
    Point3D color_;
    Array1<Point3D> airfoil;
    std::string textureFile;
};

}  // namespace velna
