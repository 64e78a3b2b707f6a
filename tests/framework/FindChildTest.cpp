#include "framework/FindChild.h"

#include <gtest/gtest.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/MenuField.h>
#include <interface/PopUpMenu.h>
#include <interface/StringView.h>
#include <interface/TabView.h>

namespace {

constexpr BRect kViewFrame(0, 0, 99, 99);

BView* add_view(BView* parent, const char* name) {
    auto* view = new BView(kViewFrame, name, B_FOLLOW_NONE, 0);
    if (parent != nullptr)
        parent->AddChild(view);
    return view;
}

TEST(FindChild, FindsBelowTheView) {
    BView root(kViewFrame, "Root", B_FOLLOW_NONE, 0);
    BView* inner = add_view(&root, "Inner");
    add_view(inner, nullptr);
    auto* button = new BButton(kViewFrame, "ButtonOK", "OK", nullptr);
    inner->AddChild(button);
    EXPECT_EQ(find_child<BButton>(&root, "ButtonOK"), button);
    EXPECT_EQ(find_child<BView>(&root, "Root"), &root);
    EXPECT_EQ(find_view(&root, "Inner"), inner);
    EXPECT_EQ(find_view(&root, "Missing"), nullptr);
    EXPECT_EQ(find_view(inner, "Root"), nullptr);
}

TEST(FindChild, FindsNoneOfAnotherClass) {
    BView root(kViewFrame, "Root", B_FOLLOW_NONE, 0);
    root.AddChild(new BButton(kViewFrame, "ButtonOK", "OK", nullptr));
    EXPECT_EQ(find_child<BStringView>(&root, "ButtonOK"), nullptr);
}

TEST(FindChild, FindsInEveryPageOfATabView) {
    BView root(kViewFrame, "Root", B_FOLLOW_NONE, 0);
    auto* outer = new BTabView(kViewFrame, "Outer");
    root.AddChild(outer);
    add_view(&root, "After");
    BView* pages[] = {add_view(nullptr, "First"), add_view(nullptr, "Second")};
    for (BView* page : pages)
        outer->AddTab(page);
    outer->AddTab(nullptr, new BTab);
    auto* inner = new BTabView(kViewFrame, "Inner");
    pages[1]->AddChild(inner);
    inner->AddTab(add_view(nullptr, "Third"));
    BView* deep = add_view(nullptr, "Fourth");
    inner->AddTab(deep);
    BView* deepest = add_view(deep, "Deepest");
    for (const int32 selected : {0, 1, 2}) {
        outer->Select(selected);
        EXPECT_EQ(find_view(&root, "First"), pages[0]);
        EXPECT_EQ(find_view(&root, "Second"), pages[1]);
        EXPECT_EQ(find_child<BTabView>(&root, "Inner"), inner);
        EXPECT_EQ(find_view(&root, "Deepest"), deepest);
        EXPECT_NE(find_view(&root, "After"), nullptr);
        EXPECT_EQ(find_view(&root, "Missing"), nullptr);
    }
}

TEST(FirstComponent, IsTheFirstThatTakesTheKeyboardAndNoButton) {
    BView root(kViewFrame, "Root", B_FOLLOW_NONE, 0);
    EXPECT_EQ(first_component(&root), nullptr);
    root.AddChild(new BButton(kViewFrame, "ButtonOK", "OK", nullptr));
    root.AddChild(new BStringView(kViewFrame, "StrView", "Text"));
    EXPECT_EQ(first_component(&root), nullptr);
    BView* inner = add_view(&root, "Inner");
    auto* disabled = new BCheckBox(kViewFrame, "CBoxA", "A", nullptr);
    inner->AddChild(disabled);
    disabled->SetEnabled(false);
    auto* field = new BMenuField(kViewFrame, "MFieldB", "B", new BPopUpMenu("Menu"));
    inner->AddChild(field);
    auto* last = new BCheckBox(kViewFrame, "CBoxC", "C", nullptr);
    root.AddChild(last);
    EXPECT_EQ(first_component(&root), field);
    field->SetEnabled(false);
    EXPECT_EQ(first_component(&root), last);
    disabled->SetEnabled(true);
    EXPECT_EQ(first_component(&root), disabled);
    inner->Hide();
    EXPECT_EQ(first_component(&root), last);
}

}  // namespace
