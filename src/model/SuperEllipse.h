#pragma once

#include <vector>

namespace velna {

/// pi as every outline computes it.
double outlinePi();

/// The angle of outline point `j` (which may be a half-odd number) of `nb` points.
double outlineAngle(double j, int nb);

/// sgn(v) |v|^p, where |0| to any power counts as 0.
double signedPower(double v, double p);

/// The coordinates of one exponent on the angles of one section, for j from `first` to `last`. The
/// sines and cosines are given, and the powers are computed only when the exponent changes: most
/// bodies have one exponent on all sections.
class SuperEllipse {
public:
    struct Place {
        double cosine = 0;  ///< outlineCos
        double sine = 0;    ///< outlineSin - 1.0, with the rounding of that pair of operations
    };

    /// Takes the points `first` to `last` of `nb` in the angles of the mesh.
    SuperEllipse(int first, int last, int nb);

    /// Computes the powers for the exponent `p`, unless they stand already.
    void setExponent(double p);

    int first() const { return first_; }
    int last() const { return last_; }
    /// The place of point `first()`; the others follow.
    const Place* places() const { return places_.data(); }

private:
    int first_;
    int last_;
    bool computed_ = false;
    double exponent_ = 0;
    std::vector<Place> directions_;
    std::vector<Place> places_;
};

}  // namespace velna
