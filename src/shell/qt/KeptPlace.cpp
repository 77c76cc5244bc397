#include "shell/qt/KeptPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "common/Complaint.h"
#include "shell/Settings.h"

namespace velna {
namespace {

/// As much of a window must be seen that it can be taken hold of.
constexpr int leastSeen = 64;  // pixels
/// Beyond it no screen goes, and the toolkit's sums go wrong.
constexpr int mostPixels = 1 << 20;

bool canBeSeen(const QRect& place) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        const QRect seen = screen->availableGeometry() & place;
        return seen.width() >= leastSeen && seen.height() >= leastSeen &&
               screen->availableGeometry().top() <= place.top();
    });
}

/// "left top width height"; an empty place where that is not what it says.
QRect placeIn(const QString& told) {
    int numbers[4] = {};
    const QStringList words = told.split(' ');
    if (words.size() != std::ssize(numbers)) return {};
    for (qsizetype i = 0; i < words.size(); ++i) {
        numbers[i] = words[i].toInt();
        if (std::abs(numbers[i]) > mostPixels) return {};
    }
    if (numbers[2] <= 0 || numbers[3] <= 0) return {};
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

}  // namespace

KeptPlace::KeptPlace(QWidget& window, Settings& settings, const std::string& name)
    : QObject(&window), window_(window), settings_(settings), key_("place-" + name) {
    window.installEventFilter(this);
}

bool KeptPlace::restore() {
    const QRect left = placeIn(QString::fromStdString(settings_.text(key_)));
    if (!canBeSeen(left)) return false;
    window_.setGeometry(left);
    return true;
}

void KeptPlace::keep() {
    const QRect left = window_.geometry();
    const bool byHand = !first_.isNull() && left != first_;
    first_ = {};
    if (!byHand) return;
    const QString text =
        QString("%1 %2 %3 %4").arg(left.x()).arg(left.y()).arg(left.width()).arg(left.height());
    const Outcome stored = settings_.store(key_, {text.toStdString()});
    if (stored.hasFailed())
        complain("the place of a window could not be remembered", stored.reason());
}

// The desktop may move a window until it has come up; its user moves it afterwards.
bool KeptPlace::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::WindowActivate && first_.isNull()) first_ = window_.geometry();
    if (event->type() == QEvent::Hide) keep();
    return false;
}

}  // namespace velna
