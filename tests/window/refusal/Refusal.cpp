// Stands before the C library in a program under test: calls about files under the folders of
// REFUSAL_UNDER (joined by colons) are counted from 1 and told in the file REFUSAL_LOG. The one
// whose number is REFUSAL_NUMBER fails with the error REFUSAL_ERROR, and with REFUSAL_GOES_ON each
// one behind it.

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

const char* wish(const char* name) {
    const char* const text = std::getenv(name);
    return text ? text : "";
}

bool isUnder(std::string_view path) {
    std::string_view folders = wish("REFUSAL_UNDER");
    while (!folders.empty()) {
        const std::string_view folder = folders.substr(0, folders.find(':'));
        if (path.starts_with(folder)) return true;
        folders.remove_prefix(folder.size() < folders.size() ? folder.size() + 1 : folders.size());
    }
    return false;
}

/// Past the calls that stand here.
void tell(int number, const char* call, const char* path, bool refused) {
    const long file = ::syscall(SYS_openat, AT_FDCWD, wish("REFUSAL_LOG"),
                                O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0) return;
    char line[PATH_MAX + 100];
    const int length = std::snprintf(line, sizeof line, "%d %s %s%s\n", number, call, path,
                                     refused ? " refused" : "");
    ::syscall(SYS_write, file, line, length);
    ::syscall(SYS_close, file);
}

bool refused(const char* call, const char* path) {
    static std::atomic<int> count = 0;
    if (!path || !isUnder(path)) return false;
    const int before = errno;
    const int number = ++count;
    const int struck = std::atoi(wish("REFUSAL_NUMBER"));
    const bool goesOn = *wish("REFUSAL_GOES_ON") != '\0';
    const bool strikes = struck > 0 && (number == struck || (goesOn && number > struck));
    tell(number, call, path, strikes);
    errno = strikes ? std::atoi(wish("REFUSAL_ERROR")) : before;
    return strikes;
}

bool refused(const char* call, int descriptor) {
    const int before = errno;
    char link[40];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    char path[PATH_MAX + 1] = {};
    const ssize_t length = ::readlink(link, path, PATH_MAX);
    errno = before;
    return length > 0 && refused(call, path);
}

template <class Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

mode_t modeOf(int flags, va_list words) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(words, mode_t) : 0;
}

using Open = int(const char*, int, ...);
using OnPath = int(const char*);
using OnTwo = int(const char*, const char*);
using OnFile = int(int);

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list words;
    va_start(words, flags);
    const mode_t mode = modeOf(flags, words);
    va_end(words);
    return refused("open", path) ? -1 : next<Open>("open")(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list words;
    va_start(words, flags);
    const mode_t mode = modeOf(flags, words);
    va_end(words);
    return refused("open", path) ? -1 : next<Open>("open64")(path, flags, mode);
}

int mkostemp(char* path, int flags) {
    return refused("mkostemp", path) ? -1 : next<int(char*, int)>("mkostemp")(path, flags);
}

ssize_t read(int descriptor, void* bytes, size_t size) {
    if (refused("read", descriptor)) return -1;
    return next<ssize_t(int, void*, size_t)>("read")(descriptor, bytes, size);
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
    if (refused("write", descriptor)) return -1;
    return next<ssize_t(int, const void*, size_t)>("write")(descriptor, bytes, size);
}

int fsync(int descriptor) {
    return refused("fsync", descriptor) ? -1 : next<OnFile>("fsync")(descriptor);
}

int fchmod(int descriptor, mode_t mode) {
    return refused("fchmod", descriptor) ? -1 : next<int(int, mode_t)>("fchmod")(descriptor, mode);
}

/// Also a close that fails closes.
int close(int descriptor) {
    const bool fails = refused("close", descriptor);
    const int error = errno;
    const int result = next<OnFile>("close")(descriptor);
    if (!fails) return result;
    errno = error;
    return -1;
}

int rename(const char* from, const char* to) noexcept {
    return refused("rename", to) ? -1 : next<OnTwo>("rename")(from, to);
}

int link(const char* from, const char* to) noexcept {
    return refused("link", to) ? -1 : next<OnTwo>("link")(from, to);
}

int unlink(const char* path) noexcept {
    return refused("unlink", path) ? -1 : next<OnPath>("unlink")(path);
}

int remove(const char* path) noexcept {
    return refused("unlink", path) ? -1 : next<OnPath>("remove")(path);
}

int mkdir(const char* path, mode_t mode) noexcept {
    return refused("mkdir", path) ? -1 : next<int(const char*, mode_t)>("mkdir")(path, mode);
}

int stat(const char* path, struct stat* status) noexcept {
    return refused("stat", path) ? -1 : next<int(const char*, struct stat*)>("stat")(path, status);
}

int lstat(const char* path, struct stat* status) noexcept {
    return refused("stat", path) ? -1 : next<int(const char*, struct stat*)>("lstat")(path, status);
}

DIR* opendir(const char* path) {
    return refused("opendir", path) ? nullptr : next<DIR*(const char*)>("opendir")(path);
}

}  // extern "C"
