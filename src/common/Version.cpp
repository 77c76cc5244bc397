#include "common/Version.h"

namespace velna {

// The build tells it, which has it from the project's own line.
constexpr char versionText[] = VELNA_VERSION;

}  // namespace velna
