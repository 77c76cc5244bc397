#include "preview/Bitmap.h"

#include <algorithm>
#include <bit>
#include <filesystem>
#include <iostream>
#include <map>
#include <system_error>
#include <utility>

#include "common/ReplacedFile.h"
#include "model/Plane.h"
#include "preview/Imaging.h"

namespace velna {

Imaging* imaging = nullptr;

namespace Bitmap {
namespace {

/// What stands in a file that this export has written: the source, and whether it was turned.
struct Written {
    std::string source;
    bool turned = false;

    friend bool operator==(const Written&, const Written&) = default;
};

/// By the path of the written file. The last writer of a path counts: a wing and a fuselage with
/// one picture share the file's name, but not the sense of its picture.
std::map<std::string, Written> written;

bool sameFile(const std::string& one, const std::string& other) {
    if (one == other) return true;
    std::error_code failure;
    return std::filesystem::equivalent(one, other, failure);
}

template <class Visit>
void forEachPicture(Visit visit) {
    for (int i = 1; i <= std::min<int>(nbWings, Wings.size()); ++i)
        visit(Wings(i).texture_filename());
    visit(Stabilizer.texture_filename());
    visit(Rudder.texture_filename);
    for (int i = 1; i <= std::min<int>(nbFuselages, Fuselages.size()); ++i)
        visit(Fuselages(i).texture_filename);
}

/// Whether `path` is `source` or the picture of any other object: overwriting one of those would
/// spoil the user's own file.
bool isSourcePicture(const std::string& path, const std::string& source) {
    bool found = sameFile(path, source);
    forEachPicture([&](const std::string& picture) {
        found = found || (!picture.empty() && sameFile(path, picture));
    });
    return found;
}

/// `title` less its last three characters, which leaves the point of a three-letter extension.
std::string withoutExtension(const std::string& title) {
    return title.substr(0, title.size() - std::min<std::size_t>(3, title.size()));
}

std::string jpegName(const std::string& tex, const std::string& title, const std::string& folder) {
    std::string name = withoutExtension(title) + "jpg";
    while (isSourcePicture(folder + name, tex)) {
        std::string stem = withoutExtension(name);
        if (stem.ends_with('.')) stem.pop_back();
        name = stem + "-model.jpg";
    }
    return name;
}

/// Loads `tex`, turns it when asked for, brings it to rounded sizes and writes it; the reason of a
/// failure, empty for none.
std::string convert(const std::string& tex, const std::string& target, bool turn,
                    PictureFormat format) {
    std::string reason = "no picture reader";
    if (!imaging || !imaging->load(tex, reason)) return reason;
    if (turn) imaging->rotateQuarter();
    imaging->resize(roundedSize(imaging->width()), roundedSize(imaging->height()));
    if (!imaging->save(target, format, reason)) return reason.empty() ? "not written" : reason;
    return {};
}

void complain(const std::string& file, const std::string& reason) {
    std::cerr << "velna: " << file << ": " << reason << '\n';
}

}  // namespace

int roundedSize(int size) {
    return size < 1 ? 1 : static_cast<int>(std::bit_floor(static_cast<unsigned>(size)));
}

std::string convertJPG(const std::string& tex, const std::string& titlename,
                       const std::string& dirout, bool rot) {
    if (tex.empty()) return {};
    const std::string name = jpegName(tex, titlename, dirout);
    const std::string target = dirout + name;
    const Written wanted{tex, !rot};
    const auto before = written.find(target);
    if (before != written.end() && before->second == wanted) return name;

    const std::string failure = convert(tex, target, !rot, PictureFormat::Jpeg);
    if (!failure.empty()) {
        complain(tex, failure);
        return {};
    }
    written[target] = wanted;
    return name;
}

void beginExport() {
    written.clear();
}

std::string saveTarget(const std::string& tex, const std::string& titlename,
                       const std::string& dirout) {
    if (tex.empty()) return {};
    const std::string target = dirout + titlename;
    if (sameFile(tex, target)) return {};
    if (std::error_code none; std::filesystem::exists(target, none) && isSourcePicture(target, tex))
        return "another object's picture stands there";
    const std::string failure = convert(tex, target, false, PictureFormat::Bmp);
    if (!failure.empty()) complain(target, failure);
    return failure;
}

}  // namespace Bitmap
}  // namespace velna
