#pragma once

#include "shell/ExportRequest.h"

namespace velna {

class ExportTools;

/// Writes what `request` asks for, project by project. One that fails is told of on standard error
/// and keeps none of the others from being written. Returns the status to end with: 0, 1 where
/// something failed, 2 where several projects have no folder to go to.
int exportProjects(const ExportRequest& request, ExportTools& tools);

}  // namespace velna
