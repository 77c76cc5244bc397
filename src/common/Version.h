#pragma once

namespace velna {

/// The program's version, which also heads every project file.
extern const char versionText[];

}  // namespace velna
