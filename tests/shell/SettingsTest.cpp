#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "shell/Settings.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

namespace velna {
namespace {

using Texts = std::vector<std::string>;

class SettingsTest : public ::testing::Test {
protected:
    std::string path() const { return folder / "deep/config/"; }
    Settings loaded() const {
        Settings settings;
        settings.load(path());
        return settings;
    }
    void write(const std::string& bytes) const {
        std::filesystem::create_directories(path());
        std::ofstream(path() + "settings.txt", std::ios::binary) << bytes;
    }

    test::TemporaryFolder folder;
};

TEST_F(SettingsTest, WhatIsStoredComesBackInAnotherProgram) {
    Settings settings = loaded();
    EXPECT_FALSE(settings.flag(SettingKey::ctrlZ));
    EXPECT_TRUE(settings.list(SettingKey::recent).empty());
    ASSERT_TRUE(settings.storeFlag(SettingKey::ctrlZ, true).isDone());
    const Texts names{"/a/b=c.vln", "/odd\nname\\n.vln", "/cr\r.vln", ""};
    ASSERT_TRUE(settings.store(SettingKey::recent, names).isDone());
    EXPECT_EQ(settings.list(SettingKey::recent), names);
    EXPECT_EQ(loaded().list(SettingKey::recent), names);
    EXPECT_TRUE(loaded().flag(SettingKey::ctrlZ));
}

TEST_F(SettingsTest, AFileThatCannotBeReadAgainCostsNothing) {
    write("one=first\r\ntwo=second\r\n");
    Settings settings = loaded();
    std::filesystem::remove(path() + "settings.txt");
    ASSERT_TRUE(settings.store("two", {"other"}).isDone());
    EXPECT_EQ(loaded().text("one"), "first");
    EXPECT_EQ(loaded().text("two"), "other");
}

TEST_F(SettingsTest, NothingIsWrittenBeforeTheFolderIsKnown) {
    Settings settings;
    ASSERT_TRUE(settings.storeFlag(SettingKey::ctrlZ, true).isDone());
    EXPECT_TRUE(settings.flag(SettingKey::ctrlZ));
    EXPECT_FALSE(std::filesystem::exists("settings.txt"));
}

TEST_F(SettingsTest, AnEmptyListAndAClearedFlagStayWhatTheyAre) {
    Settings settings = loaded();
    ASSERT_TRUE(settings.store(SettingKey::recent, {"/a"}).isDone());
    ASSERT_TRUE(settings.store(SettingKey::recent, {}).isDone());
    ASSERT_TRUE(settings.storeFlag(SettingKey::ctrlZ, true).isDone());
    ASSERT_TRUE(settings.storeFlag(SettingKey::ctrlZ, false).isDone());
    EXPECT_TRUE(loaded().list(SettingKey::recent).empty());
    EXPECT_FALSE(loaded().flag(SettingKey::ctrlZ));
}

TEST_F(SettingsTest, TwoProgramsKeepEachOthersEntries) {
    Settings first = loaded();
    Settings second = loaded();
    ASSERT_TRUE(first.store("of-first", {"1"}).isDone());
    ASSERT_TRUE(second.store("of-second", {"2"}).isDone());
    EXPECT_EQ(loaded().text("of-first"), "1");
    EXPECT_EQ(loaded().text("of-second"), "2");
}

TEST_F(SettingsTest, UnknownNamesAreKeptAndLinesThatAreNoneLeftOut) {
    write("later-thing=42\r\nnoise\n=nameless\n\nlater-thing=43\n");
    Settings settings = loaded();
    EXPECT_EQ(settings.list("later-thing"), (Texts{"42", "43"}));
    ASSERT_TRUE(settings.storeFlag(SettingKey::ctrlZ, true).isDone());
    EXPECT_EQ(loaded().list("later-thing"), (Texts{"42", "43"}));
}

TEST_F(SettingsTest, AFolderInPlaceOfTheFileIsToldAndTheProgramRemembersAllTheSame) {
    std::filesystem::create_directories(path() + "settings.txt/full");
    Settings settings = loaded();
    EXPECT_TRUE(settings.storeFlag(SettingKey::ctrlZ, true).hasFailed());
    EXPECT_TRUE(settings.flag(SettingKey::ctrlZ));
    EXPECT_FALSE(loaded().flag(SettingKey::ctrlZ));
}

TEST_F(SettingsTest, AFullDiskLeavesTheOldFile) {
    Settings settings = loaded();
    ASSERT_TRUE(settings.store("kept", {"old"}).isDone());
    {
        const test::FileSizeLimit full(4);
        EXPECT_TRUE(settings.store("kept", {"new"}).hasFailed());
    }
    EXPECT_EQ(loaded().text("kept"), "old");
}

TEST_F(SettingsTest, NoiseIsReadWithoutHarm) {
    std::string noise;
    for (int i = 0; i < 100000; ++i) noise += static_cast<char>(i * 7919 >> 3);
    write(noise);
    Settings settings = loaded();
    EXPECT_FALSE(settings.flag(SettingKey::ctrlZ));
}

}  // namespace
}  // namespace velna
