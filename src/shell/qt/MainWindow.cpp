#include "shell/qt/MainWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QThread>
#include <QTimer>

#include "shell/Application.h"
#include "shell/qt/Bar.h"
#include "shell/qt/DisplaySystem.h"
#include "shell/qt/DrawArea.h"
#include "shell/qt/Drawings.h"
#include "shell/qt/FiguresWindow.h"
#include "shell/qt/PanelWidgets.h"
#include "shell/qt/ParameterBox.h"
#include "shell/qt/PopupMenu.h"
#include "shell/qt/RenderWindow.h"
#include "shell/qt/StayMaximised.h"
#include "shell/qt/StripLabel.h"
#include "shell/qt/WindowLayout.h"

namespace velna {
namespace {

void put(QWidget& widget, const Place& place) {
    widget.setGeometry(place.left, place.top, place.width, place.height);
}

// What stands above the panel where there is room: the longest that fits.
constexpr const char* mouseHints =
    "<b>Mouse</b><table cellspacing='2'>"
    "<tr><td>Drag</td><td>edits what is lit</td></tr>"
    "<tr><td>Shift + drag &nbsp;</td><td>the other direction</td></tr>"
    "<tr><td>Ctrl + click</td><td>adds or removes a section</td></tr>"
    "<tr><td>Right click</td><td>menu</td></tr></table>";
constexpr const char* keyHints =
    "<br><b>Keys over the drawing</b><table cellspacing='2'>"
    "<tr><td>Z</td><td>top view</td></tr><tr><td>X</td><td>front view</td></tr>"
    "<tr><td>C</td><td>side view</td></tr><tr><td>V</td><td>fuselage from above</td></tr>"
    "<tr><td>A</td><td>fits the section</td></tr><tr><td>S</td><td>renders</td></tr>"
    "<tr><td>F1 &nbsp; &nbsp;</td><td>help</td></tr></table>";

void showHints(QLabel& label, const Place& room) {
    for (const QString& text : {QString(mouseHints) + keyHints, QString(mouseHints)}) {
        label.setText(text);
        label.setVisible(label.heightForWidth(room.width) <= room.height);
        if (!label.isHidden()) return;
    }
}

/// A dialog's own loop runs: what has opened it goes on with the model when it returns.
bool insideDialog() {
    return QThread::currentThread()->loopLevel() > 1 || QApplication::activeModalWidget();
}

}  // namespace

MainWindow::MainWindow(Application& program) : program_(program), mirrors_(program.Main.controls) {
    setObjectName("Main");
    setProperty("helpPage", "main-window");
    setWindowIcon(Drawings::icon("icons/VTop", QColor("#2f80d0")));
}

// The focus goes from one part to the next while they go.
MainWindow::~MainWindow() {
    qApp->disconnect(this);
}

void MainWindow::build(bool smallFonts) {
    smallFonts_ = smallFonts;
    setGeometry(screen()->availableGeometry());
    winId();  // the native window that the picture's own window becomes a child of
    panel_ = new PanelWidgets(program_.Main, smallFonts, mirrors_, this);
    buildSurfaces();
    bar_ = new Bar(program_.toolbar, mirrors_, this);
    buildSigns();
    buildStrip();
    figures_ = new FiguresWindow(program_, *this);
    popup_ = new PopupMenu(program_.Main, mirrors_, this);
    for (auto* button : findChildren<QAbstractButton*>()) button->installEventFilter(this);
    layOut(size());
    connect(windowHandle(), &QWindow::screenChanged, this, [this] { followScreen(); });
}

void MainWindow::buildSurfaces() {
    drawArea_ = new DrawArea(program_.Main, program_.helper, this);
    renderWindow_ = new RenderWindow(program_.rendering, program_.renderPointer);
    render_ = QWidget::createWindowContainer(renderWindow_, this);
    render_->setFocusPolicy(Qt::NoFocus);
    render_->setAccessibleName("Picture");
    render_->setProperty("helpPage", "picture");
    drawArea_->setProperty("helpPage", "mouse-and-keys");
    // Black until the first picture, and where the picture stays dark.
    QPalette dark = render_->palette();
    dark.setColor(QPalette::Window, Qt::black);
    render_->setPalette(dark);
    render_->setAutoFillBackground(true);
}

void MainWindow::buildSigns() {
    hints_ = new QLabel(this);
    hints_->setObjectName("Hints");
    hints_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    hints_->setMargin(12);
    hints_->setWordWrap(true);
    logo_ = new QLabel(this);
    logo_->setObjectName("Logo");

    flyingInfo_ = new QLabel(this);
    flyingInfo_->setObjectName("FlyingInfo");
    DisplaySystem::standAbovePicture(*flyingInfo_);
    flyingInfo_->setAutoFillBackground(true);
    flyingInfo_->setMargin(6);
    flyingInfo_->hide();

    shiftButton_ = new QPushButton(this);
    shiftButton_->setObjectName(controlName(Control::ShiftButton));
    DisplaySystem::standAbovePicture(*shiftButton_);
    shiftButton_->setFocusPolicy(Qt::NoFocus);
    shiftButton_->hide();
    mirrors_.add(Control::ShiftButton, [this](const ControlState& state) {
        shiftButton_->setText(QString::fromStdString(state.text));
        shiftButton_->adjustSize();
        shiftButton_->setVisible(state.visible);
        shiftButton_->raise();
    });
}

void MainWindow::buildStrip() {
    strip_ = new StripLabel(program_.Main, *drawArea_, this);
    strip_->setProperty("helpPage", "strip");
    drawArea_->afterInput = [this] { strip_->later(); };
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (!started_) return;
        const auto* box = dynamic_cast<const ParameterBox*>(now);
        box ? enterField(program_.Main, box->control()) : leaveField(program_.Main);
        strip_->later();
    });
}

