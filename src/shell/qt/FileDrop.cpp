#include "shell/qt/FileDrop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QWidget>

#include "shell/ToolbarCommands.h"

namespace velna {
namespace {

constexpr const char* listOfAddresses = "text/uri-list";

bool isDrop(QEvent::Type type) {
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

}  // namespace

FileDrop::FileDrop(QWidget& window, ToolbarCommands& toolbar) : window_(window), toolbar_(toolbar) {
    window.setAcceptDrops(true);
    qApp->installEventFilter(this);
}

bool FileDrop::takes(const QDropEvent& event) const {
    return event.mimeData()->hasFormat(listOfAddresses) && toolbar_.takesFiles() &&
           !QApplication::activeModalWidget();
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
    if (!isDrop(event->type()) || !watched->isWidgetType()) return false;
    auto& drop = static_cast<QDropEvent&>(*event);
    if (static_cast<QWidget*>(watched)->window() != &window_ ||
        !drop.mimeData()->hasFormat(listOfAddresses))
        return false;
    if (!takes(drop)) {
        drop.ignore();
        return true;
    }
    drop.setDropAction(Qt::CopyAction);  // a file that is opened stays where it is
    drop.accept();
    if (event->type() != QEvent::Drop) return true;
    // The program that gives waits for the end of this event, and a question may follow.
    QTimer::singleShot(0, this,
                       [this, list = drop.mimeData()->data(listOfAddresses).toStdString()] {
                           window_.activateWindow();
                           toolbar_.openDropped(list);
                       });
    return true;
}

}  // namespace velna
