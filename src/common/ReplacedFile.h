#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velna {

/// Writes a file so that nothing is lost when it fails: the bytes go to a new file beside the
/// target, which takes the target's place only when it is complete on disk. Until `commit` the old
/// file stands whole, and an unfinished new file is removed. The first failure is kept; what is
/// appended after it is dropped.
class ReplacedFile {
public:
    /// Opens the new file beside `target`; on failure `error()` tells the reason.
    explicit ReplacedFile(std::string target);
    ~ReplacedFile();

    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    /// The buffer to append to; call `flushIfFull` now and then (after each record or line).
    std::string& buffer() { return buffer_; }

    /// Appends `text` and a CR LF.
    void line(std::string_view text);

    /// Writes the buffer out when it has grown past 64 KiB, so that memory stays bounded.
    void flushIfFull() {
        if (buffer_.size() >= flushSize) flush();
    }

    /// Writes out what is left, syncs, and puts the file in the target's place. Returns false, with
    /// the target untouched, if anything failed since the start.
    bool commit();

    /// The first failure in words ("No space left on device"), empty while there is none.
    const std::string& error() const { return error_; }

private:
    static constexpr std::size_t flushSize = 65536;

    void flush();
    void fail();

    std::string target_;
    std::string temporary_;
    std::string buffer_;
    std::string error_;
    int descriptor_ = -1;
};

/// Everything of `path` up to and including the last "/", empty when there is none.
std::string folderOf(std::string_view path);

/// Everything of `path` behind the last "/".
std::string titleOf(std::string_view path);

/// Whether this user can make new files in `folder`; false too where it does not exist.
bool takesFiles(const std::string& folder);

}  // namespace velna
