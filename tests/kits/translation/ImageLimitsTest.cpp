#include "kits/translation/ImageLimits.h"
#include <gtest/gtest.h>

using namespace BPrivate;

TEST(ImageLimitsTest, TurnsASizeIntoMemoryOrAnError) {
    constexpr uint64 kAll = UINT64_MAX;
    const struct {
        uint32 width, height, bytesPerPixel;
        uint64 available;
        status_t status;
        int32 bytesPerRow, bytes;
    } kCases[] = {
        {1, 1, 4, kAll, B_OK, 4, 4},
        {6000, 4000, 4, kAll, B_OK, 24000, 96'000'000},
        {100, 10, 4, 4000, B_OK, 400, 4000},
        {100, 10, 4, 3999, B_NO_MEMORY, 0, 0},
        {0, 10, 4, kAll, B_BAD_DATA, 0, 0},
        {10, 0, 4, kAll, B_BAD_DATA, 0, 0},
        {1'000'000, 1, 4, kAll, B_OK, 4'000'000, 4'000'000},
        {1'000'001, 1, 4, kAll, B_BAD_DATA, 0, 0},
        {1, 1'000'001, 4, kAll, B_BAD_DATA, 0, 0},
        {0xffffffff, 0xffffffff, 4, kAll, B_BAD_DATA, 0, 0},
        {1'000'000, 1'000'000, 4, kAll, B_NO_MEMORY, 0, 0},
        {60'000, 60'000, 4, kAll, B_NO_MEMORY, 0, 0},
        // The most a bitmap can count.
        {23170, 23170, 4, kAll, B_OK, 92680, 2'147'395'600},
        {23171, 23171, 4, kAll, B_NO_MEMORY, 0, 0},
        {46340, 46340, 1, kAll, B_OK, 46340, 2'147'395'600},
        {1'000'000, 1'000'000, 0xffffffff, kAll, B_NO_MEMORY, 0, 0},
    };
    for (const auto& test : kCases) {
        ImageExtent extent;
        EXPECT_EQ(
            CheckImageSize(test.width, test.height, test.bytesPerPixel, test.available, &extent),
            test.status)
            << test.width << " by " << test.height;
        EXPECT_EQ(extent.bytesPerRow, test.bytesPerRow);
        EXPECT_EQ(extent.bytes, test.bytes);
    }
}

TEST(ImageLimitsTest, SomeMemoryIsAvailable) {
    EXPECT_GT(AvailableImageMemory(), 1024u * 1024);
    EXPECT_LT(AvailableImageMemory(), uint64(1) << 50);
}
