#include "kits/interface/SmoothSampling.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "kits/interface/PixelOps.h"
#include "kits/interface/SmoothWeights.h"

namespace BPrivate {

namespace {

// Sums are kept as four numbers a pixel: B, G and R times the alpha's share, and the alpha itself.
// Every sum is made in the order of its parts, in whichever of the ways below, so that all of them
// give the very same numbers.

using FourNumbers = float __attribute__((vector_size(16)));
struct Channels {
    FourNumbers of;
};

constexpr std::array<float, 256> kShareOfAlpha = [] {
    std::array<float, 256> shares{};
    for (std::size_t i = 0; i < shares.size(); i++)
        shares[i] = static_cast<float>(i) / 255.0F;
    return shares;
}();

/// Above it an alpha is that of pixels that are all opaque, but for its rounding.
constexpr float kOpaqueSum = 254.995F;

/// Adds some rows, each times its share, to the sums, or begins them. `count` is that of bytes.
template <std::size_t kRows>
void AddOpaque(
    float* sums, std::size_t count, const uint8* const* rows, const float* shares, bool begins) {
    const auto add = [&](auto first) {
        for (std::size_t i = 0; i < count; i++) {
            float sum = first(i);
            for (std::size_t row = 0; row < kRows; row++)
                sum += shares[row] * static_cast<float>(rows[row][i]);
            sums[i] = sum;
        }
    };
    if (begins)
        add([](std::size_t) { return 0.0F; });
    else
        add([sums](std::size_t i) { return sums[i]; });
}

/// The same for a row whose colours count by their alpha. The shares of its pixels' numbers are
/// worked out first, so that the rest is one loop over many numbers at a time.
void AddByAlpha(float* sums, std::size_t count, const uint8* row, float share, bool begins) {
    constexpr std::size_t kAtOnce = 64;
    Channels own[kAtOnce];
    const auto* owns = reinterpret_cast<const float*>(own);
    for (std::size_t start = 0; start < count; start += 4 * kAtOnce) {
        const std::size_t length = std::min(4 * kAtOnce, count - start);
        const uint8* bytes = row + start;
        float* part = sums + start;
        for (std::size_t i = 0; i < length; i += 4) {
            const float color = share * kShareOfAlpha[bytes[i + 3]];
            own[i / 4].of = FourNumbers{color, color, color, share};
        }
        if (begins)
            std::fill_n(part, length, 0.0F);
        for (std::size_t i = 0; i < length; i++)
            part[i] += owns[i] * static_cast<float>(bytes[i]);
    }
}

bool IsOpaque(const uint8* row, std::size_t count) {
    Pixel all = kOpaque;
    for (std::size_t i = 0; i < count; i += 4) {
        Pixel pixel;
        std::memcpy(&pixel, row + i, sizeof(pixel));
        all &= pixel;
    }
    return all == kOpaque;
}

/// Makes rows of the destination's width from rows of the source.
class RowMaker {
public:
    RowMaker(const PixelSource& from, PixelRect source, const SmoothWeights& columns)
        : fFrom(from), fSource(source), fColumns(columns) {}

    /// The rows from `first` on (of the part that is drawn), each times its share, added up and
    /// brought to the width.
    /// @return whether all that came in was opaque
    bool Make(int32 first, std::span<const float> shares, Channels* row);

private:
    bool AddUp(int32 left, int32 right, int32 first, std::span<const float> shares);
    const uint8* PixelsAt(int32 y, int32 left, int32 right, std::vector<uint8>& made) const;

