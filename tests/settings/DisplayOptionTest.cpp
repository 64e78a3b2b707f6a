#include "settings/DisplayOption.h"

#include <gtest/gtest.h>

#include <memory>

#include "settings/Prefs.h"

namespace {

struct OptionCase {
    int32 option;
    const char* label;
    const char* accelerator;
};

const OptionCase kOptions[] = {
    {0, "Don't Fit Anything", "D"},
    {1, "Fit Window to Image", "W"},
    {2, "Fit Image to Window", "I"},
    {3, "Scale Image to Window", "S"},
    {4, "Scale Image to Window Width", "X"},
    {5, "Scale Image to Window Height", "Y"},
};

TEST(DisplayOption, HasItsLabelsAndLetters) {
    ASSERT_EQ(std::size(kOptions), static_cast<size_t>(kDisplayOptionCount));
    EXPECT_EQ(sizeof(LKK_MITEM_DO[0]), 128U);
    for (const OptionCase& c : kOptions) {
        EXPECT_STREQ(LKK_MITEM_DO[c.option], c.label);
        EXPECT_STREQ(ACC_KEY_DO[c.option], c.accelerator);
    }
}

class DisplayOptionMessage : public testing::Test {
protected:
    ~DisplayOptionMessage() override { gPrefs.fDisplayOption = fBefore; }

    int32 fBefore = gPrefs.fDisplayOption;
};

TEST_F(DisplayOptionMessage, CarriesTheOption) {
    for (int32 option : {0, 5, 6, -1, INT32_MAX}) {
        std::unique_ptr<BMessage> message(create_display_option_message('dspo', option));
        EXPECT_EQ(message->what, uint32{'dspo'});
        EXPECT_EQ(set_display_option(message.get()), B_OK);
        EXPECT_EQ(gPrefs.fDisplayOption, option);
    }
}

TEST_F(DisplayOptionMessage, ChangesNothingWithoutTheField) {
    gPrefs.fDisplayOption = 3;
    BMessage empty('dspo');
    EXPECT_EQ(set_display_option(&empty), -1);
    BMessage wrongType('dspo');
    wrongType.AddString("DispOpt", "4");
    EXPECT_EQ(set_display_option(&wrongType), -1);
    EXPECT_EQ(gPrefs.fDisplayOption, 3);
}

}  // namespace
