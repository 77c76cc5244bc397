#include "output/ZipFile.h"

#include <limits>
#include <memory>
#include <utility>

#include <zlib.h>

namespace velna {
namespace {

constexpr std::uint32_t entrySignature = 0x04034b50;
constexpr std::uint32_t directorySignature = 0x02014b50;
constexpr std::uint32_t endSignature = 0x06054b50;
constexpr unsigned version = 20;               // of the format: what can unpack "deflate"
constexpr unsigned firstDate = 1U << 5U | 1U;  // day 1 of month 1 of 1980
constexpr int rawWindow = -15;                 // no head of zlib's own
constexpr int memoryLevel = 8;

/// Appends a whole number of `bytes` bytes, the lowest first.
void put(std::string& text, std::uint64_t value, unsigned bytes) {
    for (unsigned n = 0; n < bytes; ++n, value >>= 8U) text += static_cast<char>(value & 0xFFU);
}

}  // namespace

struct ZipFile::Deflating {
    z_stream stream{};
    uLong sum = 0;
    bool ready = false;
};

ZipFile::ZipFile(ByteSink& file) : file_(file), deflating_(std::make_unique<Deflating>()) {
    deflating_->ready = deflateInit2(&deflating_->stream, Z_BEST_SPEED, Z_DEFLATED, rawWindow,
                                     memoryLevel, Z_DEFAULT_STRATEGY) == Z_OK;
    if (!deflating_->ready) file_.fail("Not enough memory.");
}

ZipFile::~ZipFile() {
    if (deflating_->ready) deflateEnd(&deflating_->stream);
}

void ZipFile::begin(std::string name) {
    name_ = std::move(name);
    compressed_.clear();
    size_ = 0;
    deflating_->sum = ::crc32(0, nullptr, 0);
    if (deflating_->ready) deflateReset(&deflating_->stream);
}

void ZipFile::append(std::string_view bytes) {
    size_ += bytes.size();
    deflate(bytes, Z_NO_FLUSH);
}

void ZipFile::deflate(std::string_view bytes, int flush) {
    if (!deflating_->ready) return;
    z_stream& stream = deflating_->stream;
    // zlib only reads them.
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    // Of no bytes it would begin anew.
    if (!bytes.empty()) deflating_->sum = ::crc32(deflating_->sum, stream.next_in, stream.avail_in);
    char room[16384];
    do {
        stream.next_out = reinterpret_cast<Bytef*>(room);
        stream.avail_out = sizeof(room);
        ::deflate(&stream, flush);
        compressed_.append(room, sizeof(room) - stream.avail_out);
    } while (stream.avail_out == 0);
}

/// What both the entry and the directory tell of it.
std::string ZipFile::header(std::uint32_t signature, std::size_t place) const {
    std::string text;
    put(text, signature, 4);
    if (signature == directorySignature) put(text, version, 2);
    put(text, version, 2);
    put(text, 0, 2);  // flags
    put(text, Z_DEFLATED, 2);
    put(text, 0, 2);  // time
    put(text, firstDate, 2);
    put(text, deflating_->sum, 4);
    put(text, compressed_.size(), 4);
    put(text, size_, 4);
    put(text, name_.size(), 2);
    put(text, 0, 2);  // no extra field
    if (signature == directorySignature) {
        put(text, 0, 2 + 2 + 2 + 4);  // no comment, disk 0, no attributes
        put(text, place, 4);
    }
    return text + name_;
}

void ZipFile::endEntry() {
    deflate({}, Z_FINISH);
    const std::string head = header(entrySignature, 0);
    directory_ += header(directorySignature, offset_);
    ++entries_;
    file_.append(head);
    file_.append(compressed_);
    offset_ += head.size() + compressed_.size();
    if (size_ > std::numeric_limits<std::uint32_t>::max() ||
        offset_ > std::numeric_limits<std::uint32_t>::max())
        file_.fail("Larger than such a file can be.");
}

void ZipFile::end() {
    std::string text = directory_;
    put(text, endSignature, 4);
    put(text, 0, 2 + 2);  // one disk
    put(text, entries_, 2);
    put(text, entries_, 2);
    put(text, directory_.size(), 4);
    put(text, offset_, 4);
    put(text, 0, 2);  // no comment
    file_.append(text);
}

}  // namespace velna
