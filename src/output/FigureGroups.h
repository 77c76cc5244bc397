#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "model/Figures.h"

namespace velna {

/// What a figure is a number of.
enum class Quantity {
    Length,
    Area,
    Volume,
    Mass,
    Speed,
    Angle,
    Percent,
    Ratio,
    SmallRatio,
    Slope,
    WingLoading,
    Reynolds
};

/// A count, whether something is so, or a figure.
using FigureValue = std::variant<int, bool, Figure>;

/// One figure with its name in files and to the user.
struct NamedFigure {
    std::string_view key;
    const char* label;
    Quantity quantity;
    FigureValue value;
};

/// Figures that belong together: the wing's, or those of one fuselage.
struct FigureGroup {
    std::string_view key;
    std::string title;
    std::vector<NamedFigure> figures;
};

/// The key that the groups of all fuselages have in common.
inline constexpr std::string_view fuselagesKey = "fuselages";

/// All figures in their order, a group for each fuselage.
std::vector<FigureGroup> figureGroups(const Figures& figures);

}  // namespace velna
