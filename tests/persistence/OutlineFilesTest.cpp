// Airfoil files as other programs and collections write them.

#include <cmath>
#include <numbers>
#include <numeric>

#include "Projects.h"
#include "common/NumberText.h"
#include "persistence/AirfoilFiles.h"
#include "persistence/OutlineFiles.h"
#include "support/ModelJson.h"

namespace velna::test {
namespace {

using AirfoilOutline::Points;
using Rows = std::vector<std::string>;

/// In the program's own order: tail, lower side, nose, upper side, tail.
const Rows own{"1.00000 -0.00126", "0.75000 -0.01400", "0.30000 -0.04125",
               "0.02500 -0.02010", "0.00000 0.00000",  "0.02500 0.03390",
               "0.30000 0.07875",  "0.75000 0.04578",  "1.00000 0.00126"};
constexpr std::size_t nose = 4;

Rows reversed(Rows rows) {
    std::ranges::reverse(rows);
    return rows;
}

/// Upper and lower side from the nose to the tail.
Rows sideBySide() {
    Rows rows(own.begin() + nose, own.end());
    const Rows lower = reversed({own.begin(), own.begin() + nose + 1});
    rows.insert(rows.end(), lower.begin(), lower.end());
    return rows;
}

std::string lines(const Rows& rows, const std::string& head = "", const std::string& end = "\n") {
    return std::accumulate(rows.begin(), rows.end(), head,
                           [&](std::string text, const std::string& row) {
                               text.append(row).append(end);
                               return text;
                           });
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
    return text;
}

/// A row's two numbers with their points moved two places.
std::string inPercent(const std::string& row) {
    ValueReader reader(row);
    const auto blank = row.find(' ');
    const auto moved = [](const std::string& number) {
        const bool minus = number.front() == '-';
        const std::string digits = number.substr(minus ? 1 : 0);
        return (minus ? "-" : "") + digits.substr(0, 1) + digits.substr(2, 2) + "." +
               digits.substr(4);
    };
    return moved(row.substr(0, blank)) + " " + moved(row.substr(blank + 1));
}

std::string reasonAgainst(const std::string& bytes) {
    try {
        readOutlineBytes(bytes);
    } catch (const ReadFailure& failure) {
        return failure.what();
    }
    return "none";
}

class OutlineFile : public ProjectTest {};

TEST_F(OutlineFile, EveryOrderAndWritingGivesTheWingOfTheOwnFormatBitForBit) {
    loadAirfoilBytes(project, lines(own, "title\r\n", "\r\n"));
    const SymWingSections wanted = Wings(1);
    const Rows selig = reversed(own);
    Rows percent;
    for (const std::string& row : selig) percent.push_back(inPercent(row));
    Rows sidesInPercent;
    for (const std::string& row : sideBySide()) sidesInPercent.push_back(inPercent(row));
    const std::string plain = lines(selig, "NACA 2412\n");
    for (const std::string& bytes : {plain,
                                     lines(selig),
                                     lines(own, "own order\n"),
                                     lines(sideBySide(), "L\n 5.  5.\n\n"),
                                     lines(sideBySide(), "5 5\n"),
                                     lines(sideBySide(), "no counts\n"),
                                     lines(percent, "%\n"),
                                     lines(sidesInPercent, "L in percent\n5.0 5.0\n"),
                                     lines(selig, "\xEF\xBB\xBFtitle\r\n", "\r\n"),
                                     lines(selig, "title\r", "\r"),
                                     replaced(plain, " ", ","),
                                     replaced(plain, " ", ", "),
                                     replaced(plain, " ", ";"),
                                     replaced(plain, " ", "\t"),
                                     replaced(plain, " ", "   "),
                                     replaced(plain, "\n", "  \n"),
                                     replaced(plain, "\n", "\n\n"),
                                     replaced(plain, "\n0", "\n# a remark\n! another\n  0"),
                                     replaced(plain, "0.0", ".0"),
                                     lines(selig, "Two lines\nof title, 18% thick\n"),
                                     plain + "\x1A",
                                     plain.substr(0, plain.size() - 1)}) {
        SCOPED_TRACE(bytes);
        Wings(1).init(project.defaultColor);
        AirfoilOutline::putOnWing(project, readOutlineBytes(bytes), false);
        EXPECT_TRUE(Wings(1) == wanted);
    }
}

TEST_F(OutlineFile, ExamplesOfTheOtherOrdersGiveTheWingsOfTheOwn) {
    const std::string folderOfThem = std::string(VELNA_SOURCE_DIR) + "/examples/airfoils/";
    Plane::loadAirfoil(project, folderOfThem + "naca2412.xy");
    const SymWingSections wanted = Wings(1);
    for (const char* name : {"naca2412-selig.dat", "naca2412-lednicer.dat"}) {
        Wings(1).init(project.defaultColor);
        AirfoilOutline::putOnWing(project, readOutline(folderOfThem + name), false);
        EXPECT_TRUE(Wings(1) == wanted) << name;
    }
}

TEST_F(OutlineFile, InchesAndMillimetresBecomeOneChord) {
    Rows millimetres;
    for (const auto& [x, z] : readOutlineBytes(lines(own)))
        millimetres.push_back(std::to_string(x * 230 + 12) + " " + std::to_string(z * 230 + 40));
    const Points got = readOutlineBytes(lines(millimetres, "230 mm\n"));
    const Points wanted = readOutlineBytes(lines(own));
    ASSERT_EQ(got.size(), wanted.size());
    for (std::size_t i = 0; i < got.size(); ++i) {
        EXPECT_NEAR(got[i].x, wanted[i].x, 1e-8);
        EXPECT_NEAR(got[i].y, wanted[i].y, 1e-8);
    }
}

TEST_F(OutlineFile, ATitleOfTwoNumbersIsNoCount) {
    const Points plain = readOutlineBytes(lines(reversed(own), "title\n"));
    for (const char* title : {"63 415\n", "  64  012 \n", "2 3\n", "NACA\n63 415\n"}) {
        const Points titled = readOutlineBytes(lines(reversed(own), title));
        ASSERT_EQ(titled.size(), plain.size()) << title;
        for (std::size_t n = 0; n < plain.size(); ++n) EXPECT_TRUE(titled[n] == plain[n]);
    }
    // A file that counts and has been cut short begins at the nose.
    EXPECT_EQ(reasonAgainst(lines(sideBySide(), "63 415\n")), "it counts 478 points and has 10");
}

TEST_F(OutlineFile, WhatIsNoSectionIsRefusedWithItsReason) {
    EXPECT_EQ(reasonAgainst(""), "an empty file");
    EXPECT_EQ(reasonAgainst(std::string(40, '\0')), "it is no text");
    EXPECT_EQ(reasonAgainst("Dear Sir,\nthe wing is too heavy.\n"),
              "it has no lines of two numbers with decimal points");
    EXPECT_EQ(reasonAgainst("title\n1,00000 0,00126\n0,50000 0,05000\n"),
              "it has no lines of two numbers with decimal points");
    EXPECT_EQ(reasonAgainst("title\n1 0\n"), "too few points");
    EXPECT_EQ(reasonAgainst(lines(own, "t\n") + "and so on\n"), "line 11 is no point");
    EXPECT_EQ(reasonAgainst("t\n1 0\n0.5 nan\n0 0\n"), "line 3 is no point");
    EXPECT_EQ(reasonAgainst("t\n1 0\n0.5 1e999\n0 0\n"), "line 3 is no point");
    EXPECT_EQ(reasonAgainst("t\n1 0\n0.5 0.1 0\n0 0\n"), "line 3 is no point");
    EXPECT_EQ(reasonAgainst("t\n1 0\n0.5\n0 0\n"), "line 3 is no point");
    EXPECT_EQ(reasonAgainst(lines(sideBySide(), "t\n17 17\n")), "it counts 34 points and has 10");
    EXPECT_EQ(reasonAgainst(lines(sideBySide(), "t\n2 8\n")),
              "its sides do not reach from the nose to the tail");
    EXPECT_EQ(reasonAgainst(lines(Rows(100'000, "0.5 0.1"))), "100000 points; a panel holds 32767");
    EXPECT_THROW(readOutline(folder / "missing.dat"), ReadFailure);
}

TEST_F(OutlineFile, AsManyPointsAsTheFirstOneLiesBehindAreNotCountedByIt) {
    // In percent a hundred points follow the trailing edge at 100.
    const auto ellipse = [](double chord) {
        std::string text = "ellipse\n";
        for (int i = 0; i <= 100; ++i) {
            const double turn = 2 * std::numbers::pi * i / 100;
            text += fixedText(chord * (0.5 + 0.5 * std::cos(turn)), 6) + ' ' +
                    fixedText(chord * 0.06 * std::sin(turn), 6) + '\n';
        }
        return text;
    };
    EXPECT_EQ(readOutlineBytes(ellipse(100)).size(), readOutlineBytes(ellipse(1)).size());
}

TEST_F(OutlineFile, EveryCutAndEveryLineReplacedGivesASectionOrAReason) {
    const std::string bytes = lines(sideBySide(), "Lednicer\n5 5\n");
    for (std::size_t size = 0; size < bytes.size() - 1; ++size)
        EXPECT_FALSE(reasonAgainst(bytes.substr(0, size)).empty()) << size;
    const Rows selig = reversed(own);
    for (std::size_t k = 0; k < selig.size(); ++k)
        for (const char* replacement : {"text", "-1 -1", "1E308 -1E308", "0.5 0.02", "32768 0"}) {
            Rows changed = selig;
            changed[k] = replacement;
            try {
                const Points points = readOutlineBytes(lines(changed));
                AirfoilOutline::putOnWing(project, points, false);
                solids.createAll(project);
                EXPECT_TRUE(readBytes(savedBytes()));
            } catch (const ReadFailure& failure) {
                EXPECT_NE(std::string(failure.what()), "");
            }
        }
}

TEST_F(OutlineFile, AsManyPointsAsAPanelHoldsAreTaken) {
    const int half = 16'383;
    Rows rows;
    for (int i = -half; i <= half; ++i) {
        const double x = std::abs(i) / static_cast<double>(half);
        rows.push_back(std::to_string(x) + " " +
                       std::to_string((i > 0 ? -0.3 : 0.3) * x * (1 - x)));
    }
    for (auto& row : rows) row += "\t";
    EXPECT_EQ(readOutlineBytes(lines(rows)).size(), 32'767u);
}

}  // namespace
}  // namespace velna::test
