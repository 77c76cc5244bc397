#include "common/Turn.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace velna {
namespace {

/// A sum of doubles without any rounding: parts that do not overlap, the smallest first.
class ExactSum {
public:
    /// Adds one product, rounding error and all.
    void addProduct(double a, double b) {
        const double product = a * b;
        add(std::fma(a, b, -product));
        add(product);
    }
    int sign() const {
        if (count_ == 0) return 0;
        return parts_[count_ - 1] > 0 ? 1 : -1;
    }

private:
    void add(double value) {
        std::size_t kept = 0;
        for (std::size_t n = 0; n < count_; ++n) {
            const double sum = value + parts_[n];
            const double share = sum - value;
            const double lost = (value - (sum - share)) + (parts_[n] - share);
            if (lost != 0) parts_[kept++] = lost;
            value = sum;
        }
        if (value != 0) parts_[kept++] = value;
        count_ = kept;
    }

    std::array<double, 12> parts_{};  // two for each of six products
    std::size_t count_ = 0;
};

int sign(double value) {
    return (value > 0 ? 1 : 0) - (value < 0 ? 1 : 0);
}

int exactTurn(const Point2D& a, const Point2D& b, const Point2D& c) {
    ExactSum sum;
    sum.addProduct(a.x, b.y);
    sum.addProduct(-a.y, b.x);
    sum.addProduct(b.x, c.y);
    sum.addProduct(-b.y, c.x);
    sum.addProduct(c.x, a.y);
    sum.addProduct(-c.y, a.x);
    return sum.sign();
}

}  // namespace

int turn(const Point2D& a, const Point2D& b, const Point2D& c) {
    constexpr double epsilon = std::numeric_limits<double>::epsilon() / 2;
    constexpr double bound = (3 + 16 * epsilon) * epsilon;
    const double left = (a.x - c.x) * (b.y - c.y);
    const double right = (a.y - c.y) * (b.x - c.x);
    const double difference = left - right;
    if (std::abs(difference) > bound * (std::abs(left) + std::abs(right))) return sign(difference);
    return exactTurn(a, b, c);
}

}  // namespace velna
