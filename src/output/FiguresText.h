#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/Figures.h"
#include "output/FigureGroups.h"

namespace velna {

struct Project;

/// The value of a figure to be read, in a project of the given unit, without its unit's name; empty
/// where there is none.
std::string figureText(const NamedFigure& figure, int units);
/// The name of the figure's unit there: "mm", "in", "dm2"; empty for a bare number.
std::string figureUnit(const NamedFigure& figure, int units);

/// All figures to be read in a terminal: a line each under the names of their groups, columns
/// aligned, lengths in the project's unit.
std::string figuresText(const Figures& figures);

/// What was asked for of a project's figures.
struct FiguresQuery {
    bool json = false;
    Flight flight;
};

/// The text that answers `query`.
std::string figuresOutput(const Project& project, const FiguresQuery& query);

/// A mass or a speed typed by the user: the whole of `text` a finite number of at least 0, or
/// nothing.
std::optional<double> flightNumber(std::string_view text);

}  // namespace velna
