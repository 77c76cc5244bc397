#include <algorithm>
#include <cmath>
#include <fstream>

#include <nlohmann/json.hpp>

#include "common/ValueReader.h"
#include "model/Panels.h"
#include "model/Region.h"
#include "output/CutParts.h"
#include "output/OutputTest.h"
#include "persistence/ProjectFile.h"

namespace velna::test {
namespace {

using nlohmann::json;

const std::string data = std::string(VELNA_TEST_DATA) + "/";

/// Square millimetres, or a billionth of the area.
double areaTolerance(double area) {
    return std::max(1e-6, 1e-9 * area);
}

/// The planforms and ribs of aircraft whose figures were computed by other means.
class FiguresOfPlans : public OutputTest {
protected:
    /// Calls `check` for each aircraft, read into the project in hand.
    template <class Check>
    static void forEachAircraft(Check check) {
        const json figures = json::parse(std::ifstream(data + "figures/figures.json"));
        for (const auto& [name, aircraft] : figures["aircraft"].items()) {
            SCOPED_TRACE(name);
            Project read;
            Plane::setDefaultPlane(read);
            ASSERT_EQ(Plane::readProject(read, data + "projects/current/" + name + ".vln"),
                      Outcome());
            check(read, aircraft);
        }
    }

    static const SymWingSections& panelOf(const std::vector<NamedPanel>& panels,
                                          const std::string& name) {
        const auto found = std::ranges::find(panels, name, &NamedPanel::name);
        return found->panel;
    }

    static double shareOf(const std::string& at) {
        if (at == "root") return 0;
        if (at == "tip") return 1;
        return at == "1/3" ? 1.0 / 3 : 0.5;
    }

    static Rib ribOf(const Project& read, const json& row) {
        const std::vector<NamedPanel> panels = namedPanels(read);
        const SymWingSections& panel = panelOf(panels, row["panel"]);
        const double share = shareOf(row["at"]);
        return ribAt(panel, read.units, {share, share * developed(panel, read.units).span});
    }

    static void checkPlanform(const Planform& plan, const json& corners) {
        for (std::size_t i = 0; i < 4; ++i) {
            const double far = 1e-6 + 1e-12 * std::abs(corners[i][0].get<double>()) +
                               1e-12 * std::abs(corners[i][1].get<double>());
            EXPECT_NEAR(plan.corners[i].x, corners[i][0].get<double>(), far) << i;
            EXPECT_NEAR(plan.corners[i].y, corners[i][1].get<double>(), far) << i;
        }
    }

    static void checkRib(const Rib& rib, const json& row) {
        SCOPED_TRACE(row["panel"].get<std::string>() + " " + row["at"].get<std::string>());
        EXPECT_EQ(rib.why, row["why"].is_null() ? "" : row["why"].get<std::string>());
        if (!rib.why.empty()) return;
        EXPECT_NEAR(rib.chord, row["chord_mm"].get<double>(), 1e-6);
        const double station = row["station_mm"];
        EXPECT_NEAR(rib.station.position, station, std::max(1e-6, 1e-12 * station));
        ASSERT_EQ(rib.outline.size(), row["outline"].size());
        for (std::size_t i = 0; i < rib.outline.size(); ++i) {
            EXPECT_NEAR(rib.outline[i].x, row["outline"][i][0].get<double>(), 1e-6) << i;
            EXPECT_NEAR(rib.outline[i].y, row["outline"][i][1].get<double>(), 1e-6) << i;
        }
        const double area = row["area_mm2"];
        EXPECT_NEAR(std::abs(signedArea(rib.outline)), area, areaTolerance(area));
    }

