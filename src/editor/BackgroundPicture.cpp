#include <cmath>

#include "common/NumberText.h"
#include "editor/Main.h"

namespace velna {

void MainForm::enablePictureEntries(bool on) {
    for (Control entry :
         {Control::MoveBitmap, Control::SizeBitmap, Control::ClearBitmap, Control::LockZoom})
        setEnabled(entry, on);
}

void MainForm::paintPicture() {
    const BackgroundPicture& picture = pictureHere();
    DrawArea->paintPicture(picture.file, picture.position, picture.size);
}

void MainForm::setDrawMode(DrawMode newMode) {
    view.drawMode = newMode;
    DrawArea->setDrawMode(newMode);
}

void MainForm::loadBitmapAction() {
    BackgroundPicture& picture = pictureHere();
    picture.file = window->askPictureFile();
    if (picture.file.empty()) {
        // Without a picture nothing has to stay aligned, and a lock that could not be taken off
        // would hold the scale for good.
        picture.shown = false;
        setChecked(Control::LockZoom, false);
        setEnabled(Control::LockZoom, false);
        return;
    }
    clearBitmapAction();
    picture.shown = true;
    enablePictureEntries(true);
    if (const auto natural = DrawArea->pictureSize(picture.file)) {
        picture.size = *natural;
        picture.position = {DrawArea->width() / 2 - natural->x / 2,
                            DrawArea->height() / 2 - natural->y / 2};
    }
    picture.scale = 100;
    DrawArea->clear();
    paintPicture();
    DrawArea->refresh();
}

void MainForm::moveBitmapAction() {
    pointer.altkey = true;
}

void MainForm::sizeBitmapAction() {
    BackgroundPicture& picture = pictureHere();
    const auto answer =
        window->askText("Enter a resizing factor", "Size (%)", numberText(picture.scale));
    if (!answer || answer->empty()) return;
    const double scale = leadingNumber(*answer);
    if (std::isfinite(scale)) picture.scale = scale;
    if (const auto natural = DrawArea->pictureSize(picture.file))
        picture.size = {natural->x * picture.scale / 100, natural->y * picture.scale / 100};
    DrawArea->clear();
    paintPicture();
    DrawArea->refresh();
}

void MainForm::lockZoomAction() {
    setChecked(Control::LockZoom, !checked(Control::LockZoom));
}

void MainForm::clearBitmapAction() {
    DrawArea->clear();
    pictureHere().shown = false;
    refreshDrawingArea();
    enablePictureEntries(false);
    setChecked(Control::LockZoom, false);
}

}  // namespace velna
