#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "common/Progress.h"
#include "qt/PaperFile.h"

namespace velna {
namespace {

constexpr Rgb red{255, 0, 0};

TEST_F(Paper, AHundredMillimetresAreAHundredWhateverTheResolutionAndTheSheet) {
    for (const int resolution : {72, 300, 600, 1200})
        for (const bool landscape : {false, true})
            for (const auto size : {QPageSize::A4, QPageSize::Letter, QPageSize::A3}) {
                auto paper = surface(resolution, landscape, size);
                paper->setScaleMode(6);
                paper->StartDoc("side", nullptr);
                paper->Line(20, 30, 120, 30, black);
                paper->Line(20, 30, 20, 130, black);
                ASSERT_EQ(paper->EndDoc(), Outcome());
                const auto lines = linesOf(job("side"), 1);
                ASSERT_EQ(lines.size(), 2U);
                EXPECT_NEAR(lines[0].length(), 100, 0.01) << resolution;
                EXPECT_NEAR(lines[1].length(), 100, 0.01) << resolution;
                EXPECT_NEAR(lines[0].width, 0.25, 0.005);
                EXPECT_NEAR(lines[0].x1, 30, 0.2);  // the margin and 20
            }
}

TEST_F(Paper, InchesAreInches) {
    auto paper = surface();
    paper->setScaleMode(5);
    EXPECT_NEAR(paper->ScaleWidth(), (210 - 24) / 25.4, 1e-9);
    paper->StartDoc("side", nullptr);
    paper->Line(1, 1, 5, 1, black);
    ASSERT_EQ(paper->EndDoc(), Outcome());
    EXPECT_NEAR(linesOf(job("side"), 1).at(0).length(), 101.6, 0.01);
}

TEST_F(Paper, TheScaleIsThePrintableArea) {
    auto paper = surface();
    paper->setScaleMode(6);
    EXPECT_NEAR(paper->ScaleWidth(), 210 - 10 - 14, 1e-9);
    EXPECT_NEAR(paper->ScaleHeight(), 297 - 12 - 16, 1e-9);
}

TEST_F(Paper, NoBlankSheetFollowsTheLastPage) {
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    for (int page = 0; page < 3; ++page) {
        paper->Line(10, 10, 20, 20, black);
        paper->NewPage();
    }
    ASSERT_EQ(paper->EndDoc(), Outcome());
    EXPECT_EQ(pagesOf(job("side")), 3);
}

TEST_F(Paper, ASheetWithNothingOnItIsStillASheet) {
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    paper->Line(10, 10, 20, 20, black);
    paper->NewPage();
    paper->Line(-500, 10, -400, 20, black);  // beyond this sheet
    paper->NewPage();
    ASSERT_EQ(paper->EndDoc(), Outcome());
    EXPECT_EQ(pagesOf(job("side")), 2);
    EXPECT_TRUE(linesOf(job("side"), 2).empty());
}

TEST_F(Paper, ALineIsCutToItsSheet) {
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    paper->Line(-1e6, 50, 1e6, 50, black);
    paper->Line(std::numeric_limits<double>::quiet_NaN(), 0, 1, 1, black);
    paper->Line(-1.7e308, 60, 1.7e308, 60, black);
    ASSERT_EQ(paper->EndDoc(), Outcome());
    const auto lines = linesOf(job("side"), 1);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_NEAR(lines[0].length(), 186, 0.01);
    EXPECT_NEAR(lines[1].length(), 186, 0.01);
}

TEST_F(Paper, LinesThatGoOnFromEachOtherAreOnePath) {
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    paper->Line(10, 10, 20, 15, black);
    paper->Line(20, 15, 30, 10, black);
    paper->Line(30, 10, 30, 50, red);
    paper->Line(30, 50, 40, 50, red);
    paper->Line(60, 60, 70, 70, red);
    ASSERT_EQ(paper->EndDoc(), Outcome());
    const auto paths = pathsOf(job("side"), 1);
    ASSERT_EQ(paths.size(), 3U);
    EXPECT_EQ(paths[0].size(), 2U);
    EXPECT_EQ(paths[1].size(), 2U);
    EXPECT_EQ(paths[2].size(), 1U);
    EXPECT_NEAR(paths[0][1].x2, 40, 0.2);  // the margin and 30
    EXPECT_NEAR(paths[1][0].length(), 40, 0.002);
    EXPECT_NEAR(paths[2][0].length(), std::hypot(10, 10), 0.002);
}

TEST_F(Paper, AnOutlineThatLeavesTheSheetComesBackWhereItDoes) {
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    paper->Line(10, 10, -10, 10, black);
    paper->Line(-10, 10, -10, 30, black);
    paper->Line(-10, 30, 10, 30, black);
    paper->Line(10, 30, 10, 10, black);
    ASSERT_EQ(paper->EndDoc(), Outcome());
    const auto paths = pathsOf(job("side"), 1);
    ASSERT_EQ(paths.size(), 2U);
    EXPECT_EQ(paths[0].size(), 1U);
    EXPECT_EQ(paths[1].size(), 2U);
    for (const auto& path : paths) EXPECT_NEAR(path[0].length(), 10, 0.002);
}

TEST_F(Paper, ALineOfNoLengthIsADot) {
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    paper->Line(10, 10, 10, 10, black);
    paper->Line(30, 30, 40, 30, black);
    paper->Line(40, 30, 40, 30, black);
    ASSERT_EQ(paper->EndDoc(), Outcome());
    const auto paths = pathsOf(job("side"), 1);
    ASSERT_EQ(paths.size(), 2U);
    ASSERT_EQ(paths[0].size(), 1U);
    EXPECT_NEAR(paths[0][0].length(), 0, 0.001);
    EXPECT_NEAR(paths[0][0].x1, 20, 0.2);
    EXPECT_EQ(paths[1].size(), 1U);
}

TEST_F(Paper, ALongOutlineIsSeveralPathsWithoutAGap) {
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    const auto x = [](int i) { return 90 + 50 * std::cos(i / 400.0); };
    const auto y = [](int i) { return 90 + 50 * std::sin(i / 400.0); };
    for (int i = 0; i < 2500; ++i) paper->Line(x(i), y(i), x(i + 1), y(i + 1), black);
    ASSERT_EQ(paper->EndDoc(), Outcome());
    EXPECT_EQ(pathsOf(job("side"), 1).size(), 3U);
    const auto lines = linesOf(job("side"), 1);
    ASSERT_EQ(lines.size(), 2500U);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        ASSERT_EQ(lines[i].x1, lines[i - 1].x2) << i;
        ASSERT_EQ(lines[i].y1, lines[i - 1].y2) << i;
        ASSERT_NEAR(lines[i].length(), 50 / 400.0, 0.002);
    }
}

TEST_F(Paper, LinesHaveTheirPlacesBeforeAndAfterATextAndOnTheNextSheet) {
    for (const int resolution : {300, 1200}) {
        auto paper = surface(resolution);
        paper->StartDoc("side", nullptr);
        paper->Line(10, 10, 20, 10, black);
        paper->Text(50, 50, "Row 1");
        paper->Line(20, 10, 40, 10, black);
        paper->NewPage();
        paper->Line(40, 10, 70, 10, black);
        ASSERT_EQ(paper->EndDoc(), Outcome());
        const auto first = linesOf(job("side"), 1), second = linesOf(job("side"), 2);
        ASSERT_EQ(first.size(), 2U);
        ASSERT_EQ(second.size(), 1U);
        EXPECT_NEAR(first[0].length(), 10, 0.01);
        EXPECT_NEAR(first[1].length(), 20, 0.01);
        EXPECT_NEAR(second[0].length(), 30, 0.01);
        EXPECT_NEAR(second[0].x1, 50, 0.2);
        const QString text = output("pdftotext", {QString::fromStdString(job("side")), "-"});
        EXPECT_TRUE(text.contains("Row 1")) << text.toStdString();
    }
}

TEST_F(Paper, EveryJobHasAFileOfItsOwn) {
    auto paper = surface();
    for (const char* name : {"side", "front"}) {
        paper->StartDoc(name, nullptr);
        paper->Line(10, 10, 20, 20, black);
        ASSERT_EQ(paper->EndDoc(), Outcome());
        EXPECT_EQ(pagesOf(job(name)), 1);
    }
    EXPECT_FALSE(std::filesystem::exists(target()));
}

TEST_F(Paper, TheFilesThatAreThereAreListed) {
    std::ofstream(job("vtop")) << "old";
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(target()));
    EXPECT_EQ(QtPrinterSurface::existingFiles(printer, {"side", "vtop"}),
              QStringList{QString::fromStdString(job("vtop"))});
}

