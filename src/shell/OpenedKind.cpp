#include "shell/OpenedKind.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "model/Plane.h"
#include "persistence/AirfoilFiles.h"
#include "persistence/OutlineFiles.h"
#include "persistence/ProjectFile.h"

namespace velna {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view pictureExtensions[] = {"bmp"sv, "jpg"sv, "jpeg"sv, "png"sv,
                                                  "gif"sv, "tif"sv, "tiff"sv, "ico"sv};
/// How the pictures that can be decoded begin.
constexpr std::string_view pictureHeads[] = {"BM"sv,    "\xff\xd8\xff"sv, "\x89PNG"sv, "GIF8"sv,
                                             "II*\0"sv, "MM\0*"sv,        "\0\0\1\0"sv};
constexpr std::size_t longestHead = 8;

/// What stands behind the last point of the title, in small letters.
std::string extensionOf(const std::string& file) {
    const std::string title = titleOf(file);
    const auto point = title.rfind('.');
    if (point == std::string::npos) return {};
    std::string extension = title.substr(point + 1);
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return extension;
}

void checkPicture(const std::string& file) {
    const std::string start = readFileStart(file, longestHead);
    if (std::ranges::none_of(pictureHeads, [&](auto head) { return start.starts_with(head); }))
        throw ReadFailure(file + ": no picture that can be read");
}

/// On an aircraft of its own: a file that fails must not leave half its points on the wing.
void checkAirfoil(const std::string& file) {
    constexpr std::size_t fewest = 3;  // a triangle
    Project scratch;
    Plane::setDefaultPlane(scratch);
    try {
        const std::string bytes = prepareAirfoilBytes(readWholeFile(file));
        loadAirfoilBytes(scratch, bytes);
        if (countAirfoilPoints(bytes) < fewest) throw ReadFailure("too few points");
    } catch (const ReadFailure& failure) {
        throw ReadFailure(file + ": no airfoil (" + failure.what() + ")");
    }
}

/// Whether a file that is no picture holds an outline; where only that can be meant, what is none
/// is a failure.
bool holdsOutline(const std::string& file, const std::string& extension) {
    try {
        Project scratch;
        Plane::setDefaultPlane(scratch);
        AirfoilOutline::putOnWing(scratch, readOutline(file), false);
        return true;
    } catch (const ReadFailure& failure) {
        if (extension == "dat") throw ReadFailure(file + ": no airfoil (" + failure.what() + ")");
        return false;
    }
}

}  // namespace

OpenedKind kindOfFile(const std::string& file) {
    readFileStart(file, longestHead);
    const std::string extension = extensionOf(file);
    if (extension == "xy") {
        checkAirfoil(file);
        return OpenedKind::Airfoil;
    }
    if (std::ranges::find(pictureExtensions, extension) != std::end(pictureExtensions)) {
        checkPicture(file);
        return OpenedKind::Picture;
    }
    if (extension != "vln" && holdsOutline(file, extension)) return OpenedKind::AnyAirfoil;
    const Outcome project = Plane::checkProject(file);
    if (project.hasFailed()) throw ReadFailure(project.reason());
    return OpenedKind::Project;
}

}  // namespace velna
