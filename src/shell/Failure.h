#pragma once

#include <string>

namespace velna {

/// Tells a save, export or print that failed: one message box with the reason, one line on standard
/// error.
void reportFailure(const std::string& what, const std::string& reason);

}  // namespace velna
