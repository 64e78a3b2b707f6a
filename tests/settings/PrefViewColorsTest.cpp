// The preferences dialog's colours tab.

#include <interface/Box.h>
#include <interface/ColorControl.h>
#include <interface/MenuField.h>
#include <interface/Slider.h>

#include "tests/settings/PrefViewFixture.h"

namespace {

constexpr rgb_color kRed{200, 10, 20, 255};
constexpr rgb_color kGreen{30, 210, 40, 90};
constexpr rgb_color kBlue{50, 60, 220, 127};

class PrefViewColorsTest : public PrefViewFixture {
protected:
    void Open() {
        gPrefs.fColors[kColorBackground] = kRed;
        gPrefs.fColors[kColorComment] = kGreen;
        gPrefs.fColors[kColorCommentBackground] = kBlue;
        PrefViewFixture::Open();
        ShowTab(1);
    }
    void ExpectShown(rgb_color color) {
        EXPECT_EQ(Of<BColorControl>("ColCtrlCol", [](auto& c) { return c.ValueAsColor(); }),
            (rgb_color{color.red, color.green, color.blue, 255}));
        EXPECT_EQ(Of<BSlider>("SliderColAlpha", [](auto& slider) { return slider.Value(); }),
            color.alpha);
        EXPECT_EQ(Of<BBox>("BoxColSample", [](auto& box) { return box.ViewColor(); }), color);
    }
};

TEST_F(PrefViewColorsTest, BeginsWithTheBackground) {
    Open();
    EXPECT_EQ(ChoiceOf("MFieldColTarget"), "Backgrounds");
    ExpectShown(kRed);
    EXPECT_FALSE(IsEnabled("SliderColAlpha"));
}

TEST_F(PrefViewColorsTest, ShowsTheColorOfTheTarget) {
    Open();
    Choose("Target: ", "Comment");
    ExpectShown(kGreen);
    EXPECT_TRUE(IsEnabled("SliderColAlpha"));
    Choose("Target: ", "Comment Backgrounds");
    ExpectShown(kBlue);
    EXPECT_TRUE(IsEnabled("SliderColAlpha"));
    Choose("Target: ", "Backgrounds");
    ExpectShown(kRed);
    EXPECT_FALSE(IsEnabled("SliderColAlpha"));
    EXPECT_EQ(Notices(), Texts{});
}

TEST_F(PrefViewColorsTest, ChangesTheTargetsColorAtOnce) {
    Open();
    SetColor(1, 2, 3);
    EXPECT_EQ(gPrefs.fColors[kColorBackground].Get(), (rgb_color{1, 2, 3, 255}));
    EXPECT_EQ(Notices(), Texts{"pclc"});
    ExpectShown({1, 2, 3, 255});

    Choose("Target: ", "Comment Backgrounds");
    SetColor(4, 5, 6);
    EXPECT_EQ(gPrefs.fColors[kColorCommentBackground].Get(), (rgb_color{4, 5, 6, 127}));
    EXPECT_EQ(gPrefs.fColors[kColorBackground].Get(), (rgb_color{1, 2, 3, 255}));
    EXPECT_EQ(gPrefs.fColors[kColorComment].Get(), kGreen);
    EXPECT_EQ(Notices(), Texts{"pclc"});
    ExpectShown({4, 5, 6, 127});
}

TEST_F(PrefViewColorsTest, OpacityTakesEffectWhileItIsDragged) {
    Open();
    Choose("Target: ", "Comment");
    SetSlider(100, false);
    EXPECT_EQ(gPrefs.fColors[kColorComment].Get(), (rgb_color{30, 210, 40, 100}));
    EXPECT_EQ(Notices(), Texts{"pclc"});
    SetSlider(0);
    EXPECT_EQ(gPrefs.fColors[kColorComment].Get(), (rgb_color{30, 210, 40, 0}));
    EXPECT_EQ(Notices(), Texts{"pclc"});
    ExpectShown({30, 210, 40, 0});
}

TEST_F(PrefViewColorsTest, TheOpacityOfTheBackgroundStays) {
    Open();
    gPrefs.fColors[kColorBackground] = rgb_color{1, 2, 3, 40};
    Choose("Target: ", "Comment");
    Choose("Target: ", "Backgrounds");
    SetColor(7, 8, 9);
    EXPECT_EQ(gPrefs.fColors[kColorBackground].Get(), (rgb_color{7, 8, 9, 40}));
}

TEST_F(PrefViewColorsTest, TheSliderIsAsItWasLaidOut) {
    Open();
    Of<BSlider>("SliderColAlpha", [](auto& slider) {
        int32 min = -1;
        int32 max = -1;
        slider.GetLimits(&min, &max);
        EXPECT_EQ(min, 0);
        EXPECT_EQ(max, 255);
        EXPECT_STREQ(slider.MinLimitLabel(), "0");
        EXPECT_STREQ(slider.MaxLimitLabel(), "255");
        EXPECT_EQ(slider.HashMarkCount(), 17);
        EXPECT_EQ(slider.KeyIncrementValue(), 1);
    });
}

TEST_F(PrefViewColorsTest, TheTargetOutlastsALanguageAndTheDefaults) {
    Open();
    Choose("Target: ", "Comment Backgrounds");
    SetLanguage("de");
    EXPECT_EQ(ChoiceOf("MFieldColTarget"), "Kommentarhintergrund");
    ExpectShown(kBlue);
    SetColor(4, 5, 6);
    EXPECT_EQ(gPrefs.fColors[kColorCommentBackground].Get(), (rgb_color{4, 5, 6, 127}));
    Click("Standardwerte");
    EXPECT_EQ(ChoiceOf("MFieldColTarget"), "Kommentarhintergrund");
    ExpectShown(TPrefs().fColors[kColorCommentBackground]);
}

}  // namespace
