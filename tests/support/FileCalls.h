#pragma once

#include <cstddef>

#include <sys/types.h>

extern "C" {
int __real_open(const char* name, int flags, ...);
int __real_mkostemp(char* name, int flags);
int __real_fchmod(int descriptor, mode_t mode);
ssize_t __real_write(int descriptor, const void* bytes, std::size_t count);
int __real_fsync(int descriptor);
int __real_close(int descriptor);
int __real_link(const char* from, const char* to);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* name);
}

namespace velna::test {

/// The calls of the system by which files come and change. A test program that says STRIKES_FILES
/// is linked so that every object in it calls these, and a test puts failing ones in their place:
/// so it sees what each failure leaves behind. A stand-in calls the system by `FileCalls{}`, for
/// under the system's own names it would call itself.
struct FileCalls {
    int (*open)(const char* name, int flags, mode_t mode) =
        [](const char* name, int flags, mode_t bits) { return __real_open(name, flags, bits); };
    int (*create)(char* name, int flags) = __real_mkostemp;
    int (*mode)(int descriptor, mode_t mode) = __real_fchmod;
    ssize_t (*write)(int descriptor, const void* bytes, std::size_t count) = __real_write;
    int (*sync)(int descriptor) = __real_fsync;
    int (*close)(int descriptor) = __real_close;
    int (*link)(const char* from, const char* to) = __real_link;
    int (*rename)(const char* from, const char* to) = __real_rename;
    int (*unlink)(const char* name) = __real_unlink;
};

/// The calls in use.
extern FileCalls fileCalls;

}  // namespace velna::test
