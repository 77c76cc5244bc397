#include "common/ReplacedFile.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velna {
namespace {

constexpr mode_t modeOfNewFiles = 0666;

/// The file that `path` names in the end: a link stays a link, and what it points to is replaced.
/// A link whose target does not exist yet is followed by hand, one step at a time.
std::string resolved(std::string path) {
    constexpr int mostLinks = 40;
    for (int step = 0; step < mostLinks; ++step) {
        std::array<char, PATH_MAX> target{};
        const auto length = ::readlink(path.c_str(), target.data(), target.size());
        if (length <= 0) break;
        std::string next(target.data(), static_cast<std::size_t>(length));
        path = next.front() == '/' ? std::move(next) : folderOf(path) + next;
    }
    return path;
}

/// The permissions of the old file, so that replacing it does not change who may read it.
mode_t modeFor(const struct stat* old) {
    if (old != nullptr) return old->st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return modeOfNewFiles & ~mask;
}

/// Makes the new name durable: without it the rename may be lost with the power.
bool syncFolder(const std::string& path) {
    const std::string folder = folderOf(path);
    const int descriptor =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // A folder that may be written but not read cannot be synced; the file itself stands.
    if (descriptor < 0) return errno == EACCES;
    const bool synced = ::fsync(descriptor) == 0 || errno == EINVAL;
    const int kept = errno;
    ::close(descriptor);
    errno = kept;
    return synced;
}

}  // namespace

ReplacedFile::ReplacedFile(std::string target) : target_(resolved(std::move(target))) {
    struct stat old {};
    const bool exists = ::stat(target_.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        // Only a regular file can be replaced by another: a device or a pipe would vanish.
        errno = S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
        fail();
        return;
    }
    std::string name = folderOf(target_) + ".velna-XXXXXX";
    descriptor_ = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor_ < 0) {
        fail();
        return;
    }
    temporary_ = name;
    if (::fchmod(descriptor_, modeFor(exists ? &old : nullptr)) != 0) fail();
    buffer_.reserve(2 * flushSize);
}

ReplacedFile::~ReplacedFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void ReplacedFile::line(std::string_view text) {
    buffer_.append(text);
    buffer_.append("\r\n");
}

void ReplacedFile::fail() {
    if (error_.empty()) error_ = std::generic_category().message(errno);
}

void ReplacedFile::flush() {
    std::size_t written = 0;
    while (error_.empty() && written < buffer_.size()) {
        const auto count = ::write(descriptor_, buffer_.data() + written, buffer_.size() - written);
        if (count >= 0) {
            written += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            fail();
        }
    }
    buffer_.clear();
}

bool ReplacedFile::commit() {
    flush();
    if (error_.empty() && ::fsync(descriptor_) != 0) fail();
    if (descriptor_ >= 0 && ::close(descriptor_) != 0) fail();
    descriptor_ = -1;
    if (error_.empty() && ::rename(temporary_.c_str(), target_.c_str()) != 0) fail();
    if (!error_.empty()) return false;
    temporary_.clear();
    if (!syncFolder(target_)) fail();
    return error_.empty();
}

bool takesFiles(const std::string& folder) {
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

std::string folderOf(std::string_view path) {
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string{} : std::string(path.substr(0, slash + 1));
}

std::string titleOf(std::string_view path) {
    const auto slash = path.rfind('/');
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

}  // namespace velna
