// Whatever a file or an edit leaves in the model, nothing reads past an array and nothing that is
// not finite comes out. The sanitizers of the dev build watch.

#include <cmath>

#include "support/FreshModel.h"

namespace velna {
namespace {

constexpr double numbers[] = {0, -1, 1e308, -1e308, 5e-324, -0.0, 1.7976931348623157e308};
constexpr std::int16_t counts[] = {-32768, -1, 0, 1, 2, 3, 9, 100, 32767};
constexpr std::int16_t crossCounts[] = {-32768, -1, 0, 1, 2, 3, 9, 500};

class Extremes : public FreshModel {
protected:
    static bool finite(const Point3D& p) {
        return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
    }
    static bool finite(const Point2D& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

    static void expectFiniteSolids() {
        for (const WingSection* half : {&solids.wings(1).Left, &solids.stabilizer.Right})
            for (int i = 1; i <= half->pointCount(); ++i) {
                EXPECT_TRUE(finite(half->rootPoint(i)));
                EXPECT_TRUE(finite(half->tipPoint(i)));
            }
        for (int i = 1; i <= solids.rudder.pointCount(); ++i) {
            EXPECT_TRUE(finite(solids.rudder.rootPoint(i, true)));
            EXPECT_TRUE(finite(solids.rudder.tipPoint(i, true)));
            EXPECT_TRUE(std::isfinite(solids.rudder.chordRatio(i)));
        }
        const BodySolid& body = solids.fuselages(1);
        for (int i = 1; i <= body.points.rows(); ++i)
            for (int j = 1; j <= body.points.columns(); ++j) {
                EXPECT_TRUE(finite(body.meshPoint(j, i, true)));
                EXPECT_TRUE(finite(body.texCoordAt(j, i)));
            }
        EXPECT_TRUE(finite(solids.equipments(1).centre()));
    }

    /// All outlines, each on what it had before, as the views keep them.
    void computeAllOutlines(double zoom) {
        const Transform at{zoom, 1, 1};
        wing_.side = Wings(1).computeSidePoints(at, wing_.side);
        wing_.htop = Wings(1).computeHTopPoints(at, wing_.htop);
        wing_.front = Wings(1).computeFrontPoints(at, wing_.front);
        wing_.vtop = Wings(1).computeVTopPoints(at, wing_.vtop);
        fin_.side = Rudder.computeSidePoints(at, fin_.side);
        fin_.front = Rudder.computeFrontPoints(at, fin_.front);
        fin_.vtop = Rudder.computeVTopPoints(at, fin_.vtop);
        body_.side = Fuselages(1).computeSidePoints(at, body_.side);
        body_.htop = Fuselages(1).computeHTopPoints(at, body_.htop);
        body_.vtop = Fuselages(1).computeVTopPoints(at, body_.vtop);
        body_.front = Fuselages(1).computeFrontPoints(at, body_.front);
        box_.side = Equipments(1).computeSidePoints(at, box_.side);
        box_.htop = Equipments(1).computeHTopPoints(at, box_.htop);
    }

    void expectFiniteOutlines() const {
        for (std::size_t i = 1; i <= 5; ++i) {
            EXPECT_TRUE(finite(wing_.front[i]) && finite(wing_.vtop[i]));
            EXPECT_TRUE(finite(wing_.htop.points[i]) && finite(wing_.htop.mirrored[i]));
            EXPECT_TRUE(finite(fin_.side[i]) && finite(fin_.front[i]) && finite(fin_.vtop[i]));
        }
        const MeshSections& body = Fuselages(1);
        for (int i = 1; i <= body.sectionCount(); ++i) {
            EXPECT_TRUE(finite(body_.side.top(i)) && finite(body_.side.bottom(i)));
            EXPECT_TRUE(finite(body_.htop.plus(i)) && finite(body_.vtop(i)));
            for (int j = 1; j <= body.nb_cross; ++j) EXPECT_TRUE(finite(body_.front(i, j)));
        }
        for (std::size_t i = 1; i <= 4; ++i)
            EXPECT_TRUE(finite(box_.side[i]) && finite(box_.htop[i]));
    }

private:
    struct {
        Array1<Point2D> side;
        HTopOutlines htop;
        Outline front{};
        Outline vtop{};
    } wing_;
    struct {
        Outline side{};
        Outline front{};
        Outline vtop{};
    } fin_;
    struct {
        SideEdges side;
        HTopEdges htop;
        Array1<Point2D> vtop;
        Array2<Point2D> front;
    } body_;
    struct {
        Rectangle side{};
        Rectangle htop{};
    } box_;
};

void setAllNumbers(double value, double other) {
    SymWingSections& wing = Wings(1);
    for (double* field :
         {&wing.span, &wing.length1, &wing.pos1, &wing.elevation1, &wing.shift, &wing.thickness1,
          &Rudder.span, &Rudder.length1, &Rudder.pos1, &Rudder.shift, &Rudder.offset1,
          &Rudder.thickness2, &Equipments(1).pos, &Equipments(1).length, &Equipments(1).shift,
          &Fuselages(1).shift, &Fuselages(1).pos_offset})
        *field = value;
    for (double* field :
         {&wing.length2, &wing.pos2, &wing.elevation2, &wing.thickness2, &Rudder.length2,
          &Rudder.pos2, &Rudder.offset2, &Rudder.thickness1, &Equipments(1).elevation,
          &Equipments(1).height, &Fuselages(1).elevation_offset})
        *field = other;
    MeshSections& body = Fuselages(1);
    for (int k = 1; k <= 3; ++k) {
        body.height(k) = k == 2 ? value : other;
        body.width(k) = value;
        body.pos(k) = k == 3 ? other : value;
        body.elevation(k) = other;
        body.curvature(k) = k == 1 ? 1 : value;
        body.curvature2(k) = other;
        body.bias_curve(k) = k == 2 ? other : 0.5;
    }
    for (int i = 1; i <= 16; i += 3) wing.setAirfoilPoint(i, value, other);
}

TEST_F(Extremes, NumbersNeverMakeAnythingThatIsNotFinite) {
    for (double value : numbers) {
        for (double other : numbers) {
            for (std::int16_t cross : {std::int16_t{7}, std::int16_t{8}}) {
                resetModel();
                Fuselages(1).nb_cross = cross;
                Fuselages(1).initArrays();
                solids.rudder.picture.texture_loaded = true;
                solids.rudder.picture.xtex = 64;
                setAllNumbers(value, other);
                solids.createAll(project);
                expectFiniteSolids();
                computeAllOutlines(value);
                computeAllOutlines(3);
                expectFiniteOutlines();
                Wings(1).normalizeAirfoil();
                Fuselages(1).smoothTop();
                Fuselages(1).smoothDown();
                Fuselages(1).SmoothWidth();
                Fuselages(1).sel_sec = 2;
                Fuselages(1).insertSection(value);
                Fuselages(1).removeSection();
                ++nbWings;
                MainWing::addWing(project);
                Plane::rescaleAll(project, value);
                Plane::switchAllToMillimeters(project);
                solids.createAll(project);
                expectFiniteSolids();
                EXPECT_TRUE(std::isfinite(Fuselages(1).lengthPoint()));
                EXPECT_TRUE(std::isfinite(Fuselages(1).startpoint()));
                EXPECT_TRUE(std::isfinite(Fuselages(1).maxElevationPoint()));
                EXPECT_TRUE(std::isfinite(Fuselages(1).minElevationPoint()));
                EXPECT_TRUE(std::isfinite(Fuselages(1).maxWidthPoint()));
                EXPECT_GE(SymWingSections::xMaxVtopGet(Wings(1).computeVTopPoints({value, 1, 1})),
                          0);
            }
        }
    }
}

TEST_F(Extremes, CountsNeverReadPastAnArray) {
    for (std::int16_t sections : counts) {
        for (std::int16_t cross : crossCounts) {
            for (std::int16_t selected : counts) {
                resetModel();
                MeshSections& body = Fuselages(1);
                body.nb_sections = sections;
                body.nb_cross = cross;
                body.sel_sec = selected;
                solids.fuselages(1).create(body);
                computeAllOutlines(1);
                body.widthSet(3);
                body.curvatureSet(1);
                body.smoothTop();
                body.smoothDown();
                body.SmoothWidth();
                body.rescale(2);
                body.fillCurvatureArrays();
                if (sections <= 100) {
                    body.removeSection();
                    body.insertSection(5);
                }
                EXPECT_TRUE(std::isfinite(body.widthGet()));
                EXPECT_LE(solids.fuselages(1).points.rows(), 3);
            }
        }
    }
}

TEST_F(Extremes, OrderThatPointsNowhereIsHarmless) {
    MeshSections& body = Fuselages(1);
    for (std::int16_t k : counts) {
        body.sectionOrder(1) = k;
        body.sectionOrder(3) = k;
        body.sel_sec = 3;
        solids.fuselages(1).create(body);
        computeAllOutlines(1);
        expectFiniteOutlines();
        body.insertSection(300);
        body.removeSection();
        body.smoothTop();
        body.smoothDown();
        body.widthSet(1);
        EXPECT_GE(body.nb_sections, 2);
        const MeshSections copy = body.copyShapeAndSelectLast();
        EXPECT_EQ(copy.nb_sections, body.nb_sections);
    }
}

TEST_F(Extremes, NumbersOfAirfoilPointsNeverReadPastAnArray) {
    for (std::int16_t nb : counts) {
        Wings(1).nb = nb;
        solids.wings(1).create(Wings(1));
        Wings(1).normalizeAirfoil();
        EXPECT_EQ(Wings(1).computeSidePoints({}).upper(), Wings(1).pointCount());
        WingSection& half = solids.wings(1).Left;
        half.picture.xtex = 64;
        half.picture.ytex = 64;
        half.create_texcoords();
        EXPECT_LE(Wings(1).pointCount(), 16);
        Rudder.nb = nb;
        solids.rudder.create(Rudder);
        EXPECT_GE(solids.rudder.pointCount(), 0);
    }
    Wings(1).nb = 32767;
    Wings(1).allocate();
    solids.wings(1).create(Wings(1));
    EXPECT_EQ(solids.wings(1).Left.pointCount(), 32767);
}

}  // namespace
}  // namespace velna
