#include "shell/qt/Legible.h"

#include <algorithm>
#include <cmath>

namespace velna {
namespace {

// What small letters need.
constexpr double enough = 4.5;
constexpr int steps = 5;

double luminance(const QColor& color) {
    const auto light = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * light(color.redF()) + 0.7152 * light(color.greenF()) +
           0.0722 * light(color.blueF());
}

QColor mixed(const QColor& from, const QColor& to, float share) {
    const auto part = [share](float a, float b) { return a + share * (b - a); };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()));
}

}  // namespace

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05, second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor legible(const QColor& ink, const QColor& ground, const QColor& letters) {
    const QColor seen = mixed(ground, ink, ink.alphaF());
    QColor result = seen;
    for (int step = 1; step <= steps && contrast(result, ground) < enough; ++step)
        result = mixed(seen, letters, static_cast<float>(step) / steps);
    return result;
}

QColor tinted(const QColor& ground) {
    return mixed(ground, QColor(255, 170, 0), 0.25F);
}

}  // namespace velna