void MainWindow::layOut(QSize client) {
    const int barHeight = bar_->sizeHint().height();
    LayoutInput input{client.width(), client.height(), barHeight, 0, smallFonts_};
    input.panelNeeds = panel_->neededWidth(layOutWindow(input).parameters.height);
    const WindowLayout l = layOutWindow(input);
    put(*bar_, l.bar);
    put(*panel_, l.parameters);
    put(*drawArea_, l.drawArea);
    if (started_) {
        drawArea_->surface().fitToWidget();
        layOutSigns(l);
    }
    flyingInfo_->adjustSize();
    if (flight_) {
        render_->setGeometry(flightPlace());
    } else {
        put(*render_, l.render);
    }
    if (flight_) bar_->raise();
    const int above = DisplaySystem::isWayland() && flight_ ? -1 : flyingInfo_->height() + 8;
    flyingInfo_->move(render_->x() + 8, render_->geometry().bottom() - above);
}

// The whole screen, under the toolbar and the mode; where these cannot stand above the picture, the
// room between them.
QRect MainWindow::flightPlace() const {
    if (!DisplaySystem::isWayland()) return rect();
    return rect().adjusted(0, bar_->height(), 0, -flyingInfo_->height());
}

void MainWindow::layOutSigns(const WindowLayout& l) {
    // The picture of a flight covers all but the toolbar.
    if (flight_) {
        hints_->hide();
        logo_->hide();
        strip_->hide();
        return;
    }
    put(*hints_, l.hints);
    showHints(*hints_, l.hints);
    const QSize logo(l.logoWidth, l.foot.height - 8);
    logo_->setPixmap(Drawings::picture("Logo", logo, devicePixelRatioF(),
                                       palette().color(QPalette::WindowText)));
    logo_->setGeometry(l.logoLeft, l.foot.top + 4, logo.width(), logo.height());
    logo_->setVisible(l.logoVisible);
    put(*strip_, l.strip);
    strip_->setVisible(l.strip.height >= strip_->fontMetrics().height());
}

QSize MainWindow::renderSize() const {
    return render_->size();
}

QRect MainWindow::picturePlace() const {
    return {mapToGlobal(render_->pos()), render_->size()};
}

void MainWindow::setFlight(bool on) {
    flight_ = on;
    // What lies behind the picture must not take the keys: the model stays as it is.
    panel_->setEnabled(!on);
    drawArea_->setEnabled(!on);
    figures_->standAside(on);
    if (on) {
        setFocus();
        DisplaySystem::standAbovePicture(*bar_);
        showFullScreen();
    } else if (DisplaySystem::isWayland()) {
        showNormal();  // and then maximised: some desktops end a program that asks for both at once
    } else {
        showMaximized();
    }
    layOut(size());
}

void MainWindow::setFlyingInfo(bool visible, const QString& text) {
    flyingInfo_->setText(text);
    flyingInfo_->adjustSize();
    flyingInfo_->setVisible(visible);
    flyingInfo_->raise();
}

void MainWindow::placeSign(int left, int top) {
    shiftButton_->move(left, top);
}

void MainWindow::start() {
    started_ = true;
    figures_->start();
    new StayMaximised(*this);
    mirrors_.showAll();
    layOut(size());
    if (size() != QSize()) redraw();
}

void MainWindow::redraw() {
    if (!started_ || flight_) return;
    program_.Main.zoomSectionSet();
    program_.Main.refreshDrawingArea();
    program_.Main.updateFuselageInterface();
    drawArea_->surface().refresh();
    panel_->update();
}

void MainWindow::followScreen() {
    panel_->followScreen();
    layOut(size());
    redraw();
    renderWindow_->resized();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    if (!bar_) return;
    layOut(event->size());
    redraw();
    renderWindow_->resized();
}

void MainWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (!started_) return;
    // Another window has come up: what was being dragged is let go.
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && !program_.helper.running)
        program_.Main.cancelGesture();
    if (event->type() == QEvent::PaletteChange) layOut(size());
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!started_) return;
    if (insideDialog()) {
        event->ignore();
        closeAfterDialogs();
        return;
    }
    if (!program_.quit.queryUnload()) {
        event->ignore();
        return;
    }
    stop();
    figures_->keepPlace();
    program_.quit.unload();
    // The toolkit ends the program with the last window that it knows of; nothing is left to wait
    // for.
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
}

// A log-out closes the main window under an open dialog, which is cancelled first.
void MainWindow::closeAfterDialogs() {
    constexpr int nextTurn = 20;  // milliseconds
    while (QWidget* dialog = QApplication::activeModalWidget())
        if (!dialog->close()) break;
    QTimer::singleShot(nextTurn, this, &QWidget::close);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Home && !program_.helper.running)
        return program_.Main.menuClicked(Control::StartView);
    if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
    if (program_.flying.flying) {
        program_.toolbar.click(Toolbar::Key::FlyingPreview);
    } else if (program_.Main.tracing.active) {
        cancelTracing(program_.Main);
        drawArea_->surface().refresh();
        strip_->later();
    } else {
        program_.helper.stop();
    }
}

void MainWindow::formKeyUp(const QKeyEvent& event) {
    if (!started_ || flight_ || event.isAutoRepeat()) return;
    program_.Main.Form_keyup();
    drawArea_->surface().refresh();
}

// The releases that no control has kept for itself.
void MainWindow::keyReleaseEvent(QKeyEvent* event) {
    formKeyUp(*event);
    QWidget::keyReleaseEvent(event);
}

// A button keeps the key that has pressed it.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyRelease && static_cast<QAbstractButton*>(watched)->isDown())
        formKeyUp(static_cast<const QKeyEvent&>(*event));
    return false;
}

}  // namespace velna
