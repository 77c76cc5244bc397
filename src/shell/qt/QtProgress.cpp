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
    if (!isTimeToLook()) return true;
    const double share = total > 0 ? static_cast<double>(done) / static_cast<double>(total) : 0;
    bar_->setValue(static_cast<int>(std::clamp(share, 0.0, 1.0) * (wholeBar - 1)));
    return look();
}

bool QtProgress::stillAtWork() {
    if (cancelled_) return false;
    return !isTimeToLook() || look();
}

// Shows the bar as soon as the command has taken long enough for one.
bool QtProgress::isTimeToLook() {
    if (!since_.isValid()) since_.start();
    if (since_.elapsed() < quietTime) return false;
    if (!bar_) showBar();
    if (shown_.isValid() && shown_.elapsed() < betweenLooks) return false;
    shown_.start();
    return true;
}

bool QtProgress::look() {
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
