#include <interface/ListView.h>
#include <interface/ScrollBar.h>
#include <interface/ScrollView.h>
#include <memory>

#include "tests/kits/controls/Receiver.h"

using namespace BPrivate;

namespace {

BView* Drawn() {
    return new BView(BRect(10, 20, 109, 119), "target", B_FOLLOW_LEFT, B_WILL_DRAW);
}

using ScrollViewTest = ControlTest;

}  // namespace

TEST_F(ScrollViewTest, GrowsAroundItsTarget) {
    BView* target = Drawn();
    auto* scroll = new BScrollView(
        "scroll", target, B_FOLLOW_LEFT | B_FOLLOW_TOP, 0, true, true, B_FANCY_BORDER);
    Add(scroll);
    EXPECT_EQ(scroll->Frame(), BRect(8, 18, 109 + 15 + 2, 119 + 15 + 2));
    EXPECT_EQ(scroll->Target(), target);
    EXPECT_EQ(target->Frame(), BRect(2, 2, 101, 101));
    BScrollBar* vertical = scroll->ScrollBar(B_VERTICAL);
    BScrollBar* horizontal = scroll->ScrollBar(B_HORIZONTAL);
    ASSERT_NE(vertical, nullptr);
    ASSERT_NE(horizontal, nullptr);
    EXPECT_EQ(vertical->Frame(), BRect(102, 2, 116, 101));
    EXPECT_EQ(horizontal->Frame(), BRect(2, 102, 101, 116));
    vertical->SetRange(0, 500);
    vertical->SetValue(70);
    EXPECT_EQ(target->Bounds().top, 70);
    target->ScrollTo(0, 20);
    EXPECT_EQ(vertical->Value(), 20);

    scroll->ResizeBy(20, 30);
    EXPECT_EQ(target->Frame(), BRect(2, 2, 121, 131));
    EXPECT_EQ(vertical->Frame(), BRect(122, 2, 136, 131));
    EXPECT_EQ(horizontal->Frame(), BRect(2, 132, 121, 146));
}

TEST_F(ScrollViewTest, DrawsItsBorder) {
    auto* scroll = new BScrollView("scroll", Drawn(), 0, 0, false, false, B_PLAIN_BORDER);
    Add(scroll);
    EXPECT_EQ(scroll->Frame(), BRect(9, 19, 110, 120));
    EXPECT_EQ(scroll->ScrollBar(B_VERTICAL), nullptr);
    Show();
    const rgb_color line = ui_color(B_DESKTOP_COLOR);
    EXPECT_TRUE(recording::WaitFor(
        [&] { return fWindow.Screen().Shown().IsAll(BRect(9, 19, 110, 19), line); }));
    EXPECT_TRUE(fWindow.Screen().Shown().IsAll(BRect(110, 19, 110, 120), line));
    EXPECT_FALSE(fWindow.Screen().Shown().IsAll(BRect(10, 20, 109, 20), line));
    fWindow.Do([&] {
        EXPECT_EQ(scroll->SetBorderHighlighted(true), B_OK);
        EXPECT_TRUE(scroll->IsBorderHighlighted());
    });
    const rgb_color highlight = ui_color(B_KEYBOARD_NAVIGATION_COLOR);
    EXPECT_TRUE(recording::WaitFor(
        [&] { return fWindow.Screen().Shown().IsAll(BRect(9, 19, 110, 19), highlight); }));
    fWindow.Do([&] { scroll->SetBorder(B_NO_BORDER); });
    EXPECT_EQ(scroll->Border(), B_NO_BORDER);
    fWindow.Do([&] { EXPECT_EQ(scroll->Target()->Frame().LeftTop(), BPoint(0, 0)); });
}

