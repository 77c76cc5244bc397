#include "shell/qt/QtPictures.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <QTransform>
#include <exception>

#include "shell/qt/BusyPointer.h"
#include "shell/qt/PictureReading.h"

namespace velna {
namespace {

constexpr int jpegQuality = 90;
constexpr const char* noMemory = "The picture needs more memory than there is";

}  // namespace

/// Runs a step on the picture; one that finds no memory leaves no picture.
void QtPictures::whereMemoryHasRoom(const std::function<void()>& step) {
    const BusyPointer busy(takesLong(image_.size()));
    try {
        step();
    } catch (const std::exception&) {
        image_ = {};
    }
}

bool QtPictures::load(const std::string& file, std::string& reason) {
    image_ = {};
    QImage picture = readPicture(file, {}, reason);
    if (picture.isNull()) return false;
    whereMemoryHasRoom([&] {
        // Clear parts of a picture are seen on white.
        if (picture.hasAlphaChannel()) {
            QImage flat(picture.size(), QImage::Format_RGB32);
            if (flat.isNull()) return;
            flat.fill(Qt::white);
            QPainter(&flat).drawImage(0, 0, picture);
            picture = std::move(flat);
        }
        // Qt turns and scales 32-bit pixels fastest; three bytes each are made once, at the end.
        image_ = std::move(picture).convertToFormat(QImage::Format_RGB32);
    });
    if (image_.isNull()) reason = noMemory;
    return !image_.isNull();
}

void QtPictures::rotateQuarter() {
    if (image_.isNull()) return;
    whereMemoryHasRoom([&] { image_ = image_.transformed(QTransform().rotate(90)); });
}

void QtPictures::resize(int width, int height) {
    if (image_.isNull() || QSize(width, height) == image_.size()) return;
    whereMemoryHasRoom([&] {
        image_ = image_.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                     .convertToFormat(QImage::Format_RGB32);
    });
}

PictureBytes QtPictures::pixels() {
    PictureBytes result;
    whereMemoryHasRoom([&] { copyPixels(result); });
    return image_.isNull() ? PictureBytes{} : result;
}

void QtPictures::copyPixels(PictureBytes& result) {
    constexpr int step = 10;  // per cent: the bar's repaints must not take longer than the copy
    result.width = image_.width();
    result.height = image_.height();
    const std::size_t rowBytes = 3UL * static_cast<std::size_t>(result.width);
    // Row by row, so that the large memory is written once and not cleared before.
    std::vector<unsigned char> row(rowBytes);
    result.bytes.reserve(rowBytes * static_cast<std::size_t>(result.height));
    for (int y = 0; y < result.height; ++y) {
        copied(static_cast<int>(100LL * y / result.height) / step * step);
        const auto* pixels = reinterpret_cast<const QRgb*>(image_.constScanLine(y));
        unsigned char* byte = row.data();
        for (int x = 0; x < result.width; ++x) {
            *byte++ = static_cast<unsigned char>(qRed(pixels[x]));
            *byte++ = static_cast<unsigned char>(qGreen(pixels[x]));
            *byte++ = static_cast<unsigned char>(qBlue(pixels[x]));
        }
        result.bytes.insert(result.bytes.end(), row.begin(), row.end());
    }
}

bool QtPictures::encode(PictureFormat format, std::string& bytes, std::string& reason) {
    try {
        QByteArray encoded;
        QBuffer buffer(&encoded);
        buffer.open(QIODevice::WriteOnly);
        QImageWriter writer(&buffer, format == PictureFormat::Bmp ? "bmp" : "jpeg");
        if (format == PictureFormat::Jpeg) writer.setQuality(jpegQuality);
        if (writer.write(image_)) {
            bytes.assign(encoded.constData(), static_cast<std::size_t>(encoded.size()));
            return true;
        }
        reason = writer.errorString().toStdString();
    } catch (const std::exception&) {
        reason = noMemory;
    }
    return false;
}

}  // namespace velna
