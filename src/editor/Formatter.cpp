#include <charconv>
#include <cmath>
#include <string>

#include "common/NumberText.h"
#include "editor/Main.h"
#include "model/Project.h"

namespace velna {
namespace {

// From here on a double holds no hundredths that are worth rounding.
constexpr double noHundredths = 1e13;

/// `value` in hundredths, rounded by the digits that a reader sees: 1.005 is a half there, though
/// the double lies a little below it. Halves go away from 0.
double hundredths(double value) {
    char text[40];
    const auto mantissa =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 14);
    char* exponent = text;
    while (*exponent != 'e') ++exponent;
    int power = 0;
    std::from_chars(exponent[1] == '+' ? exponent + 2 : exponent + 1, mantissa.ptr, power);
    const auto end = std::to_chars(exponent + 1, text + sizeof text, power + 2);
    double result = 0;
    std::from_chars(text, end.ptr, result);
    return std::round(result);
}

/// "###.00": two decimals and no leading zero.
std::string inchText(double value) {
    char text[330];
    if (std::fabs(value) >= noHundredths) {
        const auto end =
            std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 2);
        return {text, end.ptr};
    }
    const auto count = static_cast<long long>(hundredths(value));
    const auto end = std::to_chars(text, text + sizeof text, count < 0 ? -count : count);
    std::string digits(text, end.ptr);
    if (digits.size() < 2) digits.insert(0, "0");
    digits.insert(digits.size() - 2, ".");
    return count < 0 ? "-" + digits : digits;
}

}  // namespace

std::string lengthText(double length, int unit) {
    if (unit == inches && std::isfinite(length)) return inchText(length);
    return numberText(std::floor(length));
}

std::string MainForm::Formatter(double x) const {
    return lengthText(x, project.units);
}

}  // namespace velna
