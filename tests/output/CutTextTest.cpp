#include <gtest/gtest.h>

#include "output/CutText.h"

namespace velna::test {
namespace {

TEST(CutText, DxfHoldsLettersBeyondAsciiAsCodes) {
    EXPECT_EQ(dxfText("wing 1"), "wing 1");
    EXPECT_EQ(dxfText("Fl\xc3\xbcgel"), "Fl\\U+00FCgel");
    EXPECT_EQ(dxfText("\xf0\x9f\x9b\xa9"), "\\U+D83D\\U+DEE9");
}

TEST(CutText, DxfTextStaysOneLineAndStartsNoSign) {
    EXPECT_EQ(dxfText("a\r\nb\tc"), "a  b c");
    EXPECT_EQ(dxfText("30%"), "30%");
    EXPECT_EQ(dxfText("%%c"), "%%37%c");
    EXPECT_EQ(dxfText("a\\P"), "a\\U+005CP");
}

TEST(CutText, XmlMarksAreEscaped) {
    EXPECT_EQ(xmlText("a<b>&\"c\""), "a&lt;b&gt;&amp;&quot;c&quot;");
    EXPECT_EQ(xmlText("Fl\xc3\xbcgel"), "Fl\xc3\xbcgel");
    EXPECT_EQ(xmlText(std::string_view("a\0\x1b\n", 4)), "a   ");
}

TEST(CutText, BytesThatAreNoLetterAreReplaced) {
    const std::string none = "\xef\xbf\xbd";
    EXPECT_EQ(xmlText("a\xff"), "a" + none);
    EXPECT_EQ(xmlText("\xc3"), none);
    EXPECT_EQ(xmlText("\xc0\xaf"), none + none);
    EXPECT_EQ(xmlText("\xed\xa0\x80"), none + none + none);
    EXPECT_EQ(xmlText("\xef\xbf\xbf"), none);
    EXPECT_EQ(dxfText("\xfe"), "\\U+FFFD");
    EXPECT_EQ(dxfText(""), "");
}

}  // namespace
}  // namespace velna::test
