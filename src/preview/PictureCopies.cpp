#include "preview/PictureCopies.h"

#include <algorithm>
#include <filesystem>

#include <sys/stat.h>

#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "model/MeshSections.h"
#include "model/Project.h"
#include "preview/Bitmap.h"

namespace velna {
namespace {

namespace fs = std::filesystem;

/// What tells one file from another whatever path leads to it; the path where there is no file.
std::string identityOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return path;
    return std::to_string(status.st_dev) + ':' + std::to_string(status.st_ino);
}

template <class Visit>
void forEachPicture(const Project& project, Visit visit) {
    project.Wings.forEachDistinct(
        project.nbWings, [&](const SymWingSections& wing) { visit(wing.texture_filename()); });
    visit(project.Stabilizer.texture_filename());
    visit(project.Rudder.texture_filename);
    project.Fuselages.forEachDistinct(
        project.nbFuselages, [&](const MeshSections& body) { visit(body.texture_filename); });
}

/// The last part of a title, which alone names a file: a folder in it could lead anywhere. Empty
/// where there is none.
std::string lastPart(const std::string& title) {
    const std::string name = titleOf(title);
    const bool blank = name.find_first_not_of(" \t") == std::string::npos;
    return blank || name == "." || name == ".." ? std::string() : name;
}

/// `title` less its last three characters, which leaves the point of a three-letter extension.
std::string withoutExtension(const std::string& title) {
    return title.substr(0, title.size() - std::min<std::size_t>(3, title.size()));
}

std::string modelName(const std::string& name) {
    std::string stem = withoutExtension(name);
    if (stem.ends_with('.')) stem.pop_back();
    return stem + "-model.jpg";
}

/// name-2.ext for the second of a name; the stem is cut where the whole would be too long.
std::string numbered(const std::string& name, int number) {
    constexpr std::size_t longestName = 255;
    const auto point = name.rfind('.');
    const auto end = point == std::string::npos || point == 0 ? name.size() : point;
    const std::string tail = "-" + std::to_string(number) + name.substr(end);
    std::size_t length = std::min(end, longestName - std::min(longestName, tail.size()));
    const auto withinLetter = [&](std::size_t at) {
        return at > 0 && at < end && (static_cast<unsigned char>(name[at]) & 0xC0U) == 0x80U;
    };
    while (withinLetter(length)) --length;
    return name.substr(0, length) + tail;
}

bool holds(const std::string& path, const std::string& bytes) {
    std::error_code failure;
    if (fs::file_size(path, failure) != bytes.size() || failure) return false;
    try {
        return readWholeFile(path) == bytes;
    } catch (const ReadFailure&) {
        return false;
    }
}

}  // namespace

PictureCopies::PictureCopies(ReplacedFile& file, const std::string& target, NamesIn namesIn,
                             const Project& project, PictureStore& store)
    : file_(file), store_(store), target_(target), folder_(folderOf(target)), namesIn_(namesIn) {
    forEachPicture(project, [this](const std::string& picture) {
        if (!picture.empty()) sources_.insert(identityOf(picture));
    });
}

bool PictureCopies::isSource(const std::string& name) const {
    return sources_.contains(identityOf(folder_ + name));
}

bool PictureCopies::isOwn(const PictureSource& source, const std::string& name) {
    const auto here = store_.made.find(folder_ + name);
    if (here != store_.made.end() && here->second == source) return true;
    if (!named_) {
        named_.emplace();
        try {
            named_ = namesIn_(readWholeFile(target_));
        } catch (const ReadFailure&) {
            // Nothing is being replaced, or nothing that names a picture.
        }
    }
    return named_->contains(name);
}

/// Writes the copy under `name` where it may stand there.
bool PictureCopies::writeAs(const PictureSource& source, const std::string& name,
                            const std::string& bytes) {
    const std::string path = folder_ + name;
    const auto taken = taken_.find(name);
    if (taken != taken_.end()) {
        if (identityOf(taken->second.file) != identityOf(source.file)) return false;
    } else {
        if (name == titleOf(target_) || isSource(name)) return false;
        struct stat status {};
        const bool stands = ::lstat(path.c_str(), &status) == 0 && !S_ISLNK(status.st_mode);
        if (stands && !S_ISREG(status.st_mode)) return false;
        const bool same = stands && holds(path, bytes);
        if (stands && !same && !isOwn(source, name)) return false;
        taken_.emplace(name, source);
        if (same) return true;
    }
    file_.beside(path, bytes);
    return true;
}

