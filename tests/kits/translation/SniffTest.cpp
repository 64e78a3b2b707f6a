#include "kits/translation/Sniff.h"
#include <gtest/gtest.h>
#include <string>

using namespace BPrivate;

TEST(SniffTest, TellsFromTheFirstBytesWhoMightKnow) {
    using namespace std::string_literals;
    const struct {
        std::string head;
        bool jpeg, png, other;
    } kCases[] = {
        {"", false, false, false},
        {"\xff\xd8\xff\xe0\0"s, true, false, true},
        {"\xff\xd8", false, false, false},
        {"\x89PNG\r\n\x1a\n", false, true, true},
        {"\x89PNG\r\n\x1a", false, false, true},
        {"GIF89a\x01\0\x01\0"s, false, false, true},
        {"RIFF\x10\0\0\0WEBP"s, false, false, true},
        {"A comment.\n", false, false, false},
        {"\xe3\x81\x82 in UTF-8\r\n", false, false, false},
        {"\x82\xa0 in another encoding\n", false, false, false},
        {"\x1b$B$\"\x1b(B in a third\n", false, false, false},
        {"   \n\n", false, false, false},
        {"<?xml version=\"1.0\"?>", false, false, true},
        {"\xef\xbb\xbf\n <svg>", false, false, true},
        {"/* XPM */\nstatic char", false, false, true},
        {"#define a_width 5", false, false, true},
        {"# a comment", false, false, false},
        {"P3\n4 4\n255\n", false, false, true},
        {"P1#", false, false, true},
        {"Picture of a house", false, false, false},
        {"P3X", false, false, false},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(test.head);
        const auto* head = reinterpret_cast<const uint8*>(test.head.data());
        EXPECT_EQ(IsJpeg(head, test.head.size()), test.jpeg);
        EXPECT_EQ(IsPng(head, test.head.size()), test.png);
        EXPECT_EQ(MayBeImage(head, test.head.size()), test.other);
    }
}

TEST(SniffTest, TheOneThatKnowsManyIsAskedLast) {
    EXPECT_STREQ(kCodecs[kCodecCount - 1].fileName, "qt-translator.so");
}
