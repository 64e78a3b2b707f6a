#include <app/Message.h>
#include <gtest/gtest.h>
#include <interface/MenuBar.h>
#include <interface/MenuField.h>
#include <interface/PopUpMenu.h>
#include <memory>

namespace {

/// Counts itself in and out.
class CountedItem : public BMenuItem {
public:
    CountedItem(const char* label, int& count) : BMenuItem(label, nullptr), fCount(count) {
        fCount++;
    }
    CountedItem(BMenu* submenu, int& count) : BMenuItem(submenu), fCount(count) { fCount++; }
    ~CountedItem() override { fCount--; }

private:
    int& fCount;
};

BMenuItem* PlainItem(const char* label, uint32 what = 0) {
    return new BMenuItem(label, what != 0 ? new BMessage(what) : nullptr);
}

/// The labels of its items, those in submenus in parentheses.
std::string LabelsOf(const BMenu& menu) {
    std::string text;
    for (int32 i = 0; i < menu.CountItems(); i++) {
        text += (i > 0 ? " " : "") + std::string(menu.ItemAt(i)->Label());
        if (const BMenu* submenu = menu.SubmenuAt(i); submenu != nullptr)
            text += "(" + LabelsOf(*submenu) + ")";
    }
    return text;
}

}  // namespace

TEST(MenuTest, KeepsItsItemsInOrder) {
    BMenu menu("menu");
    EXPECT_TRUE(menu.AddItem(PlainItem("b")));
    EXPECT_TRUE(menu.AddItem(PlainItem("a"), 0));
    EXPECT_TRUE(menu.AddSeparatorItem());
    EXPECT_TRUE(menu.AddItem(new BMenu("c")));
    EXPECT_TRUE(menu.AddItem(new BMenu("between"), 2));
    EXPECT_EQ(LabelsOf(menu), "a b between()  c()");
    EXPECT_EQ(menu.CountItems(), 5);
    EXPECT_EQ(menu.IndexOf(menu.ItemAt(1)), 1);
    EXPECT_EQ(menu.IndexOf(menu.SubmenuAt(4)), 4);
    EXPECT_EQ(menu.ItemAt(1)->Menu(), &menu);
    EXPECT_EQ(menu.SubmenuAt(2)->Superitem(), menu.ItemAt(2));
    EXPECT_EQ(menu.SubmenuAt(2)->Supermenu(), &menu);
    EXPECT_EQ(menu.ItemAt(5), nullptr);
    EXPECT_EQ(menu.ItemAt(-1), nullptr);
    EXPECT_EQ(menu.SubmenuAt(0), nullptr);
    EXPECT_EQ(menu.IndexOf(static_cast<BMenuItem*>(nullptr)), -1);
    EXPECT_EQ(menu.IndexOf(static_cast<BMenu*>(nullptr)), -1);
    EXPECT_FALSE(menu.ItemAt(3)->IsEnabled());
    menu.ItemAt(3)->SetEnabled(true);
    EXPECT_FALSE(menu.ItemAt(3)->IsEnabled());
}

TEST(MenuTest, RefusesWhatItCannotTake) {
    BMenu menu("menu");
    BMenuItem loose("loose", nullptr);
    EXPECT_FALSE(menu.AddItem(static_cast<BMenuItem*>(nullptr)));
    EXPECT_FALSE(menu.AddItem(static_cast<BMenu*>(nullptr)));
    EXPECT_FALSE(menu.AddItem(&loose, -1));
    EXPECT_FALSE(menu.AddItem(&loose, 1));
    BMenu submenu("submenu");
    EXPECT_FALSE(menu.AddItem(&submenu, 2));
    EXPECT_EQ(submenu.Superitem(), nullptr);

    BMenuItem* item = PlainItem("item");
    EXPECT_TRUE(menu.AddItem(item));
    EXPECT_FALSE(menu.AddItem(item));
    BMenu* owned = new BMenu("owned");
    EXPECT_TRUE(menu.AddItem(owned));
    EXPECT_FALSE(menu.AddItem(owned));
    EXPECT_EQ(BMenuItem(owned).Submenu(), nullptr);
    EXPECT_FALSE(owned->AddItem(menu.ItemAt(1)));
    EXPECT_EQ(menu.CountItems(), 2);
}

TEST(MenuTest, DoesNotStandInItself) {
    BMenu* inner = new BMenu("inner");
    BMenuItem outer(inner);
    EXPECT_FALSE(inner->AddItem(&outer));
    BMenu* deeper = new BMenu("deeper");
    EXPECT_TRUE(inner->AddItem(deeper));
    EXPECT_FALSE(deeper->AddItem(&outer));
}

TEST(MenuTest, WhatShowsAMenuKeepsIt) {
    BMenuField field(BRect(), "field", "", new BMenu("shown"));
    BMenuBar bar(BRect(), "bar");
    BMenu menu("menu");
    EXPECT_FALSE(menu.AddItem(field.Menu()));
    EXPECT_FALSE(menu.AddItem(&bar));
}

