#include "editor/Main.h"

#include <QApplication>

#include "preview/Flying.h"
#include "preview/Rendering.h"
#include "shell/Ports.h"
#include "shell/Startup.h"
#include "shell/qt/Accessibility.h"
#include "shell/qt/DisplaySystem.h"
#include "shell/qt/FrameStyle.h"
#include "shell/qt/GlideCursor.h"
#include "shell/qt/HelpWindow.h"
#include "shell/qt/LogOut.h"
#include "shell/qt/MainWindow.h"
#include "shell/qt/QtDesktop.h"
#include "shell/qt/QtDialogs.h"
#include "shell/qt/QtImaging.h"
#include "shell/qt/QtProgress.h"
#include "shell/qt/QtRenderContext.h"
#include "shell/qt/QtWindow.h"
#include "shell/qt/SdlJoystick.h"

using namespace velna;

int main(int argc, char** argv) {
    DisplaySystem::choose();
    QApplication application(argc, argv);
    QApplication::setApplicationName("velna");
    QApplication::setStyle(new FrameStyle);
    Accessibility::install();

    // The window and what stands behind each port.
    MainWindow mainWindow;
    QtDialogs dialogs(mainWindow);
    QtWindow window(mainWindow, dialogs);
    QtDesktop desktop(mainWindow);
    QtRenderContext context(mainWindow);
    QtImaging pictures(mainWindow);
    SdlJoystick joystick;
    QtProgress watcher;
    const LogOut logOut;
    if (DisplaySystem::isWayland()) DisplaySystem::tellWhatIsDenied(logOut.asks());

    Main.window = &window;
    Shell = {&desktop, &dialogs};
    Rendering::context = &context;
    Flying::joystick = &joystick;
    imaging = &pictures;
    progress = &watcher;

    // Splash, default aircraft, views, picture, settings; then events until the window closes.
    HelpWindow::instance().answerF1([] { return !Flying::running(); });
    Startup::run();
    GlideCursor::hide();
    return mainWindow.isVisible() ? QApplication::exec() : 0;
}
