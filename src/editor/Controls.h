#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace velna {

// clang-format off
/// Every control of the main window whose state the logic knows, by its name.
enum class Control {
    // tab 1, wing
    LengthBText, LengthEText, PosBText, PosEText, ElevationBText, ElevationEText,
    ThicknessBText, ThicknessEText, ShiftText, SpanText,
    // tab 2, stabiliser
    LengthBStabText, LengthEStabText, PosBStabText, PosEStabText, ElevationBStabText,
    ElevationEStabText, ThicknessBStabText, ThicknessEStabText, ShiftStabText, SpanStabText,
    // tab 3, rudder
    LengthBRudderText, LengthERudderText, PosBRudderText, PosERudderText, ThicknessBRudderText,
    ThicknessERudderText, SpanRudderText, ShiftRudderText, Offset1RudderText, Offset2RudderText,
    // tab 0, fuselage
    WidthFuselageText, HeightFuselageText, ElevationFuselageText, PosFuselageText, ElevOffsetText,
    NbCrossFuselageText, PosOffsetText, ShiftOffsetText,
    // tab 4, equipment
    WidthServoText, HeightServoText, LengthServoText, PosServoText, ShiftServoText,
    ElevationServoText,
    // scroll bars and their labels
    IndexWingsScroll, FuselageScroll, IndexFusScroll, IndexServosScroll,
    IdWingLabel, FuselageSectionLabel, IdFusLabel, IdEquipLabel,
    // shape of the section
    CurvatureSlider, Curvature2Slider, BiasSlider,
    UniqueCurvatureCheck, LinkedCurvaturesCheck, TransparentCheck,
    // push buttons
    IndexWingPlusButton, IndexWingMinusButton, IndexFusPlusButton, IndexFusMinusButton,
    IndexServosPlusButton, IndexServosMinusButton,
    SmoothTopCommand, SmoothDownCommand, SmoothWidthCommand,
    // equipment options and catalogues
    HorizontalServoOption, VerticalServoOption, ServoOption, ReceiverOption, AccuOption,
    ServosCombo, ReceiverCombo, AccuCombo,
    // frames and the tab strip
    FuselageVTopFrame, Parameters,
    // toolbar keys with a state
    VTopButton, FrontButton, SideButton, HTopButton, RenderButton, FlyingPreviewButton,
    UndoButton, RedoButton,
    // popup menu
    Popup, Change, InsRem, LoadBitmap, MoveBitmap, SizeBitmap, LockZoom, ClearBitmap,
    UndoStep, RedoStep, StartView, TracePicture,
    // the demonstration's floating sign
    ShiftButton,
    count
};
// clang-format on

inline constexpr std::size_t controlCount = static_cast<std::size_t>(Control::count);

/// What the text in a box is to the model.
enum class TextEntry {
    Filled,       ///< the program has written it
    Typed,        ///< the user has changed it, and the model knows nothing of it yet
    Taken,        ///< typed, and stored
    TakenInPart,  ///< typed; the number at its start is stored, 0 where there is none
    Refused,      ///< typed; the model keeps what it had
};

/// What a control shows. Each kind of control uses the fields that it has.
struct ControlState {
    std::string text;   ///< text box, label, caption
    int value = 0;      ///< scroll bar, slider, chosen entry of a combo, number of the open tab
    int maximum = 0;    ///< scroll bar
    double height = 0;  ///< BiasSlider, pixels
    TextEntry entry = TextEntry::Filled;  ///< text box
    bool checked = false;                 ///< check box, option, toggle, check mark
    bool enabled = true;
    bool visible = true;
};

/// The control's name as the code and the tests call it.
const char* controlName(Control control);

/// The states of all controls, and the only place where they are kept: the window mirrors them.
class ControlStates {
public:
    ControlState& operator[](Control control) { return states_[static_cast<std::size_t>(control)]; }
    const ControlState& operator[](Control control) const {
        return states_[static_cast<std::size_t>(control)];
    }

private:
    std::array<ControlState, controlCount> states_;
};

}  // namespace velna
