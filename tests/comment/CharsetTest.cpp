#include "comment/Charset.h"

#include <gtest/gtest.h>
#include <support/UTF8.h>

TEST(DetectCharset, Utf8NeedsNoConversion) {
    for (const char* text : {"", "plain", "日本語", "é", "\xf0\x9f\x98\x80", "a\xc3\xa9z"})
        EXPECT_EQ(detect_charset(text), 0u) << text;
}

TEST(DetectCharset, BrokenUtf8IsShiftJis) {
    for (const char* text : {"\x93\xfa",  // a trail byte first
             "caf\xe9",                   // a lead byte at the end: its trail bytes are missing
             "caf\xe9 au",                // Latin-1
             "\xc3z", "\xe3\x81z", "\xff", "\xff\x80\x80\x80\x80\x80\x80", "\xb1\xb2\xb3"})
        EXPECT_EQ(detect_charset(text), uint32{B_SJIS_CONVERSION}) << text;
}

// Only the form is looked at: what no UTF-8 text has, but is well formed, is none of its business.
TEST(DetectCharset, LongFormsAreWellFormed) {
    EXPECT_EQ(detect_charset("\xff\x80\x80\x80\x80\x80\x80\x80"), 0u);
    EXPECT_EQ(detect_charset("\xf8\x80\x80\x80\x80"), 0u);
    EXPECT_EQ(detect_charset("\xc0\x80"), 0u);
}

TEST(DetectCharset, AnEscapeAnywhereIsJis) {
    for (const char* text :
        {"\x1b", "日本語\x1b", "\x1b$BF|\x1b(B", "\x83\x41\x1b", "plain \x1b[0m"})
        EXPECT_EQ(detect_charset(text), uint32{B_JIS_CONVERSION}) << text;
}

// A lead byte takes the bytes behind it for its own, also one that is an escape.
TEST(DetectCharset, AnEscapeInPlaceOfATrailByteIsNone) {
    EXPECT_EQ(detect_charset("\xc3\x1bz"), uint32{B_SJIS_CONVERSION});
}

TEST(DetectCrType, CountsTheLineEnds) {
    struct Case {
        const char* text;
        int type;
    };
    for (const auto& [text, type] : {Case{"", 0}, {"one line", 0}, {"a\nb", 0}, {"a\nb\n", 0},
             {"a\r\nb", 1}, {"a\r\nb\r\n", 1}, {"a\rb", 2}, {"a\rb\r", 2}, {"a\r\nb\n", 0},
             {"a\r\nb\r", 2}, {"\r\n", 1}, {"a\nb\rc", 1}})
        EXPECT_EQ(detect_cr_type(text), type) << text;
}
