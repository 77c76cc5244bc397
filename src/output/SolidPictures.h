#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/ReplacedFile.h"
#include "model/SolidParts.h"
#include "preview/PictureCopies.h"

namespace velna {

/// The picture of a skin, ready for a file.
struct SkinPicture {
    int width = 0;  ///< as converted and, where told, turned; 0 where it could not be read
    int height = 0;
    std::string jpeg = {};  ///< the whole file
};

/// The pictures of one export of solids: each is decoded once.
class SolidPictures {
public:
    explicit SolidPictures(Imaging* imaging) : imaging_(imaging) {}

    const SkinPicture& of(const PartSkin& skin);
    /// The places of the skin's points in its picture; none where it has none that can be read.
    std::vector<Point2D> placesOf(const PartSkin& skin);

    /// A sentence on the pictures that could not be read; empty where all could.
    std::string missing() const;

private:
    Imaging* imaging_;
    std::map<std::pair<std::string, bool>, SkinPicture> known_;
    std::set<std::string> missing_;
    std::string firstMissing_;
    std::string firstReason_;
};

/// The materials of OBJ files, in a file of their own beside these, with copies of the pictures: by
/// the rules for all exports.
class ObjMaterials {
public:
    /// `file` takes what goes beside it; it, `project` and `store` must outlive this. The
    /// materials' file is STEM.mtl, or STEM-2.mtl and so on where a file of another program stands.
    ObjMaterials(ReplacedFile& file, const std::string& stem, const Project& project,
                 PictureStore& store);

    /// The materials' file less its folder.
    std::string title() const;
    /// The name of a skin's material: skins that look alike share one.
    const std::string& nameOf(const PartSkin& skin);
    /// All materials are named.
    void putBeside();
    std::string missing() const { return copies_.missing(" could not be put beside the model"); }
    void madeHere() { copies_.madeHere(); }

private:
    ReplacedFile& file_;
    std::string path_;
    PictureCopies copies_;
    std::map<std::string, std::string> names_;  ///< by what the file tells of a material
    std::string text_;
};

}  // namespace velna
