#pragma once

#include <string>

namespace velna {

/// What the command Open does with a file.
enum class OpenedKind { Project, Airfoil, Picture };

/// The kind of a file that was named without one: a project and a picture are known by their
/// content, an airfoil by the extension .xy; anything else is asked to be a project. Throws
/// ReadFailure, with a reason to be told, where the file cannot be read or is none of its kind.
OpenedKind kindOfFile(const std::string& file);

}  // namespace velna