    static void checkSlot(const Rib& rib, const json& row, double skin) {
        Region region(rib.outline);
        region.erode(skin);
        const double before = areaInside(region.loops());
        const SparSlot slot{row["percent"], row["width_mm"], row["depth_mm"],
                            row["side"] == "top" ? SlotSide::top : SlotSide::bottom};
        const std::vector<SlotCut> cuts = cutSlots(region, rib.chord, {&slot, 1});
        ASSERT_EQ(cuts.size(), 1U);
        EXPECT_EQ(cuts[0].why.empty(), row["why"].is_null()) << cuts[0].why;
        if (!cuts[0].why.empty()) return;
        EXPECT_NEAR(cuts[0].left, row["x_mm"][0].get<double>(), 0.01);
        EXPECT_NEAR(cuts[0].right, row["x_mm"][1].get<double>(), 0.01);
        EXPECT_NEAR(cuts[0].floor, row["floor_y_mm"].get<double>(), 0.01);
        EXPECT_NEAR(before - areaInside(region.loops()), row["area_mm2"].get<double>(), 0.01 * 20);
    }

    static void checkCut(const Rib& rib, const json& row) {
        SCOPED_TRACE(row["panel"].get<std::string>() + " " + row["at"].get<std::string>());
        Region region(rib.outline);
        const double skin = row["skin_mm"];
        region.erode(skin);
        Point2D least{HUGE_VAL, HUGE_VAL};
        Point2D most{-HUGE_VAL, -HUGE_VAL};
        double perimeter = 0;
        for (const Loop& loop : region.loops()) {
            for (std::size_t i = 0; i < loop.size(); ++i) {
                const Point2D& next = loop[(i + 1) % loop.size()];
                least = {std::min(least.x, loop[i].x), std::min(least.y, loop[i].y)};
                most = {std::max(most.x, loop[i].x), std::max(most.y, loop[i].y)};
                perimeter += std::hypot(next.x - loop[i].x, next.y - loop[i].y);
            }
        }
        EXPECT_NEAR(least.x, row["x_mm"][0].get<double>(), 0.01);
        EXPECT_NEAR(most.x, row["x_mm"][1].get<double>(), 0.01);
        EXPECT_NEAR(least.y, row["y_mm"][0].get<double>(), 0.01);
        EXPECT_NEAR(most.y, row["y_mm"][1].get<double>(), 0.01);
        EXPECT_NEAR(perimeter, row["perimeter_mm"].get<double>(), 0.1);
        EXPECT_NEAR(areaInside(region.loops()), row["area_mm2"].get<double>(), 0.01 * perimeter);
        for (const json& slot : row["slots"]) checkSlot(rib, slot, skin);
    }
};

TEST_F(FiguresOfPlans, PlanformsAreThose) {
    int checked = 0;
    forEachAircraft([&](const Project& read, const json& aircraft) {
        const std::vector<NamedPanel> panels = namedPanels(read);
        ASSERT_EQ(panels.size(), aircraft["planforms"].size());
        for (std::size_t i = 0; i < panels.size(); ++i) {
            EXPECT_EQ(panels[i].name, aircraft["planforms"][i]["panel"]);
            checkPlanform(developed(panels[i].panel, read.units),
                          aircraft["planforms"][i]["corners"]);
            ++checked;
        }
    });
    EXPECT_GE(checked, 28);
}

TEST_F(FiguresOfPlans, RibsAreThose) {
    int checked = 0;
    forEachAircraft([&](const Project& read, const json& aircraft) {
        for (const json& row : aircraft["ribs"]) {
            checkRib(ribOf(read, row), row);
            ++checked;
        }
    });
    EXPECT_GE(checked, 112);
}

TEST_F(FiguresOfPlans, SkinsAndSlotsAreThose) {
    int checked = 0;
    forEachAircraft([&](const Project& read, const json& aircraft) {
        if (!aircraft.contains("cut")) return;
        for (const json& row : aircraft["cut"]) {
            checkCut(ribOf(read, row), row);
            ++checked;
        }
    });
    EXPECT_GE(checked, 4);
}

}  // namespace
}  // namespace velna::test
