#include <cmath>

#include "common/NumberText.h"
#include "editor/Main.h"

namespace velna {

void MainForm::enablePictureEntries(bool on) {
    for (Control entry :
         {Control::MoveBitmap, Control::SizeBitmap, Control::ClearBitmap, Control::LockZoom})
        setEnabled(entry, on);
}

PicturePlace MainForm::shownPicture() const {
    const BackgroundPicture& picture = pictures[static_cast<std::size_t>(view.mode)];
    const Transform& at = view.byHand;
    return {{picture.position.x * at.zoom + at.xoff, picture.position.y * at.zoom + at.yoff},
            {picture.size.x * at.zoom, picture.size.y * at.zoom}};
}

void MainForm::paintPicture() {
    const auto [position, size] = shownPicture();
    DrawArea->paintPicture(pictureHere().file, position, size);
}

void MainForm::setDrawMode(DrawMode newMode) {
    view.drawMode = newMode;
    DrawArea->setDrawMode(newMode);
}

void MainForm::loadBitmapAction() {
    tracing = {};
    BackgroundPicture& picture = pictureHere();
    picture.file = window->askPictureFile();
    if (picture.file.empty()) {
        // Without a picture nothing has to stay aligned, and a lock that could not be taken off
        // would hold the scale for good.
        picture.shown = false;
        setChecked(Control::LockZoom, false);
        setEnabled(Control::LockZoom, false);
        setEnabled(Control::TracePicture, false);
        return;
    }
    clearBitmapAction();
    picture.shown = true;
    enablePictureEntries(true);
    setEnabled(Control::TracePicture, true);
    if (const auto natural = DrawArea->pictureSize(picture.file)) {
        picture.size = *natural;
        const Transform& at = view.byHand;
        picture.position = {(DrawArea->width() / 2 - at.xoff) / at.zoom - natural->x / 2,
                            (DrawArea->height() / 2 - at.yoff) / at.zoom - natural->y / 2};
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
    tracing = {};
    DrawArea->clear();
    pictureHere().shown = false;
    refreshDrawingArea();
    enablePictureEntries(false);
    setChecked(Control::LockZoom, false);
}

}  // namespace velna
