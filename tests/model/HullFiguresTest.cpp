// Fuselages whose figures are known: prisms, boxes, flat plates, and what is no hull.

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include "model/BodySolid.h"
#include "model/Figures.h"
#include "model/MeshHalves.h"
#include "model/SuperEllipse.h"
#include "support/FreshModel.h"

namespace velna {
namespace {

class HullFiguresTest : public FreshModel {
protected:
    struct Section {
        double x = 0;
        double width = 0;
        double height = 0;
        double elevation = 0;
        double exponent = 1;
        double bias = 0.5;
    };

    static MeshSections& hull() { return Fuselages(1); }

    void setSections(const std::vector<Section>& sections, int cross) {
        MeshSections& body = hull();
        body.nb_sections = static_cast<std::int16_t>(sections.size());
        body.nb_cross = static_cast<std::int16_t>(cross);
        body.initArrays();
        for (int i = 1; i <= body.nb_sections; ++i) {
            const Section& section = sections[static_cast<std::size_t>(i) - 1];
            body.sectionOrder(i) = static_cast<std::int16_t>(i);
            body.pos(i) = section.x;
            body.width(i) = section.width;
            body.height(i) = section.height;
            body.elevation(i) = section.elevation;
            body.curvature(i) = body.curvature2(i) = section.exponent;
            body.bias_curve(i) = section.bias;
        }
    }

