#include <gtest/gtest.h>
#include <interface/CheckBox.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <memory>

#include "iap/IAPItemAccKeyFormat.h"
#include "iap/IAPItemFlatToolBar.h"
#include "iap/InterAppPrefs.h"
#include "tests/iap/TestItem.h"

namespace {

constexpr char kFormatItem[] = "AccKeyFormat2";
constexpr char kFlatItem[] = "FlatToolBar";

/// An item with a view and no value.
class TViewItem : public TIAPItem {
public:
    TViewItem(const std::string& name, const std::string& viewName, int* views)
        : TIAPItem(name), fViewName(viewName), fViews(views) {}

    status_t MakeConfigurationView(BView** view, bool defaults) override {
        *view = new TCountedView(fViewName + (defaults ? " default" : ""), fViews);
        return B_OK;
    }

private:
    struct TCountedView : BView {
        TCountedView(const std::string& name, int* views)
            : BView(BRect(0, 0, 9, 9), name.c_str(), B_FOLLOW_NONE, 0), fViews(views) {
            ++*fViews;
        }
        ~TCountedView() override { --*fViews; }
        int* fViews;
    };

    std::string fViewName;
    int* fViews;
};

/// An item that has said it made a view and did not.
class TBrokenItem : public TIAPItem {
public:
    TBrokenItem() : TIAPItem("Broken") {}
    status_t MakeConfigurationView(BView** /*view*/, bool /*defaults*/) override { return B_OK; }
};

class ComponentsTest : public testing::Test {
protected:
    ComponentsTest() { (void)fStore.SetAppSignatureRef(kOwnApp); }

    void AddItems(TInterAppPrefs& store) {
        // Not in the order of their names.
        (void)store.AddItem(new TIAPItemFlatToolBar);
        (void)store.AddItem(new TIAPItemAccKeyFormat);
    }
    BMessage Request() const {
        BMessage request('else');
        request.AddInt32("before", 1);
        fStore.MakeComponents(&request);
        return request;
    }
    static BMessage ArchiveAt(const BMessage& request, const char* name, int32 index) {
        BMessage archive;
        EXPECT_EQ(request.FindMessage(name, index, &archive), B_OK) << name << " " << index;
        return archive;
    }
    static std::unique_ptr<BView> ViewFrom(BMessage archive) {
        auto view = std::unique_ptr<BView>(dynamic_cast<BView*>(instantiate_object(&archive)));
        EXPECT_NE(view, nullptr);
        return view;
    }

    TSharedFiles fFiles;
    TInterAppPrefs fStore;
};

TEST_F(ComponentsTest, AreNoneWithoutItems) {
    const BMessage request = Request();
    EXPECT_EQ(request.what, kMsgAddSharedComponents);
    EXPECT_TRUE(request.IsEmpty());
}

TEST_F(ComponentsTest, HaveThreeArchivesEachInTheOrderOfTheNames) {
    AddItems(fStore);
    const BMessage request = Request();
    EXPECT_EQ(request.what, kMsgAddSharedComponents);
    EXPECT_EQ(request.CountNames(B_ANY_TYPE), 2);
    for (const auto& [position, expected] : {std::pair(0, kFormatItem), std::pair(1, kFlatItem)}) {
        char* name = nullptr;
        type_code type = 0;
        int32 count = 0;
        ASSERT_EQ(request.GetInfo(B_ANY_TYPE, position, &name, &type, &count), B_OK);
        EXPECT_STREQ(name, expected);
        EXPECT_EQ(type, static_cast<type_code>(B_MESSAGE_TYPE));
        EXPECT_EQ(count, 3);
    }
}

TEST_F(ComponentsTest, AreTheCurrentValueTwiceAndTheDefault) {
    AddItems(fStore);
    (void)fStore.SetString(kFormatItem, "\1a - ");
    (void)fStore.SetBool(kFlatItem, false);
    const BMessage request = Request();
    for (const int32 index : {0, 1, 2}) {
        const BMessage format = ArchiveAt(request, kFormatItem, index);
        EXPECT_STREQ(format.GetString(kFormatItem), index < 2 ? "\1a - " : "\2(a)");
        const auto formatView = ViewFrom(format);
        const auto* field = dynamic_cast<BMenuField*>(formatView->ChildAt(0));
        ASSERT_NE(field, nullptr);
        ASSERT_NE(field->MenuItem(), nullptr);
        EXPECT_STREQ(field->MenuItem()->Label(), index < 2 ? "a - " : "(a)");

        const BMessage flat = ArchiveAt(request, kFlatItem, index);
        ASSERT_TRUE(flat.HasBool(kFlatItem));
        EXPECT_EQ(flat.GetBool(kFlatItem, false), index == 2);
        const auto flatView = ViewFrom(flat);
        const auto* box = dynamic_cast<BCheckBox*>(flatView->ChildAt(0));
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->Value(), index < 2 ? B_CONTROL_OFF : B_CONTROL_ON);
    }
}

