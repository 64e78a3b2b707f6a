#include "tests/kits/translators/JpegFile.h"
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

Bytes MakeJpeg(const Picture& picture, const JpegOptions& options) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors;
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &memory, &size);
    jpeg.image_width = picture.width;
    jpeg.image_height = picture.height;
    jpeg.input_components = 4;
    const bool cmyk = options.colors == JpegOptions::kCmyk || options.colors == JpegOptions::kYcck;
    jpeg.in_color_space = cmyk ? JCS_CMYK : JCS_EXT_BGRA;
    jpeg_set_defaults(&jpeg);
    static constexpr J_COLOR_SPACE kSpaces[] = {
        JCS_YCbCr, JCS_GRAYSCALE, JCS_RGB, JCS_CMYK, JCS_YCCK};
    jpeg_set_colorspace(&jpeg, kSpaces[options.colors]);
    jpeg_set_quality(&jpeg, options.quality, TRUE);
    jpeg.write_Adobe_marker = options.adobeMarker && cmyk ? TRUE : jpeg.write_Adobe_marker;
    if (!options.adobeMarker)
        jpeg.write_Adobe_marker = FALSE;
    jpeg.restart_interval = unsigned(options.restartInterval);
    jpeg.arith_code = options.arithmetic ? TRUE : FALSE;
    if (options.progressive)
        jpeg_simple_progression(&jpeg);
    std::vector<jpeg_scan_info> scans;
    if (options.manyScans) {
        scans.push_back({3, {0, 1, 2}, 0, 0, 0, 0});
        for (int component = 0; component < 3; component++) {
            for (int coefficient = 1; coefficient < 64; coefficient++)
                scans.push_back({1, {component}, coefficient, coefficient, 0, 0});
        }
        jpeg.scan_info = scans.data();
        jpeg.num_scans = int(scans.size());
    }
    jpeg_start_compress(&jpeg, TRUE);
    if (!options.exif.empty())
        jpeg_write_marker(&jpeg, JPEG_APP0 + 1, options.exif.data(), unsigned(options.exif.size()));
    if (!options.profile.empty())
        jpeg_write_icc_profile(&jpeg, options.profile.data(), unsigned(options.profile.size()));
    while (jpeg.next_scanline < jpeg.image_height) {
        const auto* row = picture.pixels.data() + size_t(jpeg.next_scanline) * picture.width;
        auto* samples = reinterpret_cast<JSAMPLE*>(const_cast<uint32*>(row));
        jpeg_write_scanlines(&jpeg, &samples, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    Bytes file(memory, memory + size);
    free(memory);
    return file;
}

Picture PlainJpegDecode(const Bytes& file, bool cmyk) {
    jpeg_decompress_struct jpeg{};
    jpeg_error_mgr errors;
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&jpeg);
    jpeg_mem_src(&jpeg, file.data(), file.size());
    jpeg_read_header(&jpeg, TRUE);
    jpeg.out_color_space = cmyk ? JCS_CMYK : JCS_EXT_BGRA;
    jpeg_start_decompress(&jpeg);
    Picture picture{jpeg.output_width, jpeg.output_height, {}};
    picture.pixels.resize(size_t(picture.width) * picture.height);
    while (jpeg.output_scanline < jpeg.output_height) {
        auto* row = reinterpret_cast<JSAMPLE*>(
            picture.pixels.data() + size_t(jpeg.output_scanline) * picture.width);
        jpeg_read_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_decompress(&jpeg);
    jpeg_destroy_decompress(&jpeg);
    return picture;
}
