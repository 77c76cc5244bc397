#include "support/Unzip.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>

#include <zlib.h>

namespace velna::test {
namespace {

constexpr std::uint32_t entrySignature = 0x04034b50;
constexpr std::uint32_t directorySignature = 0x02014b50;
constexpr std::uint32_t endSignature = 0x06054b50;
constexpr std::size_t entryHead = 30;
constexpr std::size_t directoryHead = 46;
constexpr std::size_t endSize = 22;

void expect(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

std::string_view part(std::string_view bytes, std::size_t from, std::size_t size) {
    expect(from <= bytes.size() && size <= bytes.size() - from, "the archive is cut");
    return bytes.substr(from, size);
}

template <class Number>
Number at(std::string_view bytes, std::size_t place) {
    Number number{};
    std::memcpy(&number, part(bytes, place, sizeof(Number)).data(), sizeof(Number));
    return number;
}

std::string inflated(std::string_view packed, std::size_t whole) {
    std::string result(whole, '\0');
    z_stream stream{};
    expect(inflateInit2(&stream, -MAX_WBITS) == Z_OK, "no memory to unpack");
    // zlib only reads them.
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(whole);
    const bool ended = inflate(&stream, Z_FINISH) == Z_STREAM_END && stream.total_out == whole;
    inflateEnd(&stream);
    expect(ended, "an entry has another size than told");
    return result;
}

/// The entry that the record at `place` of the archive's list tells of.
std::string entryAt(std::string_view bytes, std::size_t place, std::size_t nameSize) {
    const auto local = at<std::uint32_t>(bytes, place + 42);
    expect(at<std::uint32_t>(bytes, local) == entrySignature, "an entry is not where it is told");
    // Sum and both sizes.
    expect(part(bytes, local + 14, 12) == part(bytes, place + 16, 12),
           "an entry is told in two ways");
    const auto packed =
        part(bytes, local + entryHead + nameSize, at<std::uint32_t>(bytes, place + 20));
    std::string entry = inflated(packed, at<std::uint32_t>(bytes, place + 24));
    const auto sum =
        crc32(0, reinterpret_cast<const Bytef*>(entry.data()), static_cast<uInt>(entry.size()));
    expect(at<std::uint32_t>(bytes, place + 16) == sum, "an entry has another sum");
    return entry;
}

}  // namespace

std::map<std::string, std::string> unzipped(std::string_view bytes) {
    expect(bytes.size() >= endSize, "the archive is cut");
    const std::size_t end = bytes.size() - endSize;
    expect(at<std::uint32_t>(bytes, end) == endSignature, "the archive has no end");
    std::map<std::string, std::string> entries;
    std::size_t place = at<std::uint32_t>(bytes, end + 16);
    for (int n = 0; n < at<std::uint16_t>(bytes, end + 10); ++n) {
        expect(at<std::uint32_t>(bytes, place) == directorySignature,
               "the archive's list is broken");
        const std::size_t nameSize = at<std::uint16_t>(bytes, place + 28);
        const std::string name(part(bytes, place + directoryHead, nameSize));
        entries[name] = entryAt(bytes, place, nameSize);
        place += directoryHead + nameSize;
    }
    return entries;
}

}  // namespace velna::test
