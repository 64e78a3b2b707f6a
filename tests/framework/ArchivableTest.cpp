#include "framework/Archivable.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <support/TypeConstants.h>

#include "tests/framework/FailingDisk.h"
#include "tests/framework/TemporaryFolder.h"

namespace {

/// One field, and switches that make it fail.
class Record : public TArchivable {
public:
    int32 fNumber = 1;
    std::string fText = "default";
    bool fFails = false;

    status_t Archive(BMessage* archive) const override {
        status_t status = TArchivable::Archive(archive);
        status |= archive->AddInt32("Number", fNumber);
        status |= archive->AddString("Text", fText.c_str());
        return fFails ? B_NO_MEMORY : status;
    }
    status_t Unarchive(const BMessage& archive) override {
        status_t status = TArchivable::Unarchive(archive);
        status |= FindInt32(archive, "Number", &fNumber);
        status |= FindString(archive, "Text", &fText);
        return status;
    }
};

class ArchivableFileTest : public testing::Test {
protected:
    ArchivableFileTest() : fPath(fFolder / "record.arc"), fEntry(fPath.c_str()) {}

    TTemporaryFolder fFolder;
    std::string fPath;
    BEntry fEntry;
};

TEST(Archivable, TheBaseHasNoFields) {
    TArchivable record;
    BMessage archive;
    EXPECT_EQ(record.Archive(&archive), B_OK);
    EXPECT_TRUE(archive.IsEmpty());
    EXPECT_EQ(record.Unarchive(archive), B_OK);
}

TEST_F(ArchivableFileTest, IsReadBackAsItWasWritten) {
    Record record;
    record.fNumber = -42;
    record.fText = "写真";
    EXPECT_EQ(record.Save(fEntry), 0);
    Record read;
    EXPECT_EQ(read.Load(fEntry), 0);
    EXPECT_EQ(read.fNumber, -42);
    EXPECT_EQ(read.fText, "写真");
}

TEST_F(ArchivableFileTest, TheFileIsTheFlattenedMessageAndNothingElse) {
    Record record;
    ASSERT_EQ(record.Save(fEntry), 0);
    BMessage expected;
    ASSERT_EQ(record.Archive(&expected), B_OK);
    std::string flattened(static_cast<size_t>(expected.FlattenedSize()), '\0');
    ASSERT_EQ(expected.Flatten(flattened.data(), expected.FlattenedSize()), B_OK);
    EXPECT_EQ(read_text(fPath), flattened);
}

TEST_F(ArchivableFileTest, SavingReplacesALongerFile) {
    write_text(fPath, std::string(100000, 'x'));
    Record record;
    ASSERT_EQ(record.Save(fEntry), 0);
    Record read;
    EXPECT_EQ(read.Load(fEntry), 0);
}

TEST_F(ArchivableFileTest, AMissingFileIsMinusOne) {
    Record record;
    EXPECT_EQ(record.Load(fEntry), -1);
    EXPECT_EQ(record.Load(BEntry()), -1);
    EXPECT_EQ(record.fNumber, 1);
}

TEST_F(ArchivableFileTest, AnEmptyFileIsMinusOne) {
    write_text(fPath, "");
    Record record;
    EXPECT_EQ(record.Load(fEntry), -1);
    EXPECT_EQ(record.fNumber, 1);
    EXPECT_EQ(record.fText, "default");
}

TEST_F(ArchivableFileTest, AFolderIsMinusOne) {
    std::filesystem::create_directory(fPath);
    Record record;
    EXPECT_EQ(record.Load(fEntry), -1);
    EXPECT_EQ(record.Save(fEntry), -1);
}

TEST_F(ArchivableFileTest, AFileThatCannotBeWrittenIsMinusOne) {
    const std::string missing = fFolder / "missing/record.arc";
    EXPECT_EQ(Record().Save(BEntry(missing.c_str())), -1);
    EXPECT_EQ(Record().Save(BEntry()), -1);
}

TEST_F(ArchivableFileTest, OnAFullDiskTheOldFileStays) {
    Record record;
    ASSERT_EQ(record.Save(fEntry), 0);
    const std::string before = read_text(fPath);
    record.fText = std::string(100, 'n');
    {
        const TFullDisk full;
        EXPECT_EQ(record.Save(fEntry), -1);
    }
    EXPECT_EQ(read_text(fPath), before);
    EXPECT_EQ(file_names_in(fFolder.Path()), std::set<std::string>{"record.arc"});
    EXPECT_EQ(record.Save(fEntry), 0);
    Record read;
    EXPECT_EQ(read.Load(fEntry), 0);
    EXPECT_EQ(read.fText, record.fText);
}

TEST_F(ArchivableFileTest, OnAFullDiskThereIsNoFirstFile) {
    {
        const TFullDisk full;
        EXPECT_EQ(Record().Save(fEntry), -1);
    }
    EXPECT_EQ(file_names_in(fFolder.Path()), std::set<std::string>{});
}

TEST_F(ArchivableFileTest, InAReadOnlyFolderTheOldFileStays) {
    Record record;
    ASSERT_EQ(record.Save(fEntry), 0);
    const std::string before = read_text(fPath);
    record.fNumber = 77;
    {
        const TReadOnlyFolder readOnly(fFolder.Path());
        EXPECT_EQ(record.Save(fEntry), -1);
        EXPECT_EQ(Record().Load(fEntry), 0);
    }
    EXPECT_EQ(read_text(fPath), before);
    EXPECT_EQ(file_names_in(fFolder.Path()), std::set<std::string>{"record.arc"});
}

TEST_F(ArchivableFileTest, ARecordThatFailsLeavesAnEmptyFile) {
    Record record;
    ASSERT_EQ(record.Save(fEntry), 0);
    record.fFails = true;
    EXPECT_EQ(record.Save(fEntry), -1);
    EXPECT_TRUE(std::filesystem::exists(fPath));
    EXPECT_EQ(read_text(fPath), "");
    EXPECT_EQ(record.Load(fEntry), -1);
}

TEST_F(ArchivableFileTest, AnUnknownFieldIsIgnoredAndAMissingOneKeepsItsValue) {
    class Other : public TArchivable {
        status_t Archive(BMessage* archive) const override {
            return archive->AddString("Text", "theirs") | archive->AddBool("New", true);
        }
    };
    ASSERT_EQ(Other().Save(fEntry), 0);
    Record record;
    record.fNumber = 5;
    EXPECT_EQ(record.Load(fEntry), -1);  // found what there was, but not all
    EXPECT_EQ(record.fNumber, 5);
    EXPECT_EQ(record.fText, "theirs");
}

TEST_F(ArchivableFileTest, ATruncatedFileChangesNothing) {
    Record record;
    record.fNumber = 99;
    ASSERT_EQ(record.Save(fEntry), 0);
    const std::string whole = read_text(fPath);
    for (size_t size = 0; size < whole.size(); size++) {
        write_text(fPath, whole.substr(0, size));
        Record read;
        EXPECT_EQ(read.Load(fEntry), -1) << size;
        EXPECT_EQ(read.fNumber, 1) << size;
        EXPECT_EQ(read.fText, "default") << size;
    }
}

TEST_F(ArchivableFileTest, AFlippedBitChangesNothing) {
    Record record;
    record.fNumber = 99;
    ASSERT_EQ(record.Save(fEntry), 0);
    const std::string whole = read_text(fPath);
    for (size_t bit = 0; bit < whole.size() * 8; bit++) {
        std::string damaged = whole;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ 1 << bit % 8);
        write_text(fPath, damaged);
        Record read;
        EXPECT_EQ(read.Load(fEntry), -1) << bit;
        EXPECT_EQ(read.fNumber, 1) << bit;
        EXPECT_EQ(read.fText, "default") << bit;
    }
}

