// Quarter point and balance range on the plans.

#include <cstddef>
#include <vector>

#include <gtest/gtest.h>

#include "model/Figures.h"
#include "model/MeshSections.h"
#include "model/Plane.h"
#include "output/Plans.h"
#include "support/RecordingPrinter.h"

namespace velna::test {
namespace {

constexpr double paperWidth = 1000;
constexpr double paperHeight = 700;

class PlanMarks : public ::testing::Test {
protected:
    PlanMarks() { Plane::setDefaultPlane(project); }

    std::vector<PrinterCall> print(PlanJob job, bool marks, bool overlap = false) const {
        RecordingPrinter printer(paperWidth, paperHeight);
        PrintSelectRecord select;
        select.overlap = overlap;
        EXPECT_EQ(
            Plans::previewJob(project, select, job, {printer, {900, 500}, nullptr, nullptr, marks}),
            Outcome());
        return printer.calls;
    }

    Project project;
};

bool same(const PrinterCall& one, const PrinterCall& other) {
    return one.kind == other.kind && one.at == other.at && one.text == other.text;
}

TEST_F(PlanMarks, AreLinesMoreOnEachPlanThatSeesTheLength) {
    constexpr std::size_t lines = 7;
    for (const PlanJob job : {PlanJob::Side, PlanJob::vtop, PlanJob::htop}) {
        const auto plain = print(job, false);
        const auto marked = print(job, true);
        ASSERT_EQ(marked.size(), plain.size() + lines);
        std::size_t n = 0;
        std::size_t more = 0;
        for (const PrinterCall& call : marked)
            n < plain.size() && same(call, plain[n]) ? ++n : ++more;
        EXPECT_EQ(n, plain.size());
        EXPECT_EQ(more, lines);
    }
}

TEST_F(PlanMarks, StandWhereTheFiguresTell) {
    const double quarter = *figuresOf(project).wing.quarterX;
    int corners = 0;
    for (const PrinterCall& call : print(PlanJob::htop, true))
        corners += call.kind == PrinterCall::Kind::Line && call.at[0] == quarter &&
                           call.at[1] == paperHeight / 2 + 3
                       ? 1
                       : 0;
    EXPECT_EQ(corners, 1);
}

TEST_F(PlanMarks, AreOnNoOtherPlan) {
    for (const PlanJob job : {PlanJob::front, PlanJob::frontSections}) {
        const auto plain = print(job, false);
        const auto marked = print(job, true);
        EXPECT_EQ(marked.size(), plain.size());
    }
}

TEST_F(PlanMarks, AreOnTapedSheetsToo) {
    EXPECT_GT(print(PlanJob::Side, true, true).size(), print(PlanJob::Side, false, true).size());
}

}  // namespace
}  // namespace velna::test
