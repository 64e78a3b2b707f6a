#include <storage/Mime.h>

#include <app/Roster.h>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(MimeType, IsTwoNamesOrOne) {
    for (const char* type : {"text/plain", "text", "application/x-vnd.Maker-Name", "a/b+c.d_e"})
        EXPECT_TRUE(BMimeType::IsValid(type)) << type;
    for (const char* type : {"", "/", "text/", "/plain", "text/plain/more", "te xt/plain",
             "text/pl\tain", "text/pl\"ain", "text/plain;charset", "text/\xc3\xa4"})
        EXPECT_FALSE(BMimeType::IsValid(type)) << type;
    EXPECT_FALSE(BMimeType::IsValid(nullptr));
}

TEST(MimeType, HasALongestName) {
    const std::string longest = "text/" + std::string(B_MIME_TYPE_LENGTH - 6, 'x');
    EXPECT_TRUE(BMimeType::IsValid(longest.c_str()));
    EXPECT_FALSE(BMimeType::IsValid((longest + "x").c_str()));
}

TEST(MimeType, KeepsWhatItIsSetTo) {
    BMimeType type;
    EXPECT_EQ(type.InitCheck(), B_NO_INIT);
    EXPECT_EQ(type.Type(), nullptr);
    EXPECT_FALSE(type.IsValid());
    EXPECT_EQ(type.SetTo("Text/Plain"), B_OK);
    EXPECT_STREQ(type.Type(), "Text/Plain");
    EXPECT_TRUE(type.IsValid());
    EXPECT_EQ(type.SetTo("no type"), B_BAD_VALUE);
    EXPECT_EQ(type.InitCheck(), B_BAD_VALUE);
    EXPECT_EQ(type.Type(), nullptr);
    type = BMimeType("text");
    type.Unset();
    EXPECT_EQ(type.InitCheck(), B_NO_INIT);
    EXPECT_EQ(type.Type(), nullptr);
}

TEST(MimeType, ComparesWithoutCase) {
    EXPECT_TRUE(BMimeType("Text/Plain") == BMimeType("text/plain"));
    EXPECT_TRUE(BMimeType("Text/Plain") == "tEXT/pLAIN");
    EXPECT_FALSE(BMimeType("text/plain") == "text/plain2");
    EXPECT_FALSE(BMimeType("text/plain") == nullptr);
    EXPECT_TRUE(BMimeType() == BMimeType());
    EXPECT_FALSE(BMimeType() == BMimeType("text"));
}

}  // namespace