TEST_F(Paper, ADroppedJobLeavesTheOldFileWhole) {
    std::ofstream(job("side")) << "old";
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    paper->Line(10, 10, 20, 20, black);
    paper->KillDoc();
    std::string text;
    std::getline(std::ifstream(job("side")), text);
    EXPECT_EQ(text, "old");
    EXPECT_EQ(folder.count(), 1);
}

// Counts its questions, and cancels at the first where it is told to.
class Asked : public Progress {
public:
    explicit Asked(bool cancels) : cancels_(cancels) {}

    bool step(long long, long long) override { return !cancelled_; }
    bool stillAtWork() override {
        ++questions;
        cancelled_ = cancelled_ || cancels_;
        return !cancelled_;
    }

    int questions = 0;

private:
    bool cancels_;
    bool cancelled_ = false;
};

// More lines on one page than are compressed in the blink of an eye, and no two of them meet.
void fillPage(QtPrinterSurface& paper) {
    for (int i = 0; i < 600'000; ++i)
        paper.Line(1 + i % 150, 1 + i % 211, 9 + i % 157, 5 + i % 199, black);
}

TEST_F(Paper, APageOfManyLinesIsEndedUnderTheWatchersEyes) {
    for (const bool turned : {false, true}) {
        Asked watcher(false);
        auto paper = surface();
        paper->StartDoc("side", &watcher);
        fillPage(*paper);
        paper->NewPage();
        if (turned) paper->Line(10, 10, 20, 20, black);
        EXPECT_EQ(watcher.questions > 0, turned);
        ASSERT_EQ(paper->EndDoc(), Outcome());
        EXPECT_GT(watcher.questions, 0);
        EXPECT_EQ(pagesOf(job("side")), turned ? 2 : 1);
    }
}

TEST_F(Paper, AShortPageAsksNobody) {
    Asked watcher(true);
    auto paper = surface();
    paper->StartDoc("side", &watcher);
    paper->Line(10, 10, 20, 20, black);
    ASSERT_EQ(paper->EndDoc(), Outcome());
    EXPECT_EQ(watcher.questions, 0);
}

TEST_F(Paper, ACancelWhileAPageEndsLeavesTheOldFileWhole) {
    test::writeBytes(job("side"), "the old plan");
    for (const bool turned : {false, true}) {
        Asked watcher(true);
        auto paper = surface();
        paper->StartDoc("side", &watcher);
        fillPage(*paper);
        paper->NewPage();
        if (turned) paper->Line(10, 10, 20, 20, black);
        EXPECT_EQ(paper->EndDoc(), Outcome::cancelled());
        EXPECT_EQ(test::bytesOf(job("side")), "the old plan");
        EXPECT_EQ(folder.count(), 1);
        // The next job of the same command begins anew.
        paper->StartDoc("htop", nullptr);
        paper->Line(10, 10, 20, 20, black);
        EXPECT_EQ(paper->EndDoc(), Outcome());
        std::filesystem::remove(job("htop"));
    }
}

TEST_F(Paper, AJobWritesNoFileButItsOwn) {
    const std::string near = job("side") + ".new";
    test::writeBytes(near, "the user's");
    test::writeBytes(folder.path() + "precious", "the user's");
    std::filesystem::create_symlink("precious", job("side"));
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    paper->Line(10, 10, 20, 20, black);
    ASSERT_EQ(paper->EndDoc(), Outcome());
    EXPECT_EQ(test::bytesOf(near), "the user's");
    EXPECT_EQ(test::bytesOf(folder.path() + "precious"), "the user's");
    EXPECT_FALSE(std::filesystem::is_symlink(job("side")));
    EXPECT_EQ(pagesOf(job("side")), 1);
    EXPECT_EQ(folder.count(), 3);
}

TEST_F(Paper, ATargetThatCannotBeWrittenTellsTheReason) {
    std::filesystem::create_directory(job("side"));
    auto paper = surface();
    paper->StartDoc("side", nullptr);
    paper->Line(10, 10, 20, 20, black);
    EXPECT_EQ(paper->EndDoc(), Outcome::failed(job("side") + ": Is a directory"));
    EXPECT_EQ(folder.count(), 1);
}

}  // namespace
}  // namespace velna
