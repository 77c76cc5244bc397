#include "shell/Failure.h"

#include <cstdio>

#include "shell/Ports.h"

namespace velna {

void reportFailure(const std::string& what, const std::string& reason) {
    std::fprintf(stderr, "velna: %s %s\n", what.c_str(), reason.c_str());
    Shell.dialogs->message(applicationTitle, what + "\n" + reason, BoxIcon::Exclamation);
}

}  // namespace velna
