#include <cmath>
#include <interface/Slider.h>
#include <limits>
#include <memory>

#include "tests/kits/controls/Receiver.h"

using namespace BPrivate;

namespace {

class SliderTest : public ControlTest {
protected:
    void SetUp() override {
        fSlider = Add(
            new BSlider(BRect(10, 10, 209, 69), "slider", "Opacity", new BMessage('scac'), 0, 255));
        fSlider->SetModificationMessage(new BMessage('drag'));
    }
    SliderState State() const { return StateOf<SliderState>("Opacity"); }

    BSlider* fSlider = nullptr;
};

}  // namespace

TEST_F(SliderTest, ShowsItsState) {
    fSlider->SetLimitLabels("0", "255");
    fSlider->SetHashMarkCount(17);
    fSlider->SetHashMarks(B_HASH_MARKS_BOTTOM);
    fSlider->SetKeyIncrementValue(5);
    fSlider->SetValue(128);
    EXPECT_EQ(State().minLabel, "0");
    EXPECT_EQ(State().maxLabel, "255");
    EXPECT_EQ(State().max, 255);
    EXPECT_EQ(State().value, 128);
    EXPECT_EQ(State().step, 5);
    EXPECT_EQ(State().hashMarks, 17);
    EXPECT_FALSE(State().hashesAbove);
    EXPECT_TRUE(State().hashesBelow);
    EXPECT_EQ(State().direction, B_HORIZONTAL);
    fSlider->SetHashMarks(B_HASH_MARKS_BOTH);
    fSlider->SetOrientation(B_VERTICAL);
    EXPECT_TRUE(State().hashesAbove);
    EXPECT_EQ(State().direction, B_VERTICAL);
    fSlider->SetLimitLabels(nullptr, nullptr);
    EXPECT_STREQ(fSlider->MinLimitLabel(), "");
    EXPECT_EQ(State().maxLabel, "");
}

TEST_F(SliderTest, TellsTheDragAndItsEnd) {
    Show();
    const ControlId id = OnScreen("Opacity").id;
    fWindow.Screen().MoveSlider(id, 10, false);
    EXPECT_EQ(Received('drag').size(), 1U);
    fWindow.Screen().MoveSlider(id, 20, false);
    EXPECT_EQ(Received('drag').size(), 2U);
    EXPECT_EQ(Received('drag')[1].GetInt32("be:value", -1), 20);
    EXPECT_TRUE(Received('scac').empty());
    fWindow.Screen().MoveSlider(id, 20, true);
    ASSERT_EQ(Received('scac').size(), 1U);
    EXPECT_EQ(Received('scac')[0].GetInt32("be:value", -1), 20);
    EXPECT_EQ(Received('scac')[0].GetPointer("source"), fSlider);
    fWindow.Do([&] {
        EXPECT_EQ(fSlider->Value(), 20);
        fSlider->SetModificationMessage(nullptr);
    });
    fWindow.Screen().MoveSlider(id, 999, false);
    EXPECT_EQ(Received('drag').size(), 2U);
    EXPECT_EQ(Received('scac').size(), 1U);
    fWindow.Do([&] { EXPECT_EQ(fSlider->Value(), 255); });
}

TEST_F(SliderTest, TellsOnlyTheLastOfTheStepsThatWait) {
    Show();
    const ControlId id = OnScreen("Opacity").id;
    fWindow.Do([&] {
        for (const int32 value : {10, 20, 30})
            fWindow.Screen().MoveSlider(id, value, false);
    });
    ASSERT_EQ(Received('drag').size(), 1U);
    EXPECT_EQ(Received('drag')[0].GetInt32("be:value", -1), 30);
    // The end of a drag is never dropped.
    fWindow.Do([&] {
        fWindow.Screen().MoveSlider(id, 40, true);
        fWindow.Screen().MoveSlider(id, 50, false);
    });
    ASSERT_EQ(Received('scac').size(), 1U);
    EXPECT_EQ(Received('scac')[0].GetInt32("be:value", -1), 40);
    EXPECT_EQ(Received('drag').size(), 2U);
}

TEST_F(SliderTest, SettingAValueSendsNothing) {
    Show();
    fWindow.Do([&] { fSlider->SetValue(7); });
    EXPECT_TRUE(Received('scac').empty());
    EXPECT_TRUE(Received('drag').empty());
}

