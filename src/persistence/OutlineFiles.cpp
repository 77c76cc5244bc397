#include "persistence/OutlineFiles.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <utility>

#include "common/NumberText.h"
#include "common/ValueReader.h"
#include "model/Plane.h"

namespace velna {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr char endOfText = '\x1A';  // of old systems
constexpr std::string_view blanks = " \t\f\v";
constexpr std::string_view remarks[] = {"#", "!", "%", "//"};

using AirfoilOutline::Written;

void dropBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
}

bool isRemark(std::string_view line) {
    return std::ranges::any_of(remarks, [&](auto mark) { return line.starts_with(mark); });
}

/// Takes a number and what parts it from the next.
std::optional<double> takeValue(std::string_view& text) {
    const auto value = takeNumber(text);
    if (!value || !std::isfinite(*value)) return {};
    const std::size_t before = text.size();
    dropBlanks(text);
    if (text.starts_with(',') || text.starts_with(';')) text.remove_prefix(1);
    if (text.size() == before && !text.empty()) return {};
    dropBlanks(text);
    return value;
}

/// The point that a line of two numbers tells.
std::optional<Point2D> pointOf(std::string_view line) {
    const auto x = takeValue(line);
    const auto height = x ? takeValue(line) : std::nullopt;
    if (!height || !line.empty()) return {};
    return Point2D{*x, *height};
}

/// The bytes up to an end mark, without the mark at their begin.
std::string_view textOf(std::string_view bytes) {
    if (bytes.empty()) throw ReadFailure("an empty file");
    if (bytes.find('\0') != std::string_view::npos) throw ReadFailure("it is no text");
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    return bytes.substr(0, bytes.find(endOfText));
}

/// All lines of two numbers behind the title. One that counts the sides is the first of them.
AirfoilOutline::Points pairsOf(std::string_view text) {
    AirfoilOutline::Points pairs;
    int number = 0;
    for (ValueReader lines(text); !lines.atEnd();) {
        std::string_view line = lines.line();
        ++number;
        dropBlanks(line);
        if (line.empty() || isRemark(line)) continue;
        if (const auto point = pointOf(line)) {
            pairs.push_back(*point);
        } else if (!pairs.empty()) {
            throw ReadFailure("line " + std::to_string(number) + " is no point");
        }
    }
    if (pairs.empty()) throw ReadFailure("it has no lines of two numbers with decimal points");
    return pairs;
}

/// Whether this can be a line that counts the points of both sides.
bool counts(Point2D pair) {
    const auto whole = [](double value) {
        return value >= 2 && value <= 1e9 && value == std::floor(value);
    };
    return whole(pair.x) && whole(pair.y);
}

/// Points whose sides are counted begin at the nose. Before others two whole numbers are a title,
/// a section's number such as "63 415".
bool beginsAtTail(std::span<const Point2D> points) {
    if (points.empty()) return false;
    const auto [least, most] = std::ranges::minmax(points, {}, &Point2D::x);
    return points.front().x == most.x && least.x < most.x;
}

/// Parts the points from a line that counts them.
Written withoutCounts(AirfoilOutline::Points pairs) {
    constexpr double farBehind = 1.5;  // no point lies so much behind all the others
    const Point2D head = pairs.front();
    if (!counts(head)) return {std::move(pairs), 0};
    const std::span<const Point2D> rest = std::span(pairs).subspan(1);
    if (head.x + head.y != static_cast<double>(rest.size())) {
        for (const Point2D& point : rest)
            if (head.x <= farBehind * std::abs(point.x)) return {std::move(pairs), 0};
        if (beginsAtTail(rest)) {
            pairs.erase(pairs.begin());
            return {std::move(pairs), 0};
        }
        throw ReadFailure("it counts " + numberText(head.x + head.y) + " points and has " +
                          std::to_string(rest.size()));
    }
    pairs.erase(pairs.begin());
    return {std::move(pairs), static_cast<std::size_t>(head.x)};
}

}  // namespace

AirfoilOutline::Points readOutlineBytes(std::string_view bytes) {
    return AirfoilOutline::arranged(withoutCounts(pairsOf(textOf(bytes))));
}

AirfoilOutline::Points readOutline(const std::string& path) {
    return readOutlineBytes(readWholeFile(path));
}

}  // namespace velna
