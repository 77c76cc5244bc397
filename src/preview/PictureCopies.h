#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "preview/Imaging.h"

namespace velna {

class ReplacedFile;
struct Project;

/// The picture that a copy was made from, and the copy's form.
struct PictureSource {
    std::string file;
    PictureFormat format;

    friend bool operator==(const PictureSource&, const PictureSource&) = default;
};

/// What saves and exports need for the pictures beside their files, as long as the program runs.
struct PictureStore {
    Imaging* imaging = nullptr;  ///< reads and writes the pictures; none reads nothing
    std::map<std::string, PictureSource> made;  ///< the copies of this run by their paths
};

/// The copies of the objects' pictures that one save or export puts beside its file. They take
/// their places together with that file (`ReplacedFile::beside`). No file of the user's is
/// overwritten: a name is taken where nothing stands or a symbolic link, or where what stands is
/// the project's own, which is a copy that this run has put there from the same source, a picture
/// that the very file being replaced names, or a file of the very bytes to be written. Otherwise
/// the next free name is taken, name-2.ext, name-3.ext. Objects with one source share one copy.
class PictureCopies {
public:
    /// Gives the bare names of the pictures that the bytes of a project or model name.
    using NamesIn = std::set<std::string> (*)(std::string_view bytes);

    /// Copies of the pictures of `project` beside `target`, whose new file is `file`; `file` and
    /// `store` must outlive it.
    PictureCopies(ReplacedFile& file, const std::string& target, NamesIn namesIn,
                  const Project& project, PictureStore& store);

    /// Copies picture `tex` as a JPEG, sizes rounded, turned a quarter clockwise when `rot` is
    /// false. Returns the copy's name without folder: the last part of `titlename` with its last
    /// three characters exchanged for "jpg", or NAME-model.jpg where that would be a source or the
    /// project's own side file. Empty when `tex` is empty or cannot be read. Of a picture in both
    /// senses the last one asked for stands.
    std::string convertJPG(const std::string& tex, const std::string& titlename, bool rot);

    /// Copies picture `tex` as the side file of a project: a 24-bit BMP, sizes rounded, under the
    /// last part of `titlename`. A source that stands there already stays as it is. Returns the
    /// title to be stored; of a picture that cannot be read the last part of `titlename`, as far as
    /// it has one.
    std::string saveTarget(const std::string& tex, const std::string& titlename);

    /// A sentence on the pictures that could not be read, `failed` its verb, with the first one's
    /// reason; empty where all could.
    std::string missing(std::string_view failed) const;

    /// To be called when all is in place: from now on the copies are ones that this run has made.
    void madeHere();

private:
    struct Copy {
        std::string name;
        bool turned = false;
    };

    std::string write(const PictureSource& source, const std::string& name,
                      const std::string& bytes);
    bool writeAs(const PictureSource& source, const std::string& name, const std::string& bytes);
    bool isOwn(const PictureSource& source, const std::string& name);
    bool isSource(const std::string& name) const;
    void addMissing(const std::string& tex, const std::string& titlename,
                    const std::string& reason);

    ReplacedFile& file_;
    PictureStore& store_;
    std::string target_;
    std::string folder_;
    NamesIn namesIn_;
    std::optional<std::set<std::string>> named_;  ///< by what is being replaced, once asked for
    std::set<std::string> sources_;               ///< identities of the objects' pictures
    std::map<std::string, Copy> copies_;          ///< by the identity of the source
    std::map<std::string, PictureSource> taken_;  ///< by the name of the copy
    std::set<std::string> missing_;               ///< identities
    std::string firstMissing_;
    std::string firstReason_;
};

/// `title` as a project can hold it: a line's end or a double quote in it, which would end it
/// there, becomes "_".
std::string storedTitle(std::string title);

}  // namespace velna
