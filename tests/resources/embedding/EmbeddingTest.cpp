#include <app/Application.h>
#include <app/Roster.h>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <storage/Resources.h>
#include <string>

namespace {

std::string content_of(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string resource(type_code type, const char* name) {
    size_t size = 0;
    const void* data = BApplication::AppResources()->LoadResource(type, name, &size);
    return data != nullptr ? std::string(static_cast<const char*>(data), size) : "none";
}

TEST(Embedding, KeepsTheBytesOfFiles) {
    ASSERT_FALSE(content_of(DATA_FILE).empty());
    EXPECT_EQ(resource('ICON', "BEOS:L:STD_ICON"), content_of(DATA_FILE));
    EXPECT_EQ(resource('TEST', "another one"), content_of(OTHER_FILE));
}

TEST(Embedding, HasTheLaunchFlags) {
    const std::string bytes = resource('APPF', "BEOS:APP_FLAGS");
    uint32 flags = 99;
    ASSERT_EQ(bytes.size(), sizeof(flags));
    std::memcpy(&flags, bytes.data(), sizeof(flags));
    EXPECT_EQ(flags, B_MULTIPLE_LAUNCH);
}

TEST(Embedding, NumbersResources) {
    const BResources& resources = *BApplication::AppResources();
    EXPECT_TRUE(resources.HasResource('ICON', 1));
    EXPECT_TRUE(resources.HasResource('TEST', 2));
    EXPECT_TRUE(resources.HasResource('APPF', 3));
}

}  // namespace
