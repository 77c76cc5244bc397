#include "support/FileWorks.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "model/Fuselage.h"
#include "model/MeshSections.h"
#include "model/SolidParts.h"
#include "model/Solids.h"
#include "output/CutFiles.h"
#include "output/Exports.h"
#include "output/FiguresJson.h"
#include "output/FiguresText.h"
#include "output/Plans.h"
#include "output/PrinterSurface.h"
#include "output/SolidExport.h"
#include "preview/PictureCopies.h"
#include "support/Holds.h"

namespace velna::fuzz {
namespace {

/// Paper that takes finite numbers only.
class StrictPaper : public PrinterSurface {
public:
    void setScaleMode(int) override {}
    double ScaleWidth() const override { return 190; }
    double ScaleHeight() const override { return 277; }
    void Line(double x1, double y1, double x2, double y2, Rgb) override {
        lines_ += 1;
        // Only what lies on the sheet is drawn, and a plan may reach far beyond it.
        if (std::isnan(x1) || std::isnan(y1) || std::isnan(x2) || std::isnan(y2))
            broken("a plan's line is no number");
    }
    void Text(double x, double y, const std::string& text) override {
        if (!std::isfinite(x) || !std::isfinite(y)) broken("a plan's text lies nowhere");
        if (!unfiniteWord(text).empty()) broken("a plan says " + text);
    }
    void StartDoc(const std::string&, Progress*) override {}
    void NewPage() override {}
    Outcome EndDoc() override { return {}; }
    void KillDoc() override {}
    std::string error() const override { return lines_ > mostLines ? "enough" : ""; }

private:
    static constexpr long long mostLines = 20'000;
    long long lines_ = 0;
};

/// What ribs are wished to be like: usual ones first, then the bounds of each wish.
RibWishes wishesOf(const Choice& choice, std::size_t number) {
    const RibWishes wishes[] = {
        {{4, 0}, 1.5, {{30, 6, 4, SlotSide::top}, {65, 3, 3, SlotSide::bottom}}, false},
        {{2, 0}, 0, {}, true},
        {{8, 0}, 0, {{0, 1e9, 0.001, SlotSide::bottom}, {100, 1e-9, 1e9, SlotSide::top}}, false},
        {{8, 37.5}, 1e-9, {{50, 10, 2, SlotSide::top}, {50, 10, 2, SlotSide::bottom}}, true},
        {{8, 1e-3}, 30, {{-5, 3, 3, SlotSide::top}}, false},
        {{40, 0}, 0.6, {{33.3, 5, 200, SlotSide::top}}, false},
    };
    return wishes[choice.form(number, std::size(wishes))];
}

void expectFiles(const std::string& what, const Outcome& outcome) {
    expectWord(what, outcome);
    for (const auto& [name, bytes] : takeScratchFiles()) {
        expectFinite(name, bytes);
        if (name.ends_with(".stl")) expectClosedStl(name, bytes);
    }
}

void expectSound(const std::string& what, const std::vector<std::string>& words) {
    for (const std::string& word : words)
        if (word.empty() || !unfiniteWord(word).empty()) broken(what + " says: " + word);
}

template <VrmlSpelling spelling>
void saveModel(const Project& aircraft, const Choice&, std::size_t) {
    Project exported = aircraft;
    Solids built;
    built.createAll(exported);
    PictureStore none;
    const Outcome outcome =
        Plane::exportVRML(exported, built, scratchFolder() + "m.wrl", none, nullptr, spelling);
    if (!outcome.isDone()) broken("a model cannot be written: " + outcome.reason());
    expectFiles("a model", outcome);
}

template <Outcome (*save)(const Project&, const std::string&, Progress*)>
void saveDrawing(const Project& aircraft, const Choice&, std::size_t) {
    const Outcome outcome = save(aircraft, scratchFolder() + "d.dxf", nullptr);
    if (!outcome.isDone()) broken("a drawing cannot be written: " + outcome.reason());
    expectFiles("a drawing", outcome);
}

template <PlanJob job, bool overlap>
void print(const Project& aircraft, const Choice& choice, std::size_t number) {
    StrictPaper paper;
    PrintSelectRecord select;
    select.overlap = overlap;
    select.ribs = overlap;
    select.wishes = wishesOf(choice, number);
    std::vector<std::string> words;
    // A plan of no sheets, or of too many, is refused with a reason.
    expectWord("a plan", Plans::previewJob(aircraft, select, job,
                                           {.printer = paper,
                                            .area = {900, 500},
                                            .watcher = nullptr,
                                            .words = &words,
                                            .figureMarks = overlap}));
    expectSound("a plan", words);
}

template <CutPlan plan, CutFormat format>
void saveParts(const Project& aircraft, const Choice& choice, std::size_t number) {
    const char* const file = format == CutFormat::dxf ? "cut.dxf" : "cut.svg";
    std::vector<std::string> words;
    expectFiles("a plan to be cut", saveCutPlan(aircraft, plan, format, wishesOf(choice, number),
                                                scratchFolder() + file, words));
    expectSound("a plan to be cut", words);
}

SolidOptions solidOptionsOf(const Choice& choice, std::size_t number) {
    const std::size_t form = choice.form(number, 4);
    return {form % 2 != 0, form / 2 != 0};
}

template <SolidFormat format>
void saveSolids(const Project& aircraft, const Choice& choice, std::size_t number) {
    constexpr const char* files[] = {"s.stl", "s.3mf", "s.obj", "s.glb"};
    PictureStore none;
    expectFiles(
        "a file of solids",
        Plane::exportSolids(aircraft, format, solidOptionsOf(choice, number),
                            scratchFolder() + files[static_cast<std::size_t>(format)], none));
}

bool isFinite(const Point3D& point) {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

/// Each part is closed and holds something, or is refused with a word.
template <CoordinateForm form>
void buildParts(const Project& aircraft, const Choice& choice, std::size_t number) {
    const PartsOrder order{{form, false, {}}, solidOptionsOf(choice, number).cut, true};
    std::vector<RefusedPart> refused;
    const auto look = [](const SolidPart& part) {
        for (const Point3D& point : part.solid.points)
            if (!isFinite(point)) broken(part.name + " has a point that is not finite");
        if (!isClosed(part.solid)) broken(part.name + " is open");
        if (!(volumeOf(part.solid) > 0)) broken(part.name + " holds nothing");
        return true;
    };
    expectWord("the parts", forEachSolidPart(aircraft, order, look, refused));
    for (const RefusedPart& part : refused)
        if (part.why.empty()) broken(part.name + " is refused without a word");
}

void tellFigures(const Project& aircraft, const Choice& choice, std::size_t number) {
    const Flight flights[] = {{1500, 60}, {{}, {}}, {0, 0}, {1e308, 1e308}, {5e-324, {}}, {{}, 30}};
    const Flight& flight = flights[choice.form(number, std::size(flights))];
    for (const bool json : {false, true})
        expectFinite("figures", figuresOutput(aircraft, {json, flight}));
}

constexpr Work works[] = {
    saveModel<VrmlSpelling::Usual>,
    saveModel<VrmlSpelling::Strict>,
    saveDrawing<Plane::exportDXFVTop>,
    saveDrawing<Plane::exportDXFFront>,
    saveDrawing<Plane::exportDXFSide>,
    saveDrawing<Plane::exportDXFHTop>,
    print<PlanJob::Side, false>,
    print<PlanJob::Side, true>,
    print<PlanJob::frontSections, false>,
    print<PlanJob::frontSections, true>,
    print<PlanJob::vtop, false>,
    print<PlanJob::front, false>,
    print<PlanJob::htop, false>,
    print<PlanJob::htop, true>,
    print<PlanJob::wing, false>,
    print<PlanJob::wing, true>,
    print<PlanJob::ribs, false>,
    print<PlanJob::ribs, true>,
    saveParts<CutPlan::wing, CutFormat::dxf>,
    saveParts<CutPlan::ribs, CutFormat::dxf>,
    saveParts<CutPlan::sections, CutFormat::dxf>,
    saveParts<CutPlan::wing, CutFormat::svg>,
    saveParts<CutPlan::ribs, CutFormat::svg>,
    saveParts<CutPlan::sections, CutFormat::svg>,
    saveSolids<SolidFormat::Stl>,
    saveSolids<SolidFormat::ThreeMf>,
    saveSolids<SolidFormat::Obj>,
    saveSolids<SolidFormat::Glb>,
    buildParts<CoordinateForm::Single>,
    buildParts<CoordinateForm::Decimal>,
    tellFigures,
};

}  // namespace

std::span<const Work> fileWorks() {
    return works;
}

}  // namespace velna::fuzz
