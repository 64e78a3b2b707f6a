// The flattened form, byte by byte, and what becomes of anything else.

#include <app/Message.h>
#include <cstring>
#include <gtest/gtest.h>
#include <storage/Entry.h>
#include <string>
#include <support/DataIO.h>
#include <vector>

#include "kits/app/Checksum.h"
#include "kits/app/MessageFormat.h"

namespace {

std::string FlattenedOf(const BMessage& message) {
    std::string bytes(size_t(message.FlattenedSize()), '\0');
    EXPECT_EQ(message.Flatten(bytes.data(), ssize_t(bytes.size())), B_OK);
    return bytes;
}

status_t UnflattenInto(BMessage& message, const std::string& bytes) {
    // In memory of its own, so that reading past it is noticed.
    std::vector<char> exact(bytes.begin(), bytes.end());
    exact.reserve(1);  // no null pointer for an empty one
    return message.Unflatten(exact.data(), ssize_t(exact.size()));
}

// The parts of a flattened message.
std::string U32(uint32 value) {
    return {reinterpret_cast<const char*>(&value), 4};
}

std::string Field(
    type_code type, uint32 count, uint32 size, const std::string& name, const std::string& items) {
    return U32(type) + U32(count) + U32(size) + U32(uint32(name.size())) + name + items;
}

struct Parts {
    std::string magic = "LMsg";
    std::string version{"\1\0", 2};
    uint16 depth = 0;
    uint32 what = 0;
    uint32 fieldCount = 1;
    std::string process{"\0\0\0\0\0\0\0\0", 8};
    std::string fields = Field(B_INT32_TYPE, 1, 4, "number", U32(7));
};

// A message whose size and checksum are right, whatever else it is.
std::string Assemble(const Parts& parts) {
    const std::string rest = U32(parts.what) + U32(parts.fieldCount) + parts.process + parts.fields;
    const std::string lead = parts.magic + parts.version +
        std::string(reinterpret_cast<const char*>(&parts.depth), 2) + U32(uint32(16 + rest.size()));
    BPrivate::Checksum sum;
    sum.Add(lead);
    sum.Add(rest);
    return lead + U32(sum.Value()) + rest;
}

BMessage Everything() {
    BMessage inner('innr');
    inner.AddString("deep", "down");
    BMessage message('what');
    message.AddBool("bool", true);
    message.AddInt8("int8", -1);
    message.AddInt16("int16", -2);
    message.AddInt32("int32", -3);
    message.AddInt64("int64", -4);
    message.AddUInt8("uint8", 1);
    message.AddUInt16("uint16", 2);
    message.AddUInt32("uint32", 3);
    message.AddUInt64("uint64", 4);
    message.AddFloat("float", 0.25F);
    message.AddDouble("double", -0.125);
    message.AddString("text", "");
    message.AddString("text", "two words");
    message.AddPoint("point", {1, 2});
    message.AddRect("rect", {1, 2, 3, 4});
    message.AddColor("colour", {1, 2, 3, 4});
    message.AddData("raw", B_RAW_TYPE, "ab", 2, false);
    message.AddData("raw", B_RAW_TYPE, "cdefgh", 6, false);
    message.AddMessage("inner", &inner);
    entry_ref ref(5, 6, "name", "/some/folder");
    message.AddRef("ref", &ref);
    return message;
}

/// A stream that gives a few bytes at a time and counts what is asked of it.
class SlowStream : public BDataIO {
public:
    explicit SlowStream(std::string bytes, status_t atEnd = 0)
        : fBytes(std::move(bytes)), fAtEnd(atEnd) {}

    ssize_t Read(void* buffer, size_t size) override {
        fLargestRead = std::max(fLargestRead, size);
        if (fPosition == fBytes.size())
            return fAtEnd;
        const size_t given = std::min({size, size_t(3), fBytes.size() - fPosition});
        std::memcpy(buffer, fBytes.data() + fPosition, given);
        fPosition += given;
        return ssize_t(given);
    }
    ssize_t Write(const void*, size_t) override { return B_DEVICE_FULL; }

    size_t Position() const { return fPosition; }
    size_t LargestRead() const { return fLargestRead; }

private:
    std::string fBytes;
    status_t fAtEnd;
    size_t fPosition = 0;
    size_t fLargestRead = 0;
};

}  // namespace

