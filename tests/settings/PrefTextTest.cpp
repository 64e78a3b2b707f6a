#include "settings/PrefText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNone = std::numeric_limits<float>::quiet_NaN();

float distance(const char* text) {
    return adjust_value(whole_number(text), 0, 100);
}

float font_size(const char* text) {
    return adjust_value(decimal_number(text), 5, 50);
}

TEST(PrefText, ValuesAreBroughtIntoTheirRange) {
    EXPECT_EQ(adjust_value(7, 5, 50), 7);
    EXPECT_EQ(adjust_value(5, 5, 50), 5);
    EXPECT_EQ(adjust_value(50, 5, 50), 50);
    EXPECT_EQ(adjust_value(4.9F, 5, 50), 5);
    EXPECT_EQ(adjust_value(50.1F, 5, 50), 50);
    EXPECT_EQ(adjust_value(kInfinity, 5, 50), 50);
    EXPECT_EQ(adjust_value(-kInfinity, 5, 50), 5);
    EXPECT_EQ(adjust_value(kNone, 5, 50), 5);
}

TEST(PrefText, DistancesAreWholeNumbers) {
    EXPECT_EQ(distance("20"), 20);
    EXPECT_EQ(distance("0"), 0);
    EXPECT_EQ(distance("100"), 100);
    EXPECT_EQ(distance("250"), 100);
    EXPECT_EQ(distance("-5"), 0);
    EXPECT_EQ(distance("+7"), 7);
    EXPECT_EQ(distance("  12"), 12);
    EXPECT_EQ(distance("12px"), 12);
    EXPECT_EQ(distance("12.9"), 12);
    EXPECT_EQ(distance("010"), 10);
    EXPECT_EQ(distance("0x10"), 0);
    EXPECT_EQ(distance("1e999"), 1);
    EXPECT_EQ(distance("99999999999999999999"), 100);
    EXPECT_EQ(distance("-99999999999999999999"), 0);
    for (const char* text : {"", " ", "abc", "nan", "inf", "-", "x9", "\xff", "十"})
        EXPECT_EQ(distance(text), 0) << text;
}

TEST(PrefText, FontSizesHaveDecimals) {
    EXPECT_EQ(font_size("12"), 12);
    EXPECT_EQ(font_size("4.5"), 5);
    EXPECT_EQ(font_size("72"), 50);
    EXPECT_EQ(font_size("10.5"), 10.5F);
    EXPECT_EQ(font_size("10,5"), 10.5F);
    EXPECT_EQ(font_size(" \t+10.5 pt"), 10.5F);
    EXPECT_EQ(font_size("1e1"), 10);
    EXPECT_EQ(font_size("-20"), 5);
    EXPECT_EQ(font_size("1e999"), 50);
    EXPECT_EQ(font_size("1E+999"), 50);
    EXPECT_EQ(font_size("-1e999"), 5);
    EXPECT_EQ(font_size("1e-999"), 5);
    EXPECT_EQ(font_size("99999999999999999999"), 50);
    EXPECT_EQ(font_size((std::string(400, '9') + "e").c_str()), 50);
    EXPECT_EQ(font_size(("0." + std::string(400, '0') + "1").c_str()), 5);
    EXPECT_EQ(font_size("inf"), 50);
    EXPECT_EQ(font_size("-inf"), 5);
    for (const char* text : {"", " ", "abc", "nan", "-nan", ".", ",", "+-9", "++9", "- 9", "\xff"})
        EXPECT_EQ(font_size(text), 5) << text;
}

TEST(PrefText, ValuesAreShownAsTheyAreTyped) {
    EXPECT_EQ(whole_text(20), "20");
    EXPECT_EQ(whole_text(20.9F), "20");
    EXPECT_EQ(whole_text(-0.9F), "0");
    EXPECT_EQ(whole_text(-3.9F), "-3");
    EXPECT_EQ(decimal_text(12), "12");
    EXPECT_EQ(decimal_text(10.5F), "10.5");
    EXPECT_EQ(decimal_text(0.1F), "0.1");
}

TEST(PrefText, AbsurdValuesHaveATextToo) {
    for (const float value : {kInfinity, -kInfinity, kNone, 1e30F, -1e30F}) {
        EXPECT_LE(whole_text(value).size(), 12U) << value;
        EXPECT_LE(decimal_text(value).size(), 12U) << value;
    }
    EXPECT_LE(decimal_text(1e-40F).size(), 60U);
}

TEST(PrefText, ExtensionsAreInLowerCaseAndWithoutDot) {
    EXPECT_EQ(comment_file_ext("txt"), "txt");
    EXPECT_EQ(comment_file_ext("TXT"), "txt");
    EXPECT_EQ(comment_file_ext(".Txt"), "txt");
    EXPECT_EQ(comment_file_ext("..txt"), "txt");
    EXPECT_EQ(comment_file_ext(" \t txt "), "txt");
    EXPECT_EQ(comment_file_ext(" . .txt"), "txt");
    EXPECT_EQ(comment_file_ext("tar.GZ"), "tar.gz");
    EXPECT_EQ(comment_file_ext("my notes"), "my notes");
    // Files are found byte by byte, and which letters belong together depends on the language.
    EXPECT_EQ(comment_file_ext("ÄÖÜ"), "ÄÖÜ");
    EXPECT_EQ(comment_file_ext("メモ"), "メモ");
}

TEST(PrefText, WhatNoFileNameCanEndWithIsNoExtension) {
    for (const char* text : {"", " ", "\t", ".", "...", " . ", "a/b", "/", "../txt"})
        EXPECT_EQ(comment_file_ext(text), "") << text;
    EXPECT_EQ(comment_file_ext(std::string(254, 'a')).size(), 254U);
    EXPECT_EQ(comment_file_ext(std::string(255, 'a')), "");
    EXPECT_EQ(comment_file_ext(std::string(100000, 'a')), "");
}

}  // namespace