TEST_F(SliderTest, TheValueStaysWithinTheLimits) {
    fSlider->SetValue(1000);
    EXPECT_EQ(fSlider->Value(), 255);
    fSlider->SetValue(-1);
    EXPECT_EQ(fSlider->Value(), 0);
    fSlider->SetLimits(10, 20);
    EXPECT_EQ(fSlider->Value(), 10);
    EXPECT_EQ(State().value, 10);
    fSlider->SetLimits(30, 5);
    int32 min = 0;
    int32 max = 0;
    fSlider->GetLimits(&min, &max);
    EXPECT_EQ(min, 30);
    EXPECT_EQ(max, 30);
    EXPECT_EQ(fSlider->Position(), 0);
    fSlider->GetLimits(nullptr, nullptr);
    fSlider->SetKeyIncrementValue(0);
    EXPECT_EQ(fSlider->KeyIncrementValue(), 1);
    fSlider->SetHashMarkCount(-5);
    EXPECT_EQ(fSlider->HashMarkCount(), 0);
}

TEST_F(SliderTest, HasAPositionToo) {
    fSlider->SetPosition(0.5F);
    EXPECT_EQ(fSlider->Value(), 128);
    fSlider->SetValue(51);
    EXPECT_FLOAT_EQ(fSlider->Position(), 0.2F);
    fSlider->SetPosition(7);
    EXPECT_EQ(fSlider->Value(), 255);
    fSlider->SetPosition(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(fSlider->Value(), 255);
    constexpr int32 kLeast = std::numeric_limits<int32>::min();
    constexpr int32 kMost = std::numeric_limits<int32>::max();
    fSlider->SetLimits(kLeast, kMost);
    fSlider->SetPosition(1);
    EXPECT_EQ(fSlider->Value(), kMost);
    EXPECT_EQ(fSlider->Position(), 1);
    fSlider->SetPosition(0);
    EXPECT_EQ(fSlider->Value(), kLeast);
}

TEST(SliderArchive, IsMadeAgain) {
    BSlider slider(BRect(1, 2, 100, 40), "slider", "Opacity", new BMessage('scac'), 5, 255,
        B_VERTICAL, B_TRIANGLE_THUMB);
    slider.SetLimitLabels("low", "high");
    slider.SetHashMarkCount(17);
    slider.SetHashMarks(B_HASH_MARKS_TOP);
    slider.SetKeyIncrementValue(3);
    slider.SetModificationMessage(new BMessage('drag'));
    slider.SetBarThickness(9);
    slider.SetSnoozeAmount(1234);
    slider.SetValue(77);
    BMessage archive;
    ASSERT_EQ(slider.Archive(&archive), B_OK);
    const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* copy = dynamic_cast<BSlider*>(made.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->Value(), 77);
    int32 min = 0;
    int32 max = 0;
    copy->GetLimits(&min, &max);
    EXPECT_EQ(min, 5);
    EXPECT_EQ(max, 255);
    EXPECT_STREQ(copy->Label(), "Opacity");
    EXPECT_STREQ(copy->MinLimitLabel(), "low");
    EXPECT_STREQ(copy->MaxLimitLabel(), "high");
    EXPECT_EQ(copy->HashMarkCount(), 17);
    EXPECT_EQ(copy->HashMarks(), B_HASH_MARKS_TOP);
    EXPECT_EQ(copy->KeyIncrementValue(), 3);
    EXPECT_EQ(copy->Orientation(), B_VERTICAL);
    EXPECT_EQ(copy->Style(), B_TRIANGLE_THUMB);
    EXPECT_EQ(copy->BarThickness(), 9);
    EXPECT_EQ(copy->SnoozeAmount(), 1234);
    ASSERT_NE(copy->ModificationMessage(), nullptr);
    EXPECT_EQ(copy->ModificationMessage()->what, uint32('drag'));
    EXPECT_EQ(copy->Message()->what, uint32('scac'));
}

TEST(SliderArchive, AbsurdOnesStillGiveASlider) {
    BMessage archive;
    archive.AddString("class", "BSlider");
    archive.AddInt32("_min", 100);
    archive.AddInt32("_max", -100);
    archive.AddInt32("_val", 1 << 30);
    archive.AddInt32("_incrementvalue", -4);
    archive.AddInt32("_hashcount", 1000000000);
    archive.AddInt32("_hashloc", 0x7f03);
    archive.AddInt32("_orient", 99);
    archive.AddInt32("_sstyle", -1);
    archive.AddFloat("_bthickness", std::numeric_limits<float>::infinity());
    const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* slider = dynamic_cast<BSlider*>(made.get());
    ASSERT_NE(slider, nullptr);
    EXPECT_EQ(slider->Value(), 100);
    EXPECT_EQ(slider->KeyIncrementValue(), 1);
    EXPECT_EQ(slider->HashMarkCount(), 1000000000);
    EXPECT_EQ(slider->HashMarks(), B_HASH_MARKS_BOTH);
    EXPECT_EQ(slider->Orientation(), B_HORIZONTAL);
    EXPECT_EQ(slider->Style(), B_BLOCK_THUMB);
    EXPECT_TRUE(std::isfinite(slider->BarThickness()));
    BMessage other;
    other.AddString("class", "BButton");
    EXPECT_EQ(BSlider::Instantiate(&other), nullptr);
}
