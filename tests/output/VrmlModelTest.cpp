#include <algorithm>
#include <sstream>

#include "output/IO_VRMl.h"
#include "output/OutputTest.h"

namespace velna::test {
namespace {

class VrmlModel : public OutputTest {
protected:
    /// Exports and keeps the text, and its lines without their ends.
    void write(const std::string& told = "") {
        ASSERT_EQ(exportWhole(file).reason(), told);
        text = bytesOf(file);
        lines.clear();
        std::istringstream stream(text);
        for (std::string line; std::getline(stream, line);) {
            ASSERT_FALSE(line.empty());
            ASSERT_EQ(line.back(), '\r') << line;
            line.pop_back();
            lines.push_back(line);
        }
    }

    int count(const std::string& line) const {
        return static_cast<int>(std::ranges::count(lines, line));
    }

    bool has(const std::string& line) const { return count(line) > 0; }

    /// The lines of the `n`th node (from 1) of that name, up to its end.
    std::vector<std::string> node(const std::string& name, int n = 1) const {
        auto at = lines.begin();
        for (; n > 0; --n) {
            at = std::find(at, lines.end(), "    # " + name);
            if (at == lines.end()) return {};
            ++at;
        }
        return {at, std::find(at, lines.end(), "    }") + 1};
    }

    /// The lines of the `n`th list (between the brackets behind `title`) of a node.
    static std::vector<std::string> list(const std::vector<std::string>& node,
                                         const std::string& title) {
        auto at = std::find(node.begin(), node.end(), title);
        if (at == node.end()) return {};
        at = std::find_if(at, node.end(), [](const auto& line) { return line.ends_with("["); });
        const auto end =
            std::find_if(at, node.end(), [](const auto& line) { return line.ends_with("]"); });
        return {at + 1, end};
    }

    static std::vector<std::string> points(const std::vector<std::string>& node) {
        return list(node, "            point");
    }
    static std::vector<std::string> faces(const std::vector<std::string>& node) {
        return list(node, "          coordIndex");
    }
    static std::vector<std::string> textureFaces(const std::vector<std::string>& node) {
        return list(node, "          texCoordIndex");
    }

