#include "output/CutParts.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "common/NumberText.h"
#include "common/Progress.h"
#include "model/FrontOutline.h"
#include "model/Fuselage.h"
#include "model/Panels.h"
#include "model/Region.h"

namespace velna {

namespace {

/// Ribs of all panels together: more points are no plan that anybody could draw.
constexpr long long mostPoints = 4'000'000;
constexpr long long ribsBetweenQuestions = 20;

/// A word about a rib names its panel, its number and its station.
std::string ribName(const CutRib& rib) {
    return rib.panel + ", rib " + std::to_string(rib.number) + " at " +
           lengthWithUnit(rib.rib.station.position, millimetres);
}

/// Takes skin and slots off the rib's outline.
void cutOne(CutRib& rib, const RibWishes& wishes, std::vector<std::string>& words) {
    rib.borders = {rib.rib.outline};
    if (wishes.skin == 0 && wishes.spars.empty()) return;
    Region region(rib.rib.outline);
    region.erode(wishes.skin);
    if (region.empty()) {
        rib.borders.clear();
        words.push_back(ribName(rib) + ": no rib, skin thicker than the rib.");
        return;
    }
    const std::vector<SlotCut> slots = cutSlots(region, rib.rib.chord, wishes.spars);
    bool touched = wishes.skin > 0;
    for (std::size_t n = 0; n < slots.size(); ++n) {
        touched = touched || slots[n].why.empty();
        if (!slots[n].why.empty()) {
            words.push_back(ribName(rib) + ": no slot " + std::to_string(n + 1) + ", " +
                            slots[n].why + '.');
        }
    }
    // Without skin and slots the outline stands as it is, crossings too.
    if (!touched) return;
    rib.borders = region.loops();
    if (region.pieces() > 1)
        words.push_back(ribName(rib) + ": " + std::to_string(region.pieces()) + " pieces.");
}

/// The stations of every panel, and how many points their ribs have together.
struct StationsOfAll {
    std::vector<std::vector<Station>> panels;
    long long ribs = 0;
    long long points = 0;
};

Outcome stationsOfAll(const std::vector<NamedPanel>& panels, int units, const StationWish& wish,
                      StationsOfAll& all) {
    for (const NamedPanel& named : panels) {
        std::vector<Station> stations;
        Outcome outcome = stationsOf(wish, developed(named.panel, units).span, stations);
        if (!outcome.isDone()) return outcome;
        const auto count = static_cast<long long>(stations.size());
        all.ribs += count;
        all.points += count * (named.panel.pointCount() + 1);
        if (all.points > mostPoints)
            return Outcome::failed("The ribs would have more than 4,000,000 points together.");
        all.panels.push_back(std::move(stations));
    }
    return {};
}

}  // namespace

std::string lengthWithUnit(double mm, int textUnits) {
    constexpr double most = std::numeric_limits<double>::max();
    mm = std::clamp(mm, -most, most);
    if (textUnits == inches) return fixedText(mm / Plane::millimetresPerInch, 3) + " in";
    return fixedText(mm, 2) + " mm";
}

Outcome collectRibs(const Project& project, const RibWishes& wishes, Progress* watcher,
                    std::vector<CutRib>& ribs, std::vector<std::string>& words) {
    const std::vector<NamedPanel> panels = namedPanels(project);
    StationsOfAll all;
    Outcome outcome = stationsOfAll(panels, project.units, wishes.stations, all);
    if (!outcome.isDone()) return outcome;
    Work work(watcher, all.ribs, ribsBetweenQuestions);
    for (std::size_t p = 0; p < panels.size(); ++p) {
        int number = 0;
        for (const Station& station : all.panels[p]) {
            if (!work.did(1)) return Outcome::cancelled();
            CutRib rib{
                panels[p].name, ++number, ribAt(panels[p].panel, project.units, station), {}};
            if (rib.rib.why.empty()) {
                cutOne(rib, wishes, words);
            } else {
                words.push_back(ribName(rib) + ": no rib, " + rib.rib.why + '.');
            }
            if (!rib.borders.empty()) ribs.push_back(std::move(rib));
        }
    }
    return {};
}

std::string sectionBorders(const Loop& outline, double skin, std::vector<Loop>& borders) {
    std::string why = whyNotCut(outline);
    if (!why.empty()) return why;
    borders = {outline};
    if (skin == 0) return {};
    Region region(outline);
    region.erode(skin);
    borders = region.loops();
    return borders.empty() ? "skin thicker than the section" : "";
}

namespace {

CutPart partOf(const CutRib& rib, const Lettering& lettering) {
    CutPart part;
    part.name = rib.panel + " rib " + threeDigits(rib.number);
    part.cut = rib.borders;
    part.engrave.push_back({Point2D{0, 0}, Point2D{rib.rib.chord, 0}});
    label(part,
          {rib.panel + ", rib " + std::to_string(rib.number),
           "at " + lengthWithUnit(rib.rib.station.position, lettering.units) + ", chord " +
               lengthWithUnit(rib.rib.chord, lettering.units)},
          lettering);
    return part;
}

Outcome ribParts(const Project& project, const RibWishes& wishes, const Lettering& lettering,
                 Progress* watcher, CutParts& result) {
    std::vector<CutRib> ribs;
    Outcome outcome = collectRibs(project, wishes, watcher, ribs, result.words);
    for (const CutRib& rib : ribs) result.parts.push_back(partOf(rib, lettering));
    return outcome;
}

/// Model and paper: backward in the plan is down on the sheet.
Point2D onSheet(const Point2D& inPlan) {
    return {inPlan.x, -inPlan.y};
}

constexpr double textBeside = 1;
constexpr double textRow = 1.3 * partTextHeight;

/// Writes at each station its number, place and chord, from its leading edge downward: at the tip
/// before it, else behind it. Stations nearer to each other than their texts have them in steps
/// below each other.
void writeStations(CutPart& part, const Planform& plan, const std::vector<Station>& stations,
                   int textUnits) {
    double freeFrom = 0;
    int row = 0;
    int number = 0;
    for (const Station& station : stations) {
        const bool tip = ++number == static_cast<int>(stations.size());
        const Point2D lead = onSheet(plan.leadingEdge(station.share));
        const Point2D trail = onSheet(plan.trailingEdge(station.share));
        if (number > 1 && !tip) part.engrave.push_back({lead, trail});
        const std::string place =
            std::to_string(number) + " at " + lengthWithUnit(station.position, textUnits);
        const std::string chord = "chord " + lengthWithUnit(lead.y - trail.y, textUnits);
        const double width =
            std::max(textWidth(place, partTextHeight), textWidth(chord, partTextHeight));
        const double left = tip ? lead.x - textBeside - width : lead.x + textBeside;
        row = left < freeFrom ? row + 1 : 0;
        if (row == 0) freeFrom = left + width + textBeside;
        const double share = plan.span > 0 ? std::clamp((left + width) / plan.span, 0.0, 1.0) : 0;
        const double edge = std::min(lead.y, onSheet(plan.leadingEdge(share)).y);
        const double base = edge - (1.2 + 2.3 * row) * textRow;
        part.texts.push_back({{left, base}, partTextHeight, place});
        part.texts.push_back({{left, base - textRow}, partTextHeight, chord});
    }
}

/// The panel's name and span, above the root's end of the trailing edge.
void writeName(CutPart& part, const std::string& text, const Planform& plan) {
    const double width = textWidth(text, partTextHeight);
    const double share = plan.span > 0 ? std::clamp(width / plan.span, 0.0, 1.0) : 0;
    const double edge =
        std::max(onSheet(plan.trailingEdge(0)).y, onSheet(plan.trailingEdge(share)).y);
    part.texts.push_back({{textBeside, edge + textRow / 2}, partTextHeight, text});
}

Outcome wingParts(const Project& project, const RibWishes& wishes, const Lettering& lettering,
                  CutParts& result) {
    for (const NamedPanel& named : namedPanels(project)) {
        const Planform plan = developed(named.panel, project.units);
        std::vector<Station> stations;
        Outcome outcome = stationsOf(wishes.stations, plan.span, stations);
        if (!outcome.isDone()) return outcome;
        CutPart part;
        part.name = named.name;
        part.turns = false;
        Loop outline;
        for (const Point2D& corner : plan.corners) outline.push_back(onSheet(corner));
        if (const std::string why = whyNotCut(outline); !why.empty()) {
            result.words.push_back(named.name + ": no plan, " + why + '.');
            continue;
        }
        part.cut.push_back(std::move(outline));
        writeStations(part, plan, stations, lettering.units);
        writeName(part, named.name + ", span " + lengthWithUnit(plan.span, lettering.units), plan);
        result.parts.push_back(std::move(part));
    }
    return {};
}

double middleOf(const CutPart& part) {
    const PartBox box = part.box();
    return (box.bottom + box.top) / 2;
}

/// The middle line of a section, from its lowest to its highest point.
void engraveMiddle(CutPart& part) {
    const PartBox box = part.box();
    part.engrave.push_back({Point2D{0, box.bottom}, Point2D{0, box.top}});
}

Outcome sectionParts(const Project& project, const RibWishes& wishes, const Lettering& lettering,
                     Progress* watcher, CutParts& result) {
    const MeshSections& body = Fuselage::current(project);
    const double mm = millimetresOf(project.units);
    FrontOutline front(body, {mm, -body.shift * mm, 0});
    Work work(watcher, body.sectionCount(), ribsBetweenQuestions);
    for (int i = 1; i <= body.sectionCount(); ++i) {
        if (!work.did(1)) return Outcome::cancelled();
        Loop outline;
        front.collect(i, outline);
        for (Point2D& point : outline) point.y = -point.y;
        const double at = (body.pos(body.storageIndex(i)) + body.pos_offset) * mm;
        const std::string name = "section " + std::to_string(i);
        CutPart part;
        part.name = "section " + threeDigits(i);
        const std::string why = sectionBorders(outline, wishes.skin, part.cut);
        if (!why.empty()) {
            result.words.push_back(name + " at " + lengthWithUnit(at, millimetres) + ": not cut, " +
                                   why + '.');
            continue;
        }
        engraveMiddle(part);
        labelBeside(part, {name, "at " + lengthWithUnit(at, lettering.units)}, lettering,
                    middleOf(part), 0);
        result.parts.push_back(std::move(part));
    }
    return {};
}

}  // namespace

Outcome cutParts(const Project& project, CutPlan plan, const RibWishes& wishes,
                 const Lettering& lettering, Progress* watcher, CutParts& parts) {
    switch (plan) {
        case CutPlan::wing:
            return wingParts(project, wishes, lettering, parts);
        case CutPlan::ribs:
            return ribParts(project, wishes, lettering, watcher, parts);
        default:
            return sectionParts(project, wishes, lettering, watcher, parts);
    }
}

}  // namespace velna
