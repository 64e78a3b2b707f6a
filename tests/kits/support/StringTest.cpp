#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <string>
#include <utility>

#include <support/String.h>

namespace {

// An e with an acute accent (2 bytes), a kana (3 bytes) and a face (4 bytes).
const char* const kAcute = "\xC3\xA9";
const char* const kKana = "\xE3\x81\x82";
const char* const kFace = "\xF0\x9F\x98\x80";

BString mixed() {
    return BString("a") << kAcute << kKana << kFace << "z";
}

}  // namespace

TEST(String, IsMadeOfWhatItIsGiven) {
    EXPECT_STREQ(BString().String(), "");
    EXPECT_TRUE(BString().IsEmpty());
    EXPECT_STREQ(BString(static_cast<const char*>(nullptr)).String(), "");
    EXPECT_STREQ(BString(nullptr, 3).String(), "");
    EXPECT_STREQ(BString("text").String(), "text");
    EXPECT_STREQ(BString("text", 2).String(), "te");
    EXPECT_STREQ(BString("text", 9).String(), "text");
    EXPECT_STREQ(BString("text", 0).String(), "");
    EXPECT_STREQ(BString("text", -1).String(), "");
    const char unterminated[] = {'a', 'b'};
    EXPECT_STREQ(BString(unterminated, 2).String(), "ab");

    BString from("moved");
    const BString to(std::move(from));
    EXPECT_STREQ(to.String(), "moved");
}

TEST(String, IsAssigned) {
    BString s("before");
    EXPECT_STREQ((s = "after").String(), "after");
    EXPECT_STREQ((s = 'c').String(), "c");
    EXPECT_STREQ((s = BString("copy")).String(), "copy");
    EXPECT_STREQ(s.SetTo("text", 3).String(), "tex");
    EXPECT_STREQ(s.SetTo(BString("other"), 2).String(), "ot");
    EXPECT_STREQ(s.SetTo('y', 3).String(), "yyy");
    EXPECT_STREQ(s.SetTo('x', -3).String(), "");
    s = "adopted";
    BString to("old");
    EXPECT_STREQ(to.Adopt(s, 4).String(), "adop");
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_STREQ(to.Adopt(to).String(), "adop");
    EXPECT_STREQ(to.SetTo(static_cast<const char*>(nullptr)).String(), "");
    EXPECT_STREQ(to.SetToFormat("%s %d of %d", "Image", 3, 12).String(), "Image 3 of 12");
    EXPECT_STREQ(to.SetToFormat("<%s>", to.String()).String(), "<Image 3 of 12>");
    const std::string longText(5000, 'l');
    EXPECT_EQ(to.SetToFormat("%s", longText.c_str()).Length(), 5000);
}

TEST(String, MayBeGivenAPartOfItself) {
    BString s("abc");
    EXPECT_STREQ(s.Append(s).String(), "abcabc");
    EXPECT_STREQ(s.Append(s.String()).String(), "abcabcabcabc");
    s = "abc";
    EXPECT_STREQ(s.Append(s.String() + 1).String(), "abcbc");
    EXPECT_STREQ(s.Prepend(s.String() + 3).String(), "bcabcbc");
    s = "abc";
    EXPECT_STREQ(s.Insert(s, 1).String(), "aabcbc");
    s = "abc";
    EXPECT_STREQ(s.SetTo(s.String() + 1).String(), "bc");
    const BString& same = s;
    s = same;
    EXPECT_STREQ(s.String(), "bc");
    EXPECT_STREQ((s << s << s).String(), "bcbcbcbc");
    s = "abab";
    EXPECT_STREQ(s.ReplaceAll("a", s.String()).String(), "ababbababb");
    s = "ab";
    EXPECT_STREQ(s.ReplaceAll(s.String(), "c").String(), "c");
    s = "abc";
    EXPECT_STREQ(s.ReplaceLast("c", s.String()).String(), "ababc");
    s = "abcd";
    s.CopyInto(s, 1, 2);
    EXPECT_STREQ(s.String(), "bc");
    s = "abcd";
    s.MoveInto(s, 1, 2);
    EXPECT_STREQ(s.String(), "bc");
    s = "a,b";
    EXPECT_STREQ(s.CharacterEscape(s.String(), s.String() + 1, '\\').String(), "a\\,\\b");
}

