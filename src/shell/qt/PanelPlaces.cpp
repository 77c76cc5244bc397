#include "shell/qt/PanelPlaces.h"

namespace velna {
namespace {

// A page to be read by columns.
// clang-format off
constexpr PanelPlace places[] = {
    {Control::WidthFuselageText,      0, 0, "Width",          "Image10", "width"},
    {Control::HeightFuselageText,     0, 1, "Height",         "Image10", "height"},
    {Control::PosFuselageText,        1, 0, "Position",       "Image11", "position"},
    {Control::ElevationFuselageText,  1, 1, "Elevation",      "Image11", "elevation"},
    {Control::NbCrossFuselageText,    2, 0, "Outline points", "Image10", "points"},
    {Control::ElevOffsetText,         2, 1, "Body elevation", "Image11", "body"},
    {Control::PosOffsetText,          3, 0, "Body position",  "Image12", "position"},
    {Control::ShiftOffsetText,        3, 1, "Body shift",     "Image12", "shift"},

    {Control::LengthBText,            0, 0, "Root chord",     "Image1",  "root"},
    {Control::LengthEText,            0, 1, "Tip chord",      "Image1",  "tip"},
    {Control::PosBText,               1, 0, "Root position",  "Image2",  "root"},
    {Control::PosEText,               1, 1, "Tip sweep",      "Image2",  "tip"},
    {Control::ElevationBText,         2, 0, "Root elevation", "Image3",  "root"},
    {Control::ElevationEText,         2, 1, "Tip rise",       "Image3",  "tip"},
    {Control::ThicknessBText,         3, 0, "Root thickness", "Image4",  "thickness"},
    {Control::ThicknessEText,         3, 1, "Tip thickness",  "Image4",  "thickness"},
    {Control::ShiftText,              4, 0, "Root shift",     "Image5",  "shift"},
    {Control::SpanText,               4, 1, "Full span",      "Image5",  "span"},

    {Control::LengthBStabText,        0, 0, "Root chord",     "Image1",  "root"},
    {Control::LengthEStabText,        0, 1, "Tip chord",      "Image1",  "tip"},
    {Control::PosBStabText,           1, 0, "Root position",  "Image2",  "root"},
    {Control::PosEStabText,           1, 1, "Tip sweep",      "Image2",  "tip"},
    {Control::ElevationBStabText,     2, 0, "Root elevation", "Image3",  "root"},
    {Control::ElevationEStabText,     2, 1, "Tip rise",       "Image3",  "tip"},
    {Control::ThicknessBStabText,     3, 0, "Root thickness", "Image4",  "thickness"},
    {Control::ThicknessEStabText,     3, 1, "Tip thickness",  "Image4",  "thickness"},
    {Control::ShiftStabText,          4, 0, "Root shift",     "Image5",  "shift"},
    {Control::SpanStabText,           4, 1, "Full span",      "Image5",  "span"},

    {Control::LengthBRudderText,      0, 0, "Root chord",     "Image6",  "root"},
    {Control::LengthERudderText,      0, 1, "Tip chord",      "Image6",  "tip"},
    {Control::PosBRudderText,         1, 0, "Root position",  "Image7",  "root"},
    {Control::PosERudderText,         1, 1, "Tip sweep",      "Image7",  "tip"},
    {Control::ThicknessBRudderText,   2, 0, "Root thickness", "Image4",  "thickness"},
    {Control::ThicknessERudderText,   2, 1, "Tip thickness",  "Image4",  "thickness"},
    {Control::SpanRudderText,         3, 0, "Height",         "Image8",  "span"},
    {Control::ShiftRudderText,        3, 1, "Elevation",      "Image8",  "shift"},
    {Control::Offset1RudderText,      4, 0, "Root offset",    "Image9",  "root"},
    {Control::Offset2RudderText,      4, 1, "Tip lean",       "Image9",  "tip"},

    {Control::WidthServoText,         0, 0, "Width",          "Image13", "width"},
    {Control::HeightServoText,        0, 1, "Height",         "Image13", "height"},
    {Control::LengthServoText,        1, 0, "Length",         "Image13", "length"},
    {Control::PosServoText,           1, 1, "Position",       "Image13", "position"},
    {Control::ShiftServoText,         2, 0, "Shift",          "Image13", "shift"},
    {Control::ElevationServoText,     2, 1, "Elevation",      "Image13", "elevation"},
};
// clang-format on

}  // namespace

std::span<const PanelPlace> panelPlaces() {
    return places;
}

}  // namespace velna
