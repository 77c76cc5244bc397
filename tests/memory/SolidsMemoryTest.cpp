// What the solids of a large aircraft keep, and what becomes of them when memory ends while they
// are built, in one thread or in two.

#include <new>

#include <gtest/gtest.h>

#include "common/TwoThreads.h"
#include "support/CountedMemory.h"
#include "support/ProgramInHand.h"

namespace velna::test {
namespace {

class SolidsMemory : public ::testing::Test {
protected:
    void SetUp() override { renewProgram(); }
    void TearDown() override {
        CountedMemory::blocksLeft = -1;
        renewProgram();
    }

    /// The one fuselage becomes one of so many points.
    static std::size_t shape(std::int16_t sections, std::int16_t cross) {
        Plane::setDefaultPlane(project);
        ObjectList.update(Fuselages, nbFuselages);
        MeshSections& body = Fuselages(1);
        body.nb_sections = sections;
        body.nb_cross = cross;
        body.initArrays();
        for (int i = 1; i <= sections; ++i) {
            body.sectionOrder(i) = static_cast<std::int16_t>(i);
            body.pos(i) = 2.0 * i;
            body.width(i) = body.height(i) = 50 + i % 9;
            body.curvature(i) = body.curvature2(i) = 0.8;
            body.bias_curve(i) = 0.5;
        }
        return static_cast<std::size_t>(sections) * static_cast<std::size_t>(cross);
    }
};

// Three numbers a point: texture places would be two more.
TEST_F(SolidsMemory, APointOfAMeshKeepsItsThreeNumbersAlone) {
    const std::size_t points = shape(5000, 100);
    const std::size_t before = CountedMemory::begin();
    solids.createAll(project);
    EXPECT_LT(CountedMemory::now - before, points * 26);
    EXPECT_LT(CountedMemory::most - before, points * 26);
    solids.fuselages(1).texCoordAt(50, 2500);
    EXPECT_LT(CountedMemory::now - before, points * 26);
}

/// Has the blocks end at each of the places in turn where a rebuild takes one; after each the next
/// rebuild gives what an undisturbed one gives.
void expectWholeAfterEachFailure() {
    BodySolid whole;
    whole.create(Fuselages(1));
    int failures = 0;
    for (bool done = false; !done; ++failures) {
        Fuselages(1).width(1) += 1;
        CountedMemory::blocksLeft = failures;
        try {
            solids.update(project);
            done = true;
        } catch (const std::bad_alloc&) {
        }
        CountedMemory::blocksLeft = -1;
        // The very shape that stood before the failure must not pass for built.
        Fuselages(1).width(1) -= 1;
        solids.update(project);
        const Array2<Point3D>& points = solids.fuselages(1).points;
        for (const int i : {1, 2, points.rows() / 2 + 1, points.rows()})
            ASSERT_EQ(points(i, 2), whole.points(i, 2)) << failures << " " << i;
    }
    EXPECT_GT(failures, 5);
}

TEST_F(SolidsMemory, MemoryThatEndsWhileSolidsAreBuiltLeavesNothingHalfBuilt) {
    ASSERT_LT(shape(20, 10), workForTwoThreads);
    solids.createAll(project);
    expectWholeAfterEachFailure();
}

TEST_F(SolidsMemory, SoItDoesInTwoThreads) {
    ASSERT_GT(shape(5100, 100), workForTwoThreads);
    solids.createAll(project);
    expectWholeAfterEachFailure();
}

}  // namespace
}  // namespace velna::test
