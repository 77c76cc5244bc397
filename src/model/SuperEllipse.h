#pragma once

#include <cstddef>
#include <vector>

namespace velna {

/// pi as every outline computes it.
double outlinePi();

/// The angle of outline point `j` (which may be a half-odd number) of `nb` points.
double outlineAngle(double j, int nb);

/// sgn(v) |v|^p, where |0| to any power counts as 0.
double signedPower(double v, double p);

/// The coordinates of one exponent on the angles of one section, for j from `first` in steps of 1
/// up to `last`; both may be half-odd, and then the angles lie between those of the whole numbers.
/// The sines and cosines depend on the number of points alone, and the powers are computed only
/// when the exponent changes: most bodies have one exponent on all sections.
class SuperEllipse {
public:
    struct Place {
        double cosine = 0;  ///< outlineCos
        double sine = 0;    ///< outlineSin - 1.0, with the rounding of that pair of operations
    };

    /// Takes the points `first` to `last` of a section of `nb` points.
    SuperEllipse(double first, double last, int nb);

    /// Computes the powers for the exponent `p`, unless they stand already.
    void setExponent(double p);

    double first() const { return first_; }
    /// The place of point `first()`, and the others behind it.
    const std::vector<Place>& places() const { return places_; }
    /// Whether no coordinate of a place is larger than 1: an exponent below 0 has no such bound.
    bool withinUnit() const { return exponent_ >= 0; }

private:
    /// A sine or cosine, and where the power of its size stands.
    struct Direction {
        double value;
        std::size_t power;
    };

    Direction directionOf(double value) const;

    double first_;
    bool computed_ = false;
    double exponent_ = 0;
    std::vector<double> sizes_;          ///< the sizes of all sines and cosines, each once
    std::vector<double> powers_;         ///< their powers
    std::vector<Direction> directions_;  ///< cosine and sine of each point in turn
    std::vector<Place> places_;
};

}  // namespace velna
