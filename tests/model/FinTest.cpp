#include "support/FreshModel.h"

namespace velna {
namespace {

class Fin : public FreshModel {
protected:
    FinSolid& solid() { return solids.rudder; }
    void build() { solid().create(Rudder); }
    /// A picture of that size, converted.
    void carry(int width, int height) {
        solid().picture.texture_loaded = true;
        solid().picture.xtex = width;
        solid().picture.ytex = height;
    }
};

TEST_F(Fin, DefaultStandsFromItsRootToItsTip) {
    build();
    for (int i = 1; i <= 16; ++i) {
        EXPECT_EQ(solid().rootPoint(i, false).z, 30);
        EXPECT_EQ(solid().tipPoint(i, false).z, 180);
    }
    EXPECT_EQ(solid().rootPoint(1, false).x, 650);
    EXPECT_EQ(solid().rootPoint(8, false).x, 800);
    EXPECT_EQ(solid().rootPoint(9, false).x, 800);
    EXPECT_EQ(solid().tipPoint(1, false).x, 750);
    EXPECT_EQ(solid().tipPoint(8, false).x, 830);
}

TEST_F(Fin, IsThickestAtThreeTenthsOfTheChord) {
    build();
    EXPECT_DOUBLE_EQ(solid().rootPoint(6, false).x, 650 + 0.3 * 150);
    EXPECT_DOUBLE_EQ(solid().rootPoint(6, false).y - solid().rootPoint(11, false).y, 0.1 * 150);
    for (int i = 1; i <= 16; ++i)
        EXPECT_LE(solid().rootPoint(i, false).y, solid().rootPoint(6, false).y);
    EXPECT_DOUBLE_EQ(solid().chordRatio(6), 0.3);
}

TEST_F(Fin, MirroredProfileIsMovedAndNotFlipped) {
    Rudder.offset1 = 40;
    Rudder.offset2 = -10;
    build();
    EXPECT_TRUE(Rudder.mirrored());
    for (int i = 1; i <= 16; ++i) {
        EXPECT_DOUBLE_EQ(solid().rootPoint(i, true).y, solid().rootPoint(i, false).y - 80);
        EXPECT_DOUBLE_EQ(solid().tipPoint(i, true).y, solid().tipPoint(i, false).y - 60);
        EXPECT_EQ(solid().rootPoint(i, true).x, solid().rootPoint(i, false).x);
    }
    EXPECT_DOUBLE_EQ(solid().rootPoint(6, true).y, -40 + 7.5);
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
    Rudder.init(project.defaultColor);
    EXPECT_EQ(Rudder.offset1, 40);
    EXPECT_EQ(Rudder.offset2, 5);
    EXPECT_EQ(Rudder.span, 150);
    EXPECT_EQ(Rudder.nb, 16);
    EXPECT_EQ(Rudder.texture_filename, "");
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
    build();
    EXPECT_EQ(solid().rootTexCoord(8), 0);
    carry(64, 128);
    build();
    EXPECT_EQ(solid().rootTexCoord(8), 2);
    EXPECT_EQ(solid().rootTexCoord(9), 2);
    EXPECT_EQ(solid().tipTexCoord(1), ((750.0 - 650) / 150) * 128 / 64);
    EXPECT_EQ(solid().tipTexCoord(16), solid().tipTexCoord(1));
}

TEST_F(Fin, WithoutSpanOrPictureSizeHasPlacesOfZero) {
    carry(64, 64);
    Rudder.span = 0;
    build();
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(solid().rootTexCoord(i), 0);
    Rudder.span = 150;
    carry(0, 64);
    build();
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(solid().rootTexCoord(i), 0);
}

TEST_F(Fin, WithoutRootChordHasChordRatiosOfZero) {
    Rudder.length1 = 0;
    build();
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(solid().chordRatio(i), 0);
}

TEST_F(Fin, AnyNumberOfPointsBuildsAClosedSection) {
    carry(64, 64);
    constexpr std::int16_t counts[] = {0, 1, 2, 3, 7, 8, 15, 17, 40, 1001};
    for (std::int16_t nb : counts) {
        Rudder.nb = nb;
        build();
        ASSERT_EQ(solid().pointCount(), nb);
        for (int i = 1; i <= nb; ++i) {
            const Point3D point = solid().rootPoint(i, false);
            const Point3D opposite = solid().rootPoint(nb + 1 - i, false);
            EXPECT_EQ(point.x, opposite.x) << nb << " " << i;
            if (i != nb + 1 - i) {
                EXPECT_EQ(point.y, -opposite.y) << nb << " " << i;
            }
        }
    }
    Rudder.nb = -7;
    build();
    EXPECT_EQ(solid().pointCount(), 0);
    EXPECT_EQ(solid().rootPoint(1, true), Point3D{});
    EXPECT_EQ(solid().rootTexCoord(1), 0);
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
