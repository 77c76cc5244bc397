#include "model/NacaSection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "common/ValueReader.h"

namespace velna::NacaSection {

namespace {

/// The mean lines of five digits for a design lift coefficient of 0.3: where the cubic ends, its
/// factor, and, where the tail turns up, the ratio of the second cubic's to it.
struct FiveDigitLine {
    int line;
    double end;
    double factor;
    double ratio;
};
constexpr FiveDigitLine fiveDigitLines[] = {
    {10, 0.0580, 361.4, 0},        {20, 0.1260, 51.64, 0},      {30, 0.2025, 15.957, 0},
    {40, 0.2900, 6.643, 0},        {50, 0.3910, 3.230, 0},      {21, 0.1300, 51.99, 0.000764},
    {31, 0.2170, 15.793, 0.00677}, {41, 0.3180, 6.520, 0.0303}, {51, 0.4410, 3.191, 0.1355},
};
constexpr double tabulatedLift = 0.3;
constexpr double liftOfADigit = 0.15;
/// Thicker ones than this are no wings; the formulas would still give something.
constexpr int thickest = 40;  // hundredths of the chord

const FiveDigitLine* fiveDigitLine(int line) {
    const auto* row = std::ranges::find(fiveDigitLines, line, &FiveDigitLine::line);
    return row == std::end(fiveDigitLines) ? nullptr : row;
}

std::string_view digitsOf(std::string_view text) {
    const auto drop = [&text](std::string_view what) {
        text.remove_prefix(std::min(text.find_first_not_of(what), text.size()));
    };
    drop(" \t");
    if (text.find_first_of("nN") == 0) {
        drop("NACAnaca");
        drop(" \t-");
    }
    return text.substr(0, text.find_last_not_of(" \t") + 1);
}

int valueOf(std::string_view digits) {
    int value = 0;
    for (const char c : digits) value = 10 * value + (c - '0');
    return value;
}

void fourDigits(Digits& digits, int camber, int place) {
    if (camber > 0 && place == 0) throw ReadFailure("with camber the second digit is 1 to 9");
    if (camber == 0 && place > 0) throw ReadFailure("without camber the second digit is 0");
    digits.camber = camber / 100.0;
    digits.place = place / 10.0;
}

void fiveDigits(Digits& digits, int lift, int line) {
    if (lift == 0) throw ReadFailure("the first of five digits is 1 to 9");
    if (!fiveDigitLine(line))
        throw ReadFailure("the middle of five digits is 10 to 50 or 21 to 51");
    digits.lift = liftOfADigit * lift;
    digits.meanLine = line;
}

MeanLine fourDigitLineAt(const Digits& digits, double x) {
    const double p = digits.place;
    const double before = x < p ? p : 1 - p;
    const double factor = digits.camber / (before * before);
    const double start = x < p ? 0 : 1 - 2 * p;
    return {factor * (start + 2 * p * x - x * x), 2 * factor * (p - x)};
}

MeanLine fiveDigitLineAt(const Digits& digits, double x) {
    const FiveDigitLine& row = *fiveDigitLine(digits.meanLine);
    const double m = row.end;
    const double factor = row.factor / 6 * digits.lift / tabulatedLift;
    const double cube = m * m * m;
    const double behind = (1 - m) * (1 - m) * (1 - m);
    const double share = x < m ? 1 : row.ratio;
    const double d = x - m;
    const double fall = row.ratio * behind + cube;
    return {factor * (share * d * d * d - fall * x + cube), factor * (3 * share * d * d - fall)};
}

}  // namespace

Digits number(std::string_view text) {
    const std::string_view digits = digitsOf(text);
    if ((digits.size() != 4 && digits.size() != 5) ||
        digits.find_first_not_of("0123456789") != std::string_view::npos)
        throw ReadFailure("four or five digits, like 2412 or 23012");
    Digits told;
    const int thickness = valueOf(digits.substr(digits.size() - 2));
    if (thickness == 0 || thickness > thickest) {
        throw ReadFailure("the last two digits, the thickness, are 01 to " +
                          std::to_string(thickest));
    }
    told.thickness = thickness / 100.0;
    const int first = valueOf(digits.substr(0, 1));
    if (digits.size() == 4) {
        fourDigits(told, first, valueOf(digits.substr(1, 1)));
    } else {
        fiveDigits(told, first, valueOf(digits.substr(1, 2)));
    }
    return told;
}

MeanLine meanLineAt(const Digits& digits, double x) {
    if (digits.meanLine == 0 && digits.camber == 0) return {0, 0};
    MeanLine line = digits.meanLine > 0 ? fiveDigitLineAt(digits, x) : fourDigitLineAt(digits, x);
    if (x >= 1) line.height = 0;  // the chord's end, but for the rounding of the sum
    return line;
}

double halfThicknessAt(const Digits& digits, double x, bool closed) {
    // The last factor is the published one, or that which makes the sum 0 at the edge.
    const double last = closed ? 0.1036 : 0.1015;
    if (closed && x >= 1) return 0;
    return 5 * digits.thickness *
           (0.2969 * std::sqrt(x) + x * (-0.1260 + x * (-0.3516 + x * (0.2843 - x * last))));
}

AirfoilOutline::Points outline(const Digits& digits, int points, bool closed) {
    const int count = std::clamp(points, fewestPoints, mostPoints);
    AirfoilOutline::Points result(static_cast<std::size_t>(count));
    for (int i = 0; i < (count + 1) / 2; ++i) {
        const double x = (1 + std::cos(2 * std::numbers::pi * i / (count - 1))) / 2;
        const auto [height, slope] = meanLineAt(digits, x);
        const double half = halfThicknessAt(digits, x, closed);
        const double along = half / std::sqrt(1 + slope * slope);
        const double across = along * slope;
        // The second of both is the nose itself where that has one point.
        result[static_cast<std::size_t>(count - 1 - i)] = {x - across, height + along};
        result[static_cast<std::size_t>(i)] = {x + across, height - along};
    }
    return result;
}

}  // namespace velna::NacaSection