    static HullFigures figures() { return figuresOf(project).fuselages.at(0); }
};

/// Area and girth of a regular polygon in a circle of the diameter 1.
double polygonArea(int n) {
    return n / 8.0 * std::sin(2 * outlinePi() / n);
}
double polygonGirth(int n) {
    return n * std::sin(outlinePi() / n);
}

TEST_F(HullFiguresTest, APrismHasThoseOfItsPolygon) {
    for (const int n : {4, 6, 8, 12, 30, 100}) {
        setSections({{50, 80, 80}, {300, 80, 80}, {450, 80, 80}}, n);
        const HullFigures prism = figures();
        EXPECT_EQ(prism.outlinePoints, n);
        EXPECT_EQ(prism.sections, 3);
        EXPECT_EQ(prism.length, 400);
        EXPECT_FALSE(prism.folded);
        EXPECT_NEAR(*prism.wettedArea, polygonGirth(n) * 80 * 400 / 1e4, 1e-12) << n;
        EXPECT_NEAR(*prism.frontArea, polygonArea(n) * 6400 / 1e4, 1e-13) << n;
        EXPECT_NEAR(*prism.volume, polygonArea(n) * 6400 * 400 / 1e3, 1e-9) << n;
    }
}

TEST_F(HullFiguresTest, AConeIsAThirdOfItsPrism) {
    setSections({{0, 0, 0, 50}, {300, 100, 100, 0}}, 4);
    const HullFigures cone = figures();
    EXPECT_EQ(cone.frontArea, 0);
    EXPECT_DOUBLE_EQ(*cone.rearArea, 0.5);
    EXPECT_NEAR(*cone.volume, 5000 * 300.0 / 3 / 1e3, 1e-10);
}

TEST_F(HullFiguresTest, AShearedPrismKeepsItsVolume) {
    setSections({{0, 60, 40, 0}, {100, 60, 40, 500}, {200, 60, 40, -300}}, 8);
    const double volume = *figures().volume;
    setSections({{0, 60, 40, 0}, {100, 60, 40, 0}, {200, 60, 40, 0}}, 8);
    EXPECT_NEAR(volume, *figures().volume, 1e-10);
    setSections({{0, 60, 40, 0}, {100, 60, 40, 1e14}, {200, 60, 40, -1e250}}, 8);
    EXPECT_NEAR(volume, *figures().volume, 1e-10);
}

TEST_F(HullFiguresTest, WarpedBaysAreCutAsTheModelIs) {
    // The volume of the closed mesh by the theorem of Gauss, triangle by triangle.
    setSections({{0, 20, 60, 5, 1, 0.2}, {90, 70, 30, -8, 1, 0.7}, {170, 40, 80, 12, 1, 0.5}}, 8);
    BodySolid solid;
    solid.create(hull());
    const auto point = [&](int i, int j) { return solid.meshPoint((j - 1) % 8 + 1, i, false); };
    const auto sixfold = [](const Point3D& a, const Point3D& b, const Point3D& c) {
        return a.x * (b.y * c.z - b.z * c.y) + a.y * (b.z * c.x - b.x * c.z) +
               a.z * (b.x * c.y - b.y * c.x);
    };
    double volume = 0;
    for (int j = 1; j <= 8; ++j) {
        for (int i = 1; i <= 2; ++i)
            volume += sixfold(point(i, j), point(i, j + 1), point(i + 1, j + 1)) +
                      sixfold(point(i, j), point(i + 1, j + 1), point(i + 1, j));
        volume -= sixfold(point(1, 1), point(1, j), point(1, j + 1));
        volume += sixfold(point(3, 1), point(3, j), point(3, j + 1));
    }
    EXPECT_NEAR(*figures().volume, std::abs(volume) / 6 / 1e3, 1e-10);
}

TEST_F(HullFiguresTest, AHullFarOutIsTheSame) {
    const HullFigures near = figures();
    hull().pos_offset = 1e12;
    hull().elevation_offset = -1e12;
    for (int k = 1; k <= 3; ++k) hull().elevation(k) += 0x1p40;
    const HullFigures far = figures();
    EXPECT_DOUBLE_EQ(*far.volume, *near.volume);
    EXPECT_DOUBLE_EQ(*far.wettedArea, *near.wettedArea);
    EXPECT_EQ(far.length, near.length);
}

TEST_F(HullFiguresTest, ATwinIsCountedAndMeasuredAsOne) {
    const HullFigures one = figures();
    hull().shift = 1e9;
    const HullFigures twin = figures();
    EXPECT_EQ(one.count, 1);
    EXPECT_EQ(twin.count, 2);
    EXPECT_EQ(twin.volume, one.volume);
}

TEST_F(HullFiguresTest, AFlatHullHasTwoSidesAndNoVolume) {
    for (const int n : {2, 3}) {
        setSections({{0, 100, 30}, {200, 100, 30}}, n);
        const HullFigures flat = figures();
        EXPECT_DOUBLE_EQ(*flat.wettedArea, 2 * 100 * 200 / 1e4) << n;
        EXPECT_EQ(flat.frontArea, 0) << n;
        EXPECT_EQ(flat.volume, 0) << n;
        EXPECT_EQ(flat.outlinePoints, n);
    }
}

TEST_F(HullFiguresTest, AnOddOutlineLeavesItsUnsetPointOut) {
    const std::pair<int, int> unset[] = {{3, 3}, {5, 3}, {7, 5}, {9, 5}, {11, 7}};
    for (const auto& [n, j] : unset) EXPECT_EQ(MeshHalves(n).unset, j) << n;
    for (const int n : {2, 4, 8, 100}) EXPECT_EQ(MeshHalves(n).unset, 0) << n;

    setSections({{0, 100, 100}, {200, 100, 100}}, 7);
    // Points 1 to 3, the one opposite the first, 6 and 7.
    double area = 0;
    const double angles[] = {0, 1, 2, 3.5, 5, 6};
    for (std::size_t a = 0; a < 6; ++a)
        area += std::sin(2 * outlinePi() / 7 *
                         std::abs(angles[(a + 1) % 6] + (a == 5 ? 7 : 0) - angles[a])) /
                8;
    EXPECT_NEAR(*figures().frontArea, area, 1e-13);
    EXPECT_NEAR(*figures().volume, area * 1e4 * 200 / 1e3, 1e-9);
}

TEST_F(HullFiguresTest, WithoutAShapeThereAreNoFigures) {
    for (const int n : {0, 1}) {
        setSections({{0, 100, 30}, {200, -100, 30}}, n);
        const HullFigures none = figures();
        EXPECT_EQ(none.outlinePoints, n);
        EXPECT_EQ(none.sections, 2);
        EXPECT_FALSE(none.folded);
        for (const Figure& figure :
             {none.length, none.wettedArea, none.frontArea, none.rearArea, none.volume})
            EXPECT_EQ(figure, std::nullopt);
    }
    setSections({}, 8);
    EXPECT_EQ(figures().length, std::nullopt);
}

TEST_F(HullFiguresTest, AFoldedHullHasNoVolumeAndTheRest) {
    const std::vector<Section> folded[] = {
        {{0, 50, 50}, {200, 50, 50}, {100, 50, 50}},
        {{0, 50, 50}, {200, -50, 50}},
        {{0, 50, 50}, {200, 0, 50}, {300, 50, -50}},
    };
    for (const auto& sections : folded) {
        setSections(sections, 8);
        const HullFigures figure = figures();
        EXPECT_TRUE(figure.folded);
        EXPECT_EQ(figure.volume, std::nullopt);
        EXPECT_TRUE(figure.length.has_value());
        EXPECT_GT(*figure.wettedArea, 0);
        EXPECT_GT(*figure.frontArea, 0);
    }
}

TEST_F(HullFiguresTest, TwoSectionsAtOnePlaceFoldNothing) {
    setSections({{0, 50, 50}, {100, 50, 50}, {100, 80, 80}, {200, 80, 80}}, 8);
    EXPECT_FALSE(figures().folded);
    setSections({{200, 50, 50}, {100, 50, 50}, {100, 80, 80}, {0, 80, 80}}, 8);
    EXPECT_FALSE(figures().folded);
}

TEST_F(HullFiguresTest, FromTailToNoseTheEndsChangePlaces) {
    setSections({{0, 10, 10}, {100, 60, 60}, {300, 30, 30}}, 8);
    const HullFigures ahead = figures();
    setSections({{300, 30, 30}, {100, 60, 60}, {0, 10, 10}}, 8);
    const HullFigures back = figures();
    EXPECT_FALSE(back.folded);
    EXPECT_DOUBLE_EQ(*back.frontArea, *ahead.frontArea);
    EXPECT_DOUBLE_EQ(*back.rearArea, *ahead.rearArea);
    EXPECT_DOUBLE_EQ(*back.volume, *ahead.volume);
    EXPECT_DOUBLE_EQ(*back.wettedArea, *ahead.wettedArea);
}

TEST_F(HullFiguresTest, WidthsBelowZeroAllAlongAreTheMirrorImage) {
    const HullFigures before = figures();
    for (int k = 1; k <= 3; ++k) hull().width(k) *= -1;
    EXPECT_FALSE(figures().folded);
    EXPECT_NEAR(*figures().volume, *before.volume, 1e-9);
}

TEST_F(HullFiguresTest, OneSectionAloneHasAnOutlineAndNothingElse) {
    setSections({{10, 100, 100}}, 4);
    EXPECT_EQ(figures().length, 0);
    EXPECT_EQ(figures().wettedArea, 0);
    EXPECT_EQ(figures().volume, 0);
    EXPECT_EQ(figures().frontArea, 0.5);
    EXPECT_EQ(figures().rearArea, 0.5);
}

TEST_F(HullFiguresTest, SizesAtTheEndsOfTheRangeGiveWhatANumberHolds) {
    setSections({{0, 1e160, 1e160}, {1e160, 1e160, 1e160}}, 4);
    EXPECT_EQ(figures().length, 1e160);
    EXPECT_EQ(figures().wettedArea, std::nullopt);
    EXPECT_EQ(figures().volume, std::nullopt);
    setSections({{0, 1e-150, 1e-150}, {1e-150, 1e-150, 1e-150}}, 4);
    EXPECT_NEAR(*figures().frontArea / 0.5e-304, 1, 1e-9);
    setSections({{0, 10, 10}, {1e200, 1e200, 1e200}}, 4);
    EXPECT_DOUBLE_EQ(*figures().frontArea, 0.005);
    constexpr double huge = std::numeric_limits<double>::max();
    setSections({{-huge, huge, huge, -huge}, {huge, huge, huge, huge, 1, huge}}, 8);
    EXPECT_EQ(figures().length, std::nullopt);
    EXPECT_EQ(figures().wettedArea, std::nullopt);
    setSections({{0, 50, 50, 0, -1000}, {100, 50, 50, 0, -1000}}, 8);
    EXPECT_EQ(figures().wettedArea, std::nullopt);
    EXPECT_EQ(figures().length, 100);
}

TEST_F(HullFiguresTest, ManyPromisedFuselagesAreEachTold) {
    nbFuselages = 32767;
    Fuselage::resizeFuselages(project);
    const Figures all = figuresOf(project);
    ASSERT_EQ(all.fuselages.size(), 32767U);
    EXPECT_EQ(all.fuselages.back().number, 32767);
    EXPECT_EQ(all.fuselages.back().volume, all.fuselages[1].volume);
}

TEST_F(HullFiguresTest, ASectionPutIntoAHullWithoutWarpLeavesItsFigures) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> share(0.05, 0.95);
    for (int round = 0; round < 20; ++round) {
        setSections({{0, 40, 60, 10}, {400, 80, 120, 25}}, 10);
        const HullFigures before = figures();
        hull().sel_sec = 2;
        hull().insertSection(400 * share(random));
        const HullFigures after = figures();
        EXPECT_EQ(after.sections, 3);
        EXPECT_NEAR(*after.wettedArea / *before.wettedArea, 1, 1e-13);
        EXPECT_NEAR(*after.volume / *before.volume, 1, 1e-13);
    }
}

}  // namespace
}  // namespace velna
