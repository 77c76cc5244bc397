#include "shell/Ports.h"

namespace velna {

ShellPorts Shell;

}  // namespace velna
