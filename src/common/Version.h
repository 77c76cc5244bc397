#pragma once

namespace velna {

/// The program's version, which also heads every project file.
inline constexpr const char* versionText = "2.2.1";

}  // namespace velna
