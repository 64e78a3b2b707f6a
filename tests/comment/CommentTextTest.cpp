#include "comment/CommentText.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "settings/Prefs.h"
#include "tests/framework/TemporaryFolder.h"

namespace {

using namespace std::string_literals;

std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string Sample(const std::string& name) {
    return Bytes(std::string(COMMENTS_FOLDER "/") + name);
}

class ReadCommentFile : public testing::Test {
protected:
    std::string Read(const std::string& bytes) {
        const std::string path = fFolder / "comment.txt";
        std::ofstream(path, std::ios::binary) << bytes;
        return read_comment_file(path);
    }

    TTemporaryFolder fFolder;
};

}  // namespace

TEST_F(ReadCommentFile, TakesLineEndsFromTheEnd) {
    EXPECT_EQ(Read(""), "");
    EXPECT_EQ(Read("\n\r\r\n"), "");
    EXPECT_EQ(Read("abc\r\n\r\n"), "abc");
    EXPECT_EQ(Read("abc\r\ndef\n"), "abc\r\ndef");
    EXPECT_EQ(Read("\nabc \n"), "\nabc ");
}

TEST_F(ReadCommentFile, KeepsEveryByte) {
    std::string all;
    for (int byte = 0; byte < 256; byte++)
        all += static_cast<char>(byte);
    EXPECT_EQ(Read(all), all);
}

TEST_F(ReadCommentFile, LongFiles) {
    const std::string text(5'000'000, 'x');
    EXPECT_EQ(Read(text + "\n"), text);
}

TEST_F(ReadCommentFile, WhatIsNoFileIsEmpty) {
    EXPECT_EQ(read_comment_file(fFolder / "none"), "");
    EXPECT_EQ(read_comment_file(""), "");
    const std::string folder = fFolder / "folder.txt";
    mkdir(folder.c_str(), 0700);
    EXPECT_EQ(read_comment_file(folder), "");
    // Nobody writes to it: reading would wait for ever.
    const std::string pipe = fFolder / "pipe.txt";
    mkfifo(pipe.c_str(), 0600);
    EXPECT_EQ(read_comment_file(pipe), "");
    const std::string endless = fFolder / "endless.txt";
    ASSERT_EQ(symlink("/dev/zero", endless.c_str()), 0);
    EXPECT_EQ(read_comment_file(endless), "");
    const std::string dangling = fFolder / "dangling.txt";
    ASSERT_EQ(symlink("nowhere", dangling.c_str()), 0);
    EXPECT_EQ(read_comment_file(dangling), "");
}

TEST_F(ReadCommentFile, WhatDoesNotFitIsEmpty) {
    const std::string path = fFolder / "huge.txt";
    std::ofstream(path) << "start";
    // The first is one byte more than is read, the second more than memory has.
    for (const off_t size : {off_t{1} << 30, off_t{1} << 40}) {
        ASSERT_EQ(truncate(path.c_str(), size), 0);
        EXPECT_TRUE(read_comment_file(path).empty()) << size;
    }
}

TEST_F(ReadCommentFile, UnreadableIsEmpty) {
    if (geteuid() == 0)
        GTEST_SKIP() << "everything is readable to root";
    const std::string path = fFolder / "secret.txt";
    std::ofstream(path) << "secret";
    chmod(path.c_str(), 0);
    EXPECT_EQ(read_comment_file(path), "");
}

TEST(CommentToUtf8, RealTexts) {
    struct Case {
        const char* file;
        const char* meant;
        int32 encoding;
    };
    for (const auto& [file, meant, encoding] : {
             Case{"mixed.sjis-by-iconv.txt", "mixed.utf8.txt", kEncodingShiftJIS},
             {"mixed.sjis-by-iconv.txt", "mixed.utf8.txt", kEncodingAutoDetect},
             {"mixed.jis-by-nkf.txt", "mixed.utf8.txt", kEncodingJIS},
             {"mixed.jis-by-nkf.txt", "mixed.utf8.txt", kEncodingAutoDetect},
             {"plain.jis-by-iconv.txt", "plain.utf8.txt", kEncodingAutoDetect},
             {"mixed.utf8.txt", "mixed.utf8.txt", kEncodingAutoDetect},
             {"mixed.utf8.txt", "mixed.utf8.txt", kEncodingUTF8},
             {"plain.utf8.txt", "plain.utf8.txt", kEncodingAutoDetect},
         }) {
        ASSERT_FALSE(Sample(file).empty()) << file;
        EXPECT_EQ(comment_to_utf8(Sample(file), encoding), Sample(meant)) << file;
    }
}

TEST(CommentToUtf8, LineEndsStayAsTheyAre) {
    std::string meant = Sample("plain.utf8.txt");
    for (std::size_t at = 0; (at = meant.find('\n', at)) != std::string::npos; at += 2)
        meant.insert(at, 1, '\r');
    EXPECT_EQ(comment_to_utf8(Sample("plain.sjis-crlf-by-nkf.txt"), kEncodingAutoDetect), meant);
}

TEST(CommentToUtf8, WhatIsNoConversionCopies) {
    const std::string broken = "caf\xe9 \x93\xfa \x1b";
    for (const int32 encoding : {0, 3, 5, -1, 1000})
        EXPECT_EQ(comment_to_utf8(broken, encoding), broken) << encoding;
}

TEST(CommentToUtf8, BytesThatMeanNothingAreSubstituted) {
    EXPECT_EQ(comment_to_utf8("a\xffz", kEncodingShiftJIS), "a\x1az");
    EXPECT_EQ(comment_to_utf8("abc\x93", kEncodingShiftJIS), "abc\x1a");
    EXPECT_EQ(comment_to_utf8("abc\x1b", kEncodingAutoDetect), "abc\x1a");
    EXPECT_EQ(comment_to_utf8("日\x1b", kEncodingAutoDetect).back(), '\x1a');
    EXPECT_EQ(comment_to_utf8("caf\xe9", kEncodingAutoDetect), "caf\x1a");
}

// Each of its bytes becomes three.
TEST(CommentToUtf8, HalfWidthKatakanaIsNotCutOff) {
    std::string meant;
    for (int i = 0; i < 100'000; i++)
        meant += "ｱ";
    EXPECT_EQ(comment_to_utf8(std::string(100'000, '\xb1'), kEncodingShiftJIS), meant);
}

TEST(CommentToUtf8, AnythingConvertsToSomething) {
    std::string all;
    for (int byte = 0; byte < 256; byte++)
        all += static_cast<char>(byte);
    for (int32 encoding = 0; encoding <= 4; encoding++) {
        EXPECT_FALSE(comment_to_utf8(all, encoding).empty());
        EXPECT_FALSE(comment_to_utf8(std::string(1000, '\x1b'), encoding).empty());
        EXPECT_FALSE(comment_to_utf8(std::string(1000, '\0'), encoding).empty());
        EXPECT_EQ(comment_to_utf8("", encoding), "");
    }
}
