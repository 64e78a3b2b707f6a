#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/TabView.h>
#include <memory>

#include "tests/kits/controls/Receiver.h"

using namespace BPrivate;

namespace {

BView* Page(const char* name) {
    return new BView(BRect(0, 0, 150, 90), name, B_FOLLOW_ALL, 0);
}

class TabViewTest : public ControlTest {
protected:
    void SetUp() override {
        fTabs = new BTabView(BRect(10, 10, 209, 159), "tabs");
        for (const char* name : {"first", "second", "third"}) {
            BView* page = Page(name);
            const std::string label = std::string(name) + " box";
            page->AddChild(new BCheckBox(
                BRect(5, 5, 100, 20), label.c_str(), label.c_str(), new BMessage('chek')));
            fTabs->AddTab(page);
        }
        Add(fTabs);
    }

    TabViewState Strip() const { return StateOf<TabViewState>("tabs"); }
    bool IsOnScreen(const char* name) const {
        return fWindow.Screen().FindControl(name).has_value();
    }

    BTabView* fTabs = nullptr;
};

}  // namespace

TEST_F(TabViewTest, ShowsTheFirstTabsView) {
    EXPECT_EQ(Strip().tabs, (std::vector<std::string>{"first", "second", "third"}));
    EXPECT_EQ(Strip().selected, 0);
    EXPECT_EQ(fTabs->Selection(), 0);
    EXPECT_EQ(fTabs->ContainerView()->CountChildren(), 1);
    EXPECT_EQ(fTabs->ContainerView()->ChildAt(0), fTabs->ViewForTab(0));
    EXPECT_TRUE(IsOnScreen("first box"));
    EXPECT_FALSE(IsOnScreen("second box"));
    EXPECT_GT(OnScreen("first box").id, OnScreen("tabs").id);
    EXPECT_TRUE(OnScreen("tabs").place.navigable);
}

TEST_F(TabViewTest, TheUserChoosesATab) {
    Show();
    fWindow.Screen().ChooseTab(OnScreen("tabs").id, 2);
    fWindow.Settle();
    EXPECT_TRUE(IsOnScreen("third box"));
    EXPECT_FALSE(IsOnScreen("first box"));
    fWindow.Do([&] {
        EXPECT_EQ(fTabs->Selection(), 2);
        EXPECT_TRUE(fTabs->TabAt(2)->IsSelected());
        EXPECT_FALSE(fTabs->TabAt(0)->IsSelected());
        EXPECT_EQ(fTabs->ViewForTab(0)->Window(), nullptr);
    });
    // What the display cannot have meant.
    for (const int32 index : {-1, 3, 1000000})
        fWindow.Screen().ChooseTab(OnScreen("tabs").id, index);
    fWindow.Do([&] { EXPECT_EQ(fTabs->Selection(), 2); });
}

TEST_F(TabViewTest, OfTwoQuickChoicesTheLastCounts) {
    Show();
    fWindow.Do([&] {
        for (const int32 index : {1, 2})
            fWindow.Screen().ChooseTab(OnScreen("tabs").id, index);
    });
    fWindow.Settle();
    EXPECT_EQ(Strip().selected, 2);
    EXPECT_TRUE(IsOnScreen("third box"));
    fWindow.Do([&] { EXPECT_EQ(fTabs->Selection(), 2); });
}

TEST_F(TabViewTest, AChoiceThatCannotBeIsTakenBack) {
    fTabs->TabAt(1)->SetEnabled(false);
    Show();
    fWindow.Screen().ChooseTab(OnScreen("tabs").id, 1);
    fWindow.Settle();
    EXPECT_EQ(Strip().selected, 0);
}

TEST_F(TabViewTest, ADisabledTabIsOnlyForTheProgram) {
    fTabs->TabAt(1)->SetEnabled(false);
    EXPECT_EQ(Strip().disabled, std::vector<int32>{1});
    Show();
    fWindow.Screen().ChooseTab(OnScreen("tabs").id, 1);
    fWindow.Do([&] {
        EXPECT_EQ(fTabs->Selection(), 0);
        fTabs->Select(1);
        EXPECT_EQ(fTabs->Selection(), 1);
    });
    EXPECT_EQ(Strip().selected, 1);
}

