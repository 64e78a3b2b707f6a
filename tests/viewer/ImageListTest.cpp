#include "viewer/ImageList.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/framework/TemporaryFolder.h"
#include "tests/viewer/FakeRoster.h"

namespace {

class TestList : public TImageList {
public:
    using TImageList::CurrentPath;
    using TImageList::fCurrentIndex;
    using TImageList::IndexOf;
    using TImageList::ListFolder;
    using TImageList::Names;
    using TImageList::PathAt;
    using TImageList::SharedNames;
};

class ImageList : public testing::Test {
protected:
    ImageList() {
        fake::ReleaseAll();
        fRoster.AddTranslators(nullptr);
    }

    void WriteImage(const std::string& name) {
        write_text(fFolder / name, fake::ImageFile("image", 2, 2, {}));
    }
    void List() { fList.ListFolder(BEntry(fFolder.Path().c_str())); }

    TTemporaryFolder fFolder;
    BTranslatorRoster fRoster;
    TestList fList;
    translator_info fInfo;
};

TEST_F(ImageList, ListsEveryEntryInByteOrder) {
    for (const char* name : {"b", "B", "a.txt", ".hidden", "img9", "img10", "\xff\xfe", "x\ny"})
        write_text(fFolder / name, "");
    std::filesystem::create_directory(fFolder / "C");
    std::filesystem::create_symlink("/nowhere", fFolder / "link");
    List();
    std::vector<std::string> expected;
    for (const char* name :
        {".hidden", "B", "C", "a.txt", "b", "img10", "img9", "link", "x\ny", "\xff\xfe"})
        expected.push_back(fFolder / name);
    EXPECT_EQ(fList.Names(), expected);
    for (uint32 i = 0; i < expected.size(); ++i)
        EXPECT_EQ(fList.IndexOf(expected[i]), i);
    EXPECT_EQ(fList.IndexOf(fFolder / "c"), TImageList::kNoIndex);
    EXPECT_EQ(fList.PathAt(10), "");
    EXPECT_EQ(fList.CurrentPath(), "");
}

TEST_F(ImageList, IsEmptyForWhatIsNoFolder) {
    WriteImage("a");
    List();
    fList.fCurrentIndex = 0;
    fList.ListFolder(BEntry((fFolder / "a").c_str()));
    EXPECT_TRUE(fList.Names().empty());
    EXPECT_EQ(fList.fCurrentIndex, 0U);
    fList.ListFolder(BEntry((fFolder / "none").c_str()));
    EXPECT_TRUE(fList.Names().empty());
    fList.ListFolder(BEntry());
    EXPECT_TRUE(fList.Names().empty());
}

TEST_F(ImageList, KeepsItsNamesWhenTheyAreTheSame) {
    WriteImage("a");
    List();
    TestList copy = fList;
    List();
    EXPECT_EQ(fList.SharedNames(), copy.SharedNames());
    WriteImage("b");
    List();
    EXPECT_NE(fList.SharedNames(), copy.SharedNames());
    EXPECT_EQ(copy.Names().size(), 1U);
}

TEST_F(ImageList, TellsImagesByTheirContent) {
    write_text(fFolder / "text.jpg", "just text");
    WriteImage("picture");
    write_text(fFolder / "other", fake::ImageFile("notes", 2, 2, {}));
    EXPECT_TRUE(fList.IsImage(fFolder / "picture", &fRoster, &fInfo));
    EXPECT_EQ(fInfo.group, B_TRANSLATOR_BITMAP);
    EXPECT_FALSE(fList.IsImage(fFolder / "text.jpg", &fRoster, &fInfo));
    EXPECT_FALSE(fList.IsImage(fFolder / "other", &fRoster, &fInfo));
    EXPECT_FALSE(fList.IsImage(fFolder / "missing", &fRoster, &fInfo));
    EXPECT_FALSE(fList.IsImage(fFolder.Path(), &fRoster, &fInfo));
}

struct SearchCase {
    uint32 from;
    int32 delta;
    int64 found;  // -1: nothing
};

TEST_F(ImageList, FindsImagesWithoutWrappingAround) {
    // 0 text, 1 image, 2 text, 3 image, 4 image, 5 text
    for (const char* name : {"0", "2", "5"})
        write_text(fFolder / name, "text");
    for (const char* name : {"1", "3", "4"})
        WriteImage(name);
    List();
    const SearchCase kCases[] = {
        {TImageList::kNoIndex, 1, 1},
        {0, 1, 1},
        {1, 1, 3},
        {3, 1, 4},
        {4, 1, -1},
        {5, 1, -1},
        {5, -1, 4},
        {4, -1, 3},
        {3, -1, 1},
        {1, -1, -1},
        {0, -1, -1},
        {TImageList::kNoIndex, -1, -1},
        {0, 2, 4},
        {1, 2, 3},
        {5, -2, 3},
        {0, 6, -1},
        {2, 0, -1},
        {1, INT32_MAX, -1},
        {4, INT32_MIN, -1},
    };
    for (const SearchCase& c : kCases) {
        fList.fCurrentIndex = c.from;
        uint32 index = 0;
        status_t status = fList.GetImageIndex(&index, &fRoster, &fInfo, c.delta);
        EXPECT_EQ(status == B_OK ? int64{index} : int64{-1}, c.found) << c.from << " " << c.delta;
    }
    fList.fCurrentIndex = 1;
    uint32 index = 0;
    EXPECT_EQ(fList.GetNextImageIndex(&index, &fRoster, &fInfo), 0);
    EXPECT_EQ(index, 3U);
    EXPECT_EQ(fList.GetPrevImageIndex(&index, &fRoster, &fInfo), -1);
}

TEST_F(ImageList, FindsNothingInAnEmptyFolder) {
    List();
    uint32 index = 0;
    EXPECT_EQ(fList.GetNextImageIndex(&index, &fRoster, &fInfo), -1);
    EXPECT_EQ(fList.GetPrevImageIndex(&index, &fRoster, &fInfo), -1);
}

}  // namespace
