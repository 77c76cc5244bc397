#include "common/ReplacedFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/FolderTitles.h"
#include "common/Uninterrupted.h"

namespace velna {

namespace {

namespace fs = std::filesystem;

constexpr mode_t modeOfNewFiles = 0666;
constexpr std::string_view temporaryHead = ".velna-";
constexpr std::string_view temporaryTail = "XXXXXX";
constexpr std::string_view oldTail = "~";
constexpr std::time_t longestSave = 24 * 60 * 60;  // seconds

std::string reasonOf(int number) {
    return std::generic_category().message(number);
}

/// Closes also what a signal interrupts: the system has given the descriptor back by then.
bool closed(int descriptor) {
    return ::close(descriptor) == 0 || errno == EINTR;
}

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

/// What the user takes from the permissions of new files. The call that tells it also sets it, for
/// all threads at once: the system's record of the process is read instead.
mode_t creationMask() {
    constexpr std::string_view key = "Umask:";
    constexpr mode_t usual = 022;
    std::ifstream record("/proc/self/status");
    for (std::string line; std::getline(record, line);) {
        if (line.starts_with(key))
            return static_cast<mode_t>(std::strtoul(line.c_str() + key.size(), nullptr, 8));
    }
    return usual;
}

/// The permissions of the old file, so that replacing it does not change who may read it.
mode_t modeFor(const struct stat* old) {
    return old != nullptr ? old->st_mode & 07777 : modeOfNewFiles & ~creationMask();
}

/// Makes the new names durable: without it the renames may be lost with the power.
bool syncFolder(const std::string& folder) {
    const char* const name = folder.empty() ? "." : folder.c_str();
    const int descriptor =
        uninterrupted([&] { return ::open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    // A folder that may be written but not read cannot be synced; the file itself stands.
    if (descriptor < 0) return errno == EACCES;
    const bool synced = uninterrupted([&] { return ::fsync(descriptor); }) == 0 || errno == EINVAL;
    const int kept = errno;
    ::close(descriptor);
    errno = kept;
    return synced;
}

/// Whether `title` is one that a new file, or an old one kept meanwhile, has.
bool isTemporary(std::string_view title) {
    if (!title.starts_with(temporaryHead)) return false;
    title.remove_prefix(temporaryHead.size());
    if (title.ends_with(oldTail)) title.remove_suffix(oldTail.size());
    return title.size() == temporaryTail.size() && std::ranges::all_of(title, [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
           });
}

/// Removes what a killed run has left in `folder`. What is younger than a day may be another run's
/// that is still at work.
void sweep(const std::string& folder) {
    forEachTitle(folder, [&](std::string_view title) {
        if (!isTemporary(title)) return;
        const std::string path = folder + std::string(title);
        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0) return;
        const bool ours =
            (S_ISREG(status.st_mode) || S_ISLNK(status.st_mode)) && status.st_uid == ::geteuid();
        if (ours && status.st_mtime < std::time(nullptr) - longestSave) ::unlink(path.c_str());
    });
}

}  // namespace

// What is half open when memory ends here goes by the destructor, for the first constructor is
// done.
ReplacedFile::ReplacedFile(std::string target, Links links) : ReplacedFile() {
    target_ = links == Links::followed ? resolved(std::move(target)) : std::move(target);
    sweepFolderOf(target_);
    open(links);
}

void ReplacedFile::open(Links links) {
    struct stat old {};
    const bool exists = ::lstat(target_.c_str(), &old) == 0;
    const bool link = exists && S_ISLNK(old.st_mode);
    if (exists && !S_ISREG(old.st_mode) && !(link && links == Links::replaced)) {
        // Only a regular file can be replaced by another: a device or a pipe would vanish.
        errno = S_ISDIR(old.st_mode) ? EISDIR : link ? ELOOP : EINVAL;
        fail();
        return;
    }
    const std::string pattern = folderOf(target_).append(temporaryHead).append(temporaryTail);
    std::string name;
    descriptor_ = uninterrupted([&] {
        name = pattern;
        return ::mkostemp(name.data(), O_CLOEXEC);
    });
    if (descriptor_ < 0) {
        fail();
        return;
    }
    temporary_ = std::move(name);
    const mode_t mode = modeFor(exists && !link ? &old : nullptr);
    if (uninterrupted([&] { return ::fchmod(descriptor_, mode); }) != 0) fail();
}

ReplacedFile::~ReplacedFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
    if (!old_.empty()) ::unlink(old_.c_str());
}

void ReplacedFile::append(std::string_view text) {
    if (buffer().size() + text.size() < flushSize) {
        buffer().append(text);
        return;
    }
    flush();
    write(text);
}

void ReplacedFile::overwrite(std::size_t at, std::string_view bytes) {
    flush();
    if (!error_.empty()) return;
    const bool there = ::lseek(descriptor_, static_cast<off_t>(at), SEEK_SET) >= 0;
    if (there) write(bytes);
    if (!there || ::lseek(descriptor_, 0, SEEK_END) < 0) fail();
}

void ReplacedFile::sweepFolderOf(const std::string& target) {
    const std::string folder = folderOf(target);
    if (swept_ == folder) return;
    sweep(folder);
    swept_ = folder;
}

void ReplacedFile::beside(const std::string& target, std::string_view bytes) {
    sweepFolderOf(target);
    std::erase_if(beside_, [&](const auto& file) { return file->target_ == target; });
    auto& file = *beside_.emplace_back(std::unique_ptr<ReplacedFile>(new ReplacedFile));
    file.target_ = target;
    file.open(Links::replaced);
    file.write(bytes);
    file.complete();
    failFor(file);
}

void ReplacedFile::fail() {
    fail(reasonOf(errno));
}

void ReplacedFile::fail(const std::string& reason) {
    if (error_.empty()) error_ = reason;
}

void ReplacedFile::write(std::string_view bytes) {
    while (error_.empty() && !bytes.empty()) {
        const auto count =
            uninterrupted([&] { return ::write(descriptor_, bytes.data(), bytes.size()); });
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0) {
            fail(reasonOf(EIO));  // a device that takes nothing would be asked for ever
        } else {
            fail();
        }
    }
}

