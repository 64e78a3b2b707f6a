#include <interface/ScrollBar.h>
#include <limits>
#include <memory>

#include "tests/kits/controls/Receiver.h"

using BPrivate::ScrollBarState;

namespace {

/// Writes down the values it is told.
class Bar : public BScrollBar {
public:
    Bar(BView* target, float min, float max, orientation direction = B_VERTICAL)
        : BScrollBar(BRect(280, 0, 293, 180), "bar", target, min, max, direction) {}

    void ValueChanged(float value) override {
        values.push_back(value);
        BScrollBar::ValueChanged(value);
    }

    std::vector<float> values;
};

using testing::ElementsAre;
using testing::IsEmpty;

class ScrollBarTest : public ControlTest {
protected:
    BView* AddTarget(const char* name = "target") {
        return Add(new BView(BRect(0, 0, 200, 150), name, B_FOLLOW_NONE, 0));
    }
};

}  // namespace

TEST_F(ScrollBarTest, StartsAtItsMinimumOrZero) {
    EXPECT_EQ(std::make_unique<Bar>(nullptr, 0, 10)->Value(), 0);
    EXPECT_EQ(std::make_unique<Bar>(nullptr, 5, 10)->Value(), 5);
    EXPECT_EQ(std::make_unique<Bar>(nullptr, -10, -5)->Value(), -5);
}

TEST_F(ScrollBarTest, KeepsItsValueWithinTheRange) {
    Bar* bar = Add(new Bar(nullptr, 0, 100.5F));
    bar->SetValue(50);
    bar->SetValue(500);
    EXPECT_EQ(bar->Value(), 100.5F);
    bar->SetValue(-1);
    EXPECT_EQ(bar->Value(), 0);
    EXPECT_THAT(bar->values, ElementsAre(50, 100.5F, 0));
}

TEST_F(ScrollBarTest, TellsOnlyChanges) {
    Bar* bar = Add(new Bar(nullptr, 0, 100));
    bar->SetValue(0);
    bar->SetValue(20);
    bar->SetValue(20);
    bar->SetValue(std::numeric_limits<float>::quiet_NaN());
    EXPECT_THAT(bar->values, ElementsAre(20));
}

TEST_F(ScrollBarTest, AShorterRangeTakesTheValueAlong) {
    Bar* bar = Add(new Bar(nullptr, 0, 100));
    bar->SetValue(80);
    bar->SetRange(0, 60);
    EXPECT_EQ(bar->Value(), 60);
    bar->SetRange(10, 5);
    float min = 0;
    float max = 0;
    bar->GetRange(&min, &max);
    EXPECT_EQ(min, 10);
    EXPECT_EQ(max, 10);
    EXPECT_THAT(bar->values, ElementsAre(80, 60, 10));
}

TEST_F(ScrollBarTest, SurvivesNumbersThatAreNone) {
    Bar* bar = Add(new Bar(nullptr, 0, 100));
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    bar->SetRange(nan, infinity);
    bar->SetProportion(nan);
    bar->SetSteps(nan, -infinity);
    EXPECT_EQ(bar->Value(), 0);
    EXPECT_EQ(bar->Proportion(), 0);
    bar->SetProportion(7);
    EXPECT_EQ(bar->Proportion(), 1);
}

TEST_F(ScrollBarTest, ShowsItsState) {
    Bar* bar = Add(new Bar(nullptr, 0, 100));
    bar->SetRange(0, 300);
    bar->SetProportion(0.25F);
    bar->SetSteps(10, 50);
    bar->SetValue(30);
    const auto state = StateOf<ScrollBarState>("bar");
    EXPECT_EQ(state.direction, B_VERTICAL);
    EXPECT_EQ(state.max, 300);
    EXPECT_EQ(state.value, 30);
    EXPECT_EQ(state.proportion, 0.25F);
    EXPECT_EQ(state.smallStep, 10);
    EXPECT_EQ(state.bigStep, 50);
    EXPECT_FALSE(OnScreen("bar").place.navigable);
}

