// The figures of many aircraft, held against figures computed by other means.

#include <cmath>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "common/NumberText.h"
#include "model/Figures.h"
#include "model/MeshSections.h"
#include "model/Plane.h"
#include "output/FiguresJson.h"
#include "persistence/ProjectFile.h"

namespace velna::test {
namespace {

using nlohmann::json;
using nlohmann::ordered_json;

const std::string data = std::string(VELNA_TEST_DATA) + "/";
constexpr double tolerance = 1e-9;

ordered_json cases() {
    std::ifstream file(data + "figures/figures.json");
    return ordered_json::parse(file).at("aircraft");
}

Project readAircraft(const std::string& name) {
    Project aircraft;
    Plane::setDefaultPlane(aircraft);
    EXPECT_EQ(Plane::readProject(aircraft, data + "projects/current/" + name + ".vln"), Outcome());
    return aircraft;
}

/// Expects the same keys in the same order, and numbers that are as near as they are told.
void expectSame(const ordered_json& actual, const ordered_json& expected, const std::string& where);

void expectSameKeys(const ordered_json& actual, const ordered_json& expected,
                    const std::string& where) {
    auto other = actual.begin();
    for (auto entry = expected.begin(); entry != expected.end(); ++entry, ++other) {
        EXPECT_EQ(other.key(), entry.key()) << where;
        expectSame(other.value(), entry.value(), where + "." + entry.key());
    }
}

void expectSame(const ordered_json& actual, const ordered_json& expected,
                const std::string& where) {
    ASSERT_EQ(actual.is_null(), expected.is_null()) << where << ": " << actual << expected;
    ASSERT_EQ(actual.is_number(), expected.is_number()) << where;
    if (expected.is_number()) {
        const double value = expected.get<double>();
        EXPECT_NEAR(actual.get<double>(), value, tolerance * std::max(1.0, std::abs(value)))
            << where;
        return;
    }
    ASSERT_EQ(actual.size(), expected.size()) << where;
    if (expected.is_object()) {
        expectSameKeys(actual, expected, where);
    } else if (expected.is_array()) {
        for (std::size_t n = 0; n < expected.size(); ++n)
            expectSame(actual[n], expected[n], where + "[" + std::to_string(n) + "]");
    } else {
        EXPECT_EQ(actual, expected) << where;
    }
}

TEST(FiguresCases, EveryFigureOfEveryAircraftIsTheExpectedOne) {
    const ordered_json aircraft = cases();
    ASSERT_EQ(aircraft.size(), 14U);
    for (auto entry = aircraft.begin(); entry != aircraft.end(); ++entry) {
        const Project project = readAircraft(entry.key());
        expectSame(ordered_json::parse(figuresJson(figuresOf(project))), entry.value()["figures"],
                   entry.key());
    }
}

TEST(FiguresCases, MassAndSpeedChangeTheFlightAlone) {
    const ordered_json aircraft = cases();
    for (auto entry = aircraft.begin(); entry != aircraft.end(); ++entry) {
        const Project project = readAircraft(entry.key());
        ordered_json expected = entry.value()["figures"];
        expected["flight"] = entry.value()["flight"];
        expectSame(ordered_json::parse(figuresJson(figuresOf(project, {1800, 54}))), expected,
                   entry.key());
    }
}

}  // namespace
}  // namespace velna::test
