#include "tests/kits/storage/TemporaryFolder.h"
#include <storage/Node.h>
#include <support/TypeConstants.h>
#include <sys/xattr.h>
#include <vector>

class AttributesTest : public TemporaryFolder {
protected:
    void SetUp() override {
        TemporaryFolder::SetUp();
        fPath = MakeFile("file", "data");
        if (setxattr(fPath.c_str(), "user.probe", "", 0, 0) != 0)
            GTEST_SKIP() << "the temporary folder's file system keeps no attributes";
        removexattr(fPath.c_str(), "user.probe");
        ASSERT_EQ(fNode.SetTo(fPath.c_str()), B_OK);
    }

    std::vector<std::string> Names() {
        std::vector<std::string> names;
        char name[B_ATTR_NAME_LENGTH];
        fNode.RewindAttrs();
        while (fNode.GetNextAttrName(name) == B_OK)
            names.push_back(name);
        return names;
    }

    std::string fPath;
    BNode fNode;
};

TEST_F(AttributesTest, KeepsValueAndType) {
    const int32 number = 0x01020304;
    const struct {
        const char* name;
        type_code type;
        std::string value;
    } kCases[] = {
        {"text", B_STRING_TYPE, "text"},
        {"text with NUL", B_STRING_TYPE, std::string("text", 5)},
        {"umlaut \xc3\xa4", B_STRING_TYPE, "\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80"},
        {"not text", B_STRING_TYPE, "\xff\xfe"},
        {"empty", B_STRING_TYPE, ""},
        {"raw", B_RAW_TYPE, std::string("\0\1\2", 3)},
        {"raw text", B_RAW_TYPE, "looks like text"},
        {"number", B_INT32_TYPE, std::string(reinterpret_cast<const char*>(&number), 4)},
        {"mime", B_MIME_TYPE, "image/jpeg"},
        {"own:type", 'XyZ1', std::string(1000, '\x80')},
    };
    for (const auto& test : kCases) {
        SCOPED_TRACE(test.name);
        const size_t size = test.value.size();
        EXPECT_EQ(fNode.WriteAttr(test.name, test.type, 0, test.value.data(), size), ssize_t(size));
        attr_info info;
        ASSERT_EQ(fNode.GetAttrInfo(test.name, &info), B_OK);
        EXPECT_EQ(info.type, test.type);
        EXPECT_EQ(info.size, off_t(size));
        std::string value(size + 10, '?');
        EXPECT_EQ(
            fNode.ReadAttr(test.name, test.type, 0, value.data(), value.size()), ssize_t(size));
        EXPECT_EQ(value.substr(0, size), test.value);
    }
    EXPECT_EQ(Names().size(), std::size(kCases));
}

TEST_F(AttributesTest, OtherProgramsReadAndWriteTheSameBytes) {
    fNode.WriteAttr("mime", B_MIME_TYPE, 0, "image/png", 9);
    char value[16] = {};
    EXPECT_EQ(getxattr(fPath.c_str(), "user.mime", value, sizeof(value)), 9);
    EXPECT_STREQ(value, "image/png");

    setxattr(fPath.c_str(), "user.xdg.comment", "hello", 5, 0);
    setxattr(fPath.c_str(), "user.binary", "\0\xff", 2, 0);
    attr_info info;
    ASSERT_EQ(fNode.GetAttrInfo("xdg.comment", &info), B_OK);
    EXPECT_EQ(info.type, B_STRING_TYPE);
    ASSERT_EQ(fNode.GetAttrInfo("binary", &info), B_OK);
    EXPECT_EQ(info.type, B_RAW_TYPE);
    EXPECT_EQ(Names().size(), 3u);
}

TEST_F(AttributesTest, ATypeGoesWithItsValue) {
    fNode.WriteAttr("a", B_INT32_TYPE, 0, "1234", 4);
    EXPECT_EQ(fNode.WriteAttr("a", B_STRING_TYPE, 0, "text", 4), 4);
    attr_info info;
    ASSERT_EQ(fNode.GetAttrInfo("a", &info), B_OK);
    EXPECT_EQ(info.type, B_STRING_TYPE);
    fNode.WriteAttr("b", B_INT32_TYPE, 0, "1234", 4);
    EXPECT_EQ(fNode.RemoveAttr("b"), B_OK);
    EXPECT_EQ(listxattr(fPath.c_str(), nullptr, 0), ssize_t(sizeof("user.a")));
}

