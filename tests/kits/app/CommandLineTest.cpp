#include <gtest/gtest.h>

#include "kits/app/CommandLine.h"

using BPrivate::FilesOfCommandLine;
using Lines = std::vector<std::string>;

TEST(CommandLine, FindsWhatIsThere) {
    const auto files = FilesOfCommandLine({"/opt/lorivane", "/proc", "/dev/null", "."});
    EXPECT_EQ(files.paths, (Lines{"/proc", "/dev/null", "."}));
    EXPECT_TRUE(files.errors.empty());
    EXPECT_TRUE(FilesOfCommandLine({"lorivane"}).paths.empty());
    EXPECT_TRUE(FilesOfCommandLine({}).paths.empty());
}

TEST(CommandLine, ReportsWhatIsNot) {
    const auto files =
        FilesOfCommandLine({"/opt/lorivane", "/proc", "/none", "none\n\033[1m", "/dev"});
    EXPECT_EQ(files.paths, (Lines{"/proc", "/dev"}));
    EXPECT_EQ(files.errors,
        (Lines{"lorivane: /none: No such file or directory",
            "lorivane: none\\x0a\\x1b[1m: No such file or directory"}));
    EXPECT_EQ(FilesOfCommandLine({"lorivane", "/dev/null/x"}).errors,
        (Lines{"lorivane: /dev/null/x: Not a directory"}));
    EXPECT_EQ(FilesOfCommandLine({"lorivane", ""}).errors,
        (Lines{"lorivane: : No such file or directory"}));
}

TEST(CommandLine, KnowsNoOptions) {
    const auto files =
        FilesOfCommandLine({"a/lorivane", "--fast", "-x\t", "/dev", "--", "--slow", "--"});
    EXPECT_EQ(files.paths, (Lines{"/dev"}));
    EXPECT_EQ(files.errors,
        (Lines{"lorivane: unknown option: --fast", "lorivane: unknown option: -x\\x09",
            "lorivane: --slow: No such file or directory",
            "lorivane: --: No such file or directory"}));
}

TEST(CommandLine, IsTheProcesss) {
    BPrivate::SetCommandLine({"program", "word"});
    EXPECT_EQ(BPrivate::CommandLine(), (Lines{"program", "word"}));
}

TEST(Printable, EscapesWhatATerminalObeys) {
    const struct {
        std::string text;
        std::string printable;
    } cases[] = {
        {"plain text.png", "plain text.png"},
        {"\xe6\x97\xa5\xe6\x9c\xac \xc3\xa9 \xf0\x9f\x8c\x84",
            "\xe6\x97\xa5\xe6\x9c\xac \xc3\xa9 \xf0\x9f\x8c\x84"},
        {std::string("\0\x1f\x7f", 3), "\\x00\\x1f\\x7f"},
        {"\xc2\x9b"
         "31m",
            "\\xc2\\x9b31m"},                          // a control character of two bytes
        {"\xff\xfe", "\\xff\\xfe"},                    // no UTF-8 at all
        {"\xe6\x97", "\\xe6\\x97"},                    // half a character
        {"\xc0\x8a", "\\xc0\\x8a"},                    // a line feed in disguise
        {"\xe0\x80\x8a", "\\xe0\\x80\\x8a"},           // the same, longer
        {"\xed\xa0\x80", "\\xed\\xa0\\x80"},           // half of a surrogate pair
        {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},  // past the last character
    };
    for (const auto& c : cases)
        EXPECT_EQ(BPrivate::Printable(c.text), c.printable);
}
