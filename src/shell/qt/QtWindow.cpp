#include "shell/qt/QtWindow.h"

#include "preview/Rendering.h"
#include "preview/ViewMouse.h"
#include "shell/ToolbarCommands.h"
#include "shell/qt/DrawArea.h"
#include "shell/qt/MainWindow.h"
#include "shell/qt/PopupMenu.h"
#include "shell/qt/QtDialogs.h"
#include "shell/qt/StripLabel.h"

namespace velna {
namespace {

constexpr const char* pictureFilter =
    "Picture File (*.bmp; *.ico; *.rle; *.wmf;*.emf;*.gif;*.jpg)|"
    "*.bmp; *.ico; *.rle; *.wmf;*.emf;*.gif;*.jpg";

}  // namespace

void QtWindow::changed(Control control) {
    window_.mirrors().show(control);
    window_.strip().later();
}

void QtWindow::catalogueFilled(Control combo) {
    window_.mirrors().show(combo);
}

void QtWindow::fuselageListChanged() {
    dialogs_.showFuselageRows();
}

void QtWindow::setCursor(CursorShape shape, CursorIcon icon) {
    window_.drawArea().setShape(shape, icon);
}

void QtWindow::openPopup(float x, float y) {
    window_.popup().popup(window_.drawArea().mapToGlobal(QPointF(x, y)).toPoint());
}

void QtWindow::renderScene(bool rebuild) {
    rendering_.renderScene(rebuild);
}

void QtWindow::holdPicture(bool on) {
    rendering_.hold(on);
}

void QtWindow::setViewTransform(double panX, double panY, double distance, double spin,
                                double tilt) {
    rendering_.setViewTransform(panX, panY, distance, spin, tilt);
}

void QtWindow::undo() {
    toolbar_.click(Toolbar::Key::Undo);
}

void QtWindow::redo() {
    toolbar_.click(Toolbar::Key::Redo);
}

void QtWindow::showStartView() {
    picture_.showStartView();
}

void QtWindow::promptFrustum() {
    toolbar_.frustumPrompt();
}

bool QtWindow::askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) {
    return dialogs_.askYesNo(text, icon, defaultYes);
}

std::string QtWindow::askPictureFile() {
    return dialogs_.openFile(pictureFilter, FilePurpose::Background).file;
}

std::optional<std::string> QtWindow::askText(const std::string& prompt, const std::string& title,
                                             const std::string& preset) {
    return dialogs_.askText(prompt, title, preset);
}

}  // namespace velna
