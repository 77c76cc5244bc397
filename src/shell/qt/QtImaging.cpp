#include "shell/qt/QtImaging.h"

#include <QAbstractEventDispatcher>
#include <QBuffer>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QImageWriter>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QThread>
#include <QTransform>
#include <QWindow>
#include <algorithm>
#include <exception>

#include "shell/Ports.h"
#include "shell/qt/PictureReading.h"

namespace velna {
namespace {

constexpr int jpegQuality = 90;
constexpr const char* noMemory = "The picture needs more memory than there is";

}  // namespace

/// The form `Bitmap`: the picture being converted, and how far its copy is.
class ConversionForm : public QWidget {
public:
    explicit ConversionForm(QWidget& owner) : QWidget(&owner, Qt::Dialog) {
        setObjectName("Bitmap");
        setWindowTitle(applicationTitle);
        setAttribute(Qt::WA_ShowWithoutActivating);
        bar_.setObjectName("ProgressBar1");
    }

    /// Fits the form round `picture`, which is shown smaller where the screen has no room for it.
    void showPicture(const QImage& picture) {
        const QSize room = screen()->availableSize() - around - QSize(0, titleBar);
        const bool fits = picture.width() <= room.width() && picture.height() <= room.height();
        const QImage shown = fits ? picture : picture.scaled(room, Qt::KeepAspectRatio);
        picture_.setPixmap(QPixmap::fromImage(shown));
        picture_.setGeometry(QRect(QPoint(margin, margin), shown.size()));
        bar_.setGeometry(margin, picture_.geometry().bottom() + 1 + margin, shown.width(),
                         bar_.sizeHint().height());
        setFixedSize(shown.size() + around);
        show();
        paintNow();
    }
    void showPercent(int percent) { bar_.setValue(percent); }

private:
    /// Nothing else runs during a conversion: without this the screen would show a frame with
    /// nothing in it. The user's keys and clicks wait.
    void paintNow() {
        QDeadlineTimer patience(longestWait);
        do {
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                            QEventLoop::ExcludeSocketNotifiers);
        } while (!windowHandle()->isExposed() && !patience.hasExpired());
    }

    static constexpr int longestWait = 200;  // milliseconds
    static constexpr int margin = 10;
    static constexpr int titleBar = 40;
    static constexpr QSize around{20, 80};

    QLabel picture_{this};
    QProgressBar bar_{this};
};

QtImaging::QtImaging(QWidget& owner) : owner_(owner) {
    waiting_ =
        QObject::connect(QAbstractEventDispatcher::instance(),
                         &QAbstractEventDispatcher::aboutToBlock, [this] { waitsForTheUser(); });
}

QtImaging::~QtImaging() {
    QObject::disconnect(waiting_);
}

/// Runs a step on the picture; one that finds no memory leaves no picture.
void QtImaging::whereMemoryHasRoom(const std::function<void()>& step) {
    try {
        step();
    } catch (const std::exception&) {
        image_ = {};
    }
}

bool QtImaging::load(const std::string& file, std::string& reason) {
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

void QtImaging::rotateQuarter() {
    if (image_.isNull()) return;
    whereMemoryHasRoom([&] { image_ = image_.transformed(QTransform().rotate(90)); });
}

void QtImaging::resize(int width, int height) {
    if (image_.isNull() || QSize(width, height) == image_.size()) return;
    whereMemoryHasRoom([&] {
        image_ = image_.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                     .convertToFormat(QImage::Format_RGB32);
    });
}

PictureBytes QtImaging::pixels() {
    PictureBytes result;
    whereMemoryHasRoom([&] { copyPixels(result); });
    return image_.isNull() ? PictureBytes{} : result;
}

void QtImaging::copyPixels(PictureBytes& result) {
    constexpr int step = 10;  // per cent: the bar's repaints must not take longer than the copy
    result.width = image_.width();
    result.height = image_.height();
    const std::size_t rowBytes = 3UL * static_cast<std::size_t>(result.width);
    // Row by row, so that the large memory is written once and not cleared before.
    std::vector<unsigned char> row(rowBytes);
    result.bytes.reserve(rowBytes * static_cast<std::size_t>(result.height));
    for (int y = 0; y < result.height; ++y) {
        if (form_) form_->showPercent(static_cast<int>(100LL * y / result.height) / step * step);
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

bool QtImaging::encode(PictureFormat format, std::string& bytes, std::string& reason) {
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

void QtImaging::showProgress(int percent) {
    if (image_.isNull()) return;
    try {
        if (!form_) form_ = std::make_unique<ConversionForm>(owner_);
        form_->showPercent(percent);
        if (percent == 0) form_->showPicture(image_);
    } catch (const std::exception&) {
        form_.reset();  // the conversion goes on unseen
    }
}

void QtImaging::hideProgress() {
    // The picture may take more than the rest of the program.
    form_.reset();
    image_ = {};
}

void QtImaging::showError(const std::string& text) {
    if (told_.empty()) commandLoop_ = std::max(1, QThread::currentThread()->loopLevel());
    if (!told_.insert(text).second) return;
    boxOpen_ = true;
    QMessageBox::critical(&owner_, applicationTitle, QString::fromStdString(text));
    boxOpen_ = false;
}

/// The command is over when the loop that it came from waits for the next one; loops of its own
/// boxes and dialogs lie deeper.
void QtImaging::waitsForTheUser() {
    if (!boxOpen_ && QThread::currentThread()->loopLevel() <= commandLoop_) told_.clear();
}

}  // namespace velna
