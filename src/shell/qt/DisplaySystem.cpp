#include "shell/qt/DisplaySystem.h"

#include <QGuiApplication>
#include <QWidget>
#include <string>

#include "common/Complaint.h"

namespace velna::DisplaySystem {

void choose() {
    if (qEnvironmentVariableIsEmpty("DISPLAY") || qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return;
    qputenv("QT_QPA_PLATFORM",
            qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? "xcb" : "xcb;wayland");
}

bool isWayland() {
    return QGuiApplication::platformName().startsWith("wayland");
}

void standAbovePicture(QWidget& widget) {
    if (!isWayland()) widget.setAttribute(Qt::WA_NativeWindow);
}

void tellWhatIsDenied(bool logOutAsks) {
    complain(std::string("without an X server the demonstration moves a drawn pointer, which the "
                         "picture hides, windows stand where the desktop puts them, and a flight "
                         "leaves the toolbar beside the picture") +
             (logOutAsks ? "" : "; this desktop lets nobody ask before a log-out"));
}

}  // namespace velna::DisplaySystem
