#include "common/NumberText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <system_error>

namespace velna {
namespace {

/// The digits that a number keeps in a file.
constexpr int significantDigits = 15;
/// Below this, `%.15G` writes a whole number without an exponent.
constexpr double wholeNumberLimit = 1e15;
/// Below this, `%.15G` writes an exponent.
constexpr double smallestPlain = 1e-4;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    std::size_t blanks = 0;
    while (blanks < text.size() && (text[blanks] == ' ' || text[blanks] == '\t')) ++blanks;
    return text.substr(blanks);
}

/// Powers of ten that are doubles without rounding.
constexpr std::array<double, 23> powersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                             1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
/// Whole numbers up to here are doubles without rounding.
constexpr std::uint64_t exactWhole = std::uint64_t{1} << 53;
/// So many digits fit the whole number that they are collected in.
constexpr int mostPlainDigits = 19;

/// The number at `at` where it is written plainly and short, as nearly all are; `at` is then behind
/// it. Digits and power of ten are both exact, so the one division rounds to the nearest double, as
/// the library would, in half its time.
bool takePlainNumber(const char*& at, const char* end, double& value) {
    const char* next = at;
    const bool negative = *next == '-';
    if (negative) ++next;
    std::uint64_t whole = 0;
    const char* const first = next;
    while (next != end && isDigit(*next)) whole = whole * 10 + static_cast<unsigned>(*next++ - '0');
    auto digits = next - first;
    std::ptrdiff_t places = 0;
    if (next != end && *next == '.') {
        const char* const fraction = ++next;
        while (next != end && isDigit(*next))
            whole = whole * 10 + static_cast<unsigned>(*next++ - '0');
        places = next - fraction;
        digits += places;
    }
    if (digits < 1 || digits > mostPlainDigits || whole > exactWhole) return false;
    if (next != end && (*next == 'e' || *next == 'E')) return false;
    value = static_cast<double>(whole) / powersOfTen[static_cast<std::size_t>(places)];
    if (negative) value = -value;
    at = next;
    return true;
}

/// The place of the first digit that is not 0 before the point (units are 1), 0 or below behind it.
long long leadingPlace(std::string_view mantissa) {
    const auto point = std::min(mantissa.find_first_of(".eE"), mantissa.size());
    const auto first = mantissa.find_first_of("123456789");
    if (first < point) return static_cast<long long>(point - first);
    return static_cast<long long>(point) - static_cast<long long>(first) + 1;
}

/// The digits of a mantissa without its point, and without zeros before and behind.
std::string significantOf(std::string_view mantissa) {
    std::string digits;
    std::copy_if(mantissa.begin(), mantissa.end(), std::back_inserter(digits), isDigit);
    digits.erase(0, digits.find_first_not_of('0'));
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits;
}

/// Whether these digits, at the largest double's own power of ten, are that double with its last
/// digit rounded up: a file keeps 15 digits, and in those the largest double has no neighbour
/// below.
bool isLargestRounded(const std::string& digits) {
    const auto count = static_cast<int>(digits.size());
    if (count < significantDigits || count > std::numeric_limits<double>::max_digits10)
        return false;
    char text[longestNumber];
    auto* const end = std::to_chars(text, text + longestNumber, std::numeric_limits<double>::max(),
                                    std::chars_format::scientific, count - 1)
                          .ptr;
    const std::string_view largest(text, static_cast<std::size_t>(end - text));
    return significantOf(largest.substr(0, largest.find('e'))) == digits;
}

/// What a number stands for that no double can hold: an infinity, the largest double where only the
/// rounding of the last digit carried it beyond, or 0 when it is too small.
double outOfRange(std::string_view number) {
    const bool negative = number.front() == '-';
    if (negative) number.remove_prefix(1);
    const auto letter = std::min(number.find_first_of("eE"), number.size());
    long long exponent = 0;
    bool negativeExponent = false;
    for (const char c : number.substr(letter)) {
        if (c == '-') negativeExponent = true;
        if (isDigit(c)) exponent = std::min(exponent * 10 + (c - '0'), 1LL << 40);
    }
    const auto mantissa = number.substr(0, letter);
    const long long size = leadingPlace(mantissa) + (negativeExponent ? -exponent : exponent);
    if (size <= 0) return 0;
    constexpr int largestSize = std::numeric_limits<double>::max_exponent10 + 1;
    const double magnitude = size == largestSize && isLargestRounded(significantOf(mantissa))
                                 ? std::numeric_limits<double>::max()
                                 : std::numeric_limits<double>::infinity();
    return negative ? -magnitude : magnitude;
}

__extension__ using Wide = unsigned __int128;

/// The digits of a number without its point: `digits` times 10 to the `point` - 15.
struct Significant {
    std::uint64_t digits;  ///< `significantDigits` of them, the first not 0
    int point;             ///< so many stand before the point; below 1 for a number below 0.1
};

constexpr std::uint64_t leastDigits = 100'000'000'000'000;  // 15 of them
constexpr std::uint64_t pastDigits = 10 * leastDigits;

/// 10 to the `power`, for 0 to 19.
constexpr std::uint64_t wholePower(int power) {
    std::uint64_t result = 1;
    for (; power > 0; --power) result *= 10;
    return result;
}

constexpr auto wholePowers = [] {
    std::array<std::uint64_t, mostPlainDigits + 1> powers{};
    for (int n = 0; n <= mostPlainDigits; ++n) powers[static_cast<std::size_t>(n)] = wholePower(n);
    return powers;
}();

/// Powers of ten from 10 to the `leastPower` on. Those below 1 are rounded, as a number is that
/// stands for one.
constexpr int leastPower = -5;
constexpr std::array<double, 21> plainPowers{1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1e0,  1e1,
                                             1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,
                                             1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// `value`, from `smallestPlain` to below `wholeNumberLimit`, rounded to its digits, halves to the
/// even one. A double is a whole number of 53 bits by a power of two: by a power of ten it has less
/// than 128, so nothing is rounded but once, at the end, as the library does by longer ways.
Significant significantDigitsOf(double value) {
    constexpr int mantissaBits = 52;
    constexpr int bias = 1075;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t fraction = bits & ((std::uint64_t{1} << mantissaBits) - 1);
    const auto biased = static_cast<int>(bits >> mantissaBits);
    const std::uint64_t mantissa = fraction | (std::uint64_t{1} << mantissaBits);
    const int shift = bias - biased;  // 3 to 66: the value is `mantissa` by 2 to the -shift
    // log10(2) is 1233 / 4096, about: the point may be one too far left.
    int point = ((mantissaBits - shift) * 1233 >> 12) + 1;
    if (value >= plainPowers[static_cast<std::size_t>(point - leastPower)]) ++point;
    const Wide scaled =
        Wide{mantissa} * wholePowers[static_cast<std::size_t>(significantDigits - point)];
    auto digits = static_cast<std::uint64_t>(scaled >> shift);
    const Wide rest = scaled & ((Wide{1} << shift) - 1);
    const Wide half = Wide{1} << (shift - 1);
    if (rest > half || (rest == half && digits % 2 != 0)) ++digits;
    if (digits == pastDigits) return {leastDigits, point + 1};
    return {digits, point};
}

/// The decimal digits of 0 to 99, two each.
constexpr auto digitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t n = 0; n < 100; ++n) {
        pairs[2 * n] = static_cast<char>('0' + n / 10);
        pairs[2 * n + 1] = static_cast<char>('0' + n % 10);
    }
    return pairs;
}();

