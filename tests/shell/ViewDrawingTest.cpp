#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "editor/FormState.h"
#include "model/Plane.h"
#include "persistence/WholeProject.h"
#include "shell/SvgSurface.h"
#include "shell/ViewDrawing.h"
#include "support/RecordingSurface.h"

namespace velna::test {
namespace {

constexpr Rgb red{255, 0, 16};

int count(const std::string& text, const std::string& part) {
    int found = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++found;
    return found;
}

TEST(ViewDrawing, DrawsEachViewOnASurfaceOfAnySize) {
    for (const char* name : {"default", "twin_fuselage", "boxes", "hidden", "cross2"})
        for (const int mode : {ViewMode::VTop, ViewMode::Front, ViewMode::Side, ViewMode::HTop})
            for (const double size : {1.0, 128.0, 900.0}) {
                Project project;
                const std::string file =
                    std::string(VELNA_TEST_DATA "/projects/current/") + name + ".vln";
                ASSERT_TRUE(Plane::openWholeProject(project, file).isDone());
                const Project before = project;
                RecordingSurface surface(size, size);
                drawView(project, mode, surface);
                EXPECT_TRUE(project == before);
                // What is seen is what was drawn since the last clearing.
                auto last = surface.calls.end();
                while (last != surface.calls.begin() && (last - 1)->kind == SurfaceCall::Kind::Line)
                    --last;
                EXPECT_GT(surface.calls.end() - last, name == std::string("hidden") ? 0 : 3)
                    << name << mode;
                for (; last != surface.calls.end(); ++last) EXPECT_NE(last->colour, white);
            }
}

TEST(SvgSurface, LinesThatGoOnAreOnePath) {
    SvgSurface surface({40, 30});
    surface.line(1, 2, 3, 4, red);
    surface.line(3, 4, 5.25, 6, red);
    surface.line(5.25, 6, 1, 2, black);
    surface.line(9, 9, 9, 9, black);
    const std::string text = surface.text();
    EXPECT_NE(text.find("width=\"40\" height=\"30\" viewBox=\"0 0 40 30\""), std::string::npos);
    EXPECT_NE(text.find("stroke=\"#ff0010\" d=\"M1.000 2.000L3.000 4.000L5.250 6.000\""),
              std::string::npos);
    EXPECT_NE(text.find("d=\"M5.250 6.000L1.000 2.000\""), std::string::npos);
    EXPECT_NE(text.find("d=\"M9.000 9.000L9.000 9.000\""), std::string::npos);
    EXPECT_EQ(count(text, "<path"), 3);
}

TEST(SvgSurface, KeepsWhatIsSeenAlone) {
    SvgSurface surface({100, 100});
    surface.line(1, 1, 2, 2, red);
    surface.clear();
    EXPECT_EQ(count(surface.text(), "<path"), 0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    surface.line(nan, 0, 1, 1, red);
    surface.line(0, 0, infinity, 1, red);
    surface.line(-500, -500, -400, -400, red);
    EXPECT_EQ(count(surface.text(), "<path"), 0);
    surface.line(-1e300, 50, 1e300, 50, red);
    EXPECT_EQ(count(surface.text(), "d=\"M-8.000 50.000L108.000 50.000\""), 1);
}

}  // namespace
}  // namespace velna::test
