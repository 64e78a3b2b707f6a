#include "settings/Prefs.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>
#include <support/TypeConstants.h>
#include <thread>

#include "framework/SettingsFile.h"
#include "tests/framework/SettingsHome.h"
#include "tests/recording_display/RecordingDisplay.h"

namespace {

using Exts = std::vector<std::string>;

constexpr uint32 kResetKeys = 0x47;

void expect_defaults(const TPrefs& prefs) {
    EXPECT_EQ(prefs.fEnableComment, true);
    EXPECT_EQ(prefs.fEnablePreload, true);
    EXPECT_EQ(prefs.fCommentAlign, 1);
    EXPECT_EQ(prefs.fCommentEncoding, 4);
    EXPECT_EQ(prefs.fDisplayOption, 1);
    EXPECT_EQ(prefs.fCommentFontSize, 12.0F);
    EXPECT_EQ(prefs.fCommentMargin, 20.0F);
    EXPECT_EQ(prefs.fCommentPadding, 5.0F);
    EXPECT_EQ(prefs.fColors[0].Get(), (rgb_color{0, 0, 0, 255}));
    EXPECT_EQ(prefs.fColors[1].Get(), (rgb_color{255, 255, 255, 255}));
    EXPECT_EQ(prefs.fColors[2].Get(), (rgb_color{0, 0, 0, 127}));
    EXPECT_EQ(prefs.fCommentFontFamily.Get(), "Swis721 BT");
    EXPECT_EQ(prefs.fCommentFileExts.Get(), (Exts{"doc", "hed", "txt"}));
}

/// Every field differs from its default.
TPrefs other_prefs() {
    TPrefs prefs;
    prefs.fEnableComment = false;
    prefs.fEnablePreload = false;
    prefs.fCommentAlign = kCommentAtTop;
    prefs.fCommentEncoding = kEncodingShiftJIS;
    prefs.fDisplayOption = 5;
    prefs.fCommentFontSize = 7.5F;
    prefs.fCommentMargin = 0.0F;
    prefs.fCommentPadding = 100.0F;
    prefs.fColors[0] = rgb_color{1, 2, 3, 4};
    prefs.fColors[1] = rgb_color{5, 6, 7, 8};
    prefs.fColors[2] = rgb_color{9, 10, 11, 12};
    prefs.fCommentFontFamily = std::string("Other Family");
    prefs.fCommentFileExts = Exts{"z", "a", "z"};
    return prefs;
}

void expect_other(const TPrefs& prefs) {
    EXPECT_EQ(prefs.fEnableComment, false);
    EXPECT_EQ(prefs.fEnablePreload, false);
    EXPECT_EQ(prefs.fCommentAlign, 0);
    EXPECT_EQ(prefs.fCommentEncoding, 1);
    EXPECT_EQ(prefs.fDisplayOption, 5);
    EXPECT_EQ(prefs.fCommentFontSize, 7.5F);
    EXPECT_EQ(prefs.fCommentMargin, 0.0F);
    EXPECT_EQ(prefs.fCommentPadding, 100.0F);
    EXPECT_EQ(prefs.fColors[0].Get(), (rgb_color{1, 2, 3, 4}));
    EXPECT_EQ(prefs.fColors[1].Get(), (rgb_color{5, 6, 7, 8}));
    EXPECT_EQ(prefs.fColors[2].Get(), (rgb_color{9, 10, 11, 12}));
    EXPECT_EQ(prefs.fCommentFontFamily.Get(), "Other Family");
    EXPECT_EQ(prefs.fCommentFileExts.Get(), (Exts{"z", "a", "z"}));
}

TEST(Prefs, StartWithTheirDefaults) {
    expect_defaults(TPrefs());
    expect_defaults(gPrefs);
}

TEST(Prefs, AreCopiedWhole) {
    const TPrefs prefs = other_prefs();
    const TPrefs copy(prefs);
    expect_other(copy);
    TPrefs assigned;
    assigned = prefs;
    expect_other(assigned);
    assigned = TPrefs();
    expect_defaults(assigned);
    expect_other(prefs);
}

struct FieldCase {
    const char* name;
    type_code type;
    int32 count;
};

TEST(Prefs, AreArchivedUnderTheirKeysInTheirOrder) {
    constexpr FieldCase kFields[] = {{"ECmt", B_BOOL_TYPE, 1}, {"EPrl", B_BOOL_TYPE, 1},
        {"CmAl", B_INT32_TYPE, 1}, {"CmEc", B_INT32_TYPE, 1}, {"DsOp", B_INT32_TYPE, 1},
        {"CmFS", B_FLOAT_TYPE, 1}, {"CmMg", B_FLOAT_TYPE, 1}, {"CmPd", B_FLOAT_TYPE, 1},
        {"ClBG", B_RAW_TYPE, 1}, {"ClCF", B_RAW_TYPE, 1}, {"ClCB", B_RAW_TYPE, 1},
        {"CmFF", B_STRING_TYPE, 1}, {"CmFE", B_STRING_TYPE, 3}};
    BMessage archive;
    ASSERT_EQ(other_prefs().Archive(&archive), B_OK);
    EXPECT_EQ(archive.what, 0U);
    EXPECT_EQ(archive.CountNames(B_ANY_TYPE), static_cast<int32>(std::size(kFields)));
    int32 index = 0;
    for (const FieldCase& field : kFields) {
        char* name = nullptr;
        type_code type = 0;
        int32 count = 0;
        ASSERT_EQ(archive.GetInfo(B_ANY_TYPE, index++, &name, &type, &count), B_OK);
        EXPECT_STREQ(name, field.name);
        EXPECT_EQ(type, field.type) << field.name;
        EXPECT_EQ(count, field.count) << field.name;
    }
    const void* color = nullptr;
    ssize_t size = 0;
    ASSERT_EQ(archive.FindData("ClCF", B_RAW_TYPE, &color, &size), B_OK);
    ASSERT_EQ(size, 4);
    EXPECT_EQ(std::string(static_cast<const char*>(color), 4), "\5\6\7\10");
}

TEST(Prefs, AreReadBackAsTheyWereArchived) {
    BMessage archive;
    ASSERT_EQ(other_prefs().Archive(&archive), B_OK);
    TPrefs prefs;
    EXPECT_EQ(prefs.Unarchive(archive), B_OK);
    expect_other(prefs);
}

TEST(Prefs, KeepAnEmptyListOfExtensions) {
    TPrefs prefs;
    prefs.fCommentFileExts = Exts{};
    BMessage archive;
    ASSERT_EQ(prefs.Archive(&archive), B_OK);
    EXPECT_FALSE(archive.HasString("CmFE"));
    TPrefs read;
    EXPECT_EQ(read.Unarchive(archive), B_OK);
    EXPECT_EQ(read.fCommentFileExts.Get(), Exts{});
}

TEST(Prefs, KeepTheValuesOfMissingFieldsButNotTheExtensions) {
    TPrefs prefs = other_prefs();
    EXPECT_NE(prefs.Unarchive(BMessage()), B_OK);
    EXPECT_EQ(prefs.fCommentFileExts.Get(), Exts{});
    prefs.fCommentFileExts = Exts{"z", "a", "z"};
    expect_other(prefs);
}

TEST(Prefs, TakeEachFieldThatIsThere) {
    BMessage whole;
    ASSERT_EQ(other_prefs().Archive(&whole), B_OK);
    for (const char* missing : {"ECmt", "EPrl", "CmAl", "CmEc", "DsOp", "CmFS", "CmMg", "CmPd",
             "ClBG", "ClCF", "ClCB", "CmFF"}) {
        BMessage archive(whole);
        ASSERT_EQ(archive.RemoveName(missing), B_OK);
        TPrefs prefs;
        EXPECT_NE(prefs.Unarchive(archive), B_OK) << missing;
        // All but one field are read: archiving again differs in that field only.
        BMessage again;
        ASSERT_EQ(prefs.Archive(&again), B_OK);
        BMessage defaults;
        ASSERT_EQ(TPrefs().Archive(&defaults), B_OK);
        for (int32 i = 0; i < whole.CountNames(B_ANY_TYPE); i++) {
            char* name = nullptr;
            type_code type = 0;
            ASSERT_EQ(whole.GetInfo(B_ANY_TYPE, i, &name, &type), B_OK);
            const BMessage& expected = std::string(name) == missing ? defaults : whole;
            const void* a = nullptr;
            const void* b = nullptr;
            ssize_t sizeA = 0;
            ssize_t sizeB = 0;
            ASSERT_EQ(again.FindData(name, type, &a, &sizeA), B_OK);
            ASSERT_EQ(expected.FindData(name, type, &b, &sizeB), B_OK);
            EXPECT_EQ(std::string(static_cast<const char*>(a), static_cast<size_t>(sizeA)),
                std::string(static_cast<const char*>(b), static_cast<size_t>(sizeB)))
                << missing << " " << name;
        }
    }
}

TEST(Prefs, IgnoreFieldsOfWrongTypes) {
    BMessage archive;
    for (const char* name :
        {"ECmt", "EPrl", "CmAl", "CmEc", "DsOp", "CmFS", "CmMg", "CmPd", "ClBG", "ClCF", "ClCB"})
        archive.AddString(name, "1234");
    archive.AddInt32("CmFF", 5);
    archive.AddInt32("CmFE", 5);
    TPrefs prefs;
    EXPECT_NE(prefs.Unarchive(archive), B_OK);
    EXPECT_EQ(prefs.fCommentFileExts.Get(), Exts{});
    prefs.fCommentFileExts = Exts{"doc", "hed", "txt"};
    expect_defaults(prefs);
}

TEST(Prefs, DoNotReadBeyondShortColors) {
    BMessage archive;
    archive.AddData("ClBG", B_RAW_TYPE, "\1", 1);
    archive.AddData("ClCF", B_RAW_TYPE, "\1\2\3", 3);
    archive.AddData("ClCB", B_RAW_TYPE, "\1\2\3\4\5", 5);
    TPrefs prefs;
    EXPECT_NE(prefs.Unarchive(archive), B_OK);
    EXPECT_EQ(prefs.fColors[0].Get(), (rgb_color{0, 0, 0, 255}));
    EXPECT_EQ(prefs.fColors[1].Get(), (rgb_color{255, 255, 255, 255}));
    EXPECT_EQ(prefs.fColors[2].Get(), (rgb_color{1, 2, 3, 4}));
}

TEST(Prefs, TakeValuesAsTheyAre) {
    BMessage archive;
    archive.AddInt32("DsOp", INT32_MIN);
    archive.AddFloat("CmFS", -1e30F);
    TPrefs prefs;
    (void)prefs.Unarchive(archive);
    EXPECT_EQ(prefs.fDisplayOption, INT32_MIN);
    EXPECT_EQ(prefs.fCommentFontSize, -1e30F);
}

class PrefsFileTest : public testing::Test {
protected:
    PrefsFileTest() : fFile(fHome.File("Lorivane_Prefs.arc")) {}