// Looks every type up, present, missing, of another type and beyond its last index.
class LookupTest : public testing::Test {
protected:
    LookupTest() {
        fInner.what = 'innr';
        fArchive.AddString("string", "first");
        fArchive.AddString("string", "second");
        fArchive.AddBool("bool", true);
        fArchive.AddBool("bool", false);
        fArchive.AddInt32("int32", -5);
        fArchive.AddInt32("int32", 6);
        fArchive.AddInt64("int64", -5000000000);
        fArchive.AddInt64("int64", 6);
        fArchive.AddFloat("float", 0.5F);
        fArchive.AddFloat("float", 1.5F);
        fArchive.AddDouble("double", 0.25);
        fArchive.AddDouble("double", 1.25);
        fArchive.AddRect("rect", BRect(1, 2, 3, 4));
        fArchive.AddRect("rect", BRect(5, 6, 7, 8));
        fArchive.AddMessage("message", &fInner);
        fArchive.AddMessage("message", &fArchive);
    }

    const TArchivable fRecord;
    BMessage fArchive;
    BMessage fInner;
};

/// Checks one of the lookups; `lookup(name, index or none, value)`.
template <typename T, typename Indexed, typename First>
void expect_lookup(const char* name, const char* otherName, T first, T second, T kept,
    Indexed indexed, First at0) {
    T value = kept;
    EXPECT_EQ(at0(name, &value), B_OK);
    EXPECT_EQ(value, first);
    EXPECT_EQ(indexed(name, 1, &value), B_OK);
    EXPECT_EQ(value, second);
    value = kept;
    EXPECT_NE(indexed(name, 2, &value), B_OK);
    EXPECT_NE(indexed(name, -1, &value), B_OK);
    EXPECT_NE(at0("missing", &value), B_OK);
    EXPECT_NE(at0(otherName, &value), B_OK);
    EXPECT_NE(indexed(otherName, 0, &value), B_OK);
    EXPECT_EQ(value, kept);
}