/// Writes the copy under the first name that it may have, and returns that.
std::string PictureCopies::write(const PictureSource& source, const std::string& name,
                                 const std::string& bytes) {
    if (writeAs(source, name, bytes)) return name;
    if (source.format == PictureFormat::Jpeg) {
        const auto side = store_.made.find(folder_ + name);
        const bool sideFile =
            side != store_.made.end() && side->second.format == PictureFormat::Bmp;
        const std::string model = modelName(name);
        if ((sideFile || isSource(name)) && writeAs(source, model, bytes)) return model;
    }
    for (int number = 2;; ++number) {
        std::string next = numbered(name, number);
        if (writeAs(source, next, bytes)) return next;
    }
}

void PictureCopies::addMissing(const std::string& tex, const std::string& titlename,
                               const std::string& reason) {
    if (!missing_.insert(identityOf(tex)).second || missing_.size() > 1) return;
    firstMissing_ = titlename;
    firstReason_ = reason;
}

std::string PictureCopies::missing(std::string_view failed) const {
    if (missing_.empty()) return {};
    const std::size_t others = missing_.size() - 1;
    std::string text = "The picture " + firstMissing_;
    if (others > 0)
        text += " and " + std::to_string(others) + (others > 1 ? " others" : " other one");
    return text.append(failed).append(" (").append(firstReason_).append(").");
}

std::string PictureCopies::convertJPG(const std::string& tex, const std::string& titlename,
                                      bool rot) {
    if (tex.empty() || !file_.error().empty()) return {};
    const std::string identity = identityOf(tex);
    if (missing_.contains(identity)) return {};
    const auto before = copies_.find(identity);
    if (before != copies_.end() && before->second.turned == !rot) return before->second.name;
    const std::string title = lastPart(titlename);
    if (title.empty()) {
        addMissing(tex, titlename, "it has no name");
        return {};
    }
    sources_.insert(identity);
    const auto jpeg = Bitmap::converted(store_.imaging, tex, !rot, PictureFormat::Jpeg);
    if (!jpeg.unreadable.empty()) {
        addMissing(tex, titlename, jpeg.unreadable);
        return {};
    }
    std::string name =
        before != copies_.end() ? before->second.name : withoutExtension(title) + "jpg";
    if (!jpeg.unwritable.empty()) {
        file_.fail(name + ": " + jpeg.unwritable);
        return {};
    }
    name = write({tex, PictureFormat::Jpeg}, name, jpeg.bytes);
    copies_[identity] = {name, !rot};
    return name;
}

std::string PictureCopies::saveTarget(const std::string& tex, const std::string& titlename) {
    if (tex.empty() || !file_.error().empty()) return titlename;
    std::string name = storedTitle(lastPart(titlename));
    if (name.empty()) {
        addMissing(tex, titlename, "it has no name");
        return titlename;
    }
    const std::string identity = identityOf(tex);
    const auto before = copies_.find(identity);
    if (before != copies_.end()) return before->second.name;
    if (missing_.contains(identity)) return name;
    sources_.insert(identity);
    if (identity != identityOf(folder_ + name)) {
        const auto bitmap = Bitmap::converted(store_.imaging, tex, false, PictureFormat::Bmp);
        if (!bitmap.unreadable.empty()) {
            addMissing(tex, titlename, bitmap.unreadable);
            return name;
        }
        if (!bitmap.unwritable.empty()) {
            file_.fail(name + ": " + bitmap.unwritable);
            return name;
        }
        name = write({tex, PictureFormat::Bmp}, name, bitmap.bytes);
    }
    copies_[identity] = {name};
    return name;
}

void PictureCopies::madeHere() {
    for (const auto& [name, source] : taken_) store_.made.insert_or_assign(folder_ + name, source);
}

std::string storedTitle(std::string title) {
    constexpr std::string_view endings("\r\n\"\0", 4);
    std::ranges::replace_if(
        title, [&](char c) { return endings.find(c) != std::string_view::npos; }, '_');
    return title;
}

}  // namespace velna