TEST_F(ScrollBarTest, TheUserMovesIt) {
    Bar* bar = Add(new Bar(nullptr, 0, 100));
    bar->SetValue(30);
    Show();
    const int32 serial = OnScreen("bar").serial;
    fWindow.Screen().SetScrollBar(OnScreen("bar").id, 42);
    fWindow.Do([&] {
        EXPECT_EQ(bar->Value(), 42);
        EXPECT_THAT(bar->values, ElementsAre(30, 42));
    });
    // It shows the value already, so nothing is handed down again.
    EXPECT_EQ(OnScreen("bar").serial, serial);
}

TEST_F(ScrollBarTest, ScrollsItsTarget) {
    BView* target = AddTarget();
    auto* vertical = Add(new Bar(target, 0, 100));
    auto* horizontal = Add(new Bar(target, 0, 100, B_HORIZONTAL));
    EXPECT_EQ(target->ScrollBar(B_VERTICAL), vertical);
    EXPECT_EQ(target->ScrollBar(B_HORIZONTAL), horizontal);
    vertical->SetValue(20);
    horizontal->SetValue(10);
    EXPECT_EQ(target->Bounds().LeftTop(), BPoint(10, 20));
    // And follows it.
    target->ScrollTo(BPoint(3, 4));
    EXPECT_EQ(vertical->Value(), 4);
    EXPECT_EQ(horizontal->Value(), 3);
}

TEST_F(ScrollBarTest, FindsItsTargetByNameOnceAttached) {
    auto* bar = new Bar(nullptr, 0, 100);
    bar->SetTarget("target");
    EXPECT_EQ(bar->Target(), nullptr);
    BView* target = AddTarget();
    Add(bar);
    EXPECT_EQ(bar->Target(), target);
    BView* other = AddTarget("other");
    bar->SetTarget("other");
    EXPECT_EQ(bar->Target(), other);
    EXPECT_EQ(target->ScrollBar(B_VERTICAL), nullptr);
}

TEST_F(ScrollBarTest, EitherMayGoFirst) {
    BView* target = AddTarget();
    auto* bar = Add(new Bar(target, 0, 100));
    fReceiver->RemoveChild(target);
    delete target;
    EXPECT_EQ(bar->Target(), nullptr);
    bar->SetValue(10);

    target = AddTarget();
    bar->SetTarget(target);
    fReceiver->RemoveChild(bar);
    delete bar;
    EXPECT_EQ(target->ScrollBar(B_VERTICAL), nullptr);
    target->ScrollTo(BPoint(5, 5));
}

TEST_F(ScrollBarTest, ABarInItsTargetGoesWithIt) {
    BView* target = AddTarget();
    target->AddChild(new Bar(target, 0, 100));
    fReceiver->RemoveChild(target);
    delete target;
}

TEST_F(ScrollBarTest, IsMadeAgainFromItsArchive) {
    BScrollBar bar(BRect(1, 2, 14, 90), "archived", nullptr, -5, 95.5F, B_HORIZONTAL);
    bar.SetValue(12);
    bar.SetProportion(0.5F);
    bar.SetSteps(3, 30);
    BMessage archive;
    ASSERT_EQ(bar.Archive(&archive), B_OK);
    const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* copy = dynamic_cast<BScrollBar*>(made.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy->Name(), "archived");
    EXPECT_EQ(copy->Frame(), BRect(1, 2, 14, 90));
    EXPECT_EQ(copy->Value(), 12);
    EXPECT_EQ(copy->Proportion(), 0.5F);
    EXPECT_EQ(copy->Orientation(), B_HORIZONTAL);
    float one = 0;
    float two = 0;
    copy->GetRange(&one, &two);
    EXPECT_EQ(one, -5);
    EXPECT_EQ(two, 95.5F);
    copy->GetSteps(&one, &two);
    EXPECT_EQ(one, 3);
    EXPECT_EQ(two, 30);
}
