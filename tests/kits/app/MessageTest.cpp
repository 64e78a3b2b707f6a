#include <app/AppDefs.h>
#include <app/Message.h>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <storage/Entry.h>
#include <string>
#include <support/String.h>

TEST(Message, StartsEmpty) {
    const BMessage message;
    EXPECT_EQ(message.what, 0U);
    EXPECT_TRUE(message.IsEmpty());
    EXPECT_EQ(message.CountNames(B_ANY_TYPE), 0);
    EXPECT_EQ(BMessage('abcd').what, 0x61626364U);
}

// Every plain type: added twice, found by both indices, replaced, and refused to any other type.
#define TEST_PLAIN_TYPE(Name, type, code, first, second)                  \
    TEST(Message, Keeps##Name) {                                          \
        BMessage message;                                                 \
        EXPECT_EQ(message.Add##Name("value", first), B_OK);               \
        EXPECT_EQ(message.Add##Name("value", second), B_OK);              \
        type value{};                                                     \
        EXPECT_EQ(message.Find##Name("value", &value), B_OK);             \
        EXPECT_EQ(value, (first));                                        \
        EXPECT_EQ(message.Find##Name("value", 1, &value), B_OK);          \
        EXPECT_EQ(value, (second));                                       \
        EXPECT_EQ(message.Find##Name("value", 2, &value), B_BAD_INDEX);   \
        EXPECT_EQ(message.Find##Name("value", -1, &value), B_BAD_INDEX);  \
        EXPECT_EQ(message.Find##Name("other", &value), B_NAME_NOT_FOUND); \
        EXPECT_EQ(message.Find##Name(nullptr, &value), B_BAD_VALUE);      \
        EXPECT_EQ(value, (second));                                       \
        EXPECT_EQ(message.Replace##Name("value", second), B_OK);          \
        EXPECT_EQ(message.Replace##Name("value", 1, first), B_OK);        \
        EXPECT_EQ(message.Replace##Name("value", 2, first), B_BAD_INDEX); \
        EXPECT_EQ(message.Get##Name("value", first), (second));           \
        EXPECT_EQ(message.Get##Name("value", 1, second), (first));        \
        EXPECT_EQ(message.Get##Name("other", second), (second));          \
        EXPECT_TRUE(message.Has##Name("value", 1));                       \
        EXPECT_FALSE(message.Has##Name("value", 2));                      \
        type_code found = 0;                                              \
        int32 count = 0;                                                  \
        EXPECT_EQ(message.GetInfo("value", &found, &count), B_OK);        \
        EXPECT_EQ(found, type_code(code));                                \
        EXPECT_EQ(count, 2);                                              \
        EXPECT_EQ(message.AddData("value", 'othr', "x", 1), B_BAD_TYPE);  \
    }

TEST_PLAIN_TYPE(Bool, bool, B_BOOL_TYPE, true, false)
TEST_PLAIN_TYPE(Int8, int8, B_INT8_TYPE, int8(-128), int8(127))
TEST_PLAIN_TYPE(UInt8, uint8, B_UINT8_TYPE, uint8(255), uint8(1))
TEST_PLAIN_TYPE(Int16, int16, B_INT16_TYPE, int16(-32768), int16(2))
TEST_PLAIN_TYPE(UInt16, uint16, B_UINT16_TYPE, uint16(65535), uint16(3))
TEST_PLAIN_TYPE(Int32, int32, B_INT32_TYPE, INT32_MIN, 4)
TEST_PLAIN_TYPE(UInt32, uint32, B_UINT32_TYPE, UINT32_MAX, 5U)
TEST_PLAIN_TYPE(Int64, int64, B_INT64_TYPE, INT64_MIN, int64(6))
TEST_PLAIN_TYPE(UInt64, uint64, B_UINT64_TYPE, UINT64_MAX, uint64(7))
TEST_PLAIN_TYPE(Float, float, B_FLOAT_TYPE, -0.5F, 1e30F)
TEST_PLAIN_TYPE(Double, double, B_DOUBLE_TYPE, 0.1, -1e300)
TEST_PLAIN_TYPE(Point, BPoint, B_POINT_TYPE, BPoint(1.5F, -2), BPoint(0, 3))
TEST_PLAIN_TYPE(Rect, BRect, B_RECT_TYPE, BRect(1, 2, 3, 4), BRect(0, 0, -1, -1))
TEST_PLAIN_TYPE(
    Color, rgb_color, B_RGB_COLOR_TYPE, (rgb_color{1, 2, 3, 4}), (rgb_color{255, 254, 253, 0}))

TEST(Message, KeepsStrings) {
    BMessage message;
    EXPECT_EQ(message.AddString("text", "first"), B_OK);
    EXPECT_EQ(message.AddString("text", BString("a longer second one")), B_OK);
    EXPECT_EQ(message.AddString("text", ""), B_OK);
    EXPECT_EQ(message.AddString("text", static_cast<const char*>(nullptr)), B_BAD_VALUE);

    const char* text = nullptr;
    EXPECT_EQ(message.FindString("text", &text), B_OK);
    EXPECT_STREQ(text, "first");
    BString string;
    EXPECT_EQ(message.FindString("text", 1, &string), B_OK);
    EXPECT_STREQ(string.String(), "a longer second one");
    EXPECT_STREQ(message.GetString("text", 2, "fallback"), "");
    EXPECT_STREQ(message.GetString("text", 3, "fallback"), "fallback");
    EXPECT_EQ(message.ReplaceString("text", "much longer than it was before"), B_OK);
    EXPECT_STREQ(message.GetString("text"), "much longer than it was before");
    EXPECT_FALSE(message.HasInt32("text"));
    EXPECT_TRUE(message.HasString("text", 2));
}

TEST(Message, KeepsPointersAndMessengers) {
    int object = 0;
    BMessage message;
    EXPECT_EQ(message.AddPointer("source", &object), B_OK);
    EXPECT_EQ(message.AddMessenger("to", BMessenger()), B_OK);
    void* pointer = nullptr;
    EXPECT_EQ(message.FindPointer("source", &pointer), B_OK);
    EXPECT_EQ(pointer, &object);
    EXPECT_EQ(message.GetPointer("none", &message), &message);
    BMessenger messenger;
    EXPECT_EQ(message.FindMessenger("to", &messenger), B_OK);
    EXPECT_EQ(messenger, BMessenger());
}

TEST(Message, KeepsReferences) {
    entry_ref ref;
    ASSERT_EQ(get_ref_for_path("/proc/self/cmdline", &ref), B_OK);
    BMessage message;
    EXPECT_EQ(message.AddRef("refs", &ref), B_OK);
    const entry_ref none;
    EXPECT_EQ(message.AddRef("refs", &none), B_OK);
    EXPECT_EQ(message.AddRef("refs", nullptr), B_BAD_VALUE);

    entry_ref found;
    EXPECT_EQ(message.FindRef("refs", &found), B_OK);
    EXPECT_TRUE(found == ref);
    EXPECT_EQ(found.folder(), ref.folder());
    EXPECT_EQ(message.FindRef("refs", 1, &found), B_OK);
    EXPECT_EQ(found.name, nullptr);
}

TEST(Message, KeepsMessages) {
    BMessage inner('innr');
    inner.AddInt32("number", 7);
    BMessage message('outr');
    EXPECT_EQ(message.AddMessage("inner", &inner), B_OK);
    EXPECT_EQ(message.AddMessage("inner", &message), B_OK);
    BMessage found;
    EXPECT_EQ(message.FindMessage("inner", &found), B_OK);
    EXPECT_EQ(found.what, uint32('innr'));
    EXPECT_EQ(found.GetInt32("number", 0), 7);
    // Finding into the very message that is searched.
    EXPECT_EQ(message.FindMessage("inner", 1, &message), B_OK);
    EXPECT_EQ(message.what, uint32('outr'));
    EXPECT_TRUE(message.HasMessage("inner"));
    EXPECT_FALSE(message.HasMessage("inner", 1));
}

TEST(Message, KeepsPointersInNestedMessages) {
    int object = 0;
    BMessage inner;
    inner.AddPointer("source", &object);
    BMessage message;
    message.AddMessage("inner", &inner);
    BMessage found;
    ASSERT_EQ(message.FindMessage("inner", &found), B_OK);
    EXPECT_EQ(found.GetPointer("source"), &object);
}

TEST(Message, LimitsNesting) {
    BMessage message;
    for (int depth = 1; depth <= 16; ++depth) {
        const BMessage inner = message;
        message.MakeEmpty();
        EXPECT_EQ(message.AddMessage("m", &inner), B_OK) << depth;
    }
    BMessage tooDeep;
    EXPECT_EQ(tooDeep.AddMessage("m", &message), B_BAD_VALUE);
    EXPECT_TRUE(tooDeep.IsEmpty());
}

TEST(Message, KeepsData) {
    BMessage message;
    EXPECT_EQ(message.AddData("raw", B_RAW_TYPE, "abcd", 4), B_OK);
    EXPECT_EQ(message.AddData("raw", B_RAW_TYPE, "efgh", 4), B_OK);
    const void* data = nullptr;
    ssize_t size = 0;
    EXPECT_EQ(message.FindData("raw", B_RAW_TYPE, 1, &data, &size), B_OK);
    ASSERT_EQ(size, 4);
    EXPECT_EQ(std::memcmp(data, "efgh", 4), 0);
    EXPECT_EQ(message.FindData("raw", B_ANY_TYPE, &data, &size), B_OK);
    EXPECT_EQ(message.FindData("raw", B_STRING_TYPE, &data, &size), B_BAD_TYPE);
    EXPECT_EQ(message.ReplaceData("raw", B_RAW_TYPE, "ijkl", 4), B_OK);
    EXPECT_EQ(message.FindData("raw", B_RAW_TYPE, &data, nullptr), B_OK);
    EXPECT_EQ(std::memcmp(data, "ijkl", 4), 0);
}

TEST(Message, FixedSizeDataKeepsItsSize) {
    BMessage message;
    EXPECT_EQ(message.AddData("fixed", B_RAW_TYPE, "abcd", 4, true), B_OK);
    EXPECT_EQ(message.AddData("fixed", B_RAW_TYPE, "abc", 3, true), B_BAD_VALUE);
    EXPECT_EQ(message.AddData("fixed", B_RAW_TYPE, "abc", 3, false), B_BAD_VALUE);
    EXPECT_EQ(message.ReplaceData("fixed", B_RAW_TYPE, "abcde", 5), B_BAD_VALUE);
    EXPECT_EQ(message.AddData("free", B_RAW_TYPE, "abcd", 4, false), B_OK);
    EXPECT_EQ(message.AddData("free", B_RAW_TYPE, "abc", 3, false), B_OK);
    EXPECT_EQ(message.ReplaceData("free", B_RAW_TYPE, "abcde", 5), B_OK);
    type_code type;
    bool fixed = false;
    EXPECT_EQ(message.GetInfo("fixed", &type, &fixed), B_OK);
    EXPECT_TRUE(fixed);
    EXPECT_EQ(message.GetInfo("free", &type, &fixed), B_OK);
    EXPECT_FALSE(fixed);
}

TEST(Message, RefusesDataItsTypeCannotHold) {
    BMessage message;
    EXPECT_EQ(message.AddData("x", B_INT32_TYPE, "abc", 3), B_BAD_VALUE);
    EXPECT_EQ(message.AddData("x", B_STRING_TYPE, "abc", 3), B_BAD_VALUE);  // no NUL
    EXPECT_EQ(message.AddData("x", B_MESSAGE_TYPE, "abc", 3), B_BAD_VALUE);
    EXPECT_EQ(message.AddData("x", B_REF_TYPE, "abc", 3), B_BAD_VALUE);
    EXPECT_EQ(message.AddData("x", B_RAW_TYPE, "", 0), B_BAD_VALUE);
    EXPECT_EQ(message.AddData("x", B_RAW_TYPE, nullptr, 4), B_BAD_VALUE);
    EXPECT_EQ(message.AddData("x", B_RAW_TYPE, "abc", -1), B_BAD_VALUE);
    EXPECT_EQ(message.AddData("x", B_ANY_TYPE, "abc", 3), B_BAD_VALUE);
    EXPECT_EQ(message.AddInt32(nullptr, 1), B_BAD_VALUE);
    EXPECT_EQ(message.AddInt32(std::string(256, 'n').c_str(), 1), B_BAD_VALUE);
    EXPECT_TRUE(message.IsEmpty());
    EXPECT_EQ(message.AddInt32(std::string(255, 'n').c_str(), 1), B_OK);
    EXPECT_EQ(message.AddInt32("", 1), B_OK);
    EXPECT_EQ(message.AddData("x", B_STRING_TYPE, "abc", 4), B_OK);
    EXPECT_STREQ(message.GetString("x"), "abc");
}

TEST(Message, KeepsTheOrderOfNames) {
    BMessage message;
    message.AddInt32("one", 1);
    message.AddString("two", "2");
    message.AddInt32("three", 3);
    message.AddInt32("one", 11);

    char* name = nullptr;
    type_code type = 0;
    int32 count = 0;
    const char* expected[] = {"one", "two", "three"};
    for (int32 i = 0; i < 3; ++i) {
        ASSERT_EQ(message.GetInfo(B_ANY_TYPE, i, &name, &type, &count), B_OK);
        EXPECT_STREQ(name, expected[i]);
    }
    EXPECT_EQ(message.GetInfo(B_ANY_TYPE, 3, &name, &type), B_BAD_INDEX);
    ASSERT_EQ(message.GetInfo(B_INT32_TYPE, 1, &name, &type, &count), B_OK);
    EXPECT_STREQ(name, "three");
    EXPECT_EQ(message.GetInfo(B_BOOL_TYPE, 0, &name, &type), B_BAD_TYPE);
    EXPECT_EQ(message.GetInfo("none", &type), B_NAME_NOT_FOUND);
    EXPECT_EQ(message.CountNames(B_INT32_TYPE), 2);
    EXPECT_EQ(message.CountNames(B_ANY_TYPE), 3);
}

TEST(Message, RenamesAndRemoves) {
    BMessage message;
    message.AddInt32("a", 1);
    message.AddInt32("a", 2);
    message.AddInt32("b", 3);
    EXPECT_EQ(message.Rename("a", "b"), B_NAME_IN_USE);
    EXPECT_EQ(message.Rename("none", "c"), B_NAME_NOT_FOUND);
    EXPECT_EQ(message.Rename("a", "c"), B_OK);
    EXPECT_EQ(message.GetInt32("c", 1, 0), 2);
    EXPECT_EQ(message.RemoveData("c", 2), B_BAD_INDEX);
    EXPECT_EQ(message.RemoveData("c", 0), B_OK);
    EXPECT_EQ(message.GetInt32("c", 0), 2);
    EXPECT_EQ(message.RemoveData("c"), B_OK);
    EXPECT_EQ(message.RemoveData("c"), B_NAME_NOT_FOUND);
    EXPECT_EQ(message.RemoveName("none"), B_NAME_NOT_FOUND);
    EXPECT_EQ(message.RemoveName("b"), B_OK);
    EXPECT_TRUE(message.IsEmpty());
    message.what = 'keep';
    message.AddInt32("a", 1);
    EXPECT_EQ(message.MakeEmpty(), B_OK);
    EXPECT_TRUE(message.IsEmpty());
    EXPECT_EQ(message.what, uint32('keep'));
}

TEST(Message, CopiesAreIndependent) {
    BMessage message('orig');
    message.AddString("text", "original");
    BMessage copy(message);
    copy.ReplaceString("text", "changed");
    EXPECT_STREQ(message.GetString("text"), "original");
    message = copy;
    EXPECT_STREQ(message.GetString("text"), "changed");
    const BMessage& self = message;
    message = self;
    EXPECT_STREQ(message.GetString("text"), "changed");
    const BMessage moved = std::move(copy);
    EXPECT_STREQ(moved.GetString("text"), "changed");
}

TEST(Message, KnowsItsOwnKind) {
    EXPECT_TRUE(BMessage(B_QUIT_REQUESTED).IsSystem());
    EXPECT_TRUE(BMessage(B_SIMPLE_DATA).IsSystem());
    EXPECT_FALSE(BMessage('dnxi').IsSystem());
    EXPECT_FALSE(BMessage(0).IsSystem());
}

TEST(Message, NotDeliveredHasNoSender) {
    BMessage message;
    EXPECT_FALSE(message.WasDelivered());
    EXPECT_FALSE(message.IsSourceRemote());
    EXPECT_FALSE(message.IsSourceWaiting());
    EXPECT_FALSE(message.IsReply());
    EXPECT_FALSE(message.ReturnAddress().IsValid());
    EXPECT_EQ(message.SendReply(B_REPLY), B_BAD_REPLY);
}

TEST(Message, KnowsWhereItWasDropped) {
    BMessage message(B_SIMPLE_DATA);
    EXPECT_FALSE(message.WasDropped());
    message.AddPoint("_drop_point_", BPoint(30, 40));
    EXPECT_TRUE(message.WasDropped());
    BPoint offset(1, 1);
    EXPECT_EQ(message.DropPoint(&offset), BPoint(30, 40));
    EXPECT_EQ(offset, BPoint(0, 0));
}

TEST(Message, PrintsItsFields) {
    BMessage inner('innr');
    inner.AddBool("yes", true);
    BMessage message('outr');
    message.AddInt32("number", -7);
    message.AddString("text", "words");
    message.AddMessage("inner", &inner);
    testing::internal::CaptureStdout();
    message.PrintToStream();
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout().substr(0, 93),
        "BMessage('outr')\n"
        "    number[0], 'LONG': -7\n"
        "    text[0], 'CSTR': \"words\"\n"
        "    inner[0], 'MSGG':");
}
