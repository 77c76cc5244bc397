#include <algorithm>

#include "common/MemoryEnds.h"
#include "editor/FieldNames.h"
#include "editor/HistoryStep.h"
#include "editor/Main.h"
#include "editor/PanelTable.h"

namespace velna {
namespace {

/// Moves a linked slider as the user would: its own change event runs if the value differs.
void moveSlider(MainForm& form, Control slider, int value) {
    if (form.controls[slider].value == value) return;
    form.setSlider(slider, value);
    form.sliderChanged(slider, value);
}

/// While one stands, the picture waits for its end.
struct OnePicture {
    explicit OnePicture(Window& window) : window_(window) { window_.holdPicture(true); }
    ~OnePicture() {
        asFarAsMemoryGoes([this] { window_.holdPicture(false); });
    }
    OnePicture(const OnePicture&) = delete;
    OnePicture& operator=(const OnePicture&) = delete;

private:
    Window& window_;
};

}  // namespace

void MainForm::sliderChanged(Control slider, int value) {
    const PanelSlider* row = panelSlider(slider);
    if (!row) return;
    const HistoryStep step(*this, fieldName(slider), visitOf(slider));
    const OnePicture ofBothSliders(*window);
    value = std::clamp(value, row->lowest, row->highest);
    controls[slider].value = value;
    savedProject = false;
    if (row->linked && checked(Control::LinkedCurvaturesCheck)) {
        panelSlider(*row->linked)->set(store(), value / 100.0);
        moveSlider(*this, *row->linked, value);
    }
    row->set(store(), value / 100.0);
    drawSection();
    refreshDrawingArea();
}

}  // namespace velna
