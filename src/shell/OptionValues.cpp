#include "shell/OptionValues.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>

#include "common/NumberText.h"
#include "shell/CommandOptions.h"
#include "shell/ExportKinds.h"

namespace velna::OptionValues {

namespace {

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

constexpr PlanName plans[] = {{"side", &PrintSelectRecord::Side, {}},
                              {"sections", &PrintSelectRecord::frontSections, {}},
                              {"top", &PrintSelectRecord::vtop, {}},
                              {"front", &PrintSelectRecord::front, {}},
                              {"htop", &PrintSelectRecord::htop, {}},
                              {"wing", &PrintSelectRecord::wing, CutPlan::wing},
                              {"ribs", &PrintSelectRecord::ribs, CutPlan::ribs}};

struct NamedPaper {
    std::string_view name;
    PaperSize size;
};
constexpr NamedPaper papers[] = {
    {"A4", {210, 297}},  {"A3", {297, 420}},         {"A2", {420, 594}},       {"A1", {594, 841}},
    {"A0", {841, 1189}}, {"Letter", {215.9, 279.4}}, {"Legal", {215.9, 355.6}}};

template <class Row, std::size_t count>
const Row* named(const Row (&rows)[count], std::string_view name) {
    const auto* const row = std::ranges::find(rows, name, &Row::name);
    return row == std::end(rows) ? nullptr : row;
}

Outcome refuse(const OptionRow& option, std::string_view word) {
    return Outcome::failed(std::string(option.name) + " takes " + option.argument + ", not \"" +
                           std::string(word) + "\"");
}

/// A whole number in plain digits from 1 to `most`.
std::optional<int> counted(std::string_view word, int most) {
    constexpr std::size_t longest = 9;
    if (word.empty() || word.size() > longest ||
        word.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    const int number = static_cast<int>(leadingNumber(word));
    if (number < 1 || number > most) return std::nullopt;
    return number;
}

/// The two sides of "WxH"; no height where there is no "x".
struct Sides {
    std::string_view width;
    std::optional<std::string_view> height;
};
Sides sidesOf(std::string_view word) {
    const auto cross = word.find('x');
    if (cross == std::string_view::npos) return {word, {}};
    return {word.substr(0, cross), word.substr(cross + 1)};
}

std::optional<double> paperSide(std::string_view word) {
    // What a number may be led by elsewhere, blanks and signs, has no sense here.
    if (word.find_first_not_of("0123456789.") != std::string_view::npos) return std::nullopt;
    const std::optional<double> side = wholeNumber(word);
    return side && *side >= 1 && *side <= largestSheet ? side : std::nullopt;
}

Outcome takeFlight(Figure& figure, const OptionRow& option, std::string_view word) {
    const std::optional<double> number = flightNumber(word);
    if (!number) return refuse(option, word);
    figure = number;
    return {};
}

}  // namespace

Outcome takeVersion(Arguments& arguments, const OptionRow& /*option*/, std::string_view /*word*/) {
    arguments.wish = Arguments::Wish::Version;
    return {};
}

Outcome takeHelp(Arguments& arguments, const OptionRow& /*option*/, std::string_view /*word*/) {
    arguments.wish = Arguments::Wish::Help;
    return {};
}

Outcome takeExport(Arguments& arguments, const OptionRow& option, std::string_view word) {
    if (word.empty()) return refuse(option, word);
    arguments.wish = Arguments::Wish::Export;
    arguments.exports.out = word;
    return {};
}

Outcome takeKind(Arguments& arguments, const OptionRow& option, std::string_view word) {
    const ExportKindRow* const row = kindOfEnding(word);
    if (!row) return refuse(option, word);
    arguments.exports.kind = row->kind;
    return {};
}

Outcome takeView(Arguments& arguments, const OptionRow& option, std::string_view word) {
    const NamedView* const view = named(views, word);
    if (!view) return refuse(option, word);
    arguments.exports.view = view->mode;
    return {};
}

Outcome takePlan(Arguments& arguments, const OptionRow& option, std::string_view word) {
    const PlanName* const plan = named(plans, word);
    if (!plan) return refuse(option, word);
    arguments.exports.planNames.push_back(*plan);
    return {};
}

Outcome takeFuselage(Arguments& arguments, const OptionRow& option, std::string_view word) {
    const std::optional<int> number = counted(word, largestNumber);
    if (!number) return refuse(option, word);
    arguments.exports.fuselage = *number;
    return {};
}

Outcome takeSize(Arguments& arguments, const OptionRow& option, std::string_view word) {
    const Sides sides = sidesOf(word);
    const auto width = counted(sides.width, largestSurface);
    const auto height = sides.height ? counted(*sides.height, largestSurface) : width;
    if (!width || !height) return refuse(option, word);
    arguments.exports.size = {static_cast<std::int16_t>(*width),
                              static_cast<std::int16_t>(*height)};
    return {};
}

Outcome takePaper(Arguments& arguments, const OptionRow& option, std::string_view word) {
    if (const NamedPaper* const paper = named(papers, word)) {
        arguments.exports.paper = paper->size;
        return {};
    }
    const Sides sides = sidesOf(word);
    const auto width = paperSide(sides.width);
    const auto height = sides.height ? paperSide(*sides.height) : std::nullopt;
    if (!width || !height) return refuse(option, word);
    arguments.exports.paper = {*width, *height, false};
    return {};
}

Outcome takeLandscape(Arguments& arguments, const OptionRow& /*option*/,
                      std::string_view /*word*/) {
    arguments.exports.landscape = true;
    return {};
}

Outcome takeTape(Arguments& arguments, const OptionRow& /*option*/, std::string_view /*word*/) {
    arguments.exports.plans.overlap = true;
    return {};
}

Outcome takeRibWish(Arguments& arguments, const OptionRow& option, std::string_view word) {
    const std::string_view name = std::string_view(option.name).substr(2);
    const Outcome taken = velna::takeRibWish(arguments.exports.plans.wishes, name, word);
    if (taken.isDone()) return {};
    return Outcome::failed(std::string(option.name) + ": " + taken.reason());
}

Outcome takeEach(Arguments& arguments, const OptionRow& /*option*/, std::string_view /*word*/) {
    arguments.exports.plans.wishes.each = true;
    arguments.exports.solids.each = true;
    return {};
}

Outcome takeCut(Arguments& arguments, const OptionRow& /*option*/, std::string_view /*word*/) {
    arguments.exports.solids.cut = true;
    return {};
}

Outcome takeStrict(Arguments& arguments, const OptionRow& /*option*/, std::string_view /*word*/) {
    arguments.exports.spelling = VrmlSpelling::Strict;
    return {};
}

Outcome takeInfo(Arguments& arguments, const OptionRow& /*option*/, std::string_view /*word*/) {
    arguments.wish = Arguments::Wish::Info;
    return {};
}

Outcome takeJson(Arguments& arguments, const OptionRow& /*option*/, std::string_view /*word*/) {
    arguments.info.query.json = true;
    return {};
}

Outcome takeMass(Arguments& arguments, const OptionRow& option, std::string_view word) {
    return takeFlight(arguments.info.query.flight.mass, option, word);
}

Outcome takeSpeed(Arguments& arguments, const OptionRow& option, std::string_view word) {
    return takeFlight(arguments.info.query.flight.speed, option, word);
}

}  // namespace velna::OptionValues
