#include <cmath>

#include "support/FreshModel.h"

namespace velna {
namespace {

class Wing : public FreshModel {
protected:
    SymWingSections& wing() { return Wings(1); }
    PanelSolid& solid() { return solids.wings(1); }
    void build() { solid().create(wing()); }
    /// A picture of that size, converted.
    static void carry(WingSection& half, int width, int height) {
        half.picture.xtex = width;
        half.picture.ytex = height;
        half.create_texcoords();
    }
};

TEST_F(Wing, HalvesMeetAtTheCentreLine) {
    build();
    for (int i = 1; i <= 16; ++i) {
        EXPECT_EQ(solid().Left.rootPoint(i), solid().Right.rootPoint(i));
        EXPECT_EQ(solid().Left.rootPoint(i).y, 0);
        EXPECT_EQ(solid().Left.tipPoint(i).y, 700);
        EXPECT_EQ(solid().Right.tipPoint(i).y, -700);
    }
}

TEST_F(Wing, WithoutSweepAndDihedralHasAStraightLeadingEdge) {
    wing().pos2 = 0;
    wing().elevation2 = 0;
    build();
    EXPECT_EQ(solid().Left.rootPoint(8).x, solid().Left.tipPoint(8).x);
    EXPECT_EQ(solid().Left.rootPoint(1).z, solid().Left.tipPoint(1).z);
}

TEST_F(Wing, NegativeSpanExchangesTheSides) {
    wing().span = -700;
    build();
    EXPECT_EQ(solid().Left.tipPoint(1).y, -700);
    EXPECT_EQ(solid().Right.tipPoint(1).y, 700);
}

TEST_F(Wing, ShiftMovesTheHalvesApart) {
    wing().shift = 20;
    build();
    EXPECT_EQ(solid().Left.rootPoint(1).y, 20);
    EXPECT_EQ(solid().Left.tipPoint(1).y, 720);
    EXPECT_EQ(solid().Right.rootPoint(1).y, -20);
    EXPECT_EQ(solid().Right.tipPoint(1).y, -720);
}

TEST_F(Wing, WithoutThicknessIsFlat) {
    wing().thickness1 = 0;
    build();
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(solid().Left.rootPoint(i).z, 50);
}

TEST_F(Wing, ShowsAnEditOnlyAfterTheRebuild) {
    build();
    wing().length1 = 100;
    EXPECT_EQ(solid().Left.rootPoint(1).x, 410);
    solid().Left.init(wing());
    EXPECT_EQ(solid().Left.rootPoint(1).x, 410);
    wing().nb = 30;
    wing().allocate();
    EXPECT_EQ(solid().Left.pointCount(), 16);  // no more than have been built
    wing().init(project.defaultColor);
    EXPECT_EQ(solid().Left.pointCount(), 16);
    build();
    EXPECT_EQ(solid().Left.rootPoint(1).x, 280);
}

TEST_F(Wing, PicturePlacesRunAlongTheChordByTheSpan) {
    build();
    for (WingSection* half : {&solid().Left, &solid().Right}) carry(*half, 64, 128);
    EXPECT_EQ(solid().Left.rootTexCoord(1), ((410.0 - 180) / 700) * 128 / 64);
    EXPECT_EQ(solid().Left.rootTexCoord(16), solid().Left.rootTexCoord(1));
    // The tip is measured from the root's leading edge: it carries the sweep.
    EXPECT_EQ(solid().Left.tipTexCoord(8), ((190.0 - 180) / 700) * 128 / 64);
    EXPECT_EQ(solid().Right.tipTexCoord(8), -solid().Left.tipTexCoord(8));
}

TEST_F(Wing, WithoutAPictureHasNoPlaces) {
    build();
    solid().Left.create_texcoords();
    EXPECT_EQ(solid().Left.rootTexCoord(1), 0);
}

TEST_F(Wing, WithoutSpanHasPicturePlacesOfZero) {
    wing().span = 0;
    build();
    carry(solid().Left, 64, 64);
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(solid().Left.rootTexCoord(i), 0);
}

TEST_F(Wing, MiddlePointOfAnOddAirfoilKeepsItsOwnPicturePlace) {
    wing().nb = 5;
    wing().allocate();
    for (int i = 1; i <= 5; ++i) wing().setAirfoilPoint(i, 0.1 * i, 0);
    build();
    carry(solid().Left, 64, 64);
    EXPECT_NE(solid().Left.rootTexCoord(2), 0);
    EXPECT_EQ(solid().Left.rootTexCoord(3), 0);
    EXPECT_EQ(solid().Left.rootTexCoord(4), solid().Left.rootTexCoord(2));
    EXPECT_EQ(solid().Left.rootTexCoord(5), solid().Left.rootTexCoord(1));
}

TEST_F(Wing, PicturePlacesFollowAnotherNumberOfPoints) {
    build();
    carry(solid().Left, 64, 64);
    wing().nb = 30;
    wing().allocate();
    for (int i = 1; i <= 30; ++i) wing().setAirfoilPoint(i, 1, 0);
    build();
    EXPECT_EQ(solid().Left.rootTexCoord(30), ((410.0 - 180) / 700) * 64 / 64);
}

TEST_F(Wing, SolidOfAPromisedAirfoilUsesThePointsThereAre) {
    wing().nb = 500;
    EXPECT_EQ(wing().pointCount(), 16);
    build();
    EXPECT_EQ(solid().Left.pointCount(), 16);
    EXPECT_EQ(solid().Right.pointCount(), 16);
    wing().nb = 4;
    build();
    EXPECT_EQ(solid().Left.pointCount(), 4);
    wing().nb = -3;
    build();
    EXPECT_EQ(solid().Left.pointCount(), 0);
    wing().allocate();
    EXPECT_EQ(wing().airfoilSize(), 0);
}

TEST_F(Wing, InitKeepsTheLengthsAndTakesBackTheRest) {
    wing().span = 555;
    wing().thickness1 = 0.2;
    wing().nb = 7;
    wing().set_texture_filename("folder/wing.bmp");
    wing().qualified_texture_filename = "wing.bmp";
    wing().set_color({1, 2, 3});
    wing().init(project.defaultColor);
    EXPECT_EQ(wing().span, 555);
    EXPECT_EQ(wing().thickness1, 0.13);
    EXPECT_EQ(wing().nb, 16);
    EXPECT_EQ(wing().texture_filename(), "");
    EXPECT_EQ(wing().qualified_texture_filename, "");
    EXPECT_EQ(wing().color(), project.defaultColor);
    EXPECT_EQ(wing().airfoilPoint(3).z, -0.5);
}

TEST_F(Wing, PictureNameReachesBothHalvesAndSurvivesARebuild) {
    wing().set_texture_filename("a.bmp");
    wing().airfoil_filename = "foil";
    build();
    for (const WingSection* half : {&solid().Left, &solid().Right}) {
        EXPECT_EQ(half->picture.texture_filename, "a.bmp");
        EXPECT_EQ(half->airfoil_filename, "foil");
    }
    solid().Left.picture.texture_loaded = true;
    solid().Right.picture.texture_loaded = true;
    build();
    EXPECT_TRUE(solid().Left.picture.texture_loaded);
    EXPECT_TRUE(solid().Right.picture.texture_loaded);
}

TEST_F(Wing, AnotherPictureIsNotTheConvertedOne) {
    wing().set_texture_filename("a.bmp");
    build();
    solid().Left.picture.texture_loaded = true;
    wing().set_texture_filename("b.bmp");
    EXPECT_TRUE(solid().Left.picture.texture_loaded) << "until the rebuild";
    build();
    EXPECT_EQ(solid().Left.picture.texture_filename, "b.bmp");
    EXPECT_FALSE(solid().Left.picture.texture_loaded);
}

TEST_F(Wing, RescaleThereAndBackRestoresTheLengths) {
    wing().shift = 33;
    wing().elevation2 = 44;
    wing().rescale(0.1);
    EXPECT_DOUBLE_EQ(wing().elevation2, 4.4);
    wing().rescale(10.0);
    EXPECT_DOUBLE_EQ(wing().pos1, 180);
    EXPECT_DOUBLE_EQ(wing().pos2, 10);
    EXPECT_DOUBLE_EQ(wing().span, 700);
    EXPECT_DOUBLE_EQ(wing().length1, 230);
    EXPECT_DOUBLE_EQ(wing().length2, 150);
    EXPECT_DOUBLE_EQ(wing().elevation1, 50);
    EXPECT_DOUBLE_EQ(wing().elevation2, 44);
    EXPECT_DOUBLE_EQ(wing().shift, 33);
    EXPECT_EQ(wing().thickness1, 0.13);
    EXPECT_EQ(wing().thickness2, 0.13);
}

TEST_F(Wing, SpanInInches) {
    wing().switchToInches();
    EXPECT_NEAR(wing().span, 27.559055118, 1e-9);
    wing().switchToMillimeters();
    EXPECT_DOUBLE_EQ(wing().span, 700);
}

TEST_F(Wing, RescaleBeyondTheRangeLeavesTheLength) {
    wing().span = 1e300;
    wing().rescale(1e300);
    EXPECT_EQ(wing().span, 1e300);
    EXPECT_DOUBLE_EQ(wing().pos1, 1.8e302);
    wing().rescale(std::nan(""));
    EXPECT_EQ(wing().span, 1e300);
}

TEST_F(Wing, SideOutlineIsTheRootSection) {
    const auto points = wing().computeSidePoints({2, 5, 100});
    EXPECT_EQ(points(1), (Point2D{(230.0 + 180) * 2 + 5, -50.0 * 2 + 100}));
    EXPECT_EQ(points(3),
              (Point2D{(0.3 * 230.0 + 180) * 2 + 5, -((-0.5 * 230) * 0.13 + 50) * 2 + 100}));
    wing().nb = 99;
    EXPECT_EQ(wing().computeSidePoints({}).upper(), 16);
}

TEST_F(Wing, PlanWithTheAxisHorizontalIsMirroredAboutTheOffset) {
    wing().shift = 20;
    const auto [points, mirrored] = wing().computeHTopPoints({2, 5, 100});
    EXPECT_EQ(points[1], (Point2D{365, 60}));
    EXPECT_EQ(points[2], (Point2D{825, 60}));
    EXPECT_EQ(points[3], (Point2D{685, -1340}));
    EXPECT_EQ(points[4], (Point2D{385, -1340}));
    EXPECT_EQ(points[5], points[1]);
    EXPECT_EQ(mirrored[1], (Point2D{365, 140}));
    EXPECT_EQ(mirrored[3], (Point2D{685, 1540}));
}

TEST_F(Wing, FrontOutlineShowsTheThicknessAtBothEnds) {
    wing().shift = 20;
    wing().elevation2 = 8;
    const Outline points = wing().computeFrontPoints({2, 5, 100});
    const double root = (0.13 * 230) / 2;
    const double tip = (0.13 * 150) / 2;
    EXPECT_EQ(points[1], (Point2D{45, -(50 - root) * 2 + 100}));
    EXPECT_EQ(points[2], (Point2D{1445, -(50.0 + 8 - tip) * 2 + 100}));
    EXPECT_EQ(points[3], (Point2D{1445, -(50.0 + 8 + tip) * 2 + 100}));
    EXPECT_EQ(points[4], (Point2D{45, -(root + 50) * 2 + 100}));
    EXPECT_EQ(points[5], points[1]);
}

TEST_F(Wing, PlanOutlineAndItsLargestCoordinates) {
    EXPECT_EQ(SymWingSections::xMaxVtopGet({}), 0);  // before the first drawing
    const Outline points = wing().computeVTopPoints({0.5, 0.5, 10});
    EXPECT_EQ(points[1], (Point2D{0.5, 100}));
    EXPECT_EQ(points[2], (Point2D{350.5, 105}));
    EXPECT_EQ(points[3], (Point2D{350.5, 180}));
    EXPECT_EQ(points[4], (Point2D{0.5, 215}));
    EXPECT_EQ(points[5], points[1]);
    EXPECT_EQ(SymWingSections::xMaxVtopGet(points), 350);  // half to even
    EXPECT_EQ(SymWingSections::yMaxVtopGet(points), 215);
}

TEST_F(Wing, PlanOutlineLeftOfZeroHasTheLargestXZero) {
    const Outline points = wing().computeVTopPoints({1, -5000, -5000});
    EXPECT_EQ(SymWingSections::xMaxVtopGet(points), 0);
    EXPECT_EQ(SymWingSections::yMaxVtopGet(points), 0);
}

TEST_F(Wing, LargestCoordinateBeyondSixteenBitsIsClipped) {
    const Outline points = wing().computeVTopPoints({1e300, 0, 0});
    EXPECT_EQ(SymWingSections::xMaxVtopGet(points), 32767);
}

TEST_F(Wing, AnOutlineKeepsWhatItHasWhereANumberFails) {
    const Outline before = wing().computeVTopPoints({2, 5, 100});
    wing().pos2 = 1e308;
    wing().length2 = 1e308;
    const Outline after = wing().computeVTopPoints({2, 5, 100}, before);
    EXPECT_EQ(after[1], before[1]);
    EXPECT_EQ(after[3], before[3]) << "the sum is beyond all numbers";
}

}  // namespace
}  // namespace velna
