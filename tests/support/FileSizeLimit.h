#pragma once

#include <csignal>

#include <sys/resource.h>

namespace velna::test {

/// While it lives, no file of this process can grow beyond `bytes`: a full disk, for any user.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        formerHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limit{bytes, former_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, formerHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit former_{};
    void (*formerHandler_)(int);
};

}  // namespace velna::test
