#include "output/SolidPictures.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "common/NumberText.h"
#include "common/ValueReader.h"
#include "common/Version.h"
#include "preview/Bitmap.h"

namespace velna {
namespace {

constexpr std::string_view firstWord = "# Velna ";
constexpr std::string_view pictureWord = "map_Kd ";
constexpr std::string_view clampWord = "-clamp on ";

/// Whether a file of materials may take this place: none stands there, or one of this program's.
bool mayReplace(const std::string& path) {
    std::error_code failure;
    if (!std::filesystem::exists(std::filesystem::symlink_status(path, failure))) return true;
    std::string begin(firstWord.size(), ' ');
    std::ifstream file(path, std::ios::binary);
    return file.read(begin.data(), static_cast<std::streamsize>(begin.size())) &&
           begin == firstWord;
}

std::string freePath(const std::string& stem) {
    std::string path = stem + ".mtl";
    for (int number = 2; !mayReplace(path); ++number)
        path = stem + "-" + std::to_string(number) + ".mtl";
    return path;
}

/// The pictures that a file of materials names.
std::set<std::string> picturesIn(std::string_view bytes) {
    std::set<std::string> names;
    ValueReader lines(bytes);
    while (!lines.atEnd()) {
        std::string_view line = lines.line();
        if (!line.starts_with(pictureWord)) continue;
        line.remove_prefix(pictureWord.size());
        if (line.starts_with(clampWord)) line.remove_prefix(clampWord.size());
        names.emplace(line);
    }
    return names;
}

void appendColour(std::string& text, const Point3D& color) {
    constexpr double most = 255;
    for (const double value : {color.x, color.y, color.z}) {
        text += ' ';
        appendNumber(text, std::clamp(value / most, 0.0, 1.0));
    }
    text += '\n';
}

}  // namespace

const SkinPicture& SolidPictures::of(const PartSkin& skin) {
    const auto [place, fresh] = known_.try_emplace({skin.picture, skin.turned});
    SkinPicture& picture = place->second;
    if (!fresh || skin.picture.empty()) return picture;
    auto converted = Bitmap::converted(imaging_, skin.picture, skin.turned, PictureFormat::Jpeg);
    const std::string& reason =
        converted.unreadable.empty() ? converted.unwritable : converted.unreadable;
    if (reason.empty()) {
        picture = {imaging_->width(), imaging_->height(), std::move(converted.bytes)};
    } else if (missing_.insert(skin.picture).second && missing_.size() == 1) {
        firstMissing_ = skin.title;
        firstReason_ = reason;
    }
    return picture;
}

std::vector<Point2D> SolidPictures::placesOf(const PartSkin& skin) {
    if (skin.picture.empty()) return {};
    const SkinPicture& picture = of(skin);
    if (picture.width == 0) return {};
    return skin.places(picture.width, picture.height);
}

std::string SolidPictures::missing() const {
    if (missing_.empty()) return {};
    std::string text = "The picture " + firstMissing_;
    const std::size_t others = missing_.size() - 1;
    if (others > 0)
        text += " and " + std::to_string(others) + (others > 1 ? " others" : " other one");
    return text + " could not be put into the model (" + firstReason_ + ").";
}

ObjMaterials::ObjMaterials(ReplacedFile& file, const std::string& stem, const Project& project,
                           PictureStore& store)
    : file_(file), path_(freePath(stem)), copies_(file, path_, picturesIn, project, store) {
    text_ = std::string(firstWord).append(versionText).append("\n");
}

std::string ObjMaterials::title() const {
    return titleOf(path_);
}

const std::string& ObjMaterials::nameOf(const PartSkin& skin) {
    const std::string url = copies_.convertJPG(skin.picture, skin.title, !skin.turned);
    std::string told = "Kd";
    // Readers multiply the picture by the colour.
    appendColour(told, url.empty() ? skin.color : Point3D{255, 255, 255});
    if (!url.empty()) {
        told.append(pictureWord);
        if (!skin.repeat) told.append(clampWord);
        told.append(url).append("\n");
    }
    const auto [place, fresh] = names_.try_emplace(told);
    if (fresh) {
        place->second = "material_" + std::to_string(names_.size());
        text_.append("\nnewmtl ").append(place->second).append("\n").append(told);
    }
    return place->second;
}

void ObjMaterials::putBeside() {
    file_.beside(path_, text_);
}

}  // namespace velna
