#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

#include "common/ReplacedFile.h"
#include "common/TwoThreads.h"

namespace velna {

/// Writes `text` at `at`, where it must have room; gives its end.
inline char* putText(char* at, std::string_view text) {
    std::memcpy(at, text.data(), text.size());
    return at + text.size();
}

/// Writes long tables of text into a file: each row straight from its numbers into blocks of
/// memory that stay the same for any size. A large export's blocks are made in two threads.
class Rows {
public:
    /// `points`: how large the whole export is, about.
    Rows(ReplacedFile& file, long long points)
        : file_(file),
          points_(static_cast<std::size_t>(std::max(points, 0LL))),
          blockSize_(points_ > workForTwoThreads ? largeBlock : smallBlock) {}

    /// So many rows of at most `longest` characters can be written at once.
    long long atOnce(std::size_t longest) const {
        return 2 * static_cast<long long>(std::max<std::size_t>(1, blockSize_ / longest));
    }

    /// Writes rows `first` to before `last`, at most `atOnce(longest)` of them. `format(at, first,
    /// last)` makes the text of some of them at `at` and gives its end; two threads may call it.
    template <class Format>
    void write(long long first, long long last, std::size_t longest, Format format) {
        const long long middle = first + (last - first + 1) / 2;
        const auto room = static_cast<std::size_t>(middle - first) * longest;
        std::array<char*, 2> ends{blocks_[0].ofSize(room), blocks_[1].ofSize(room)};
        inTwoThreads(
            points_, [&] { ends[0] = format(ends[0], first, middle); },
            [&] { ends[1] = format(ends[1], middle, last); });
        for (std::size_t n = 0; n < ends.size(); ++n) file_.append(blocks_[n].upTo(ends[n]));
    }

private:
    static constexpr std::size_t smallBlock = std::size_t{64} << 10;
    static constexpr std::size_t largeBlock = std::size_t{512} << 10;

    /// Memory that holds nothing yet.
    class Block {
    public:
        char* ofSize(std::size_t size) {
            if (size > size_) {
                bytes_ = std::make_unique_for_overwrite<char[]>(size);
                size_ = size;
            }
            return bytes_.get();
        }
        std::string_view upTo(const char* end) const {
            return {bytes_.get(), static_cast<std::size_t>(end - bytes_.get())};
        }

    private:
        std::unique_ptr<char[]> bytes_;
        std::size_t size_ = 0;
    };

    ReplacedFile& file_;
    std::size_t points_;
    std::size_t blockSize_;
    std::array<Block, 2> blocks_;
};

}  // namespace velna