TEST(String, CountsUtf8Characters) {
    const struct {
        std::string text;
        int32 chars;
    } cases[] = {
        {"", 0},
        {"plain", 5},
        {kAcute, 1},
        {kKana, 1},
        {kFace, 1},
        {std::string("e") + "\xCC\x81", 2},  // a combining accent is a character of its own
        {mixed().String(), 5},
    };
    for (const auto& test : cases)
        EXPECT_EQ(BString(test.text.c_str()).CountChars(), test.chars) << test.text;

    const BString s = mixed();
    EXPECT_EQ(s.Length(), 11);
    EXPECT_EQ(s.CountBytes(0, 1), 1);
    EXPECT_EQ(s.CountBytes(1, 1), 2);
    EXPECT_EQ(s.CountBytes(2, 2), 7);
    EXPECT_EQ(s.CountBytes(0, 100), 11);
    EXPECT_EQ(s.CountBytes(4, 1), 1);
    EXPECT_EQ(s.CountBytes(5, 1), 0);
    EXPECT_EQ(s.CountBytes(-1, -1), 0);
    EXPECT_EQ(mixed().TruncateChars(3), BString("a") << kAcute << kKana);
    EXPECT_EQ(mixed().TruncateChars(50), mixed());
    EXPECT_EQ(mixed().TruncateChars(-1), "");
    EXPECT_EQ(mixed().RemoveChars(1, 2), BString("a") << kFace << "z");
    EXPECT_EQ(mixed().RemoveChars(3, 50), BString("a") << kAcute << kKana);
    // Bytes that continue nothing.
    EXPECT_EQ(BString("\x80\x80").CountChars(), 0);
    EXPECT_EQ(BString("\x80\x80").TruncateChars(1), "\x80\x80");
}