TEST(MenuTest, OwnsItsItems) {
    int count = 0;
    {
        BMenu menu("menu");
        menu.AddItem(new CountedItem("a", count));
        auto* submenu = new BMenu("submenu");
        submenu->AddItem(new CountedItem("b", count));
        menu.AddItem(new CountedItem(submenu, count));
        EXPECT_EQ(count, 3);
    }
    EXPECT_EQ(count, 0);
}

TEST(MenuTest, GivesItemsBack) {
    int count = 0;
    BMenu menu("menu");
    for (const char* label : {"a", "b", "c", "d", "e", "f"})
        menu.AddItem(new CountedItem(label, count));

    std::unique_ptr<BMenuItem> first(menu.RemoveItem(int32{0}));
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->Menu(), nullptr);
    std::unique_ptr<BMenuItem> second(menu.ItemAt(0));
    EXPECT_TRUE(menu.RemoveItem(second.get()));
    EXPECT_FALSE(menu.RemoveItem(second.get()));
    EXPECT_EQ(LabelsOf(menu), "c d e f");
    EXPECT_EQ(count, 6);

    EXPECT_FALSE(menu.RemoveItems(2, 3, true));
    EXPECT_FALSE(menu.RemoveItems(-1, 1, true));
    EXPECT_FALSE(menu.RemoveItems(1, -1, true));
    EXPECT_TRUE(menu.RemoveItems(1, 2, true));
    EXPECT_EQ(LabelsOf(menu), "c f");
    EXPECT_EQ(count, 4);
    std::unique_ptr<BMenuItem> last(menu.ItemAt(1));
    EXPECT_TRUE(menu.RemoveItems(1, 1));
    EXPECT_EQ(count, 4);
    EXPECT_EQ(menu.RemoveItem(int32{1}), nullptr);

    EXPECT_TRUE(menu.AddItem(second.release(), 0));
    EXPECT_EQ(LabelsOf(menu), "b c");
}

TEST(MenuTest, ASubmenuIsRemovedWithoutItsItem) {
    int count = 0;
    BMenu menu("menu");
    auto submenu = std::make_unique<BMenu>("submenu");
    submenu->AddItem(new CountedItem("inside", count));
    menu.AddItem(new CountedItem(submenu.get(), count));
    EXPECT_FALSE(menu.RemoveItem(&menu));
    EXPECT_TRUE(menu.RemoveItem(submenu.get()));
    EXPECT_EQ(count, 1);
    EXPECT_EQ(submenu->Superitem(), nullptr);
    EXPECT_EQ(menu.CountItems(), 0);
    EXPECT_TRUE(menu.AddItem(submenu.release()));
}

TEST(MenuTest, WhatIsDeletedLeaves) {
    BMenu menu("menu");
    auto* submenu = new BMenu("submenu");
    menu.AddItem(submenu);
    menu.AddItem(PlainItem("item"));
    delete menu.ItemAt(1);
    EXPECT_EQ(LabelsOf(menu), "submenu()");
    delete submenu;
    EXPECT_EQ(LabelsOf(menu), "submenu");
    EXPECT_EQ(menu.SubmenuAt(0), nullptr);
}

TEST(MenuTest, FindsItemsDepthFirst) {
    BMenu menu("menu");
    auto* submenu = new BMenu("first");
    submenu->AddItem(PlainItem("deep", 'deep'));
    submenu->AddItem(PlainItem("same", 'same'));
    menu.AddItem(new BMenuItem(submenu, new BMessage('frst')));
    menu.AddItem(PlainItem("same", 'same'));
    menu.AddItem(PlainItem("last"));
    EXPECT_EQ(menu.FindItem('frst'), menu.ItemAt(0));
    EXPECT_EQ(menu.FindItem('same'), submenu->ItemAt(1));
    EXPECT_EQ(menu.FindItem("same"), submenu->ItemAt(1));
    EXPECT_EQ(menu.FindItem("last"), menu.ItemAt(2));
    EXPECT_EQ(menu.FindItem('none'), nullptr);
    EXPECT_EQ(menu.FindItem(uint32{0}), nullptr);
    EXPECT_EQ(menu.FindItem(static_cast<const char*>(nullptr)), nullptr);
}

TEST(MenuTest, WhatLiesInADisabledMenuIsDisabled) {
    BMenu menu("menu");
    auto* submenu = new BMenu("submenu");
    submenu->AddItem(PlainItem("inside"));
    menu.AddItem(submenu);
    BMenuItem* title = menu.ItemAt(0);
    BMenuItem* inside = submenu->ItemAt(0);
    EXPECT_TRUE(inside->IsEnabled());
    submenu->SetEnabled(false);
    EXPECT_FALSE(inside->IsEnabled());
    EXPECT_FALSE(title->IsEnabled());
    EXPECT_TRUE(menu.IsEnabled());
    submenu->SetEnabled(true);
    title->SetEnabled(false);
    EXPECT_FALSE(submenu->IsEnabled());
    EXPECT_FALSE(inside->IsEnabled());
    title->SetEnabled(true);
    menu.SetEnabled(false);
    EXPECT_FALSE(submenu->IsEnabled());
    EXPECT_FALSE(inside->IsEnabled());
    menu.SetEnabled(true);
    inside->SetEnabled(false);
    EXPECT_FALSE(inside->IsEnabled());
}

