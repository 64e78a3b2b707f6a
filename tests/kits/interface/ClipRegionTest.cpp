#include <gtest/gtest.h>
#include <random>

#include "kits/interface/ClipRegion.h"

namespace BPrivate {

namespace {

constexpr int32 kSize = 24;

/// The same set of pixels, the simple way.
class PixelSet {
public:
    void Set(PixelRect rect, bool value) {
        for (int32 y = 0; y < kSize; y++) {
            for (int32 x = 0; x < kSize; x++) {
                if (Has(rect, x, y))
                    fPixels[y][x] = value;
            }
        }
    }
    void Keep(PixelRect rect) {
        for (int32 y = 0; y < kSize; y++) {
            for (int32 x = 0; x < kSize; x++)
                fPixels[y][x] = fPixels[y][x] && Has(rect, x, y);
        }
    }
    static bool Has(PixelRect r, int32 x, int32 y) {
        return x >= r.left && x < r.right && y >= r.top && y < r.bottom;
    }

    bool fPixels[kSize][kSize] = {};
};

void ExpectSame(const ClipRegion& region, const PixelSet& set) {
    for (int32 y = 0; y < kSize; y++) {
        for (int32 x = 0; x < kSize; x++) {
            int times = 0;
            for (const PixelRect& rect : region.Rects())
                times += PixelSet::Has(rect, x, y) ? 1 : 0;
            ASSERT_EQ(times, set.fPixels[y][x] ? 1 : 0) << x << ", " << y;
        }
    }
}

}  // namespace

TEST(ClipRegion, IsTheSetOfItsPixels) {
    std::mt19937 random(7);
    const auto at = [&] { return static_cast<int32>(random() % kSize); };
    for (int round = 0; round < 300; round++) {
        ClipRegion region;
        PixelSet set;
        for (int step = 0; step < 12; step++) {
            const int32 left = at();
            const int32 top = at();
            const PixelRect rect{left, top, left + at() / 2, top + at() / 2};
            switch (random() % 4) {
            case 0:
            case 1:
                region.Include(rect);
                set.Set(rect, true);
                break;
            case 2:
                region.Exclude(rect);
                set.Set(rect, false);
                break;
            default:
                const PixelRect wide{left / 3, top / 3, kSize, kSize};
                region.IntersectWith(wide);
                set.Keep(wide);
            }
            // Pixels beyond the grid are not compared; keep both to it.
            region.IntersectWith({0, 0, kSize, kSize});
            ExpectSame(region, set);
        }
    }
}

TEST(ClipRegion, IntersectionOfTwo) {
    ClipRegion one(PixelRect{0, 0, 10, 10});
    one.Exclude({4, 0, 6, 10});
    ClipRegion other(PixelRect{2, 2, 8, 4});
    other.IntersectWith(one);
    PixelSet set;
    set.Set({2, 2, 4, 4}, true);
    set.Set({6, 2, 8, 4}, true);
    ExpectSame(other, set);
    EXPECT_EQ(other.Frame(), (PixelRect{2, 2, 8, 4}));
}

TEST(ClipRegion, ManyPiecesBecomeTheirFrame) {
    ClipRegion region;
    for (int32 i = 0; i < 1000; i++)
        region.Include({2 * i, 2 * i, 2 * i + 1, 2 * i + 1});
    EXPECT_LE(region.Rects().size(), 65U);
    EXPECT_EQ(region.Frame(), (PixelRect{0, 0, 1999, 1999}));
}

}  // namespace BPrivate
