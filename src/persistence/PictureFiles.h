#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velna {

class PictureCopies;
class TextSink;
class ValueReader;
struct Project;

/// The names of the objects' pictures at the end of a project, and the pictures beside it.
namespace PictureFiles {

/// Writes the names, and has a copy of each picture made: the wings', the stabiliser's, the
/// fuselages', the fin's. Returns the titles as they now stand in the file, in that order.
std::vector<std::string> saveTextureNames(TextSink& file, const Project& project,
                                          PictureCopies& copies);

/// The titles of the objects' pictures, in that order.
std::vector<std::string> titlesOf(const Project& project);

/// Gives the objects the titles that a save has put into the file.
void keepTitles(Project& project, const std::vector<std::string>& titles);

/// The names at the end of the project that consists of `bytes`; none where it is no project.
std::set<std::string> namesIn(std::string_view bytes);

/// Reads the names; the pictures are looked for in `projectDirectory` when they are first used.
void readTextureNames(ValueReader& file, Project& project);

/// The picture of one object: its full path and its title.
struct PictureName {
    std::string file;
    std::string title;

    friend bool operator==(const PictureName&, const PictureName&) = default;
};

/// The objects' pictures as the model has them, in the order of the names in a file.
std::vector<PictureName> picturesOf(const Project& project);

/// Gives the objects their pictures, as far as `pictures` has some.
void setPictures(Project& project, const std::vector<PictureName>& pictures);

/// Folder and title joined, an empty text for an empty title. A title that stands there only in
/// other letters, upper for lower case, gives the name as it stands.
std::string qualifyTextureName(const std::string& folder, const std::string& title);

}  // namespace PictureFiles
}  // namespace velna
