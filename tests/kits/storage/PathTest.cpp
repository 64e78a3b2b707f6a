#include "tests/kits/storage/TemporaryFolder.h"
#include <filesystem>
#include <storage/FindDirectory.h>
#include <storage/Path.h>

using PathTest = TemporaryFolder;

TEST_F(PathTest, TidiesSlashesWithoutLookingAtTheDisk) {
    const struct {
        const char* path;
        const char* leaf;
        const char* whole;
    } kCases[] = {
        {"/", nullptr, "/"},
        {"//", nullptr, "/"},
        {"/a/b", nullptr, "/a/b"},
        {"//a///b//", nullptr, "/a/b"},
        {"/a", "b", "/a/b"},
        {"/a/", "b/c/", "/a/b/c"},
        {"/", "b", "/b"},
        {"/a", "", "/a"},
        {"/...", "..b", "/.../..b"},
        {"/a\n/\xff", nullptr, "/a\n/\xff"},
    };
    for (const auto& test : kCases) {
        const BPath path(test.path, test.leaf);
        EXPECT_STREQ(path.Path(), test.whole) << test.path;
    }
}

TEST_F(PathTest, RefusesWhatIsNoPath) {
    BPath path("/a");
    EXPECT_EQ(path.SetTo(""), B_BAD_VALUE);
    EXPECT_EQ(path.Path(), nullptr);
    EXPECT_EQ(path.Leaf(), nullptr);
    EXPECT_EQ(path.SetTo("/a", "/b"), B_BAD_VALUE);
    EXPECT_EQ(path.InitCheck(), B_BAD_VALUE);
    EXPECT_EQ(path.Append("b"), B_BAD_VALUE);
    EXPECT_EQ(BPath().InitCheck(), B_NO_INIT);
}

TEST_F(PathTest, ResolvesDotsInTheFileSystem) {
    std::filesystem::create_directories(Place("real/deep"));
    std::filesystem::create_directory_symlink("real/deep", Place("link"));
    EXPECT_EQ(BPath(Place("link/../x").c_str()).Path(), Place("real/x"));
    EXPECT_EQ(BPath(Place("link/x").c_str()).Path(), Place("link/x"));
    EXPECT_EQ(BPath(Place("link/x").c_str(), nullptr, true).Path(), Place("real/deep/x"));
    EXPECT_EQ(BPath(Place("none/../x").c_str()).InitCheck(), B_ENTRY_NOT_FOUND);
}

TEST_F(PathTest, HasALeafAndAParent) {
    BPath path("/a/b");
    EXPECT_STREQ(path.Leaf(), "b");
    EXPECT_EQ(path.GetParent(&path), B_OK);
    EXPECT_STREQ(path.Path(), "/a");
    EXPECT_EQ(path.GetParent(&path), B_OK);
    EXPECT_STREQ(path.Path(), "/");
    EXPECT_STREQ(path.Leaf(), "");
    EXPECT_EQ(path.GetParent(&path), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(path.Append("c"), B_OK);
    EXPECT_EQ(path.Append(path.Leaf()), B_OK);
    EXPECT_TRUE(path == "/c/c");
    EXPECT_TRUE(path == BPath("/c", "c"));
}

class FindDirectoryTest : public TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        for (const char* name : kNames)
            fOld.push_back(getenv(name) != nullptr ? getenv(name) : "");
        setenv("HOME", Folder().c_str(), 1);
    }

    void TearDown() override {
        for (size_t i = 0; i < std::size(kNames); i++) {
            if (fOld[i].empty())
                unsetenv(kNames[i]);
            else
                setenv(kNames[i], fOld[i].c_str(), 1);
        }
        TemporaryFolder::TearDown();
    }

private:
    static constexpr const char* kNames[] = {"HOME", "XDG_CONFIG_HOME", "TMPDIR"};
    std::vector<std::string> fOld;
};

TEST_F(FindDirectoryTest, SettingsLieWhereTheDesktopKeepsThem) {
    BPath path;
    unsetenv("XDG_CONFIG_HOME");
    ASSERT_EQ(find_directory(B_USER_SETTINGS_DIRECTORY, &path), B_OK);
    EXPECT_EQ(path.Path(), Place(".config"));
    EXPECT_FALSE(std::filesystem::exists(Place(".config")));

    setenv("XDG_CONFIG_HOME", Place("deep/settings").c_str(), 1);
    ASSERT_EQ(find_directory(B_USER_SETTINGS_DIRECTORY, &path, true), B_OK);
    EXPECT_EQ(path.Path(), Place("deep/settings"));
    EXPECT_EQ(std::filesystem::status(Place("deep/settings")).permissions(),
        std::filesystem::perms::owner_all);
    ASSERT_EQ(find_directory(B_USER_SETTINGS_DIRECTORY, &path, true), B_OK);

    setenv("XDG_CONFIG_HOME", "relative", 1);
    ASSERT_EQ(find_directory(B_USER_SETTINGS_DIRECTORY, &path), B_OK);
    EXPECT_EQ(path.Path(), Place(".config"));

    MakeFile("blocked");
    setenv("XDG_CONFIG_HOME", Place("blocked").c_str(), 1);
    EXPECT_EQ(find_directory(B_USER_SETTINGS_DIRECTORY, &path, true), B_NOT_A_DIRECTORY);
    EXPECT_EQ(path.InitCheck(), B_NO_INIT);
}

TEST_F(FindDirectoryTest, KnowsHomeAndTemporaryFolder) {
    BPath path;
    ASSERT_EQ(find_directory(B_USER_DIRECTORY, &path), B_OK);
    EXPECT_EQ(path.Path(), Folder());
    setenv("TMPDIR", Folder().c_str(), 1);
    ASSERT_EQ(find_directory(B_SYSTEM_TEMP_DIRECTORY, &path), B_OK);
    EXPECT_EQ(path.Path(), Folder());
    unsetenv("TMPDIR");
    ASSERT_EQ(find_directory(B_SYSTEM_TEMP_DIRECTORY, &path), B_OK);
    EXPECT_STREQ(path.Path(), "/tmp");
    EXPECT_EQ(find_directory(directory_which(1), &path), B_BAD_VALUE);
    EXPECT_EQ(find_directory(B_USER_DIRECTORY, nullptr), B_BAD_VALUE);
}
