#include "model/SectionRing.h"

#include <algorithm>

#include "model/MeshHalves.h"
#include "model/MeshSections.h"

namespace velna {

Real SectionRing::scaleOf(const MeshSections& body) {
    return scaleOf(body, 1, body.sectionCount());
}

Real SectionRing::scaleOf(const MeshSections& body, int first, int last) {
    Real most = 0;
    const auto note = [&most](Real size) { most = std::max(most, std::abs(size)); };
    for (int i = first; i <= last; ++i) {
        const int k = body.storageIndex(i);
        const Real bias = body.bias_curve(k);
        note(body.width(k));
        note(bias * body.height(k));
        note((bias - 1) * body.height(k));
    }
    int exponent = 0;
    std::frexp(most, &exponent);
    return std::ldexp(Real{1}, exponent);
}

SectionRing::SectionRing(const MeshSections& body, Real scale)
    : body_(body),
      scale_(scale),
      upper_(1, MeshHalves(body.nb_cross).upperLast, body.nb_cross),
      lower_(MeshHalves(body.nb_cross).lowerFirst, body.nb_cross, body.nb_cross) {
    const MeshHalves halves(body.nb_cross);
    const auto slot = [&](int j) {
        const bool behindGap = halves.unset > 0 && j > halves.unset;
        return static_cast<std::size_t>(j) - (behindGap ? 2 : 1);
    };
    oppositeSlot_ = slot(halves.opposite);
    lowerSlot_ = slot(halves.lowerFirst);
    size_ = static_cast<std::size_t>(body.nb_cross) - (halves.unset > 0 ? 1 : 0);
}

void SectionRing::write(const SuperEllipse& ellipse, std::size_t slot, const Half& half,
                        Points& points) {
    double* y = points.y.data() + slot;
    double* z = points.z.data() + slot;
    for (const auto& place : ellipse.places()) {
        *y++ = half.halfWidth * place.cosine;
        *z++ = half.rise * place.sine + half.base;
    }
}

void SectionRing::collect(int i, Points& points) {
    points.y.resize(size_ + 1);
    points.z.resize(size_ + 1);
    const int k = body_.storageIndex(i);
    const Real height = body_.height(k) / scale_;
    const Real bias = body_.bias_curve(k);
    const auto halfWidth = static_cast<double>(body_.width(k) / scale_ / 2);
    const auto above = static_cast<double>(bias * height);
    const auto below = static_cast<double>((1 - bias) * height);
    upper_.setExponent(body_.curvature(k));
    lower_.setExponent(body_.curvature2(k));
    // In the order of the mesh: with an odd number of points two of them fall on one.
    write(upper_, 0, {halfWidth, above, below}, points);
    points.y[oppositeSlot_] = -halfWidth;
    points.z[oppositeSlot_] = below;
    write(lower_, lowerSlot_, {halfWidth, below, below}, points);
    points.y.back() = points.y.front();
    points.z.back() = points.z.front();
}

}  // namespace velna
