#include "iap/IAPItemFlatToolBar.h"

#include <gtest/gtest.h>
#include <interface/CheckBox.h>
#include <memory>

#include "framework/MessageCodes.h"
#include "tests/framework/FailingDisk.h"
#include "tests/iap/SharedFiles.h"

namespace {

constexpr char kFlatToolBar[] = "FlatToolBar";

class FlatToolBarTest : public testing::Test {
protected:
    static bool IsFlat(const TIAPItem& item, bool defaults = false) {
        bool flat = defaults;
        EXPECT_EQ(item.GetBool(&flat, defaults), B_OK);
        return flat;
    }
    static BMessage Change(const char* app) {
        BMessage change(kMsgSharedItemChanged);
        change.AddString("IAP:SrcApp", app);
        change.AddString("IAP:SrcIAPItem", kFlatToolBar);
        return change;
    }
    static std::unique_ptr<BView> ViewOf(TIAPItem& item, bool defaults) {
        BView* view = nullptr;
        EXPECT_EQ(item.MakeConfigurationView(&view, defaults), B_OK);
        EXPECT_NE(view, nullptr);
        return std::unique_ptr<BView>(view);
    }
    static BCheckBox& BoxOf(const BView& view) {
        auto* box = dynamic_cast<BCheckBox*>(view.ChildAt(0));
        if (box == nullptr)
            throw std::runtime_error("no check box");
        return *box;
    }
    /// What the file says, which has to be there.
    bool Saved() const {
        const BMessage file = fFiles.Read(kFlatToolBar);
        EXPECT_TRUE(file.HasBool(kFlatToolBar));
        return file.GetBool(kFlatToolBar, false);
    }