TEST(Checksum, IsThatOfPngAndGzip) {
    BPrivate::Checksum sum;
    EXPECT_EQ(sum.Value(), 0U);
    sum.Add("1234");
    sum.Add("56789");
    EXPECT_EQ(sum.Value(), 0xcbf43926U);
}

TEST(MessageFormat, IsStable) {
    BMessage message('abcd');
    message.AddInt32("number", 0x01020304);
    message.AddString("text", "hi");
    const unsigned char expected[] = {'L', 'M', 's', 'g', 1, 0, 0, 0, 85, 0, 0, 0,  //
        0x55, 0x59, 0x99, 0xc0, 'd', 'c', 'b', 'a', 2, 0, 0, 0,                     //
        0, 0, 0, 0, 0, 0, 0, 0,                                                     //
        'G', 'N', 'O', 'L', 1, 0, 0, 0, 4, 0, 0, 0, 6, 0, 0, 0,                     //
        'n', 'u', 'm', 'b', 'e', 'r', 4, 3, 2, 1,                                   //
        'R', 'T', 'S', 'C', 1, 0, 0, 0, 0, 0, 0, 0, 4, 0, 0, 0,                     //
        't', 'e', 'x', 't', 3, 0, 0, 0, 'h', 'i', 0};
    EXPECT_EQ(FlattenedOf(message),
        std::string(reinterpret_cast<const char*>(expected), sizeof(expected)));
}

TEST(MessageFormat, KeepsEverything) {
    const BMessage message = Everything();
    BMessage read('gone');
    read.AddString("gone", "too");
    ASSERT_EQ(UnflattenInto(read, FlattenedOf(message)), B_OK);
    EXPECT_EQ(read.what, uint32('what'));
    EXPECT_EQ(read.CountNames(B_ANY_TYPE), 18);
    EXPECT_STREQ(read.GetString("text", 1, ""), "two words");
    EXPECT_EQ(read.GetDouble("double", 0), -0.125);
    EXPECT_EQ(read.GetColor("colour", {}), (rgb_color{1, 2, 3, 4}));
    entry_ref ref;
    ASSERT_EQ(read.FindRef("ref", &ref), B_OK);
    EXPECT_EQ(ref.folder(), "/some/folder");
    EXPECT_STREQ(ref.name, "name");
    // Nothing of the fields' order, sizes or kinds is lost.
    EXPECT_EQ(FlattenedOf(read), FlattenedOf(message));
}

TEST(MessageFormat, EmptyMessage) {
    BMessage read('gone');
    ASSERT_EQ(UnflattenInto(read, FlattenedOf(BMessage())), B_OK);
    EXPECT_EQ(read.what, 0U);
    EXPECT_TRUE(read.IsEmpty());
}

TEST(MessageFormat, FlattenNeedsRoom) {
    const BMessage message = Everything();
    std::string bytes(size_t(message.FlattenedSize()) - 1, '\0');
    EXPECT_EQ(message.Flatten(bytes.data(), ssize_t(bytes.size())), B_BAD_VALUE);
    EXPECT_EQ(message.Flatten(static_cast<char*>(nullptr), 1000), B_BAD_VALUE);
    EXPECT_EQ(message.Flatten(static_cast<BDataIO*>(nullptr)), B_BAD_VALUE);
}

TEST(MessageFormat, ThroughAStream) {
    const BMessage message = Everything();
    BMallocIO stream;
    stream.Write("before", 6);
    ssize_t size = 0;
    ASSERT_EQ(message.Flatten(&stream, &size), B_OK);
    EXPECT_EQ(size, message.FlattenedSize());
    ASSERT_EQ(BMessage('next').Flatten(&stream), B_OK);

    stream.Seek(6, SEEK_SET);
    BMessage read;
    ASSERT_EQ(read.Unflatten(&stream), B_OK);
    EXPECT_EQ(stream.Position(), 6 + size);
    EXPECT_EQ(FlattenedOf(read), FlattenedOf(message));
    ASSERT_EQ(read.Unflatten(&stream), B_OK);
    EXPECT_EQ(read.what, uint32('next'));
    EXPECT_EQ(read.Unflatten(&stream), B_BAD_DATA);
}

