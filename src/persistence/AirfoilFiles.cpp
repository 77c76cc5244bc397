#include "persistence/AirfoilFiles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "common/Complaint.h"
#include "common/NumberText.h"
#include "common/ValueReader.h"
#include "model/Plane.h"

namespace velna {

namespace {

constexpr const char* lineEnd = "\r\n";

/// What stands behind the first line; nothing for an empty file.
std::optional<std::string_view> behindTitle(std::string_view bytes) {
    if (bytes.empty()) return {};
    const auto end = bytes.find('\r');
    if (end == std::string_view::npos) return std::string_view{};
    const bool pair = bytes.substr(end).starts_with(lineEnd);
    return bytes.substr(end + (pair ? 2 : 1));
}

/// The numbers of the lines in sequence: each ends at a blank, at a comma or at the line end.
class NumberStream {
public:
    explicit NumberStream(std::string_view text) : rest_(text) {}

    double next() {
        drop(" \t\r\n");
        const auto number = takeNumber(rest_);
        const bool ended =
            rest_.empty() || std::string_view(" \t\r\n,").find(rest_.front()) != rest_.npos;
        if (!number || !ended || !std::isfinite(*number)) throw ReadFailure("a number expected");
        // One comma belongs to the number before it, also behind a blank.
        drop(" \t");
        if (rest_.starts_with(',')) rest_.remove_prefix(1);
        return *number;
    }

private:
    void drop(std::string_view characters) {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(characters), rest_.size()));
    }

    std::string_view rest_;
};

/// Reads the wing's `nb` points behind the title line and normalises them.
void readPoints(SymWingSections& wing, std::string_view bytes) {
    NumberStream numbers(behindTitle(bytes).value_or(std::string_view{}));
    for (int i = 1; i <= wing.nb; ++i) {
        wing.airfoilPoint(i).x = numbers.next();
        wing.airfoilPoint(i).z = numbers.next();
    }
    wing.normalizeAirfoil();
}

/// A failed import shows no message: the points read so far stand.
template <class Prepare>
void loadFile(Project& project, const std::string& path, Prepare prepare) {
    try {
        loadAirfoilBytes(project, prepare(readWholeFile(path)));
    } catch (const ReadFailure& failure) {
        complain(path, failure.what());
    }
}

}  // namespace

std::size_t countAirfoilPoints(std::string_view bytes) {
    const auto lines = behindTitle(bytes).value_or(std::string_view{});
    if (lines.empty()) return 0;
    const auto ends = static_cast<std::size_t>(std::ranges::count(lines, '\r'));
    return ends + (lines.ends_with('\r') || lines.ends_with(lineEnd) ? 0 : 1);
}

std::string prepareAirfoilBytes(const std::string& bytes) {
    if (bytes.find('\r') != std::string::npos || bytes.find('\n') == std::string::npos)
        return bytes;
    const auto last = bytes.find_last_not_of(" \t\n");
    std::string prepared;
    prepared.reserve(bytes.size() * 9 / 8);
    for (const char c : bytes.substr(0, last == std::string::npos ? 0 : last + 1)) {
        if (c == '\n') prepared += '\r';
        prepared += c;
    }
    return prepared + lineEnd;
}

void loadAirfoilBytes(Project& project, const std::string& bytes) {
    if (bytes.empty()) throw ReadFailure("an empty file");
    const std::size_t count = countAirfoilPoints(bytes);
    // A count that the wing cannot hold is refused before anything has changed.
    if (count > std::size_t{Plane::largestCount}) throw ReadFailure("too many points");
    SymWingSections& wing = project.Wings(project.currentWing);
    wing.nb = static_cast<std::int16_t>(count);
    wing.allocate();
    readPoints(wing, bytes);
}

void openAirfoil(Project& project, const std::string& path) {
    loadFile(project, path, prepareAirfoilBytes);
}

namespace Plane {

void loadAirfoil(Project& project, const std::string& file) {
    loadFile(project, file, [](std::string bytes) { return bytes; });
}

}  // namespace Plane
}  // namespace velna
