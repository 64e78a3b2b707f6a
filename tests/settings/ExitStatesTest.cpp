#include "settings/ExitStates.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <support/TypeConstants.h>

#include "framework/Version.h"
#include "tests/framework/SettingsHome.h"
#include "tests/recording_display/RecordingDisplay.h"

namespace {

constexpr BRect kDefaultFrame(50, 50, 350, 300);
constexpr BRect kOtherFrame(1.5F, -20, 900, 700.25F);

class ExitStatesTest : public testing::Test {
protected:
    ExitStatesTest() : fFile(fHome.File("Lorivane_ExitStates.arc")) {}

    TSettingsHome fHome;
    const std::string fFile;
};

TEST_F(ExitStatesTest, AFirstStartHasTheDefaultFrame) {
    TExitStates states;
    EXPECT_EQ(states.LoadFromFile(), -1);
    EXPECT_EQ(states.fWindowFrame, kDefaultFrame);
    EXPECT_EQ(states.fVersion, "");
    EXPECT_EQ(gExitStates.fWindowFrame, kDefaultFrame);
}

TEST_F(ExitStatesTest, AreArchivedWithTheRunningVersion) {
    TExitStates states;
    states.fVersion = "VerOld";
    states.fWindowFrame = kOtherFrame;
    BMessage archive;
    ASSERT_EQ(states.Archive(&archive), B_OK);
    EXPECT_EQ(archive.CountNames(B_ANY_TYPE), 2);
    EXPECT_STREQ(archive.GetString("_Ver"), gAppVer);
    EXPECT_EQ(archive.GetRect("_WFr", BRect()), kOtherFrame);
    EXPECT_EQ(std::string(gAppVer).substr(0, 3), "Ver");
}

TEST_F(ExitStatesTest, AreReadBackAsTheyWereWritten) {
    TExitStates states;
    states.fWindowFrame = kOtherFrame;
    EXPECT_EQ(states.SaveToFile(), 0);
    EXPECT_TRUE(std::filesystem::exists(fFile));
    TExitStates read;
    EXPECT_EQ(read.LoadFromFile(), 0);
    EXPECT_EQ(read.fWindowFrame, kOtherFrame);
    EXPECT_EQ(read.fVersion, gAppVer);
}

TEST_F(ExitStatesTest, KeepTheFrameWhenItIsMissingOrNoRect) {
    BMessage archive;
    archive.AddString("_Ver", "Ver9");
    archive.AddString("_WFr", "50 50 350 300");
    TExitStates states;
    EXPECT_NE(states.Unarchive(archive), B_OK);
    EXPECT_EQ(states.fVersion, "Ver9");
    EXPECT_EQ(states.fWindowFrame, kDefaultFrame);
}

TEST_F(ExitStatesTest, ADamagedFileLeavesTheDefaults) {
    TExitStates states;
    states.fWindowFrame = kOtherFrame;
    ASSERT_EQ(states.SaveToFile(), 0);
    std::string data = read_text(fFile);
    data[data.size() - 3] = static_cast<char>(data[data.size() - 3] ^ 4);
    for (const std::string& damaged : {data, data.substr(0, data.size() / 2), std::string()}) {
        write_text(fFile, damaged);
        TExitStates read;
        EXPECT_EQ(read.LoadFromFile(), -1);
        EXPECT_EQ(read.fWindowFrame, kDefaultFrame);
    }
}

TEST_F(ExitStatesTest, TheFourKeysRemoveOnLoadingAndSkipSaving) {
    TExitStates states;
    states.fWindowFrame = kOtherFrame;
    ASSERT_EQ(states.SaveToFile(), 0);
    recording::TheRecordingDisplay().SetModifiers(0x47);
    TExitStates read;
    (void)read.LoadFromFile();
    EXPECT_EQ(read.fWindowFrame, kDefaultFrame);
    EXPECT_FALSE(std::filesystem::exists(fFile));
    EXPECT_EQ(states.SaveToFile(), -1);
    EXPECT_FALSE(std::filesystem::exists(fFile));
    recording::TheRecordingDisplay().SetModifiers(0);
}

}  // namespace
