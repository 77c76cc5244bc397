#include "shell/qt/QtImaging.h"

#include <QBuffer>
#include <QImageWriter>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QProgressBar>
#include <QTransform>
#include <QVBoxLayout>
#include <cstring>

#include "common/ReplacedFile.h"
#include "shell/Ports.h"
#include "shell/qt/PictureReading.h"

namespace velna {
namespace {

constexpr int jpegQuality = 90;

QByteArray encode(const QImage& image, PictureFormat format, std::string& reason) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format == PictureFormat::Bmp ? "bmp" : "jpeg");
    if (format == PictureFormat::Jpeg) writer.setQuality(jpegQuality);
    if (writer.write(image)) return bytes;
    reason = writer.errorString().toStdString();
    return {};
}

}  // namespace

/// The form `Bitmap`: the picture being converted, and how far its copy is.
class ConversionForm : public QWidget {
public:
    explicit ConversionForm(QWidget& owner) : QWidget(&owner, Qt::Dialog) {
        setObjectName("Bitmap");
        setWindowTitle(applicationTitle);
        setAttribute(Qt::WA_ShowWithoutActivating);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&picture);
        layout->addWidget(&bar);
        bar.setObjectName("ProgressBar1");
    }

    QLabel picture;
    QProgressBar bar;
};

QtImaging::QtImaging(QWidget& owner) : owner_(owner) {}

QtImaging::~QtImaging() = default;

bool QtImaging::load(const std::string& file, std::string& reason) {
    QImage picture = readPicture(file, {}, reason);
    if (picture.isNull()) return false;
    // Clear parts of a picture are seen on white.
    if (picture.hasAlphaChannel()) {
        QImage flat(picture.size(), QImage::Format_RGB32);
        flat.fill(Qt::white);
        QPainter(&flat).drawImage(0, 0, picture);
        picture = std::move(flat);
    }
    image_ = picture.convertToFormat(QImage::Format_RGB888);
    if (image_.isNull()) reason = "The picture needs more memory than there is";
    return !image_.isNull();
}

void QtImaging::rotateQuarter() {
    image_ = image_.transformed(QTransform().rotate(90));
}

void QtImaging::resize(int width, int height) {
    if (QSize(width, height) == image_.size()) return;
    image_ = image_.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                 .convertToFormat(QImage::Format_RGB888);
}

PictureBytes QtImaging::pixels() {
    PictureBytes result{image_.width(), image_.height(), {}};
    const auto row = static_cast<std::size_t>(result.width) * 3;
    result.bytes.resize(row * static_cast<std::size_t>(result.height));
    for (int y = 0; y < result.height; ++y)
        std::memcpy(result.bytes.data() + row * static_cast<std::size_t>(y),
                    image_.constScanLine(y), row);
    return result;
}

bool QtImaging::save(const std::string& file, PictureFormat format, std::string& reason) {
    const QByteArray bytes = encode(image_, format, reason);
    if (bytes.isEmpty()) return false;
    ReplacedFile target(file);
    target.buffer().append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (target.commit()) return true;
    reason = target.error();
    return false;
}

void QtImaging::showProgress(int percent) {
    if (!form_) form_ = std::make_unique<ConversionForm>(owner_);
    if (!form_->isVisible()) {
        constexpr int largestShown = 512;
        const QImage shown = image_.width() > largestShown || image_.height() > largestShown
                                 ? image_.scaled(largestShown, largestShown, Qt::KeepAspectRatio)
                                 : image_;
        form_->picture.setPixmap(QPixmap::fromImage(shown));
        form_->show();
    }
    form_->bar.setValue(percent);
    form_->repaint();
}

void QtImaging::hideProgress() {
    if (form_) form_->hide();
}

void QtImaging::showError(const std::string& text) {
    QMessageBox::critical(&owner_, applicationTitle, QString::fromStdString(text));
}

}  // namespace velna
