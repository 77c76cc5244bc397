#include "model/SuperEllipse.h"

#include <algorithm>
#include <cmath>

namespace velna {

double outlinePi() {
    return 4 * std::atan(1.0);
}

double outlineAngle(double j, int nb) {
    return 2 * outlinePi() * (j - 1) / nb;
}

double signedPower(double v, double p) {
    if (v == 0) return 0;
    if (p == 1) return v;  // the very same double, without the call
    const double power = std::pow(std::abs(v), p);
    return v < 0 ? -power : power;
}

SuperEllipse::SuperEllipse(int first, int last, int nb) : first_(first), last_(last) {
    const auto count = static_cast<std::size_t>(std::max(0, last - first + 1));
    directions_.reserve(count);
    places_.resize(count);
    for (int j = first; j <= last; ++j) {
        const double t = outlineAngle(j, nb);
        directions_.push_back({std::cos(t), std::sin(t)});
    }
}

void SuperEllipse::setExponent(double p) {
    if (computed_ && p == exponent_) return;
    computed_ = true;
    exponent_ = p;
    for (std::size_t n = 0; n < places_.size(); ++n) {
        places_[n].cosine = signedPower(directions_[n].cosine, p);
        places_[n].sine = (signedPower(directions_[n].sine, p) + 1.0) - 1.0;
    }
}

}  // namespace velna
