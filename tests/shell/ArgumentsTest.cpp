#include <filesystem>

#include <gtest/gtest.h>

#include "common/Version.h"
#include "shell/Arguments.h"
#include "shell/CommandOptions.h"

namespace velna::test {
namespace {

using Wish = Arguments::Wish;

std::string refusal(const std::vector<std::string>& words) {
    const Arguments arguments = Arguments::read(words);
    EXPECT_EQ(arguments.wish, Wish::Refused);
    EXPECT_EQ(arguments.file, "");
    return arguments.problem;
}

TEST(Arguments, WithoutWordsTheWindowComesUp) {
    const Arguments arguments = Arguments::read({});
    EXPECT_EQ(arguments.wish, Wish::Run);
    EXPECT_EQ(arguments.file, "");
}

TEST(Arguments, AFileIsNamedFromTheRoot) {
    EXPECT_EQ(Arguments::read({"/a/b.vln"}).file, "/a/b.vln");
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(Arguments::read({"b.vln"}).file, here + "/b.vln");
    EXPECT_EQ(Arguments::read({"./c/../b.vln"}).file, here + "/b.vln");
    EXPECT_EQ(Arguments::read({"-"}).file, here + "/-");
}

TEST(Arguments, ANameIsBytes) {
    const std::string odd = "/tmp/gl\xfc\x01\nck \"'.vln";
    EXPECT_EQ(Arguments::read({odd}).file, odd);
}

TEST(Arguments, VersionAndHelpEndAtOnce) {
    EXPECT_EQ(Arguments::read({"--version"}).wish, Wish::Version);
    EXPECT_EQ(Arguments::read({"--help"}).wish, Wish::Help);
    EXPECT_EQ(Arguments::read({"a.vln", "--help", "--bogus"}).wish, Wish::Help);
    EXPECT_EQ(versionLine(), std::string("Velna ") + versionText + "\n");
}

TEST(Arguments, WhatIsUnknownIsRefusedByItsName) {
    EXPECT_EQ(refusal({"--bogus"}), "unknown option --bogus");
    EXPECT_EQ(refusal({"a.vln", "-x"}), "unknown option -x");
    EXPECT_EQ(refusal({"--versions"}), "unknown option --versions");
    EXPECT_EQ(refusal({"--help=de"}), "unknown option --help=de");
}

TEST(Arguments, OneFileAtATime) {
    EXPECT_EQ(refusal({"a.vln", "b.vln"}), "one file at a time, please");
    EXPECT_EQ(refusal({""}), "a file without a name");
}

TEST(Arguments, BehindTwoDashesAllIsAFile) {
    EXPECT_EQ(std::filesystem::path(Arguments::read({"--", "--help"}).file).filename(), "--help");
    EXPECT_EQ(Arguments::read({"--"}).wish, Wish::Run);
    EXPECT_EQ(refusal({"--", "a", "-b"}), "one file at a time, please");
}

TEST(Arguments, WhatTheToolkitReadsIsPassedOver) {
    EXPECT_EQ(Arguments::read({"-session", "10_20", "/a.vln"}).file, "/a.vln");
    EXPECT_EQ(Arguments::read({"--platform", "offscreen", "-style", "Fusion"}).wish, Wish::Run);
    EXPECT_EQ(Arguments::read({"-session"}).wish, Wish::Run);
}

TEST(Arguments, TheAnswerGoesWhereItBelongs) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(answer({Wish::Version, {}, {}}), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), versionLine());
    testing::internal::CaptureStdout();
    EXPECT_EQ(answer({Wish::Help, {}, {}}), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), helpText());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(answer({Wish::Refused, {}, "unknown option -x"}), 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "velna: unknown option -x\n" + usageText() + "velna --help tells more.\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

}  // namespace
}  // namespace velna::test
