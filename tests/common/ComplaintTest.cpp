#include <gtest/gtest.h>

#include "common/Complaint.h"

namespace velna {
namespace {

TEST(Complaint, IsALineOnStandardErrorInTheProgramsName) {
    testing::internal::CaptureStderr();
    complain("the picture stays dark", "100 % of it");
    complain("nothing %s to add");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "velna: the picture stays dark: 100 % of it\nvelna: nothing %s to add\n");
}

}  // namespace
}  // namespace velna
