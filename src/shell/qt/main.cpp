#include "shell/Application.h"
#include "shell/Arguments.h"
#include "shell/qt/Accessibility.h"
#include "shell/qt/CommandKeys.h"
#include "shell/qt/CommandLine.h"
#include "shell/qt/DisplaySystem.h"
#include "shell/qt/FileDrop.h"
#include "shell/qt/FrameStyle.h"
#include "shell/qt/GlideCursor.h"
#include "shell/qt/GuardedApplication.h"
#include "shell/qt/HelpWindow.h"
#include "shell/qt/KeepingTimer.h"
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
    const Arguments arguments = Arguments::read({argv + 1, argv + argc});
    if (arguments.wish != Arguments::Wish::Run) return runWithoutWindow(arguments);
    DisplaySystem::choose();
    GuardedApplication application(argc, argv);
    QApplication::setApplicationName("velna");
    QGuiApplication::setDesktopFileName("velna");
    QApplication::setStyle(new FrameStyle);
    Accessibility::install();

    // The window and what stands behind each port.
    Application program;
    MainWindow mainWindow(program);
    QtDialogs dialogs(mainWindow, program.preferences, program.print, program.startup);
    QtWindow window(mainWindow, dialogs, program.rendering, program.renderPointer, program.toolbar);
    QtDesktop desktop(mainWindow, program.startup);
    QtRenderContext context(mainWindow, program.quit);
    QtImaging pictures(mainWindow);
    SdlJoystick joystick;
    QtProgress watcher;
    const LogOut logOut(program.quit);
    if (DisplaySystem::isWayland()) DisplaySystem::tellWhatIsDenied(logOut.asks());

    program.Main.window = &window;
    program.shell = {&desktop, &dialogs, &watcher};
    program.rendering.context = &context;
    program.rendering.imaging = &pictures;
    program.pictures.imaging = &pictures;
    program.flying.joystick = &joystick;

    // Splash, default aircraft, views, picture, settings; then events until the window closes.
    HelpWindow::instance().answerF1([&program] { return !program.flying.running(); });
    const KeepingTimer keeping(program);
    const CommandKeys keys(mainWindow, program);
    const FileDrop drop(mainWindow, program.toolbar);
    application.whenMemoryEnds = [&program] { program.memory.takeBack(); };
    application.guard([&] { program.run(arguments.file); });
    GlideCursor::hide();
    return mainWindow.isVisible() ? QApplication::exec() : 0;
}
