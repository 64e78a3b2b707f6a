#include "framework/SettingsFile.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <storage/Path.h>

#include "tests/framework/SettingsHome.h"

namespace {

TEST(SettingsEntry, LiesBelowTheMakersFolder) {
    TSettingsHome home;
    const std::string config = std::filesystem::canonical(home / ".").string() + "/config";
    for (const char* folder : {kAppSettingsFolder, kSharedSettingsFolder}) {
        BEntry entry;
        ASSERT_EQ(get_settings_entry(folder, "Some.arc", &entry), B_OK);
        BPath path;
        ASSERT_EQ(entry.GetPath(&path), B_OK);
        const std::string parent = config + "/ZELKAN/" + folder;
        EXPECT_EQ(path.Path(), parent + "/Some.arc");
        EXPECT_TRUE(std::filesystem::is_directory(parent));
        EXPECT_FALSE(entry.Exists());
    }
}

TEST(SettingsEntry, IsTheLinkItselfWhereTheFileIsOne) {
    TSettingsHome home;
    BEntry entry;
    ASSERT_EQ(get_settings_entry("Lorivane", "Some.arc", &entry), B_OK);
    write_text(home / "elsewhere", "");
    std::filesystem::create_symlink(home / "elsewhere", home.File("Some.arc"));
    ASSERT_EQ(get_settings_entry("Lorivane", "Some.arc", &entry), B_OK);
    EXPECT_TRUE(entry.IsSymLink());
}

TEST(SettingsEntry, FailsWhereTheFolderCannotBeMade) {
    TSettingsHome home;
    std::filesystem::create_directories(home / "config");
    write_text(home / "config/ZELKAN", "a file in the way");
    BEntry entry;
    EXPECT_NE(get_settings_entry("Lorivane", "Some.arc", &entry), B_OK);
    EXPECT_EQ(save_app_settings("Some.arc", TArchivable()), -1);
}

TEST(SettingsEntry, IsMinusOneWithoutASettingsDirectory) {
    TSettingsHome home;
    write_text(home / "file", "");
    setenv("XDG_CONFIG_HOME", (home / "file/config").c_str(), 1);
    BEntry entry;
    EXPECT_EQ(get_settings_entry("Lorivane", "Some.arc", &entry), -1);
}

}  // namespace