#define EXPECT_LOOKUP(Find, name, otherName, first, second, kept)                         \
    expect_lookup<decltype(kept)>(                                                        \
        name, otherName, first, second, kept,                                             \
        [&](const char* n, int32 i, auto* v) { return fRecord.Find(fArchive, n, i, v); }, \
        [&](const char* n, auto* v) { return fRecord.Find(fArchive, n, v); })

TEST_F(LookupTest, FindsWhatIsThereAndKeepsTheValueElse) {
    EXPECT_LOOKUP(FindBool, "bool", "int32", true, false, true);
    EXPECT_LOOKUP(FindInt32, "int32", "int64", -5, 6, int32{77});
    EXPECT_LOOKUP(FindInt64, "int64", "int32", -5000000000, 6, int64{77});
    EXPECT_LOOKUP(FindFloat, "float", "double", 0.5F, 1.5F, 7.5F);
    EXPECT_LOOKUP(FindDouble, "double", "float", 0.25, 1.25, 7.5);
    EXPECT_LOOKUP(FindRect, "rect", "string", BRect(1, 2, 3, 4), BRect(5, 6, 7, 8), BRect());
    EXPECT_LOOKUP(FindString, "string", "rect", "first", "second", std::string("kept"));
}

TEST_F(LookupTest, FindsStringsOfTheMessages) {
    const char* value = "kept";
    EXPECT_EQ(fRecord.FindString(fArchive, "string", 1, &value), B_OK);
    EXPECT_STREQ(value, "second");
    EXPECT_EQ(fRecord.FindString(fArchive, "string", &value), B_OK);
    EXPECT_STREQ(value, "first");
    EXPECT_NE(fRecord.FindString(fArchive, "missing", &value), B_OK);
    EXPECT_STREQ(value, "first");
}