TEST_F(ScrollViewTest, AListHasTheDesktopsOwnBarAndBorder) {
    auto* list = new BListView(BRect(10, 10, 99, 99), "list");
    auto* scroll = new BScrollView("ScrlView", list, B_FOLLOW_ALL, 0, false, true);
    Add(scroll);
    EXPECT_EQ(scroll->ScrollBar(B_VERTICAL), nullptr);
    const auto state = StateOf<ListViewState>("list");
    EXPECT_TRUE(state.scrollBar);
    EXPECT_EQ(state.border, B_FANCY_BORDER);
    EXPECT_EQ(scroll->Frame(), BRect(8, 8, 116, 101));
    EXPECT_EQ(list->Frame(), scroll->Bounds());
    EXPECT_EQ(OnScreen("list").place.frame, scroll->Frame());
    EXPECT_EQ(fWindow.Screen().Controls().size(), 1U);
    Show();
    fWindow.Do([&] {
        scroll->ResizeBy(10, 10);
        EXPECT_EQ(list->Frame(), scroll->Bounds());
        scroll->SetBorder(B_PLAIN_BORDER);
    });
    fWindow.Settle();
    EXPECT_EQ(StateOf<ListViewState>("list").border, B_PLAIN_BORDER);
}

TEST_F(ScrollViewTest, TheTargetCanBeAnother) {
    auto* scroll = new BScrollView("scroll", Drawn(), 0, 0, false, true);
    Add(scroll);
    scroll->SetTarget(new BListView(BRect(), "list"));
    EXPECT_EQ(scroll->ScrollBar(B_VERTICAL), nullptr);
    EXPECT_EQ(scroll->CountChildren(), 1);
    Show();
    fWindow.Settle();
    EXPECT_TRUE(StateOf<ListViewState>("list").scrollBar);
    ASSERT_TRUE(fReceiver->Lock());
    BView* drawn = Drawn();
    scroll->SetTarget(drawn);
    ASSERT_NE(scroll->ScrollBar(B_VERTICAL), nullptr);
    EXPECT_EQ(scroll->ScrollBar(B_VERTICAL)->Target(), drawn);
    EXPECT_EQ(drawn->Frame().right + 1, scroll->ScrollBar(B_VERTICAL)->Frame().left);
    scroll->SetTarget(nullptr);
    EXPECT_EQ(scroll->Target(), nullptr);
    EXPECT_EQ(scroll->ScrollBar(B_VERTICAL)->Target(), nullptr);
    fReceiver->Unlock();
}

TEST(ScrollViewArchive, IsMadeAgain) {
    BScrollView plain("scroll", Drawn(), B_FOLLOW_ALL, 0, true, true, B_PLAIN_BORDER);
    BMessage archive;
    ASSERT_EQ(plain.Archive(&archive), B_OK);
    std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* copy = dynamic_cast<BScrollView*>(made.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->Border(), B_PLAIN_BORDER);
    ASSERT_NE(copy->Target(), nullptr);
    EXPECT_STREQ(copy->Target()->Name(), "target");
    EXPECT_EQ(copy->Target()->Frame(), plain.Target()->Frame());
    ASSERT_NE(copy->ScrollBar(B_HORIZONTAL), nullptr);
    EXPECT_EQ(copy->ScrollBar(B_VERTICAL)->Target(), copy->Target());

    BScrollView around("scroll", new BListView(BRect(0, 0, 50, 50), "list"), 0, 0, false, true);
    BMessage listArchive;
    ASSERT_EQ(around.Archive(&listArchive), B_OK);
    made.reset(instantiate_object(&listArchive));
    copy = dynamic_cast<BScrollView*>(made.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(dynamic_cast<BListView*>(copy->Target()), nullptr);
    EXPECT_EQ(copy->CountChildren(), 1);
    BMessage again;
    ASSERT_EQ(copy->Archive(&again), B_OK);
    EXPECT_TRUE(again.GetBool("_native_bar", false));
}

TEST(ScrollViewArchive, AbsurdOnesStillGiveAView) {
    BMessage archive;
    archive.AddString("class", "BScrollView");
    archive.AddInt32("_style", -44);
    archive.AddBool("_native_bar", true);
    BMessage bar;
    bar.AddString("class", "BScrollBar");
    for (int i = 0; i < 3; i++)
        archive.AddMessage("_views", &bar);
    const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* scroll = dynamic_cast<BScrollView*>(made.get());
    ASSERT_NE(scroll, nullptr);
    EXPECT_EQ(scroll->Target(), nullptr);
    EXPECT_EQ(scroll->Border(), B_FANCY_BORDER);
    EXPECT_NE(scroll->ScrollBar(B_VERTICAL), nullptr);
}
