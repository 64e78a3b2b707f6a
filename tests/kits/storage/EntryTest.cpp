#include "tests/kits/storage/TemporaryFolder.h"
#include <filesystem>
#include <storage/Directory.h>
#include <storage/Entry.h>
#include <storage/Path.h>
#include <sys/stat.h>
#include <unistd.h>

using EntryTest = TemporaryFolder;

static std::string PathOf(const BEntry& entry) {
    BPath path;
    return entry.GetPath(&path) == B_OK ? path.Path() : "<none>";
}

TEST_F(EntryTest, MayBeEmptyButItsFolderMustExist) {
    BEntry entry(Place("nothing").c_str());
    EXPECT_EQ(entry.InitCheck(), B_OK);
    EXPECT_FALSE(entry.Exists());
    EXPECT_EQ(PathOf(entry), Place("nothing"));
    MakeFile("nothing");
    EXPECT_TRUE(entry.Exists());
    EXPECT_TRUE(entry.IsFile());
    EXPECT_EQ(entry.SetTo(Place("no/such").c_str()), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(entry.SetTo((Place("nothing") + "/below").c_str()), B_NOT_A_DIRECTORY);
    EXPECT_EQ(entry.SetTo(""), B_BAD_VALUE);
    EXPECT_EQ(entry.SetTo(static_cast<const char*>(nullptr)), B_BAD_VALUE);
    EXPECT_FALSE(entry.Exists());
}

TEST_F(EntryTest, NamesAreBytes) {
    for (const std::string& name : {std::string("\xff\xfe not text"), std::string("two\nlines"),
             std::string(" "), std::string(255, 'x'), std::string("a.b/..").substr(0, 3)}) {
        MakeFile(name);
        BEntry entry(Place(name).c_str());
        EXPECT_TRUE(entry.Exists());
        char buffer[B_FILE_NAME_LENGTH];
        ASSERT_EQ(entry.GetName(buffer), B_OK);
        EXPECT_EQ(buffer, name);
        entry_ref ref;
        ASSERT_EQ(entry.GetRef(&ref), B_OK);
        EXPECT_EQ(ref.name, name);
        BEntry again(&ref);
        EXPECT_TRUE(again.Exists());
        EXPECT_TRUE(again == entry);
    }
    BEntry entry;
    EXPECT_EQ(entry.SetTo(Place(std::string(256, 'x')).c_str()), B_NAME_TOO_LONG);
}

TEST_F(EntryTest, FollowsLinksOnlyWhenAsked) {
    MakeFile("target");
    std::filesystem::create_symlink("target", Place("link"));
    std::filesystem::create_symlink("gone", Place("dangling"));
    std::filesystem::create_symlink("circle", Place("circle"));
    BEntry entry(Place("link").c_str());
    EXPECT_TRUE(entry.IsSymLink());
    EXPECT_EQ(PathOf(entry), Place("link"));
    EXPECT_EQ(entry.SetTo(Place("link").c_str(), true), B_OK);
    EXPECT_EQ(PathOf(entry), Place("target"));
    EXPECT_TRUE(BEntry(Place("dangling").c_str()).Exists());
    EXPECT_EQ(entry.SetTo(Place("dangling").c_str(), true), B_OK);
    EXPECT_FALSE(entry.Exists());
    EXPECT_EQ(PathOf(entry), Place("gone"));
    EXPECT_EQ(entry.SetTo(Place("circle").c_str(), true), B_LINK_LIMIT);
}

TEST_F(EntryTest, TheFolderOfAPathHasNoLinks) {
    std::filesystem::create_directory(Place("real"));
    std::filesystem::create_directory_symlink("real", Place("link"));
    MakeFile("real/file");
    const BEntry straight(Place("real/file").c_str());
    const BEntry around(Place("link/../real//./file/").c_str());
    EXPECT_EQ(PathOf(around), Place("real/file"));
    EXPECT_TRUE(straight == around);
    EXPECT_EQ(PathOf(BEntry(Place("real/..").c_str())), Folder());
}

TEST_F(EntryTest, RelativePathsBeginAtTheWorkingFolder) {
    const std::filesystem::path old = std::filesystem::current_path();
    std::filesystem::current_path(Folder());
    EXPECT_EQ(PathOf(BEntry("leaf")), Place("leaf"));
    EXPECT_EQ(PathOf(BEntry(".")), Folder());
    std::filesystem::current_path(old);
}

TEST_F(EntryTest, TheRootIsAnEntryWithoutParent) {
    BEntry root("/");
    ASSERT_EQ(root.InitCheck(), B_OK);
    EXPECT_TRUE(root.IsDirectory());
    char name[B_FILE_NAME_LENGTH];
    EXPECT_EQ(root.GetName(name), B_OK);
    EXPECT_STREQ(name, "/");
    BEntry parent;
    EXPECT_EQ(root.GetParent(&parent), B_ENTRY_NOT_FOUND);
    entry_ref ref;
    ASSERT_EQ(root.GetRef(&ref), B_OK);
    EXPECT_TRUE(BEntry(&ref) == root);
    EXPECT_EQ(BEntry("/usr").GetParent(&parent), B_OK);
    EXPECT_TRUE(parent == root);
}

TEST_F(EntryTest, RenamesMovesAndRemoves) {
    MakeFile("a", "A");
    MakeFile("b", "B");
    std::filesystem::create_directory(Place("folder"));
    BEntry entry(Place("a").c_str());
    EXPECT_EQ(entry.Rename("b"), B_FILE_EXISTS);
    EXPECT_EQ(PathOf(entry), Place("a"));
    EXPECT_EQ(entry.Rename("c"), B_OK);
    EXPECT_EQ(PathOf(entry), Place("c"));
    EXPECT_EQ(entry.Rename("b", true), B_OK);
    EXPECT_EQ(Contents(Place("b")), "A");
    BDirectory folder(Place("folder").c_str());
    EXPECT_EQ(entry.MoveTo(&folder), B_OK);
    EXPECT_EQ(PathOf(entry), Place("folder/b"));
    BEntry full(Place("folder").c_str());
    EXPECT_EQ(full.Remove(), B_DIRECTORY_NOT_EMPTY);
    EXPECT_EQ(entry.Remove(), B_OK);
    EXPECT_FALSE(entry.Exists());
    EXPECT_EQ(entry.InitCheck(), B_OK);
    EXPECT_EQ(entry.Remove(), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(full.Remove(), B_OK);
}

TEST_F(EntryTest, ReferencesCompareByFolderAndName) {
    std::filesystem::create_directory(Place("folder"));
    entry_ref a;
    entry_ref b;
    ASSERT_EQ(get_ref_for_path(Place("x").c_str(), &a), B_OK);
    ASSERT_EQ(get_ref_for_path((Place("folder/../x")).c_str(), &b), B_OK);
    EXPECT_TRUE(a == b);
    EXPECT_STREQ(b.name, "x");
    EXPECT_NE(a.name, b.name);
    ASSERT_EQ(get_ref_for_path(Place("folder/x").c_str(), &b), B_OK);
    EXPECT_FALSE(a == b);
    b = a;
    EXPECT_EQ(b.set_name("y"), B_OK);
    EXPECT_STREQ(a.name, "x");
    EXPECT_EQ(b.set_name(std::string(256, 'x').c_str()), B_NAME_TOO_LONG);
    EXPECT_STREQ(b.name, "y");
    EXPECT_EQ(BPath(&b).Path(), Place("y"));
    EXPECT_TRUE(entry_ref() == entry_ref());
}

TEST_F(EntryTest, AReferenceToAMissingFolderStillHasItsPath) {
    entry_ref a;
    entry_ref b;
    EXPECT_EQ(get_ref_for_path("/no/such/one", &a), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(get_ref_for_path("/no/other/one", &b), B_ENTRY_NOT_FOUND);
    EXPECT_STREQ(BPath(&a).Path(), "/no/such/one");
    EXPECT_FALSE(a == b);
    EXPECT_EQ(BEntry(&a).InitCheck(), B_ENTRY_NOT_FOUND);
}

TEST_F(EntryTest, PathsAboveTheSystemsLimitWork) {
    BDirectory folder(Folder().c_str());
    std::string path = Folder();
    const std::string part(200, 'd');
    for (int i = 0; i < 30; i++) {
        BDirectory below;
        ASSERT_EQ(folder.CreateDirectory(part.c_str(), &below), B_OK) << i;
        path += "/" + part;
        ASSERT_EQ(folder.SetTo(path.c_str()), B_OK) << i;
    }
    ASSERT_GT(path.size(), 6000u);
    ASSERT_EQ(folder.CreateFile("leaf", nullptr), B_OK);
    path += "/leaf";
    BEntry entry(path.c_str());
    EXPECT_TRUE(entry.IsFile());
    EXPECT_EQ(PathOf(entry), path);
    BEntry found;
    ASSERT_EQ(folder.GetNextEntry(&found), B_OK);
    EXPECT_TRUE(found == entry);
    entry_ref ref;
    ASSERT_EQ(entry.GetRef(&ref), B_OK);
    EXPECT_TRUE(BEntry(&ref).Exists());
    EXPECT_EQ(entry.Rename("other"), B_OK);
    EXPECT_EQ(entry.Remove(), B_OK);
}
