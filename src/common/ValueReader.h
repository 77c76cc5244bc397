#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velna {

class Progress;

/// A read that failed: end of file, a value that does not parse, an integer out of its type's
/// range, or a count that no project can have. The reader of the file stops there.
class ReadFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads the whole of a regular file into memory; throws ReadFailure when it cannot (no such file,
/// a directory, no permission, more than memory should hold).
std::string readWholeFile(const std::string& path);

/// Reads the first `most` bytes of a regular file, or all where it has fewer; throws ReadFailure
/// when it cannot.
std::string readFileStart(const std::string& path, std::size_t most);

/// Reads lines and values from the bytes of a text file, in order. A value ends at a comma or at
/// the line end, which is consumed with it; CR LF, LF and CR end a line. Every operation throws
/// ReadFailure at the end of the file and on a value that does not fit.
class ValueReader {
public:
    /// Reads from `bytes`, which must outlive the reader. `watcher` sees how far it is; null when
    /// nobody watches.
    explicit ValueReader(std::string_view bytes, Progress* watcher = nullptr)
        : rest_(bytes), size_(bytes.size()), watcher_(watcher) {}

    bool atEnd() const { return rest_.empty(); }

    /// To be called now and then, after each object or section: asks the watcher whenever another
    /// 64 KiB are behind it. Throws WorkCancelled once the user has cancelled.
    void lookUp() {
        if (watcher_ && size_ - rest_.size() >= nextLook_) ask();
    }

    /// The rest of the current line without its end.
    std::string_view line();

    std::int16_t int16();
    std::int32_t int32();

    /// A decimal number; leading blanks are skipped; neither `nan`, `inf` nor hexadecimal.
    double number();

    /// "#TRUE#" or "#FALSE#".
    bool boolean();

    /// A text, in double quotes or bare; quotes protect a comma.
    std::string text();

    /// A 16-bit count of at least `least`; anything below is a ReadFailure.
    std::int16_t count(std::int16_t least);

private:
    std::string_view value();
    void ask();

    std::string_view rest_;
    std::size_t size_;
    std::size_t nextLook_ = 0;
    Progress* watcher_;
};

}  // namespace velna
