#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace velna {

/// The calls of the system by which files come and change. A test puts failing ones in their place
/// and so sees what each failure leaves behind. Each is the system's function of that name, or of
/// the name behind it.
struct FileCalls {
    int (*create)(char* name, int flags) = ::mkostemp;
    int (*mode)(int descriptor, mode_t mode) = ::fchmod;
    ssize_t (*write)(int descriptor, const void* bytes, std::size_t count) = ::write;
    int (*sync)(int descriptor) = ::fsync;
    int (*close)(int descriptor) = ::close;
    int (*link)(const char* from, const char* to) = ::link;
    int (*rename)(const char* from, const char* to) = std::rename;
    int (*unlink)(const char* name) = ::unlink;
};

/// The calls in use.
extern FileCalls fileCalls;

}  // namespace velna
