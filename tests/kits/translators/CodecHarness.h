#pragma once

// What every codec's tests share: files in memory, the add-ons, and pictures to compare.

#include "kits/translation/AddOn.h"
#include <iosfwd>
#include <string>
#include <vector>

using Bytes = std::vector<uint8>;

/// A picture as add-ons give it: each pixel is B, G, R, A from the lowest byte up.
struct Picture {
    uint32 width = 0;
    uint32 height = 0;
    std::vector<uint32> pixels;

    uint32 At(uint32 x, uint32 y) const { return pixels[size_t(y) * width + x]; }
    bool operator==(const Picture&) const = default;
};

constexpr uint32 Bgra(uint8 red, uint8 green, uint8 blue, uint8 alpha = 255) {
    return uint32(alpha) << 24 | uint32(red) << 16 | uint32(green) << 8 | blue;
}

/// Every pixel different, or nearly, with `alpha` or with alphas of its own where it is negative.
Picture MakePicture(uint32 width, uint32 height, int alpha = 255);

/// The picture whose stored form, turned by `orientation`, is `stored`.
Picture Upright(const Picture& stored, int orientation);

/// The largest difference of any channel of any pixel; 256 for pictures of different sizes.
int Difference(const Picture& a, const Picture& b);

/// Exif data that holds an orientation and nothing else, with "Exif\0\0" before it.
Bytes MakeExif(int orientation, bool littleEndian = true);

/// An ICC profile like sRGB's, except that what it calls red is green and the reverse.
Bytes MakeExchangedProfile();
Bytes MakeSrgbProfile();
/// A gray profile of the given gamma.
Bytes MakeGrayProfile(double gamma);

/// The add-on beside the test programs; fails the test if it cannot be loaded.
BPrivate::AddOn::Translator& LoadAddOn(const std::string& name);

/// Identifies and decodes a file in memory. Pictures above 16 million pixels are refused with
/// B_NO_MEMORY before anything is decoded, as the kit does it.
status_t DecodeFile(BPrivate::AddOn::Translator& translator, const Bytes& file, Picture* picture,
    BPrivate::AddOn::Problem* problem = nullptr, uint64 memoryBudget = 1 << 30);
/// The name of the format the add-on sees in the file, "" if none.
std::string IdentifyFile(BPrivate::AddOn::Translator& translator, const Bytes& file);

/// A file that every codec test is made with.
struct Sample {
    std::string name;
    std::string addOn;
    std::string format;  ///< as the user reads it
    Bytes file;
    Picture expected;
    int tolerance = 0;
    /// Whether every byte of the file is needed. Others may lack the end if no pixel is in it.
    bool needsEveryByte = false;
    bool needsApplication = false;
};

std::ostream& operator<<(std::ostream& out, const Sample& sample);

std::vector<Sample> JpegSamples();
std::vector<Sample> PngSamples();
std::vector<Sample> QtSamples();

/// Qt's application object, which drawings need; made once and kept.
void EnsureApplication();
