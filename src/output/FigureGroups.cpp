#include "output/FigureGroups.h"

namespace velna {

namespace {

/// A figure's names, and where it lies in its group.
template <class Group, class Value = Figure>
struct Row {
    std::string_view key;
    const char* label;
    Quantity quantity;
    Value Group::*place;
};

constexpr Row<SurfaceFigures> surfaceRows[] = {
    {"area_projected_dm2", "Projected area", Quantity::Area, &SurfaceFigures::areaProjected},
    {"area_developed_dm2", "Developed area", Quantity::Area, &SurfaceFigures::areaDeveloped},
    {"span_mm", "Span", Quantity::Length, &SurfaceFigures::span},
    {"aspect_ratio", "Aspect ratio", Quantity::Ratio, &SurfaceFigures::aspectRatio},
    {"root_chord_mm", "Root chord", Quantity::Length, &SurfaceFigures::rootChord},
    {"tip_chord_mm", "Tip chord", Quantity::Length, &SurfaceFigures::tipChord},
    {"taper", "Taper", Quantity::Ratio, &SurfaceFigures::taper},
    {"root_x_mm", "Root leading edge, x", Quantity::Length, &SurfaceFigures::rootX},
    {"mac_mm", "Mean chord", Quantity::Length, &SurfaceFigures::meanChord},
    {"mac_x_mm", "Its leading edge, x", Quantity::Length, &SurfaceFigures::meanChordX},
    {"mac_y_mm", "Its place from the middle", Quantity::Length, &SurfaceFigures::meanChordY},
    {"quarter_x_mm", "Quarter point, x", Quantity::Length, &SurfaceFigures::quarterX},
    {"dihedral_deg", "Mean dihedral", Quantity::Angle, &SurfaceFigures::dihedral},
};

constexpr Row<FinFigures> finRows[] = {
    {"area_projected_dm2", "Projected area", Quantity::Area, &FinFigures::areaProjected},
    {"area_developed_dm2", "Developed area", Quantity::Area, &FinFigures::areaDeveloped},
    {"height_mm", "Height", Quantity::Length, &FinFigures::height},
    {"mac_mm", "Mean chord", Quantity::Length, &FinFigures::meanChord},
    {"mac_x_mm", "Its leading edge, x", Quantity::Length, &FinFigures::meanChordX},
    {"quarter_x_mm", "Quarter point, x", Quantity::Length, &FinFigures::quarterX},
};

constexpr Row<TailFigures> tailRows[] = {
    {"horizontal_arm_mm", "Stabiliser arm", Quantity::Length, &TailFigures::horizontalArm},
    {"horizontal_volume", "Stabiliser volume", Quantity::SmallRatio,
     &TailFigures::horizontalVolume},
    {"vertical_arm_mm", "Fin arm", Quantity::Length, &TailFigures::verticalArm},
    {"vertical_volume", "Fin volume", Quantity::SmallRatio, &TailFigures::verticalVolume},
};

constexpr Row<HullFigures, int> hullCounts[] = {
    {"number", "Number", {}, &HullFigures::number},
    {"count", "Hulls of this shape", {}, &HullFigures::count},
    {"sections", "Sections", {}, &HullFigures::sections},
    {"outline_points", "Outline points", {}, &HullFigures::outlinePoints},
};

constexpr Row<HullFigures> hullRows[] = {
    {"length_mm", "Length", Quantity::Length, &HullFigures::length},
    {"wetted_area_dm2", "Wetted area", Quantity::Area, &HullFigures::wettedArea},
    {"front_area_dm2", "Front end", Quantity::Area, &HullFigures::frontArea},
    {"rear_area_dm2", "Rear end", Quantity::Area, &HullFigures::rearArea},
    {"volume_cm3", "Volume", Quantity::Volume, &HullFigures::volume},
};

constexpr Row<BalanceFigures> balanceRows[] = {
    {"lift_slope_wing", "Lift slope, wing", Quantity::Slope, &BalanceFigures::liftSlopeWing},
    {"lift_slope_stabilizer", "Lift slope, stabiliser", Quantity::Slope,
     &BalanceFigures::liftSlopeStabilizer},
    {"downwash_gradient", "Downwash gradient", Quantity::SmallRatio,
     &BalanceFigures::downwashGradient},
    {"neutral_point_x_mm", "Neutral point, x", Quantity::Length, &BalanceFigures::neutralPointX},
    {"neutral_point_percent", "Neutral point", Quantity::Percent,
     &BalanceFigures::neutralPointPercent},
    {"margin_15_x_mm", "Range, forward end, x", Quantity::Length, &BalanceFigures::margin15X},
    {"margin_15_percent", "Range, forward end", Quantity::Percent,
     &BalanceFigures::margin15Percent},
    {"margin_5_x_mm", "Range, rear end, x", Quantity::Length, &BalanceFigures::margin5X},
    {"margin_5_percent", "Range, rear end", Quantity::Percent, &BalanceFigures::margin5Percent},
};

constexpr Row<FlightFigures> flightRows[] = {
    {"mass_g", "Mass", Quantity::Mass, &FlightFigures::mass},
    {"speed_kmh", "Speed", Quantity::Speed, &FlightFigures::speed},
    {"wing_loading_g_dm2", "Wing loading", Quantity::WingLoading, &FlightFigures::wingLoading},
    {"reynolds_root", "Reynolds number, root", Quantity::Reynolds, &FlightFigures::reynoldsRoot},
    {"reynolds_tip", "Reynolds number, tip", Quantity::Reynolds, &FlightFigures::reynoldsTip},
    {"reynolds_mac", "Reynolds number, mean chord", Quantity::Reynolds,
     &FlightFigures::reynoldsMeanChord},
};

template <class Group, class Rows>
void append(FigureGroup& target, const Group& group, const Rows& rows) {
    for (const auto& row : rows)
        target.figures.push_back({row.key, row.label, row.quantity, group.*row.place});
}

FigureGroup surfaceGroup(std::string_view key, const char* title, const SurfaceFigures& surface) {
    FigureGroup group{key, title, {}};
    group.figures.push_back({"panels", "Panels", {}, surface.panels});
    append(group, surface, surfaceRows);
    return group;
}

FigureGroup finGroup(const FinFigures& fin) {
    FigureGroup group{"fin", fin.count == 1 ? "Fin" : "Fins", {}};
    group.figures.push_back({"count", "Number", {}, fin.count});
    append(group, fin, finRows);
    return group;
}

FigureGroup hullGroup(const HullFigures& hull) {
    FigureGroup group{fuselagesKey, "Fuselage " + std::to_string(hull.number), {}};
    append(group, hull, hullCounts);
    group.figures.push_back({"folded", "Folded", {}, hull.folded});
    append(group, hull, hullRows);
    return group;
}

template <class Group, class Rows>
FigureGroup plainGroup(std::string_view key, const char* title, const Group& figures,
                       const Rows& rows) {
    FigureGroup group{key, title, {}};
    append(group, figures, rows);
    return group;
}

}  // namespace

std::vector<FigureGroup> figureGroups(const Figures& figures) {
    std::vector<FigureGroup> groups;
    groups.push_back(surfaceGroup("wing", "Wing", figures.wing));
    groups.push_back(surfaceGroup("stabilizer", "Stabiliser", figures.stabilizer));
    groups.push_back(finGroup(figures.fin));
    groups.push_back(plainGroup("tail", "Tail", figures.tail, tailRows));
    for (const HullFigures& hull : figures.fuselages) groups.push_back(hullGroup(hull));
    groups.push_back(plainGroup("balance", "Balance", figures.balance, balanceRows));
    groups.push_back(plainGroup("flight", "Flight", figures.flight, flightRows));
    return groups;
}

}  // namespace velna
