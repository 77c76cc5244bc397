// The solids of many aircraft, held against points computed by other means.

#include <algorithm>
#include <fstream>
#include <string>

#include "support/FreshModel.h"
#include "support/ModelJson.h"

namespace velna {
namespace {

using nlohmann::json;

constexpr double tolerance = 1e-9;

json load(const std::string& name) {
    std::ifstream file(std::string(VELNA_TEST_DATA) + "/solids/" + name + ".json");
    return json::parse(file);
}

void expectPoint(const Point3D& point, const json& expected, const std::string& where) {
    EXPECT_NEAR(point.x, expected[0].get<double>(), tolerance) << where;
    EXPECT_NEAR(point.y, expected[1].get<double>(), tolerance) << where;
    EXPECT_NEAR(point.z, expected[2].get<double>(), tolerance) << where;
}

template <class Get>
void expectPoints(Get get, const json& expected, const std::string& where) {
    for (std::size_t n = 0; n < expected.size(); ++n)
        expectPoint(get(static_cast<int>(n) + 1), expected[n],
                    where + " point " + std::to_string(n + 1));
}

template <class Get>
void expectNumbers(Get get, const json& expected, const std::string& where) {
    for (std::size_t n = 0; n < expected.size(); ++n)
        EXPECT_NEAR(get(static_cast<int>(n) + 1), expected[n].get<double>(), tolerance)
            << where << " entry " << n + 1;
}

void expectHalf(WingSection& half, const json& expected, const std::string& where) {
    ASSERT_EQ(half.pointCount(), static_cast<int>(expected["rootPoints"].size())) << where;
    expectPoints([&](int i) { return half.rootPoint(i); }, expected["rootPoints"], where + " root");
    expectPoints([&](int i) { return half.tipPoint(i); }, expected["tipPoints"], where + " tip");
    if (expected["rootTexCoords"].is_null()) return;
    half.picture.xtex = expected["xtex"].get<std::int32_t>();
    half.picture.ytex = expected["ytex"].get<std::int32_t>();
    half.create_texcoords();
    expectNumbers([&](int i) { return half.rootTexCoord(i); }, expected["rootTexCoords"],
                  where + " root texture");
    expectNumbers([&](int i) { return half.tipTexCoord(i); }, expected["tipTexCoords"],
                  where + " tip texture");
}

void expectWing(PanelSolid& wing, const json& expected, const std::string& where) {
    expectHalf(wing.Left, expected["Left"], where + " left");
    expectHalf(wing.Right, expected["Right"], where + " right");
}

void expectFin(const json& expected) {
    ASSERT_EQ(solids.rudder.pointCount(), static_cast<int>(expected["rootPoints"].size()));
    expectPoints([](int i) { return solids.rudder.rootPoint(i, false); }, expected["rootPoints"],
                 "fin root");
    expectPoints([](int i) { return solids.rudder.tipPoint(i, false); }, expected["tipPoints"],
                 "fin tip");
    expectNumbers([](int i) { return solids.rudder.chordRatio(i); }, expected["chordRatios"],
                  "fin ratio");
    if (expected["rootTexCoords"].is_null()) return;
    expectNumbers([](int i) { return solids.rudder.rootTexCoord(i); }, expected["rootTexCoords"],
                  "fin root texture");
    expectNumbers([](int i) { return solids.rudder.tipTexCoord(i); }, expected["tipTexCoords"],
                  "fin tip texture");
}

void expectFuselage(const BodySolid& body, const json& expected, const std::string& where) {
    const json& rows = expected["points"];
    ASSERT_EQ(body.points.rows(), static_cast<int>(rows.size())) << where;
    for (std::size_t n = 0; n < rows.size(); ++n) {
        const int i = static_cast<int>(n) + 1;
        const std::string section = where + " section " + std::to_string(i);
        ASSERT_EQ(body.points.columns(), static_cast<int>(rows[n].size())) << section;
        expectPoints([&](int j) { return body.meshPoint(j, i, false); }, rows[n], section);
        for (std::size_t m = 0; m < rows[n].size(); ++m) {
            const Point2D place = body.texCoordAt(static_cast<int>(m) + 1, i);
            EXPECT_NEAR(place.x, expected["texCoords"][n][m][0].get<double>(), tolerance)
                << section;
            EXPECT_NEAR(place.y, expected["texCoords"][n][m][1].get<double>(), tolerance)
                << section;
        }
    }
}

void expectBox(int i, const json& expected, const std::string& where) {
    const BoxSolid& box = solids.equipments(i);
    expectPoint(box.solidSize(), expected["solidSize"], where + " size");
    expectPoint(box.solidOrigin(), expected["solidOrigin"], where + " origin");
    expectPoint(box.centre(), expected["centre"], where + " centre");
    expectPoint(Equipments(i).kindColor(), expected["color"], where + " colour");
}

class StoredSolids : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override { resetModel(); }

