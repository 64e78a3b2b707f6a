#include <app/LaunchFiles.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

#include "kits/app/CommandLine.h"

using Lines = std::vector<std::string>;

TEST(CommandLine, FindsWhatIsThere) {
    const auto files = find_launch_files({"/opt/lorivane", "/proc", "/dev/null", "."});
    EXPECT_EQ(files.paths, (Lines{"/proc", "/dev/null", "."}));
    EXPECT_TRUE(files.errors.empty());
    EXPECT_TRUE(find_launch_files({"lorivane"}).paths.empty());
    EXPECT_TRUE(find_launch_files({}).paths.empty());
}

TEST(CommandLine, ReportsWhatIsNot) {
    const auto files =
        find_launch_files({"/opt/lorivane", "/proc", "/none", "none\n\033[1m", "/dev"});
    EXPECT_EQ(files.paths, (Lines{"/proc", "/dev"}));
    EXPECT_EQ(files.errors,
        (Lines{"lorivane: /none: No such file or directory",
            "lorivane: none\\x0a\\x1b[1m: No such file or directory"}));
    EXPECT_EQ(find_launch_files({"lorivane", "/dev/null/x"}).errors,
        (Lines{"lorivane: /dev/null/x: Not a directory"}));
    EXPECT_EQ(find_launch_files({"lorivane", ""}).errors,
        (Lines{"lorivane: : No such file or directory"}));
}

TEST(CommandLine, KnowsNoOptions) {
    const auto files =
        find_launch_files({"a/lorivane", "--fast", "-x\t", "/dev", "--", "--slow", "--"});
    EXPECT_EQ(files.paths, (Lines{"/dev"}));
    EXPECT_EQ(files.errors,
        (Lines{"lorivane: unknown option: --fast", "lorivane: unknown option: -x\\x09",
            "lorivane: --slow: No such file or directory",
            "lorivane: --: No such file or directory"}));
}

TEST(CommandLine, TellsOptionsFromFiles) {
    EXPECT_EQ(find_launch_files({"lorivane", "/none", "-x", "-y"}).optionError,
        "lorivane: unknown option: -x");
    EXPECT_EQ(find_launch_files({"lorivane", "/none", "--", "-x"}).optionError, "");
    EXPECT_EQ(find_launch_files({"lorivane", "-"}).optionError, "lorivane: unknown option: -");
}

namespace {

class CommandLineInFolder : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "words-XXXXXX").string();
        fFolder = std::filesystem::canonical(mkdtemp(pattern.data()));
        for (const char* name : {"a b.png", "\xff.png", "50%.png", "file:odd"})
            std::ofstream(fFolder / name) << "x";
        std::filesystem::create_directory(fFolder / "real");
        std::filesystem::create_directory_symlink("real", fFolder / "link");
        std::filesystem::create_directory_symlink("link", fFolder / "second");
        std::filesystem::create_symlink("a b.png", fFolder / "picture");
        std::filesystem::create_symlink("nowhere", fFolder / "dangling");
        fBefore = std::filesystem::current_path();
        std::filesystem::current_path(fFolder);
    }
    void TearDown() override {
        std::filesystem::current_path(fBefore);
        std::filesystem::remove_all(fFolder);
    }

    std::string Path(const std::string& name) const { return fFolder / name; }
    static Lines Paths(const std::string& word) { return find_launch_files({"p", word}).paths; }
    static Lines Errors(const std::string& word) { return find_launch_files({"p", word}).errors; }

    std::filesystem::path fFolder;
    std::filesystem::path fBefore;
};

}  // namespace

TEST_F(CommandLineInFolder, TakesTheAddressesOfFiles) {
    char host[256] = {};
    ASSERT_EQ(gethostname(host, sizeof(host) - 1), 0);
    const struct {
        std::string word;
        std::string name;
    } cases[] = {
        {"file://" + Path("a%20b.png"), "a b.png"},
        {"file:" + Path("a%20b.png"), "a b.png"},
        {"FILE://localhost" + Path("a b.png"), "a b.png"},
        {std::string("file://") + host + Path("%ff.png"), "\xff.png"},
        {"file://" + Path("50%25.png"), "50%.png"},
        {"file://" + Path("link"), "real"},
        {"file://" + Path("picture"), "picture"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Paths(c.word), Lines{Path(c.name)}) << c.word;
        EXPECT_EQ(Errors(c.word), Lines{}) << c.word;
    }
    EXPECT_EQ(find_launch_files({"p", "--", "file://" + Path("real")}).paths, Lines{Path("real")});
    EXPECT_EQ(Paths("file:odd"), Lines{"file:odd"});
}

TEST_F(CommandLineInFolder, ReportsTheAddressesOfNoFiles) {
    EXPECT_EQ(Errors("file:///no%20such\n"), Lines{"p: /no such\\x0a: No such file or directory"});
    for (const std::string& word : {"file://elsewhere.example" + Path("real"),
             "file://" + Path("50%.png"), std::string("file://localhost")}) {
        EXPECT_EQ(Paths(word), Lines{}) << word;
        EXPECT_EQ(
            Errors(word), Lines{"p: " + word + ": Not the address of a file on this computer"});
    }
    // Neither an address with a whole path nor one of a file.
    for (const std::string word : {"file:a b.png", "http://localhost/a.png"})
        EXPECT_EQ(Errors(word), Lines{"p: " + word + ": No such file or directory"});
}

TEST_F(CommandLineInFolder, OpensTheFolderBehindALink) {
    for (const std::string& word : {std::string("link"), std::string("link/"),
             std::string("link//"), std::string("second"), Path("second")})
        EXPECT_EQ(Paths(word), Lines{Path("real")}) << word;
    // What is no link to a folder is as it was given.
    for (const std::string word : {"real", "real/", "picture", "link/..", "/"})
        EXPECT_EQ(Paths(word), Lines{word});
    EXPECT_EQ(Errors("dangling"), Lines{"p: dangling: No such file or directory"});
}

TEST_F(CommandLineInFolder, NamesTheFirstThatIsThere) {
    EXPECT_EQ(find_launch_files({"p", "none", "\xff.png", "real"}).firstName, "\\xff.png");
    EXPECT_EQ(find_launch_files({"p", "link", "real"}).firstName, "link");
    EXPECT_EQ(find_launch_files({"p", "none"}).firstName, "");
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
