#pragma once

#include <string>
#include <string_view>

#include "model/AirfoilOutline.h"

namespace velna {

/// The section in the bytes of an airfoil file as other programs and collections write it: lines of
/// title or none, then a point a line, x and height with decimal points, parted by blanks, tabs, a
/// comma or a semicolon. The points go round the section from the trailing edge, or come side by
/// side from nose to tail, with or without a line before them that counts both sides. Empty lines
/// and remarks (# ! % //) are skipped; CR LF, LF and CR end a line. Throws ReadFailure, with a
/// reason to be told, where that is no section.
AirfoilOutline::Points readOutlineBytes(std::string_view bytes);

/// The same of the file `path`; throws ReadFailure too where it cannot be read.
AirfoilOutline::Points readOutline(const std::string& path);

}  // namespace velna