TEST_F(ComponentsTest, AreCompleteChanges) {
    AddItems(fStore);
    (void)fStore.SetString(kFormatItem, "\1a - ");
    (void)fStore.SetBool(kFlatItem, false);
    const BMessage request = Request();
    for (const int32 index : {0, 1, 2}) {
        TInterAppPrefs other;
        (void)other.SetAppSignatureRef(kOtherApp);
        AddItems(other);
        (void)other.SetString(kFormatItem, "");
        (void)other.SetBool(kFlatItem, index < 2);
        for (const char* name : {kFormatItem, kFlatItem}) {
            const BMessage archive = ArchiveAt(request, name, index);
            EXPECT_EQ(archive.what, kMsgSharedItemChanged);
            EXPECT_STREQ(archive.GetString("IAP:SrcApp"), kOwnApp);
            EXPECT_STREQ(archive.GetString("IAP:SrcIAPItem"), name);
            EXPECT_FALSE(archive.HasString("IAP:SrcIAPItem", 1));
            EXPECT_EQ(other.SetValue(archive), B_OK);
        }
        std::string format;
        bool flat = false;
        EXPECT_EQ(other.GetString(kFormatItem, &format), B_OK);
        EXPECT_EQ(other.GetBool(kFlatItem, &flat), B_OK);
        EXPECT_EQ(format, index < 2 ? "\1a - " : "\2(a)");
        EXPECT_EQ(flat, index == 2);
    }
}

TEST_F(ComponentsTest, SurviveTheWayToAnotherApplication) {
    AddItems(fStore);
    const BMessage request = Request();
    std::string bytes(static_cast<size_t>(request.FlattenedSize()), '\0');
    ASSERT_EQ(request.Flatten(bytes.data(), static_cast<ssize_t>(bytes.size())), B_OK);
    BMessage received;
    ASSERT_EQ(received.Unflatten(bytes.data(), static_cast<ssize_t>(bytes.size())), B_OK);
    EXPECT_EQ(received.what, kMsgAddSharedComponents);
    for (const char* name : {kFormatItem, kFlatItem})
        EXPECT_STREQ(ViewFrom(ArchiveAt(received, name, 2))->Name(), name);
}

TEST_F(ComponentsTest, StandUnderTheNamesOfTheirViews) {
    int views = 0;
    (void)fStore.AddItem(new TViewItem("Item", "View", &views));
    const BMessage request = Request();
    EXPECT_EQ(request.CountNames(B_ANY_TYPE), 2);
    EXPECT_TRUE(request.HasMessage("View", 1));
    EXPECT_FALSE(request.HasMessage("View", 2));
    EXPECT_TRUE(request.HasMessage("View default", 0));
    EXPECT_FALSE(request.HasMessage("View default", 1));
    EXPECT_FALSE(request.HasMessage("Item"));
    EXPECT_EQ(views, 0);
}

TEST_F(ComponentsTest, LackItemsThatHaveNoView) {
    (void)fStore.AddItem(new TTestItem("NoView"));
    (void)fStore.AddItem(new TBrokenItem);
    EXPECT_TRUE(Request().IsEmpty());
}

TEST_F(ComponentsTest, ChangeNothing) {
    AddItems(fStore);
    (void)fStore.SetBool(kFlatItem, false);
    (void)Request();
    bool flat = true;
    EXPECT_EQ(fStore.GetBool(kFlatItem, &flat), B_OK);
    EXPECT_FALSE(flat);
    EXPECT_FALSE(fFiles.Has(kFlatItem));
    EXPECT_FALSE(fFiles.Has(kFormatItem));
}

}  // namespace
