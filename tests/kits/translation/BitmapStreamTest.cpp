#include <cstring>
#include <gtest/gtest.h>
#include <interface/Bitmap.h>
#include <limits>
#include <memory>
#include <translation/BitmapStream.h>
#include <vector>

static std::unique_ptr<BBitmap> MakeBitmap(int width, int height) {
    auto bitmap =
        std::make_unique<BBitmap>(BRect(0, 0, float(width - 1), float(height - 1)), B_RGBA32);
    auto* bits = static_cast<uint8*>(bitmap->Bits());
    for (int32 i = 0; i < bitmap->BitsLength(); i++)
        bits[i] = uint8(i * 7);
    return bitmap;
}

static std::vector<uint8> ReadAll(BBitmapStream& stream) {
    std::vector<uint8> bytes(size_t(stream.Size()));
    EXPECT_EQ(stream.ReadAt(0, bytes.data(), bytes.size()), ssize_t(bytes.size()));
    return bytes;
}

// 3 by 2 pixels: bounds (0, 0, 2, 1), rows of 12 bytes, RGBA32, 24 bytes.
static const uint8 kHeader[] = {'b', 'i', 't', 's', 0, 0, 0, 0, 0, 0, 0, 0, 0x40, 0, 0, 0, 0x3f,
    0x80, 0, 0, 0, 0, 0, 12, 0, 0, 0x20, 0x08, 0, 0, 0, 24};

TEST(BitmapStreamTest, ReadsAsHeaderAndPixels) {
    BBitmapStream stream(MakeBitmap(3, 2).release());
    EXPECT_EQ(stream.Size(), 32 + 24);
    const std::vector<uint8> bytes = ReadAll(stream);
    EXPECT_EQ(memcmp(bytes.data(), kHeader, sizeof(kHeader)), 0);
    EXPECT_EQ(bytes[32 + 5], 35);
    uint8 some[8];
    EXPECT_EQ(stream.ReadAt(28, some, 8), 8);
    EXPECT_EQ(memcmp(some, &bytes[28], 8), 0);
    EXPECT_EQ(stream.ReadAt(54, some, 8), 2);
    EXPECT_EQ(stream.ReadAt(56, some, 8), 0);
    EXPECT_EQ(stream.Seek(-2, SEEK_END), 54);
    EXPECT_EQ(stream.Read(some, 8), 2);
    EXPECT_EQ(stream.Position(), 56);
    EXPECT_EQ(stream.Seek(-57, SEEK_CUR), B_BAD_VALUE);
}

TEST(BitmapStreamTest, WritingMakesTheSameBitmapInWhateverPieces) {
    BBitmapStream source(MakeBitmap(5, 4).release());
    const std::vector<uint8> bytes = ReadAll(source);
    for (size_t piece = 1; piece <= bytes.size(); piece++) {
        BBitmapStream copy;
        for (size_t at = 0; at < bytes.size(); at += piece) {
            const size_t size = std::min(piece, bytes.size() - at);
            ASSERT_EQ(copy.Write(&bytes[at], size), ssize_t(size));
        }
        EXPECT_EQ(ReadAll(copy), bytes);
    }
}

TEST(BitmapStreamTest, HandsItsBitmapOverOnce) {
    BBitmap* bitmap = MakeBitmap(3, 2).release();
    BBitmapStream stream(bitmap);
    BBitmap* detached = nullptr;
    EXPECT_EQ(stream.DetachBitmap(nullptr), B_BAD_VALUE);
    EXPECT_EQ(stream.DetachBitmap(&detached), B_OK);
    const std::unique_ptr<BBitmap> owner(detached);
    EXPECT_EQ(detached, bitmap);
    EXPECT_EQ(stream.DetachBitmap(&detached), B_ERROR);
    EXPECT_EQ(stream.Size(), 0);
    uint8 byte;
    EXPECT_EQ(stream.ReadAt(0, &byte, 1), B_NO_INIT);
    EXPECT_EQ(stream.WriteAt(0, kHeader, sizeof(kHeader)), 32);
    EXPECT_EQ(stream.Size(), 56);
}

TEST(BitmapStreamTest, RefusesWhatIsNoBitmap) {
    const struct {
        size_t at;
        std::vector<uint8> bytes;
        status_t status;
    } kCases[] = {
        {0, {'b', 'i', 't', 'x'}, B_BAD_DATA},
        {4, {0x3f, 0x80, 0, 0}, B_BAD_DATA},                // does not begin at 0
        {12, {0xbf, 0x80, 0, 0}, B_BAD_DATA},               // a right edge of -1
        {12, {0x7f, 0xc0, 0, 0}, B_BAD_DATA},               // not a number
        {12, {0x7f, 0x80, 0, 0}, B_BAD_DATA},               // without end
        {20, {0, 0, 0, 11}, B_BAD_DATA},                    // rows too short
        {20, {0xff, 0xff, 0xff, 0xff}, B_BAD_DATA},         // rows too long
        {24, {0, 0, 0, 0}, B_BAD_DATA},                     // no colours
        {28, {0, 0, 0, 23}, B_BAD_DATA},                    // too few pixels
        {12, {0x48, 0, 0, 0, 0x48, 0, 0, 0}, B_NO_MEMORY},  // 131073 by 131073
    };
    for (const auto& test : kCases) {
        std::vector<uint8> header(std::begin(kHeader), std::end(kHeader));
        std::copy(test.bytes.begin(), test.bytes.end(), header.begin() + ptrdiff_t(test.at));
        BBitmapStream stream;
        EXPECT_EQ(stream.Write(header.data(), header.size()), test.status) << test.at;
        BBitmap* bitmap = nullptr;
        EXPECT_EQ(stream.DetachBitmap(&bitmap), B_ERROR);
    }
}

TEST(BitmapStreamTest, TakesNothingBeyondTheEnd) {
    BBitmapStream stream;
    uint8 byte = 0;
    EXPECT_EQ(stream.WriteAt(5, &byte, 1), B_BAD_VALUE);
    EXPECT_EQ(stream.WriteAt(40, &byte, 1), B_BAD_VALUE);
    ASSERT_EQ(stream.WriteAt(0, kHeader, sizeof(kHeader)), 32);
    EXPECT_EQ(stream.WriteAt(55, &byte, 1), 1);
    EXPECT_EQ(stream.WriteAt(56, &byte, 1), B_BAD_VALUE);
    EXPECT_EQ(stream.WriteAt(std::numeric_limits<off_t>::max(), &byte, 1), B_BAD_VALUE);
    EXPECT_EQ(stream.WriteAt(4, &byte, 1), B_BAD_VALUE);
    EXPECT_EQ(stream.SetSize(56), B_OK);
    EXPECT_EQ(stream.SetSize(57), B_BAD_VALUE);
}
