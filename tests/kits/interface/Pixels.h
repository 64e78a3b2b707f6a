#pragma once

// Small pictures for tests of drawing, written as they look.

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "kits/interface/Painter.h"
#include "kits/interface/PixelOps.h"

namespace BPrivate {

inline constexpr rgb_color kRed{255, 0, 0, 255};
inline constexpr rgb_color kGreen{0, 255, 0, 255};
inline constexpr rgb_color kBlue{0, 0, 255, 255};
inline constexpr rgb_color kWhite{255, 255, 255, 255};
inline constexpr rgb_color kBlack{0, 0, 0, 255};
inline constexpr rgb_color kClear{0, 0, 0, 0};

/// A picture of 32-bit pixels, a letter each: '.' clear, 'r', 'g', 'b', 'w', 'k' opaque colours.
class TestPicture {
public:
    explicit TestPicture(const std::vector<std::string>& rows)
        : fWidth(static_cast<int32>(rows.front().size())),
          fHeight(static_cast<int32>(rows.size())) {
        for (const std::string& row : rows) {
            for (const char letter : row)
                fPixels.push_back(ToPixel(kLetters.at(letter)));
        }
    }
    TestPicture(int32 width, int32 height, char letter)
        : TestPicture(std::vector<std::string>(static_cast<std::size_t>(height),
              std::string(static_cast<std::size_t>(width), letter))) {}

    PixelBuffer Buffer() {
        return {reinterpret_cast<uint8*>(fPixels.data()), 4 * fWidth, fWidth, fHeight};
    }
    PixelRect All() const { return {0, 0, fWidth, fHeight}; }
    rgb_color At(int32 x, int32 y) const {
        return ToColor(fPixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(fWidth) +
            static_cast<std::size_t>(x)]);
    }
    std::vector<std::string> Rows() const {
        std::vector<std::string> rows;
        for (int32 y = 0; y < fHeight; y++) {
            std::string row;
            for (int32 x = 0; x < fWidth; x++)
                row += LetterOf(At(x, y));
            rows.push_back(row);
        }
        return rows;
    }
    static char LetterOf(rgb_color color) {
        for (const auto& [letter, known] : kLetters) {
            if (known == color)
                return letter;
        }
        return '?';
    }

private:
    static inline const std::map<char, rgb_color> kLetters{
        {'.', kClear}, {'r', kRed}, {'g', kGreen}, {'b', kBlue}, {'w', kWhite}, {'k', kBlack}};

    int32 fWidth;
    int32 fHeight;
    std::vector<Pixel> fPixels;
};

using Rows = std::vector<std::string>;

}  // namespace BPrivate
