#include "tests/kits/storage/TemporaryFolder.h"
#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <set>
#include <storage/Directory.h>
#include <storage/Entry.h>
#include <storage/File.h>
#include <storage/Path.h>

using DirectoryTest = TemporaryFolder;

TEST_F(DirectoryTest, ListsEveryEntryOnceByFullPath) {
    std::set<std::string> expected;
    for (int i = 0; i < 3000; i++)
        expected.insert(MakeFile("name " + std::to_string(i) + std::string(size_t(i % 200), 'x')));
    std::filesystem::create_directory(Place("folder"));
    std::filesystem::create_symlink("nowhere", Place("link"));
    expected.insert({Place("folder"), Place("link"), MakeFile(".hidden"), MakeFile("\xff\n")});

    BDirectory folder(Folder().c_str());
    EXPECT_EQ(folder.CountEntries(), int32(expected.size()));
    for (int round = 0; round < 2; round++) {
        std::set<std::string> found;
        BEntry entry;
        BPath path;
        while (folder.GetNextEntry(&entry) == B_OK) {
            ASSERT_EQ(entry.GetPath(&path), B_OK);
            EXPECT_TRUE(found.insert(path.Path()).second) << path.Path();
        }
        EXPECT_EQ(found, expected);
        EXPECT_EQ(folder.GetNextEntry(&entry), B_ENTRY_NOT_FOUND);
        EXPECT_EQ(folder.Rewind(), B_OK);
    }
    entry_ref ref;
    size_t refs = 0;
    while (folder.GetNextRef(&ref) == B_OK) {
        EXPECT_TRUE(expected.contains(BPath(&ref).Path()));
        refs++;
    }
    EXPECT_EQ(refs, expected.size());
}

TEST_F(DirectoryTest, TraversingGivesTheTargets) {
    MakeFile("target");
    std::filesystem::create_directory(Place("folder"));
    std::filesystem::create_symlink("../target", Place("folder/link"));
    BDirectory folder(Place("folder").c_str());
    BEntry entry;
    ASSERT_EQ(folder.GetNextEntry(&entry, true), B_OK);
    BPath path;
    ASSERT_EQ(entry.GetPath(&path), B_OK);
    EXPECT_EQ(path.Path(), Place("target"));
}

TEST_F(DirectoryTest, GivesTheSystemsRecords) {
    for (int i = 0; i < 20; i++)
        MakeFile(std::to_string(i));
    BDirectory folder(Folder().c_str());
    alignas(dirent) char buffer[200];
    std::set<std::string> names;
    int32 count;
    while ((count = folder.GetNextDirents(reinterpret_cast<dirent*>(buffer), sizeof(buffer))) > 0) {
        const char* at = buffer;
        for (; count > 0; count--) {
            const auto* record = reinterpret_cast<const dirent*>(at);
            names.insert(record->d_name);
            at += record->d_reclen;
        }
    }
    EXPECT_EQ(count, 0);
    EXPECT_EQ(names.size(), 22u);  // "." and ".." as well
    folder.Rewind();
    EXPECT_EQ(folder.GetNextDirents(reinterpret_cast<dirent*>(buffer), 3), B_BAD_VALUE);
    EXPECT_EQ(folder.GetNextDirents(reinterpret_cast<dirent*>(buffer), sizeof(buffer), 1), 1);
}

TEST_F(DirectoryTest, OpensFoldersOnly) {
    BDirectory folder;
    EXPECT_EQ(folder.SetTo(MakeFile("file").c_str()), B_NOT_A_DIRECTORY);
    EXPECT_EQ(folder.SetTo(Place("none").c_str()), B_ENTRY_NOT_FOUND);
    std::filesystem::create_directory_symlink(".", Place("link"));
    EXPECT_EQ(folder.SetTo(Place("link").c_str()), B_OK);
    BEntry entry;
    EXPECT_EQ(folder.GetEntry(&entry), B_OK);
    EXPECT_TRUE(entry == BEntry(Folder().c_str()));
    EXPECT_FALSE(folder.IsRootDirectory());
    EXPECT_TRUE(BDirectory("/").IsRootDirectory());
    folder.Unset();
    EXPECT_EQ(folder.GetNextEntry(&entry), B_NO_INIT);
    EXPECT_EQ(folder.CountEntries(), B_NO_INIT);
}

TEST_F(DirectoryTest, MakesFoldersAndFilesBelow) {
    BDirectory folder(Folder().c_str());
    BDirectory below;
    EXPECT_EQ(folder.CreateDirectory("below", &below), B_OK);
    EXPECT_EQ(folder.CreateDirectory("below", nullptr), B_FILE_EXISTS);
    EXPECT_EQ(folder.CreateDirectory("none/below", nullptr), B_ENTRY_NOT_FOUND);
    BFile file;
    ASSERT_EQ(below.CreateFile("file", &file), B_OK);
    EXPECT_TRUE(below.Contains("file"));
    EXPECT_TRUE(folder.Contains("below/file"));
    EXPECT_FALSE(folder.Contains("file"));
    EXPECT_EQ(file.Write("text", 4), 4);
    EXPECT_EQ(below.CreateFile("file", &file, true), B_FILE_EXISTS);
    EXPECT_EQ(Contents(Place("below/file")), "text");
    EXPECT_EQ(below.CreateFile("file", nullptr), B_OK);
    EXPECT_EQ(Contents(Place("below/file")), "");
    const BEntry entry(Place("below/file").c_str());
    EXPECT_TRUE(folder.Contains(&entry));
    EXPECT_TRUE(below.Contains(&entry));
    const BEntry own(Folder().c_str());
    EXPECT_FALSE(folder.Contains(&own));
    BEntry found;
    EXPECT_EQ(folder.FindEntry("below/none", &found), B_ENTRY_NOT_FOUND);
}

TEST_F(DirectoryTest, CreateDirectoryMakesAllThatIsMissing) {
    EXPECT_EQ(create_directory(Place("a//b/c/").c_str(), 0777), B_OK);
    EXPECT_TRUE(std::filesystem::is_directory(Place("a/b/c")));
    EXPECT_EQ(create_directory(Place("a/b").c_str(), 0777), B_OK);
    MakeFile("file");
    EXPECT_EQ(create_directory(Place("file").c_str(), 0777), B_NOT_A_DIRECTORY);
    EXPECT_EQ(create_directory(Place("file/below").c_str(), 0777), B_NOT_A_DIRECTORY);
    EXPECT_EQ(create_directory("", 0777), B_BAD_VALUE);
    // Without the right to write a folder would shut out the next one below.
    EXPECT_EQ(create_directory(Place("d/e").c_str(), 0500), B_OK);
    std::filesystem::permissions(Place("d/e"), std::filesystem::perms::owner_all);
}
