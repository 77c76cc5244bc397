#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace velna {

/// For as long as it stands the pointer tells that the program is at work, in all its windows.
/// Nothing where there are none.
class BusyPointer {
public:
    /// `needed`: whether the work may last.
    explicit BusyPointer(bool needed = true)
        : shown_(needed && qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        if (shown_) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~BusyPointer() {
        if (shown_) QGuiApplication::restoreOverrideCursor();
    }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    bool shown_;
};

}  // namespace velna
