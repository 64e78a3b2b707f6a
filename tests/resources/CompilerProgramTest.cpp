#include <app/Message.h>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <storage/File.h>
#include <string>
#include <sys/wait.h>

#include "tests/framework/TemporaryFolder.h"

namespace {

class CompilerProgram : public testing::Test {
protected:
    /// The exit status.
    int Run(const std::string& arguments) {
        const int status =
            std::system((LAYOUT_COMPILER " " + arguments + " 2>" + (fFolder / "errors")).c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string Errors() const { return read_text(fFolder / "errors"); }

    TTemporaryFolder fFolder;
};

TEST_F(CompilerProgram, WritesTheArchive) {
    write_text(fFolder / "A.json", R"({"class": "BView", "frame": [0, 0, 9, 9], "name": "A"})");
    ASSERT_EQ(Run(fFolder / "A.json" + " " + (fFolder / "A.arcv")), 0) << Errors();
    BFile file((fFolder / "A.arcv").c_str(), B_READ_ONLY);
    BMessage archive;
    ASSERT_EQ(archive.Unflatten(&file), B_OK);
    EXPECT_STREQ(archive.GetString("_name", ""), "A");
}

TEST_F(CompilerProgram, NamesTheFileThatIsBroken) {
    write_text(fFolder / "A.json", R"({"class": "BView"})");
    EXPECT_EQ(Run(fFolder / "A.json" + " " + (fFolder / "A.arcv")), 1);
    EXPECT_EQ(Errors(), fFolder / "A.json" + ": \"frame\" is missing\n");
    EXPECT_FALSE(std::filesystem::exists(fFolder / "A.arcv"));
}

TEST_F(CompilerProgram, TellsWhatItCannotReadOrWrite) {
    EXPECT_EQ(Run(fFolder / "missing.json" + " " + (fFolder / "A.arcv")), 1);
    EXPECT_NE(Errors().find("missing.json"), std::string::npos);
    write_text(fFolder / "A.json", R"({"class": "BView", "frame": [0, 0, 9, 9]})");
    EXPECT_EQ(Run(fFolder / "A.json" + " " + (fFolder / "missing/A.arcv")), 1);
    EXPECT_NE(Errors().find("missing/A.arcv"), std::string::npos);
    EXPECT_EQ(Run(fFolder / "A.json"), 1);
    EXPECT_NE(Errors().find("usage"), std::string::npos);
}

}  // namespace
