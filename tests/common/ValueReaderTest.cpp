#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stop_token>
#include <thread>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "common/ValueReader.h"
#include "support/TemporaryFolder.h"

namespace velna::test {

TEST(ValueReader, ValuesEndAtACommaOrALineEndOfAnySystem) {
    ValueReader reader("1,2\r\n3\n4\r5\r\r\n");
    for (const int expected : {1, 2, 3, 4, 5}) EXPECT_EQ(reader.int16(), expected);
    EXPECT_EQ(reader.line(), "");
    EXPECT_TRUE(reader.atEnd());
    EXPECT_THROW(reader.int16(), ReadFailure);
}

TEST(ValueReader, AHeadIsTheRestOfTheLineWithItsCommas) {
    ValueReader reader("7,anything, at all\r\n8");
    EXPECT_EQ(reader.int16(), 7);
    EXPECT_EQ(reader.line(), "anything, at all");
    EXPECT_EQ(reader.int16(), 8);
    EXPECT_THROW(reader.line(), ReadFailure);
}

TEST(ValueReader, NumbersInEverySpelling) {
    ValueReader reader("   1.5\r\n.5\r\n5.\r\n-2e3\r\n+1E-2\r\n007\r\n1e-400");
    for (const double expected : {1.5, 0.5, 5.0, -2000.0, 0.01, 7.0, 0.0})
        EXPECT_EQ(reader.number(), expected);
}

TEST(ValueReader, WhatIsNoNumberFails) {
    for (const std::string text : {"", "\r\n1", "abc", "1x", "1 ", "1 2", "nan", "inf", "-inf",
                                   "0x10", "1,5x", "1e999", "+-1", "\"1\"", "#TRUE#"}) {
        ValueReader reader(text);
        if (text == "1,5x") {
            EXPECT_EQ(reader.number(), 1);
        }
        EXPECT_THROW(reader.number(), ReadFailure) << text;
    }
    const std::string digits(400, '9');
    ValueReader reader(digits);
    EXPECT_THROW(reader.number(), ReadFailure);
}

TEST(ValueReader, IntegersStayInTheirRange) {
    ValueReader good("32767,-32768,+5, 6,2147483647,-2147483648");
    EXPECT_EQ(good.int16(), 32767);
    EXPECT_EQ(good.int16(), -32768);
    EXPECT_EQ(good.int16(), 5);
    EXPECT_EQ(good.int16(), 6);
    EXPECT_EQ(good.int32(), 2147483647);
    EXPECT_EQ(good.int32(), -2147483647 - 1);
    for (const std::string text :
         {"32768", "-32769", "1.5", "1E3", "", "x", "+-1", "99999999999999999999", "1 "}) {
        ValueReader reader(text);
        EXPECT_THROW(reader.int16(), ReadFailure) << text;
    }
    ValueReader reader("2147483648");
    EXPECT_THROW(reader.int32(), ReadFailure);
}

TEST(ValueReader, CountsHaveALeastValue) {
    ValueReader reader("0,1,0,-1");
    EXPECT_EQ(reader.count(0), 0);
    EXPECT_EQ(reader.count(1), 1);
    EXPECT_THROW(reader.count(1), ReadFailure);
    EXPECT_THROW(reader.count(0), ReadFailure);
}

TEST(ValueReader, BooleansAreTheTwoWordsOnly) {
    ValueReader reader("#TRUE#\r\n  #FALSE#,#TRUE#");
    EXPECT_TRUE(reader.boolean());
    EXPECT_FALSE(reader.boolean());
    EXPECT_TRUE(reader.boolean());
    for (const std::string text : {"TRUE", "#true#", "1", "", "#TRUE# x"}) {
        ValueReader wrong(text);
        EXPECT_THROW(wrong.boolean(), ReadFailure) << text;
    }
}

TEST(ValueReader, QuotesProtectACommaAndMayStandInsideAName) {
    ValueReader reader("\"a, b\",bare\r\n\"\"\r\n\"3\" wing\" , \"x\"\n \"y\"");
    for (const char* expected : {"a, b", "bare", "", "3\" wing", "x", "y"})
        EXPECT_EQ(reader.text(), expected);
    EXPECT_THROW(reader.text(), ReadFailure);
}

TEST(ValueReader, ATextWithoutItsClosingQuoteFails) {
    for (const std::string text : {"\"", "\"abc", "\"abc\r\n\"", "\"abc\" def"}) {
        ValueReader reader(text);
        EXPECT_THROW(reader.text(), ReadFailure) << text;
    }
}

TEST(ReadWholeFile, GivesTheBytesAsTheyAre) {
    const TemporaryFolder folder;
    const std::string bytes("a\r\nb\0c\xff", 7);
    writeBytes(folder / "file", bytes);
    EXPECT_EQ(readWholeFile(folder / "file"), bytes);
    writeBytes(folder / "empty", "");
    EXPECT_EQ(readWholeFile(folder / "empty"), "");
}

TEST(ReadWholeFile, WhatAFileGainsMeanwhileIsLeftForTheNextTime) {
    const TemporaryFolder folder;
    const std::string path = folder / "grows";
    const std::string whole(1 << 20, 'a');
    std::ofstream file(path, std::ios::binary);
    file << whole << std::flush;
    const std::jthread writer([&](std::stop_token stop) {
        for (int i = 0; i < 2000 && !stop.stop_requested(); ++i)
            file << std::string(1 << 12, 'b') << std::flush;
    });
    for (int i = 0; i < 20; ++i) {
        const std::string bytes = readWholeFile(path);
        ASSERT_GE(bytes.size(), whole.size());
        EXPECT_EQ(bytes.find_first_not_of('b', whole.size()), std::string::npos);
        EXPECT_EQ(bytes[whole.size() - 1], 'a');
    }
}

TEST(ReadWholeFile, AFileThatEndsBeforeItsSizeIsReadToItsEnd) {
    // The kernel's own files tell a whole page as their size, and hold a line.
    const std::string path = "/sys/class/net/lo/mtu";
    if (!std::filesystem::exists(path)) GTEST_SKIP() << path << " is not there";
    ASSERT_GT(std::filesystem::file_size(path), 100U);
    const std::string line = readWholeFile(path);
    EXPECT_EQ(line.find_first_not_of("0123456789"), line.size() - 1);
    EXPECT_EQ(line.back(), '\n');
}

TEST(ReadWholeFile, WhatIsNoRegularFileFails) {
    const TemporaryFolder folder;
    ::mkfifo((folder / "pipe").c_str(), 0600);
    EXPECT_THROW(readWholeFile(folder.path()), ReadFailure);
    EXPECT_THROW(readWholeFile(folder / "missing"), ReadFailure);
    EXPECT_THROW(readWholeFile(folder / "pipe"), ReadFailure);
    EXPECT_THROW(readWholeFile("/dev/zero"), ReadFailure);
    EXPECT_THROW(readWholeFile(""), ReadFailure);
}

TEST(ReadWholeFile, MoreThanMemoryShouldHoldFails) {
    const TemporaryFolder folder;
    writeBytes(folder / "huge", "");
    std::filesystem::resize_file(folder / "huge", std::uintmax_t{1} << 40);
    EXPECT_THROW(readWholeFile(folder / "huge"), ReadFailure);
}

}  // namespace velna::test
