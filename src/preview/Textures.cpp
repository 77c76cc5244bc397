#include "preview/Textures.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <GL/gl.h>

#include "model/ObjectList.h"
#include "model/Plane.h"
#include "preview/Bitmap.h"
#include "preview/Imaging.h"

namespace velna {
namespace {

/// All converted pictures together take at most this much.
constexpr std::int64_t largestTexels = std::int64_t{512} << 20;

std::int64_t texelBytes(std::int64_t width, std::int64_t height) {
    return width * height * 3;
}

template <class Visit>
void forEachWingHalf(Visit visit) {
    const auto halves = [&visit](SymWingSections& panel) {
        if (panel.Left) visit(*panel.Left);
        if (panel.Right) visit(*panel.Right);
    };
    Wings.forEachDistinct(nbWings, halves);
    halves(Stabilizer);
}

/// What the pictures of all objects take at present; one that objects share counts once.
std::int64_t texelsInUse() {
    std::map<const void*, std::int64_t> bytes;
    const auto add = [&bytes](const ObjectPicture& picture) {
        if (picture.loaded) bytes[picture.texels.get()] = texelBytes(picture.xtex, picture.ytex);
    };
    forEachWingHalf([&add](WingSection& half) { add(half.picture()); });
    add(Rudder.picture());
    Fuselages.forEachDistinct(nbFuselages, [&add](MeshSections& body) { add(body.picture()); });
    std::int64_t sum = 0;
    for (const auto& [texels, size] : bytes) sum += size;
    return sum;
}

struct Size {
    int width;
    int height;
};

/// The size of a texture for a picture of `size`: powers of two, both sides halved alike until
/// OpenGL takes them and memory has `room`, so that the picture keeps its proportions.
Size textureSize(Size size, std::int64_t room) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    largest = std::max(largest, 64);
    room = std::max<std::int64_t>(room, 3);
    size = {Bitmap::roundedSize(size.width), Bitmap::roundedSize(size.height)};
    while (std::max(size.width, size.height) > largest ||
           texelBytes(size.width, size.height) > room)
        size = {std::max(1, size.width / 2), std::max(1, size.height / 2)};
    return size;
}

/// A picture as OpenGL takes it.
struct Converted {
    Size size{};
    Texels texels;
};

/// What one file becomes, decoded once for all objects that carry it. A wing's picture is turned,
/// so that its long side lies along the span.
struct PictureFile {
    bool plainWanted = false;
    bool turnedWanted = false;
    Converted plain;
    Converted turned;

