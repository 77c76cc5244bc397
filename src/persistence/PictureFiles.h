#pragma once

#include <string>
#include <string_view>

namespace velna {

class ReplacedFile;
class ValueReader;

/// The names of the objects' pictures at the end of a project, and the pictures beside it.
namespace PictureFiles {

/// Writes the names: the wings', the stabiliser's, the fuselages', the fin's. Returns the reason of
/// the first picture that could not be put into `folder`, empty for none.
std::string saveTextureNames(ReplacedFile& file, const std::string& folder);

/// Reads the names; the pictures are looked for in `projectDirectory` when they are first used.
void readTextureNames(ValueReader& file);

/// Folder and title joined, an empty text for an empty title. A title that stands there only in
/// other letters, upper for lower case, gives the name as it stands.
std::string qualifyTextureName(const std::string& folder, const std::string& title);

}  // namespace PictureFiles
}  // namespace velna
