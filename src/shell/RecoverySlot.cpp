#include "shell/RecoverySlot.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <functional>
#include <string_view>
#include <system_error>
#include <utility>

#include "common/FolderTitles.h"

namespace velna {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view titleHead = "unsaved-";
constexpr const char* workEnding = ".work";
constexpr const char* lockEnding = ".lock";
constexpr const char* asideEnding = ".damaged";
/// No program comes to it, and the next one is a number still.
constexpr int largestNumber = 999'999'999;

/// The number in a title of this folder, whatever its ending; nothing in any other.
std::optional<int> numberIn(std::string_view title) {
    if (!title.starts_with(titleHead)) return {};
    title.remove_prefix(titleHead.size());
    int number = 0;
    const auto* const end = title.data() + title.size();
    const auto result = std::from_chars(title.data(), end, number);
    if (result.ec != std::errc{} || number < 1 || number > largestNumber || result.ptr == end ||
        *result.ptr != '.')
        return {};
    return number;
}

int nextNumber(const std::string& folder) {
    int highest = 0;
    forEachTitle(folder, [&](std::string_view title) {
        highest = std::max(highest, numberIn(title).value_or(0));
    });
    return highest + 1;
}

std::string baseOf(const std::string& folder, int number) {
    return folder + std::string(titleHead) + std::to_string(number);
}

/// The folder, for its user alone. Where it cannot be made, what is to go there tells why.
void makeFolder(const std::string& folder) {
    std::error_code ignored;
    if (!fs::create_directories(folder, ignored)) return;
    fs::permissions(folder, fs::perms::owner_all, ignored);
}

}  // namespace

std::vector<int> RecoverySlot::numbersIn(const std::string& folder) {
    std::vector<int> numbers;
    forEachTitle(folder, [&](std::string_view title) {
        const auto number = numberIn(title);
        if (number && (title.ends_with(workEnding) || title.ends_with(lockEnding)))
            numbers.push_back(*number);
    });
    std::ranges::sort(numbers, std::greater());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

std::optional<RecoverySlot> RecoverySlot::make(const std::string& folder, std::string& reason) {
    constexpr int tries = 100;  // each is lost only to a program that starts at the same moment
    makeFolder(folder);
    int number = nextNumber(folder);
    for (int i = 0; i < tries; ++i, ++number) {
        const std::string base = baseOf(folder, number);
        FileLock lock(base + lockEnding, FileLock::Former::none);
        if (lock.isHeld()) return RecoverySlot(base, std::move(lock));
        reason = folder + ": " + lock.reason();
        if (!lock.isOthers()) break;
    }
    return {};
}

std::optional<RecoverySlot> RecoverySlot::takeOver(const std::string& folder, int number) {
    const std::string base = baseOf(folder, number);
    FileLock lock(base + lockEnding, FileLock::Former::any);
    if (!lock.isHeld()) return {};
    return RecoverySlot(base, std::move(lock));
}

std::string RecoverySlot::file() const {
    return base_ + workEnding;
}

bool RecoverySlot::holdsWork() const {
    // Work that cannot even be asked after may be there, and is not to be cleared away.
    std::error_code ignored;
    return fs::symlink_status(file(), ignored).type() != fs::file_type::not_found;
}

std::string RecoverySlot::time() const {
    using std::chrono::system_clock;
    std::error_code failure;
    const auto written = fs::last_write_time(file(), failure);
    if (failure) return {};
    const auto moment = std::chrono::time_point_cast<system_clock::duration>(
        std::chrono::file_clock::to_sys(written));
    const std::time_t seconds = system_clock::to_time_t(moment);
    std::tm local{};
    if (!::localtime_r(&seconds, &local)) return {};
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local)};
}

void RecoverySlot::remove() {
    // The lock last: work without one would be taken for left behind.
    std::error_code ignored;
    fs::remove(file(), ignored);
    lock_.remove();
}

std::string RecoverySlot::putAside() {
    std::string aside = base_ + asideEnding;
    std::error_code failure;
    fs::rename(file(), aside, failure);
    if (failure) return file();
    lock_.remove();
    return aside;
}

}  // namespace velna
