#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velna {

/// Takes a text that grows by and by: it is held in memory until 64 KiB have come together, and
/// then goes where it belongs.
class TextSink {
public:
    TextSink() = default;
    virtual ~TextSink() = default;
    TextSink(const TextSink&) = delete;
    TextSink& operator=(const TextSink&) = delete;

    /// The buffer to append to; call `flushIfFull` now and then (after each record or line).
    std::string& buffer() { return buffer_; }

    /// Appends `text` and a CR LF.
    void line(std::string_view text) {
        buffer_.append(text);
        buffer_.append("\r\n");
    }

    /// Hands the buffer on when it has grown past 64 KiB, so that memory stays bounded.
    void flushIfFull() {
        if (buffer_.size() >= flushSize) flush();
    }

protected:
    /// Hands on what the buffer holds, and empties it.
    virtual void flush() = 0;

    static constexpr std::size_t flushSize = 65536;

private:
    std::string buffer_;
};

}  // namespace velna
