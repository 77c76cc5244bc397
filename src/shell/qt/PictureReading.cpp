#include "shell/qt/PictureReading.h"

#include <QImageReader>
#include <QString>
#include <algorithm>

namespace velna {
namespace {

// Room for the largest pictures that cameras take; a header that promises more is refused unread,
// unless its decoder can deliver less.
constexpr int allocationLimit = 512;  // MiB

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
    else if (const QSize affordable = affordablePicture(natural); affordable != natural)
        reader.setScaledSize(affordable);
    QImage image = reader.read();
    if (image.isNull()) reason = reader.errorString().toStdString();
    return image;
}

QSize affordablePicture(QSize natural) {
    constexpr qint64 most = qint64{allocationLimit} << 20;
    while (qint64{4} * natural.width() * natural.height() > most)
        natural = {std::max(1, natural.width() / 2), std::max(1, natural.height() / 2)};
    return natural;
}

QSize readPictureSize(const std::string& file) {
    QImageReader reader(QString::fromStdString(file));
    prepare(reader);
    if (const QSize size = reader.size(); size.isValid()) return size;
    std::string reason;
    return readPicture(file, {}, reason).size();
}

}  // namespace velna
