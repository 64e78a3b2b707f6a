#include "iap/IAPItemAccKeyFormat.h"

#include <gtest/gtest.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/PopUpMenu.h>
#include <memory>
#include <vector>

#include "framework/Accelerator.h"
#include "framework/MessageCodes.h"
#include "tests/iap/SharedFiles.h"

namespace {

constexpr char kAccKeyFormat[] = "AccKeyFormat2";
constexpr char kDefault[] = "\2(a)";

struct FormatCase {
    const char* label;
    std::string format;
    const char* example;
};

// The katakana middle dot by its bytes, whatever an editor makes of it.
const FormatCase kFormats[] = {
    {"(a)", std::string("\2") + "(a)", "Open(O)..."},
    {"a) ", std::string("\1") + "a) ", "O) Open..."},
    {"a\xe3\x83\xbb", std::string("\1") + "a\xe3\x83\xbb", "O\xe3\x83\xbbOpen..."},
    {"a - ", std::string("\1") + "a - ", "O - Open..."},
    {"(None)", "", "Open..."},
};

class AccKeyFormatTest : public testing::Test {
protected:
    static std::string FormatOf(const TIAPItem& item, bool defaults = false) {
        std::string format = "none";
        EXPECT_EQ(item.GetString(&format, defaults), B_OK);
        return format;
    }
    static BMessage Change(const char* format, const char* app) {
        BMessage change(kMsgSharedItemChanged);
        change.AddString("IAP:SrcApp", app);
        change.AddString("IAP:SrcIAPItem", kAccKeyFormat);
        change.AddString(kAccKeyFormat, format);
        return change;
    }
    static std::unique_ptr<BView> ViewOf(TIAPItem& item, bool defaults) {
        BView* view = nullptr;
        EXPECT_EQ(item.MakeConfigurationView(&view, defaults), B_OK);
        EXPECT_NE(view, nullptr);
        return std::unique_ptr<BView>(view);
    }
    static BMenuField& FieldOf(const BView& view) {
        auto* field = dynamic_cast<BMenuField*>(view.ChildAt(0));
        if (field == nullptr)
            throw std::runtime_error("no menu field");
        return *field;
    }
    /// The labels of the items, separators as "---".
    static std::vector<std::string> LabelsOf(const BMenu& menu) {
        std::vector<std::string> labels;
        for (int32 i = 0; i < menu.CountItems(); i++) {
            const BMenuItem* item = menu.ItemAt(i);
            labels.emplace_back(
                dynamic_cast<const BSeparatorItem*>(item) != nullptr ? "---" : item->Label());
        }
        return labels;
    }
    static std::string MarkedIn(const BView& view) {
        std::string marked;
        BMenu& menu = *FieldOf(view).Menu();
        for (int32 i = 0; i < menu.CountItems(); i++) {
            if (menu.ItemAt(i)->IsMarked())
                marked += menu.ItemAt(i)->Label();
        }
        return marked;
    }

