// What the fuzz targets hold an aircraft against can fail.

#include <array>
#include <bit>
#include <cstring>
#include <fstream>
#include <limits>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "model/Fuselage.h"
#include "model/MeshSections.h"
#include "model/Plane.h"
#include "output/ZipFile.h"
#include "support/Holds.h"
#include "support/WorkThrough.h"

namespace velna::fuzz {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(UnfiniteWord, IsFoundInAnyCaseAndWithASign) {
    EXPECT_EQ(unfiniteWord("1 2 nan 3"), "nan");
    EXPECT_EQ(unfiniteWord("0, -INF, 1"), "INF");
    EXPECT_EQ(unfiniteWord("10\r\nInfinity\r\n"), "Infinity");
    EXPECT_EQ(unfiniteWord("NAN"), "NAN");
}

TEST(UnfiniteWord, IsNoPartOfAnotherWord) {
    EXPECT_EQ(unfiniteWord("DEF info WorldInfo nano infinite _inf \"nan\" 1E+15"), "");
    EXPECT_EQ(unfiniteWord(""), "");
}

using Corners = std::array<std::array<float, 3>, 3>;

/// An STL file with normals of zeros.
std::string stl(const std::vector<Corners>& triangles) {
    std::string bytes(80, ' ');
    const auto put = [&](auto value) {
        char text[sizeof(value)];
        std::memcpy(text, &value, sizeof(value));
        bytes.append(text, sizeof(value));
    };
    put(static_cast<std::uint32_t>(triangles.size()));
    for (const Corners& corners : triangles) {
        bytes.append(12, '\0');
        put(corners);
        bytes.append(2, '\0');
    }
    return bytes;
}

const std::vector<Corners>& tetrahedron() {
    static constexpr std::array<float, 3> o{0, 0, 0}, x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1};
    static const std::vector<Corners> faces{{o, y, x}, {o, x, z}, {o, z, y}, {x, y, z}};
    return faces;
}

TEST(FinishedFile, OfFiniteNumbersPasses) {
    expectFinite("m.wrl", "DEF a Transform { translation 1E+15 0 -0.5 }");
    expectFinite("m.svg", "<svg width=\"10\"><path d=\"M 0 1\"/></svg>");
    expectFinite("m.stl", stl(tetrahedron()));
    expectClosedStl("m.stl", stl(tetrahedron()));
}

TEST(FinishedFile, WithWhatIsNoNumberEndsTheRun) {
    EXPECT_DEATH(expectFinite("m.wrl", "translation 1 nan 0"), "broken: m.wrl says nan");
    EXPECT_DEATH(expectFinite("m.svg", "<svg width=\"inf\"/>"), "broken: m.svg says inf");
    EXPECT_DEATH(expectFinite("m.json", "{\"span\":nan}"), "broken: m.json says nan");
    std::vector<Corners> faces = tetrahedron();
    faces[2][1][0] = std::numeric_limits<float>::infinity();
    EXPECT_DEATH(expectFinite("m.stl", stl(faces)), "broken: m.stl has a number");
}

TEST(FinishedFile, OfSolidsThatIsCutOrOpenEndsTheRun) {
    std::string bytes = stl(tetrahedron());
    bytes.pop_back();
    EXPECT_DEATH(expectFinite("m.stl", bytes), "broken: m.stl has another length");
    std::vector<Corners> faces = tetrahedron();
    faces.pop_back();
    EXPECT_DEATH(expectClosedStl("m.stl", stl(faces)), "broken: m.stl has an open edge");
}

TEST(FinishedFile, OfBinaryGltfIsLookedThroughBehindItsDescription) {
    const auto glb = [](float number) {
        std::string bytes = std::string("glTF\2\0\0\0....", 12) +
                            std::string("\4\0\0\0JSON{1 }", 12) + std::string("\4\0\0\0BIN\0", 8);
        return bytes.append(std::bit_cast<std::array<char, 4>>(number).data(), 4);
    };
    expectFinite("m.glb", glb(1.5F));
    EXPECT_DEATH(expectFinite("m.glb", glb(std::numeric_limits<float>::quiet_NaN())),
                 "broken: m.glb has a number");
}

