#include "iap/IAPItem.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "framework/MessageCodes.h"
#include "tests/iap/SharedFiles.h"

namespace {

/// An item whose defaults are known, and which supports nothing else.
class TPlainItem : public TIAPItem {
public:
    TPlainItem() : TIAPItem("Plain") {}
    status_t GetBool(bool* value, bool defaults) const override {
        *value = defaults;
        return B_OK;
    }
    status_t GetString(std::string* value, bool defaults) const override {
        *value = defaults ? "the default" : "the current value";
        return B_OK;
    }
};

class IAPItemTest : public testing::Test {
protected:
    IAPItemTest() { (void)fItem.SetAppSignatureRef(kOwnApp); }

    /// What a file makes of a string and of a bool that were something else before.
    void ExpectDefaults(const std::string& what) const {
        std::string text = "before";
        EXPECT_EQ(fItem.LoadString(&text), B_OK) << what;
        EXPECT_EQ(text, "the default") << what;
        bool flag = false;
        EXPECT_EQ(fItem.LoadBool(&flag), B_OK) << what;
        EXPECT_TRUE(flag) << what;
    }

    TSharedFiles fFiles;
    TPlainItem fItem;
};

TEST(IAPItemBase, SupportsNothing) {
    TIAPItem item("Name");
    EXPECT_EQ(item.Name(), "Name");
    EXPECT_EQ(item.AppSignatureRef(), nullptr);
    BView* view = nullptr;
    BMessage message;
    bool flag = false;
    std::string text;
    for (const bool defaults : {false, true}) {
        EXPECT_EQ(item.MakeConfigurationView(&view, defaults), -1);
        EXPECT_EQ(item.GetValue(&message, defaults), -1);
        EXPECT_EQ(item.GetBool(&flag, defaults), -1);
        EXPECT_EQ(item.GetString(&text, defaults), -1);
    }
    EXPECT_EQ(item.SetValue(message), -1);
    EXPECT_EQ(item.SetBool(true), -1);
    EXPECT_EQ(item.SetString("text"), -1);
    EXPECT_EQ(view, nullptr);
    EXPECT_TRUE(message.IsEmpty());
}

TEST(IAPItemBase, WithoutASavedValueOrADefaultHasNone) {
    const TSharedFiles files;
    const TIAPItem item("Name");
    bool flag = false;
    std::string text = "before";
    EXPECT_EQ(item.LoadBool(&flag), -1);
    EXPECT_EQ(item.LoadString(&text), -1);
    EXPECT_EQ(text, "before");
}

TEST_F(IAPItemTest, KeepsThePointerToTheSignature) {
    char signature[] = "application/x-vnd.ZELKAN-1";
    EXPECT_EQ(fItem.SetAppSignatureRef(signature), B_OK);
    EXPECT_EQ(fItem.AppSignatureRef(), signature);
    signature[sizeof(signature) - 2] = '2';
    BMessage message;
    fItem.AddDefaultInfo(&message);
    EXPECT_STREQ(message.GetString("IAP:SrcApp"), "application/x-vnd.ZELKAN-2");
    EXPECT_STREQ(message.GetString("IAP:SrcIAPItem"), "Plain");
}

TEST_F(IAPItemTest, AddsItsInformationToWhatIsThere) {
    BMessage message('kept');
    message.AddInt32("number", 7);
    fItem.AddDefaultInfo(&message);
    EXPECT_EQ(message.what, static_cast<uint32>('kept'));
    EXPECT_EQ(message.CountNames(B_ANY_TYPE), 3);
    EXPECT_EQ(message.GetInt32("number", 0), 7);
}

TEST_F(IAPItemTest, LeavesTheSignatureOutBeforeItIsKnown) {
    (void)fItem.SetAppSignatureRef(nullptr);
    BMessage message;
    fItem.AddDefaultInfo(&message);
    EXPECT_FALSE(message.HasString("IAP:SrcApp"));
    EXPECT_EQ(fItem.SaveBool(true), B_OK);
    EXPECT_FALSE(fFiles.Read("Plain").HasString("IAP:SrcApp"));
    EXPECT_TRUE(fFiles.Read("Plain").GetBool("Plain", false));
}

TEST_F(IAPItemTest, SavesTheValueAndWhoWroteIt) {
    EXPECT_EQ(fItem.SaveString("a text"), B_OK);
    BMessage file = fFiles.Read("Plain");
    EXPECT_EQ(file.what, 0U);
    EXPECT_EQ(file.CountNames(B_ANY_TYPE), 2);
    EXPECT_STREQ(file.GetString("Plain"), "a text");
    EXPECT_STREQ(file.GetString("IAP:SrcApp"), kOwnApp);

    // The other type, by another application: the file is replaced, not added to.
    (void)fItem.SetAppSignatureRef(kOtherApp);
    EXPECT_EQ(fItem.SaveBool(false), B_OK);
    file = fFiles.Read("Plain");
    EXPECT_EQ(file.CountNames(B_ANY_TYPE), 2);
    EXPECT_TRUE(file.HasBool("Plain"));
    EXPECT_FALSE(file.GetBool("Plain", true));
    EXPECT_STREQ(file.GetString("IAP:SrcApp"), kOtherApp);
}

TEST_F(IAPItemTest, LoadsWhatItSaved) {
    for (const std::string text : {"", "a", "\1a・", "several\nlines"}) {
        EXPECT_EQ(fItem.SaveString(text), B_OK);
        std::string loaded = "before";
        EXPECT_EQ(fItem.LoadString(&loaded), B_OK);
        EXPECT_EQ(loaded, text);
    }
    for (const bool flag : {true, false}) {
        EXPECT_EQ(fItem.SaveBool(flag), B_OK);
        bool loaded = !flag;
        EXPECT_EQ(fItem.LoadBool(&loaded), B_OK);
        EXPECT_EQ(loaded, flag);
    }
}

TEST_F(IAPItemTest, SavesEveryFieldOfAMessageButItsCopyAlone) {
    BMessage message('code');
    message.AddString("Plain", "value");
    message.AddInt32("more", 3);
    EXPECT_EQ(fItem.Save(message), B_OK);
    EXPECT_FALSE(message.HasString("IAP:SrcApp"));
    BMessage loaded;
    EXPECT_EQ(fItem.Load(&loaded), B_OK);
    EXPECT_EQ(loaded.what, static_cast<uint32>('code'));
    EXPECT_EQ(loaded.GetInt32("more", 0), 3);
    EXPECT_STREQ(loaded.GetString("IAP:SrcApp"), kOwnApp);
}

TEST_F(IAPItemTest, ReadsTheFirstOfSeveralValues) {
    BMessage message;
    message.AddString("Plain", "first");
    message.AddString("Plain", "second");
    fFiles.Write("Plain", message);
    std::string text;
    EXPECT_EQ(fItem.LoadString(&text), B_OK);
    EXPECT_EQ(text, "first");
}

TEST_F(IAPItemTest, HasItsDefaultWithoutAFile) {
    BMessage message('kept');
    EXPECT_EQ(fItem.Load(&message), -1);
    EXPECT_EQ(message.what, static_cast<uint32>('kept'));
    ExpectDefaults("no file");
    EXPECT_FALSE(fFiles.Has("Plain"));
}

TEST_F(IAPItemTest, HasItsDefaultWhenTheFieldIsMissingOrOfAnotherType) {
    BMessage message;
    message.AddString("plain", "another name");
    message.AddBool("PLAIN", false);
    fFiles.Write("Plain", message);
    ExpectDefaults("other fields");

    message.AddInt32("Plain", 0);
    fFiles.Write("Plain", message);
    ExpectDefaults("a number");
}

TEST_F(IAPItemTest, HasItsDefaultWhenTheFileIsNoMessage) {
    fFiles.WriteText("Plain", "");
    ExpectDefaults("empty");
    fFiles.WriteText("Plain", "just a text, and somewhat longer than a header would have been");
    ExpectDefaults("text");
    fFiles.WriteText("Plain", std::string(5000, '\xff'));
    ExpectDefaults("all bits set");
}

TEST_F(IAPItemTest, HasItsDefaultWhenTheFileIsCutOffAnywhere) {
    BMessage message;
    message.AddString("Plain", "saved");
    message.AddBool("Plain2", false);
    fFiles.Write("Plain", message);
    const std::string whole = read_text(fFiles.PathOf("Plain"));
    ASSERT_GT(whole.size(), 20U);
    for (size_t size = 0; size < whole.size(); size++) {
        fFiles.WriteText("Plain", whole.substr(0, size));
        ExpectDefaults(std::to_string(size));
    }
    fFiles.WriteText("Plain", whole);
    std::string text;
    EXPECT_EQ(fItem.LoadString(&text), B_OK);
    EXPECT_EQ(text, "saved");
}

TEST_F(IAPItemTest, ReadsFilesOfSixtyFourKilobytesAndNoLargerOnes) {
    BMessage empty;
    empty.AddString("Plain", "");
    const size_t overhead = static_cast<size_t>(empty.FlattenedSize());
    for (const size_t extra : {0U, 1U}) {
        const std::string text(64 * 1024 - overhead + extra, 'x');
        BMessage message;
        message.AddString("Plain", text.c_str());
        fFiles.Write("Plain", message);
        ASSERT_EQ(std::filesystem::file_size(fFiles.PathOf("Plain")), 64 * 1024 + extra);
        std::string loaded;
        EXPECT_EQ(fItem.LoadString(&loaded), B_OK);
        EXPECT_EQ(loaded, extra == 0 ? text : "the default");
    }
    // Without a byte of it on the disk, larger than any memory.
    fFiles.WriteText("Plain", "");
    std::filesystem::resize_file(fFiles.PathOf("Plain"), uintmax_t{1} << 40);
    ExpectDefaults("a terabyte");
}

TEST_F(IAPItemTest, HasItsDefaultWhenTheFileIsNone) {
    fFiles.MakeFolder();
    const std::string path = fFiles.PathOf("Plain");
    std::filesystem::create_directory(path);
    ExpectDefaults("a folder");
    EXPECT_EQ(fItem.SaveBool(true), -1);
    EXPECT_TRUE(std::filesystem::is_directory(path));

    std::filesystem::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    ExpectDefaults("a pipe that nobody writes to");

    std::filesystem::remove(path);
    std::filesystem::create_symlink("Plain.arc", path);
    ExpectDefaults("a link to itself");
}

TEST_F(IAPItemTest, ReportsAFolderThatCannotBeMade) {
    fFiles.MakeFolder();
    const auto folder = std::filesystem::path(fFiles.PathOf("Plain")).parent_path();
    std::filesystem::remove(folder);
    write_text(folder.string(), "in the way");
    ExpectDefaults("no folder");
    EXPECT_EQ(fItem.SaveString("text"), -1);
    EXPECT_EQ(read_text(folder.string()), "in the way");
}

}  // namespace
