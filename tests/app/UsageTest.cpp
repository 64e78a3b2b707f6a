#include "app/Usage.h"

#include <gtest/gtest.h>
#include <sstream>

#include "framework/Version.h"

namespace {

using Words = std::vector<std::string>;

const std::string kVersionText = std::string("Lorivane ") + LORIVANE_VERSION + "\n";

TEST(Usage, IsNotAskedForByFilesAndOtherOptions) {
    for (const Words& words : {Words{}, Words{"lorivane"}, Words{"--help"}, Words{"--version"},
             Words{"lorivane", "help"}, Words{"lorivane", "-help"}, Words{"lorivane", "--helpme"},
             Words{"lorivane", "--version=1"}, Words{"lorivane", ""}, Words{"lorivane", "a", "b"}})
        EXPECT_EQ(text_asked_for(words), "") << (words.empty() ? "" : words.back());
}

TEST(Usage, IsNotAskedForByAFileOfThatName) {
    EXPECT_EQ(text_asked_for({"lorivane", "--", "--help"}), "");
    EXPECT_EQ(text_asked_for({"lorivane", "--", "-h"}), "");
    EXPECT_EQ(text_asked_for({"lorivane", "--", "--version"}), "");
    EXPECT_EQ(text_asked_for({"lorivane", "--version", "--", "--help"}), kVersionText);
}

TEST(Usage, IsThatOfTheFirstOption) {
    EXPECT_EQ(text_asked_for({"lorivane", "--version"}), kVersionText);
    EXPECT_EQ(text_asked_for({"lorivane", "--version", "--help"}), kVersionText);
    EXPECT_EQ(text_asked_for({"lorivane", "picture", "-x", "--version"}), kVersionText);
    const std::string help = text_asked_for({"lorivane", "--help"});
    EXPECT_EQ(text_asked_for({"lorivane", "--help", "--version"}), help);
    EXPECT_EQ(text_asked_for({"lorivane", "-x", "-h"}), help);
    EXPECT_EQ(help.rfind("Usage: lorivane ", 0), 0U);
}

TEST(Usage, FitsATerminalAndNamesEveryOption) {
    const std::string help = text_asked_for({"lorivane", "--help"});
    for (const char* option : {"  --help, -h ", "  --version ", "  -- "})
        EXPECT_NE(help.find(option), std::string::npos) << option;
    EXPECT_EQ(help.back(), '\n');
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(line.size(), 80U) << line;
}

TEST(Version, IsOneNumberInBothOfItsForms) {
    EXPECT_EQ(std::string("Ver") + kAppVersionNumber, gAppVer);
}

}  // namespace