    static void HoldKeys(uint32 keys) { recording::TheRecordingDisplay().SetModifiers(keys); }

    TSettingsHome fHome;
    const std::string fFile;
};

TEST_F(PrefsFileTest, AFirstStartHasDefaultsAndSavingMakesTheFolders) {
    TPrefs prefs;
    EXPECT_EQ(prefs.LoadFromFile(), -1);
    expect_defaults(prefs);
    EXPECT_FALSE(std::filesystem::exists(fFile));

    EXPECT_EQ(other_prefs().SaveToFile(), 0);
    EXPECT_TRUE(std::filesystem::exists(fFile));
    EXPECT_EQ(prefs.LoadFromFile(), 0);
    expect_other(prefs);
}

TEST_F(PrefsFileTest, TheFolderIsMadeByASaveOnTheFirstStartToo) {
    EXPECT_EQ(TPrefs().SaveToFile(), 0);
    EXPECT_TRUE(std::filesystem::exists(fFile));
}

TEST_F(PrefsFileTest, AnEmptyFileLeavesTheDefaults) {
    ASSERT_EQ(other_prefs().SaveToFile(), 0);
    write_text(fFile, "");
    TPrefs prefs;
    EXPECT_EQ(prefs.LoadFromFile(), -1);
    expect_defaults(prefs);
}

TEST_F(PrefsFileTest, GarbageLeavesTheDefaults) {
    ASSERT_EQ(other_prefs().SaveToFile(), 0);
    for (const std::string& garbage : {std::string("garbage"), std::string(100000, '\xff'),
             std::string(4096, '\0'), std::string(1, '\0')}) {
        write_text(fFile, garbage);
        TPrefs prefs;
        EXPECT_EQ(prefs.LoadFromFile(), -1);
        expect_defaults(prefs);
    }
}

TEST_F(PrefsFileTest, ATruncatedFileLeavesTheDefaults) {
    ASSERT_EQ(other_prefs().SaveToFile(), 0);
    const std::string whole = read_text(fFile);
    for (size_t size = 0; size < whole.size(); size++) {
        write_text(fFile, whole.substr(0, size));
        TPrefs prefs;
        EXPECT_EQ(prefs.LoadFromFile(), -1) << size;
        expect_defaults(prefs);
    }
}

TEST_F(PrefsFileTest, AFlippedBitLeavesTheDefaults) {
    ASSERT_EQ(other_prefs().SaveToFile(), 0);
    const std::string whole = read_text(fFile);
    for (size_t i = 0; i < whole.size(); i++) {
        std::string damaged = whole;
        damaged[i] = static_cast<char>(damaged[i] ^ 1 << i % 8);
        write_text(fFile, damaged);
        TPrefs prefs;
        EXPECT_EQ(prefs.LoadFromFile(), -1) << i;
        expect_defaults(prefs);
    }
}

TEST_F(PrefsFileTest, AFileOfAnOlderVersionGivesWhatItHas) {
    class OldPrefs : public TArchivable {
        status_t Archive(BMessage* archive) const override {
            return archive->AddInt32("DsOp", 3) | archive->AddBool("Gone", true);
        }
    };
    EXPECT_EQ(save_app_settings("Lorivane_Prefs.arc", OldPrefs()), 0);
    TPrefs prefs;
    EXPECT_EQ(prefs.LoadFromFile(), -1);
    EXPECT_EQ(prefs.fDisplayOption, 3);
    EXPECT_EQ(prefs.fCommentMargin, 20.0F);
    EXPECT_EQ(prefs.fCommentFileExts.Get(), Exts{});
}

TEST_F(PrefsFileTest, TheFourKeysRemoveTheFileOnLoading) {
    ASSERT_EQ(other_prefs().SaveToFile(), 0);
    HoldKeys(kResetKeys);
    TPrefs prefs;
    (void)prefs.LoadFromFile();
    HoldKeys(0);
    expect_defaults(prefs);
    EXPECT_FALSE(std::filesystem::exists(fFile));
    EXPECT_EQ(prefs.LoadFromFile(), -1);
}

TEST_F(PrefsFileTest, TheFourKeysSkipSaving) {
    ASSERT_EQ(other_prefs().SaveToFile(), 0);
    const std::string before = read_text(fFile);
    HoldKeys(kResetKeys | B_CAPS_LOCK);
    EXPECT_EQ(TPrefs().SaveToFile(), -1);
    HoldKeys(0);
    EXPECT_EQ(read_text(fFile), before);
}

TEST_F(PrefsFileTest, FewerKeysDoNothing) {
    for (const uint32 missing : {B_SHIFT_KEY, B_COMMAND_KEY, B_CONTROL_KEY, B_OPTION_KEY}) {
        HoldKeys(kResetKeys & ~missing);
        EXPECT_EQ(other_prefs().SaveToFile(), 0) << missing;
        TPrefs prefs;
        EXPECT_EQ(prefs.LoadFromFile(), 0) << missing;
        expect_other(prefs);
    }
    HoldKeys(0);
}

TEST_F(PrefsFileTest, WithoutASettingsDirectoryNothingIsReadOrWritten) {
    write_text(fHome / "file", "");
    setenv("XDG_CONFIG_HOME", (fHome / "file/config").c_str(), 1);
    TPrefs prefs;
    EXPECT_EQ(prefs.LoadFromFile(), -1);
    EXPECT_EQ(prefs.SaveToFile(), -1);
    expect_defaults(prefs);
}

// For the race detector: the dialog's thread writes while others read.
TEST(Prefs, MayBeReadWhileTheyAreWritten) {
    TPrefs prefs;
    std::thread writer([&] {
        for (int32 i = 0; i < 2000; i++) {
            prefs.fDisplayOption = i % 6;
            prefs.fCommentMargin = static_cast<float>(i);
            prefs.fColors[0] = i % 2 == 0 ? rgb_color{1, 1, 1, 1} : rgb_color{2, 2, 2, 2};
            prefs.fCommentFontFamily = std::string(static_cast<size_t>(i % 50), 'x');
            prefs.fCommentFileExts = Exts(static_cast<size_t>(i % 5), "txt");
        }
    });
    for (int32 i = 0; i < 2000; i++) {
        const int32 option = prefs.fDisplayOption;
        EXPECT_TRUE(option >= 0 && option <= 5);
        const rgb_color color = prefs.fColors[0];
        EXPECT_TRUE(color.red == color.green && color.green == color.blue);
        const std::string family = prefs.fCommentFontFamily;
        EXPECT_TRUE(family == "Swis721 BT" || family.find_first_not_of('x') == std::string::npos);
        const TPrefs copy(prefs);
        for (const std::string& ext : copy.fCommentFileExts.Get())
            EXPECT_EQ(ext.size(), 3U);
    }
    writer.join();
}

}  // namespace
