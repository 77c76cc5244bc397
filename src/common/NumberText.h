#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velna {

/// The text of a number in every file of the program: C's `%.15G` in the C locale, and zero is
/// never negative ("0.5", "0", "1E-05", "6.12323399573677E-16", "1E+15").
std::string numberText(double value);

/// The most characters that a number's text has, and a little more.
inline constexpr std::size_t longestNumber = 32;

/// Writes `numberText(value)` at `at`, where `longestNumber` characters have room; gives its end.
char* putNumber(char* at, double value);

/// The same for a whole number in decimal digits.
char* putInteger(char* at, long long value);

/// Appends `numberText(value)` to `out` without a temporary.
void appendNumber(std::string& out, double value);

/// A number with `decimals` digits behind the point, to be read and not to be stored ("150.37");
/// one beyond a thousand million as `numberText`. Zero is never negative.
std::string fixedText(double value, int decimals);

/// Appends a whole number in decimal digits.
void appendInteger(std::string& out, long long value);

/// The number that the longest numeric prefix of `text` gives (blanks before it are skipped, an
/// exponent counts when complete, `.5` and `5.` are numbers, no hexadecimal), or nothing when the
/// text starts with no number. A number beyond the range of a double comes back as an infinity, so
/// that the assignment that follows fails; but the largest double, which `numberText` must round
/// up, comes back as itself.
std::optional<double> numericPrefix(std::string_view text);

/// `numericPrefix`, and takes what it read, blanks included, off the front of `text`. Without a
/// number `text` is left alone.
std::optional<double> takeNumber(std::string_view& text);

/// `numericPrefix`, with 0 for a text that starts with no number.
double leadingNumber(std::string_view text);

/// The whole of `text` as a number by the same grammar, leading blanks skipped; nothing when
/// anything else stands there or the value is not finite.
std::optional<double> wholeNumber(std::string_view text);

/// The nearest whole number, halves to the even one. Defined for every double: a value beyond the
/// range of the result is clipped to its ends, and NaN gives 0.
int roundToInt(double value);

/// As `roundToInt`, in the signed 16-bit range.
std::int16_t roundToInt16(double value);

/// The nearest whole number as a double, halves to the even one.
double roundHalfEven(double value);

/// The number `value` (never negative here) with at least three digits: 1 is "001".
std::string threeDigits(int value);

}  // namespace velna
