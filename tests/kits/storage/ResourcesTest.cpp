#include <cstring>
#include <gtest/gtest.h>
#include <storage/Resources.h>

namespace {

constexpr char kFirst[] = {1, 2, 3};
constexpr char kSecond[] = {4};

constexpr BPrivate::EmbeddedResource kTable[] = {
    {'ARCV', 1, "First", kFirst, sizeof(kFirst)},
    {'ICON', 1, "First", kSecond, sizeof(kSecond)},
    {'ARCV', 7, nullptr, kSecond, sizeof(kSecond)},
};

TEST(Resources, AreFoundByTypeAndName) {
    const BResources resources(kTable);
    size_t size = 99;
    EXPECT_EQ(resources.LoadResource('ARCV', "First", &size), kFirst);
    EXPECT_EQ(size, 3U);
    EXPECT_EQ(resources.LoadResource('ICON', "First", &size), kSecond);
    EXPECT_EQ(size, 1U);
    EXPECT_TRUE(resources.HasResource('ARCV', "First"));
}

TEST(Resources, AreFoundByTypeAndId) {
    const BResources resources(kTable);
    size_t size = 99;
    EXPECT_EQ(resources.LoadResource('ARCV', 7, &size), kSecond);
    EXPECT_EQ(size, 1U);
    EXPECT_EQ(resources.LoadResource('ARCV', 1, nullptr), kFirst);
    EXPECT_TRUE(resources.HasResource('ARCV', 7));
}

TEST(Resources, AreNullWhenThereAreNone) {
    const BResources resources(kTable);
    for (const char* name : {"", "first", "First ", "Second", static_cast<const char*>(nullptr)}) {
        size_t size = 99;
        EXPECT_EQ(resources.LoadResource('ARCV', name, &size), nullptr);
        EXPECT_EQ(size, 0U);
        EXPECT_FALSE(resources.HasResource('ARCV', name));
    }
    size_t size = 99;
    EXPECT_EQ(resources.LoadResource('ARCV', 2, &size), nullptr);
    EXPECT_EQ(size, 0U);
    EXPECT_FALSE(resources.HasResource('ICON', 7));
    EXPECT_FALSE(resources.HasResource('MICN', "First"));
    EXPECT_FALSE(BResources().HasResource('ARCV', "First"));
}

}  // namespace
