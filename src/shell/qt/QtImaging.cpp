#include "shell/qt/QtImaging.h"

#include <QBuffer>
#include <QImageWriter>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QProgressBar>
#include <QTransform>
#include <QVBoxLayout>

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
    // Qt turns and scales 32-bit pixels fastest; three bytes each are made once, at the end.
    image_ = std::move(picture).convertToFormat(QImage::Format_RGB32);
    if (image_.isNull()) reason = "The picture needs more memory than there is";
    return !image_.isNull();
}

void QtImaging::rotateQuarter() {
    image_ = image_.transformed(QTransform().rotate(90));
}

void QtImaging::resize(int width, int height) {
    if (QSize(width, height) == image_.size()) return;
    image_ = image_.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                 .convertToFormat(QImage::Format_RGB32);
}

PictureBytes QtImaging::pixels() {
    PictureBytes result{image_.width(), image_.height(), {}};
    result.bytes.resize(3UL * static_cast<std::size_t>(result.width) *
                        static_cast<std::size_t>(result.height));
    unsigned char* byte = result.bytes.data();
    for (int y = 0; y < result.height; ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image_.constScanLine(y));
        for (int x = 0; x < result.width; ++x) {
            *byte++ = static_cast<unsigned char>(qRed(row[x]));
            *byte++ = static_cast<unsigned char>(qGreen(row[x]));
            *byte++ = static_cast<unsigned char>(qBlue(row[x]));
        }
    }
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
