#include "output/FiguresText.h"

#include <algorithm>

#include "common/NumberText.h"
#include "output/FiguresJson.h"

namespace velna {

namespace {

/// How a quantity is shown: its unit and the digits behind the point.
struct Shown {
    const char* unit;
    int decimals;
};

Shown shown(Quantity quantity, int units) {
    switch (quantity) {
        case Quantity::Length:
            return units == inches ? Shown{"in", 3} : Shown{"mm", 1};
        case Quantity::Area:
            return {"dm2", 3};
        case Quantity::Volume:
            return {"cm3", 1};
        case Quantity::Mass:
            return {"g", 1};
        case Quantity::Speed:
            return {"km/h", 1};
        case Quantity::Angle:
            return {"deg", 2};
        case Quantity::Percent:
            return {"%", 1};
        case Quantity::Ratio:
            return {"", 3};
        case Quantity::SmallRatio:
            return {"", 4};
        case Quantity::Slope:
            return {"/rad", 3};
        case Quantity::WingLoading:
            return {"g/dm2", 1};
        case Quantity::Reynolds:
            break;
    }
    return {"", 0};
}

double inUnit(double value, Quantity quantity, int units) {
    const bool converted = quantity == Quantity::Length && units == inches;
    return converted ? Plane::mmToInches(value) : value;
}

struct TextOf {
    const NamedFigure& figure;
    int units;

    std::string operator()(int value) const { return std::to_string(value); }
    std::string operator()(bool value) const { return value ? "yes" : "no"; }
    std::string operator()(const Figure& value) const {
        if (!value) return {};
        return fixedText(inUnit(*value, figure.quantity, units),
                         shown(figure.quantity, units).decimals);
    }
};

constexpr std::size_t labelColumn = 30;
constexpr std::size_t valueColumn = 12;

/// Blanks that fill a column of `width` with `text` in it, one at least.
std::string filler(const std::string& text, std::size_t width) {
    return std::string(std::max(width, text.size() + 1) - text.size(), ' ');
}

}  // namespace

std::string figureText(const NamedFigure& figure, int units) {
    return std::visit(TextOf{figure, units}, figure.value);
}

std::string figureUnit(const NamedFigure& figure, int units) {
    if (!std::holds_alternative<Figure>(figure.value)) return {};
    return shown(figure.quantity, units).unit;
}

std::string figuresText(const Figures& figures) {
    std::string out;
    for (const FigureGroup& group : figureGroups(figures)) {
        if (!out.empty()) out += '\n';
        out += group.title + '\n';
        for (const NamedFigure& figure : group.figures) {
            const std::string label = std::string("  ") + figure.label;
            std::string text = figureText(figure, figures.units);
            const std::string unit = text.empty() ? "" : figureUnit(figure, figures.units);
            if (text.empty()) text = "-";
            out += label + filler(label, labelColumn) + filler(text, valueColumn) + text;
            if (!unit.empty()) out += ' ' + unit;
            out += '\n';
        }
    }
    return out;
}

std::string figuresOutput(const Project& project, const FiguresQuery& query) {
    const Figures figures = figuresOf(project, query.flight);
    return query.json ? figuresJson(figures) : figuresText(figures);
}

std::optional<double> flightNumber(std::string_view text) {
    const auto value = wholeNumber(text);
    return value && *value >= 0 ? value : std::nullopt;
}

}  // namespace velna
