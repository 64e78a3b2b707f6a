#include "bench/Photo.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

#include "bench/Report.h"

#include <jpeglib.h>

namespace bench {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

}  // namespace

bool WritePhoto(const std::string& path, int number, int width, int height) {
    File file(std::fopen(path.c_str(), "wb"));
    if (!file)
        return false;
    jpeg_error_mgr errors{};
    jpeg_compress_struct jpeg{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    jpeg_stdio_dest(&jpeg, file.get());
    jpeg.image_width = static_cast<JDIMENSION>(width);
    jpeg.image_height = static_cast<JDIMENSION>(height);
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 90, TRUE);
    jpeg_start_compress(&jpeg, TRUE);

    std::minstd_rand random(static_cast<unsigned>(number) + 1);
    std::vector<JSAMPLE> row(static_cast<size_t>(width) * 3);
    float hue = 1.3F * static_cast<float>(number);
    for (int y = 0; y < height; ++y) {
        float v = static_cast<float>(y) / static_cast<float>(height);
        for (int x = 0; x < width; ++x) {
            float u = static_cast<float>(x) / static_cast<float>(width);
            float shape = std::sin(9 * u + 4 * std::sin(7 * v)) * 28 + std::sin(60 * u * v) * 14;
            auto noise = static_cast<float>(random() >> 8 & 31) - 15.5F;
            for (int c = 0; c < 3; ++c) {
                float base = 130 + 50 * std::sin(hue + 2.1F * static_cast<float>(c));
                float value = base + shape + noise;
                row[static_cast<size_t>(x * 3 + c)] = static_cast<JSAMPLE>(value);
            }
        }
        JSAMPROW line = row.data();
        jpeg_write_scanlines(&jpeg, &line, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    return true;
}

double DecodeAlone(const std::string& path) {
    auto start = Clock::now();
    File file(std::fopen(path.c_str(), "rb"));
    if (!file)
        return -1;
    jpeg_error_mgr errors{};
    jpeg_decompress_struct jpeg{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&jpeg);
    jpeg_stdio_src(&jpeg, file.get());
    jpeg_read_header(&jpeg, TRUE);
    jpeg.out_color_space = JCS_EXT_BGRA;
    jpeg_start_decompress(&jpeg);
    size_t rowBytes = size_t(jpeg.output_width) * 4;
    std::unique_ptr<JSAMPLE, decltype(&std::free)> pixels(
        static_cast<JSAMPLE*>(std::malloc(rowBytes * jpeg.output_height)), &std::free);
    while (jpeg.output_scanline < jpeg.output_height) {
        JSAMPROW line = pixels.get() + rowBytes * jpeg.output_scanline;
        jpeg_read_scanlines(&jpeg, &line, 1);
    }
    jpeg_finish_decompress(&jpeg);
    jpeg_destroy_decompress(&jpeg);
    return MillisecondsSince(start);
}

}  // namespace bench