TEST(MessageFormat, StreamErrorsAreReported) {
    const std::string bytes = FlattenedOf(Everything());
    BMessage message;
    SlowStream whole(bytes + "more");
    EXPECT_EQ(message.Unflatten(&whole), B_OK);
    EXPECT_EQ(whole.Position(), bytes.size());
    SlowStream broken(bytes.substr(0, 20), B_IO_ERROR);
    EXPECT_EQ(message.Unflatten(&broken), B_IO_ERROR);
    SlowStream readOnly("");
    EXPECT_EQ(message.Flatten(&readOnly), B_DEVICE_FULL);
}

TEST(MessageFormat, EveryTruncationFails) {
    const std::string bytes = FlattenedOf(Everything());
    for (size_t size = 0; size < bytes.size(); ++size) {
        BMessage message('kept');
        message.AddBool("kept", true);
        EXPECT_EQ(UnflattenInto(message, bytes.substr(0, size)), B_BAD_DATA) << size;
        SlowStream stream(bytes.substr(0, size));
        EXPECT_EQ(message.Unflatten(&stream), B_BAD_DATA) << size;
        // The message is as it was.
        EXPECT_EQ(message.what, uint32('kept'));
        EXPECT_EQ(message.CountNames(B_ANY_TYPE), 1);
    }
}

TEST(MessageFormat, EveryFlippedBitFails) {
    const std::string bytes = FlattenedOf(Everything());
    for (size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        std::string broken = bytes;
        broken[bit / 8] ^= char(1 << (bit % 8));
        BMessage message;
        EXPECT_NE(UnflattenInto(message, broken), B_OK) << "bit " << bit;
        EXPECT_TRUE(message.IsEmpty());
    }
}

// The same with the checksum put right, as only an attacker would: fails, or reads as a message
// that is whole in itself.
TEST(MessageFormat, EveryFlippedBitUnderARightChecksumIsHarmless) {
    const std::string bytes = FlattenedOf(Everything());
    for (size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        std::string broken = bytes;
        broken[bit / 8] ^= char(1 << (bit % 8));
        BPrivate::Checksum sum;
        sum.Add(std::string_view(broken).substr(0, 12));
        sum.Add(std::string_view(broken).substr(16));
        broken.replace(12, 4, U32(sum.Value()));
        BMessage message;
        if (UnflattenInto(message, broken) == B_OK) {
            EXPECT_EQ(FlattenedOf(message).size(), broken.size()) << "bit " << bit;
        }
    }
}

TEST(MessageFormat, AssembledMessageIsRead) {
    BMessage message;
    ASSERT_EQ(UnflattenInto(message, Assemble({})), B_OK);
    EXPECT_EQ(message.GetInt32("number", 0), 7);
}

TEST(MessageFormat, RefusesWhatIsNoMessage) {
    struct Case {
        const char* name;
        Parts parts;
        status_t status = B_BAD_DATA;
    };
    const std::string number = Field(B_INT32_TYPE, 1, 4, "n", U32(7));
    const std::string inner = Assemble({});
    const Case cases[] = {
        {"another magic", {.magic = "Lmsg"}},
        {"version 0", {.version = std::string(2, '\0')}},
        {"a later version", {.version = std::string("\2\0", 2)}, B_NOT_SUPPORTED},
        {"a depth without messages", {.depth = 1}},
        {"a depth beyond the limit", {.depth = 17}},
        {"fewer fields than told", {.fieldCount = 2}},
        {"more fields than told", {.fieldCount = 0}},
        {"very many fields", {.fieldCount = 0xffffffff}},
        {"a name twice", {.fieldCount = 2, .fields = number + number}},
        {"no items", {.fields = Field(B_INT32_TYPE, 0, 4, "n", "")}},
        {"very many items", {.fields = Field(B_INT32_TYPE, 0xffffffff, 4, "n", U32(7))}},
        {"very large items", {.fields = Field(B_RAW_TYPE, 1, 0xffffffff, "n", U32(7))}},
        {"a very large variable item",
            {.fields = Field(B_RAW_TYPE, 1, 0, "n", U32(0xffffffff) + "x")}},
        {"an empty item", {.fields = Field(B_RAW_TYPE, 1, 0, "n", U32(0))}},
        {"a number of the wrong size", {.fields = Field(B_INT32_TYPE, 1, 2, "n", "ab")}},
        {"a string without its end", {.fields = Field(B_STRING_TYPE, 1, 0, "n", U32(2) + "ab")}},
        {"a fixed-size string", {.fields = Field(B_STRING_TYPE, 1, 2, "n", {"a\0", 2})}},
        {"a message that is none",
            {.depth = 1, .fields = Field(B_MESSAGE_TYPE, 1, 0, "n", U32(2) + "ab")}},
        {"a message in depth 0",
            {.fields = Field(B_MESSAGE_TYPE, 1, 0, "n", U32(uint32(inner.size())) + inner)}},
        {"a message with a tail",
            {.depth = 1,
                .fields =
                    Field(B_MESSAGE_TYPE, 1, 0, "n", U32(uint32(inner.size()) + 1) + inner + "x")}},
        {"a reference that is none", {.fields = Field(B_REF_TYPE, 1, 0, "n", U32(2) + "ab")}},
        {"a name with a NUL", {.fields = Field(B_INT32_TYPE, 1, 4, {"a\0b", 3}, U32(7))}},
        {"a long name", {.fields = Field(B_INT32_TYPE, 1, 4, std::string(256, 'n'), U32(7))}},
        {"a field of no type", {.fields = Field(B_ANY_TYPE, 1, 4, "n", U32(7))}},
        {"half a field", {.fields = number.substr(0, 9)}},
    };
    for (const Case& c : cases) {
        BMessage message('kept');
        EXPECT_EQ(UnflattenInto(message, Assemble(c.parts)), c.status) << c.name;
        EXPECT_EQ(message.what, uint32('kept')) << c.name;
    }
}

