#include <gtest/gtest.h>

#include "shell/DroppedFiles.h"

namespace velna::test {
namespace {

std::string only(std::string_view list, bool local) {
    const auto items = droppedItems(list);
    EXPECT_EQ(items.size(), 1u) << list;
    if (items.size() != 1) return {};
    EXPECT_EQ(items[0].isLocal, local) << list;
    return items[0].name;
}

TEST(DroppedFiles, AFileOfThisComputerHasAnyForm) {
    for (const std::string form : {"file:///a/b.vln", "file://localhost/a/b.vln", "file:/a/b.vln"})
        EXPECT_EQ(only(form + "\r\n", true), "/a/b.vln");
    EXPECT_EQ(only("file:///a/b.vln", true), "/a/b.vln") << "without a line end";
}

TEST(DroppedFiles, CodedBytesAreTakenAsTheyAre) {
    EXPECT_EQ(only("file:///a%20b/gl%FCck%C3%BC%0a.vln\n", true),
              "/a b/gl\xfc"
              "ck\xc3\xbc\n.vln");
    EXPECT_EQ(only("file:///100%/%zz%2", true), "/100%/%zz%2");
}

TEST(DroppedFiles, WhatLiesElsewhereIsAnAddress) {
    for (const std::string address :
         {"https://models.example/a.vln", "file://otherhost/a.vln", "file:a.vln", "a.vln",
          "file://localhosts/a", "file:///a%00.vln", "smb://x/y"})
        EXPECT_EQ(only(address, false), address);
}

TEST(DroppedFiles, AThousandFilesAndCommentsAreToldApart) {
    std::string list = "# from a desktop\r\n\r\n";
    for (int i = 0; i < 1000; ++i) list += "file:///" + std::to_string(i) + "\r\n";
    const auto items = droppedItems(list);
    ASSERT_EQ(items.size(), 1000u);
    EXPECT_EQ(items.back().name, "/999");
    EXPECT_TRUE(droppedItems("").empty());
    EXPECT_TRUE(droppedItems("#only a comment\r\n").empty());
}

}  // namespace
}  // namespace velna::test