    TSharedFiles fFiles;
};

TEST_F(FlatToolBarTest, IsFlatWithoutAFile) {
    const TIAPItemFlatToolBar item;
    EXPECT_EQ(item.Name(), kFlatToolBar);
    EXPECT_TRUE(IsFlat(item));
    EXPECT_TRUE(IsFlat(item, true));
    EXPECT_FALSE(fFiles.Has(kFlatToolBar));
}

TEST_F(FlatToolBarTest, IsLoadedWhenMade) {
    BMessage file;
    file.AddBool(kFlatToolBar, false);
    fFiles.Write(kFlatToolBar, file);
    EXPECT_FALSE(IsFlat(TIAPItemFlatToolBar()));
    EXPECT_TRUE(IsFlat(TIAPItemFlatToolBar(), true));

    file.MakeEmpty();
    file.AddString(kFlatToolBar, "false");
    fFiles.Write(kFlatToolBar, file);
    EXPECT_TRUE(IsFlat(TIAPItemFlatToolBar()));
}

TEST_F(FlatToolBarTest, IsSetWithoutBeingSaved) {
    TIAPItemFlatToolBar item;
    EXPECT_EQ(item.SetBool(false), B_OK);
    EXPECT_FALSE(IsFlat(item));
    EXPECT_TRUE(IsFlat(item, true));
    EXPECT_FALSE(fFiles.Has(kFlatToolBar));
}

TEST_F(FlatToolBarTest, IsNoString) {
    TIAPItemFlatToolBar item;
    std::string text;
    EXPECT_EQ(item.GetString(&text, false), -1);
    EXPECT_EQ(item.GetString(&text, true), -1);
    EXPECT_EQ(item.SetString("true"), -1);
}

TEST_F(FlatToolBarTest, DescribesItselfAsAChange) {
    TIAPItemFlatToolBar item;
    (void)item.SetAppSignatureRef(kOwnApp);
    (void)item.SetBool(false);
    BMessage message;
    EXPECT_EQ(item.GetValue(&message, false), B_OK);
    EXPECT_EQ(message.what, kMsgSharedItemChanged);
    EXPECT_EQ(message.CountNames(B_ANY_TYPE), 3);
    EXPECT_STREQ(message.GetString("IAP:SrcApp"), kOwnApp);
    EXPECT_STREQ(message.GetString("IAP:SrcIAPItem"), kFlatToolBar);
    EXPECT_TRUE(message.HasBool(kFlatToolBar));
    EXPECT_FALSE(message.GetBool(kFlatToolBar, true));

    BMessage defaults;
    EXPECT_EQ(item.GetValue(&defaults, true), B_OK);
    EXPECT_TRUE(defaults.GetBool(kFlatToolBar, false));
}

TEST_F(FlatToolBarTest, SavesAChangeOfAnyApplication) {
    TIAPItemFlatToolBar item;
    (void)item.SetAppSignatureRef(kOwnApp);
    bool flat = true;
    for (const char* app : {kOwnApp, kOtherApp, kOwnApp, kOtherApp}) {
        flat = !flat;
        BMessage change = Change(app);
        change.AddBool(kFlatToolBar, flat);
        EXPECT_EQ(item.SetValue(change), B_OK);
        EXPECT_EQ(IsFlat(item), flat);
        EXPECT_EQ(Saved(), flat);
        // By whom the file was written, not by whom the change was made.
        EXPECT_STREQ(fFiles.Read(kFlatToolBar).GetString("IAP:SrcApp"), kOwnApp);
    }
}

TEST_F(FlatToolBarTest, TakesTheValueOfTheArchivedCheckBoxWithoutOneOfItsOwn) {
    TIAPItemFlatToolBar item;
    for (const bool flat : {false, true, false}) {
        TIAPItemFlatToolBar shown;
        (void)shown.SetBool(flat);
        BMessage change = Change(kOtherApp);
        ASSERT_EQ(ViewOf(shown, false)->Archive(&change, true), B_OK);
        ASSERT_FALSE(change.HasBool(kFlatToolBar));
        EXPECT_EQ(item.SetValue(change), B_OK);
        EXPECT_EQ(IsFlat(item), flat);
        EXPECT_EQ(Saved(), flat);
    }
}

TEST_F(FlatToolBarTest, CountsAnyNumberButZeroAsOn) {
    TIAPItemFlatToolBar item;
    for (const int32 value : {0, 1, 0, 2, 0, -1, 0, INT32_MIN}) {
        BMessage box;
        box.AddInt32("_val", value);
        BMessage change = Change(kOtherApp);
        change.AddMessage("_views", &box);
        EXPECT_EQ(item.SetValue(change), B_OK);
        EXPECT_EQ(IsFlat(item), value != 0) << value;
    }
}

TEST_F(FlatToolBarTest, LooksAtTheFirstArchivedViewOnly) {
    TIAPItemFlatToolBar item;
    BMessage off;
    BMessage on;
    on.AddInt32("_val", 1);
    BMessage change = Change(kOtherApp);
    change.AddMessage("_views", &off);
    change.AddMessage("_views", &on);
    EXPECT_EQ(item.SetValue(change), B_OK);
    EXPECT_FALSE(IsFlat(item));
}

TEST_F(FlatToolBarTest, PrefersItsOwnFieldToTheCheckBox) {
    TIAPItemFlatToolBar item;
    BMessage box;
    box.AddInt32("_val", 1);
    BMessage change = Change(kOtherApp);
    change.AddMessage("_views", &box);
    change.AddBool(kFlatToolBar, false);
    EXPECT_EQ(item.SetValue(change), B_OK);
    EXPECT_FALSE(IsFlat(item));
    EXPECT_FALSE(Saved());

    // A field that is no bool is none.
    change.RemoveName(kFlatToolBar);
    change.AddString(kFlatToolBar, "false");
    EXPECT_EQ(item.SetValue(change), B_OK);
    EXPECT_TRUE(IsFlat(item));
}

TEST_F(FlatToolBarTest, KeepsAndSavesItsValueWhenAChangeHasNone) {
    TIAPItemFlatToolBar item;
    for (const bool flat : {false, true}) {
        (void)item.SetBool(flat);
        BMessage change = Change(kOtherApp);
        EXPECT_EQ(item.SetValue(change), B_OK);
        change.AddString("_views", "no message");
        EXPECT_EQ(item.SetValue(change), B_OK);
        EXPECT_EQ(IsFlat(item), flat);
        EXPECT_EQ(Saved(), flat);
    }
}

TEST_F(FlatToolBarTest, KeepsItsValueWhenItCannotBeSaved) {
    TIAPItemFlatToolBar item;
    fFiles.MakeFolder();
    std::filesystem::create_directory(fFiles.PathOf(kFlatToolBar));
    BMessage change = Change(kOtherApp);
    change.AddBool(kFlatToolBar, false);
    EXPECT_EQ(item.SetValue(change), B_OK);
    EXPECT_FALSE(IsFlat(item));
}

TEST_F(FlatToolBarTest, LeavesTheFileAloneOnAFullOrReadOnlyDisk) {
    TIAPItemFlatToolBar item;
    (void)item.SetAppSignatureRef(kOwnApp);
    BMessage change = Change(kOwnApp);
    change.AddBool(kFlatToolBar, true);
    ASSERT_EQ(item.SetValue(change), B_OK);
    const std::string before = read_text(fFiles.PathOf(kFlatToolBar));
    ASSERT_FALSE(before.empty());
    const auto folder = std::filesystem::path(fFiles.PathOf(kFlatToolBar)).parent_path();
    change.ReplaceBool(kFlatToolBar, false);
    {
        const TFullDisk full;
        EXPECT_EQ(item.SetValue(change), B_OK);
        EXPECT_EQ(item.SaveBool(false), -1);
    }
    {
        const TReadOnlyFolder readOnly(folder);
        EXPECT_EQ(item.SetValue(change), B_OK);
        EXPECT_EQ(item.SaveBool(false), -1);
    }
    EXPECT_FALSE(IsFlat(item));
    EXPECT_EQ(read_text(fFiles.PathOf(kFlatToolBar)), before);
    EXPECT_EQ(file_names_in(folder), std::set<std::string>{std::string(kFlatToolBar) + ".arc"});
}

TEST_F(FlatToolBarTest, IsChosenByACheckBox) {
    TIAPItemFlatToolBar item;
    (void)item.SetAppSignatureRef(kOwnApp);
    const auto view = ViewOf(item, false);
    EXPECT_STREQ(view->Name(), kFlatToolBar);
    EXPECT_EQ(view->CountChildren(), 1);
    const BCheckBox& box = BoxOf(*view);
    EXPECT_STREQ(box.Name(), "FFlat Tool Bar");
    EXPECT_STREQ(box.Label(), "");
    EXPECT_EQ(box.Frame(), BRect(0, 0, 250, 16));
    ASSERT_NE(box.Message(), nullptr);
    EXPECT_EQ(box.Message()->what, kMsgSharedControlChanged);
    EXPECT_EQ(box.Message()->CountNames(B_ANY_TYPE), 2);
    EXPECT_STREQ(box.Message()->GetString("IAP:SrcApp"), kOwnApp);
    EXPECT_STREQ(box.Message()->GetString("IAP:SrcIAPItem"), kFlatToolBar);
}

TEST_F(FlatToolBarTest, ShowsTheCurrentValueOrTheDefault) {
    TIAPItemFlatToolBar item;
    EXPECT_EQ(BoxOf(*ViewOf(item, false)).Value(), B_CONTROL_ON);
    (void)item.SetBool(false);
    EXPECT_EQ(BoxOf(*ViewOf(item, false)).Value(), B_CONTROL_OFF);
    EXPECT_EQ(BoxOf(*ViewOf(item, true)).Value(), B_CONTROL_ON);
}

}  // namespace
