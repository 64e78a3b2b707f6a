#include "framework/AppPrivacy.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

#include "tests/framework/TemporaryFolder.h"

namespace {

class AppPrivacyTest : public testing::Test {
protected:
    AppPrivacyTest() : fReal(std::filesystem::canonical(fFolder.Path()).string()) {
        write_text(fReal + "/program", "");
    }

    TTemporaryFolder fFolder;
    std::string fReal;
    TAppPrivacy fPrivacy;
};

TEST_F(AppPrivacyTest, TakesAnAbsolutePathApart) {
    fPrivacy.AnalyzeExePath((fReal + "/program").c_str());
    EXPECT_EQ(fPrivacy.ExePath(), fReal);
    EXPECT_EQ(fPrivacy.ExeName(), "program");
}

TEST_F(AppPrivacyTest, FollowsLinks) {
    std::filesystem::create_directory(fReal + "/bin");
    std::filesystem::create_symlink("../program", fReal + "/bin/linked");
    fPrivacy.AnalyzeExePath((fReal + "/bin/linked").c_str());
    EXPECT_EQ(fPrivacy.ExePath(), fReal);
    EXPECT_EQ(fPrivacy.ExeName(), "program");
}

TEST_F(AppPrivacyTest, ResolvesARelativePath) {
    const std::filesystem::path old = std::filesystem::current_path();
    std::filesystem::current_path(fReal);
    fPrivacy.AnalyzeExePath("./program");
    std::filesystem::current_path(old);
    EXPECT_EQ(fPrivacy.ExePath(), fReal);
    EXPECT_EQ(fPrivacy.ExeName(), "program");
}

TEST_F(AppPrivacyTest, FindsABareNameInTheSearchPath) {
    setenv("PATH", ("/nowhere::" + fReal + ":/bin").c_str(), 1);
    fPrivacy.AnalyzeExePath("program");
    EXPECT_EQ(fPrivacy.ExePath(), fReal);
    EXPECT_EQ(fPrivacy.ExeName(), "program");
}

TEST_F(AppPrivacyTest, KnowsNothingWithoutAPath) {
    fPrivacy.AnalyzeExePath(nullptr);
    fPrivacy.AnalyzeExePath("");
    fPrivacy.AnalyzeExePath("/no/such/folder/program");
    EXPECT_EQ(fPrivacy.ExePath(), "");
    EXPECT_EQ(fPrivacy.ExeName(), "");
}

}  // namespace
