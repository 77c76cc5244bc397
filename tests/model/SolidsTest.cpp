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
    half.xtex = expected["xtex"].get<std::int32_t>();
    half.ytex = expected["ytex"].get<std::int32_t>();
    half.create_texcoords();
    expectNumbers([&](int i) { return half.rootTexCoord(i); }, expected["rootTexCoords"],
                  where + " root texture");
    expectNumbers([&](int i) { return half.tipTexCoord(i); }, expected["tipTexCoords"],
                  where + " tip texture");
}

void expectWing(SymWingSections& wing, const json& expected, const std::string& where) {
    expectHalf(*wing.Left, expected["Left"], where + " left");
    expectHalf(*wing.Right, expected["Right"], where + " right");
}

void expectFin(const json& expected) {
    ASSERT_EQ(Rudder.pointCount(), static_cast<int>(expected["rootPoints"].size()));
    expectPoints([](int i) { return Rudder.rootPoint(i, false); }, expected["rootPoints"],
                 "fin root");
    expectPoints([](int i) { return Rudder.tipPoint(i, false); }, expected["tipPoints"], "fin tip");
    expectNumbers([](int i) { return Rudder.chordRatio(i); }, expected["chordRatios"], "fin ratio");
    if (expected["rootTexCoords"].is_null()) return;
    expectNumbers([](int i) { return Rudder.rootTexCoord(i); }, expected["rootTexCoords"],
                  "fin root texture");
    expectNumbers([](int i) { return Rudder.tipTexCoord(i); }, expected["tipTexCoords"],
                  "fin tip texture");
}

void expectFuselage(const MeshSections& body, const json& expected, const std::string& where) {
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

void expectBox(const ElectroBox& box, const json& expected, const std::string& where) {
    expectPoint(box.solidSize(), expected["solidSize"], where + " size");
    expectPoint(box.solidOrigin(), expected["solidOrigin"], where + " origin");
    expectPoint(box.centre(), expected["centre"], where + " centre");
    expectPoint(box.kindColor(), expected["color"], where + " colour");
}

class Solids : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override { resetModel(); }

    /// Builds the aircraft `model` and holds every solid against `solids`.
    void expectSolids(const json& model, const json& solids) {
        applyModel(model);
        for (int i = 1; i <= nbFuselages; ++i) ObjectList.setShown(i, true);
        if (!solids["Rudder"]["rootTexCoords"].is_null()) {
            Rudder.texture_loaded = true;
            Rudder.xtex = finPicture.first;
            Rudder.ytex = finPicture.second;
        }
        Plane::createAllSolids();
        ASSERT_EQ(nbWings, static_cast<int>(solids["Wings"].size()));
        for (int i = 1; i <= nbWings; ++i)
            expectWing(Wings(i), solids["Wings"][static_cast<std::size_t>(i) - 1],
                       "wing " + std::to_string(i));
        expectWing(Stabilizer, solids["Stabilizer"], "stabiliser");
        expectFin(solids["Rudder"]);
        ASSERT_EQ(nbFuselages, static_cast<int>(solids["Fuselages"].size()));
        for (int i = 1; i <= nbFuselages; ++i)
            expectFuselage(Fuselages(i), solids["Fuselages"][static_cast<std::size_t>(i) - 1],
                           "fuselage " + std::to_string(i));
        ASSERT_EQ(nbEquipments, static_cast<int>(solids["Equipments"].size()));
        for (int i = 1; i <= nbEquipments; ++i)
            expectBox(Equipments(i), solids["Equipments"][static_cast<std::size_t>(i) - 1],
                      "box " + std::to_string(i));
    }

    /// The size of the fin's picture in the textured aircraft.
    static constexpr std::pair<int, int> finPicture{64, 128};
};

TEST_P(Solids, AreTheComputedOnes) {
    const json data = load(GetParam());
    expectSolids(data["model"], data["solids"]);
}

INSTANTIATE_TEST_SUITE_P(Aircraft, Solids,
                         ::testing::Values("boxes", "cross2", "cross7", "default", "exponents",
                                           "fin_offsets", "hidden", "hole_8x7", "inches",
                                           "inserted", "tex_all", "transparent", "twin_fuselage",
                                           "wings3"),
                         [](const auto& aircraft) { return std::string(aircraft.param); });

using StorageOrder = Solids;

// Sections were inserted and removed, so that storage and order differ and an entry is left over.
TEST_P(StorageOrder, DoesNotShowInTheSolids) {
    expectSolids(load(std::string(GetParam()) + ".before")["model"], load(GetParam())["solids"]);
}

INSTANTIATE_TEST_SUITE_P(Aircraft, StorageOrder, ::testing::Values("inserted"));

using DefaultAircraft = FreshModel;

TEST_F(DefaultAircraft, IsTheOneThatTheDataTell) {
    Plane::createAllSolids();
    const json solids = load("default")["solids"];
    expectWing(Wings(1), solids["Wings"][0], "wing");
    expectWing(Stabilizer, solids["Stabilizer"], "stabiliser");
    expectFin(solids["Rudder"]);
    expectFuselage(Fuselages(1), solids["Fuselages"][0], "fuselage");
    expectBox(Equipments(1), solids["Equipments"][0], "box");
}

}  // namespace
}  // namespace velna
