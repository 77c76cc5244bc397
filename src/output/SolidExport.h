#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/Outcome.h"

namespace velna {

class Progress;
struct PictureStore;
struct Project;

/// The files of solids: binary STL, 3MF, OBJ with materials and pictures beside it, and binary glTF
/// with its pictures in it.
enum class SolidFormat { Stl, ThreeMf, Obj, Glb };

/// The format of a file's extension (".stl", ".3mf", ".obj", ".glb", ignoring case); nothing for
/// another.
std::optional<SolidFormat> solidFormatOf(std::string_view file);

/// What is wished of the solids.
struct SolidOptions {
    bool each = false;  ///< a file for each part, "STEM-wing-1-left.stl"
    bool cut = false;   ///< wings are cut at the borders of their panels

    friend bool operator==(const SolidOptions&, const SolidOptions&) = default;
};

namespace Plane {

/// The aircraft as closed solids in millimetres, one for each half of a wing, fin and fuselage
/// (shown or not), into `file`, or with `each` into files beside it whose names begin as `file`
/// does. OBJ and glTF have the electronics too. All files take their places, or none. Failed as
/// well where a part was left out since it gives no solid, or a picture could not be read: the
/// reason names them, and all else is in place. With no part at all nothing is written.
Outcome exportSolids(const Project& project, SolidFormat format, const SolidOptions& options,
                     const std::string& file, PictureStore& pictures, Progress* watcher = nullptr);

/// The files that `exportSolids` with `each` would write its parts to.
std::vector<std::string> solidFiles(const Project& project, SolidFormat format,
                                    const SolidOptions& options, const std::string& file);

}  // namespace Plane
}  // namespace velna