/// The bytes of what a writer gives.
struct Bytes : ByteSink {
    void append(std::string_view more) override { bytes += more; }
    void overwrite(std::size_t at, std::string_view other) override {
        bytes.replace(at, other.size(), other);
    }
    void fail(const std::string& reason) override { ADD_FAILURE() << reason; }

    std::string bytes;
};

std::string packed(const std::string& text) {
    Bytes file;
    ZipFile zip(file);
    zip.begin("3D/3dmodel.model");
    zip.append(text);
    zip.endEntry();
    zip.end();
    return file.bytes;
}

TEST(FinishedFile, ThatIsPackedIsLookedThrough) {
    expectFinite("m.3mf", packed("<vertex x=\"1\"/>"));
    EXPECT_DEATH(expectFinite("m.3mf", packed("<vertex x=\"nan\"/>")),
                 "broken: m.3mf/3D/3dmodel.model says nan");
}

TEST(FinishedFile, ThatIsPackedAndCutOrChangedEndsTheRun) {
    std::string bytes = packed("<vertex x=\"1\"/>");
    EXPECT_DEATH(expectFinite("m.3mf", bytes.substr(1)), "broken: m.3mf: ");
    EXPECT_DEATH(expectFinite("m.3mf", bytes.substr(0, 10)), "broken: m.3mf: the archive is cut");
    bytes[14] ^= 1;  // the sum
    EXPECT_DEATH(expectFinite("m.3mf", bytes), "broken: m.3mf: an entry is told in two ways");
}

TEST(Word, IsWantedOfWhatFails) {
    expectWord("a plan", Outcome());
    expectWord("a plan", Outcome::failed("No part."));
    EXPECT_DEATH(expectWord("a plan", Outcome::failed("")), "broken: a plan fails without");
    EXPECT_DEATH(expectWord("a plan", Outcome::cancelled()), "broken: a plan is cancelled");
    EXPECT_DEATH(expectWord("a plan", Outcome::failed("inf mm")), "broken: a plan says");
}

TEST(ScratchFiles, AreTakenOnce) {
    { std::ofstream(scratchFolder() + "one") << "1"; }
    EXPECT_EQ(takeScratchFiles(), (std::map<std::string, std::string>{{"one", "1"}}));
    EXPECT_TRUE(takeScratchFiles().empty());
}

#ifdef __SANITIZE_ADDRESS__
TEST(Leak, EndsTheRun) {
    const auto lose = [] {
        // A register may still hold the last of them.
        for (int i = 0; i < 100; ++i) static_cast<void>(new std::string(1000, 'x'));
        expectNoLeak();
    };
    EXPECT_DEATH(lose(), "broken: memory is lost");
}
#endif

TEST(Choice, OfAHashTakesAFewAndInTimeAll) {
    std::set<std::size_t> taken;
    for (int input = 0; input < 200; ++input) {
        const Choice choice = Choice::byHash(std::to_string(input));
        std::size_t count = 0;
        for (std::size_t work = 0; work < workCount(); ++work) {
            if (!choice.takes(work)) continue;
            taken.insert(work);
            ++count;
        }
        EXPECT_LT(count, workCount() / 2);
    }
    EXPECT_EQ(taken.size(), workCount());
}

class WorkThrough : public ::testing::Test {
protected:
    void SetUp() override { Plane::setDefaultPlane(aircraft); }
    std::size_t work() { return workThrough(aircraft, Choice::everything()); }

    Project aircraft;
};

TEST_F(WorkThrough, TakesASoundAircraftThroughEverything) {
    EXPECT_EQ(work(), workCount());
    EXPECT_TRUE(takeScratchFiles().empty());
}

TEST_F(WorkThrough, LooksAtFilesAndNotAtTheNamesOfPictures) {
    aircraft.Wings(1).set_texture_filename("nan.bmp");
    aircraft.Rudder.texture_filename = "inf";
    EXPECT_EQ(work(), workCount());
}

using ANumberThatIsNone = WorkThrough;

TEST_F(ANumberThatIsNone, InAColourEndsTheRun) {
    aircraft.Wings(1).set_color({notANumber, 0, 0});
    EXPECT_DEATH(work(), "broken: s.mtl says nan");
}

TEST_F(ANumberThatIsNone, InAFuselageEndsTheRun) {
    aircraft.Fuselages(1).height(2) = notANumber;
    EXPECT_DEATH(work(), "broken: ");
}

}  // namespace
}  // namespace velna::fuzz