TEST(String, ReachesItsBytes) {
    BString s("abc");
    EXPECT_EQ(s[1], 'b');
    s[1] = 'x';
    EXPECT_EQ(std::as_const(s)[1], 'x');
    EXPECT_EQ(s.ByteAt(2), 'c');
    for (const int32 outside : {-1, 3, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(s.ByteAt(outside), '\0');
        s.SetByteAt(outside, 'y');
    }
    s.SetByteAt(0, 'z');
    EXPECT_STREQ(s.String(), "zxc");
    EXPECT_EQ(BString("same").HashValue(), BString("same").HashValue());
    EXPECT_NE(BString("same").HashValue(), BString("other").HashValue());
}

TEST(String, IsAddedTo) {
    BString s("b");
    EXPECT_STREQ((s += "c").String(), "bc");
    EXPECT_STREQ((s += 'd').String(), "bcd");
    EXPECT_STREQ((s += BString("e")).String(), "bcde");
    EXPECT_STREQ(s.Prepend("a").String(), "abcde");
    EXPECT_STREQ(s.Append("fghij", 2).String(), "abcdefg");
    EXPECT_STREQ(s.Append(BString("hij"), 1).String(), "abcdefgh");
    EXPECT_STREQ(s.Append("x", -1).String(), "abcdefgh");
    EXPECT_STREQ(s.Append(static_cast<const char*>(nullptr)).String(), "abcdefgh");
    EXPECT_STREQ(s.Append('!', 2).String(), "abcdefgh!!");
    EXPECT_STREQ(s.Prepend('-', 2).String(), "--abcdefgh!!");
    EXPECT_STREQ(s.Prepend("xyz", 1).String(), "x--abcdefgh!!");
    EXPECT_STREQ(s.Prepend(BString("yz"), 1).Truncate(4).String(), "yx--");
    EXPECT_STREQ(s.Insert("12", 2).String(), "yx12--");
    EXPECT_STREQ(s.Insert("345", 1, 4).String(), "yx123--");
    EXPECT_STREQ(s.Insert('4', 2, 5).String(), "yx12344--");
    EXPECT_STREQ(s.Insert(BString("ab"), 1, 9).String(), "yx12344--a");
    for (const int32 outside : {-1, 11, INT32_MAX}) {
        EXPECT_STREQ(s.Insert("no", outside).String(), "yx12344--a");
        EXPECT_STREQ(s.Insert('n', 1, outside).String(), "yx12344--a");
    }
    EXPECT_EQ(BString("a") + "b" + BString("c"), "abc");
    EXPECT_EQ("a" + BString("b"), "ab");
}

TEST(String, WritesNumbers) {
    const uint8 small = 200;
    BString s;
    s << 1 << ' ' << -2L << ' ' << 3u << ' ' << small << ' ' << true << ' ' << 'c';
    EXPECT_STREQ(s.String(), "1 -2 3 200 true c");
    EXPECT_STREQ((BString() << INT64_MIN).String(), "-9223372036854775808");
    EXPECT_STREQ((BString() << UINT64_MAX).String(), "18446744073709551615");
    EXPECT_STREQ((BString() << LLONG_MAX).String(), "9223372036854775807");
    EXPECT_STREQ((BString() << 1.5f).String(), "1.50");
    EXPECT_STREQ((BString() << -0.126).String(), "-0.13");
    EXPECT_STREQ((BString() << 100.0).String(), "100.00");
    EXPECT_EQ((BString() << std::numeric_limits<double>::max()).Length(), 312);
    EXPECT_STREQ((BString() << std::numeric_limits<double>::infinity()).String(), "inf");
}

TEST(String, LosesParts) {
    const struct {
        int32 from, length;
        const char* rest;
    } cases[] = {
        {0, 1, "bcdef"},
        {1, 2, "adef"},
        {4, 100, "abcd"},
        {4, INT32_MAX, "abcd"},
        {6, 1, "abcdef"},
        {100, 1, "abcdef"},
        {0, 0, "abcdef"},
        {2, -1, "abcdef"},
        {-1, 2, "cdef"},
        {0, 6, ""},
    };
    for (const auto& test : cases)
        EXPECT_STREQ(BString("abcdef").Remove(test.from, test.length).String(), test.rest);

    EXPECT_STREQ(BString("abc").Truncate(5).String(), "abc");
    EXPECT_STREQ(BString("abc").Truncate(2, false).String(), "ab");
    EXPECT_STREQ(BString("abc").Truncate(-2).String(), "");
    EXPECT_STREQ(BString("xaxbx").RemoveFirst("x").String(), "axbx");
    EXPECT_STREQ(BString("xaxbx").RemoveLast(BString("x")).String(), "xaxb");
    EXPECT_STREQ(BString("xaxbx").RemoveAll("x").String(), "ab");
    EXPECT_STREQ(BString("xaxbx").RemoveAll("").String(), "xaxbx");
    EXPECT_STREQ(BString("xaxbx").RemoveAll("no").String(), "xaxbx");
    EXPECT_STREQ(BString("xaxbx").RemoveSet("xb").String(), "a");
    EXPECT_STREQ(BString("xaxbx").RemoveSet(nullptr).String(), "xaxbx");
    EXPECT_STREQ(BString(" \t text with space\n").Trim().String(), "text with space");
    EXPECT_STREQ(BString(" \n\t").Trim().String(), "");
}

TEST(String, HandsOutParts) {
    BString s("abcdef");
    BString into("old");
    EXPECT_STREQ(s.CopyInto(into, 2, 3).String(), "cde");
    EXPECT_STREQ(s.CopyInto(into, 9, 3).String(), "");
    EXPECT_STREQ(s.MoveInto(into, 4, 9).String(), "ef");
    EXPECT_STREQ(s.String(), "abcd");
    char buffer[] = "------";
    s.CopyInto(buffer, 1, 2);
    EXPECT_STREQ(buffer, "bc----");
    s.MoveInto(buffer, 0, 100);
    EXPECT_STREQ(buffer, "abcd--");
    EXPECT_TRUE(s.IsEmpty());
}

TEST(String, IsCompared) {
    const BString s("Same");
    EXPECT_TRUE(s == "Same" && "Same" == s && s == BString("Same"));
    EXPECT_TRUE(s != "same" && s != BString("Sam"));
    EXPECT_TRUE(s < "same" && s < BString("Same ") && s > "Sam" && s >= "Same" && s <= "Same");
    EXPECT_TRUE(BString() == static_cast<const char*>(nullptr));
    // By the bytes' values: everything beyond ASCII comes after it.
    EXPECT_TRUE(BString("z") < kAcute);

    EXPECT_EQ(s.Compare("Same"), 0);
    EXPECT_LT(s.Compare("Sbme"), 0);
    EXPECT_GT(s.Compare(BString("Sa")), 0);
    EXPECT_EQ(s.Compare("Samuel", 3), 0);
    EXPECT_LT(s.Compare(BString("Samuel"), 4), 0);
    EXPECT_EQ(s.Compare("other", 0), 0);
    EXPECT_EQ(s.ICompare("sAME"), 0);
    EXPECT_LT(s.ICompare(BString("tame")), 0);
    EXPECT_EQ(s.ICompare("SAMUEL", 3), 0);
    EXPECT_EQ(s.ICompare(BString("SAMUEL"), 3), 0);
    const BString t("T");
    EXPECT_LT(Compare(s, t), 0);
    EXPECT_GT(ICompare(&t, &s), 0);
    EXPECT_LT(Compare(&s, &t), 0);
    EXPECT_LT(ICompare(s, t), 0);

    EXPECT_TRUE(s.StartsWith("Sa") && s.StartsWith(BString()) && !s.StartsWith("sa"));
    EXPECT_TRUE(s.IStartsWith("sAM") && !s.IStartsWith("sameness"));
    EXPECT_TRUE(s.EndsWith("me") && s.EndsWith(BString("Same")) && !s.EndsWith("ME"));
    EXPECT_TRUE(s.IEndsWith(BString("ME")) && !s.IEndsWith("xsame"));
}

TEST(String, FindsText) {
    const BString s("abcabcABC");
    const struct {
        const char* text;
        int32 from;
        int32 first, iFirst, last, iLast;  // `from` is the limit of the last two
    } cases[] = {
        {"abc", 0, 0, 0, B_ERROR, B_ERROR},
        {"abc", 3, 3, 3, 0, 0},
        {"abc", 4, B_ERROR, 6, 0, 0},
        {"abc", 9, B_ERROR, B_ERROR, 3, 6},
        {"ABC", 0, 6, 0, B_ERROR, B_ERROR},
        {"ABC", 8, B_ERROR, B_ERROR, B_ERROR, 3},
        {"", 2, 2, 2, 2, 2},
        {"", 10, B_ERROR, B_ERROR, 9, 9},
        {"x", 0, B_ERROR, B_ERROR, B_ERROR, B_ERROR},
        {"abc", -1, 0, 0, B_ERROR, B_ERROR},
        {"abc", INT32_MAX, B_ERROR, B_ERROR, 3, 6},
        {"abcabcABCabc", 9, B_ERROR, B_ERROR, B_ERROR, B_ERROR},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(s.FindFirst(test.text, test.from), test.first) << test.text << test.from;
        EXPECT_EQ(s.IFindFirst(test.text, test.from), test.iFirst) << test.text << test.from;
        EXPECT_EQ(s.FindLast(test.text, test.from), test.last) << test.text << test.from;
        EXPECT_EQ(s.IFindLast(test.text, test.from), test.iLast) << test.text << test.from;
        EXPECT_EQ(s.FindFirst(BString(test.text), test.from), test.first);
        EXPECT_EQ(s.IFindFirst(BString(test.text), test.from), test.iFirst);
        EXPECT_EQ(s.FindLast(BString(test.text), test.from), test.last);
        EXPECT_EQ(s.IFindLast(BString(test.text), test.from), test.iLast);
    }
    EXPECT_EQ(s.FindFirst("ca"), 2);
    EXPECT_EQ(s.FindFirst(BString("ca")), 2);
    EXPECT_EQ(s.FindLast("bc"), 4);
    EXPECT_EQ(s.FindLast(BString("bc")), 4);
    EXPECT_EQ(s.IFindFirst("CA"), 2);
    EXPECT_EQ(s.IFindLast(BString("bc")), 7);
    EXPECT_EQ(s.FindFirst('c'), 2);
    EXPECT_EQ(s.FindFirst('c', 3), 5);
    EXPECT_EQ(s.FindLast('c'), 5);
    EXPECT_EQ(s.FindLast('c', 5), 2);
    EXPECT_EQ(s.FindFirst('x'), B_ERROR);
    const char* const none = nullptr;
    EXPECT_EQ(s.FindFirst(none), B_BAD_VALUE);
    EXPECT_EQ(s.FindLast(none, 3), B_BAD_VALUE);
    EXPECT_EQ(s.IFindFirst(none), B_BAD_VALUE);
    EXPECT_EQ(s.IFindLast(none), B_BAD_VALUE);
    EXPECT_EQ(BString().FindFirst(""), 0);
    EXPECT_EQ(BString().FindFirst("a"), B_ERROR);
}

TEST(String, ReplacesText) {
    const struct {
        const char* text;
        const char* what;
        const char* with;
        int32 from;
        const char* result;
    } cases[] = {
        {"About %AppName%", "%AppName%", "Lorivane", 0, "About Lorivane"},
        {"%a%%a%", "%a%", "x", 0, "xx"},
        {"aaa", "a", "aa", 0, "aaaaaa"},
        {"aaa", "aa", "b", 0, "ba"},
        {"aaa", "a", "", 1, "a"},
        {"aaa", "a", "b", 3, "aaa"},
        {"aaa", "a", "b", 100, "aaa"},
        {"aaa", "a", "b", -5, "bbb"},
        {"aaa", "", "b", 0, "aaa"},
        {"", "", "b", 0, ""},
        {"", "a", "b", 0, ""},
        {"aaa", nullptr, "b", 0, "aaa"},
        {"abc", "b", nullptr, 0, "ac"},
        {"Aa", "a", "x", 0, "Ax"},
    };
    for (const auto& test : cases) {
        EXPECT_STREQ(
            BString(test.text).ReplaceAll(test.what, test.with, test.from).String(), test.result);
    }
    EXPECT_STREQ(BString("aAaA").IReplaceAll("A", "xy").String(), "xyxyxyxy");
    EXPECT_STREQ(BString("aAaA").IReplaceAll("a", "x", 2).String(), "aAxx");
    EXPECT_STREQ(BString("aaaa").Replace("a", "x", 2).String(), "xxaa");
    EXPECT_STREQ(BString("aaaa").Replace("a", "x", 2, 1).String(), "axxa");
    EXPECT_STREQ(BString("aaaa").Replace("a", "x", 0).String(), "aaaa");
    EXPECT_STREQ(BString("aaaa").Replace("a", "x", -1).String(), "aaaa");
    EXPECT_STREQ(BString("AaAa").IReplace("a", "y", 3).String(), "yyya");
    EXPECT_STREQ(BString("abab").ReplaceFirst("ab", "x").String(), "xab");
    EXPECT_STREQ(BString("abab").ReplaceLast("ab", "x").String(), "abx");
    EXPECT_STREQ(BString("abab").ReplaceLast("", "x").String(), "abab");
    EXPECT_STREQ(BString("abab").ReplaceLast("no", "x").String(), "abab");
    EXPECT_STREQ(BString("ABab").IReplaceFirst("ab", "x").String(), "xab");
    EXPECT_STREQ(BString("abAB").IReplaceLast("ab", "x").String(), "abx");

    EXPECT_STREQ(BString("a/b/c").ReplaceAll('/', '-').String(), "a-b-c");
    EXPECT_STREQ(BString("a/b/c").ReplaceAll('/', '-', 2).String(), "a/b-c");
    EXPECT_STREQ(BString("a/b/c").ReplaceFirst('/', '-').String(), "a-b/c");
    EXPECT_STREQ(BString("a/b/c").ReplaceLast('/', '-').String(), "a/b-c");
    EXPECT_STREQ(BString("a/b/c").ReplaceLast('x', '-').String(), "a/b/c");
    EXPECT_STREQ(BString("a/b/c").Replace('/', '-', 1, 2).String(), "a/b-c");
    EXPECT_STREQ(BString("aAbA").IReplaceAll('a', 'x').String(), "xxbx");
    EXPECT_STREQ(BString("aAbA").IReplaceFirst('A', 'x').String(), "xAbA");
    EXPECT_STREQ(BString("aAbA").IReplaceLast('a', 'x').String(), "aAbx");
    EXPECT_STREQ(BString("aAbA").IReplace('a', 'x', 2).String(), "xxbA");
    EXPECT_STREQ(BString("a b\tc").ReplaceSet(" \t", '_').String(), "a_b_c");
    EXPECT_STREQ(BString("a b\tc").ReplaceSet(" \t", "--").String(), "a--b--c");
    EXPECT_STREQ(BString("a b").ReplaceSet(nullptr, "--").String(), "a b");
}

TEST(String, ChangesCases) {
    EXPECT_STREQ(BString("aZ\xC3\xA9.txt").ToUpper().String(), "AZ\xC3\xA9.TXT");
    EXPECT_STREQ(BString("aZ\xC3\x89.TXT").ToLower().String(), "az\xC3\x89.txt");
    EXPECT_STREQ(BString("tWO words").Capitalize().String(), "Two words");
    EXPECT_STREQ(BString("tWO woRDs, caf\xC3\xA9s 3D").CapitalizeEachWord().String(),
        "Two Words, Caf\xC3\xA9s 3D");
    EXPECT_STREQ(BString().Capitalize().String(), "");
}

TEST(String, EscapesCharacters) {
    EXPECT_STREQ(BString("a b'c").CharacterEscape(" '", '\\').String(), "a\\ b\\'c");
    EXPECT_STREQ(BString("x").CharacterEscape("a\\b", "\\", '\\').String(), "a\\\\b");
    EXPECT_STREQ(BString("a\\ b\\\\c\\").CharacterDeescape('\\').String(), "a b\\c");
    EXPECT_STREQ(BString("x").CharacterDeescape("%%%a", '%').String(), "%a");
    EXPECT_STREQ(BString("x").CharacterDeescape(nullptr, '%').String(), "");
    const char* const hard = "a\\\\'\"b\\";
    EXPECT_STREQ(
        BString(hard).CharacterEscape("\\'\"", '\\').CharacterDeescape('\\').String(), hard);
}

TEST(String, LendsItsBuffer) {
    BString s("abc");
    char* buffer = s.LockBuffer(10);
    EXPECT_STREQ(buffer, "abc");
    std::snprintf(buffer, 11, "%s", "0123456789");
    EXPECT_STREQ(s.UnlockBuffer().String(), "0123456789");
    EXPECT_EQ(s.Length(), 10);

    buffer = s.LockBuffer(3);
    buffer[4] = '\0';
    EXPECT_STREQ(s.UnlockBuffer().String(), "0123");
    s.LockBuffer(20);
    EXPECT_EQ(s.UnlockBuffer(2), "01");
    s.LockBuffer(5);
    EXPECT_EQ(s.UnlockBuffer(1000).Length(), 5);
    s.LockBuffer(-1);
    EXPECT_EQ(s.UnlockBuffer(-1), "01");
}

TEST(String, KeepsNulBytesItWasMadeToHold) {
    BString s("ab");
    s.SetByteAt(1, '\0');
    s.Append("c");
    EXPECT_EQ(s.Length(), 3);
    EXPECT_STREQ(s.String(), "a");
    EXPECT_EQ(s.FindFirst('c'), 2);
    EXPECT_EQ(s.FindFirst('\0'), 1);
    const BString copy(s);
    EXPECT_EQ(copy, s);
    EXPECT_NE(copy, "a");
    EXPECT_EQ(BString(s).ReplaceAll("c", "d").Length(), 3);
}
