#include "output/FiguresJson.h"

#include "common/NumberText.h"
#include "output/FigureGroups.h"

namespace velna {

namespace {

void appendValue(std::string& out, int value) {
    appendInteger(out, value);
}

void appendValue(std::string& out, bool value) {
    out += value ? "true" : "false";
}

void appendValue(std::string& out, const Figure& value) {
    if (value)
        appendNumber(out, *value);
    else
        out += "null";
}

void appendObject(std::string& out, const FigureGroup& group) {
    const char* separator = "{\"";
    for (const NamedFigure& figure : group.figures) {
        out.append(separator).append(figure.key).append("\": ");
        std::visit([&out](const auto& value) { appendValue(out, value); }, figure.value);
        separator = ", \"";
    }
    out += '}';
}

}  // namespace

std::string figuresJson(const Figures& figures) {
    std::string out = "{\n  \"unit\": ";
    out += figures.units == inches ? "\"in\"" : "\"mm\"";
    bool inFuselages = false;
    const auto endFuselages = [&] {
        if (inFuselages) out += "\n  ]";
        inFuselages = false;
    };
    for (const FigureGroup& group : figureGroups(figures)) {
        const bool fuselage = group.key == fuselagesKey;
        if (fuselage && inFuselages) {
            out += ",\n    ";
        } else {
            endFuselages();
            out.append(",\n  \"").append(group.key).append(fuselage ? "\": [\n    " : "\": ");
            inFuselages = fuselage;
        }
        appendObject(out, group);
    }
    endFuselages();
    out += "\n}\n";
    return out;
}

}  // namespace velna
