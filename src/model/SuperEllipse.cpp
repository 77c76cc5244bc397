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

namespace {

/// `power` of the size of `v`, with the sign of `v`; 0 stays 0 whatever the power says.
double withSign(double power, double v) {
    return v == 0 ? 0 : std::copysign(power, v);
}

}  // namespace

double signedPower(double v, double p) {
    return withSign(std::pow(std::abs(v), p), v);
}

SuperEllipse::SuperEllipse(double first, double last, int nb) : first_(first) {
    std::vector<double> values;
    for (double j = first; j <= last; ++j) {
        const double t = outlineAngle(j, nb);
        values.push_back(std::cos(t));
        values.push_back(std::sin(t));
    }
    places_.resize(values.size() / 2);
    // The quarters of a circle repeat each other, a good part of them to the last bit.
    for (double value : values) sizes_.push_back(std::abs(value));
    std::sort(sizes_.begin(), sizes_.end());
    sizes_.erase(std::unique(sizes_.begin(), sizes_.end()), sizes_.end());
    powers_.resize(sizes_.size());
    for (double value : values) directions_.push_back(directionOf(value));
}

SuperEllipse::Direction SuperEllipse::directionOf(double value) const {
    const auto size = std::lower_bound(sizes_.begin(), sizes_.end(), std::abs(value));
    return {value, static_cast<std::size_t>(size - sizes_.begin())};
}

void SuperEllipse::setExponent(double p) {
    if (computed_ && p == exponent_) return;
    computed_ = true;
    exponent_ = p;
    // These calls take nearly all the time of a rebuild: nothing else stands in their loop.
    if (p == 1) {
        powers_ = sizes_;
    } else {
        for (std::size_t n = 0; n < sizes_.size(); ++n) powers_[n] = std::pow(sizes_[n], p);
    }
    const Direction* direction = directions_.data();
    for (Place& place : places_) {
        place.cosine = withSign(powers_[direction->power], direction->value);
        ++direction;
        place.sine = (withSign(powers_[direction->power], direction->value) + 1.0) - 1.0;
        ++direction;
    }
}

}  // namespace velna
