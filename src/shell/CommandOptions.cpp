#include "shell/CommandOptions.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

#include "common/NumberText.h"
#include "shell/ExportKinds.h"

namespace velna {

namespace {

constexpr unsigned bit(ExportKind kind) {
    return 1U << static_cast<unsigned>(kind);
}

constexpr unsigned everyKind = ~0U;
constexpr unsigned pages = bit(ExportKind::Plans);
constexpr unsigned pictures = bit(ExportKind::Picture) | bit(ExportKind::VectorPicture);
constexpr unsigned drawings = pictures | bit(ExportKind::Drawing);

constexpr int largestSurface = 10000;  // pixels: a picture of a hundred megapixels
constexpr double largestSheet = 5000;  // millimetres: a page of PDF has an end
constexpr int largestNumber = 32767;   // of fuselages

struct NamedView {
    std::string_view name;
    int mode;
};
constexpr NamedView views[] = {{"top", ViewMode::VTop},
                               {"front", ViewMode::Front},
                               {"side", ViewMode::Side},
                               {"htop", ViewMode::HTop}};

struct NamedPlan {
    std::string_view name;
    bool PrintSelectRecord::*tick;
};
constexpr NamedPlan plans[] = {{"side", &PrintSelectRecord::Side},
                               {"sections", &PrintSelectRecord::frontSections},
                               {"top", &PrintSelectRecord::vtop},
                               {"front", &PrintSelectRecord::front},
                               {"htop", &PrintSelectRecord::htop}};

struct NamedSheet {
    std::string_view name;
    SheetSize size;
};
constexpr NamedSheet sheets[] = {
    {"A4", {210, 297}},  {"A3", {297, 420}},         {"A2", {420, 594}},       {"A1", {594, 841}},
    {"A0", {841, 1189}}, {"Letter", {215.9, 279.4}}, {"Legal", {215.9, 355.6}}};

template <class Row, std::size_t count>
const Row* named(const Row (&rows)[count], std::string_view name) {
    const auto* const row = std::ranges::find(rows, name, &Row::name);
    return row == std::end(rows) ? nullptr : row;
}

/// A whole number in plain digits from 1 to `most`.
std::optional<int> counted(std::string_view word, int most) {
    if (word.empty() || word.size() > 9 ||
        word.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    const int number = static_cast<int>(leadingNumber(word));
    if (number < 1 || number > most) return std::nullopt;
    return number;
}

/// The two sides of "WxH".
struct Sides {
    std::string_view width;
    std::string_view height;
};
Sides sidesOf(std::string_view word) {
    const auto cross = word.find('x');
    if (cross == std::string_view::npos) return {word, {}};
    return {word.substr(0, cross), word.substr(cross + 1)};
}

std::optional<double> sheetSide(std::string_view word) {
    // What a number may be led by elsewhere, blanks and signs, has no sense here.
    if (word.empty() || word.find_first_not_of("0123456789.") != std::string_view::npos)
        return std::nullopt;
    const std::optional<double> side = wholeNumber(word);
    return side && *side >= 1 && *side <= largestSheet ? side : std::nullopt;
}

bool takeVersion(Arguments& arguments, std::string_view /*word*/) {
    arguments.wish = Arguments::Wish::Version;
    return true;
}

bool takeHelp(Arguments& arguments, std::string_view /*word*/) {
    arguments.wish = Arguments::Wish::Help;
    return true;
}

bool takeExport(Arguments& arguments, std::string_view word) {
    arguments.wish = Arguments::Wish::Export;
    arguments.exports.out = word;
    return !word.empty();
}

bool takeKind(Arguments& arguments, std::string_view word) {
    const ExportKindRow* const row = kindOfEnding(word);
    if (row) arguments.exports.kind = row->kind;
    return row != nullptr;
}

bool takeView(Arguments& arguments, std::string_view word) {
    const NamedView* const view = named(views, word);
    if (view) arguments.exports.view = view->mode;
    return view != nullptr;
}

bool takePlan(Arguments& arguments, std::string_view word) {
    const NamedPlan* const plan = named(plans, word);
    if (plan) arguments.exports.plans.*(plan->tick) = true;
    return plan != nullptr;
}

bool takeFuselage(Arguments& arguments, std::string_view word) {
    const std::optional<int> number = counted(word, largestNumber);
    if (number) arguments.exports.fuselage = *number;
    return number.has_value();
}

bool takeSize(Arguments& arguments, std::string_view word) {
    const Sides sides = sidesOf(word);
    const bool square = sides.width.size() == word.size();
    const auto width = counted(sides.width, largestSurface);
    const auto height = square ? width : counted(sides.height, largestSurface);
    if (!width || !height) return false;
    arguments.exports.size = {static_cast<std::int16_t>(*width),
                              static_cast<std::int16_t>(*height)};
    return true;
}

bool takePaper(Arguments& arguments, std::string_view word) {
    if (const NamedSheet* const sheet = named(sheets, word)) {
        arguments.exports.sheet = sheet->size;
        return true;
    }
    const Sides sides = sidesOf(word);
    const auto width = sheetSide(sides.width);
    const auto height = sheetSide(sides.height);
    if (width && height) arguments.exports.sheet = {*width, *height, false};
    return width && height;
}

bool takeLandscape(Arguments& arguments, std::string_view /*word*/) {
    return arguments.exports.landscape = true;
}

bool takeTape(Arguments& arguments, std::string_view /*word*/) {
    return arguments.exports.plans.overlap = true;
}

constexpr OptionUse exports = OptionUse::Export;

constexpr OptionRow optionTable[] = {
    {"--export", "OUT", "write OUT, or each project's file into the folder OUT", exports, everyKind,
     false, takeExport},
    {"--as", "KIND", "the kind of file, where OUT's ending does not tell it", exports, everyKind,
     false, takeKind},
    {"--view", "top|front|side|htop", "the view; top if not told", exports, drawings, false,
     takeView},
    {"--fuselage", "N", "the fuselage being edited; 1 if not told", exports, drawings | pages,
     false, takeFuselage},
    {"--size", "N|WxH", "the drawing surface in pixels; 900x500 if not told", exports,
     pictures | pages, false, takeSize},
    {"--plan", "side|sections|top|front|htop", "a plan; each gets a file of its own", exports,
     pages, true, takePlan},
    {"--paper", "A4|A3|A2|A1|A0|Letter|Legal|WxH", "the sheet, WxH in mm; A4 if not told", exports,
     pages, false, takePaper},
    {"--landscape", "", "the sheet lies on its long side", exports, pages, false, takeLandscape},
    {"--tape", "", "sheets overlap and have marks, to be taped together", exports, pages, false,
     takeTape},
    {"--help", "", "this text", OptionUse::Alone, everyKind, true, takeHelp},
    {"--version", "", "the program's version", OptionUse::Alone, everyKind, true, takeVersion},
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
    text += std::string("\n        ") + option.help;
    if (option.repeatable && option.use != OptionUse::Alone) text += "; may be repeated";
    if (option.kinds != everyKind) text += " (" + endingsOf(option).substr(1) + ")";
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
        "--export needs no display. OUT is replaced without a question. The kinds of file:\n";
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
