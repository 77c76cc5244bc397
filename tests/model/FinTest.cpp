#include "support/FreshModel.h"

namespace velna {
namespace {

using Fin = FreshModel;

TEST_F(Fin, DefaultStandsFromItsRootToItsTip) {
    Rudder.create();
    for (int i = 1; i <= 16; ++i) {
        EXPECT_EQ(Rudder.rootPoint(i, false).z, 30);
        EXPECT_EQ(Rudder.tipPoint(i, false).z, 180);
    }
    EXPECT_EQ(Rudder.rootPoint(1, false).x, 650);
    EXPECT_EQ(Rudder.rootPoint(8, false).x, 800);
    EXPECT_EQ(Rudder.rootPoint(9, false).x, 800);
    EXPECT_EQ(Rudder.tipPoint(1, false).x, 750);
    EXPECT_EQ(Rudder.tipPoint(8, false).x, 830);
}

TEST_F(Fin, IsThickestAtThreeTenthsOfTheChord) {
    Rudder.create();
    EXPECT_DOUBLE_EQ(Rudder.rootPoint(6, false).x, 650 + 0.3 * 150);
    EXPECT_DOUBLE_EQ(Rudder.rootPoint(6, false).y - Rudder.rootPoint(11, false).y, 0.1 * 150);
    for (int i = 1; i <= 16; ++i)
        EXPECT_LE(Rudder.rootPoint(i, false).y, Rudder.rootPoint(6, false).y);
    EXPECT_DOUBLE_EQ(Rudder.chordRatio(6), 0.3);
}

TEST_F(Fin, MirroredProfileIsMovedAndNotFlipped) {
    Rudder.offset1 = 40;
    Rudder.offset2 = -10;
    Rudder.create();
    EXPECT_TRUE(Rudder.mirrored());
    for (int i = 1; i <= 16; ++i) {
        EXPECT_DOUBLE_EQ(Rudder.rootPoint(i, true).y, Rudder.rootPoint(i, false).y - 80);
        EXPECT_DOUBLE_EQ(Rudder.tipPoint(i, true).y, Rudder.tipPoint(i, false).y - 60);
        EXPECT_EQ(Rudder.rootPoint(i, true).x, Rudder.rootPoint(i, false).x);
    }
    EXPECT_DOUBLE_EQ(Rudder.rootPoint(6, true).y, -40 + 7.5);
}

TEST_F(Fin, IsATwinAsSoonAsAnOffsetIsNotZero) {
    EXPECT_FALSE(Rudder.mirrored());
    Rudder.offset2 = 0.5;
    EXPECT_TRUE(Rudder.mirrored());
}

TEST_F(Fin, InitLeavesTheOffsets) {
    Rudder.offset1 = 40;
    Rudder.offset2 = 5;
    Rudder.span = 1;
    Rudder.nb = 3;
    Rudder.texture_filename = "x.bmp";
    Rudder.xtex = 64;
    Rudder.init();
    EXPECT_EQ(Rudder.offset1, 40);
    EXPECT_EQ(Rudder.offset2, 5);
    EXPECT_EQ(Rudder.span, 150);
    EXPECT_EQ(Rudder.nb, 16);
    EXPECT_EQ(Rudder.texture_filename, "");
    EXPECT_EQ(Rudder.xtex, 0);
}

TEST_F(Fin, ConversionTakesTheEightLengths) {
    Rudder.offset1 = 254;
    Rudder.offset2 = 25.4;
    Rudder.switchToInches();
    EXPECT_EQ(Rudder.offset1, 10);
    EXPECT_EQ(Rudder.offset2, 1);
    EXPECT_EQ(Rudder.shift, 30 / 25.4);
    EXPECT_EQ(Rudder.length2, 80 / 25.4);
    EXPECT_EQ(Rudder.thickness1, 0.1);
    Rudder.switchToMillimeters();
    EXPECT_EQ(Rudder.offset1, 254);
    Rudder.rescale(0.5);
    EXPECT_EQ(Rudder.offset1, 127);
    EXPECT_EQ(Rudder.pos2, 50);
    EXPECT_EQ(Rudder.thickness2, 0.1);
}

TEST_F(Fin, PicturePlacesAreBuiltWithAPictureOnly) {
    Rudder.create();
    EXPECT_EQ(Rudder.rootTexCoord(8), 0);
    Rudder.texture_loaded = true;
    Rudder.xtex = 64;
    Rudder.ytex = 128;
    Rudder.create();
    EXPECT_EQ(Rudder.rootTexCoord(8), 2);
    EXPECT_EQ(Rudder.rootTexCoord(9), 2);
    EXPECT_EQ(Rudder.tipTexCoord(1), ((750.0 - 650) / 150) * 128 / 64);
    EXPECT_EQ(Rudder.tipTexCoord(16), Rudder.tipTexCoord(1));
}

TEST_F(Fin, WithoutSpanOrPictureSizeHasPlacesOfZero) {
    Rudder.texture_loaded = true;
    Rudder.xtex = 64;
    Rudder.ytex = 64;
    Rudder.span = 0;
    Rudder.create();
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(Rudder.rootTexCoord(i), 0);
    Rudder.span = 150;
    Rudder.xtex = 0;
    Rudder.create();
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(Rudder.rootTexCoord(i), 0);
}

TEST_F(Fin, WithoutRootChordHasChordRatiosOfZero) {
    Rudder.length1 = 0;
    Rudder.create();
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(Rudder.chordRatio(i), 0);
}

TEST_F(Fin, AnyNumberOfPointsBuildsAClosedSection) {
    Rudder.texture_loaded = true;
    Rudder.xtex = 64;
    Rudder.ytex = 64;
    constexpr std::int16_t counts[] = {0, 1, 2, 3, 7, 8, 15, 17, 40, 1001};
    for (std::int16_t nb : counts) {
        Rudder.nb = nb;
        Rudder.create();
        ASSERT_EQ(Rudder.pointCount(), nb);
        for (int i = 1; i <= nb; ++i) {
            const Point3D point = Rudder.rootPoint(i, false);
            const Point3D opposite = Rudder.rootPoint(nb + 1 - i, false);
            EXPECT_EQ(point.x, opposite.x) << nb << " " << i;
            if (i != nb + 1 - i) {
                EXPECT_EQ(point.y, -opposite.y) << nb << " " << i;
            }
        }
    }
    Rudder.nb = -7;
    Rudder.create();
    EXPECT_EQ(Rudder.pointCount(), 0);
    EXPECT_EQ(Rudder.rootPoint(1, true), Point3D{});
    EXPECT_EQ(Rudder.rootTexCoord(1), 0);
}

TEST_F(Fin, OutlinesOfTheViews) {
    Rudder.offset1 = 40;
    Rudder.offset2 = -10;
    const double root = (0.1 * 150) / 2;
    const double tip = (0.1 * 80) / 2;
    const Outline side = Rudder.computeSidePoints({2, 5, 100});
    EXPECT_EQ(side[1], (Point2D{1305, 40}));
    EXPECT_EQ(side[2], (Point2D{1605, 40}));
    EXPECT_EQ(side[3], (Point2D{1665, -260}));
    EXPECT_EQ(side[4], (Point2D{1505, -260}));
    EXPECT_EQ(side[5], side[1]);
    const Outline front = Rudder.computeFrontPoints({2, 5, 100});
    EXPECT_EQ(front[1], (Point2D{(40 - root) * 2 + 5, 40}));
    EXPECT_EQ(front[2], (Point2D{(root + 40) * 2 + 5, 40}));
    EXPECT_EQ(front[3], (Point2D{(40.0 - 10 + tip) * 2 + 5, -260}));
    EXPECT_EQ(front[4], (Point2D{(40.0 - 10 - tip) * 2 + 5, -260}));
    EXPECT_EQ(front[5], front[1]);
    const Outline plan = Rudder.computeVTopPoints({2, 5, 100});
    EXPECT_EQ(plan[1], (Point2D{(root + 40) * 2 + 5, 1400}));
    EXPECT_EQ(plan[2], (Point2D{(root + 40) * 2 + 5, 1700}));
    EXPECT_EQ(plan[3], (Point2D{(40 - root) * 2 + 5, 1700}));
    EXPECT_EQ(plan[4], (Point2D{(40 - root) * 2 + 5, 1400}));
    EXPECT_EQ(plan[5], plan[1]);
}

}  // namespace
}  // namespace velna
