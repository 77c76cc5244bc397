// The exported files of many aircraft, held byte for byte against files made by other means.

#include <cmath>
#include <sstream>
#include <utility>
#include <vector>

#include "common/NumberText.h"
#include "output/OutputTest.h"
#include "support/SameBytes.h"

namespace velna::test {
namespace {

class ExportFiles : public OutputTest, public ::testing::WithParamInterface<const char*> {
protected:
    void expectSame(Export write, const std::string& kind) {
        const std::string name = std::string(GetParam()) + kind;
        EXPECT_EQ(write(project, folder / name, progress), Outcome()) << name;
        expectBytes(name);
    }

    void expectBytes(const std::string& name) {
        EXPECT_TRUE(sameBytes(bytesOf(folder / name), expectedExport(name))) << name;
    }
};

TEST_P(ExportFiles, AreTheComputedOnes) {
    load(GetParam());
    ASSERT_EQ(currentFuselage, 1);
    expectSame(Plane::exportDXFVTop, ".VTop.dxf");
    expectSame(Plane::exportDXFFront, ".Front.dxf");
    expectSame(Plane::exportDXFSide, ".Side.dxf");
    expectSame(Plane::exportDXFHTop, ".HTop.dxf");
    const std::string model = std::string(GetParam()) + ".wrl";
    EXPECT_EQ(exportWhole(folder / model), Outcome());
    expectBytes(model);
    EXPECT_EQ(currentFuselage, nbFuselages);
    for (int i = 1; i <= nbFuselages; ++i) EXPECT_TRUE(ObjectList.shown(i)) << i;
}

INSTANTIATE_TEST_SUITE_P(Aircraft, ExportFiles,
                         ::testing::Values("boxes", "cross2", "cross7", "default", "exponents",
                                           "fin_offsets", "hidden", "hole_8x7", "inches",
                                           "inserted", "tex_all", "transparent", "twin_fuselage",
                                           "wings3"),
                         [](const auto& aircraft) { return std::string(aircraft.param); });

/// Whether two drawings have the same lines of text, numbers up to the digits that a project keeps.
::testing::AssertionResult sameDrawing(const std::string& actual, const std::string& expected) {
    std::istringstream ours(actual);
    std::istringstream theirs(expected);
    std::string one;
    std::string other;
    for (int line = 1; std::getline(theirs, other); ++line) {
        if (!std::getline(ours, one)) return ::testing::AssertionFailure() << "ends at " << line;
        if (one == other) continue;
        const double difference = leadingNumber(one) - leadingNumber(other);
        if (!(std::abs(difference) < 1e-12 * std::abs(leadingNumber(other))))
            return ::testing::AssertionFailure() << line << ": " << one << " and not " << other;
    }
    return ::testing::AssertionResult(!std::getline(ours, one));
}

using Drawings = OutputTest;

/// An inserted section is stored last: drawn, it stands where the user put it, also in the row of
/// sections, whose gaps go by the neighbours in the row.
TEST_F(Drawings, DoNotDependOnTheOrderOfStorage) {
    load("inserted.before");
    bool anyMoved = false;
    for (int i = 1; i <= Fuselages(1).nb_sections; ++i)
        anyMoved = anyMoved || Fuselages(1).sectionOrder(i) != i;
    ASSERT_TRUE(anyMoved);
    currentFuselage = 1;
    const std::vector<std::pair<std::string, Export>> exports{{"VTop", Plane::exportDXFVTop},
                                                              {"Front", Plane::exportDXFFront},
                                                              {"Side", Plane::exportDXFSide},
                                                              {"HTop", Plane::exportDXFHTop}};
    for (const auto& [view, write] : exports) {
        EXPECT_EQ(write(project, folder / view, progress), Outcome());
        EXPECT_TRUE(
            sameDrawing(bytesOf(folder / view), expectedExport("inserted." + view + ".dxf")))
            << view;
    }
}

}  // namespace
}  // namespace velna::test
