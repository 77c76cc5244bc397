#include "shell/qt/PictureReading.h"

#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <cerrno>
#include <exception>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "shell/qt/BusyPointer.h"

namespace velna {
namespace {

using namespace std::string_view_literals;

/// How the files of a kind begin, and the toolkit's name of it.
struct PictureKind {
    std::string_view beginning;
    const char* format;
};

// Nothing else is decoded: a drawing or a document that takes a whole machine to paint is no
// picture for a wing.
constexpr PictureKind kinds[] = {
    {"BM"sv, "bmp"},          {"\0\0\1\0"sv, "ico"}, {"\xff\xd8\xff"sv, "jpeg"},
    {"\x89PNG\r\n"sv, "png"}, {"GIF87a"sv, "gif"},   {"GIF89a"sv, "gif"},
    {"II*\0"sv, "tiff"},      {"MM\0*"sv, "tiff"},   {"II+\0"sv, "tiff"},
    {"MM\0+"sv, "tiff"},
};

// The largest picture at the deepest pixels that a file can have, with room for what stands beside.
constexpr qint64 largestFile = qint64{2} << 30;
constexpr int deepestPixel = 16;  // bytes

constexpr const char* tooLarge = "The picture has more than 100 megapixels";

/// Opened by its bytes, since not every file name is a text. Where it is no regular file it stays
/// closed: a pipe that nobody writes to would hold the program for good.
bool open(QFile& device, const std::string& file, std::string& reason) {
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        reason = std::generic_category().message(errno);
        return false;
    }
    struct stat told {};
    if (fstat(descriptor, &told) == 0 && S_ISREG(told.st_mode) && told.st_size <= largestFile &&
        device.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return true;
    ::close(descriptor);
    reason = "Not a picture file";
    return false;
}

/// Lets `reader` read the picture in `device`, and nothing but its kind.
bool takeKind(QImageReader& reader, QFile& device, std::string& reason) {
    const QByteArray start = device.peek(8);
    const std::string_view bytes(start.constData(), static_cast<std::size_t>(start.size()));
    for (const PictureKind& kind : kinds) {
        if (!bytes.starts_with(kind.beginning)) continue;
        reader.setAutoDetectImageFormat(false);
        reader.setFormat(kind.format);
        reader.setDevice(&device);
        reader.setAutoTransform(false);  // as drawn, not as the camera was held
        return true;
    }
    reason = "Not a picture of a kind that can be read";
    return false;
}

bool hasTooManyPixels(QSize size) {
    return qint64{size.width()} * size.height() > mostPixels;
}

/// Room for every picture that is not refused, so that a deep one is not refused by another rule.
void allowMemory(QSize natural) {
    const qint64 pixels = natural.isValid() ? qint64{natural.width()} * natural.height() : 0;
    const qint64 bytes = std::max(4 * mostPixels, deepestPixel * pixels);
    QImageReader::setAllocationLimit(static_cast<int>((bytes >> 20) + 1));
}

QImage read(const std::string& file, QSize largest, std::string& reason) {
    QFile device;
    QImageReader reader;
    if (!open(device, file, reason) || !takeKind(reader, device, reason)) return {};
    const QSize natural = reader.size();
    allowMemory(natural);
    if (largest.isValid() && natural.width() > largest.width() &&
        natural.height() > largest.height())
        reader.setScaledSize(largest);
    const BusyPointer busy(takesLong(natural));
    QImage image = hasTooManyPixels(natural) ? QImage() : reader.read();
    if (hasTooManyPixels(natural) || hasTooManyPixels(image.size())) {
        reason = tooLarge;
        return {};
    }
    if (image.isNull()) reason = reader.errorString().toStdString();
    return image;
}

QSize readSize(const std::string& file) {
    std::string reason;
    {
        QFile device;
        QImageReader reader;
        if (!open(device, file, reason) || !takeKind(reader, device, reason)) return {};
        const QSize size = reader.size();
        if (size.isValid()) return hasTooManyPixels(size) ? QSize() : size;
    }
    return read(file, {}, reason).size();
}

}  // namespace

bool takesLong(QSize size) {
    constexpr qint64 pixelsOfATenth = 5'000'000;  // of a second, with a slow decoder
    return qint64{size.width()} * size.height() > pixelsOfATenth;
}

QImage readPicture(const std::string& file, QSize largest, std::string& reason) {
    try {
        return read(file, largest, reason);
    } catch (const std::exception&) {
        reason = "The picture needs more memory than there is";
        return {};
    }
}

QSize readPictureSize(const std::string& file) {
    try {
        return readSize(file);
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace velna
