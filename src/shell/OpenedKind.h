#pragma once

#include <string>

namespace velna {

/// What the command Open does with a file. The points of an `Airfoil` are taken as they stand,
/// those of `AnyAirfoil` in whatever order they come.
enum class OpenedKind { Project, Airfoil, Picture, AnyAirfoil };

/// The kind of a file that was named without one: a project, a picture and an outline are known by
/// their content, an airfoil by the extension .xy; what is no outline either is asked to be a
/// project, but for a name that ends in .dat. Throws ReadFailure, with a reason to be told, where
/// the file cannot be read or is none of its kind.
OpenedKind kindOfFile(const std::string& file);

}  // namespace velna
