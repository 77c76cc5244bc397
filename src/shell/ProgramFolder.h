#pragma once

#include <string>

namespace velna {

/// Whether the program's folder, which ends in "/", is one into which it is installed: a folder of
/// "libexec". It writes nothing there, not even when the administrator starts it: that would be
/// everybody's, and outlive the package.
bool isInstalled(const std::string& programFolder);

/// Whether the program keeps files in its folder: it is not installed there, and can write.
bool keepsFiles(const std::string& programFolder);

}  // namespace velna
