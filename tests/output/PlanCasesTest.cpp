// Every print job of several aircraft on several papers, line for line against lists computed by
// other means: each job alone, and all five in one command.

#include <cmath>
#include <fstream>
#include <set>

#include <nlohmann/json.hpp>

#include "output/OutputTest.h"
#include "support/RecordingPrinter.h"

namespace velna::test {
namespace {

using nlohmann::json;

const json& allCases() {
    static const json cases = [] {
        std::ifstream file(std::string(VELNA_TEST_DATA) + "/plans/cases.json");
        return json::parse(file)["cases"];
    }();
    return cases;
}

/// The jobs' names in the data.
PlanJob jobOf(const std::string& name) {
    if (name == "Side") return PlanJob::Side;
    if (name == "frontSections") return PlanJob::frontSections;
    if (name == "vtop") return PlanJob::vtop;
    return name == "front" ? PlanJob::front : PlanJob::htop;
}

/// What stands in the data for a call; the begin of a job does not.
json operation(const PrinterCall& call) {
    switch (call.kind) {
        case PrinterCall::Kind::Line:
            return {"Line",
                    call.at[0],
                    call.at[1],
                    call.at[2],
                    call.at[3],
                    call.colour == black              ? "black"
                    : call.colour == project.dimColor ? "dim"
                                                      : "another colour"};
        case PrinterCall::Kind::NewPage:
            return json::array({"NewPage"});
        case PrinterCall::Kind::EndDoc:
            return json::array({"EndDoc"});
        default:
            return json::array({"other"});
    }
}

bool same(const json& actual, const json& expected) {
    if (actual.size() != expected.size()) return false;
    for (std::size_t i = 0; i < actual.size(); ++i) {
        if (!expected[i].is_number()) {
            if (actual[i] != expected[i]) return false;
            continue;
        }
        const auto wanted = expected[i].get<double>();
        // A coordinate near 0 is a difference of numbers of the paper's size.
        const double allowed = 1e-9 * std::max(1.0, std::abs(wanted));
        if (!(std::abs(actual[i].get<double>() - wanted) <= allowed)) return false;
    }
    return true;
}

void expectOperations(const RecordingPrinter& printer, const json& expected,
                      const std::string& where) {
    std::vector<json> actual;
    for (const PrinterCall& call : printer.calls)
        if (call.kind != PrinterCall::Kind::Start) actual.push_back(operation(call));
    ASSERT_EQ(actual.size(), expected.size()) << where;
    for (std::size_t i = 0; i < actual.size(); ++i)
        ASSERT_TRUE(same(actual[i], expected[i]))
            << where << ", " << i << ": " << actual[i] << " and not " << expected[i];
}

/// A fuselage of a case that no project of the data holds.
void shape(int n, int outlinePoints, const std::vector<double>& widths,
           const std::vector<double>& heights, const std::vector<double>& elevations) {
    MeshSections& fuselage = Fuselages(n);
    fuselage.nb_sections = static_cast<std::int16_t>(widths.size());
    fuselage.nb_cross = static_cast<std::int16_t>(outlinePoints);
    fuselage.initArrays();
    for (int i = 1; i <= fuselage.nb_sections; ++i) {
        const auto at = static_cast<std::size_t>(i) - 1;
        fuselage.sectionOrder(i) = static_cast<std::int16_t>(i);
        fuselage.width(i) = widths[at];
        fuselage.height(i) = heights[at];
        fuselage.elevation(i) = elevations[at];
        fuselage.pos(i) = 120.0 * (i - 1);
        fuselage.curvature(i) = fuselage.curvature2(i) = 1;
        fuselage.bias_curve(i) = 0.5;
    }
}

/// Beside the default fuselage: one without outline points, one with a single one, one with four.
void addFuselagesOfFewPoints() {
    for (int n = 2; n <= 4; ++n) {
        nbFuselages = static_cast<std::int16_t>(n);
        Fuselage::resizeFuselages(project);
        Fuselage::addFuselage(project);
    }
    ObjectList.update(Fuselages, nbFuselages);
    const std::vector<double> three{27.12, 47.28, 13.68};
    shape(2, 0, three, {30.4, 55.6, 13.6}, {12, 15, 18});
    shape(3, 1, {27.12, 49.52, 36.08, 13.68}, {30.4, 55.6, 30, 13.6}, {12, 15, 16, 18});
    shape(4, 4, three, {30.4, 55.6, 13.6}, {12, 15, 18});
}

class PlanCases : public OutputTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        for (const json& one : allCases())
            if (one["name"] == GetParam()) data = &one;
        ASSERT_NE(data, nullptr);
    }

