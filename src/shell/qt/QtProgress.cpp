#include "shell/qt/QtProgress.h"

#include <QApplication>
#include <QProgressDialog>
#include <algorithm>

namespace velna {
namespace {

constexpr qint64 quietTime = 1000;   // milliseconds
constexpr qint64 betweenLooks = 50;  // often enough for a Cancel, seldom enough to cost nothing
constexpr int wholeBar = 1000;

}  // namespace

bool QtProgress::step(long long done, long long total) {
    if (cancelled_) return false;
    if (!since_.isValid()) since_.start();
    if (since_.elapsed() < quietTime) return true;
    if (!bar_) showBar();
    if (shown_.isValid() && shown_.elapsed() < betweenLooks) return true;
    shown_.start();
    const double share = total > 0 ? static_cast<double>(done) / static_cast<double>(total) : 0;
    bar_->setValue(static_cast<int>(std::clamp(share, 0.0, 1.0) * (wholeBar - 1)));
    QApplication::processEvents();
    cancelled_ = !bar_ || bar_->wasCanceled();
    return !cancelled_;
}

void QtProgress::showBar() {
    bar_ = new QProgressDialog("Working ...", "Cancel", 0, wholeBar, QApplication::activeWindow());
    bar_->setObjectName("ProgressBar1");
    bar_->setWindowTitle("Velna");
    bar_->setWindowModality(Qt::ApplicationModal);
    bar_->setMinimumDuration(0);
    bar_->setAutoClose(false);
    bar_->show();
}

void QtProgress::finish() {
    delete bar_;
    since_.invalidate();
    shown_.invalidate();
    cancelled_ = false;
}

}  // namespace velna
