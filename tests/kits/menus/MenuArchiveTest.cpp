#include <app/Message.h>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>
#include <interface/MenuBar.h>
#include <interface/MenuField.h>
#include <interface/PopUpMenu.h>
#include <limits>
#include <memory>

namespace {

BMessage Archived(const BArchivable& object, bool deep = true) {
    BMessage archive;
    EXPECT_EQ(object.Archive(&archive, deep), B_OK);
    return archive;
}

template <typename Class>
std::unique_ptr<Class> MadeFrom(BMessage archive) {
    BArchivable* object = instantiate_object(&archive);
    auto* made = dynamic_cast<Class*>(object);
    if (made == nullptr)
        delete object;
    EXPECT_NE(made, nullptr);
    return std::unique_ptr<Class>(made);
}

}  // namespace

TEST(MenuArchiveTest, Items) {
    BMenuItem item("Open", new BMessage('open'), 'O', B_SHIFT_KEY);
    item.SetTrigger('p');
    item.SetMarked(true);
    item.SetEnabled(false);
    const BMessage archive = Archived(item);
    EXPECT_STREQ(archive.GetString("class"), "BMenuItem");
    EXPECT_STREQ(archive.GetString("_label"), "Open");
    EXPECT_TRUE(archive.GetBool("_disable"));
    EXPECT_TRUE(archive.GetBool("_marked"));
    EXPECT_EQ(archive.GetInt32("_trig", 0), 'p');
    EXPECT_EQ(archive.GetInt32("_shortcut", 0), 'O');
    EXPECT_EQ(archive.GetInt32("_mods", 0), int32(B_SHIFT_KEY | B_COMMAND_KEY));

    const auto copy = MadeFrom<BMenuItem>(archive);
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy->Label(), "Open");
    EXPECT_EQ(copy->Command(), uint32('open'));
    EXPECT_EQ(copy->Trigger(), 'p');
    EXPECT_TRUE(copy->IsMarked());
    EXPECT_FALSE(copy->IsEnabled());
    uint32 modifiers = 0;
    EXPECT_EQ(copy->Shortcut(&modifiers), 'O');
    EXPECT_EQ(modifiers, uint32(B_SHIFT_KEY | B_COMMAND_KEY));

    const auto separator = MadeFrom<BSeparatorItem>(Archived(BSeparatorItem()));
    ASSERT_NE(separator, nullptr);
    EXPECT_FALSE(separator->IsEnabled());
}

TEST(MenuArchiveTest, Trees) {
    BMenuBar bar(BRect(1, 2, 3, 4), "bar", B_FOLLOW_NONE, B_ITEMS_IN_ROW, false);
    auto* file = new BMenu("File");
    file->AddItem(new BMenuItem("Quit", new BMessage('quit')));
    file->AddSeparatorItem();
    file->SetEnabled(false);
    bar.AddItem(new BMenuItem(file, new BMessage('file')));
    auto* size = new BPopUpMenu("Size");
    size->AddItem(new BMenuItem("small", nullptr));
    size->AddItem(new BMenuItem("large", nullptr));
    size->ItemAt(1)->SetMarked(true);
    bar.AddItem(size);

    const auto copy = MadeFrom<BMenuBar>(Archived(bar));
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy->Name(), "bar");
    EXPECT_EQ(copy->Frame(), BRect(1, 2, 3, 4));
    EXPECT_EQ(copy->Layout(), B_ITEMS_IN_ROW);
    EXPECT_FALSE(Archived(*copy).GetBool("_rsize_to_fit", true));
    ASSERT_EQ(copy->CountItems(), 2);
    EXPECT_EQ(copy->FindItem("Quit")->Command(), uint32('quit'));
    EXPECT_EQ(copy->ItemAt(0)->Command(), uint32('file'));
    EXPECT_FALSE(copy->SubmenuAt(0)->IsEnabled());
    EXPECT_NE(dynamic_cast<BSeparatorItem*>(copy->SubmenuAt(0)->ItemAt(1)), nullptr);
    auto* choice = dynamic_cast<BPopUpMenu*>(copy->SubmenuAt(1));
    ASSERT_NE(choice, nullptr);
    EXPECT_TRUE(choice->IsLabelFromMarked());
    EXPECT_EQ(choice->FindMarked(), choice->ItemAt(1));
    EXPECT_EQ(choice->Supermenu(), copy.get());
    EXPECT_STREQ(copy->ItemAt(1)->Label(), "large");

    const auto shallow = MadeFrom<BMenuBar>(Archived(bar, false));
    ASSERT_NE(shallow, nullptr);
    EXPECT_EQ(shallow->CountItems(), 0);
}

