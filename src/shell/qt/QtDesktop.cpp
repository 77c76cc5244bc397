#include "shell/qt/QtDesktop.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDir>
#include <QEventLoop>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "common/ReplacedFile.h"
#include "shell/Startup.h"
#include "shell/qt/DrawArea.h"
#include "shell/qt/FiguresWindow.h"
#include "shell/qt/GlideCursor.h"
#include "shell/qt/HelpWindow.h"
#include "shell/qt/MainWindow.h"
#include "shell/qt/PanelWidgets.h"
#include "shell/qt/PopupMenu.h"
#include "shell/qt/Splash.h"

namespace velna {
namespace {

std::string folderText(const QString& folder) {
    const std::string text = folder.toStdString();
    return text.ends_with('/') ? text : text + '/';
}

}  // namespace

QtDesktop::QtDesktop(MainWindow& window, Startup& startup)
    : window_(window), main_(startup.main), settings_(startup.preferences.settings) {
    timer1_.setInterval(10);
    timer2_.setInterval(30);
    QObject::connect(&timer1_, &QTimer::timeout, [&startup] { startup.timer1Tick(); });
    QObject::connect(&timer2_, &QTimer::timeout, [&startup] { startup.timer2Tick(); });
}

QtDesktop::~QtDesktop() = default;

// A folder's name is bytes, and the toolkit's text does not hold them all.
std::string QtDesktop::programFolder() const {
    std::error_code failed;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
    if (failed) return folderText(QCoreApplication::applicationDirPath());
    return folderOf(program.string());
}

std::string QtDesktop::configurationFolder() const {
    return folderText(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
}

// The toolkit does not know this folder. What is no full path does not count, as the desktops
// agree.
std::string QtDesktop::stateFolder() const {
    const char* told = std::getenv("XDG_STATE_HOME");
    if (told && *told == '/') return std::string(told) + "/velna/";
    const char* home = std::getenv("HOME");
    const std::string own = home ? home : QDir::homePath().toStdString();
    return own + "/.local/state/velna/";
}

std::optional<int> QtDesktop::characterHeight() const {
    if (!QGuiApplication::primaryScreen()) return std::nullopt;
    return QFontMetrics(window_.font()).height();
}

void QtDesktop::layOutWindow(bool smallFonts) {
    window_.build(smallFonts);
    main_.DrawArea = &window_.drawArea().surface();
    main_.DrawSectionArea = &window_.panel().sectionArea().surface();
    window_.panel().sectionArea().surface().fitToWidget();
}

void QtDesktop::setCaption(const std::string& caption) {
    window_.setWindowTitle(QString::fromStdString(caption));
}

void QtDesktop::showSplash(const std::string& version, bool smallFonts) {
    splash_ = std::make_unique<Splash>(QString::fromStdString(version), smallFonts);
    splash_->show();
    splash_->repaint();
    QCoreApplication::processEvents();
}

void QtDesktop::hideSplash() {
    splash_.reset();
}

void QtDesktop::showMainWindow() {
    // Timer1 applies a stored unit: it must not tick before the settings are read, which comes
    // next.
    const bool waiting = timer1_.isActive();
    timer1_.stop();
    // Nothing is painted before the window has its size and its first page.
    window_.setUpdatesEnabled(false);
    window_.showMaximized();
    QCoreApplication::processEvents();
    if (waiting) timer1_.start();
    window_.start();
    window_.setUpdatesEnabled(true);
}

void QtDesktop::closeMainWindow() {
    window_.close();
}

void QtDesktop::endProcess() {
    std::_Exit(EXIT_SUCCESS);
}

void QtDesktop::enableTimer1(bool on) {
    on ? timer1_.start() : timer1_.stop();
}

void QtDesktop::enableTimer2(bool on) {
    on ? timer2_.start() : timer2_.stop();
}

bool QtDesktop::timer2Enabled() const {
    return timer2_.isActive();
}

void QtDesktop::pumpEvents() {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

Point2D QtDesktop::screenCentre() const {
    const QPointF centre = window_.mapFromGlobal(QPointF(window_.screen()->geometry().center()));
    return {centre.x(), centre.y()};
}

Point2D QtDesktop::drawAreaToWindow(Point2D pixel) const {
    return {pixel.x + window_.drawArea().x(), pixel.y + window_.drawArea().y()};
}

void QtDesktop::setCursorPosition(int x, int y) {
    GlideCursor::moveTo(window_, {x, y});
}

void QtDesktop::placeSign(int left, int top) {
    window_.placeSign(left, top);
}

void QtDesktop::openPopupAtCursor() {
    window_.popup().openUnasked(GlideCursor::position(window_));
}

void QtDesktop::toggleFigures() {
    window_.figures().toggle();
}

void QtDesktop::setHelpFile(const std::string& file) {
    HelpWindow::instance().setHelpFile(file);
}

void QtDesktop::placeHelpWindow(int x, int y, int width, int height) {
    HelpWindow& help = HelpWindow::instance();
    help.setPlace({window_.mapToGlobal(QPoint(x, y)), QSize(width, height)});
    // Over the picture a page can be read while the drawing is worked.
    help.keepPlace(settings_);
    help.setRoom([this] { return window_.picturePlace(); });
}

void QtDesktop::showHelpContents() {
    HelpWindow::instance().showContents();
}

void QtDesktop::closeHelp() {
    HelpWindow::quit();
}

}  // namespace velna