TEST(MenuTest, InRadioModeOneItemIsMarked) {
    BMenu menu("menu");
    for (const char* label : {"a", "b", "c"})
        menu.AddItem(PlainItem(label));
    menu.ItemAt(1)->SetMarked(true);
    menu.ItemAt(2)->SetMarked(true);
    EXPECT_TRUE(menu.ItemAt(1)->IsMarked());
    EXPECT_EQ(menu.FindMarked(), menu.ItemAt(1));

    menu.SetRadioMode(true);
    EXPECT_TRUE(menu.IsRadioMode());
    EXPECT_FALSE(menu.ItemAt(2)->IsMarked());
    menu.ItemAt(0)->SetMarked(true);
    EXPECT_EQ(menu.FindMarked(), menu.ItemAt(0));
    EXPECT_FALSE(menu.ItemAt(1)->IsMarked());

    BMenuItem* late = PlainItem("late");
    late->SetMarked(true);
    menu.AddItem(late);
    EXPECT_EQ(menu.FindMarked(), late);
    EXPECT_FALSE(menu.ItemAt(0)->IsMarked());
    late->SetMarked(false);
    EXPECT_EQ(menu.FindMarked(), nullptr);
}

TEST(MenuTest, ChoosingMarksInRadioModeAlone) {
    BMenu menu("menu");
    menu.AddItem(PlainItem("a"));
    menu.AddItem(PlainItem("b"));
    EXPECT_EQ(menu.ItemAt(0)->Invoke(), B_BAD_VALUE);
    EXPECT_EQ(menu.FindMarked(), nullptr);
    menu.SetRadioMode(true);
    (void)menu.ItemAt(0)->Invoke();
    EXPECT_EQ(menu.FindMarked(), menu.ItemAt(0));
    menu.ItemAt(1)->SetEnabled(false);
    EXPECT_EQ(menu.ItemAt(1)->Invoke(), B_NOT_ALLOWED);
    EXPECT_EQ(menu.FindMarked(), menu.ItemAt(0));
}

TEST(MenuTest, ATitleFollowsTheMark) {
    BMenu menu("menu");
    auto* size = new BMenu("Size");
    size->AddItem(PlainItem("small"));
    size->AddItem(PlainItem("large"));
    menu.AddItem(size);
    size->SetLabelFromMarked(true);
    EXPECT_TRUE(size->IsRadioMode());
    EXPECT_STREQ(menu.ItemAt(0)->Label(), "Size");
    size->ItemAt(1)->SetMarked(true);
    EXPECT_STREQ(menu.ItemAt(0)->Label(), "large");
    size->ItemAt(1)->SetLabel("huge");
    EXPECT_STREQ(menu.ItemAt(0)->Label(), "huge");
    size->SetRadioMode(false);
    EXPECT_FALSE(size->IsLabelFromMarked());
    size->ItemAt(0)->SetMarked(true);
    EXPECT_STREQ(menu.ItemAt(0)->Label(), "huge");

    BPopUpMenu* chosen = new BPopUpMenu("Choose");
    chosen->AddItem(PlainItem("one"));
    chosen->ItemAt(0)->SetMarked(true);
    EXPECT_STREQ(BMenuItem(chosen).Label(), "one");
}

TEST(MenuTest, PopUpMenusChooseOne) {
    BPopUpMenu menu("menu");
    EXPECT_TRUE(menu.IsRadioMode());
    EXPECT_TRUE(menu.IsLabelFromMarked());
    BPopUpMenu plain("menu", true, false);
    EXPECT_TRUE(plain.IsRadioMode());
    EXPECT_FALSE(plain.IsLabelFromMarked());
    BPopUpMenu many("menu", false);
    EXPECT_FALSE(many.IsRadioMode());
    EXPECT_FALSE(many.IsLabelFromMarked());
}

TEST(MenuTest, AShortcutHasCommand) {
    BMenuItem item("item", nullptr, 'O', B_SHIFT_KEY);
    uint32 modifiers = 0;
    EXPECT_EQ(item.Shortcut(&modifiers), 'O');
    EXPECT_EQ(modifiers, uint32(B_SHIFT_KEY | B_COMMAND_KEY));
    item.SetShortcut(0, B_SHIFT_KEY);
    EXPECT_EQ(item.Shortcut(&modifiers), 0);
    EXPECT_EQ(modifiers, 0U);
    EXPECT_EQ(BMenuItem("plain", nullptr).Shortcut(), 0);
}

TEST(MenuTest, WithoutATargetOrAWindowNothingIsSent) {
    BMenu menu("menu");
    menu.AddItem(PlainItem("a", 'mesg'));
    EXPECT_EQ(menu.ItemAt(0)->Invoke(), B_BAD_VALUE);
    EXPECT_EQ(BMenuItem("loose", new BMessage('mesg')).Invoke(), B_BAD_VALUE);
}
