#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velna {

struct Project;

/// How many lines stand behind the first of an airfoil file: CR LF and CR end a line, a bare LF
/// does not, an empty line counts, and a line end behind the last line adds none.
std::size_t countAirfoilPoints(std::string_view bytes);

/// An airfoil file as loadAirfoil takes it. Tools on Linux end lines in LF alone; such a file comes
/// back with CR LF ends and without the empty lines at its end. Any other comes back as it is.
std::string prepareAirfoilBytes(const std::string& bytes);

/// Puts an airfoil file's bytes on the current wing. Throws ReadFailure where a
/// number is missing, with the points read so far in place; more points than a wing can hold change
/// nothing.
void loadAirfoilBytes(Project& project, const std::string& bytes);

/// `prepareAirfoilBytes` of the file `path`, put on the current wing as Plane::loadAirfoil does it;
/// this is what the Open command calls.
void openAirfoil(Project& project, const std::string& path);

namespace Plane {

/// Puts an airfoil file on the current wing. A failure shows no message: the points read so far
/// stand.
void loadAirfoil(Project& project, const std::string& file);

}  // namespace Plane

}  // namespace velna
