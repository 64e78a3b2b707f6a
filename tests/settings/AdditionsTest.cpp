#include "settings/Additions.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <support/TypeConstants.h>

#include "tests/framework/SettingsHome.h"
#include "tests/recording_display/RecordingDisplay.h"

namespace {

constexpr uint32 kResetKeys = B_SHIFT_KEY | B_COMMAND_KEY | B_CONTROL_KEY | B_OPTION_KEY;

class AdditionsTest : public testing::Test {
protected:
    AdditionsTest() : fFile(fHome.File("Lorivane_Additions.arc")) {}
    ~AdditionsTest() override { recording::TheRecordingDisplay().SetModifiers(0); }

    TSettingsHome fHome;
    const std::string fFile;
};

TEST_F(AdditionsTest, AtFirstNothingIsChosen) {
    TAdditions additions;
    EXPECT_EQ(additions.LoadFromFile(), -1);
    EXPECT_FALSE(additions.fSmoothScaling);
    EXPECT_FALSE(gAdditions.fSmoothScaling);
    EXPECT_FALSE(std::filesystem::exists(fFile));
}

TEST_F(AdditionsTest, AreReadBackAsTheyWereWritten) {
    for (const bool on : {true, false}) {
        TAdditions additions;
        additions.fSmoothScaling = on;
        EXPECT_EQ(additions.SaveToFile(), 0);
        TAdditions read;
        read.fSmoothScaling = !on;
        EXPECT_EQ(read.LoadFromFile(), 0);
        EXPECT_EQ(read.fSmoothScaling, on);
    }
}

TEST_F(AdditionsTest, AreArchivedByTheirKeys) {
    TAdditions additions;
    additions.fSmoothScaling = true;
    BMessage archive;
    ASSERT_EQ(additions.Archive(&archive), B_OK);
    EXPECT_EQ(archive.CountNames(B_ANY_TYPE), 1);
    EXPECT_TRUE(archive.GetBool("SmSc", false));
}

TEST_F(AdditionsTest, WhatIsMissingOrOfAnotherTypeStaysOff) {
    TAdditions additions;
    EXPECT_NE(additions.Unarchive(BMessage()), B_OK);
    EXPECT_FALSE(additions.fSmoothScaling);
    BMessage archive;
    archive.AddInt32("SmSc", 1);
    EXPECT_NE(additions.Unarchive(archive), B_OK);
    EXPECT_FALSE(additions.fSmoothScaling);
}

TEST_F(AdditionsTest, TheResetKeysRemoveAndDoNotWrite) {
    TAdditions additions;
    additions.fSmoothScaling = true;
    recording::TheRecordingDisplay().SetModifiers(kResetKeys);
    EXPECT_EQ(additions.SaveToFile(), -1);
    EXPECT_FALSE(std::filesystem::exists(fFile));
    recording::TheRecordingDisplay().SetModifiers(0);
    ASSERT_EQ(additions.SaveToFile(), 0);
    recording::TheRecordingDisplay().SetModifiers(kResetKeys);
    TAdditions read;
    EXPECT_EQ(read.LoadFromFile(), -1);
    EXPECT_FALSE(read.fSmoothScaling);
    EXPECT_FALSE(std::filesystem::exists(fFile));
}

}  // namespace
