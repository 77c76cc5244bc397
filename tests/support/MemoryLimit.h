#pragma once

#include <fstream>

#include <sys/resource.h>
#include <unistd.h>

namespace velna::test {

/// While one lives, the program can take `room` bytes of memory beyond what it has.
class MemoryLimit {
public:
    explicit MemoryLimit(unsigned long room) {
        getrlimit(RLIMIT_AS, &before_);
        unsigned long pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        rlimit limit = before_;
        limit.rlim_cur = pages * static_cast<unsigned long>(sysconf(_SC_PAGESIZE)) + room;
        setrlimit(RLIMIT_AS, &limit);
    }
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &before_); }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

private:
    rlimit before_{};
};

}  // namespace velna::test
