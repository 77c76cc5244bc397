#pragma once

#include <string>

#include "common/Outcome.h"

namespace velna {

struct Project;

namespace Plane {

/// Puts the aircraft of `file` in the place of `project`, as it is when a window has just opened
/// it. Failed, with a reason that names the file, where it is no project, of a version that is not
/// supported any more, or not whole: nobody looks at what was read of it before work goes on.
Outcome openWholeProject(Project& project, const std::string& file);

}  // namespace Plane
}  // namespace velna
