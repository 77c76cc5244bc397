#pragma once

#include <cerrno>
#include <filesystem>
#include <map>
#include <set>
#include <string>

#include <fcntl.h>

#include "support/FileCalls.h"
#include "support/TemporaryFolder.h"

namespace velna::test {

/// A write that takes half of what it is given, in the place of a failure's number.
inline constexpr int shortWrite = -1;

/// Which of the calls that change files fail, counted from 1, and how.
struct Strike {
    std::set<int> numbers;  ///< these
    int from = 0;           ///< and all from this one on, unless 0
    int error = EIO;        ///< the failure's number, or `shortWrite`
};

/// While it lives, the calls that change files are counted from 1, and struck ones fail. A signal
/// interrupts only calls that wait, and no call twice running.
class StruckCalls {
public:
    explicit StruckCalls(std::set<int> numbers) : StruckCalls(Strike{std::move(numbers)}) {}
    explicit StruckCalls(Strike strike) {
        strike_ = std::move(strike);
        count_ = 0;
        fileCalls = {open, create, mode, write, sync, close, link, rename, unlink};
    }
    ~StruckCalls() { fileCalls = {}; }
    StruckCalls(const StruckCalls&) = delete;
    StruckCalls& operator=(const StruckCalls&) = delete;

    /// How many calls there were so far.
    static int count() { return count_; }

private:
    enum class Waits { no, yes };

    static bool isStruck(Waits waits) {
        const int number = ++count_;
        const bool goesOn = strike_.from > 0 && number >= strike_.from;
        if (strike_.error != EINTR) return goesOn || strike_.numbers.contains(number);
        const bool every = goesOn && (number - strike_.from) % 2 == 0;
        return waits == Waits::yes && (every || strike_.numbers.contains(number));
    }
    template <class Call>
    static auto unlessStruck(Waits waits, Call call) -> decltype(call()) {
        if (!isStruck(waits) || strike_.error == shortWrite) return call();
        errno = strike_.error;
        return -1;
    }
    /// Opening to read changes nothing, and is not counted.
    static int open(const char* name, int flags, mode_t mode) {
        const auto call = [&] { return FileCalls{}.open(name, flags, mode); };
        const bool changes = (flags & (O_CREAT | O_WRONLY | O_RDWR | O_DIRECTORY)) != 0;
        return changes ? unlessStruck(Waits::yes, call) : call();
    }
    static int create(char* name, int flags) {
        return unlessStruck(Waits::yes, [&] { return FileCalls{}.create(name, flags); });
    }
    static int mode(int descriptor, mode_t mode) {
        return unlessStruck(Waits::yes, [&] { return FileCalls{}.mode(descriptor, mode); });
    }
    static ssize_t write(int descriptor, const void* bytes, std::size_t size) {
        const bool halved = strike_.error == shortWrite && isStruck(Waits::yes);
        const auto call = [&] {
            return FileCalls{}.write(descriptor, bytes, halved ? (size + 1) / 2 : size);
        };
        return strike_.error == shortWrite ? call() : unlessStruck(Waits::yes, call);
    }
    /// What is synced is of no interest to who looks at it right away.
    static int sync(int) {
        return unlessStruck(Waits::yes, [] { return 0; });
    }
    /// Also a close that fails closes.
    static int close(int descriptor) {
        const int result = FileCalls{}.close(descriptor);
        return unlessStruck(Waits::yes, [&] { return result; });
    }
    static int link(const char* from, const char* to) {
        return unlessStruck(Waits::no, [&] { return FileCalls{}.link(from, to); });
    }
    static int rename(const char* from, const char* to) {
        return unlessStruck(Waits::no, [&] { return FileCalls{}.rename(from, to); });
    }
    static int unlink(const char* name) {
        return unlessStruck(Waits::no, [&] { return FileCalls{}.unlink(name); });
    }

    static inline Strike strike_;
    static inline int count_ = 0;
};

/// How many calls `action` takes when none fails.
template <class Action>
int callsOf(Action action) {
    const StruckCalls none(std::set<int>{});
    action();
    return StruckCalls::count();
}

/// Whether a new file has this name until it takes its place, or an old one meanwhile.
inline bool isUnplaced(const std::string& name) {
    return name.starts_with(".velna-");
}

/// The files of a folder by their names, with their bytes; new ones that have not taken their
/// places, which a struck removal leaves behind, are left out.
inline std::map<std::string, std::string> filesIn(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (!isUnplaced(name)) files[name] = bytesOf(entry.path().string());
    }
    return files;
}

}  // namespace velna::test
