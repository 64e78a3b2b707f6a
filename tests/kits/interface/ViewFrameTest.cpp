#include "tests/kits/interface/TestWindow.h"

using testing::ElementsAre;

TEST(ViewFrame, ResizingModes) {
    const struct {
        uint32 mode;
        BRect frame;
    } table[] = {
        {B_FOLLOW_NONE, {10, 10, 20, 20}},
        {B_FOLLOW_LEFT | B_FOLLOW_TOP, {10, 10, 20, 20}},
        {B_FOLLOW_RIGHT | B_FOLLOW_TOP, {40, 10, 50, 20}},
        {B_FOLLOW_LEFT | B_FOLLOW_BOTTOM, {10, -10, 20, 0}},
        {B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM, {40, -10, 50, 0}},
        {B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP, {10, 10, 50, 20}},
        {B_FOLLOW_LEFT | B_FOLLOW_TOP_BOTTOM, {10, 10, 20, 0}},
        {B_FOLLOW_ALL_SIDES, {10, 10, 50, 0}},
        {B_FOLLOW_H_CENTER | B_FOLLOW_V_CENTER, {25, 0, 35, 10}},
    };
    for (const auto& row : table) {
        BView parent(BRect(5, 5, 104, 104), nullptr, 0, 0);
        auto* child = new BView(BRect(10, 10, 20, 20), nullptr, row.mode, 0);
        parent.AddChild(child);
        parent.ResizeBy(30, -20);
        EXPECT_EQ(child->Frame(), row.frame) << std::hex << row.mode;
        parent.MoveBy(100, 100);
        EXPECT_EQ(child->Frame(), row.frame);
        parent.ResizeBy(-30, 20);
        EXPECT_EQ(child->Frame(), BRect(10, 10, 20, 20)) << std::hex << row.mode;
    }
}

TEST(ViewFrame, FollowingReachesDown) {
    BView outer(BRect(0, 0, 100, 100), nullptr, 0, 0);
    auto* middle = new BView(BRect(10, 10, 90, 90), nullptr, B_FOLLOW_ALL, 0);
    auto* inner = new BView(BRect(60, 60, 70, 70), nullptr, B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM, 0);
    outer.AddChild(middle);
    middle->AddChild(inner);
    outer.ResizeTo(110.5F, 100);
    EXPECT_EQ(inner->Frame(), BRect(70.5F, 60, 80.5F, 70));
}

TEST(ViewFrame, BoundsAndConversions) {
    TestWindow window(BRect(100, 200, 299, 399));
    auto* outer = new BView(BRect(10, 20, 109, 119), "outer", 0, 0);
    auto* inner = new BView(BRect(5, 5, 24, 24), "inner", 0, 0);
    window->AddChild(outer);
    outer->AddChild(inner);
    EXPECT_EQ(inner->Bounds(), BRect(0, 0, 19, 19));
    EXPECT_EQ(inner->ConvertToParent(BPoint(1, 1)), BPoint(6, 6));
    EXPECT_EQ(inner->ConvertToScreen(BPoint(0, 0)), BPoint(115, 225));
    EXPECT_EQ(inner->ConvertFromScreen(BPoint(115, 225)), BPoint(0, 0));
    EXPECT_EQ(inner->ConvertToScreen(inner->Bounds()), BRect(115, 225, 134, 244));

    outer->ScrollTo(3, 4);
    EXPECT_EQ(outer->Bounds(), BRect(3, 4, 102, 103));
    EXPECT_EQ(inner->Frame(), BRect(5, 5, 24, 24));
    EXPECT_EQ(inner->ConvertToScreen(BPoint(0, 0)), BPoint(112, 221));
    outer->ScrollBy(-3, -4);
    EXPECT_EQ(outer->Bounds(), BRect(0, 0, 99, 99));
    outer->ScrollTo(BPoint(std::numeric_limits<float>::quiet_NaN(), 0));
    EXPECT_EQ(outer->Bounds(), BRect(0, 0, 99, 99));
}

TEST(ViewFrame, HideAndShowNest) {
    TestWindow window;
    auto* outer = new BView(BRect(0, 0, 9, 9), nullptr, 0, 0);
    auto* inner = new BView(BRect(0, 0, 9, 9), nullptr, 0, 0);
    outer->AddChild(inner);
    EXPECT_FALSE(inner->IsHidden());
    inner->Hide();
    inner->Hide();
    inner->Show();
    EXPECT_TRUE(inner->IsHidden());
    inner->Show();
    inner->Show();
    EXPECT_FALSE(inner->IsHidden());
    inner->Hide();
    EXPECT_TRUE(inner->IsHidden());
    inner->Show();
    outer->Hide();
    EXPECT_TRUE(inner->IsHidden());
    EXPECT_FALSE(inner->IsHidden(outer));
    EXPECT_FALSE(inner->IsHidden(inner));
    outer->Show();
    window->AddChild(outer);
    EXPECT_TRUE(inner->IsHidden());
    EXPECT_FALSE(inner->IsHidden(outer));
    window->Show();
    window.Do([&] { EXPECT_FALSE(inner->IsHidden()); });
}

TEST(ViewFrame, FrameEventsComeAsMessages) {
    Log log;
    TestWindow window;
    auto* view = new LoggingView(BRect(0, 0, 9, 9), "view", log, B_FOLLOW_ALL);
    auto* quiet = new LoggingView(BRect(0, 0, 9, 9), "quiet", log, B_FOLLOW_ALL, 0);
    window->AddChild(view);
    window->AddChild(quiet);
    window->Show();
    window.Settle();
    log.Clear();
    window.Do([&] {
        view->MoveTo(5, 6);
        view->ResizeTo(20, 30);
        quiet->ResizeTo(20, 30);
        EXPECT_THAT(log.Entries(), testing::IsEmpty());
    });
    auto entries = log.Entries();
    std::erase_if(entries, [](const auto& entry) { return entry.find("draw") != entry.npos; });
    EXPECT_THAT(entries, ElementsAre("view: moved 5,6", "view: resized 20,30"));

    // Several changes before the message is delivered are told as one, with what holds then.
    log.Clear();
    window.Do([&] {
        view->ResizeTo(40, 40);
        view->ResizeTo(50, 50);
        view->ResizeTo(50, 50);
    });
    entries = log.Entries();
    std::erase_if(entries, [](const auto& entry) { return entry.find("draw") != entry.npos; });
    EXPECT_THAT(entries, ElementsAre("view: resized 50,50"));
}
