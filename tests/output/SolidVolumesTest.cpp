// The solids of aircraft whose volumes were computed by other means.

#include <cmath>
#include <fstream>
#include <map>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "model/Plane.h"
#include "model/SolidParts.h"
#include "persistence/ProjectFile.h"

namespace velna::test {
namespace {

const std::string data = std::string(VELNA_TEST_DATA) + "/";

nlohmann::json expectedAircraft() {
    std::ifstream file(data + "figures/figures.json");
    return nlohmann::json::parse(file).at("aircraft");
}

Project readProject(const std::string& name) {
    Project aircraft;
    Plane::setDefaultPlane(aircraft);
    EXPECT_EQ(Plane::readProject(aircraft, data + "projects/current/" + name + ".vln"), Outcome());
    return aircraft;
}

/// What came of a part.
struct Found {
    double volume = 0;  ///< cm3
    std::string why = {};
};

/// The parts of an aircraft in their order; each is checked to be closed.
std::vector<std::pair<std::string, Found>> partsOf(const Project& aircraft,
                                                   const PartsOrder& order) {
    std::vector<std::pair<std::string, Found>> parts;
    std::vector<RefusedPart> refused;
    const auto note = [&](const SolidPart& part) {
        EXPECT_TRUE(isClosed(part.solid)) << part.name;
        constexpr double cubicCentimetre = 1000;
        parts.push_back({part.name, {volumeOf(part.solid) / cubicCentimetre}});
        return true;
    };
    EXPECT_EQ(forEachSolidPart(aircraft, order, note, refused), Outcome());
    for (const RefusedPart& part : refused) parts.push_back({part.name, {0, part.why}});
    return parts;
}

void compareParts(const nlohmann::json& expected, const Project& aircraft, const PartsOrder& order,
                  double tolerance) {
    std::map<std::string, Found> found;
    for (const auto& [name, part] : partsOf(aircraft, order)) found[name] = part;
    EXPECT_EQ(found.size(), expected.size());
    for (const auto& part : expected) {
        const auto name = part.at("part").get<std::string>();
        SCOPED_TRACE(name);
        ASSERT_TRUE(found.contains(name));
        EXPECT_EQ(found[name].why, part.at("why").is_null() ? "" : part.at("why"));
        if (part.at("why").is_null()) {
            const double volume = part.at("volume_cm3");
            EXPECT_NEAR(found[name].volume, volume, tolerance * volume);
        }
    }
}

TEST(SolidVolumes, OfEachPartEqualTheFigures) {
    int aircraft = 0;
    const nlohmann::json all = expectedAircraft();
    for (const auto& [name, figures] : all.items()) {
        SCOPED_TRACE(name);
        compareParts(figures.at("solids"), readProject(name), {{CoordinateForm::Decimal}, true},
                     1e-9);
        ++aircraft;
    }
    EXPECT_EQ(aircraft, 14);
}

/// What 32 bits hold is rounded: to a part in ten million of a coordinate.
TEST(SolidVolumes, InSinglePrecisionAreClosedAndNear) {
    const nlohmann::json all = expectedAircraft();
    for (const auto& [name, figures] : all.items()) {
        SCOPED_TRACE(name);
        compareParts(figures.at("solids"), readProject(name), {{CoordinateForm::Single}, true},
                     1e-5);
    }
}

TEST(SolidVolumes, OfJoinedPanelsAreTheSumOfTheirs) {
    const auto figures = expectedAircraft();
    // Where panels have airfoils of different numbers of points they stay apart.
    for (const auto& [name, parts] : {std::pair{"wings3", 2u}, {"inches", 2u}, {"tex_all", 4u}}) {
        SCOPED_TRACE(name);
        double sum = 0;
        for (const auto& part : figures.at(name).at("solids")) {
            if (part.at("part").get<std::string>().starts_with("wing"))
                sum += part.at("volume_cm3").get<double>();
        }
        double joined = 0;
        std::size_t count = 0;
        for (const auto& [part, found] : partsOf(readProject(name), {{CoordinateForm::Decimal}})) {
            if (!part.starts_with("wing")) continue;
            joined += found.volume;
            ++count;
        }
        EXPECT_NEAR(joined, sum, 1e-9 * sum);
        EXPECT_EQ(count, parts);
    }
}

}  // namespace
}  // namespace velna::test