/// Writes the four digits of `value`.
void putFour(char* at, std::uint32_t value) {
    std::memcpy(at, &digitPairs[2 * static_cast<std::size_t>(value / 100)], 2);
    std::memcpy(at + 2, &digitPairs[2 * static_cast<std::size_t>(value % 100)], 2);
}

/// Writes the eight digits of `value`.
void putEight(char* at, std::uint32_t value) {
    putFour(at, value / 10000);
    putFour(at + 4, value % 10000);
}

/// Writes a number of which only the digits count that are not zeros at its end.
char* putPlain(char* at, const Significant& number) {
    constexpr std::uint32_t lowerHalf = 100'000'000;
    char digits[2 * significantDigits + 1]{};
    putEight(digits, static_cast<std::uint32_t>(number.digits / lowerHalf));
    putEight(digits + 8, static_cast<std::uint32_t>(number.digits % lowerHalf));
    const char* const first = digits + 1;
    const char* last = digits + 16;
    while (last[-1] == '0') --last;
    const auto count = last - first;
    if (number.point <= 0) {
        std::memcpy(at, "0.000", 5);
        at += 2 - number.point;
        return std::copy(first, last, at);
    }
    if (count <= number.point) {
        at = std::copy(first, last, at);
        return std::fill_n(at, number.point - count, '0');
    }
    // Of fixed lengths these are a few instructions; what is too much is written over.
    std::memcpy(at, first, significantDigits);
    std::memcpy(at + number.point + 1, first + number.point, significantDigits);
    at[number.point] = '.';
    return at + count + 1;
}

}  // namespace