    std::string file = folder / "model.wrl";
    std::string text;
    std::vector<std::string> lines;
};

TEST_F(VrmlModel, HoldsTheAircraftInItsOrder) {
    write();
    std::vector<std::string> names;
    for (const std::string& line : lines)
        if (line.starts_with("    # ")) names.push_back(line.substr(6));
    EXPECT_EQ(names, (std::vector<std::string>{"WingLeft", "WingRight", "StabLeft", "StabRight",
                                               "Fuselage", "Rudder", "Equipment"}));
    EXPECT_EQ(IO_VRMl::vrmlUnitScale, (Point3D{1, 1, 1}));
}

TEST_F(VrmlModel, NamesTheVersionWithoutBlanks) {
    write();
    EXPECT_EQ(lines[0], "#VRML V2.0 utf8");
    EXPECT_EQ(lines[1], "#File produced with Velna V 2.2.1");
}

TEST_F(VrmlModel, TicksEveryFuselageAndEndsAtTheLast) {
    nbFuselages = 3;
    Fuselage::resizeFuselages(project);
    Fuselages(2);
    Fuselages(3);
    ObjectList.update(Fuselages, nbFuselages);
    ObjectList.setShown(2, false);
    write();
    for (int i = 1; i <= 3; ++i) EXPECT_TRUE(ObjectList.shown(i));
    EXPECT_EQ(currentFuselage, 3);
    // The hidden one had no mesh before: showing all of them rebuilt it.
    EXPECT_EQ(points(node("Fuselage", 2))[4], "0 -10 20,");
}

TEST_F(VrmlModel, UnshiftedFuselageIsOneNode) {
    write();
    EXPECT_EQ(count("    # Fuselage"), 1);
}

TEST_F(VrmlModel, ShiftedFuselageHasATwinLoweredByTwiceTheShift) {
    Fuselages(1).shift = 50;
    write();
    EXPECT_EQ(count("    # Fuselage"), 2);
    EXPECT_EQ(points(node("Fuselage", 1))[0], "0 60 20,");
    EXPECT_EQ(points(node("Fuselage", 2))[0], "0 -40 20,");
    EXPECT_EQ(points(node("Fuselage", 1)).size(), points(node("Fuselage", 2)).size());
}

TEST_F(VrmlModel, FinWithoutOffsetsIsOneNode) {
    write();
    EXPECT_EQ(count("    # Rudder"), 1);
}

TEST_F(VrmlModel, EitherOffsetOfTheFinMakesATwin) {
    Rudder.offset2 = 10;
    write();
    EXPECT_EQ(count("    # Rudder"), 2);
    Rudder.offset2 = 0;
    Rudder.offset1 = -1;
    write();
    EXPECT_EQ(count("    # Rudder"), 2);
}

TEST_F(VrmlModel, FinRepeatsItsLastPoint) {
    write();
    const auto list = points(node("Rudder"));
    ASSERT_EQ(list.size(), 33U);
    EXPECT_EQ(list[31], list[32] + ",");
}

TEST_F(VrmlModel, BoxHasAnAppearanceWithAnEmptyPicture) {
    write();
    const auto box = node("Equipment");
    EXPECT_NE(std::ranges::find(box, "      translation 215 5 62.5"), box.end());
    // No blank behind the word: readers take it, and files of all versions look so.
    EXPECT_NE(std::ranges::find(box, "          size30 15 25"), box.end());
    EXPECT_NE(std::ranges::find(box, "            texture ImageTexture {"), box.end());
    EXPECT_NE(std::ranges::find(box, "            url \"\""), box.end());
    EXPECT_NE(std::ranges::find(box, "              diffuseColor 0 0 1"), box.end());
}

TEST_F(VrmlModel, EightByThreeFuselageHasTwentyFourPoints) {
    write();
    const auto body = node("Fuselage");
    const auto list = points(body);
    ASSERT_EQ(list.size(), 24U);
    for (std::size_t i = 0; i < list.size(); ++i) EXPECT_EQ(list[i].back() == ',', i != 23) << i;
    int largest = 0;
    for (const std::string& face : faces(body)) {
        std::istringstream numbers(face);
        for (int index = 0; numbers >> index; numbers.ignore(2)) largest = std::max(largest, index);
    }
    EXPECT_EQ(largest, 23);
    EXPECT_EQ(faces(body).size(), 2U * 2 * 8);
}

TEST_F(VrmlModel, FaceLinesKeepAPlaceForTheSign) {
    write();
    EXPECT_EQ(faces(node("Fuselage"))[0], " 0 ,  9 ,  8 , -1,");
}

TEST_F(VrmlModel, OnlyTheSecondClosingFacesLackTheComma) {
    write();
    const auto list = faces(node("Fuselage"));
    EXPECT_EQ(list[7], " 7 ,  8 ,  15 , -1,");
    for (std::size_t i = 0; i < list.size(); ++i)
        EXPECT_EQ(list[i].ends_with(", -1"), i == 23 || i == 31) << i << list[i];
}

TEST_F(VrmlModel, EveryBayOfAnEightBySevenFuselageHasAHole) {
    load("hole_8x7");
    write();
    const auto list = faces(node("Fuselage"));
    for (int bay = 0; bay < 6; ++bay) {
        const int base = 8 * bay;
        const auto face = [&](int a, int b, int c) {
            return " " + std::to_string(base + a) + " ,  " + std::to_string(base + b) + " ,  " +
                   std::to_string(base + c) + " , -1,";
        };
        EXPECT_EQ(std::ranges::find(list, face(5, 6, 14)), list.end()) << bay;
        EXPECT_NE(std::ranges::find(list, face(4, 5, 13)), list.end()) << bay;
        EXPECT_NE(std::ranges::find(list, face(6, 7, 15)), list.end()) << bay;
    }
}

TEST_F(VrmlModel, TransparentFuselageIsCutOpen) {
    Fuselages(1).transparent = true;
    write();
    const auto list = faces(node("Fuselage"));
    // Of 8 outline points the strip has 3 to 6: from the top over the side of negative y down.
    ASSERT_EQ(list.size(), 2U * 2 * 4);
    EXPECT_EQ(list.front(), " 2 ,  11 ,  10 , -1,");
    EXPECT_EQ(list.back(), " 13 ,  14 ,  22 , -1,");
    for (const std::string& face : list) EXPECT_TRUE(face.ends_with(", -1,"));
}

TEST_F(VrmlModel, TransparentFuselageHasThePicturesFacesOfAWholeOne) {
    Fuselages(1).transparent = true;
    Fuselages(1).texture_filename = "/pictures/tex_fus.bmp";
    Fuselages(1).qualified_texture_filename = "tex_fus.bmp";
    write();
    EXPECT_EQ(textureFaces(node("Fuselage")).size(), 2U * 2 * 8);
}

TEST_F(VrmlModel, OneOrNoOutlinePointLeavesOnePointAndClosingFaces) {
    Fuselages(1).shift = 7;
    for (std::int16_t outlinePoints : {std::int16_t{0}, std::int16_t{1}}) {
        Fuselages(1).nb_cross = outlinePoints;
        write();
        for (int n : {1, 2}) {
            EXPECT_EQ(points(node("Fuselage", n)), std::vector<std::string>{"0 0 0"});
            EXPECT_EQ(faces(node("Fuselage", n)),
                      (std::vector<std::string>{"-1 ,  0 , -1 , -1,", "-1 ,  0 , -1 , -1,",
                                                "-1 ,  0 ,  0 , -1", "-1 ,  0 ,  0 , -1"}));
        }
    }
}

TEST_F(VrmlModel, AirfoilWithoutPointsStillNamesOnlyPointsOfItsList) {
    Wings(1).nb = 0;
    Wings(1).allocate();
    write();
    EXPECT_EQ(points(node("WingLeft")), std::vector<std::string>{"0 0 0"});
}

TEST_F(VrmlModel, SmallestOutlineHasTwoFacesABay) {
    load("cross2");
    write();
    EXPECT_EQ(faces(node("Fuselage")).size(),
              4U * static_cast<std::size_t>(Fuselages(1).nb_sections - 1));
}

TEST_F(VrmlModel, RightWingNegatesTheTextureCoordinates) {
    load("tex_all");
    write();
    const auto left = list(node("WingLeft"), "          texCoord TextureCoordinate ");
    const auto right = list(node("WingRight"), "          texCoord TextureCoordinate ");
    // The right half's own span is negative, so its coordinates are too: negated they are the
    // left's.
    EXPECT_EQ(left, right);
    EXPECT_EQ(left.front().back(), ' ');
}

TEST_F(VrmlModel, FuselageTextureLinesEndInTheirNumber) {
    load("tex_all");
    write();
    for (const std::string& line :
         list(node("Fuselage"), "          texCoord TextureCoordinate ")) {
        EXPECT_TRUE(line.back() != ' ' && line.back() != ',') << line;
        EXPECT_EQ(std::ranges::count(line, ' '), 1) << line;
    }
}

TEST_F(VrmlModel, FuselageWithoutOutlinePointsHasOneTextureLineForItsOnePoint) {
    load("tex_all");
    Fuselages(1).nb_cross = 0;
    write();
    EXPECT_EQ(list(node("Fuselage"), "          texCoord TextureCoordinate "),
              std::vector<std::string>{"0 0"});
}

TEST_F(VrmlModel, PicturesAreWrittenOnceBesideIt) {
    load("tex_all");
    write();
    EXPECT_EQ(bytesOf(folder / "tex_wing1.jpg"), "tex_wing1.bmp 64 x 128 turned jpeg");
    EXPECT_EQ(bytesOf(folder / "tex_fus.jpg"), "tex_fus.bmp 64 x 32 jpeg");
    EXPECT_EQ(bytesOf(folder / "tex_fin.jpg"), "tex_fin.bmp 64 x 128 jpeg");
    // Two halves, two fins: one conversion each.
    EXPECT_EQ(std::ranges::count_if(pictures.loaded,
                                    [](const auto& f) { return f.ends_with("tex_wing1.bmp"); }),
              1);
    EXPECT_EQ(std::ranges::count_if(pictures.loaded,
                                    [](const auto& f) { return f.ends_with("tex_fin.bmp"); }),
              1);
}

TEST_F(VrmlModel, OnlyAFuselagesPictureRepeats) {
    load("tex_all");
    write();
    for (const char* name : {"WingLeft", "StabRight", "Rudder"}) {
        const auto body = node(name);
        EXPECT_NE(std::ranges::find(body, "            repeatS FALSE"), body.end()) << name;
    }
    const auto body = node("Fuselage");
    EXPECT_NE(std::ranges::find(body, "            repeatT TRUE"), body.end());
}

TEST_F(VrmlModel, SourceNamedLikeItsCopySurvives) {
    writeBytes(folder / "wood.jpg", "the user's own picture");
    Wings(1).set_texture_filename(folder / "wood.jpg");
    Wings(1).qualified_texture_filename = "wood.jpg";
    write();
    EXPECT_EQ(bytesOf(folder / "wood.jpg"), "the user's own picture");
    EXPECT_TRUE(has("            url \"wood-model.jpg\""));
    EXPECT_EQ(bytesOf(folder / "wood-model.jpg"), "wood.jpg 64 x 128 turned jpeg");
}

TEST_F(VrmlModel, UnreadablePictureLeavesTheUrlEmptyAndTheRestWhole) {
    Rudder.texture_filename = "/pictures/unreadable.bmp";
    Rudder.qualified_texture_filename = "unreadable.bmp";
    write(
        "The picture unreadable.bmp could not be put beside the model (no picture). All else has "
        "been exported.");
    EXPECT_EQ(count("            url \"\""), 7);
    EXPECT_EQ(lines.back(), "}");
}

TEST_F(VrmlModel, QuotesInAPicturesNameDoNotEndTheUrl) {
    Rudder.texture_filename = "/pictures/red \"wood\" Übung.bmp";
    Rudder.qualified_texture_filename = "red \"wood\" Übung.bmp";
    write();
    EXPECT_TRUE(has("            url \"red \\\"wood\\\" Übung.jpg\""));
}

TEST_F(VrmlModel, ColoursNeverPassOne) {
    Fuselages(1).set_color({300, -1, 127.5});
    write();
    EXPECT_TRUE(has("              diffuseColor 1 0 0.5"));
}

TEST_F(VrmlModel, HugeAndTinyNumbersStayNumbers) {
    Fuselages(1).width(2) = 1E+300;
    Fuselages(1).height(2) = 1E-300;
    Wings(1).span = 1E+300;
    Wings(1).length1 = 1.7E+308;
    Wings(1).pos1 = 1.7E+308;
    write();
    EXPECT_EQ(text.find("inf"), std::string::npos);
    EXPECT_EQ(text.find("nan"), std::string::npos);
    EXPECT_NE(text.find("E+300"), std::string::npos);
}

TEST_F(VrmlModel, SectionsOfNoSizeAreWritten) {
    for (int i = 1; i <= 3; ++i) Fuselages(1).width(i) = Fuselages(1).height(i) = 0;
    write();
    EXPECT_EQ(points(node("Fuselage"))[0], "0 0 10,");
}

TEST_F(VrmlModel, WatcherSeesTheWorkGoForward) {
    ScriptedProgress watcher;
    progress = &watcher;
    Fuselages(1).nb_cross = 5000;
    Fuselages(1).initArrays();
    write();
    EXPECT_GT(watcher.questions, 5);
    EXPECT_LE(watcher.lastDone, watcher.lastTotal);
    EXPECT_GT(2 * watcher.lastDone, watcher.lastTotal);
}

TEST_F(VrmlModel, CancelLeavesTheOldFileWhole) {
    writeBytes(file, "the old model");
    ScriptedProgress watcher;
    watcher.cancelAt = 2;
    progress = &watcher;
    Fuselages(1).nb_cross = 5000;
    Fuselages(1).initArrays();
    EXPECT_EQ(exportWhole(file), Outcome::cancelled());
    EXPECT_EQ(watcher.questions, 2);
    EXPECT_EQ(bytesOf(file), "the old model");
    EXPECT_EQ(folder.count(), 1);
}

}  // namespace
}  // namespace velna::test