    /// Builds the aircraft `model` and holds every solid against `expected`.
    void expectSolids(const json& model, const json& expected) {
        applyModel(model);
        for (int i = 1; i <= nbFuselages; ++i) ObjectList.setShown(i, true);
        if (!expected["Rudder"]["rootTexCoords"].is_null()) {
            SolidPicture& picture = solids.rudder.picture;
            picture.texture_filename = Rudder.texture_filename;
            picture.texture_loaded = true;
            picture.xtex = finPicture.first;
            picture.ytex = finPicture.second;
        }
        solids.createAll(project);
        ASSERT_EQ(nbWings, static_cast<int>(expected["Wings"].size()));
        for (int i = 1; i <= nbWings; ++i)
            expectWing(solids.wings(i), expected["Wings"][static_cast<std::size_t>(i) - 1],
                       "wing " + std::to_string(i));
        expectWing(solids.stabilizer, expected["Stabilizer"], "stabiliser");
        expectFin(expected["Rudder"]);
        ASSERT_EQ(nbFuselages, static_cast<int>(expected["Fuselages"].size()));
        for (int i = 1; i <= nbFuselages; ++i)
            expectFuselage(solids.fuselages(i),
                           expected["Fuselages"][static_cast<std::size_t>(i) - 1],
                           "fuselage " + std::to_string(i));
        ASSERT_EQ(nbEquipments, static_cast<int>(expected["Equipments"].size()));
        for (int i = 1; i <= nbEquipments; ++i)
            expectBox(i, expected["Equipments"][static_cast<std::size_t>(i) - 1],
                      "box " + std::to_string(i));
    }

    /// The size of the fin's picture in the textured aircraft.
    static constexpr std::pair<int, int> finPicture{64, 128};
};

TEST_P(StoredSolids, AreTheComputedOnes) {
    const json data = load(GetParam());
    expectSolids(data["model"], data["solids"]);
}

INSTANTIATE_TEST_SUITE_P(Aircraft, StoredSolids,
                         ::testing::Values("boxes", "cross2", "cross7", "default", "exponents",
                                           "fin_offsets", "hidden", "hole_8x7", "inches",
                                           "inserted", "tex_all", "transparent", "twin_fuselage",
                                           "wings3"),
                         [](const auto& aircraft) { return std::string(aircraft.param); });

using StorageOrder = StoredSolids;

// Sections were inserted and removed, so that storage and order differ and an entry is left over.
TEST_P(StorageOrder, DoesNotShowInTheSolids) {
    expectSolids(load(std::string(GetParam()) + ".before")["model"], load(GetParam())["solids"]);
}

INSTANTIATE_TEST_SUITE_P(Aircraft, StorageOrder, ::testing::Values("inserted"));

using DefaultAircraft = FreshModel;

TEST_F(DefaultAircraft, IsTheOneThatTheDataTell) {
    solids.createAll(project);
    const json expected = load("default")["solids"];
    expectWing(solids.wings(1), expected["Wings"][0], "wing");
    expectWing(solids.stabilizer, expected["Stabilizer"], "stabiliser");
    expectFin(expected["Rudder"]);
    expectFuselage(solids.fuselages(1), expected["Fuselages"][0], "fuselage");
    expectBox(1, expected["Equipments"][0], "box");
}

}  // namespace
}  // namespace velna
