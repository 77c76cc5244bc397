#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "output/SolidWriters.h"

namespace velna {

/// Writes a ZIP archive whose bytes depend on what is in it alone: every entry has the date
/// 1980-01-01, the first that the format knows. An entry's compressed bytes are held in memory
/// until it ends. (PKWARE, "APPNOTE.TXT", 6.3; compressed by zlib.)
class ZipFile {
public:
    explicit ZipFile(ByteSink& file);
    ~ZipFile();
    ZipFile(const ZipFile&) = delete;
    ZipFile& operator=(const ZipFile&) = delete;

    void begin(std::string name);
    /// More bytes of the entry that has begun.
    void append(std::string_view bytes);
    void endEntry();
    /// The list of all entries: nothing follows it.
    void end();

private:
    struct Deflating;

    void deflate(std::string_view bytes, int flush);
    std::string header(std::uint32_t signature, std::size_t place) const;

    ByteSink& file_;
    std::unique_ptr<Deflating> deflating_;
    std::string name_;
    std::string compressed_;
    std::uint64_t size_ = 0;    ///< of the entry, not compressed
    std::uint64_t offset_ = 0;  ///< of the next entry
    std::string directory_;
    unsigned entries_ = 0;
};

}  // namespace velna