    /// A failure leaves what is not converted empty, and is told on standard error. What is
    /// converted is taken off `room`.
    void convert(const std::string& file, std::int64_t& room);

private:
    std::string decode(const std::string& file, std::int64_t& room);
    std::string tryDecode(const std::string& file, std::int64_t& room);
};

/// The picture in hand at the size of a texture; the reason of a failure, empty for none.
std::string take(Converted& converted, std::int64_t& room) {
    const Size size = textureSize({imaging->width(), imaging->height()}, room);
    imaging->resize(size.width, size.height);
    imaging->showProgress(0);
    PictureBytes pixels = imaging->pixels();
    imaging->showProgress(100);
    if (pixels.width != size.width || pixels.height != size.height ||
        static_cast<std::int64_t>(pixels.bytes.size()) != texelBytes(size.width, size.height))
        return "not converted";
    converted = {size, std::make_shared<std::vector<unsigned char>>(std::move(pixels.bytes))};
    room -= texelBytes(size.width, size.height);
    return {};
}

std::string PictureFile::decode(const std::string& file, std::int64_t& room) {
    std::string reason = "no picture reader";
    if (!imaging || !imaging->load(file, reason)) return reason.empty() ? "not readable" : reason;
    std::string failure;
    if (plainWanted) failure = take(plain, room);
    if (turnedWanted && failure.empty()) {
        imaging->rotateQuarter();
        failure = take(turned, room);
    }
    imaging->hideProgress();
    return failure;
}

/// As `decode`; memory that cannot be had is a failure like others.
std::string PictureFile::tryDecode(const std::string& file, std::int64_t& room) {
    try {
        return decode(file, room);
    } catch (const std::exception& failure) {
        if (imaging) imaging->hideProgress();
        return failure.what();
    }
}

void PictureFile::convert(const std::string& file, std::int64_t& room) {
    const std::string failure = tryDecode(file, room);
    if (!failure.empty()) std::cerr << "velna: " << file << ": " << failure << '\n';
}

/// An object that waits for its picture, and what it does when it has it.
struct Waiting {
    ObjectPicture picture;
    bool turned;
    std::function<void()> placeTexture;
};

/// Lets go of a picture that is not wanted any more; true where a new one is.
bool isWaiting(const ObjectPicture& picture) {
    if (picture.loaded && !picture.file.empty()) return false;
    picture.texels.reset();
    return !picture.loaded && !picture.file.empty();
}

/// The objects that wait for a file.
struct Carriers {
    std::string file;
    std::vector<Waiting> objects;
};

/// Files and objects in the order of the list.
std::vector<Carriers> waitingObjects() {
    std::vector<Carriers> waiting;
    std::map<std::string, std::size_t> places;
    const auto look = [&](const ObjectPicture& picture, bool turned, auto placeTexture) {
        if (!isWaiting(picture)) return;
        const auto [place, isNew] = places.try_emplace(picture.file, waiting.size());
        if (isNew) waiting.push_back({picture.file, {}});
        waiting[place->second].objects.push_back({picture, turned, placeTexture});
    };
    forEachWingHalf([&look](WingSection& half) {
        look(half.picture(), true, [&half] { half.create_texcoords(); });
    });
    look(Rudder.picture(), false, [] { Rudder.create(); });
    Fuselages.forEachDistinct(
        nbFuselages, [](int i) { return ObjectList.shown(i); },
        [&look](int, MeshSections& body) { look(body.picture(), false, [] {}); });
    return waiting;
}

void convertFor(const Carriers& carriers, std::int64_t& room) {
    PictureFile picture;
    for (const Waiting& object : carriers.objects)
        (object.turned ? picture.turnedWanted : picture.plainWanted) = true;
    picture.convert(carriers.file, room);
    for (const Waiting& object : carriers.objects) {
        const Converted& own = object.turned ? picture.turned : picture.plain;
        if (!own.texels) continue;
        object.picture.xtex = own.size.width;
        object.picture.ytex = own.size.height;
        object.picture.texels = own.texels;
        object.picture.loaded = true;
        object.placeTexture();
    }
}

/// The pixels that the list in hand has handed to OpenGL, each with its texture's name. A picture
/// that several objects share is handed over once.
std::map<const void*, GLuint> texturesOfList;

/// Makes the picture's texture the current one; the first time in a list with its pixels.
void bindTexture(const ObjectPicture& picture) {
    const auto [texture, isNew] = texturesOfList.try_emplace(picture.texels.get(), 0);
    if (isNew) glGenTextures(1, &texture->second);
    glBindTexture(GL_TEXTURE_2D, texture->second);
    if (!isNew) return;
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, 3, picture.xtex, picture.ytex, 0, GL_RGB, GL_UNSIGNED_BYTE,
                 picture.texels->data());
}

/// `wrap` is how the picture goes on beyond its edges.
void upload(const ObjectPicture& picture, GLint wrap) {
    if (picture.file.empty() || !picture.loaded || !picture.texels) return;
    bindTexture(picture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    // The picture replaces the lit colour where it lies.
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL);
    glEnable(GL_TEXTURE_2D);
}

}  // namespace

void Textures::convertPictures() {
    const std::vector<Carriers> waiting = waitingObjects();
    std::int64_t room = largestTexels - texelsInUse();
    for (const Carriers& carriers : waiting) convertFor(carriers, room);
    // A box lets events through: every picture is where it belongs before the first.
    forEachWingHalf([](WingSection& half) {
        if (!half.texture_loaded && !half.texture_filename.empty() && imaging)
            imaging->showError("Error in wingSection texture mapping");
    });
}

void Textures::beginList() {
    for (const auto& [texels, name] : texturesOfList) glDeleteTextures(1, &name);
    texturesOfList.clear();
}

void WingSection::textureMap() {
    upload(picture(), GL_CLAMP);
}

void VertWingSection::textureMap() {
    upload(picture(), GL_CLAMP);
}

// A fuselage's picture may lie round it more than once.
void MeshSections::textureMap() {
    upload(picture(), GL_REPEAT);
}

}  // namespace velna
