#include "editor/FieldNames.h"

#include "editor/Main.h"
#include "model/Project.h"

namespace velna {
namespace {

/// A control and what it changes.
struct NameRow {
    Control control;
    std::string_view name;
};

// A name that stands alone, without its tab beside it, says of what part it is; the wing's do not,
// for they are what most users mean.
constexpr NameRow names[] = {
    {Control::LengthBText, "Root chord"},
    {Control::LengthEText, "Tip chord"},
    {Control::PosBText, "Root position"},
    {Control::PosEText, "Tip sweep"},
    {Control::ElevationBText, "Root elevation"},
    {Control::ElevationEText, "Tip rise"},
    {Control::ThicknessBText, "Root thickness"},
    {Control::ThicknessEText, "Tip thickness"},
    {Control::ShiftText, "Root shift"},
    {Control::SpanText, "Full span"},

    {Control::LengthBStabText, "Stabilizer root chord"},
    {Control::LengthEStabText, "Stabilizer tip chord"},
    {Control::PosBStabText, "Stabilizer root position"},
    {Control::PosEStabText, "Stabilizer tip sweep"},
    {Control::ElevationBStabText, "Stabilizer root elevation"},
    {Control::ElevationEStabText, "Stabilizer tip rise"},
    {Control::ThicknessBStabText, "Stabilizer root thickness"},
    {Control::ThicknessEStabText, "Stabilizer tip thickness"},
    {Control::ShiftStabText, "Stabilizer root shift"},
    {Control::SpanStabText, "Stabilizer full span"},

    {Control::LengthBRudderText, "Fin root chord"},
    {Control::LengthERudderText, "Fin tip chord"},
    {Control::PosBRudderText, "Fin root position"},
    {Control::PosERudderText, "Fin tip sweep"},
    {Control::ThicknessBRudderText, "Fin root thickness"},
    {Control::ThicknessERudderText, "Fin tip thickness"},
    {Control::SpanRudderText, "Fin height"},
    {Control::ShiftRudderText, "Fin elevation"},
    {Control::Offset1RudderText, "Fin root offset"},
    {Control::Offset2RudderText, "Fin tip lean"},

    {Control::WidthFuselageText, "Section width"},
    {Control::HeightFuselageText, "Section height"},
    {Control::PosFuselageText, "Section position"},
    {Control::ElevationFuselageText, "Section elevation"},
    {Control::NbCrossFuselageText, "Outline points"},
    {Control::ElevOffsetText, "Body elevation"},
    {Control::PosOffsetText, "Body position"},
    {Control::ShiftOffsetText, "Body shift"},

    {Control::WidthServoText, "Box width"},
    {Control::HeightServoText, "Box height"},
    {Control::LengthServoText, "Box length"},
    {Control::PosServoText, "Box position"},
    {Control::ShiftServoText, "Box shift"},
    {Control::ElevationServoText, "Box elevation"},

    {Control::CurvatureSlider, "Shape of the upper half"},
    {Control::Curvature2Slider, "Shape of the lower half"},
    {Control::BiasSlider, "Height of the widest line"},
    {Control::UniqueCurvatureCheck, "One shape for all sections"},
    {Control::LinkedCurvaturesCheck, "Upper and lower half alike"},
    {Control::TransparentCheck, "Transparency"},

    {Control::IndexWingPlusButton, "Add panel"},
    {Control::IndexWingMinusButton, "Remove panel"},
    {Control::IndexFusPlusButton, "Add fuselage"},
    {Control::IndexFusMinusButton, "Remove fuselage"},
    {Control::IndexServosPlusButton, "Add box"},
    {Control::IndexServosMinusButton, "Remove box"},
    {Control::SmoothTopCommand, "Smooth upper edge"},
    {Control::SmoothDownCommand, "Smooth lower edge"},
    {Control::SmoothWidthCommand, "Smooth width"},

    {Control::ServoOption, "Box kind"},
    {Control::ReceiverOption, "Box kind"},
    {Control::AccuOption, "Box kind"},
    {Control::HorizontalServoOption, "Box orientation"},
    {Control::VerticalServoOption, "Box orientation"},
    {Control::ServosCombo, "Servo model"},
    {Control::ReceiverCombo, "Receiver model"},
    {Control::AccuCombo, "Accumulator model"},
};

}  // namespace

std::string_view fieldName(Control control) {
    for (const NameRow& row : names)
        if (row.control == control) return row.name;
    return {};
}

}  // namespace velna
