#include <gmock/gmock.h>
#include <interface/Font.h>
#include <interface/TextView.h>

#include "kits/interface/FontAccess.h"
#include "kits/interface/LineBreaker.h"
#include "kits/interface/ShownText.h"
#include "tests/recording_display/RecordingDisplay.h"

// Every character is 6 wide in the plain font.

namespace {

std::vector<std::string> Lines(const std::string& text, float width) {
    BPrivate::LineBreaker breaker(text, BPrivate::SpecOf(BFont()), width, true);
    std::vector<std::string> lines;
    BPrivate::TextLine line;
    while (breaker.Next(line))
        lines.push_back(text.substr(
            static_cast<std::size_t>(line.start), static_cast<std::size_t>(line.end - line.start)));
    return lines;
}

using testing::ElementsAre;

}  // namespace

TEST(BreakLines, WordsAndLineEnds) {
    EXPECT_THAT(Lines("", 100), ElementsAre(""));
    EXPECT_THAT(Lines("one", 100), ElementsAre("one"));
    EXPECT_THAT(Lines("one two three", 7 * 6), ElementsAre("one two", "three"));
    EXPECT_THAT(Lines("one two three", 7 * 6 - 1), ElementsAre("one", "two", "three"));
    EXPECT_THAT(Lines("one   two", 3 * 6), ElementsAre("one", "two"));
    EXPECT_THAT(Lines("a\nb\r\nc\rd", 100), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(Lines("a\n\nb\n", 100), ElementsAre("a", "", "b", ""));
    EXPECT_THAT(Lines("end  ", 100), ElementsAre("end  "));
}

TEST(BreakLines, LongWords) {
    EXPECT_THAT(Lines("abcdefgh ij", 3 * 6), ElementsAre("abc", "def", "gh", "ij"));
    EXPECT_THAT(Lines("ab", 0), ElementsAre("a", "b"));
    EXPECT_THAT(Lines("ab", -5), ElementsAre("a", "b"));
    EXPECT_THAT(Lines("ab", std::numeric_limits<float>::quiet_NaN()), ElementsAre("a", "b"));
    EXPECT_THAT(Lines("äöü", 6), ElementsAre("ä", "ö", "ü"));
}

TEST(BreakLines, WhatIsDrawnOtherwise) {
    EXPECT_THAT(Lines("a\tb", 6 * 6), ElementsAre("a\tb"));
    EXPECT_THAT(Lines("a\tb", 5 * 6), ElementsAre("a", "b"));
    EXPECT_THAT(Lines("\t\t", 6), ElementsAre("\t\t"));
    EXPECT_THAT(Lines("a\xff\xff"
                      "b",
                    2 * 6),
        ElementsAre("a\xff",
            "\xff"
            "b"));
    EXPECT_THAT(Lines("\x01\x02"
                      "ab\x1b",
                    6),
        ElementsAre("\x01\x02"
                    "a",
            "b\x1b"));
}

/// The windows that a long paragraph is looked at through change nothing.
TEST(BreakLines, LongParagraphs) {
    std::string text;
    std::vector<std::string> meant;
    for (int i = 0; i < 5000; i++) {
        text += "word日本 ";
        meant.push_back("word日本");
    }
    meant.back() += " ";
    EXPECT_EQ(Lines(text, 8 * 6), meant);
    EXPECT_THAT(
        Lines(std::string(100'000, 'x'), 10'000'000), ElementsAre(std::string(100'000, 'x')));
}

TEST(BreakLines, AllTextIsInSomeLineAndNoneIsTooWide) {
    const std::string words = "lorem ipsum dolor 日本語の文章 sit amet,consectetur  elit ";
    std::string text;
    for (int i = 0; i < 500; i++)
        text += words;
    for (const float width : {6.0F, 50.0F, 333.0F, 10000.0F}) {
        std::string shown;
        for (const std::string& line : Lines(text, width)) {
            EXPECT_LE(BFont().StringWidth(line.c_str()), width + 6);
            shown += line;
        }
        std::erase(shown, ' ');
        std::string all = text;
        std::erase(all, ' ');
        EXPECT_EQ(shown, all);
    }
}

TEST(ShownText, IsValidAndTellsWhereItComesFrom) {
    std::vector<int32> sources;
    EXPECT_EQ(BPrivate::ShownText("a\t\x02\xe6\x97\xa5\xff\x1az", &sources),
        "a    \xe6\x97\xa5\xef\xbf\xbd\xef\xbf\xbdz");
    EXPECT_THAT(sources, ElementsAre(0, 1, 1, 1, 1, 3, 3, 3, 6, 6, 6, 7, 7, 7, 8, 9));
    for (const char* broken : {"\xc0\x80", "\xe0\x80\x80", "\xed\xa0\x80", "\xf0\x80\x80\x80",
             "\xf4\x90\x80\x80", "\xf5", "\x80", "\xe6\x97"}) {
        std::string replaced;
        for (std::size_t i = 0; broken[i] != 0; i++)
            replaced += "\xef\xbf\xbd";
        EXPECT_EQ(BPrivate::ShownText(broken), replaced);
    }
    EXPECT_EQ(BPrivate::ShownText("\xf0\x9f\x98\x80"), "\xf0\x9f\x98\x80");
}

TEST(ShownText, HasNoByteOrderMarks) {
    std::vector<int32> sources;
    EXPECT_EQ(BPrivate::ShownText("\xef\xbb\xbf"
                                  "a\xef\xbb\xbf"
                                  "b\xef\xbb\xbf",
                  &sources),
        "ab");
    EXPECT_THAT(sources, ElementsAre(3, 7, 11));
}

TEST(TextView, LinesOfAComment) {
    BTextView view(BRect(), "text", BRect(), 0, 0);
    view.SetText("");
    EXPECT_EQ(view.CountLines(), 1);
    EXPECT_EQ(view.LineWidth(0), 0);
    view.SetTextRect(BRect(0, 0, 10000, 10000));
    view.SetText("one two\nthree");
    EXPECT_EQ(view.CountLines(), 2);
    EXPECT_EQ(view.OffsetAt(1), 8);
    EXPECT_EQ(view.OffsetAt(2), view.TextLength());
    view.SetTextRect(BRect(0, 0, 20, 10000));
    EXPECT_EQ(view.CountLines(), 4);
    EXPECT_EQ(view.LineWidth(0), 18);
    EXPECT_EQ(view.LineWidth(2), 18);
    EXPECT_EQ(view.LineWidth(3), 12);
    EXPECT_EQ(view.LineWidth(4), 0);
    EXPECT_EQ(view.OffsetAt(1), 4);
    EXPECT_EQ(view.LineAt(0), 0);
    EXPECT_EQ(view.LineAt(4), 1);
    EXPECT_EQ(view.LineAt(100), 3);
    EXPECT_EQ(view.LineHeight(), 12);
    EXPECT_EQ(view.TextHeight(0, 3), 48);
    BFont large;
    large.SetSize(24);
    view.SetFontAndColor(&large);
    EXPECT_EQ(view.LineWidth(0), 12);
    view.SetWordWrap(false);
    EXPECT_EQ(view.CountLines(), 2);
    EXPECT_EQ(view.LineWidth(0), 84);
    BFont font;
    view.GetFontAndColor(0, &font);
    EXPECT_EQ(font, large);
}

TEST(Font, FamilyFaceAndSize) {
    BFont font;
    EXPECT_EQ(font, *be_plain_font);
    EXPECT_EQ(font.Size(), 12);
    EXPECT_EQ(font.SetFamilyAndStyle("Swis721 BT", nullptr), B_NAME_NOT_FOUND);
    EXPECT_EQ(font, *be_plain_font);
    EXPECT_EQ(font.SetFamilyAndStyle("Serif", "Bold Italic"), B_OK);
    font_family family;
    font_style style;
    font.GetFamilyAndStyle(&family, &style);
    EXPECT_STREQ(family, "Serif");
    EXPECT_STREQ(style, "Bold Italic");
    EXPECT_EQ(font.Face(), B_BOLD_FACE | B_ITALIC_FACE);
    for (const float size : {-5.0F, 0.0F, std::numeric_limits<float>::quiet_NaN()}) {
        font.SetSize(size);
        EXPECT_EQ(font.Size(), 1);
    }
    font.SetSize(std::numeric_limits<float>::infinity());
    EXPECT_EQ(font.Size(), 10000);
}

TEST(Font, Widths) {
    const BFont font;
    EXPECT_EQ(font.StringWidth("abc"), 18);
    EXPECT_EQ(font.StringWidth("äöü"), 18);
    EXPECT_EQ(font.StringWidth("abc\n"), 18);
    EXPECT_EQ(font.StringWidth("\t"), 24);
    EXPECT_EQ(font.StringWidth("abcdef", 2), 12);
    EXPECT_EQ(font.StringWidth("ab", 200), 12);
    EXPECT_EQ(font.StringWidth("ab", -1), 0);
    EXPECT_EQ(font.StringWidth(nullptr), 0);
    font_height height;
    font.GetHeight(&height);
    EXPECT_EQ(height.ascent, 9);
    EXPECT_EQ(height.descent, 3);
}

TEST(Font, Families) {
    ASSERT_EQ(count_font_families(), 2);
    font_family name;
    EXPECT_EQ(get_font_family(0, &name), B_OK);
    EXPECT_STREQ(name, "Sans");
    EXPECT_EQ(get_font_family(1, &name), B_OK);
    EXPECT_EQ(get_font_family(2, &name), B_BAD_INDEX);
    EXPECT_EQ(get_font_family(-1, &name), B_BAD_INDEX);
    EXPECT_EQ(get_font_family(0, nullptr), B_BAD_VALUE);
}

TEST(Font, FamiliesStayAsTheyWereCounted) {
    auto& display = recording::TheRecordingDisplay();
    ASSERT_EQ(count_font_families(), 2);
    display.SetFontFamilies({"Other"});
    font_family name;
    EXPECT_EQ(get_font_family(1, &name), B_OK);
    EXPECT_STREQ(name, "Serif");
    EXPECT_EQ(count_font_families(), 1);
    EXPECT_EQ(get_font_family(0, &name), B_OK);
    EXPECT_STREQ(name, "Other");
    EXPECT_EQ(get_font_family(1, &name), B_BAD_INDEX);
    display.SetFontFamilies({"Sans", "Serif"});
    EXPECT_EQ(count_font_families(), 2);
}
