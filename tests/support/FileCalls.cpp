#include "support/FileCalls.h"

#include <cstdarg>

#include <fcntl.h>

namespace velna::test {

FileCalls fileCalls;

}  // namespace velna::test

using velna::test::fileCalls;

// The linker sends every call of the system's name here.
extern "C" {
int __wrap_open(const char* name, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list more;
        va_start(more, flags);
        mode = va_arg(more, mode_t);
        va_end(more);
    }
    return fileCalls.open(name, flags, mode);
}
int __wrap_mkostemp(char* name, int flags) {
    return fileCalls.create(name, flags);
}
int __wrap_fchmod(int descriptor, mode_t mode) {
    return fileCalls.mode(descriptor, mode);
}
ssize_t __wrap_write(int descriptor, const void* bytes, std::size_t count) {
    return fileCalls.write(descriptor, bytes, count);
}
int __wrap_fsync(int descriptor) {
    return fileCalls.sync(descriptor);
}
int __wrap_close(int descriptor) {
    return fileCalls.close(descriptor);
}
int __wrap_link(const char* from, const char* to) {
    return fileCalls.link(from, to);
}
int __wrap_rename(const char* from, const char* to) {
    return fileCalls.rename(from, to);
}
int __wrap_unlink(const char* name) {
    return fileCalls.unlink(name);
}
}