TEST_F(TabViewTest, ViewsThatAreNotShownCanBeChanged) {
    auto* box = dynamic_cast<BCheckBox*>(fTabs->ViewForTab(1)->FindView("second box"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(fReceiver->FindView("second box"), nullptr);
    box->SetLabel("Changed");
    box->SetValue(B_CONTROL_ON);
    box->SetEnabled(false);
    EXPECT_EQ(box->SetTarget(BMessenger(fTabs)), B_OK);
    fTabs->Select(1);
    EXPECT_TRUE(StateOf<CheckBoxState>("Changed").on);
    EXPECT_FALSE(OnScreen("Changed").place.enabled);
    EXPECT_EQ(box->Target(), fTabs);
    EXPECT_EQ(fReceiver->FindView("second box"), box);
}

TEST_F(TabViewTest, AViewIsTheSameWheneverItComesBack) {
    Show();
    fWindow.Screen().SetValue(OnScreen("first box").id, 1);
    fWindow.Settle();
    fWindow.Screen().ChooseTab(OnScreen("tabs").id, 1);
    fWindow.Settle();
    fWindow.Screen().ChooseTab(OnScreen("tabs").id, 0);
    fWindow.Settle();
    EXPECT_TRUE(StateOf<CheckBoxState>("first box").on);
    EXPECT_EQ(Received('chek').size(), 1U);
}

TEST_F(TabViewTest, TheHookDecidesWhatIsSelected) {
    class Stubborn : public BTabView {
    public:
        Stubborn() : BTabView(BRect(0, 0, 99, 99), "stubborn") {}
        void Select(int32 index) override {
            if (index != 1)
                BTabView::Select(index);
        }
    };
    auto* tabs = new Stubborn;
    for (const char* name : {"a", "b", "c"})
        tabs->AddTab(Page(name));
    Add(tabs);
    Show();
    fWindow.Screen().ChooseTab(OnScreen("stubborn").id, 1);
    fWindow.Do([&] { EXPECT_EQ(tabs->Selection(), 0); });
    fWindow.Screen().ChooseTab(OnScreen("stubborn").id, 2);
    fWindow.Do([&] { EXPECT_EQ(tabs->Selection(), 2); });
    EXPECT_EQ(StateOf<TabViewState>("stubborn").selected, 2);
}

TEST_F(TabViewTest, LabelsAreTheViewsNamesUntilSet) {
    EXPECT_STREQ(fTabs->TabAt(0)->Label(), "first");
    fTabs->TabAt(0)->SetLabel("Colors");
    EXPECT_EQ(Strip().tabs[0], "Colors");
    EXPECT_STREQ(fTabs->ViewForTab(0)->Name(), "first");
    fTabs->TabAt(0)->SetLabel(nullptr);
    EXPECT_EQ(Strip().tabs[0], "first");
    fTabs->AddTab(nullptr);
    EXPECT_EQ(fTabs->TabAt(3)->Label(), nullptr);
    EXPECT_EQ(Strip().tabs[3], "");
}

TEST_F(TabViewTest, TabsAreFoundByTheirViews) {
    EXPECT_EQ(fTabs->TabForView(fTabs->ViewForTab(1)), fTabs->TabAt(1));
    EXPECT_EQ(fTabs->TabForView(fTabs), nullptr);
    EXPECT_EQ(fTabs->TabForView(nullptr), nullptr);
    EXPECT_EQ(fTabs->TabAt(-1), nullptr);
    EXPECT_EQ(fTabs->TabAt(3), nullptr);
    EXPECT_EQ(fTabs->ViewForTab(3), nullptr);
}

TEST_F(TabViewTest, RemovingATabHandsItOver) {
    const std::unique_ptr<BTab> first(fTabs->RemoveTab(0));
    ASSERT_NE(first, nullptr);
    EXPECT_FALSE(first->IsSelected());
    EXPECT_EQ(first->View()->Parent(), nullptr);
    EXPECT_EQ(fTabs->Selection(), 0);
    EXPECT_TRUE(IsOnScreen("second box"));
    fTabs->Select(1);
    const std::unique_ptr<BTab> second(fTabs->RemoveTab(0));
    EXPECT_EQ(fTabs->Selection(), 0);
    EXPECT_TRUE(IsOnScreen("third box"));
    const std::unique_ptr<BTab> third(fTabs->RemoveTab(0));
    EXPECT_EQ(fTabs->Selection(), -1);
    EXPECT_EQ(Strip().selected, -1);
    EXPECT_EQ(fTabs->ContainerView()->CountChildren(), 0);
    EXPECT_EQ(fTabs->RemoveTab(0), nullptr);
    // It can be added again.
    fTabs->AddTab(nullptr, new BTab(Page("new")));
    EXPECT_EQ(Strip().tabs, std::vector<std::string>{"new"});
}

TEST_F(TabViewTest, AnotherViewForATabIsShownAtOnce) {
    fTabs->TabAt(0)->SetView(Page("other"));
    EXPECT_EQ(Strip().tabs[0], "other");
    EXPECT_EQ(fTabs->ContainerView()->ChildAt(0), fTabs->ViewForTab(0));
    fTabs->TabAt(1)->SetView(nullptr);
    fTabs->Select(1);
    EXPECT_EQ(fTabs->ContainerView()->CountChildren(), 0);
    fTabs->TabAt(1)->SetView(Page("late"));
    EXPECT_EQ(fTabs->ContainerView()->CountChildren(), 1);
}

TEST_F(TabViewTest, ThePageLiesInsideOfTheFrame) {
    const float strip = TheDisplay().PreferredSize(Strip()).y + 1;
    EXPECT_EQ(fTabs->TabHeight(), strip);
    const BRect page = fTabs->ContainerView()->Frame();
    EXPECT_EQ(page,
        BRect(kTabPaneFrame, strip + kTabPaneFrame, 199 - kTabPaneFrame, 149 - kTabPaneFrame));
    fTabs->ResizeBy(30, 10);
    EXPECT_EQ(fTabs->ContainerView()->Frame(),
        BRect(page.left, page.top, page.right + 30, page.bottom + 10));
}

TEST_F(TabViewTest, ViewsFollowTheSizeAlsoUnseen) {
    const BRect before = fTabs->ViewForTab(0)->Frame();
    fTabs->ResizeBy(30, 10);
    EXPECT_EQ(fTabs->ViewForTab(0)->Frame().Width(), before.Width() + 30);
    EXPECT_EQ(fTabs->ViewForTab(1)->Frame().Width(), before.Width());
    fTabs->Select(1);
    EXPECT_EQ(fTabs->ViewForTab(1)->Frame().Width(), before.Width() + 30);
    EXPECT_EQ(fTabs->ViewForTab(1)->Frame().Height(), before.Height() + 10);
    fTabs->ResizeBy(-30, -10);
    fTabs->Select(0);
    EXPECT_EQ(fTabs->ViewForTab(0)->Frame(), before);
}

TEST_F(TabViewTest, WantsRoomForItsLargestView) {
    fTabs->ViewForTab(2)->ResizeTo(300, 40);
    float width = 0;
    float height = 0;
    fTabs->GetPreferredSize(&width, &height);
    fTabs->ResizeTo(width, height);
    EXPECT_EQ(fTabs->ContainerView()->Bounds().Width(), 300);
    EXPECT_EQ(fTabs->ContainerView()->Bounds().Height(), 90);
}

TEST_F(TabViewTest, TabMovesFromTheStripIntoThePageAndOn) {
    Add(new BButton(BRect(10, 170, 60, 190), "after", "after", nullptr));
    Show();
    auto& screen = fWindow.Screen();
    const auto focused = [&](const char* name) { return OnScreen(name).place.focused; };
    fWindow.Do([&] { fTabs->MakeFocus(); });
    EXPECT_TRUE(focused("tabs"));
    fWindow.Do([&] { EXPECT_EQ(fTabs->FocusTab(), 0); });
    screen.KeyDown(B_TAB, 0, 0, OnScreen("tabs").id);
    fWindow.Settle();
    EXPECT_TRUE(focused("first box"));
    screen.KeyDown(B_TAB, 0, 0, OnScreen("first box").id);
    fWindow.Settle();
    EXPECT_TRUE(focused("after"));
    screen.KeyDown(B_TAB, 0, 0, OnScreen("after").id);
    fWindow.Settle();
    EXPECT_TRUE(focused("tabs"));
    screen.KeyDown(B_TAB, B_SHIFT_KEY, 0, OnScreen("tabs").id);
    fWindow.Settle();
    EXPECT_TRUE(focused("after"));
}

TEST_F(TabViewTest, TheFocusLeavesWithItsPageAndTabBringsItBack) {
    fReceiver->FindView("first box")->MakeFocus();
    fTabs->Select(1);
    EXPECT_EQ(fReceiver->CurrentFocus(), nullptr);
    Show();
    auto& screen = fWindow.Screen();
    const auto focus_after = [&](uint32 modifiers) {
        screen.KeyDown(B_TAB, modifiers);
        fWindow.Settle();
        BView* view = nullptr;
        fWindow.Do([&] {
            view = fReceiver->CurrentFocus();
            if (view != nullptr)
                view->MakeFocus(false);
        });
        return view;
    };
    EXPECT_EQ(focus_after(B_CONTROL_KEY), nullptr);
    EXPECT_EQ(Received(B_KEY_DOWN).size(), 1U);
    EXPECT_EQ(focus_after(0), fTabs);
    EXPECT_EQ(focus_after(B_SHIFT_KEY), fReceiver->FindView("second box"));
    fWindow.Do([&] {
        fTabs->Hide();
        EXPECT_EQ(fReceiver->CurrentFocus(), nullptr);
    });
    // Where nobody wants it, it is a key as any other.
    EXPECT_EQ(focus_after(0), nullptr);
    EXPECT_EQ(Received(B_KEY_DOWN).size(), 2U);
}

TEST(TabViewArchive, IsMadeAgain) {
    BTabView tabs(BRect(1, 2, 200, 150), "tabs", B_WIDTH_FROM_LABEL);
    for (const char* name : {"a", "b", "c"}) {
        BView* page = Page(name);
        page->AddChild(new BCheckBox(BRect(0, 0, 50, 20), name, name, nullptr));
        tabs.AddTab(page);
    }
    tabs.AddTab(nullptr);
    tabs.AddChild(Page("beside"));
    tabs.TabAt(1)->SetLabel("Colors");
    tabs.TabAt(2)->SetEnabled(false);
    tabs.Select(1);
    BMessage archive;
    ASSERT_EQ(tabs.Archive(&archive), B_OK);

    for (int round = 0; round < 2; round++) {
        const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
        auto* copy = dynamic_cast<BTabView*>(made.get());
        ASSERT_NE(copy, nullptr);
        EXPECT_EQ(copy->CountTabs(), 4);
        EXPECT_EQ(copy->TabWidth(), B_WIDTH_FROM_LABEL);
        EXPECT_EQ(copy->TabHeight(), tabs.TabHeight());
        EXPECT_EQ(copy->ContainerView()->Frame(), tabs.ContainerView()->Frame());
        EXPECT_EQ(copy->Selection(), 1);
        EXPECT_STREQ(copy->TabAt(0)->Label(), "a");
        EXPECT_STREQ(copy->TabAt(1)->Label(), "Colors");
        EXPECT_FALSE(copy->TabAt(2)->IsEnabled());
        EXPECT_EQ(copy->ViewForTab(3), nullptr);
        EXPECT_NE(
            dynamic_cast<BCheckBox*>(copy->ViewForTab(2)->FindView("c")->ChildAt(0)), nullptr);
        EXPECT_EQ(copy->ContainerView()->CountChildren(), 1);
        EXPECT_EQ(copy->CountChildren(), 2);
        // Once more from an archive of the copy.
        BMessage again;
        ASSERT_EQ(copy->Archive(&again), B_OK);
        archive = again;
    }
}

TEST(TabViewArchive, CanBeShallow) {
    BTabView tabs(BRect(0, 0, 200, 150), "tabs");
    tabs.AddTab(Page("a"));
    BMessage archive;
    ASSERT_EQ(tabs.Archive(&archive, false), B_OK);
    EXPECT_FALSE(archive.HasMessage("_l_items"));
    EXPECT_FALSE(archive.HasMessage("_views"));
}

TEST(TabViewArchive, NeedsNoTabs) {
    BMessage archive;
    archive.AddString("class", "BTabView");
    archive.AddRect("_frame", BRect(0, 0, 200, 150));
    for (const char* name : {"a", "b"}) {
        const std::unique_ptr<BView> page(Page(name));
        BMessage view;
        ASSERT_EQ(page->Archive(&view), B_OK);
        archive.AddMessage("_view_list", &view);
    }
    const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* tabs = dynamic_cast<BTabView*>(made.get());
    ASSERT_NE(tabs, nullptr);
    EXPECT_EQ(tabs->CountTabs(), 2);
    EXPECT_STREQ(tabs->TabAt(1)->Label(), "b");
    EXPECT_EQ(tabs->Selection(), 0);
}

TEST(TabViewArchive, AbsurdOnesStillGiveATabView) {
    for (const int32 selected : {-7, 99, 0x7fffffff}) {
        BMessage archive;
        archive.AddString("class", "BTabView");
        archive.AddInt32("_sel", selected);
        archive.AddInt16("_but_width", -3);
        archive.AddFloat("_high", std::numeric_limits<float>::quiet_NaN());
        BMessage unknown;
        unknown.AddString("class", "TNobodyKnowsIt");
        archive.AddMessage("_l_items", &unknown);
        BMessage button;
        button.AddString("class", "BButton");
        archive.AddMessage("_l_items", &button);  // no tab, but it has a view
        archive.AddMessage("_view_list", &unknown);
        BMessage page;
        page.AddString("class", "BView");
        archive.AddMessage("_view_list", &page);
        archive.AddMessage("_view_list", &page);
        const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
        auto* tabs = dynamic_cast<BTabView*>(made.get());
        ASSERT_NE(tabs, nullptr);
        EXPECT_EQ(tabs->CountTabs(), 1);
        EXPECT_EQ(tabs->Selection(), 0);
        EXPECT_EQ(tabs->TabWidth(), B_WIDTH_AS_USUAL);
        EXPECT_GT(tabs->TabHeight(), 0);
    }
    BMessage other;
    other.AddString("class", "BButton");
    EXPECT_EQ(BTabView::Instantiate(&other), nullptr);
    EXPECT_EQ(BTab::Instantiate(&other), nullptr);
}
