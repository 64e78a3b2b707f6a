#include <gmock/gmock.h>

#include "kits/interface/Display.h"

// Where lines end, by the text layout of the desktop.

namespace {

using namespace BPrivate;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr float kWide = 100000;

std::vector<std::string> Lines(const std::string& text, float width) {
    std::vector<std::string> lines;
    int32 start = 0;
    for (const int32 end : TheDisplay().LineEnds(FontSpec(), text, width)) {
        EXPECT_GT(end, start);
        lines.push_back(
            text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)));
        start = end;
    }
    EXPECT_EQ(start, static_cast<int32>(text.size()));
    return lines;
}

float Width(const std::string& text) {
    return TheDisplay().StringWidth(FontSpec(), text);
}

}  // namespace

TEST(LineEnds, Words) {
    EXPECT_THAT(Lines("one two three", kWide), ElementsAre("one two three"));
    EXPECT_THAT(Lines("one two three", Width("one two")), ElementsAre("one two ", "three"));
    EXPECT_THAT(Lines("one   two", Width("one ")), ElementsAre("one   ", "two"));
}

TEST(LineEnds, ALineAsWideAsItsTextIsNotBroken) {
    for (const std::string text : {"word", "two words", "日本語", "Ünïcödé", "fi ffi"}) {
        for (const float size : {7.5F, 12.0F, 13.3F, 40.0F}) {
            const FontSpec font{"", size};
            EXPECT_EQ(
                TheDisplay().LineEnds(font, text, TheDisplay().StringWidth(font, text)).size(), 1u)
                << text << " " << size;
        }
    }
}

TEST(LineEnds, LongWordsAndNoWidth) {
    const std::vector<std::string> lines = Lines("abcdefghijkl", Width("abcd"));
    EXPECT_GT(lines.size(), 2u);
    for (const float width : {0.0F, -5.0F, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_THAT(Lines("abc", width), ElementsAre("a", "b", "c"));
}

TEST(LineEnds, JapaneseNeedsNoBlanks) {
    EXPECT_THAT(Lines("日本語文章", Width("日本語")), ElementsAre("日本語", "文章"));
    // A full stop does not begin a line, and an opening bracket does not end one.
    EXPECT_THAT(Lines("日本語。文", Width("日本語")), Not(Contains(testing::StartsWith("。"))));
    EXPECT_THAT(Lines("日本「語」文", Width("日本「")), Not(Contains(testing::EndsWith("「"))));
}

TEST(LineEnds, CombiningMarksStayWithTheirLetters) {
    for (const std::string& line : Lines("e\u0301e\u0301e\u0301e\u0301", Width("e\u0301e\u0301")))
        EXPECT_THAT(line, testing::EndsWith("\u0301"));
}

TEST(LineEnds, ArabicBreaksBetweenWords) {
    const std::string text = "مرحبا بالعالم العربي";
    EXPECT_THAT(Lines(text, Width("مرحبا بالعالم ")), ElementsAre("مرحبا بالعالم ", "العربي"));
}
