#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "shell/InfoCommand.h"
#include "support/TemporaryFolder.h"

namespace velna::test {
namespace {

const std::string project = VELNA_TEST_DATA "/projects/current/default.vln";

class InfoCommand : public testing::Test {
protected:
    int tell(const InfoRequest& request) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = tellFigures(request);
        told = testing::internal::GetCapturedStdout();
        complaint = testing::internal::GetCapturedStderr();
        return status;
    }

    std::string told;
    std::string complaint;
};

TEST_F(InfoCommand, TellsTheFiguresToBeReadAndAsJson) {
    EXPECT_EQ(tell({project, {}}), 0);
    EXPECT_NE(told.find("26.600 dm2"), std::string::npos) << told;
    InfoRequest request{project, {true, {1800, 54}}};
    EXPECT_EQ(tell(request), 0);
    const auto json = nlohmann::json::parse(told);
    EXPECT_NEAR(json["wing"]["area_projected_dm2"].get<double>(), 26.6, 1e-9);
    EXPECT_EQ(json["flight"]["mass_g"].get<double>(), 1800);
    EXPECT_EQ(told.back(), '\n');
    EXPECT_EQ(complaint, "");
}

TEST_F(InfoCommand, AProjectThatCannotBeOpenedIsToldInOneLine) {
    TemporaryFolder folder;
    writeBytes(folder / "text.vln", "Dear all,\n");
    EXPECT_EQ(tell({folder / "text.vln", {true, {}}}), 1);
    EXPECT_EQ(complaint, "velna: " + (folder / "text.vln") + ": no Velna project\n");
    EXPECT_EQ(told, "");
    EXPECT_EQ(tell({folder / "none.vln", {}}), 1);
    EXPECT_EQ(complaint, "velna: " + (folder / "none.vln") + ": No such file or directory\n");
}

}  // namespace
}  // namespace velna::test