TEST(MessageFormat, ADeclaredSizeCostsNothing) {
    std::string bytes = FlattenedOf(Everything());
    bytes.replace(8, 4, U32(16 << 20));
    SlowStream stream(bytes);
    BMessage message;
    EXPECT_EQ(message.Unflatten(&stream), B_BAD_DATA);
    EXPECT_LE(stream.LargestRead(), size_t(64) << 10);

    bytes.replace(8, 4, U32((16 << 20) + 1));
    SlowStream tooLarge(bytes);
    EXPECT_EQ(message.Unflatten(&tooLarge), B_BAD_DATA);
    EXPECT_EQ(tooLarge.Position(), BPrivate::kLeadSize);
}

TEST(MessageFormat, LimitsAreThoseOfTheWriterToo) {
    const std::string large(16 << 20, 'x');
    BMessage message;
    message.AddData("large", B_RAW_TYPE, large.data(), ssize_t(large.size()));
    BMallocIO stream;
    EXPECT_EQ(message.Flatten(&stream), B_BAD_VALUE);
    EXPECT_EQ(stream.BufferLength(), 0U);

    BMessage many;
    for (size_t i = 0; i < BPrivate::kMaxItems; ++i)
        many.AddInt8("items", 1);
    EXPECT_EQ(many.Flatten(&stream), B_OK);
    many.AddInt8("items", 1);
    EXPECT_EQ(many.Flatten(&stream), B_BAD_VALUE);
}

TEST(MessageFormat, PointersAreFoundByTheirOwnProcessOnly) {
    int object = 0;
    BMessage message;
    message.AddInt32("number", 1);
    message.AddPointer("pointer", &object);
    message.AddMessenger("messenger", BMessenger());
    std::string bytes = FlattenedOf(message);

    BMessage read;
    ASSERT_EQ(UnflattenInto(read, bytes), B_OK);
    EXPECT_EQ(read.GetPointer("pointer"), &object);
    EXPECT_TRUE(read.HasMessenger("messenger"));

    // As another process has written it.
    bytes[24] ^= 1;
    BPrivate::Checksum sum;
    sum.Add(std::string_view(bytes).substr(0, 12));
    sum.Add(std::string_view(bytes).substr(16));
    bytes.replace(12, 4, U32(sum.Value()));
    ASSERT_EQ(UnflattenInto(read, bytes), B_OK);
    EXPECT_EQ(read.GetInt32("number", 0), 1);
    EXPECT_FALSE(read.HasPointer("pointer"));
    EXPECT_FALSE(read.HasMessenger("messenger"));
}

TEST(MessageFormat, ThousandsOfFields) {
    BMessage message;
    for (int i = 0; i < 2000; ++i)
        message.AddInt32(std::to_string(i).c_str(), i);
    BMessage read;
    ASSERT_EQ(UnflattenInto(read, FlattenedOf(message)), B_OK);
    EXPECT_EQ(read.GetInt32("1999", 0), 1999);
}