    TSharedFiles fFiles;
};

TEST_F(AccKeyFormatTest, IsTheSuffixFormatWithoutAFile) {
    const TIAPItemAccKeyFormat item;
    EXPECT_EQ(item.Name(), kAccKeyFormat);
    EXPECT_EQ(FormatOf(item), kDefault);
    EXPECT_EQ(FormatOf(item, true), kDefault);
    EXPECT_EQ(FormatOf(item).front(), 2);
    EXPECT_FALSE(fFiles.Has(kAccKeyFormat));
}

TEST_F(AccKeyFormatTest, IsLoadedWhenMade) {
    BMessage file;
    for (const FormatCase& c : kFormats) {
        file.MakeEmpty();
        file.AddString(kAccKeyFormat, c.format.c_str());
        fFiles.Write(kAccKeyFormat, file);
        EXPECT_EQ(FormatOf(TIAPItemAccKeyFormat()), c.format);
    }
    file.MakeEmpty();
    file.AddBool(kAccKeyFormat, false);
    fFiles.Write(kAccKeyFormat, file);
    EXPECT_EQ(FormatOf(TIAPItemAccKeyFormat()), kDefault);
}

TEST_F(AccKeyFormatTest, IsSetWithoutBeingSaved) {
    TIAPItemAccKeyFormat item;
    EXPECT_EQ(item.SetString("\1a - "), B_OK);
    EXPECT_EQ(FormatOf(item), "\1a - ");
    EXPECT_EQ(FormatOf(item, true), kDefault);
    EXPECT_FALSE(fFiles.Has(kAccKeyFormat));
}

TEST_F(AccKeyFormatTest, IsNoBool) {
    TIAPItemAccKeyFormat item;
    bool flag = false;
    EXPECT_EQ(item.GetBool(&flag, false), -1);
    EXPECT_EQ(item.GetBool(&flag, true), -1);
    EXPECT_EQ(item.SetBool(true), -1);
}

TEST_F(AccKeyFormatTest, DescribesItselfAsAChange) {
    TIAPItemAccKeyFormat item;
    (void)item.SetAppSignatureRef(kOwnApp);
    (void)item.SetString("\1a) ");
    BMessage message('else');
    message.AddInt32("kept", 1);
    EXPECT_EQ(item.GetValue(&message, false), B_OK);
    EXPECT_EQ(message.what, kMsgSharedItemChanged);
    EXPECT_EQ(message.CountNames(B_ANY_TYPE), 4);
    EXPECT_STREQ(message.GetString("IAP:SrcApp"), kOwnApp);
    EXPECT_STREQ(message.GetString("IAP:SrcIAPItem"), kAccKeyFormat);
    EXPECT_STREQ(message.GetString(kAccKeyFormat), "\1a) ");

    BMessage defaults;
    EXPECT_EQ(item.GetValue(&defaults, true), B_OK);
    EXPECT_STREQ(defaults.GetString(kAccKeyFormat), kDefault);
}

TEST_F(AccKeyFormatTest, SavesAChangeOfItsOwnApplication) {
    TIAPItemAccKeyFormat item;
    (void)item.SetAppSignatureRef(kOwnApp);
    EXPECT_EQ(item.SetValue(Change("\1a - ", kOwnApp)), B_OK);
    EXPECT_EQ(FormatOf(item), "\1a - ");
    EXPECT_STREQ(fFiles.Read(kAccKeyFormat).GetString(kAccKeyFormat), "\1a - ");
    EXPECT_STREQ(fFiles.Read(kAccKeyFormat).GetString("IAP:SrcApp"), kOwnApp);
    EXPECT_EQ(FormatOf(TIAPItemAccKeyFormat()), "\1a - ");
}

TEST_F(AccKeyFormatTest, ComparesSignaturesByTheirText) {
    TIAPItemAccKeyFormat item;
    const std::string copy = kOwnApp;
    (void)item.SetAppSignatureRef(copy.c_str());
    EXPECT_EQ(item.SetValue(Change("", kOwnApp)), B_OK);
    EXPECT_STREQ(fFiles.Read(kAccKeyFormat).GetString(kAccKeyFormat), "");
}

TEST_F(AccKeyFormatTest, TakesAChangeOfAnotherApplicationWithoutSaving) {
    TIAPItemAccKeyFormat item;
    (void)item.SetAppSignatureRef(kOwnApp);
    (void)item.SaveString("\1a) ");
    const std::string before = read_text(fFiles.PathOf(kAccKeyFormat));

    EXPECT_EQ(item.SetValue(Change("\1a - ", kOtherApp)), B_OK);
    EXPECT_EQ(FormatOf(item), "\1a - ");
    EXPECT_EQ(read_text(fFiles.PathOf(kAccKeyFormat)), before);

    BMessage unsigned_change = Change("", kOtherApp);
    unsigned_change.RemoveName("IAP:SrcApp");
    EXPECT_EQ(item.SetValue(unsigned_change), B_OK);
    EXPECT_EQ(FormatOf(item), "");
    EXPECT_EQ(read_text(fFiles.PathOf(kAccKeyFormat)), before);
}

TEST_F(AccKeyFormatTest, WithoutASignatureOfItsOwnSavesNothing) {
    TIAPItemAccKeyFormat item;
    EXPECT_EQ(item.SetValue(Change("\1a - ", kOwnApp)), B_OK);
    EXPECT_EQ(FormatOf(item), "\1a - ");
    EXPECT_FALSE(fFiles.Has(kAccKeyFormat));
}

TEST_F(AccKeyFormatTest, IsLeftAloneByAChangeWithoutItsField) {
    TIAPItemAccKeyFormat item;
    (void)item.SetAppSignatureRef(kOwnApp);
    (void)item.SetString("\1a - ");
    BMessage change = Change("", kOwnApp);
    change.RemoveName(kAccKeyFormat);
    EXPECT_EQ(item.SetValue(change), B_NAME_NOT_FOUND);
    change.AddBool(kAccKeyFormat, true);
    EXPECT_EQ(item.SetValue(change), B_BAD_TYPE);
    EXPECT_EQ(FormatOf(item), "\1a - ");
    EXPECT_FALSE(fFiles.Has(kAccKeyFormat));
}

TEST_F(AccKeyFormatTest, IsChosenInAPopUpMenu) {
    TIAPItemAccKeyFormat item;
    const auto view = ViewOf(item, false);
    EXPECT_STREQ(view->Name(), kAccKeyFormat);
    EXPECT_EQ(view->CountChildren(), 1);
    const BMenuField& field = FieldOf(*view);
    EXPECT_STREQ(field.Name(), "AAccelerator Format: ");
    EXPECT_STREQ(field.Label(), "");
    EXPECT_EQ(field.Frame(), BRect(0, 0, 250, 16));
    EXPECT_EQ(field.Frame().Width(), 250);
    EXPECT_EQ(field.Frame().Height(), 16);
    EXPECT_NE(dynamic_cast<BPopUpMenu*>(field.Menu()), nullptr);
    EXPECT_STREQ(field.Menu()->Name(), "Select...");
    EXPECT_EQ(LabelsOf(*field.Menu()),
        (std::vector<std::string>{"(a)", "a) ", "a\xe3\x83\xbb", "a - ", "---", "(None)"}));
}

TEST_F(AccKeyFormatTest, SendsTheFormatThatWasChosen) {
    TIAPItemAccKeyFormat item;
    (void)item.SetAppSignatureRef(kOwnApp);
    const auto view = ViewOf(item, false);
    for (const FormatCase& c : kFormats) {
        const BMenuItem* choice = FieldOf(*view).Menu()->FindItem(c.label);
        ASSERT_NE(choice, nullptr) << c.label;
        const BMessage* message = choice->Message();
        ASSERT_NE(message, nullptr) << c.label;
        EXPECT_EQ(message->what, kMsgSharedControlChanged);
        EXPECT_EQ(message->CountNames(B_ANY_TYPE), 3);
        EXPECT_STREQ(message->GetString("IAP:SrcApp"), kOwnApp);
        EXPECT_STREQ(message->GetString("IAP:SrcIAPItem"), kAccKeyFormat);
        EXPECT_EQ(message->GetString(kAccKeyFormat), c.format);
        EXPECT_FALSE(message->HasString(kAccKeyFormat, 1));
    }
}

TEST_F(AccKeyFormatTest, MarksTheCurrentFormatOrTheDefault) {
    TIAPItemAccKeyFormat item;
    for (const FormatCase& c : kFormats) {
        (void)item.SetString(c.format);
        EXPECT_EQ(MarkedIn(*ViewOf(item, false)), c.label);
        EXPECT_EQ(MarkedIn(*ViewOf(item, true)), "(a)");
    }
}

TEST_F(AccKeyFormatTest, MarksNothingForAFormatThatIsNotOffered) {
    TIAPItemAccKeyFormat item;
    for (const char* format : {"\1(a)", "(a)", "\2a) ", "\2", "\1"}) {
        (void)item.SetString(format);
        EXPECT_EQ(MarkedIn(*ViewOf(item, false)), "") << format;
    }
}

TEST_F(AccKeyFormatTest, AddsChoicesOfOtherMenus) {
    const TIAPItemAccKeyFormat item;
    BMenu menu("menu");
    item.AddMItem(&menu, "\1[a] ", false);
    item.AddMItem(&menu, kDefault, true);
    ASSERT_EQ(menu.CountItems(), 2);
    EXPECT_STREQ(menu.ItemAt(0)->Label(), "[a] ");
    EXPECT_FALSE(menu.ItemAt(0)->IsMarked());
    EXPECT_STREQ(menu.ItemAt(0)->Message()->GetString(kAccKeyFormat), "\1[a] ");
    EXPECT_TRUE(menu.ItemAt(1)->IsMarked());
}

TEST_F(AccKeyFormatTest, SurvivesBeingArchived) {
    TIAPItemAccKeyFormat item;
    (void)item.SetString("\1a - ");
    BMessage archive;
    ASSERT_EQ(ViewOf(item, false)->Archive(&archive, true), B_OK);
    const std::unique_ptr<BArchivable> object(instantiate_object(&archive));
    const auto* view = dynamic_cast<BView*>(object.get());
    ASSERT_NE(view, nullptr);
    EXPECT_STREQ(view->Name(), kAccKeyFormat);
    EXPECT_STREQ(FieldOf(*view).Name(), "AAccelerator Format: ");
    EXPECT_EQ(FieldOf(*view).Menu()->CountItems(), 6);
    EXPECT_EQ(MarkedIn(*view), "a - ");
    const BMenuItem* none = FieldOf(*view).Menu()->FindItem("(None)");
    ASSERT_NE(none, nullptr);
    EXPECT_EQ(none->Message()->what, kMsgSharedControlChanged);
    EXPECT_STREQ(none->Message()->GetString(kAccKeyFormat), "");
}

TEST_F(AccKeyFormatTest, MergesIntoLabels) {
    for (const FormatCase& c : kFormats)
        EXPECT_EQ(merge_accelerator_key(c.format, "O", "Open..."), c.example);
}

TEST_F(AccKeyFormatTest, IsNoTextThatIsFarTooLong) {
    TIAPItemAccKeyFormat item;
    (void)item.SetAppSignatureRef(kOwnApp);
    const std::string longest = "\2" + std::string(63, 'x');
    EXPECT_EQ(item.SetValue(Change(longest.c_str(), kOwnApp)), B_OK);
    EXPECT_EQ(FormatOf(TIAPItemAccKeyFormat()), longest);
    EXPECT_EQ(item.SetValue(Change((longest + "x").c_str(), kOwnApp)), B_BAD_VALUE);
    EXPECT_EQ(FormatOf(item), longest);

    BMessage file;
    file.AddString(kAccKeyFormat, (longest + "x").c_str());
    fFiles.Write(kAccKeyFormat, file);
    EXPECT_EQ(FormatOf(TIAPItemAccKeyFormat()), kDefault);
}

}  // namespace
