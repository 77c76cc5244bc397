#pragma once

#include <string>

namespace velna {

/// A lock that at most one holder has at a time, in this program or another of the same computer.
/// It is a file that is held open; the system frees it when the program ends, however it ends.
class FileLock {
public:
    /// What may stand at the path before: nothing, or the file of a former holder as well.
    enum class Former { none, any };

    /// Makes the file where it is missing and tries to take the lock, without waiting. A symbolic
    /// link is not followed.
    FileLock(const std::string& path, Former former);
    ~FileLock();
    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    bool isHeld() const { return descriptor_ >= 0; }
    /// Whether it could not be had because somebody else has it, or has a file there.
    bool isOthers() const { return others_; }
    /// Why it could not be had, in the system's words.
    const std::string& reason() const { return reason_; }

    /// Removes the file and gives the lock up.
    void remove();

private:
    void refuse();
    void release();

    std::string path_;
    std::string reason_;
    bool others_ = false;
    int descriptor_ = -1;
};

}  // namespace velna
