#pragma once

#include <string>
#include <string_view>

#include "common/Outcome.h"
#include "model/Project.h"

namespace velna {

/// Work that its user has not saved: the aircraft, and the file that it was last opened from or
/// saved to.
struct UnsavedWork {
    Project project;
    std::string name;  ///< full path, empty where it has none yet
};

/// A recovery file: what a start needs to give unsaved work back after the program has not ended
/// properly. It is a project with the full names of its pictures, its folder and its name before
/// it, and a sum behind it by which a cut or damaged one is known. It is never a project's own
/// file.
namespace RecoveryFile {

/// Puts `work` in the place of `file`, complete or not at all. Failed with the system's reason.
Outcome write(const UnsavedWork& work, const std::string& file);

/// The work in `file`, its lengths and texts as a saved and opened project has them. Throws
/// ReadFailure, with a reason to be told, where the file cannot be read, is no recovery file, was
/// cut or damaged, or has the form of another version.
UnsavedWork read(const std::string& file);

/// The same from the bytes of one.
UnsavedWork readBytes(std::string_view bytes);

}  // namespace RecoveryFile
}  // namespace velna
