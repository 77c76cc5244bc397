#include "shell/Ports.h"

#include "common/Complaint.h"

namespace velna {

void reportFailure(Dialogs& dialogs, const std::string& what, const std::string& reason) {
    complain(what + " " + reason);
    dialogs.message(applicationTitle, what + "\n" + reason, BoxIcon::Exclamation);
}

}  // namespace velna
