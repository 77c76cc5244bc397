#pragma once

#include <cerrno>
#include <filesystem>
#include <map>
#include <set>
#include <string>

#include "support/FileCalls.h"
#include "support/TemporaryFolder.h"

namespace velna::test {

/// While it lives, the calls that change files are counted from 1, and those with the given numbers
/// fail with the reason "Input/output error".
class StruckCalls {
public:
    explicit StruckCalls(std::set<int> numbers) {
        numbers_ = std::move(numbers);
        count_ = 0;
        fileCalls = {create, mode, write, sync, close, link, rename, unlink};
    }
    ~StruckCalls() { fileCalls = {}; }
    StruckCalls(const StruckCalls&) = delete;
    StruckCalls& operator=(const StruckCalls&) = delete;

    /// How many calls there were so far.
    static int count() { return count_; }

private:
    template <class Call>
    static auto unlessStruck(Call call) -> decltype(call()) {
        if (!numbers_.contains(++count_)) return call();
        errno = EIO;
        return -1;
    }
    static int create(char* name, int flags) {
        return unlessStruck([&] { return FileCalls{}.create(name, flags); });
    }
    static int mode(int descriptor, mode_t mode) {
        return unlessStruck([&] { return FileCalls{}.mode(descriptor, mode); });
    }
    static ssize_t write(int descriptor, const void* bytes, std::size_t size) {
        return unlessStruck([&] { return FileCalls{}.write(descriptor, bytes, size); });
    }
    /// What is synced is of no interest to who looks at it right away.
    static int sync(int) {
        return unlessStruck([] { return 0; });
    }
    /// Also a close that fails closes.
    static int close(int descriptor) {
        const int result = FileCalls{}.close(descriptor);
        return unlessStruck([&] { return result; });
    }
    static int link(const char* from, const char* to) {
        return unlessStruck([&] { return FileCalls{}.link(from, to); });
    }
    static int rename(const char* from, const char* to) {
        return unlessStruck([&] { return FileCalls{}.rename(from, to); });
    }
    static int unlink(const char* name) {
        return unlessStruck([&] { return FileCalls{}.unlink(name); });
    }

    static inline std::set<int> numbers_;
    static inline int count_ = 0;
};

/// How many calls `action` takes when none fails.
template <class Action>
int callsOf(Action action) {
    const StruckCalls none({});
    action();
    return StruckCalls::count();
}

/// The files of a folder by their names, with their bytes; new ones that have not taken their
/// places, which a struck removal leaves behind, are left out.
inline std::map<std::string, std::string> filesIn(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (!name.starts_with(".velna-")) files[name] = bytesOf(entry.path().string());
    }
    return files;
}

}  // namespace velna::test
