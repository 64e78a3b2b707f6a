#include "iap/ComponentArchive.h"

#include <gtest/gtest.h>
#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/PopUpMenu.h>
#include <interface/RadioButton.h>
#include <interface/StringView.h>
#include <interface/TextControl.h>
#include <limits>

#include "iap/IAPItemAccKeyFormat.h"
#include "iap/IAPItemFlatToolBar.h"
#include "iap/InterAppPrefs.h"
#include "tests/iap/Components.h"
#include "tests/iap/components/ComponentsOfOthers.h"

namespace {

constexpr char kItem[] = "Item";
constexpr BRect kFrame(0, 0, 99, 19);

BMessage good_archive() {
    return check_box_archive(kItem, true);
}

BMessage menu_archive(int32 items) {
    auto* menu = new BPopUpMenu("Select...");
    for (int32 i = 0; i < items; i++)
        menu->AddItem(new BMenuItem("one", control_message(kItem)));
    auto* view = new BView(kFrame, kItem, B_FOLLOW_NONE, 0);
    view->AddChild(new BMenuField(kFrame, "MMenu", "", menu));
    return archive_of(kItem, view);
}

/// So many containers, one in the other.
BMessage deep_archive(int depth) {
    BView* inner = new BView(kFrame, "inner", B_FOLLOW_NONE, 0);
    for (int i = 2; i < depth; i++) {
        auto* outer = new BView(kFrame, "outer", B_FOLLOW_NONE, 0);
        outer->AddChild(inner);
        inner = outer;
    }
    auto* view = new BView(kFrame, kItem, B_FOLLOW_NONE, 0);
    view->AddChild(inner);
    return archive_of(kItem, view);
}

BMessage wide_archive(int views) {
    auto* view = new BView(kFrame, kItem, B_FOLLOW_NONE, 0);
    for (int i = 1; i < views; i++)
        view->AddChild(new BView(kFrame, "child", B_FOLLOW_NONE, 0));
    return archive_of(kItem, view);
}

TEST(ComponentArchiveTest, ThoseOfTheItemsAreGood) {
    const TSharedFiles files;
    TInterAppPrefs store;
    (void)store.SetAppSignatureRef(kOwnApp);
    (void)store.AddItem(new TIAPItemFlatToolBar);
    (void)store.AddItem(new TIAPItemAccKeyFormat);
    BMessage request;
    store.MakeComponents(&request);
    for (const char* name : {"AccKeyFormat2", "FlatToolBar"}) {
        for (int32 i = 0; i < 3; i++) {
            BMessage archive;
            ASSERT_EQ(request.FindMessage(name, i, &archive), B_OK);
            EXPECT_TRUE(is_component_archive(archive, name)) << name << " " << i;
            EXPECT_FALSE(is_component_archive(archive, "Other"));
        }
    }
}

TEST(ComponentArchiveTest, EveryKindOfControlIsGood) {
    auto* view = new BView(kFrame, kItem, B_FOLLOW_NONE, 0);
    auto* box = new BBox(kFrame, "Box");
    view->AddChild(box);
    box->AddChild(new BButton(kFrame, "BButton", "", control_message(kItem)));
    box->AddChild(new BRadioButton(kFrame, "RRadio", "", control_message(kItem)));
    box->AddChild(new BStringView(kFrame, "Text", "text"));
    auto* text = new BTextControl(kFrame, "TText", "", "", control_message(kItem));
    text->SetModificationMessage(control_message(kItem));
    box->AddChild(text);
    auto* menu = new BPopUpMenu("Select...");
    menu->AddSeparatorItem();
    auto* submenu = new BMenu("more");
    submenu->AddItem(new BMenuItem("one", control_message(kItem)));
    menu->AddItem(submenu);
    view->AddChild(new BMenuField(kFrame, "MMenu", "", menu));
    BMessage archive = archive_of(kItem, view);
    EXPECT_TRUE(is_component_archive(archive, kItem));

    BMessage slider;
    slider.AddString("class", "BSlider");
    slider.AddString("_name", "SSlider");
    slider.AddRect("_frame", kFrame);
    slider.AddInt32("_hashcount", 11);
    archive.AddMessage("_views", &slider);
    EXPECT_TRUE(is_component_archive(archive, kItem));
    slider.ReplaceInt32("_hashcount", INT32_MAX);
    BMessage bad = archive;
    bad.AddMessage("_views", &slider);
    EXPECT_FALSE(is_component_archive(bad, kItem));
    // Archives may have the number in 16 bits, too.
    slider.RemoveName("_hashcount");
    slider.AddInt16("_hashcount", 11);
    archive.AddMessage("_views", &slider);
    EXPECT_TRUE(is_component_archive(archive, kItem));
    slider.ReplaceInt16("_hashcount", INT16_MAX);
    archive.AddMessage("_views", &slider);
    EXPECT_FALSE(is_component_archive(archive, kItem));
}

TEST(ComponentArchiveTest, ThoseOfOtherApplicationsAreGood) {
    for (const BMessage& archive : components_of_others()) {
        const std::string item = archive.GetString("IAP:SrcIAPItem", "");
        EXPECT_TRUE(is_component_archive(archive, item.c_str())) << item;
    }
}

TEST(ComponentArchiveTest, LimitsAreInclusive) {
    EXPECT_TRUE(is_component_archive(deep_archive(8), kItem));
    EXPECT_FALSE(is_component_archive(deep_archive(9), kItem));
    EXPECT_TRUE(is_component_archive(wide_archive(64), kItem));
    EXPECT_FALSE(is_component_archive(wide_archive(65), kItem));
    EXPECT_TRUE(is_component_archive(menu_archive(500), kItem));
    EXPECT_FALSE(is_component_archive(menu_archive(1025), kItem));

    BMessage archive = good_archive();
    archive.AddString("text", std::string(255, 'x').c_str());
    EXPECT_TRUE(is_component_archive(archive, kItem));
    archive.AddString("text", std::string(256, 'x').c_str());
    EXPECT_FALSE(is_component_archive(archive, kItem));

    archive = good_archive();
    const std::string bytes(256 * 1024, 'x');
    archive.AddData("bytes", B_RAW_TYPE, bytes.data(), static_cast<ssize_t>(bytes.size()));
    EXPECT_FALSE(is_component_archive(archive, kItem));
}

using Change = std::function<void(BMessage&)>;

/// In the archive of the check box in the container.
Change in_box(const Change& change) {
    return [change](BMessage& archive) { change_part(archive, "_views", change); };
}

Change in_box_message(const Change& change) {
    return in_box([change](BMessage& box) { change_part(box, "_msg", change); });
}

const float kNaN = std::numeric_limits<float>::quiet_NaN();
const float kInfinity = std::numeric_limits<float>::infinity();

const std::pair<const char*, Change> kBadChanges[] = {
    {"another command", [](BMessage& m) { m.what = kMsgOK; }},
    {"no item", [](BMessage& m) { m.RemoveName("IAP:SrcIAPItem"); }},
    {"another item", [](BMessage& m) { m.ReplaceString("IAP:SrcIAPItem", "Other"); }},
    {"an item that is no text",
        [](BMessage& m) {
            m.RemoveName("IAP:SrcIAPItem");
            m.AddInt32("IAP:SrcIAPItem", 1);
        }},
    {"no view's name", [](BMessage& m) { m.RemoveName("_name"); }},
    {"another view's name", [](BMessage& m) { m.ReplaceString("_name", "ButtonContainer"); }},
    {"no class", [](BMessage& m) { m.RemoveName("class"); }},
    {"an unknown class", [](BMessage& m) { m.ReplaceString("class", "TMyView"); }},
    {"a class of one's own first",
        [](BMessage& m) {
            m.ReplaceString("class", "TMyView");
            m.AddString("class", "BView");
        }},
    {"a window", [](BMessage& m) { m.ReplaceString("class", "BWindow"); }},
    {"a control alone", [](BMessage& m) { m.ReplaceString("class", "BCheckBox"); }},
    {"a menu alone", [](BMessage& m) { m.ReplaceString("class", "BMenu"); }},
    {"no frame", [](BMessage& m) { m.RemoveName("_frame"); }},
    {"a frame that is none",
        [](BMessage& m) {
            m.RemoveName("_frame");
            m.AddString("_frame", "0, 0, 1, 1");
        }},
    {"a frame of no number", [](BMessage& m) { m.ReplaceRect("_frame", BRect(0, 0, kNaN, 9)); }},
    {"an endless frame", [](BMessage& m) { m.ReplaceRect("_frame", BRect(0, 0, 9, kInfinity)); }},
    {"a huge frame", [](BMessage& m) { m.ReplaceRect("_frame", BRect(0, 0, 1e9F, 9)); }},
    {"a frame far away", [](BMessage& m) { m.ReplaceRect("_frame", BRect(1e9F, 0, 1e9F, 9)); }},
    {"a tall frame", [](BMessage& m) { m.ReplaceRect("_frame", BRect(0, 0, 9, 501)); }},
    {"an empty frame", [](BMessage& m) { m.ReplaceRect("_frame", BRect(0, 0, -1, -1)); }},
    {"a huge font", [](BMessage& m) { m.ReplaceFloat("_fsize", 1e6F); }},
    {"a font of no size", [](BMessage& m) { m.ReplaceFloat("_fsize", 0.0F); }},
    {"a font of no number", [](BMessage& m) { m.ReplaceFloat("_fsize", kNaN); }},
    {"a number that is none", [](BMessage& m) { m.AddFloat("_divide", kNaN); }},
    {"views that are none",
        [](BMessage& m) {
            m.RemoveName("_views");
            m.AddString("_views", "BView");
        }},
    {"an unknown class within", in_box([](BMessage& m) { m.ReplaceString("class", "TMyView"); })},
    {"a scroll bar within", in_box([](BMessage& m) { m.ReplaceString("class", "BScrollBar"); })},
    {"a menu within", in_box([](BMessage& m) { m.ReplaceString("class", "BPopUpMenu"); })},
    {"an item within", in_box([](BMessage& m) { m.ReplaceString("class", "BMenuItem"); })},
    {"a huge frame within",
        in_box([](BMessage& m) { m.ReplaceRect("_frame", BRect(0, 0, 1e9F, 9)); })},
    {"a long label within",
        in_box([](BMessage& m) { m.ReplaceString("_label", std::string(9999, 'x').c_str()); })},
    {"a view in a control", in_box([](BMessage& m) {
         const BMessage child = good_archive();
         m.AddMessage("_views", &child);
     })},
    {"another control's command", in_box_message([](BMessage& m) { m.what = kMsgOK; })},
    {"the command to quit", in_box_message([](BMessage& m) { m.what = '_QRQ'; })},
    {"another item's control",
        in_box_message([](BMessage& m) { m.ReplaceString("IAP:SrcIAPItem", "Other"); })},
    {"a class in the control's message",
        in_box_message([](BMessage& m) { m.AddString("class", "TMyView"); })},
    {"views in the control's message", in_box_message([](BMessage& m) {
         const BMessage child = good_archive();
         m.AddMessage("_views", &child);
     })},
    {"a message that is none", in_box([](BMessage& m) {
         m.RemoveName("_msg");
         m.AddInt32("_msg", 1);
     })},
    {"a second message", in_box([](BMessage& m) {
         const BMessage ok(kMsgOK);
         m.AddMessage("_mod_msg", &ok);
     })},
};

TEST(ComponentArchiveTest, BadOnesAreRefused) {
    ASSERT_TRUE(is_component_archive(good_archive(), kItem));
    for (const auto& [what, change] : kBadChanges) {
        BMessage archive = good_archive();
        change(archive);
        EXPECT_FALSE(is_component_archive(archive, kItem)) << what;
    }
    EXPECT_FALSE(is_component_archive(BMessage(), kItem));
    EXPECT_FALSE(is_component_archive(check_box_archive("", true), ""));
}

/// Within the menu of a menu field.
Change in_menu(const Change& change) {
    return in_box([change](BMessage& field) { change_part(field, "_views", change); });
}

Change in_item(const Change& change) {
    return in_menu([change](BMessage& menu) { change_part(menu, "_items", change); });
}

const std::pair<const char*, Change> kBadMenus[] = {
    {"no menu", in_menu([](BMessage& m) { m.ReplaceString("class", "BView"); })},
    {"two menus", in_box([](BMessage& m) {
         BMessage menu;
         (void)m.FindMessage("_views", &menu);
         m.AddMessage("_views", &menu);
     })},
    {"an item that is a view", in_item([](BMessage& m) { m.ReplaceString("class", "BView"); })},
    {"an item of another class", in_item([](BMessage& m) { m.ReplaceString("class", "TItem"); })},
    {"an item's command", in_item([](BMessage& m) {
         change_part(m, "_msg", [](BMessage& message) { message.what = kMsgCancel; });
     })},
    {"a submenu that is a view", in_item([](BMessage& m) {
         const BMessage view = good_archive();
         m.AddMessage("_submenu", &view);
     })},
    {"a view in a menu", in_menu([](BMessage& m) {
         const BMessage view = good_archive();
         m.AddMessage("_views", &view);
     })},
};

TEST(ComponentArchiveTest, BadMenusAreRefused) {
    ASSERT_TRUE(is_component_archive(menu_archive(2), kItem));
    for (const auto& [what, change] : kBadMenus) {
        BMessage archive = menu_archive(2);
        change(archive);
        EXPECT_FALSE(is_component_archive(archive, kItem)) << what;
    }
}

}  // namespace
