#include "preview/Textures.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <GL/gl.h>

#include "common/Complaint.h"
#include "model/Solids.h"
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
void forEachWingHalf(const Project& project, Solids& solids, Visit visit) {
    const auto halves = [&visit](PanelSolid& panel) {
        visit(panel.Left);
        visit(panel.Right);
    };
    project.Wings.forEachDistinct(project.nbWings,
                                  [&](int i, const SymWingSections&) { halves(solids.wings(i)); });
    halves(solids.stabilizer);
}

/// What the pictures of all objects take at present; one that objects share counts once.
std::int64_t texelsInUse(const Project& project, Solids& solids) {
    std::map<const void*, std::int64_t> bytes;
    const auto add = [&bytes](const SolidPicture& picture) {
        if (picture.texture_loaded)
            bytes[picture.texels.get()] = texelBytes(picture.xtex, picture.ytex);
    };
    forEachWingHalf(project, solids, [&add](const WingSection& half) { add(half.picture); });
    add(solids.rudder.picture);
    project.Fuselages.forEachDistinct(
        project.nbFuselages, [&](int i, const MeshSections&) { add(solids.fuselages(i).picture); });
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
};

/// Decodes pictures one after another, as long as there is room.
struct Decoder {
    Imaging* imaging;
    std::int64_t room;  ///< bytes that pictures may still take

    /// A failure leaves what is not converted empty, and is told on standard error.
    void convert(PictureFile& picture, const std::string& file);

private:
    std::string take(Converted& converted);
    std::string decode(PictureFile& picture, const std::string& file);
    std::string tryDecode(PictureFile& picture, const std::string& file);
};

/// The picture in hand at the size of a texture; the reason of a failure, empty for none.
std::string Decoder::take(Converted& converted) {
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

std::string Decoder::decode(PictureFile& picture, const std::string& file) {
    std::string reason = "no picture reader";
    if (!imaging || !imaging->load(file, reason)) return reason.empty() ? "not readable" : reason;
    std::string failure;
    if (picture.plainWanted) failure = take(picture.plain);
    if (picture.turnedWanted && failure.empty()) {
        imaging->rotateQuarter();
        failure = take(picture.turned);
    }
    imaging->hideProgress();
    return failure;
}

/// As `decode`; memory that cannot be had is a failure like others.
std::string Decoder::tryDecode(PictureFile& picture, const std::string& file) {
    try {
        return decode(picture, file);
    } catch (const std::exception& failure) {
        if (imaging) imaging->hideProgress();
        return failure.what();
    }
}

void Decoder::convert(PictureFile& picture, const std::string& file) {
    const std::string failure = tryDecode(picture, file);
    if (!failure.empty()) complain(file, failure);
}

/// An object that waits for its picture, and what it does when it has it.
struct Waiting {
    SolidPicture& picture;
    bool turned;
    std::function<void()> placeTexture;
};

/// Lets go of a picture that is not wanted any more; true where a new one is.
bool isWaiting(SolidPicture& picture) {
    const bool wanted = !picture.texture_filename.empty();
    if (picture.texture_loaded && wanted) return false;
    picture.texels.reset();
    return !picture.texture_loaded && wanted;
}

/// The objects that wait for a file.
struct Carriers {
    std::string file;
    std::vector<Waiting> objects;
};

/// Files and objects in the order of the list.
std::vector<Carriers> waitingObjects(const Project& project, Solids& solids) {
    std::vector<Carriers> waiting;
    std::map<std::string, std::size_t> places;
    const auto look = [&](SolidPicture& picture, bool turned, auto placeTexture) {
        if (!isWaiting(picture)) return;
        const std::string& file = picture.texture_filename;
        const auto [place, isNew] = places.try_emplace(file, waiting.size());
        if (isNew) waiting.push_back({file, {}});
        waiting[place->second].objects.push_back({picture, turned, placeTexture});
    };
    forEachWingHalf(project, solids, [&look](WingSection& half) {
        look(half.picture, true, [&half] { half.create_texcoords(); });
    });
    look(solids.rudder.picture, false, [&] { solids.rudder.create(project.Rudder); });
    project.Fuselages.forEachDistinct(
        project.nbFuselages, [&](int i) { return project.ObjectList.shown(i); },
        [&](int i, const MeshSections&) { look(solids.fuselages(i).picture, false, [] {}); });
    return waiting;
}

void convertFor(const Carriers& carriers, Decoder& decoder) {
    PictureFile picture;
    for (const Waiting& object : carriers.objects)
        (object.turned ? picture.turnedWanted : picture.plainWanted) = true;
    decoder.convert(picture, carriers.file);
    for (const Waiting& object : carriers.objects) {
        const Converted& own = object.turned ? picture.turned : picture.plain;
        if (!own.texels) continue;
        object.picture.xtex = own.size.width;
        object.picture.ytex = own.size.height;
        object.picture.texels = own.texels;
        object.picture.texture_loaded = true;
        object.placeTexture();
    }
}

}  // namespace

void Textures::convertPictures(const Project& project, Solids& solids, Imaging* imaging) {
    const std::vector<Carriers> waiting = waitingObjects(project, solids);
    Decoder decoder{imaging, largestTexels - texelsInUse(project, solids)};
    for (const Carriers& carriers : waiting) convertFor(carriers, decoder);
    // A box lets events through: every picture is where it belongs before the first.
    forEachWingHalf(project, solids, [&](const WingSection& half) {
        if (!half.picture.texture_loaded && !half.picture.texture_filename.empty() && imaging)
            imaging->showError("Error in wingSection texture mapping");
    });
}

void ListTextures::beginList() {
    for (const auto& [texels, name] : names_) glDeleteTextures(1, &name);
    names_.clear();
}

/// Makes the picture's texture the current one; the first time in a list with its pixels.
void ListTextures::bind(const SolidPicture& picture) {
    const auto [texture, isNew] = names_.try_emplace(picture.texels.get(), 0);
    if (isNew) glGenTextures(1, &texture->second);
    glBindTexture(GL_TEXTURE_2D, texture->second);
    if (!isNew) return;
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, 3, picture.xtex, picture.ytex, 0, GL_RGB, GL_UNSIGNED_BYTE,
                 picture.texels->data());
}

void ListTextures::textureMap(const SolidPicture& picture, GLint wrap) {
    if (picture.texture_filename.empty() || !picture.texture_loaded || !picture.texels) return;
    bind(picture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    // The picture replaces the lit colour where it lies.
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL);
    glEnable(GL_TEXTURE_2D);
}

}  // namespace velna
