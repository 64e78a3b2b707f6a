#include "framework/FileCopy.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <storage/Node.h>
#include <support/TypeConstants.h>
#include <vector>

#include "tests/framework/TemporaryFolder.h"

namespace {

std::string attribute(const std::string& path, const char* name) {
    BNode node(path.c_str());
    attr_info info;
    if (node.GetAttrInfo(name, &info) != B_OK)
        return "(none)";
    std::string value(static_cast<size_t>(info.size), '\0');
    EXPECT_EQ(node.ReadAttr(name, info.type, 0, value.data(), value.size()), info.size);
    return value;
}

bool set_attribute(
    const std::string& path, const char* name, type_code type, const std::string& value) {
    BNode node(path.c_str());
    return node.WriteAttr(name, type, 0, value.data(), value.size()) ==
        static_cast<ssize_t>(value.size());
}

class FileCopyTest : public testing::Test {
protected:
    FileCopyTest() : fSource(fFolder / "source.jpg") { write_text(fSource, "the data"); }

    int CountFiles() const {
        return static_cast<int>(
            std::distance(std::filesystem::directory_iterator(fFolder.Path()), {}));
    }

    TTemporaryFolder fFolder;
    std::string fSource;
};

TEST_F(FileCopyTest, CopiesData) {
    const std::string target = fFolder / "target.jpg";
    EXPECT_EQ(copy_file(fSource.c_str(), target.c_str()), B_OK);
    EXPECT_EQ(read_text(target), "the data");
    EXPECT_EQ(read_text(fSource), "the data");
    EXPECT_EQ(CountFiles(), 2);
}

TEST_F(FileCopyTest, CopiesLargeAndEmptyFiles) {
    std::string data(1000 * 1000 + 7, '\0');
    for (size_t i = 0; i < data.size(); i++)
        data[i] = static_cast<char>(i * 31 >> 3);
    write_text(fSource, data);
    const std::string target = fFolder / "target";
    EXPECT_EQ(copy_file(fSource.c_str(), target.c_str()), B_OK);
    EXPECT_TRUE(read_text(target) == data);

    write_text(fSource, "");
    EXPECT_EQ(copy_file(fSource.c_str(), target.c_str()), B_OK);
    EXPECT_EQ(read_text(target), "");
}

TEST_F(FileCopyTest, CopiesAttributesWithTheirTypes) {
    if (!set_attribute(fSource, "Comment", B_STRING_TYPE, "a text"))
        GTEST_SKIP() << "the file system keeps no attributes";
    const std::string number("\1\2\3\0", 4);
    ASSERT_TRUE(set_attribute(fSource, "Rating", B_INT32_TYPE, number));
    ASSERT_TRUE(set_attribute(fSource, "Empty", B_RAW_TYPE, ""));

    const std::string target = fFolder / "target.jpg";
    ASSERT_EQ(copy_file(fSource.c_str(), target.c_str()), B_OK);
    EXPECT_EQ(attribute(target, "Comment"), "a text");
    EXPECT_EQ(attribute(target, "Rating"), number);
    EXPECT_EQ(attribute(target, "Empty"), "");
    attr_info info;
    ASSERT_EQ(BNode(target.c_str()).GetAttrInfo("Rating", &info), B_OK);
    EXPECT_EQ(info.type, static_cast<type_code>(B_INT32_TYPE));
}

TEST_F(FileCopyTest, KeepsPermissions) {
    namespace fs = std::filesystem;
    constexpr auto kPermissions = fs::perms::owner_all | fs::perms::group_read;
    fs::permissions(fSource, kPermissions);
    const std::string target = fFolder / "target";
    ASSERT_EQ(copy_file(fSource.c_str(), target.c_str()), B_OK);
    EXPECT_EQ(fs::status(target).permissions(), kPermissions);
}

TEST_F(FileCopyTest, ReplacesAFile) {
    const std::string target = fFolder / "target.jpg";
    write_text(target, "something longer than the data");
    EXPECT_EQ(copy_file(fSource.c_str(), target.c_str()), B_OK);
    EXPECT_EQ(read_text(target), "the data");
}

TEST_F(FileCopyTest, CopiesIntoAFolderUnderTheLeafName) {
    const std::string folder = fFolder / "folder";
    std::filesystem::create_directory(folder);
    EXPECT_EQ(copy_file(fSource.c_str(), folder.c_str()), B_OK);
    EXPECT_EQ(read_text(folder + "/source.jpg"), "the data");

    const std::string link = fFolder / "link";
    std::filesystem::create_directory_symlink(folder, link);
    std::filesystem::remove(folder + "/source.jpg");
    EXPECT_EQ(copy_file(fSource.c_str(), link.c_str()), B_OK);
    EXPECT_EQ(read_text(folder + "/source.jpg"), "the data");
}

TEST_F(FileCopyTest, NamesAreNeverReadAsCommands) {
    const std::string odd = fFolder / "a\"; touch \"$(echo x)`echo y`\\ \n*?.jpg";
    EXPECT_EQ(copy_file(fSource.c_str(), odd.c_str()), B_OK);
    EXPECT_EQ(read_text(odd), "the data");
    const std::string back = fFolder / "-rf";
    EXPECT_EQ(copy_file(odd.c_str(), back.c_str()), B_OK);
    EXPECT_EQ(read_text(back), "the data");
    EXPECT_EQ(CountFiles(), 3);
}

TEST_F(FileCopyTest, LeavesAFileCopiedOntoItself) {
    const std::string link = fFolder / "link.jpg";
    std::filesystem::create_symlink(fSource, link);
    const std::string hardLink = fFolder / "hard.jpg";
    std::filesystem::create_hard_link(fSource, hardLink);

    EXPECT_EQ(copy_file(fSource.c_str(), fSource.c_str()), B_BAD_VALUE);
    EXPECT_EQ(copy_file(fSource.c_str(), (fFolder / "./source.jpg").c_str()), B_BAD_VALUE);
    EXPECT_EQ(copy_file(fSource.c_str(), fFolder.Path().c_str()), B_BAD_VALUE);
    EXPECT_EQ(copy_file(fSource.c_str(), link.c_str()), B_BAD_VALUE);
    EXPECT_EQ(copy_file(link.c_str(), fSource.c_str()), B_BAD_VALUE);
    EXPECT_EQ(copy_file(fSource.c_str(), hardLink.c_str()), B_BAD_VALUE);
    EXPECT_EQ(read_text(fSource), "the data");
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(CountFiles(), 3);
}

TEST_F(FileCopyTest, RefusesWhatCannotBeCopied) {
    const std::string target = fFolder / "target";
    write_text(target, "old");
    EXPECT_EQ(copy_file((fFolder / "missing").c_str(), target.c_str()), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(copy_file(fFolder.Path().c_str(), target.c_str()), B_IS_A_DIRECTORY);
    EXPECT_EQ(copy_file(fSource.c_str(), (fFolder / "no/target").c_str()), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(copy_file(nullptr, target.c_str()), B_BAD_VALUE);
    EXPECT_EQ(copy_file(fSource.c_str(), nullptr), B_BAD_VALUE);
    EXPECT_EQ(copy_file("", target.c_str()), B_BAD_VALUE);
    EXPECT_EQ(copy_file(fSource.c_str(), ""), B_BAD_VALUE);
    EXPECT_EQ(read_text(target), "old");
    EXPECT_EQ(CountFiles(), 2);
}

TEST_F(FileCopyTest, RefusesPathsOfMoreThan511Bytes) {
    // Folders of long names make a path of exactly the wanted length.
    const auto path_of_length = [&](size_t length) {
        std::string path = fFolder.Path();
        while (path.size() + 202 < length)
            path += "/" + std::string(200, 'd');
        std::filesystem::create_directories(path);
        return path + "/" + std::string(length - path.size() - 1, 'n');
    };
    const std::string fits = path_of_length(511);
    ASSERT_EQ(fits.size(), 511U);
    EXPECT_EQ(copy_file(fSource.c_str(), fits.c_str()), B_OK);
    EXPECT_EQ(read_text(fits), "the data");

    const std::string tooLong = path_of_length(512);
    EXPECT_EQ(copy_file(fSource.c_str(), tooLong.c_str()), B_NAME_TOO_LONG);
    EXPECT_FALSE(std::filesystem::exists(tooLong));
    write_text(tooLong, "x");
    EXPECT_EQ(copy_file(tooLong.c_str(), (fFolder / "target").c_str()), B_NAME_TOO_LONG);

    // The folder fits, but not with the leaf name below it.
    const std::string folder = path_of_length(505);
    std::filesystem::create_directory(folder);
    EXPECT_EQ(copy_file(fSource.c_str(), folder.c_str()), B_NAME_TOO_LONG);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    EXPECT_EQ(copy_file(std::string(100000, 'x').c_str(), "y"), B_NAME_TOO_LONG);
}

}  // namespace
