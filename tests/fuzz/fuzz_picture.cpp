// Any bytes as a picture on a wing: read by the toolkit as the program calls it, converted for the
// picture and for the two files beside a project and a model. What comes is whole, or a word.
#include <QByteArray>
#include <QCoreApplication>
#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include <zlib.h>

#include "preview/Bitmap.h"
#include "shell/qt/PictureReading.h"
#include "shell/qt/QtPictures.h"
#include "support/Holds.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace velna::fuzz {
namespace {

std::uint32_t bigEndian(const std::uint8_t* at) {
    return std::uint32_t{at[0]} << 24 | std::uint32_t{at[1]} << 16 | std::uint32_t{at[2]} << 8 |
           at[3];
}

/// Makes the sums of a PNG's chunks right, without which nothing of them is looked at.
void repairPng(std::uint8_t* data, std::size_t size) {
    constexpr std::size_t head = 8;
    constexpr std::size_t around = 12;  // length, name and sum
    if (size < head || !std::string_view(reinterpret_cast<const char*>(data), size)
                            .starts_with("\x89PNG\r\n\x1a\n"))
        return;
    for (std::size_t at = head; size - at >= around;) {
        const std::size_t length = bigEndian(data + at);
        if (length > size - at - around) return;
        const auto sum =
            static_cast<std::uint32_t>(crc32(0, data + at + 4, static_cast<unsigned>(length + 4)));
        std::uint8_t* const place = data + at + 8 + length;
        for (int i = 0; i < 4; ++i) place[i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
        at += around + length;
    }
}

const std::string& file() {
    static const std::string path = scratchFolder() + "picture";
    return path;
}

/// A picture of more would take longer than all others together.
constexpr qint64 mostWorked = 1 << 20;

void expectConverted(QtPictures& pictures, bool turn, PictureFormat format) {
    const Bitmap::Converted result = Bitmap::converted(&pictures, file(), turn, format);
    const int told = (result.bytes.empty() ? 0 : 1) + (result.unreadable.empty() ? 0 : 1) +
                     (result.unwritable.empty() ? 0 : 1);
    if (told != 1) broken("a conversion that tells " + std::to_string(told) + " things");
    if (result.bytes.empty()) return;
    QImage back;
    if (!back.loadFromData(QByteArray::fromStdString(result.bytes)))
        broken("a converted picture cannot be read");
    for (const int size : {back.width(), back.height()})
        if (!std::has_single_bit(static_cast<unsigned>(size))) broken("a size that is no power");
}

/// Whether a damaged file of this kind may hold another picture than its head tells of.
bool isToldTwice(std::string_view bytes) {
    using namespace std::string_view_literals;
    return bytes.starts_with("GIF8") || bytes.starts_with("\0\0\1\0"sv);
}

void work(std::string_view bytes) {
    std::string reason;
    const QSize told = readPictureSize(file());
    if (qint64{told.width()} * told.height() > mostWorked) return;
    const QImage image = readPicture(file(), {}, reason);
    if (image.isNull() && reason.empty()) broken("a picture is refused without a word");
    if (!image.isNull() && image.size() != told && !isToldTwice(bytes))
        broken("a picture of another size than told");
    QtPictures pictures;
    const bool loaded = pictures.load(file(), reason);
    if (loaded == image.isNull()) broken("a picture that loads now and then");
    const PictureBytes pixels = pictures.pixels();
    const auto count =
        static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height);
    if (pixels.bytes.size() != 3 * count) broken("pixels that are not all there");
    expectConverted(pictures, true, PictureFormat::Bmp);
    expectConverted(pictures, false, PictureFormat::Jpeg);
}

}  // namespace
}  // namespace velna::fuzz

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    // The readers are plugins, which are looked for where an application says.
    static QCoreApplication application(*count, *arguments);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned) {
    size = LLVMFuzzerMutate(data, size, most);
    velna::fuzz::repairPng(data, size);
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velna::fuzz;
    std::ofstream(file(), std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    work({reinterpret_cast<const char*>(data), size});
    takeScratchFiles();
    return 0;
}
