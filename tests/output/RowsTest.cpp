// Long tables of text: made in blocks, and in two threads where the export is large.

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <sstream>
#include <thread>

#include "common/NumberText.h"
#include "output/DxfDrawing.h"
#include "output/OutputTest.h"
#include "output/Rows.h"
#include "support/SameBytes.h"

namespace velna::test {
namespace {

constexpr long long large = workForTwoThreads + 1;

class RowsOfText : public OutputTest {
protected:
    /// The numbers from 0 to before `count`, a line each, as rows of an export of `points` points.
    std::string numbers(long long count, long long points) {
        const std::string path = folder / "numbers";
        ReplacedFile output(path);
        output.line("head");
        Rows rows(output, points);
        const long long atOnce = rows.atOnce(longestNumber);
        for (long long row = 0; row < count; row += atOnce) {
            rows.write(row, std::min(count, row + atOnce), longestNumber,
                       [](char* at, long long first, long long last) {
                           for (; first < last; ++first)
                               at = putText(putInteger(at, first), "\r\n");
                           return at;
                       });
        }
        output.line("tail");
        EXPECT_TRUE(output.commit());
        return bytesOf(path);
    }

    static std::string plainNumbers(long long count) {
        std::string text = "head\r\n";
        for (long long n = 0; n < count; ++n) text += std::to_string(n) + "\r\n";
        return text + "tail\r\n";
    }

    /// A drawing of a long curve and of bars on two layers by turns.
    std::string drawing(long long expectedLines) {
        const std::string path = folder / "drawing.dxf";
        DxfDrawing drawn(path, expectedLines);
        drawn.dxfBegin();
        for (int n = 0; n < 40000; ++n) {
            const double x = n / 7.0;
            const std::string layer = n / 9000 % 2 == 0 ? "Fuselage_1" : "A_longer_layer_12345";
            drawn.dxfLineTo({x, -x / 3, 0}, n % 1000 != 0, layer);
            if (n % 100 == 0) drawn.dxfLine({x, 0, 0}, {x, 1, 0}, "Bars");
        }
        EXPECT_EQ(drawn.dxfEnd(), Outcome());
        return bytesOf(path);
    }
};

TEST_F(RowsOfText, StandInTheirOrderBetweenWhatIsWrittenBeforeAndAfter) {
    for (const long long count : {0, 1, 2, 3, 100, 5000, 100000})
        for (const long long points : {0LL, large})
            EXPECT_TRUE(sameBytes(numbers(count, points), plainNumbers(count))) << count;
}

TEST_F(RowsOfText, OfALargeExportAreMadeByTwoThreads) {
    for (const auto& [points, threads] : {std::pair{1LL, 1U}, std::pair{large, 2U}}) {
        if (std::thread::hardware_concurrency() < threads) GTEST_SKIP() << "one core";
        ReplacedFile output(folder / "rows");
        Rows rows(output, points);
        std::array<std::thread::id, 2> by;
        rows.write(0, 2, 1, [&by](char* at, long long first, long long) {
            by[static_cast<std::size_t>(first)] = std::this_thread::get_id();
            return at;
        });
        EXPECT_EQ(std::set(by.begin(), by.end()).size(), threads);
    }
}

TEST_F(RowsOfText, OneLongerThanABlockIsWrittenToo) {
    ReplacedFile output(folder / "rows");
    Rows rows(output, 1);
    const std::string longRow(3'000'000, 'x');
    EXPECT_EQ(rows.atOnce(longRow.size()), 2);
    rows.write(0, 2, longRow.size(), [&](char* at, long long first, long long last) {
        for (; first < last; ++first) at = putText(at, longRow);
        return at;
    });
    EXPECT_TRUE(output.commit());
    EXPECT_TRUE(sameBytes(bytesOf(folder / "rows"), longRow + longRow));
}

TEST_F(RowsOfText, ADrawingIsTheSameInOneAndInTwoThreads) {
    const std::string small = drawing(1);
    EXPECT_EQ(std::ranges::count(small, '\n'), 8 + 16 * (40000 - 40 + 400));
    EXPECT_TRUE(sameBytes(drawing(large), small));
}

TEST_F(RowsOfText, EachLineOfADrawingGoesFromThePenToItsPoint) {
    std::istringstream stream(drawing(1));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    const auto number = [&](std::size_t at) { return leadingNumber(lines[at]); };
    std::size_t bars = 0;
    double expected = 0;
    for (std::size_t at = 4; at + 16 < lines.size(); at += 16) {
        if (lines[at + 3] == "Bars\r") {
            EXPECT_EQ(number(at + 5), number(at + 11));
            EXPECT_EQ(number(at + 13), 1);
            ++bars;
            continue;
        }
        const double n = std::round(number(at + 11) * 7);
        EXPECT_NEAR(number(at + 5), (n - 1) / 7, 1e-9);
        EXPECT_NEAR(number(at + 13), -n / 21, 1e-9);
        EXPECT_GT(n, expected);
        expected = n;
    }
    EXPECT_EQ(bars, 400U);
    EXPECT_EQ(expected, 39999);
}

/// The lists of a fuselage's points and of its faces, put together number by number.
std::string plainLists(const BodySolid& solid, int n, int sections) {
    std::string out;
    for (int i = 1; i <= sections; ++i)
        for (int j = 1; j <= n; ++j) {
            const Point3D p = solid.meshPoint(j, i, false);
            out += numberText(p.x) + " " + numberText(p.y) + " " + numberText(p.z) +
                   (i == sections && j == n ? "\r\n" : ",\r\n");
        }
    out += "            ]\r\n          }\r\n          coordIndex\r\n          [\r\n";
    const auto face = [&out](int a, int b, int c, const char* end) {
        const auto index = [](int value) { return " " + std::to_string(value) + " "; };
        out += index(a) + ", " + index(b) + ", " + index(c) + ", -1" + end + "\r\n";
    };
    for (int base = 0; base < (sections - 1) * n; base += n) {
        for (int j = 1; j < n; ++j) face(base + j - 1, base + n + j, base + n + j - 1, ",");
        face(base + n - 1, base + n, base + 2 * n - 1, ",");
    }
    for (int base = 0; base < (sections - 1) * n; base += n) {
        for (int j = 1; j < n; ++j) face(base + j - 1, base + j, base + n + j, ",");
        face(base + n - 1, base, base + n, "");
    }
    return out;
}

TEST_F(RowsOfText, AModelOfALargeAircraftHasTheSameTextInTwoThreads) {
    MeshSections& body = Fuselages(1);
    constexpr int n = 1999;
    constexpr int sections = 251;
    static_assert(n * sections > workForTwoThreads);
    body.nb_sections = sections;
    body.nb_cross = n;
    body.initArrays();
    for (std::int16_t i = 1; i <= sections; ++i) {
        body.sectionOrder(i) = i;
        body.pos(i) = i / 3.0;
        body.width(i) = 40 + i / 7.0;
        body.height(i) = 50 - i / 11.0;
        body.curvature(i) = 1;
        body.curvature2(i) = 1;
        body.bias_curve(i) = 0.5;
    }
    ASSERT_EQ(exportWhole(folder / "model.wrl"), Outcome());
    EXPECT_NE(bytesOf(folder / "model.wrl").find(plainLists(solids.fuselages(1), n, sections)),
              std::string::npos);
}

}  // namespace
}  // namespace velna::test