    const PixelSource& fFrom;
    const PixelRect fSource;
    const SmoothWeights& fColumns;
    std::vector<Channels> fSums;
    std::array<std::vector<uint8>, 4> fMade;
};

bool RowMaker::Make(int32 first, std::span<const float> shares, Channels* row) {
    // A piece at a time, whose sums stay near the processor.
    constexpr int32 kPiece = 1024;
    bool isOpaque = true;
    int32 next = 0;
    while (next < fColumns.Count()) {
        const int32 start = next;
        const int32 left = fColumns.At(start).first;
        int32 right = left;
        for (; next < fColumns.Count(); next++) {
            const SmoothWeights::Pixel pixel = fColumns.At(next);
            if (next > start && pixel.first + pixel.count - left > kPiece)
                break;
            right = pixel.first + pixel.count;
        }
        isOpaque &= AddUp(left, right, first, shares);
        for (int32 x = start; x < next; x++) {
            const SmoothWeights::Pixel pixel = fColumns.At(x);
            const Channels* sums = fSums.data() + (pixel.first - left);
            FourNumbers sum{};
            for (int32 i = 0; i < pixel.count; i++)
                sum += sums[i].of * pixel.shares[i];
            row[x].of = sum;
        }
    }
    return isOpaque;
}

bool RowMaker::AddUp(int32 left, int32 right, int32 first, std::span<const float> shares) {
    const auto pixels = static_cast<std::size_t>(right - left);
    const std::size_t count = 4 * pixels;
    if (fSums.size() < pixels)
        fSums.resize(pixels);
    auto* sums = reinterpret_cast<float*>(fSums.data());
    bool allOpaque = true;
    for (std::size_t done = 0; done < shares.size();) {
        const std::size_t group = std::min<std::size_t>(4, shares.size() - done);
        const float* share = shares.data() + done;
        const uint8* rows[4];
        bool isOpaque = true;
        for (std::size_t i = 0; i < group; i++) {
            rows[i] = PixelsAt(first + static_cast<int32>(done + i), left, right, fMade[i]);
            isOpaque = isOpaque && IsOpaque(rows[i], count);
        }
        const bool begins = done == 0;
        if (!isOpaque) {
            for (std::size_t i = 0; i < group; i++)
                AddByAlpha(sums, count, rows[i], share[i], begins && i == 0);
        } else {
            switch (group) {
            case 4: AddOpaque<4>(sums, count, rows, share, begins); break;
            case 3: AddOpaque<3>(sums, count, rows, share, begins); break;
            case 2: AddOpaque<2>(sums, count, rows, share, begins); break;
            default: AddOpaque<1>(sums, count, rows, share, begins); break;
            }
        }
        allOpaque = allOpaque && isOpaque;
        done += group;
    }
    return allOpaque;
}

/// Pixels of a row as B, G, R, A: the source's own, or made of them.
const uint8* RowMaker::PixelsAt(int32 y, int32 left, int32 right, std::vector<uint8>& made) const {
    const PixelBuffer& buffer = fFrom.buffer;
    const uint8* row =
        buffer.bits + static_cast<std::ptrdiff_t>(fSource.top + y) * buffer.bytesPerRow;
    left += fSource.left;
    right += fSource.left;
    if (fFrom.space == B_RGBA32)
        return row + std::ptrdiff_t{4} * left;
    made.resize(4 * static_cast<std::size_t>(right - left));
    for (int32 x = left; x < right; x++) {
        const Pixel pixel = fFrom.space == B_GRAY8 ? ReadGray8::At(row, x) : ReadRgb32::At(row, x);
        std::memcpy(made.data() + std::ptrdiff_t{4} * (x - left), &pixel, sizeof(pixel));
    }
    return made.data();
}

/// The sums as pixels.
void Round(const Channels* row, std::size_t width, bool isOpaque, uint8* pixels) {
    const auto* sums = reinterpret_cast<const float*>(row);
    if (isOpaque) {
        for (std::size_t i = 0; i < 4 * width; i++)
            pixels[i] = static_cast<uint8>(static_cast<int32>(sums[i] + 0.5F));
        return;
    }
    for (std::size_t i = 0; i < 4 * width; i += 4) {
        const float alpha = sums[i + 3];
        // What is as good as transparent has no colour to be found.
        const float up = alpha > kOpaqueSum ? 1 : alpha < 0.001F ? 0 : 255 / alpha;
        for (std::size_t channel = 0; channel < 3; channel++) {
            const float color = std::min(sums[i + channel] * up, 255.0F);
            pixels[i + channel] = static_cast<uint8>(static_cast<int32>(color + 0.5F));
        }
        pixels[i + 3] = static_cast<uint8>(static_cast<int32>(alpha + 0.5F));
    }
}

/// Where the picture gets lower: a row of the destination is made of all that it covers. The rows
/// are added up first, since there are fewer of them afterwards.
void DrawReduced(
    RowMaker& maker, const SmoothWeights& rows, PixelRect clip, const SmoothRowTaker& take) {
    const auto width = static_cast<std::size_t>(clip.Width());
    std::vector<Channels> row(width);
    std::vector<uint8> pixels(4 * width);
    for (int32 y = 0; y < rows.Count(); y++) {
        const SmoothWeights::Pixel own = rows.At(y);
        const bool isOpaque =
            maker.Make(own.first, {own.shares, static_cast<std::size_t>(own.count)}, row.data());
        Round(row.data(), width, isOpaque, pixels.data());
        take(clip.top + y, pixels.data());
    }
}

/// Where it gets higher, or stays: each row of the source is brought to the width once, and rows
/// of the destination are blended from two of those.
void DrawEnlarged(
    RowMaker& maker, const SmoothWeights& rows, PixelRect clip, const SmoothRowTaker& take) {
    struct Ready {
        int32 number = -1;
        bool isOpaque = true;
        std::vector<Channels> row;
    };
    const auto width = static_cast<std::size_t>(clip.Width());
    Ready upper;
    Ready lower;
    upper.row.resize(width);
    lower.row.resize(width);
    std::vector<Channels> blended(width);
    std::vector<uint8> pixels(4 * width);
    constexpr float kWhole = 1;
    const auto prepare = [&](Ready& ready, int32 number) {
        if (ready.number == number)
            return;
        ready.number = number;
        ready.isOpaque = maker.Make(number, {&kWhole, 1}, ready.row.data());
    };
    for (int32 y = 0; y < rows.Count(); y++) {
        const SmoothWeights::Pixel own = rows.At(y);
        if (upper.number != own.first && lower.number == own.first)
            std::swap(upper, lower);
        prepare(upper, own.first);
        if (own.count == 1) {
            Round(upper.row.data(), width, upper.isOpaque, pixels.data());
        } else {
            prepare(lower, own.first + 1);
            for (std::size_t x = 0; x < width; x++) {
                blended[x].of = upper.row[x].of * own.shares[0] + lower.row[x].of * own.shares[1];
            }
            Round(blended.data(), width, upper.isOpaque && lower.isOpaque, pixels.data());
        }
        take(clip.top + y, pixels.data());
    }
}

}  // namespace

void SampleSmoothly(const PixelSource& from, PixelRect source, const SmoothFrame& frame,
    PixelRect clip, const SmoothRowTaker& take) {
    if (clip.IsEmpty() || source.IsEmpty() || !(frame.width > 0) || !(frame.height > 0))
        return;
    const SmoothWeights columns(source.Width(), frame.left, frame.width, clip.left, clip.right);
    const SmoothWeights rows(source.Height(), frame.top, frame.height, clip.top, clip.bottom);
    RowMaker maker(from, source, columns);
    if (rows.IsReduced())
        DrawReduced(maker, rows, clip, take);
    else
        DrawEnlarged(maker, rows, clip, take);
}

}  // namespace BPrivate
