// Showing 12 megapixels whole in a window, smoothly, against a plain loop that takes the mean of
// the pixels each falls on.

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

#include "bench/Report.h"
#include "kits/interface/SmoothSampling.h"

namespace {

using namespace BPrivate;

constexpr int kRuns = 25;
constexpr int32 kWidth = 4000;
constexpr int32 kHeight = 3000;

/// Whole pixels only, so that it is no rival in quality: what is the least there is to do.
void TakeMeans(
    const std::vector<uint8_t>& from, std::vector<uint8_t>& to, int32 width, int32 height) {
    for (int32 y = 0; y < height; ++y) {
        const int32 top = y * kHeight / height;
        const int32 bottom = (y + 1) * kHeight / height;
        for (int32 x = 0; x < width; ++x) {
            const int32 left = x * kWidth / width;
            const int32 right = (x + 1) * kWidth / width;
            uint32_t sums[4] = {};
            for (int32 row = top; row < bottom; ++row) {
                const uint8_t* pixel = from.data() + std::ptrdiff_t{4} * (row * kWidth + left);
                for (int32 column = left; column < right; ++column, pixel += 4) {
                    for (int channel = 0; channel < 4; ++channel)
                        sums[channel] += pixel[channel];
                }
            }
            const auto count = static_cast<uint32_t>((bottom - top) * (right - left));
            uint8_t* target = to.data() + std::ptrdiff_t{4} * (y * width + x);
            for (int channel = 0; channel < 4; ++channel)
                target[channel] = static_cast<uint8_t>((sums[channel] + count / 2) / count);
        }
    }
}

bool Measure(std::vector<uint8_t>& photo, int32 width, int32 height, double limit) {
    const PixelSource source{{photo.data(), 4 * kWidth, kWidth, kHeight}, B_RGBA32};
    const SmoothFrame frame{0, 0, static_cast<double>(width), static_cast<double>(height)};
    const std::size_t rowLength = 4 * static_cast<std::size_t>(width);
    std::vector<uint8_t> pixels(rowLength * static_cast<std::size_t>(height));
    std::vector<double> byHand, own;
    for (int run = 0; run < kRuns; ++run) {
        auto start = bench::Clock::now();
        TakeMeans(photo, pixels, width, height);
        byHand.push_back(bench::MillisecondsSince(start));
        start = bench::Clock::now();
        SampleSmoothly(source, {0, 0, kWidth, kHeight}, frame, {0, 0, width, height},
            [&](int32 y, const uint8* row) {
                std::memcpy(
                    pixels.data() + static_cast<std::size_t>(y) * rowLength, row, rowLength);
            });
        own.push_back(bench::MillisecondsSince(start));
    }
    const std::string size = std::to_string(width) + " x " + std::to_string(height);
    std::printf("12 megapixels smoothly to %s: %.2f ms, by hand %.2f ms (median of %d)\n",
        size.c_str(), bench::Median(own), bench::Median(byHand), kRuns);
    return bench::Judge("smoothly to " + size + ", against a plain loop",
        bench::Median(own) / bench::Median(byHand), limit, "x");
}

}  // namespace

int main() {
    bench::PrintMachine();
    std::vector<uint8_t> photo(std::size_t{4} * kWidth * kHeight);
    std::mt19937 random(1);
    for (std::size_t i = 0; i < photo.size(); i += 4) {
        const uint32_t pixel = random() | 0xff000000;
        std::memcpy(photo.data() + i, &pixel, sizeof(pixel));
    }
    // 25 ms of the 43 and the 27 that the loop takes on an idle machine.
    bool good = Measure(photo, 1900, 1000, 0.58);
    good &= Measure(photo, 1333, 1000, 0.92);
    return good ? 0 : 1;
}
