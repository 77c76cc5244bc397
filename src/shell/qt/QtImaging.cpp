#include "shell/qt/QtImaging.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QScreen>
#include <QThread>
#include <QWindow>
#include <algorithm>
#include <exception>

#include "shell/Ports.h"

namespace velna {

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

void QtImaging::showProgress(int percent) {
    if (image().isNull()) return;
    try {
        if (!form_) form_ = std::make_unique<ConversionForm>(owner_);
        form_->showPercent(percent);
        if (percent == 0) form_->showPicture(image());
    } catch (const std::exception&) {
        form_.reset();  // the conversion goes on unseen
    }
}

void QtImaging::copied(int percent) {
    if (form_) form_->showPercent(percent);
}

void QtImaging::hideProgress() {
    // The picture may take more than the rest of the program.
    form_.reset();
    QtPictures::hideProgress();
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
