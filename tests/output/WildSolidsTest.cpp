// Aircraft of numbers drawn by chance, the worst among them: each part is a closed solid or refused
// with a word, and no file holds a number that is none.

#include <cmath>
#include <random>

#include "output/OutputTest.h"
#include "output/SolidExport.h"
#include "output/SolidFiles.h"

namespace velna::test {
namespace {

class WildSolids : public OutputTest {
protected:
    unsigned below(unsigned count) { return static_cast<unsigned>(random_() % count); }

    double number() {
        const double usual = std::uniform_real_distribution<double>(-50, 300)(random_);
        constexpr double odd[] = {0,   -0.0, 1e-9, 1e-6, 5e-7,   -1,    1,      999999.9999,
                                  1e6, 1e7,  1e15, -1e7, 1e-300, 1e300, -1e300, 1.7e308};
        return below(8) == 0 ? odd[below(std::size(odd))] : usual;
    }
    /// Mostly as it is.
    void touch(double& value) {
        if (below(5) == 0) value = number();
    }

    template <class Flat>
    void wild(Flat& part) {
        for (double* value : {&part.span, &part.length1, &part.length2, &part.thickness1,
                              &part.thickness2, &part.pos1, &part.pos2, &part.shift})
            touch(*value);
    }

    void wildPanel(SymWingSections& panel) {
        wild(panel);
        touch(panel.elevation1);
        touch(panel.elevation2);
        if (below(4) == 0) {
            panel.nb = static_cast<std::int16_t>(below(12));
            panel.allocate();
            for (int i = 1; i <= panel.nb; ++i)
                panel.setAirfoilPoint(i, below(5) * 0.25, below(5) * 0.25 - 0.5);
        }
        if (below(3) == 0) panel.set_texture_filename("/pictures/wing.bmp");
    }

    void wildBody(MeshSections& body) {
        body.nb_cross = static_cast<std::int16_t>(below(12));
        body.nb_sections = static_cast<std::int16_t>(2 + below(4));
        body.initArrays();
        for (int i = 1; i <= body.nb_sections; ++i) {
            body.sectionOrder(i) = static_cast<std::int16_t>(i);
            body.pos(i) = 100 * i;
            body.width(i) = below(6) * 10;
            body.height(i) = below(6) * 10;
            body.curvature(i) = body.curvature2(i) = 1;
            body.bias_curve(i) = 0.5;
            for (double* value : {&body.pos(i), &body.width(i), &body.height(i), &body.curvature(i),
                                  &body.curvature2(i), &body.bias_curve(i), &body.elevation(i)})
                if (below(12) == 0) *value = number();
        }
        if (below(3) == 0) body.shift = number();
        if (below(3) == 0) body.texture_filename = "/pictures/body.bmp";
    }

    void wildProject() {
        resetModel();
        nbWings = static_cast<std::int16_t>(1 + below(3));
        Wings.resize(nbWings, SymWingSections(Wings(1)));
        for (int i = 2; i <= nbWings; ++i) {
            Wings(i).shift = Wings(i - 1).shift + Wings(i - 1).span;
            Wings(i).length1 = Wings(i - 1).length2;
            Wings(i).thickness1 = Wings(i - 1).thickness2;
            Wings(i).pos1 = Wings(i - 1).pos1 + Wings(i - 1).pos2;
            Wings(i).elevation1 = Wings(i - 1).elevation1 + Wings(i - 1).elevation2;
        }
        for (int i = 1; i <= nbWings; ++i) wildPanel(Wings(i));
        wildPanel(Stabilizer);
        wild(Rudder);
        Rudder.nb = static_cast<std::int16_t>(below(3) == 0 ? below(40) : 16);
        touch(Rudder.offset1);
        wildBody(Fuselages(1));
        touch(Equipments(1).length);
        touch(Equipments(1).pos);
        project.units = below(2) == 0 ? millimetres : inches;
    }

    /// How many bodies the file has.
    std::size_t expectSound(const std::string& file) {
        const auto bodies = readSolids(file);
        for (const FileBody& body : bodies) EXPECT_EQ(flawOf(body), "") << file << ' ' << body.name;
        return bodies.size();
    }

private:
    std::mt19937_64 random_{20261122};
};

TEST_F(WildSolids, AreClosedOrRefused) {
    std::size_t bodies = 0;
    int refusals = 0;
    int failures = 0;
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        wildProject();
        for (const char* kind : {".stl", ".3mf", ".obj", ".glb"}) {
            const std::string file = folder / (std::string("m") + kind);
            std::filesystem::remove(file);
            const Outcome outcome = Plane::exportSolids(project, *solidFormatOf(kind),
                                                        {false, round % 2 == 0}, file, store);
            refusals += outcome.reason().starts_with("Left out: ");
            if (outcome.reason().starts_with("No part ")) {
                EXPECT_FALSE(std::filesystem::exists(file));
                ++failures;
            } else {
                bodies += expectSound(file);
            }
        }
        if (HasFailure()) break;
    }
    EXPECT_GT(bodies, 3000u);
    EXPECT_GT(refusals, 300);
    EXPECT_GT(failures, 0);
}

}  // namespace
}  // namespace velna::test