TEST(MenuArchiveTest, Fields) {
    auto* menu = new BPopUpMenu("Choose");
    menu->AddItem(new BMenuItem("one", nullptr));
    BMenuField field(BRect(0, 0, 99, 19), "field", "Format:", menu, true);
    field.SetDivider(33);
    field.SetEnabled(false);
    const auto copy = MadeFrom<BMenuField>(Archived(field));
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy->Label(), "Format:");
    EXPECT_EQ(copy->Divider(), 33);
    EXPECT_FALSE(copy->IsEnabled());
    EXPECT_EQ(copy->CountChildren(), 0);
    ASSERT_NE(copy->Menu(), nullptr);
    EXPECT_NE(copy->Menu()->FindItem("one"), nullptr);
    EXPECT_TRUE(Archived(*copy).GetBool("be:fixeds"));

    const auto shallow = MadeFrom<BMenuField>(Archived(field, false));
    ASSERT_NE(shallow, nullptr);
    EXPECT_EQ(shallow->Menu(), nullptr);
    EXPECT_EQ(shallow->MenuItem(), nullptr);
}

TEST(MenuArchiveTest, NothingComesOfNothing) {
    for (const char* name :
        {"BMenuItem", "BSeparatorItem", "BMenu", "BMenuBar", "BPopUpMenu", "BMenuField"}) {
        BMessage archive;
        (void)archive.AddString("class", name);
        EXPECT_NE(MadeFrom<BArchivable>(archive), nullptr) << name;
        BMessage none;
        (void)none.AddString("class", "BView");
        EXPECT_EQ(find_instantiation_func(name)(&none), nullptr) << name;
    }
}

TEST(MenuArchiveTest, FieldsOfOtherTypesAreMissing) {
    for (const char* name : {"BMenuItem", "BMenu", "BMenuBar", "BPopUpMenu", "BMenuField"}) {
        BMessage archive;
        (void)archive.AddString("class", name);
        for (const char* field : {"_label", "_disable", "_marked", "_trig", "_shortcut", "_mods",
                 "_msg", "_submenu", "_layout", "_radio", "_dyn_label", "_items", "_divide"})
            (void)archive.AddPoint(field, BPoint(1, 2));
        EXPECT_NE(MadeFrom<BArchivable>(archive), nullptr) << name;
    }
}

TEST(MenuArchiveTest, WrongValuesAreLeftOut) {
    BMessage item;
    (void)item.AddString("class", "BMenuItem");
    (void)item.AddInt32("_shortcut", 0x1234);
    (void)item.AddInt32("_trig", -1);
    const BMessage view = Archived(BView(BRect(), "view", 0, 0));
    (void)item.AddMessage("_submenu", &view);
    const auto made = MadeFrom<BMenuItem>(item);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->Shortcut(), 0);
    EXPECT_EQ(made->Trigger(), 0);
    EXPECT_EQ(made->Submenu(), nullptr);

    BMessage menu;
    (void)menu.AddString("class", "BMenu");
    (void)menu.AddInt32("_layout", 99);
    (void)menu.AddMessage("_items", &view);
    BMessage unknown;
    (void)unknown.AddString("class", "BNothing");
    (void)menu.AddMessage("_items", &unknown);
    (void)menu.AddMessage("_items", &item);
    const auto madeMenu = MadeFrom<BMenu>(menu);
    ASSERT_NE(madeMenu, nullptr);
    EXPECT_EQ(madeMenu->CountItems(), 1);
    EXPECT_EQ(madeMenu->Layout(), B_ITEMS_IN_COLUMN);

    BMessage bar = Archived(BMenuBar(BRect(), "bar"));
    BMessage holder;
    (void)holder.AddString("class", "BMenuItem");
    (void)holder.AddMessage("_submenu", &bar);
    EXPECT_EQ(MadeFrom<BMenuItem>(holder)->Submenu(), nullptr);

    BMessage field;
    (void)field.AddString("class", "BMenuField");
    (void)field.AddFloat("_divide", std::numeric_limits<float>::quiet_NaN());
    (void)field.AddMessage("_views", &view);
    const auto madeField = MadeFrom<BMenuField>(field);
    ASSERT_NE(madeField, nullptr);
    EXPECT_EQ(madeField->Divider(), 0);
    EXPECT_EQ(madeField->Menu(), nullptr);
}

TEST(MenuArchiveTest, AMenuTooDeepToArchiveSaysSo) {
    BMenu menu("menu");
    BMenu* inner = &menu;
    for (int i = 0; i < 100; i++) {
        auto* next = new BMenu("deeper");
        inner->AddItem(next);
        inner = next;
    }
    BMessage archive;
    EXPECT_NE(menu.Archive(&archive), B_OK);
}
