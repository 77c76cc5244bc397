#include "common/ValueReader.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/NumberText.h"
#include "common/Progress.h"

namespace velna {
namespace {

constexpr std::size_t readSize = 65536;
/// Far beyond every project that can be drawn; what a larger file asks for is not to be had.
constexpr off_t largestFile = off_t{512} << 20;

[[noreturn]] void failWithErrno(const std::string& path) {
    throw ReadFailure(path + ": " + std::generic_category().message(errno));
}

/// An open file that is closed on every way out.
class OpenFile {
public:
    explicit OpenFile(const std::string& path)
        : descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~OpenFile() {
        if (descriptor >= 0) ::close(descriptor);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    const int descriptor;
};

/// The size of a regular file; anything else cannot be read to an end, nor a larger one held.
off_t sizeOf(const OpenFile& file, const std::string& path) {
    if (file.descriptor < 0) failWithErrno(path);
    struct stat status {};
    if (::fstat(file.descriptor, &status) != 0) failWithErrno(path);
    if (!S_ISREG(status.st_mode)) throw ReadFailure(path + ": not a regular file");
    if (status.st_size > largestFile) throw ReadFailure(path + ": too large");
    return status.st_size;
}

/// The first `size` bytes, fewer where the file has become shorter. What a file gains while it is
/// read is left for the next time: a file that keeps growing must not keep the reader busy.
std::string readBytes(const OpenFile& file, const std::string& path, off_t size) {
    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::size_t have = 0;
    while (have < bytes.size()) {
        const auto got = ::read(file.descriptor, bytes.data() + have,
                                std::min(bytes.size() - have, readSize * 16));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) failWithErrno(path);
        if (got == 0) break;
        have += static_cast<std::size_t>(got);
    }
    bytes.resize(have);
    return bytes;
}

bool isLineEnd(char c) {
    return c == '\r' || c == '\n';
}

/// Takes the end that stands first in `text`, CR LF, LF or CR, off it.
void dropLineEnd(std::string_view& text) {
    const bool pair = text.size() > 1 && text[0] == '\r' && text[1] == '\n';
    text.remove_prefix(pair ? 2 : 1);
}

/// Consumes what ends a value: a comma, or the line end, or nothing at the end of the file.
void dropValueEnd(std::string_view& text) {
    if (text.empty()) return;
    if (text.front() == ',') {
        text.remove_prefix(1);
    } else {
        dropLineEnd(text);
    }
}

void dropBlanks(std::string_view& text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
}

template <class T>
T wholeInteger(std::string_view text) {
    dropBlanks(text);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    T number{};
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc{} || result.ptr != end) throw ReadFailure("a whole number expected");
    return number;
}

}  // namespace

std::string readWholeFile(const std::string& path) {
    const OpenFile file(path);
    return readBytes(file, path, sizeOf(file, path));
}

std::string readFileStart(const std::string& path, std::size_t most) {
    const OpenFile file(path);
    return readBytes(file, path, std::min(sizeOf(file, path), static_cast<off_t>(most)));
}

void ValueReader::ask() {
    constexpr std::size_t betweenLooks = 65536;
    const std::size_t behind = size_ - rest_.size();
    nextLook_ = behind + betweenLooks;
    if (!watcher_->step(static_cast<long long>(behind), static_cast<long long>(size_)))
        throw WorkCancelled();
}

std::string_view ValueReader::line() {
    if (rest_.empty()) throw ReadFailure("end of file");
    const auto end = std::min(rest_.find_first_of("\r\n"), rest_.size());
    const auto text = rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (!rest_.empty()) dropLineEnd(rest_);
    return text;
}

std::string_view ValueReader::value() {
    if (rest_.empty()) throw ReadFailure("end of file");
    const auto* const start = rest_.data();
    const auto* const end =
        std::find_if(start, start + rest_.size(), [](char c) { return c == ',' || isLineEnd(c); });
    const std::string_view text(start, static_cast<std::size_t>(end - start));
    rest_.remove_prefix(text.size());
    dropValueEnd(rest_);
    return text;
}

std::int16_t ValueReader::int16() {
    return wholeInteger<std::int16_t>(value());
}

std::int32_t ValueReader::int32() {
    return wholeInteger<std::int32_t>(value());
}

double ValueReader::number() {
    const auto number = takeNumber(rest_);
    const bool ended = rest_.empty() || rest_.front() == ',' || isLineEnd(rest_.front());
    if (!number || !ended || !std::isfinite(*number)) throw ReadFailure("a number expected");
    dropValueEnd(rest_);
    return *number;
}

bool ValueReader::boolean() {
    auto text = value();
    dropBlanks(text);
    if (text == "#TRUE#") return true;
    if (text == "#FALSE#") return false;
    throw ReadFailure("#TRUE# or #FALSE# expected");
}

std::string ValueReader::text() {
    if (rest_.empty()) throw ReadFailure("end of file");
    auto from = rest_;
    dropBlanks(from);
    if (from.empty() || from.front() != '"') return std::string(value());
    // The closing quote is the one that the value's end follows: a quote may stand inside a name.
    for (std::size_t i = 1; i < from.size() && !isLineEnd(from[i]); ++i) {
        if (from[i] != '"') continue;
        auto behind = from.substr(i + 1);
        dropBlanks(behind);
        if (!behind.empty() && behind.front() != ',' && !isLineEnd(behind.front())) continue;
        dropValueEnd(behind);
        rest_ = behind;
        return std::string(from.substr(1, i - 1));
    }
    throw ReadFailure("a closing quote expected");
}

std::int16_t ValueReader::count(std::int16_t least) {
    const auto number = int16();
    if (number < least) throw ReadFailure("a count too small");
    return number;
}

}  // namespace velna
