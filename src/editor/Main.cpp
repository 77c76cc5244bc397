#include "editor/Main.h"

#include "model/Project.h"

namespace velna {

namespace {

/// The panel's scroll bars start at their first element, the sliders at the middle of their shapes.
void presetPanel(ControlStates& controls) {
    for (Control bar : {Control::IndexWingsScroll, Control::FuselageScroll, Control::IndexFusScroll,
                        Control::IndexServosScroll}) {
        controls[bar].value = 1;
        controls[bar].maximum = 1;
    }
    for (Control label : {Control::IdWingLabel, Control::FuselageSectionLabel, Control::IdFusLabel,
                          Control::IdEquipLabel})
        controls[label].text = "1";
    controls[Control::CurvatureSlider].value = 100;
    controls[Control::Curvature2Slider].value = 100;
    controls[Control::BiasSlider].value = 50;
    controls[Control::VerticalServoOption].checked = true;
    controls[Control::ServoOption].checked = true;
    controls[Control::Parameters].value = PanelTab::wing;
}

/// Nothing is behind the views yet, and the program opens from above, where no section can be
/// inserted and the fuselage's own plan is out of reach.
void presetMenuAndToolbar(ControlStates& controls) {
    for (Control entry :
         {Control::MoveBitmap, Control::SizeBitmap, Control::ClearBitmap, Control::TracePicture,
          Control::InsRem, Control::HTopButton, Control::UndoButton, Control::RedoButton,
          Control::UndoStep, Control::RedoStep})
        controls[entry].enabled = false;
    for (Control control : {Control::FuselageVTopFrame, Control::ReceiverCombo, Control::AccuCombo,
                            Control::Popup, Control::ShiftButton})
        controls[control].visible = false;
    controls[Control::VTopButton].checked = true;
}

}  // namespace

MainForm::MainForm(Project& aircraft) : project(aircraft), views(aircraft) {
    presetPanel(controls);
    presetMenuAndToolbar(controls);
}

Canvas MainForm::canvas() const {
    const bool overPicture = view.firstPictureRefresh && !view.nothingToErase;
    return {*DrawArea,   view.transform(), view.erases(),
            overPicture, project.dimColor, project.highlightColor};
}

}  // namespace velna
