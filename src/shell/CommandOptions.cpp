#include "shell/CommandOptions.h"

#include <algorithm>
#include <iterator>

#include "shell/ExportKinds.h"
#include "shell/OptionValues.h"

namespace velna {

namespace {

using namespace OptionValues;

constexpr unsigned bit(ExportKind kind) {
    return 1U << static_cast<unsigned>(kind);
}

constexpr unsigned everyKind = ~0U;
constexpr unsigned pages = bit(ExportKind::Plans);
constexpr unsigned pictures = bit(ExportKind::Picture) | bit(ExportKind::VectorPicture);
constexpr unsigned views = pictures | bit(ExportKind::Drawing);
constexpr unsigned cutters = bit(ExportKind::Drawing) | bit(ExportKind::VectorPicture);
constexpr unsigned models = bit(ExportKind::Model);
constexpr unsigned solids =
    bit(ExportKind::Stl) | bit(ExportKind::ThreeMf) | bit(ExportKind::Obj) | bit(ExportKind::Glb);

constexpr OptionUse exports = OptionUse::Export;
constexpr OptionUse info = OptionUse::Info;

constexpr bool once = false;
constexpr bool often = true;

constexpr OptionRow optionTable[] = {
    {"--export", "OUT", "write OUT, or each project's file into the folder OUT", exports, everyKind,
     Drawn::anything, once, takeExport},
    {"--as", "KIND", "the kind of file, where OUT's ending does not tell it", exports, everyKind,
     Drawn::anything, once, takeKind},
    {"--view", "top|front|side|htop", "the view; top if not told", exports, views, Drawn::view,
     once, takeView},
    {"--fuselage", "N", "the fuselage being edited; 1 if not told", exports, views | pages,
     Drawn::view | Drawn::pages, once, takeFuselage},
    {"--size", "N|WxH", "the drawing surface in pixels; 900x500 if not told", exports,
     pictures | pages, Drawn::view | Drawn::pages, once, takeSize},
    {"--plan", "side|sections|top|front|htop|wing|ribs",
     "a plan, a file each; wing and ribs alone in .dxf and .svg", exports, pages | cutters,
     Drawn::anything, often, takePlan},
    {"--paper", "A4|A3|A2|A1|A0|Letter|Legal|WxH", "the sheet, WxH in mm; A4 if not told", exports,
     pages, Drawn::anything, once, takePaper},
    {"--landscape", "", "the sheet lies on its long side", exports, pages, Drawn::anything, once,
     takeLandscape},
    {"--tape", "", "sheets overlap and have marks, to be taped together", exports, pages,
     Drawn::anything, once, takeTape},
    {"--stations", "N", "so many ribs a panel, from 2 to 1000; 8 if not told", exports,
     cutters | pages, Drawn::cutting, once, takeRibWish},
    {"--spacing", "MM", "ribs so far apart, in place of a number of them", exports, cutters | pages,
     Drawn::cutting, once, takeRibWish},
    {"--skin", "MM", "taken off all round the ribs; 0 if not told", exports, cutters | pages,
     Drawn::cutting, once, takeRibWish},
    {"--slot", "P,W,D,top|bottom", "a spar slot at P % of the chord, W mm wide and D mm deep",
     exports, cutters | pages, Drawn::cutting, often, takeRibWish},
    {"--each", "", "a file for each part", exports, cutters | solids, Drawn::cutting | Drawn::solid,
     once, takeEach},
    {"--cut", "", "wings are cut at the borders of their panels", exports, solids, Drawn::anything,
     once, takeCut},
    {"--strict", "", "with the blank that strict readers ask for", exports, models, Drawn::anything,
     once, takeStrict},
    {"--info", "", "tell the figures of PROJECT: areas, tail volumes, balance", info, everyKind,
     Drawn::anything, often, takeInfo},
    {"--json", "", "tell them as JSON, in mm, dm2, cm3 and degrees", info, everyKind,
     Drawn::anything, once, takeJson},
    {"--mass", "G", "with this mass in grams, for the wing loading", info, everyKind,
     Drawn::anything, once, takeMass},
    {"--speed", "KMH", "with this speed in km/h, for the Reynolds numbers", info, everyKind,
     Drawn::anything, once, takeSpeed},
    {"--help", "", "this text", OptionUse::Alone, everyKind, Drawn::anything, often, takeHelp},
    {"--version", "", "the program's version", OptionUse::Alone, everyKind, Drawn::anything, often,
     takeVersion},
};

/// " .dxf .png" for the kinds of an option that only some have.
std::string endingsOf(const OptionRow& option) {
    std::string endings;
    for (const ExportKindRow& row : exportKinds())
        if (fits(option, row.kind)) endings += std::string(" .") + row.ending;
    return endings;
}

void appendOption(std::string& text, const OptionRow& option) {
    text += std::string("  ") + option.name;
    if (*option.argument) text += std::string(" ") + option.argument;
    if (option.kinds != everyKind) text += "  (" + endingsOf(option).substr(1) + ")";
    text += std::string("\n        ") + option.help;
    if (option.repeatable && *option.argument) text += "; may be repeated";
    text += '\n';
}

}  // namespace

std::span<const OptionRow> commandOptions() {
    return optionTable;
}

const OptionRow* optionNamed(std::string_view name) {
    const auto* const row = std::ranges::find(
        optionTable, name, [](const OptionRow& option) { return std::string_view(option.name); });
    return row == std::end(optionTable) ? nullptr : row;
}

bool fits(const OptionRow& option, ExportKind kind) {
    return (option.kinds & bit(kind)) != 0;
}

std::string helpText() {
    std::string text = usageText();
    text +=
        "\n"
        "Draws radio-controlled model aircraft. FILE is opened as the command Open does it:\n"
        "a project (.vln) takes the place of the default aircraft, an airfoil (.xy) or a\n"
        "picture goes onto its first wing.\n"
        "\n"
        "--export and --info need no display. OUT is replaced without a question. Its kinds:\n";
    for (const ExportKindRow& row : exportKinds())
        text += std::string("  .") + row.ending + "  " + row.help + '\n';
    text += "\nOptions:\n";
    for (const OptionRow& option : optionTable) appendOption(text, option);
    text +=
        "\n"
        "The exit status is 0 when all is done, 1 when something has failed, which is told on\n"
        "standard error, and 2 for a wrong call.\n";
    return text;
}

}  // namespace velna
