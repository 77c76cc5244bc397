#include "editor/Views.h"

#include "common/NumberText.h"

namespace velna {
namespace {

constexpr const ViewRow* viewRows[] = {&vtopView, &frontView, &sideView, &htopView};

}  // namespace

const ViewRow& viewOf(std::int32_t mode) {
    return *viewRows[mode - 1];
}

void MainForm::refreshDrawingArea() {
    enterView(viewOf(view.mode));
    if (renderPressed()) window->renderScene(true);
}

void MainForm::redrawAtSameScale() {
    enterView(viewOf(view.mode), true);
}

void MainForm::enterView(const ViewRow& row, bool keepsScale) {
    pointer.shiftkey = pointer.ctrlkey = false;
    for (const ViewRow* other : viewRows) setChecked(other->key, other == &row);
    // The points of a picture that is no longer seen are of no use.
    if (view.mode != row.mode) tracing = {};
    view.mode = row.mode;
    // What another view's Clear has disabled: this view's picture must be within reach.
    if (pictureShownHere()) enablePictureEntries(true);
    setEnabled(Control::TracePicture, pictureShownHere());
    initDrawArea(keepsScale);
    view.nothingToErase = true;
    row.enter(*this, canvas());
    drawTracingMarks(*this);
    view.nothingToErase = false;
    DrawArea->refresh();
}

SurfaceSize MainForm::drawAreaSize() const {
    return {roundToInt16(DrawArea->width()), roundToInt16(DrawArea->height())};
}

void MainForm::initDrawArea(bool keepsScale) {
    const bool fits = !checked(Control::LockZoom) && !keepsScale;
    if (fits) view.byHand = {};
    DrawArea->clear();
    if (pictureShownHere()) paintPicture();
    if (!fits) return;
    Transform before = Plane::unfitted(drawAreaSize(), view.yoff);
    before.xoff = DrawArea->width() / 2;
    const ViewRow& row = viewOf(view.mode);
    Fit fit = row.fitTail && tab() == PanelTab::rudder ? row.fitTail : row.fit;
    if (view.focusZoom && row.sections) {
        // The key A fits once.
        view.focusZoom = false;
        fit = row.sections->focus;
    }
    const Transform at = fit(project, drawAreaSize(), before);
    view.zoom = at.zoom;
    view.xoff = at.xoff;
    view.yoff = at.yoff;
}

}  // namespace velna
