#include "common/Complaint.h"

#include <cstdio>

namespace velna {

void complain(const std::string& text) {
    const std::string line = "velna: " + text + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void complain(const std::string& subject, const std::string& reason) {
    complain(subject + ": " + reason);
}

}  // namespace velna