    /// The aircraft of the case, in a program just started.
    void prepare() {
        const auto file = (*data)["vln"].get<std::string>();
        const std::string name = file.substr(0, file.size() - 4);
        if (name == "cross0") {
            load("default");
            addFuselagesOfFewPoints();
        } else {
            load(name);
        }
        for (const json& change : (*data)["set"]) set(change[0], change[1].get<double>());
        currentFuselage = (*data)["currentFuselage"].get<std::int16_t>();
        ASSERT_EQ(project.units, (*data)["units"].get<int>());
        ASSERT_EQ(nbFuselages, (*data)["nbFuselages"].get<int>());
    }

    static void set(const std::string& path, double value) {
        if (path == "Fuselages[1].elevation_offset")
            Fuselages(1).elevation_offset = value;
        else if (path == "Fuselages[1].pos[3]")
            Fuselages(1).pos(3) = value;
        else if (path == "Fuselages[1].shift")
            Fuselages(1).shift = value;
        else
            ADD_FAILURE() << path;
    }

    static RecordingPrinter paperOf(const json& paper) {
        return {paper["ScaleWidth"].get<double>(), paper["ScaleHeight"].get<double>()};
    }

    const json* data = nullptr;
};

TEST_P(PlanCases, EachJobAlonePrintsTheComputedLines) {
    for (const auto& [paperName, paper] : (*data)["papers"].items())
        for (const auto& [name, job] : paper["jobs"].items()) {
            prepare();
            RecordingPrinter printer = paperOf(paper);
            EXPECT_EQ(printJob(jobOf(name), printer), Outcome());
            expectOperations(printer, job["ops"], paperName + " " + name);
            EXPECT_EQ(printer.pages(), job["pages"].get<int>()) << paperName << " " << name;
        }
}

TEST_P(PlanCases, AllTickedPrintsTheJobsInOrder) {
    PrintSelect.Side = PrintSelect.htop = PrintSelect.frontSections = true;
    PrintSelect.vtop = PrintSelect.front = true;
    for (const auto& [paperName, paper] : (*data)["papers"].items()) {
        prepare();
        RecordingPrinter printer = paperOf(paper);
        EXPECT_EQ(printPlans(printer), Outcome());
        EXPECT_EQ(printer.scaleMode, paper["ScaleMode"].get<int>());

        const json& all = paper["all_ticked"];
        json expected = json::array();
        for (const json& job : all["jobs"]) {
            const auto name = job[0].get<std::string>();
            const bool moved = name == "htop" && all.contains("htop_ops");
            for (const json& op : moved ? all["htop_ops"] : paper["jobs"][name]["ops"])
                expected.push_back(op);
        }
        expectOperations(printer, expected, paperName + " all");
        EXPECT_EQ(currentFuselage, all["currentFuselage_after"].get<int>()) << paperName;
    }
}

INSTANTIATE_TEST_SUITE_P(Aircraft, PlanCases,
                         ::testing::Values("default", "wings3", "twin_fuselage", "cross7", "cross0",
                                           "inches", "inserted", "elevation_offset_0.4",
                                           "length_760", "fuselage_shift_50"),
                         [](const auto& aircraft) {
                             std::string name = aircraft.param;
                             for (char& c : name)
                                 if (c == '.') c = '_';
                             return name;
                         });

}  // namespace
}  // namespace velna::test
