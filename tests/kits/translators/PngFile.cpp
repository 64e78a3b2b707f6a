#include "tests/kits/translators/PngFile.h"
#include <algorithm>
#include <cstring>
#include <png.h>
#include <zlib.h>

static png_color PaletteColor(int index) {
    return {png_byte(index * 16), png_byte(255 - index * 16), png_byte(index * 7)};
}

static int PaletteSize(int depth) {
    return std::min(1 << depth, 16);
}

// The value stored for 8 bits at another depth.
static int Scaled(uint8 value, int depth) {
    return depth == 16 ? value * 257 : value >> (8 - depth);
}

static int Index(uint32 pixel, int depth) {
    return int(pixel & 0xff) % PaletteSize(depth);
}

static std::vector<int> Samples(uint32 pixel, const PngOptions& options) {
    const auto blue = uint8(pixel);
    const auto green = uint8(pixel >> 8);
    const auto red = uint8(pixel >> 16);
    const auto alpha = uint8(pixel >> 24);
    const int depth = options.depth;
    switch (options.colorType) {
    case PNG_COLOR_TYPE_GRAY: return {Scaled(blue, depth)};
    case PNG_COLOR_TYPE_RGB: return {Scaled(red, depth), Scaled(green, depth), Scaled(blue, depth)};
    case PNG_COLOR_TYPE_PALETTE: return {Index(pixel, depth)};
    case PNG_COLOR_TYPE_GRAY_ALPHA: return {Scaled(blue, depth), Scaled(alpha, depth)};
    default:
        return {
            Scaled(red, depth), Scaled(green, depth), Scaled(blue, depth), Scaled(alpha, depth)};
    }
}

Bytes MakePng(const Picture& picture, const PngOptions& options) {
    Bytes file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp self, png_bytep data, size_t size) {
            auto* out = static_cast<Bytes*>(png_get_io_ptr(self));
            out->insert(out->end(), data, data + size);
        },
        nullptr);
    png_set_IHDR(png, info, picture.width, picture.height, options.depth, options.colorType,
        options.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
        PNG_FILTER_TYPE_DEFAULT);
    if (options.colorType == PNG_COLOR_TYPE_PALETTE) {
        std::vector<png_color> palette;
        for (int i = 0; i < PaletteSize(options.depth); i++)
            palette.push_back(PaletteColor(i));
        png_set_PLTE(png, info, palette.data(), int(palette.size()));
    }
    if (options.transparency) {
        const std::vector<int> first = Samples(picture.pixels[0], options);
        png_color_16 color{};
        png_byte alpha = 0;
        if (first.size() == 1) {
            color.gray = png_uint_16(first[0]);
        } else {
            color.red = png_uint_16(first[0]);
            color.green = png_uint_16(first[1]);
            color.blue = png_uint_16(first[2]);
        }
        png_set_tRNS(png, info, &alpha, 1, &color);
    }
    if (options.gamma > 0)
        png_set_gAMA(png, info, options.gamma);
    if (options.srgb)
        png_set_sRGB(png, info, PNG_sRGB_INTENT_PERCEPTUAL);
    if (!options.profile.empty())
        png_set_iCCP(png, info, "profile", PNG_COMPRESSION_TYPE_BASE, options.profile.data(),
            png_uint_32(options.profile.size()));
    if (!options.exif.empty()) {
        // In PNG without the six bytes before the TIFF header.
        Bytes exif(options.exif.begin() + 6, options.exif.end());
        png_set_eXIf_1(png, info, png_uint_32(exif.size()), exif.data());
    }
    png_write_info(png, info);
    if (options.depth < 8)
        png_set_packing(png);
    const int passes = png_set_interlace_handling(png);
    for (int pass = 0; pass < passes; pass++) {
        for (uint32 y = 0; y < picture.height; y++) {
            Bytes row;
            for (uint32 x = 0; x < picture.width; x++) {
                for (int sample : Samples(picture.At(x, y), options)) {
                    if (options.depth == 16)
                        row.push_back(uint8(sample >> 8));
                    row.push_back(uint8(sample));
                }
            }
            png_write_row(png, row.data());
        }
    }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return file;
}

Picture PngPicture(const Picture& picture, const PngOptions& options) {
    Picture shown = picture;
    const std::vector<int> first = Samples(picture.pixels[0], options);
    const int most = options.depth == 16 ? 65535 : (1 << options.depth) - 1;
    const auto expand = [&](int sample) { return uint8(sample * 255 / most); };
    for (uint32& pixel : shown.pixels) {
        const std::vector<int> samples = Samples(pixel, options);
        const bool transparent = options.transparency && samples == first;
        const uint8 alpha = transparent ? 0 : 255;
        switch (options.colorType) {
        case PNG_COLOR_TYPE_PALETTE: {
            const png_color color = PaletteColor(samples[0]);
            const bool none = options.transparency && samples[0] == 0;
            pixel = Bgra(color.red, color.green, color.blue, none ? 0 : 255);
            break;
        }
        case PNG_COLOR_TYPE_GRAY:
        case PNG_COLOR_TYPE_GRAY_ALPHA: {
            const uint8 gray = expand(samples[0]);
            pixel = Bgra(gray, gray, gray, samples.size() > 1 ? expand(samples[1]) : alpha);
            break;
        }
        default:
            pixel = Bgra(expand(samples[0]), expand(samples[1]), expand(samples[2]),
                samples.size() > 3 ? expand(samples[3]) : alpha);
        }
    }
    return shown;
}

Bytes InsertChunk(const Bytes& png, const char* before, const char* name, const Bytes& data) {
    size_t at = 8;
    while (memcmp(&png[at + 4], before, 4) != 0)
        at += 12 + png_get_uint_32(&png[at]);
    Bytes chunk(4);
    png_save_uint_32(chunk.data(), png_uint_32(data.size()));
    chunk.insert(chunk.end(), name, name + 4);
    chunk.insert(chunk.end(), data.begin(), data.end());
    uint8 check[4];
    png_save_uint_32(check, png_uint_32(crc32(0, &chunk[4], uInt(chunk.size() - 4))));
    chunk.insert(chunk.end(), check, check + 4);
    Bytes file = png;
    file.insert(file.begin() + ptrdiff_t(at), chunk.begin(), chunk.end());
    return file;
}