char* putInteger(char* at, long long value) {
    return std::to_chars(at, at + longestNumber, value).ptr;
}

char* putNumber(char* at, double value) {
    if (value > -wholeNumberLimit && value < wholeNumberLimit) {
        const auto whole = static_cast<long long>(value);
        if (static_cast<double>(whole) == value) return putInteger(at, whole);
        const double size = std::abs(value);
        if (size >= smallestPlain) {
            if (value < 0) *at++ = '-';
            const Significant number = significantDigitsOf(size);
            if (number.point <= significantDigits) return putPlain(at, number);
            return std::copy_n("1E+15", 5, at);
        }
    }
    auto* const end =
        std::to_chars(at, at + longestNumber, value, std::chars_format::general, significantDigits)
            .ptr;
    std::replace(at, end, 'e', 'E');
    return end;
}

std::string numberText(double value) {
    std::string text;
    appendNumber(text, value);
    return text;
}

void appendNumber(std::string& out, double value) {
    char text[longestNumber];
    out.append(text, putNumber(text, value));
}

std::string fixedText(double value, int decimals) {
    constexpr double longest = 1e9;
    if (!(std::fabs(value) < longest)) return numberText(value);
    char digits[longestNumber];
    auto* const end =
        std::to_chars(digits, digits + longestNumber, value, std::chars_format::fixed, decimals)
            .ptr;
    const std::string text(digits, end);
    // What is rounded to nothing has no sign.
    const bool zero = text.find_first_of("123456789") == std::string::npos;
    return zero && text.front() == '-' ? text.substr(1) : text;
}

void appendInteger(std::string& out, long long value) {
    char text[longestNumber];
    out.append(text, putInteger(text, value));
}

std::optional<double> takeNumber(std::string_view& text) {
    std::string_view number = withoutLeadingBlanks(text);
    if (!number.empty() && number.front() == '+') {
        number.remove_prefix(1);
        if (!number.empty() && number.front() == '-') return {};
    }
    const std::string_view digits = number.substr(number.starts_with('-') ? 1 : 0);
    // `inf` and `nan`, which from_chars would take, start with a letter.
    if (digits.empty() || !(isDigit(digits.front()) || digits.front() == '.')) return {};
    double value = 0;
    const char* at = number.data();
    if (takePlainNumber(at, number.data() + number.size(), value)) {
        text = number.substr(static_cast<std::size_t>(at - number.data()));
        return value;
    }
    const auto [end, error] = std::from_chars(at, at + number.size(), value);
    if (error == std::errc::invalid_argument) return {};
    const auto length = static_cast<std::size_t>(end - number.data());
    text = number.substr(length);
    if (error == std::errc::result_out_of_range) return outOfRange(number.substr(0, length));
    return value;
}

std::optional<double> numericPrefix(std::string_view text) {
    return takeNumber(text);
}

double leadingNumber(std::string_view text) {
    return numericPrefix(text).value_or(0.0);
}

std::optional<double> wholeNumber(std::string_view text) {
    const auto value = takeNumber(text);
    if (!value || !text.empty() || !std::isfinite(*value)) return {};
    return value;
}

int roundToInt(double value) {
    if (std::isnan(value)) return 0;
    constexpr double least = std::numeric_limits<int>::min();
    constexpr double most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(roundHalfEven(value), least, most));
}

std::int16_t roundToInt16(double value) {
    constexpr int least = std::numeric_limits<std::int16_t>::min();
    constexpr int most = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::clamp(roundToInt(value), least, most));
}

// The rounding mode of the process is never changed from its default, to nearest and even.
double roundHalfEven(double value) {
    return std::nearbyint(value);
}

std::string threeDigits(int value) {
    std::string text = std::to_string(value);
    if (text.size() < 3) text.insert(0, 3 - text.size(), '0');
    return text;
}

}  // namespace velna
