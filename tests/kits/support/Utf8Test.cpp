#include <gtest/gtest.h>
#include <string>
#include <support/Errors.h>
#include <support/UTF8.h>
#include <vector>

namespace {

using namespace std::string_literals;

struct Converted {
    status_t status = B_OK;
    std::string text;
    int32 read = 0;
    int32 state = 0;
};

Converted Convert(uint32 encoding, const std::string& bytes, int32 room = 100000, int32 state = 0) {
    Converted result;
    result.text.resize(static_cast<std::size_t>(room));
    result.read = static_cast<int32>(bytes.size());
    result.state = state;
    int32 written = room;
    result.status = convert_to_utf8(
        encoding, bytes.data(), &result.read, result.text.data(), &written, &result.state);
    result.text.resize(static_cast<std::size_t>(written));
    return result;
}

std::string FromSjis(const std::string& bytes) {
    return Convert(B_SJIS_CONVERSION, bytes).text;
}

std::string FromJis(const std::string& bytes) {
    return Convert(B_JIS_CONVERSION, bytes).text;
}

TEST(ShiftJis, IsConverted) {
    EXPECT_EQ(FromSjis(""), "");
    EXPECT_EQ(FromSjis("plain"), "plain");
    EXPECT_EQ(FromSjis("\x93\xfa\x96{\x8c\xea"), "日本語");
    EXPECT_EQ(FromSjis("\xb1\xb2\xb3\xde\xa1"), "ｱｲｳﾞ｡");
}

TEST(ShiftJis, HasWhatTheCodePageAdds) {
    EXPECT_EQ(FromSjis("\x87\x40\x87\x54"), "①Ⅰ");  // vendor row 13
    EXPECT_EQ(FromSjis("\xfa\x5c"), "纊");          // vendor extension
    EXPECT_EQ(FromSjis("\xed\x40"), "纊");          // the same, selected elsewhere
    EXPECT_EQ(FromSjis("\xfb\xfc"), "髙");
    EXPECT_EQ(FromSjis("\x81\x60"), "～");
}

TEST(ShiftJis, KeepsBackslashAndTilde) {
    EXPECT_EQ(FromSjis("C:\\a~b"), "C:\\a~b");
}

TEST(ShiftJis, SubstitutesForEveryByteThatMeansNothing) {
    EXPECT_EQ(FromSjis("a\xffz"), "a\x1az");
    EXPECT_EQ(FromSjis("\x93\x20z"), "\x1a z");  // a lead byte without its trail byte
    EXPECT_EQ(FromSjis("\x85\x40"), "\x1a@");    // an empty row
}

TEST(ShiftJis, LeavesACutOffCharacterUnread) {
    const Converted result = Convert(B_SJIS_CONVERSION, "a\x93");
    EXPECT_EQ(result.status, B_OK);
    EXPECT_EQ(result.text, "a");
    EXPECT_EQ(result.read, 1);
}

TEST(ShiftJis, WritesWholeCharactersOnly) {
    const Converted result = Convert(B_SJIS_CONVERSION, "\x93\xfa\x96{", 5);
    EXPECT_EQ(result.text, "日");
    EXPECT_EQ(result.read, 2);
}

TEST(Jis, IsConverted) {
    EXPECT_EQ(FromJis("plain"), "plain");
    EXPECT_EQ(FromJis("\x1b$BF|K\\8l\x1b(B!"), "日本語!");
    EXPECT_EQ(FromJis("\x1b$@F|\x1b(J!"), "日!");
    EXPECT_EQ(FromJis("\x1b(I123\x1b(BA"), "ｱｲｳA");
    EXPECT_EQ(FromJis("\x0e"
                      "123"
                      "\x0f"
                      "A"),
        "ｱｲｳA");
    EXPECT_EQ(FromJis("\xb1\xb2"), "ｱｲ");
    EXPECT_EQ(FromJis("\x1b(J\\~"), "\\~");
}

TEST(Jis, HasWhatTheCodePageAdds) {
    EXPECT_EQ(FromJis("\x1b$B-!-\x35\x1b(B"), "①Ⅰ");
    EXPECT_EQ(FromJis("\x1b$B!A\x1b(B"), "～");
}

TEST(Jis, BeginsEveryLineInAscii) {
    EXPECT_EQ(FromJis("\x1b$BF|\nK\\"), "日\nK\\");
}

TEST(Jis, SubstitutesForEveryByteThatMeansNothing) {
    EXPECT_EQ(FromJis("a\x1bz"), "a\x1az");
    EXPECT_EQ(FromJis("a\xffz"), "a\x1az");
    EXPECT_EQ(FromJis("\x1b$BF\x80\x1b(Bz"), "\x1a\x1az");
    EXPECT_EQ(FromJis("\x1b$(D0!\x1b(Bz"), "\x1a\x1az");  // JIS X 0212
    EXPECT_EQ(FromJis("\x1b$B)!\x1b(Bz"), "\x1a\x1az");   // an empty row
}

TEST(Jis, LeavesACutOffCharacterUnread) {
    EXPECT_EQ(Convert(B_JIS_CONVERSION, "\x1b$BF").read, 3);
    EXPECT_EQ(Convert(B_JIS_CONVERSION, "a\x1b$").read, 1);
    EXPECT_EQ(Convert(B_JIS_CONVERSION, "a\x1b").read, 1);
}

/// Whatever the sizes of the pieces and of the room, the same text comes out.
TEST(Pieces, MakeTheSameText) {
    const std::string jis = "ab\x1b$BF|K\\8l\x1b(I123\x1b(Bz\n\x1b$B-!\x1b(B";
    const std::string sjis = "ab\x93\xfa\x96{\x8c\xea\xb1\xb2z";
    for (const auto& [encoding, text] : std::vector<std::pair<uint32, std::string>>{
             {B_JIS_CONVERSION, jis}, {B_SJIS_CONVERSION, sjis}}) {
        const std::string whole = Convert(encoding, text).text;
        for (std::size_t piece = 1; piece <= text.size(); piece++) {
            for (const int32 room : {3, 4, 7, 100}) {
                std::string made;
                std::size_t at = 0;
                std::size_t length = piece;
                int32 state = 0;
                while (at < text.size()) {
                    const Converted part = Convert(encoding, text.substr(at, length), room, state);
                    ASSERT_EQ(part.status, B_OK);
                    made += part.text;
                    state = part.state;
                    at += static_cast<std::size_t>(part.read);
                    // A cut off character needs a longer piece.
                    length = part.read > 0 ? piece : length + 1;
                    ASSERT_LE(length, text.size() + 1);
                }
                EXPECT_EQ(made, whole) << "pieces of " << piece << ", room for " << room;
            }
        }
    }
}

TEST(Pieces, LongTextsOfAllStates) {
    std::string jis;
    std::string utf8;
    for (int i = 0; i < 2000; i++) {
        jis += "\x1b$BF|K\\\x1b(I1\x1b(B line " + std::to_string(i) + "\r\n";
        utf8 += "日本ｱ line " + std::to_string(i) + "\r\n";
    }
    EXPECT_EQ(Convert(B_JIS_CONVERSION, jis).text, utf8);
}

TEST(Conversions, AllAreKnown) {
    for (uint32 encoding = B_ISO1_CONVERSION; encoding <= B_MS_DOS_866_CONVERSION; encoding++)
        EXPECT_EQ(Convert(encoding, "\0A"s).status, B_OK) << encoding;
    EXPECT_EQ(Convert(B_ISO1_CONVERSION, "\xe9").text, "é");
    EXPECT_EQ(Convert(B_EUC_CONVERSION, "\xc6\xfc").text, "日");
    EXPECT_EQ(Convert(B_UNICODE_CONVERSION, "\x65\xe5\xd8\x00\x00z"s).text, "日\x1az"s);
    EXPECT_EQ(Convert(B_KOI8R_CONVERSION, "\xd1").text, "я");
}

TEST(Conversions, BadArgumentsChangeNothing) {
    char dest[8] = "unread";
    int32 read = 3;
    int32 written = 8;
    int32 state = 0;
    EXPECT_EQ(convert_to_utf8(99, "abc", &read, dest, &written, &state), B_BAD_VALUE);
    EXPECT_EQ(
        convert_to_utf8(B_SJIS_CONVERSION, nullptr, &read, dest, &written, &state), B_BAD_VALUE);
    EXPECT_EQ(
        convert_to_utf8(B_SJIS_CONVERSION, "abc", nullptr, dest, &written, &state), B_BAD_VALUE);
    EXPECT_EQ(
        convert_to_utf8(B_SJIS_CONVERSION, "abc", &read, nullptr, &written, &state), B_BAD_VALUE);
    EXPECT_EQ(read, 3);
    EXPECT_EQ(written, 8);
    EXPECT_STREQ(dest, "unread");
    EXPECT_EQ(convert_to_utf8(B_SJIS_CONVERSION, "abc", &read, dest, &written, nullptr), B_OK);
    EXPECT_EQ(written, 3);
}

/// Every pair of bytes, and every byte in each state, converts to something.
TEST(Conversions, EveryByteValueIsRead) {
    for (const uint32 encoding : {B_SJIS_CONVERSION, B_JIS_CONVERSION}) {
        for (const std::string& before : {""s, "\x1b$B"s, "\x1b(I"s, "\x0e"s, "\x1b$(D"s}) {
            for (int first = 0; first < 256; first++) {
                for (int second = 0; second < 256; second++) {
                    const std::string text =
                        before + static_cast<char>(first) + static_cast<char>(second) + "\n\n\n\n";
                    const Converted result = Convert(encoding, text, 64);
                    ASSERT_EQ(result.read, static_cast<int32>(text.size()))
                        << first << " " << second;
                }
            }
        }
    }
}

}  // namespace