void ReplacedFile::flush() {
    write(buffer());
    buffer().clear();
}

/// All bytes on disk, and the file closed.
void ReplacedFile::complete() {
    flush();
    if (error_.empty() && uninterrupted([&] { return ::fsync(descriptor_); }) != 0) fail();
    if (descriptor_ >= 0 && !closed(descriptor_)) fail();
    descriptor_ = -1;
}

/// Keeps the old file under a second name, by which it can be put back. A file system that knows no
/// second names gets a copy.
bool ReplacedFile::keepOld() {
    struct stat old {};
    if (::lstat(target_.c_str(), &old) != 0) {
        // Who takes one that cannot be looked at for none would remove it to put things back.
        if (errno != ENOENT) fail();
        return error_.empty();
    }
    old_ = std::string(temporary_).append(oldTail);
    if (::link(target_.c_str(), old_.c_str()) != 0) {
        std::error_code failure;
        fs::copy(target_, old_, fs::copy_options::copy_symlinks, failure);
        if (failure) fail(failure.message());
    }
    return error_.empty();
}

bool ReplacedFile::place() {
    if (std::rename(temporary_.c_str(), target_.c_str()) != 0) {
        fail();
        return false;
    }
    temporary_.clear();
    inPlace_ = true;
    return true;
}

/// Undoes `place`.
bool ReplacedFile::putBack() {
    inPlace_ = old_.empty() ? ::unlink(target_.c_str()) != 0
                            : std::rename(old_.c_str(), target_.c_str()) != 0;
    if (!inPlace_) old_.clear();
    return !inPlace_;
}

/// What stands in place though it could not be put back, and where that has left the old file.
std::string ReplacedFile::standing() {
    std::string words = " " + titleOf(target_);
    if (!old_.empty()) words += " (for a day the former one is " + titleOf(old_) + ")";
    old_.clear();
    return words;
}

/// Takes over a failure of a file beside this one.
void ReplacedFile::failFor(const ReplacedFile& file) {
    if (!file.error_.empty()) fail(titleOf(file.target_) + ": " + file.error_);
}

/// Puts all files in their places; where one cannot be, those before it are put back.
void ReplacedFile::placeAll() {
    for (const auto& file : beside_) {
        if (!file->keepOld()) failFor(*file);
        if (!error_.empty()) return;
    }
    for (const auto& file : beside_) {
        if (!file->place()) failFor(*file);
        if (!error_.empty()) break;
    }
    if (error_.empty() && place()) return;
    std::string left;
    for (auto file = beside_.rbegin(); file != beside_.rend(); ++file)
        if ((*file)->inPlace_ && !(*file)->putBack()) left += (*file)->standing();
    if (!left.empty()) error_ += ". Beside the old file new ones stand now:" + left;
}

std::set<std::string> ReplacedFile::folders() const {
    std::set<std::string> names{folderOf(target_)};
    for (const auto& file : beside_) names.insert(folderOf(file->target_));
    return names;
}

/// Removes what has not taken its place, and what the new files have replaced; gives what could not
/// be removed, and why.
std::string ReplacedFile::tidied() {
    std::string left;
    for (std::string* const name : {&temporary_, &old_}) {
        const bool gone = name->empty() ||
                          uninterrupted([&] { return ::unlink(name->c_str()); }) == 0 ||
                          errno == ENOENT;
        if (!gone) left += " " + titleOf(*name) + " (" + reasonOf(errno) + ")";
        name->clear();
    }
    return left;
}

void ReplacedFile::tidyAll() {
    std::string left = tidied();
    for (const auto& file : beside_) left += file->tidied();
    if (!left.empty()) error_ += (error_.empty() ? "" : ". ") + ("Could not be removed:" + left);
}

bool ReplacedFile::commit() {
    complete();
    // What needs memory comes before the files take their places.
    const std::set<std::string> names = folders();
    if (error_.empty()) placeAll();
    if (inPlace_) {
        for (const std::string& folder : names)
            if (!syncFolder(folder)) fail();
    }
    tidyAll();
    return error_.empty();
}

const std::string& ReplacedFile::giveUp() {
    tidyAll();
    return error_;
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
