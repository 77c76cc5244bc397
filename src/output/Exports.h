#pragma once

#include <string>

#include "common/Outcome.h"

namespace velna {

class Progress;
struct PictureStore;
struct Project;
struct Solids;

/// How a model is spelt: as it always was, where a box's size stands without a blank behind its
/// word, or with that blank, which some readers ask for.
enum class VrmlSpelling { Usual, Strict };

/// Files for other programs. Each is cancelled where `watcher` says so, or failed with a reason; in
/// both cases the old file stands whole.
namespace Plane {

/// The model with its pictures beside it, by the solids as they stand: a fuselage that was never
/// shown has none. The last fuselage is current afterwards. Failed too where only a picture could
/// not be put beside it.
Outcome exportVRML(Project& project, const Solids& solids, const std::string& file,
                   PictureStore& pictures, Progress* watcher = nullptr,
                   VrmlSpelling spelling = VrmlSpelling::Usual);

/// The drawings of the four views, in the project's unit.
Outcome exportDXFVTop(const Project& project, const std::string& file, Progress* watcher = nullptr);
Outcome exportDXFFront(const Project& project, const std::string& file,
                       Progress* watcher = nullptr);
Outcome exportDXFSide(const Project& project, const std::string& file, Progress* watcher = nullptr);
/// The current fuselage and the boxes.
Outcome exportDXFHTop(const Project& project, const std::string& file, Progress* watcher = nullptr);

}  // namespace Plane
}  // namespace velna