TEST_F(AttributesTest, WritesAndReadsAtAnOffset) {
    fNode.WriteAttr("a", B_STRING_TYPE, 0, "0123456789", 10);
    EXPECT_EQ(fNode.WriteAttr("a", B_STRING_TYPE, 8, "abcd", 4), 4);
    char value[32] = {};
    EXPECT_EQ(fNode.ReadAttr("a", B_STRING_TYPE, 6, value, sizeof(value)), 6);
    EXPECT_STREQ(value, "67abcd");
    EXPECT_EQ(fNode.ReadAttr("a", B_STRING_TYPE, 100, value, sizeof(value)), 0);
    EXPECT_EQ(fNode.WriteAttr("a", B_STRING_TYPE, 0, "x", 1), 1);
    EXPECT_EQ(fNode.ReadAttr("a", B_STRING_TYPE, 0, value, sizeof(value)), 1);
}

TEST_F(AttributesTest, Renames) {
    fNode.WriteAttr("old", B_INT32_TYPE, 0, "1234", 4);
    fNode.WriteAttr("there", B_STRING_TYPE, 0, "x", 1);
    EXPECT_EQ(fNode.RenameAttr("old", "there"), B_FILE_EXISTS);
    EXPECT_EQ(fNode.RenameAttr("old", "new"), B_OK);
    attr_info info;
    ASSERT_EQ(fNode.GetAttrInfo("new", &info), B_OK);
    EXPECT_EQ(info.type, B_INT32_TYPE);
    EXPECT_EQ(fNode.GetAttrInfo("old", &info), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(fNode.RenameAttr("old", "newer"), B_ENTRY_NOT_FOUND);
}

TEST_F(AttributesTest, RefusesWhatCannotBe) {
    char value[4];
    EXPECT_EQ(fNode.ReadAttr("none", 0, 0, value, 4), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(fNode.RemoveAttr("none"), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(fNode.WriteAttr("", B_RAW_TYPE, 0, "", 0), B_BAD_VALUE);
    EXPECT_EQ(fNode.WriteAttr("a", B_RAW_TYPE, -1, "x", 1), B_BAD_VALUE);
    EXPECT_EQ(fNode.WriteAttr("be.type.a", B_RAW_TYPE, 0, "x", 1), B_NOT_ALLOWED);
    EXPECT_EQ(
        fNode.WriteAttr(std::string(251, 'n').c_str(), B_STRING_TYPE, 0, "x", 1), B_NAME_TOO_LONG);
    EXPECT_EQ(fNode.WriteAttr(std::string(250, 'n').c_str(), B_STRING_TYPE, 0, "x", 1), 1);
    EXPECT_EQ(Names(), std::vector<std::string>{std::string(250, 'n')});
    EXPECT_EQ(
        fNode.WriteAttr(std::string(250, 'n').c_str(), B_INT8_TYPE, 0, "x", 1), B_NAME_TOO_LONG);
    const std::string huge(100000, 'h');
    EXPECT_EQ(fNode.WriteAttr("huge", B_INT32_TYPE, 0, huge.data(), huge.size()), B_DEVICE_FULL);
    EXPECT_EQ(Names().size(), 1u);
    BNode unset;
    EXPECT_EQ(unset.WriteAttr("a", B_RAW_TYPE, 0, "x", 1), B_NO_INIT);
    EXPECT_EQ(unset.GetNextAttrName(value), B_NO_INIT);
}

TEST_F(AttributesTest, FoldersHaveThemAndLinksDoNot) {
    BNode folder(Folder().c_str());
    EXPECT_EQ(folder.WriteAttr("a", B_STRING_TYPE, 0, "x", 1), 1);
    std::filesystem::create_symlink("file", Place("link"));
    BNode link(Place("link").c_str());
    EXPECT_TRUE(link.IsSymLink());
    EXPECT_LT(link.WriteAttr("a", B_STRING_TYPE, 0, "x", 1), 0);
    EXPECT_TRUE(Names().empty());
}
