#include "shell/qt/PictureReading.h"

#include <QImageReader>
#include <QString>

namespace velna {
namespace {

// Room for a scan of 8192 x 8192 at 32 bits; a header that promises more is refused unread.
constexpr int allocationLimit = 288;  // MiB

void prepare(QImageReader& reader) {
    QImageReader::setAllocationLimit(allocationLimit);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(false);  // as drawn, not as the camera was held
}

}  // namespace

QImage readPicture(const std::string& file, QSize largest, std::string& reason) {
    QImageReader reader(QString::fromStdString(file));
    prepare(reader);
    const QSize natural = reader.size();
    if (largest.isValid() && natural.width() > largest.width() &&
        natural.height() > largest.height())
        reader.setScaledSize(largest);
    QImage image = reader.read();
    if (image.isNull()) reason = reader.errorString().toStdString();
    return image;
}

QSize readPictureSize(const std::string& file) {
    QImageReader reader(QString::fromStdString(file));
    prepare(reader);
    if (const QSize size = reader.size(); size.isValid()) return size;
    std::string reason;
    return readPicture(file, {}, reason).size();
}

}  // namespace velna
