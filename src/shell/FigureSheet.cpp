#include "shell/FigureSheet.h"

#include "editor/Main.h"
#include "output/FiguresText.h"

namespace velna {

namespace {

constexpr double markSize = 6;  // pixels

/// The views in which the aircraft's length is seen.
struct MarkedView {
    std::int32_t mode;
    MarkView view;
};

constexpr MarkedView markedViews[] = {
    {ViewMode::VTop, MarkView::NoseUp},
    {ViewMode::Side, MarkView::Side},
    {ViewMode::HTop, MarkView::NoseLeft},
};

/// What is typed stands in its field, not among the lines.
bool isTyped(const NamedFigure& figure) {
    return figure.quantity == Quantity::Mass || figure.quantity == Quantity::Speed;
}

}  // namespace

void FigureSheet::type(Typed& field, const std::string& text) {
    field.value = flightNumber(text);
    field.taken = text.empty() || field.value;
}

bool FigureSheet::update() {
    return live_.update(main_.project, {mass_.value, speed_.value});
}

std::vector<FigureSheet::Line> FigureSheet::lines() const {
    const Figures& figures = live_.figures();
    std::vector<Line> lines;
    for (const FigureGroup& group : figureGroups(figures)) {
        lines.push_back({group.title, "", "", true});
        for (const NamedFigure& figure : group.figures) {
            if (isTyped(figure)) continue;
            const std::string value = figureText(figure, figures.units);
            lines.push_back({figure.label, value,
                             value.empty() ? "" : figureUnit(figure, figures.units), false});
        }
    }
    return lines;
}

std::string FigureSheet::text() const {
    return figuresText(live_.figures());
}

std::vector<MarkLine> FigureSheet::marksOnScreen() const {
    if (!showsMarks) return {};
    const ViewState& view = main_.view;
    for (const MarkedView& row : markedViews)
        if (row.mode == view.mode)
            return figureMarks(main_.project, live_.figures(), row.view,
                               {view.zoom, view.xoff, view.yoff}, markSize);
    return {};
}

}  // namespace velna
