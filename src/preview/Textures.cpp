#include <algorithm>
#include <cstdint>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <GL/gl.h>

#include "model/Plane.h"
#include "preview/Bitmap.h"
#include "preview/Imaging.h"

namespace velna {
namespace {

/// What differs between the objects that carry a picture.
struct TextureRules {
    bool quarterTurn;     ///< a wing's picture is turned, so that its long side lies along the span
    GLint wrap;           ///< a fuselage's picture may lie round it more than once
    const char* failure;  ///< the message of a failed conversion, or none
};

constexpr TextureRules wingRules{true, GL_CLAMP, "Error in wingSection texture mapping"};
constexpr TextureRules finRules{false, GL_CLAMP, nullptr};
constexpr TextureRules fuselageRules{false, GL_REPEAT, nullptr};

/// The fields of an object that its picture is about.
struct Picture {
    const std::string& file;
    bool& loaded;
    std::int32_t& xtex;
    std::int32_t& ytex;
    std::vector<unsigned char>& texels;
};

/// All converted pictures together take at most this much.
constexpr std::int64_t largestTexels = std::int64_t{512} << 20;

std::int64_t texelBytes(std::int64_t width, std::int64_t height) {
    return width * height * 3;
}

/// What the pictures of all objects take at present.
std::int64_t texelsInUse() {
    std::int64_t bytes = 0;
    const auto add = [&bytes](const auto& object) {
        if (object.texture_loaded) bytes += texelBytes(object.xtex, object.ytex);
    };
    const auto addHalves = [&add](const SymWingSections& wing) {
        if (wing.Left) add(*wing.Left);
        if (wing.Right) add(*wing.Right);
    };
    for (int i = 1; i <= std::min<int>(nbWings, Wings.size()); ++i) addHalves(Wings(i));
    addHalves(Stabilizer);
    add(Rudder);
    for (int i = 1; i <= std::min<int>(nbFuselages, Fuselages.size()); ++i) add(Fuselages(i));
    return bytes;
}

struct Size {
    int width;
    int height;
};

/// The size of a texture for a picture of `size`: powers of two, both sides halved alike until
/// OpenGL takes them and memory has room, so that the picture keeps its proportions.
Size textureSize(Size size) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    largest = std::max(largest, 64);
    const std::int64_t room = std::max<std::int64_t>(largestTexels - texelsInUse(), 3);
    size = {Bitmap::roundedSize(size.width), Bitmap::roundedSize(size.height)};
    while (std::max(size.width, size.height) > largest ||
           texelBytes(size.width, size.height) > room)
        size = {std::max(1, size.width / 2), std::max(1, size.height / 2)};
    return size;
}

/// Decodes `picture` into its texels; the reason of a failure, empty for none.
std::string decode(Picture& picture, const TextureRules& rules) {
    std::string reason = "no picture reader";
    if (!imaging || !imaging->load(picture.file, reason))
        return reason.empty() ? "not readable" : reason;
    if (rules.quarterTurn) imaging->rotateQuarter();
    const Size size = textureSize({imaging->width(), imaging->height()});
    imaging->resize(size.width, size.height);
    imaging->showProgress(0);
    PictureBytes pixels = imaging->pixels();
    imaging->showProgress(100);
    imaging->hideProgress();
    if (pixels.width != size.width || pixels.height != size.height ||
        static_cast<std::int64_t>(pixels.bytes.size()) != texelBytes(size.width, size.height))
        return "not converted";
    picture.xtex = size.width;
    picture.ytex = size.height;
    picture.texels = std::move(pixels.bytes);
    return {};
}

/// As `decode`; memory that cannot be had is a failure like others.
std::string tryDecode(Picture& picture, const TextureRules& rules) {
    try {
        return decode(picture, rules);
    } catch (const std::exception& failure) {
        if (imaging) imaging->hideProgress();
        return failure.what();
    }
}

/// Converts `picture` unless that has been done; true when it was done now.
bool convert(Picture picture, const TextureRules& rules) {
    if (picture.file.empty()) {
        std::vector<unsigned char>().swap(picture.texels);
        return false;
    }
    if (picture.loaded) return false;
    const std::string failure = tryDecode(picture, rules);
    if (failure.empty()) {
        picture.loaded = true;
        return true;
    }
    std::cerr << "velna: " << picture.file << ": " << failure << '\n';
    if (rules.failure && imaging) imaging->showError(rules.failure);
    return false;
}

void upload(const Picture& picture, const TextureRules& rules) {
    if (picture.file.empty() || !picture.loaded || picture.texels.empty()) return;
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, 3, picture.xtex, picture.ytex, 0, GL_RGB, GL_UNSIGNED_BYTE,
                 picture.texels.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, rules.wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, rules.wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    // The picture replaces the lit colour where it lies.
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL);
    glEnable(GL_TEXTURE_2D);
}

}  // namespace

void WingSection::convertPicture() {
    if (convert({texture_filename, texture_loaded, xtex, ytex, texels}, wingRules))
        create_texcoords();
}

void WingSection::textureMap() {
    upload({texture_filename, texture_loaded, xtex, ytex, texels}, wingRules);
}

void VertWingSection::convertPicture() {
    if (convert({texture_filename, texture_loaded, xtex, ytex, texels}, finRules)) create();
}

void VertWingSection::textureMap() {
    upload({texture_filename, texture_loaded, xtex, ytex, texels}, finRules);
}

void MeshSections::convertPicture() {
    convert({texture_filename, texture_loaded, xtex, ytex, texels}, fuselageRules);
}

void MeshSections::textureMap() {
    upload({texture_filename, texture_loaded, xtex, ytex, texels}, fuselageRules);
}

}  // namespace velna
