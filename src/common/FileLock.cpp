#include "common/FileLock.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/Uninterrupted.h"

namespace velna {

namespace {

/// Whether `path` still names the open file: its last holder may have removed it meanwhile.
bool stillNamed(const std::string& path, int descriptor) {
    struct stat open {};
    struct stat named {};
    if (::fstat(descriptor, &open) == 0 && ::lstat(path.c_str(), &named) == 0 &&
        open.st_ino == named.st_ino && open.st_dev == named.st_dev)
        return true;
    errno = EWOULDBLOCK;
    return false;
}

}  // namespace

FileLock::FileLock(const std::string& path, Former former) : path_(path) {
    constexpr mode_t ownerOnly = 0600;
    const int flags =
        O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | (former == Former::none ? O_EXCL : 0);
    descriptor_ = uninterrupted([&] { return ::open(path.c_str(), flags, ownerOnly); });
    const auto take = [this] { return ::flock(descriptor_, LOCK_EX | LOCK_NB); };
    const bool held = descriptor_ >= 0 && uninterrupted(take) == 0 && stillNamed(path, descriptor_);
    if (!held) refuse();
}

void FileLock::refuse() {
    const int number = errno;
    others_ = number == EWOULDBLOCK || number == EEXIST;
    // Before anything that may need memory: a constructor that throws has no end to do it.
    release();
    reason_ = std::generic_category().message(number);
}

FileLock::FileLock(FileLock&& other) noexcept
    : path_(std::move(other.path_)),
      reason_(std::move(other.reason_)),
      others_(other.others_),
      descriptor_(std::exchange(other.descriptor_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    std::swap(path_, other.path_);
    std::swap(reason_, other.reason_);
    std::swap(others_, other.others_);
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

FileLock::~FileLock() {
    release();
}

void FileLock::release() {
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

void FileLock::remove() {
    if (isHeld()) ::unlink(path_.c_str());
    release();
}

}  // namespace velna
