#include <interface/Accessibility.h>

#include "tests/kits/interface/Pixels.h"
#include "tests/kits/interface/TestWindow.h"

namespace {

/// A view that draws itself, in another one.
class ViewReadingTest : public testing::Test {
protected:
    ViewReadingTest() {
        outer = new BView(BRect(10, 10, 59, 59), "outer", 0, B_WILL_DRAW);
        view = new BView(BRect(5, 5, 24, 14), "CodeName", 0, B_WILL_DRAW | B_NAVIGABLE);
        outer->AddChild(view);
        window->AddChild(outer);
    }
    void Name(const char* name) { set_accessible_name(view, name); }
    std::vector<BPrivate::ReadableView> Told() { return window.Screen().ReadableViews(); }

    TestWindow window;
    BView* outer;
    BView* view;
};

}  // namespace

TEST_F(ViewReadingTest, AViewIsToldOfWhileItHasAName) {
    EXPECT_TRUE(Told().empty());
    set_accessible_description(view, "PNG image");
    EXPECT_TRUE(Told().empty());
    Name("a.png");
    ASSERT_EQ(Told().size(), 1U);
    EXPECT_EQ(Told().front(),
        (BPrivate::ReadableView{"a.png", "PNG image", BRect(15, 15, 34, 24), false}));
    set_accessible_description(view, nullptr);
    EXPECT_EQ(Told().front().description, "");
    Name(nullptr);
    EXPECT_TRUE(Told().empty());
    set_accessible_name(nullptr, "no view");
    EXPECT_TRUE(Told().empty());
}

TEST_F(ViewReadingTest, ItsPlaceIsWhatIsSeenOfIt) {
    Name("a.png");
    view->MoveTo(40, 40);
    EXPECT_EQ(Told().front().frame, BRect(50, 50, 59, 59));
    outer->MoveTo(0, 0);
    EXPECT_EQ(Told().front().frame, BRect(40, 40, 49, 49));
    outer->Hide();
    EXPECT_TRUE(Told().empty());
    outer->Show();
    EXPECT_EQ(Told().size(), 1U);
    view->MoveTo(100, 100);
    EXPECT_TRUE(Told().empty());
}

TEST_F(ViewReadingTest, ItIsToldThatItHasTheKeyboard) {
    Name("a.png");
    view->MakeFocus(true);
    EXPECT_TRUE(Told().front().focused);
    view->MakeFocus(false);
    EXPECT_FALSE(Told().front().focused);
}

TEST_F(ViewReadingTest, OneThatLeavesTheWindowIsNotToldOf) {
    Name("a.png");
    EXPECT_TRUE(outer->RemoveSelf());
    EXPECT_TRUE(Told().empty());
    Name("b.png");
    window->AddChild(outer);
    ASSERT_EQ(Told().size(), 1U);
    EXPECT_EQ(Told().front().name, "b.png");
    view->RemoveSelf();
    delete view;
    EXPECT_TRUE(Told().empty());
}
