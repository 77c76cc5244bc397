#pragma once

namespace velna {

/// The program's version, which also heads every project file.
inline constexpr int versionMajor = 2;
inline constexpr int versionMinor = 2;
inline constexpr int versionRevision = 1;
inline constexpr const char* versionText = "2.2.1";

}  // namespace velna
