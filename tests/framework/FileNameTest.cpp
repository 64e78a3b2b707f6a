#include "framework/FileName.h"

#include <gtest/gtest.h>

namespace {

struct PathCase {
    const char* path;
    const char* name;
    const char* ext;
    const char* body;
    const char* folder;           // without the separator
    const char* folderSeparated;  // with it
};

class PathTest : public testing::TestWithParam<PathCase> {};

TEST_P(PathTest, IsTakenApart) {
    const PathCase& c = GetParam();
    EXPECT_EQ(extract_file_name(c.path), c.name);
    EXPECT_EQ(extract_file_ext(c.path), c.ext);
    EXPECT_EQ(extract_file_body(c.path), c.body);
    EXPECT_EQ(extract_file_folder_path_kernel(c.path, 0), c.folder);
    EXPECT_EQ(extract_file_folder_path_kernel(c.path, 1), c.folderSeparated);
}

INSTANTIATE_TEST_SUITE_P(Paths, PathTest,
    testing::Values(PathCase{"/a/b/c.png", "c.png", "png", "c", "/a/b", "/a/b/"},
        PathCase{"c.png", "c.png", "png", "c", "", ""},
        PathCase{"a.b/c", "c", "b/c", "c", "a.b", "a.b/"},
        PathCase{"/c.png", "c.png", "png", "c", "", "/"}, PathCase{"c", "c", "", "c", "", ""},
        PathCase{"", "", "", "", "", ""}, PathCase{"/", "", "", "", "", "/"},
        PathCase{"/a/", "", "", "", "/a", "/a/"},
        PathCase{"x.tar.gz", "x.tar.gz", "gz", "x.tar", "", ""},
        PathCase{".hidden", ".hidden", "hidden", "", "", ""},
        PathCase{"/a/.hidden", ".hidden", "hidden", "", "/a", "/a/"},
        PathCase{"dot.", "dot.", "", "dot", "", ""}, PathCase{".", ".", "", "", "", ""},
        PathCase{"..", "..", "", ".", "", ""}, PathCase{"a//b.c", "b.c", "c", "b", "a/", "a//"},
        PathCase{"/写真/絵.jpg", "絵.jpg", "jpg", "絵", "/写真", "/写真/"}));

struct ExtCase {
    const char* path;
    const char* ext;
    const char* added;
    const char* replaced;
};

class ExtTest : public testing::TestWithParam<ExtCase> {};

TEST_P(ExtTest, IsAddedAndReplaced) {
    const ExtCase& c = GetParam();
    EXPECT_EQ(add_ext(c.path, c.ext), c.added);
    EXPECT_EQ(reext(c.path, c.ext), c.replaced);
}

INSTANTIATE_TEST_SUITE_P(Paths, ExtTest,
    testing::Values(ExtCase{"pic.jpg", "txt", "pic.jpg", "pic.txt"},
        ExtCase{"pic", "txt", "pic.txt", "pic.txt"},
        ExtCase{"dir.x/pic", "txt", "dir.x/pic.txt", "dir.x/pic.txt"},
        ExtCase{"dir.x/pic.jpg", "txt", "dir.x/pic.jpg", "dir.x/pic.txt"},
        ExtCase{"a.b.c", "d", "a.b.c", "a.b.d"}, ExtCase{".a", "b", ".a", ".b"},
        ExtCase{"dir.x/.a", "b", "dir.x/.a", "dir.x/.b"}, ExtCase{"a.", "b", "a.", "a.b"},
        ExtCase{"", "b", ".b", ".b"}, ExtCase{"a/", "b", "a/.b", "a/.b"},
        ExtCase{"pic.jpg", "", "pic.jpg", "pic."}, ExtCase{"pic", "", "pic.", "pic."}));

TEST(FileName, FolderMayBeExtendedBeyondItsSeparator) {
    EXPECT_EQ(extract_file_folder_path_kernel("/a/b", 2), "/a/b");
    EXPECT_EQ(extract_file_folder_path_kernel("/a/b", 100), "/a/b");
    EXPECT_EQ(extract_file_folder_path_kernel("/a/b", -1), "/");
    EXPECT_EQ(extract_file_folder_path_kernel("/a/b", -100), "");
}

TEST(FileName, TrimTakesSpacesAndTabsFromBothEnds) {
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim(" \t \t"), "");
    EXPECT_EQ(trim("a"), "a");
    EXPECT_EQ(trim(" \ta b\t "), "a b");
    EXPECT_EQ(trim("a "), "a");
    EXPECT_EQ(trim("\ta"), "a");
    EXPECT_EQ(trim(" \n "), "\n");
}

}  // namespace
