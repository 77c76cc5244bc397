#pragma once

#include <string>
#include <string_view>

#include "common/Outcome.h"

namespace velna {

struct PictureStore;
struct Project;
class Progress;
class TextSink;

namespace Plane {

/// Saves the project and its pictures' side files, whose titles it then takes. Failed with the
/// reason, and with the old file whole, where the project could not be written; failed too where
/// only a picture could not be put beside it. Cancelled by `watcher`, with the old file whole.
Outcome saveProject(Project& project, const std::string& file, PictureStore& pictures,
                    Progress* watcher = nullptr);

/// Writes all lines of a project but the names of its pictures, which follow them in a file.
void saveBlocks(TextSink& target, const Project& project);

/// Failed with the reason where `file` is no project: it cannot be read, or it neither begins as a
/// project does nor gives even a first wing.
Outcome checkProject(const std::string& file);

/// Replaces what stands in `project` by the file's; expects setDefaultPlane to have run. Never
/// fails aloud: what was read before a failure stands. Failed only with the one message that a
/// refused version has. `whole` is set to whether the file was read to its end. Cancelled by
/// `watcher`, `project` holds a part of the file.
Outcome readProject(Project& project, const std::string& file, bool* whole = nullptr,
                    Progress* watcher = nullptr);

/// The same from a project's bytes. Returns false, with nothing read, for a version that is not
/// supported any more. Throws ReadFailure where the file fails; what was read before stands.
/// Throws WorkCancelled where `watcher` ends it.
bool readProjectBytes(Project& project, std::string_view bytes, Progress* watcher = nullptr);

}  // namespace Plane
}  // namespace velna