TEST_F(LookupTest, FindsMessages) {
    BMessage value('kept');
    EXPECT_NE(fRecord.FindMessage(fArchive, "missing", &value), B_OK);
    EXPECT_NE(fRecord.FindMessage(fArchive, "string", &value), B_OK);
    EXPECT_EQ(value.what, static_cast<uint32>('kept'));
    EXPECT_EQ(fRecord.FindMessage(fArchive, "message", &value), B_OK);
    EXPECT_EQ(value.what, static_cast<uint32>('innr'));
    EXPECT_EQ(fRecord.FindMessage(fArchive, "message", 1, &value), B_OK);
    EXPECT_TRUE(value.HasString("string"));
}

TEST_F(LookupTest, FindsRefs) {
    TTemporaryFolder folder;
    entry_ref there;
    ASSERT_EQ(get_ref_for_path((folder / "there").c_str(), &there), B_OK);
    fArchive.AddRef("ref", &there);
    entry_ref value;
    ASSERT_EQ(get_ref_for_path((folder / "kept").c_str(), &value), B_OK);
    const entry_ref kept = value;
    EXPECT_NE(fRecord.FindRef(fArchive, "missing", &value), B_OK);
    EXPECT_NE(fRecord.FindRef(fArchive, "string", &value), B_OK);
    EXPECT_NE(fRecord.FindRef(fArchive, "ref", 1, &value), B_OK);
    EXPECT_TRUE(value == kept);
    EXPECT_EQ(fRecord.FindRef(fArchive, "ref", &value), B_OK);
    EXPECT_TRUE(value == there);
}

TEST_F(LookupTest, FindsDataOfItsType) {
    const char bytes[] = {1, 2, 3, 4, 5};
    fArchive.AddData("data", B_RAW_TYPE, bytes, sizeof(bytes), false);
    const void* data = nullptr;
    ssize_t size = -7;
    EXPECT_NE(fRecord.FindData(fArchive, "data", B_STRING_TYPE, &data, &size), B_OK);
    EXPECT_NE(fRecord.FindData(fArchive, "data", B_RAW_TYPE, 1, &data, &size), B_OK);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(size, -7);
    EXPECT_EQ(fRecord.FindData(fArchive, "data", B_RAW_TYPE, &data, &size), B_OK);
    ASSERT_EQ(size, 5);
    EXPECT_EQ(std::string(static_cast<const char*>(data), 5), std::string(bytes, 5));
}

TEST_F(LookupTest, FindsColorsOfFourBytes) {
    const uint8 bytes[] = {1, 2, 3, 4, 5, 6, 7, 8};
    fArchive.AddData("color", B_RAW_TYPE, bytes, 4);
    fArchive.AddData("color", B_RAW_TYPE, bytes + 4, 4);
    for (size_t size = 1; size <= 5; size++) {
        const std::string name = "size" + std::to_string(size);
        fArchive.AddData(name.c_str(), B_RAW_TYPE, bytes, static_cast<ssize_t>(size), false);
    }
    constexpr rgb_color kKept{9, 9, 9, 9};
    rgb_color value = kKept;
    EXPECT_EQ(fRecord.FindRGBColor(fArchive, "color", &value), B_OK);
    EXPECT_EQ(value, (rgb_color{1, 2, 3, 4}));
    EXPECT_EQ(fRecord.FindRGBColor(fArchive, "color", 1, &value), B_OK);
    EXPECT_EQ(value, (rgb_color{5, 6, 7, 8}));

    value = kKept;
    for (const char* name : {"size1", "size2", "size3", "missing", "string", "int32"})
        EXPECT_NE(fRecord.FindRGBColor(fArchive, name, &value), B_OK) << name;
    EXPECT_EQ(value, kKept);
    // Longer data is a color with something after it.
    EXPECT_EQ(fRecord.FindRGBColor(fArchive, "size5", &value), B_OK);
    EXPECT_EQ(value, (rgb_color{1, 2, 3, 4}));
}

}  // namespace
