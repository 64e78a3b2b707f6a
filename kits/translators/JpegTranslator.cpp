#include "kits/translators/ColorTransform.h"
#include "kits/translators/JpegSource.h"
#include "kits/translators/Orientation.h"
#include "kits/translators/Problem.h"
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <vector>

using namespace BPrivate::AddOn;

namespace {

constexpr int kExifMarker = JPEG_APP0 + 1;
constexpr int kProfileMarker = JPEG_APP0 + 2;

// A progressive file may hold any number of scans, each of a few bytes and each a walk over the
// whole picture. Encoders make ten or so; tools that try for the smallest file, some dozens.
constexpr int kMaxScans = 100;
constexpr uint64 kMaxScannedPixels = 20'000'000'000;

class JpegDecoder final : public Decoder {
public:
    explicit JpegDecoder(Source& source) : fSource(source) {}
    ~JpegDecoder() override { jpeg_destroy_decompress(&fJpeg); }

    [[nodiscard]] status_t ReadHeader(uint64 memoryBudget, Problem* problem);

    Size PictureSize() const override {
        if (fOrientation >= 5)
            return {fJpeg.image_height, fJpeg.image_width};
        return {fJpeg.image_width, fJpeg.image_height};
    }

    status_t Decode(uint8* bits, size_t bytesPerRow, Problem* problem) override;

private:
    struct Watch : jpeg_progress_mgr {
        int maxScans = kMaxScans;
    };

    bool IsCmyk() const {
        return fJpeg.jpeg_color_space == JCS_CMYK || fJpeg.jpeg_color_space == JCS_YCCK;
    }

    bool GuardedReadHeader(uint64 memoryBudget);
    bool GuardedDecode(UprightRows& rows);
    void ReadOrientation();
    void ReadProfile();
    void ConvertCmyk(uint8* to) const;
    static void CheckScans(j_common_ptr jpeg);

    jpeg_decompress_struct fJpeg{};
    JpegErrors fErrors;
    JpegSource fSource;
    Watch fWatch{};
    Orientation fOrientation = 1;
    std::unique_ptr<ColorTransform> fColors;
    std::vector<JSAMPLE> fCmykRow;
};

void JpegDecoder::CheckScans(j_common_ptr jpeg) {
    const auto* decompress = reinterpret_cast<j_decompress_ptr>(jpeg);
    if (decompress->input_scan_number > static_cast<Watch*>(jpeg->progress)->maxScans)
        StopJpeg(jpeg, B_BAD_DATA, "the picture has too many scans");
}

status_t JpegDecoder::ReadHeader(uint64 memoryBudget, Problem* problem) {
    fErrors.problem = problem;
    fJpeg.err = &fErrors.manager;
    if (!GuardedReadHeader(memoryBudget))
        return problem->status;
    ReadOrientation();
    return B_OK;
}

// Nothing with a destructor lives in the Guarded functions: libjpeg leaves them by a jump.
bool JpegDecoder::GuardedReadHeader(uint64 memoryBudget) {
    if (setjmp(fErrors.jump) != 0)
        return false;
    jpeg_create_decompress(&fJpeg);
    fJpeg.mem->max_memory_to_use = long(std::min<uint64>(memoryBudget, LONG_MAX));
    fSource.Connect(&fJpeg);
    jpeg_save_markers(&fJpeg, kExifMarker, 0xffff);
    jpeg_save_markers(&fJpeg, kProfileMarker, 0xffff);
    jpeg_read_header(&fJpeg, TRUE);
    return true;
}

void JpegDecoder::ReadOrientation() {
    for (const jpeg_marker_struct* marker = fJpeg.marker_list; marker != nullptr;
         marker = marker->next) {
        if (marker->marker == kExifMarker && marker->data_length > 6 &&
            memcmp(marker->data, "Exif\0", 5) == 0) {
            fOrientation = OrientationFromExif(marker->data, marker->data_length);
            return;
        }
    }
}

void JpegDecoder::ReadProfile() {
    JOCTET* profile = nullptr;
    unsigned length = 0;
    // A broken one is reported by a warning and left out.
    if (!jpeg_read_icc_profile(&fJpeg, &profile, &length))
        return;
    PixelKind kind = PixelKind::kBgra8;
    if (IsCmyk())
        kind = fJpeg.saw_Adobe_marker ? PixelKind::kInvertedCmyk8 : PixelKind::kCmyk8;
    fColors =
        ColorTransform::FromProfile(profile, length, kind, fJpeg.jpeg_color_space == JCS_GRAYSCALE);
    free(profile);
}

// Without a profile ink is taken to absorb all of its own colour, as is usual. Files with Adobe's
// marker hold the values inverted.
void JpegDecoder::ConvertCmyk(uint8* to) const {
    const uint8 invert = fJpeg.saw_Adobe_marker ? 0 : 255;
    const JSAMPLE* from = fCmykRow.data();
    for (uint32 x = 0; x < fJpeg.output_width; x++, from += 4, to += 4) {
        const unsigned black = from[3] ^ invert;
        for (int i = 0; i < 3; i++)
            to[i] = uint8(((from[2 - i] ^ invert) * black + 127) / 255);
        to[3] = 255;
    }
}

status_t JpegDecoder::Decode(uint8* bits, size_t bytesPerRow, Problem* problem) {
    fErrors.problem = problem;
    if (fJpeg.jpeg_color_space == JCS_UNKNOWN)
        return Fail(
            problem, B_BAD_DATA, "%d components are no known colours", fJpeg.num_components);
    const uint64 pixels = uint64(fJpeg.image_width) * fJpeg.image_height;
    fWatch.maxScans = int(std::clamp<uint64>(kMaxScannedPixels / pixels, 1, kMaxScans));
    ReadProfile();
    if (IsCmyk())
        fCmykRow.resize(size_t(fJpeg.image_width) * 4);
    UprightRows rows(bits, bytesPerRow, fJpeg.image_width, fJpeg.image_height, fOrientation);
    return GuardedDecode(rows) ? B_OK : problem->status;
}

bool JpegDecoder::GuardedDecode(UprightRows& rows) {
    if (setjmp(fErrors.jump) != 0)
        return false;
    fWatch.progress_monitor = CheckScans;
    fJpeg.progress = &fWatch;
    fJpeg.out_color_space = IsCmyk() ? JCS_CMYK : JCS_EXT_BGRA;
    jpeg_start_decompress(&fJpeg);
    while (fJpeg.output_scanline < fJpeg.output_height) {
        const uint32 y = fJpeg.output_scanline;
        uint8* row = rows.Row(y);
        JSAMPROW out = IsCmyk() ? fCmykRow.data() : row;
        jpeg_read_scanlines(&fJpeg, &out, 1);
        if (fColors)
            fColors->Convert(out, row, fJpeg.output_width);
        else if (IsCmyk())
            ConvertCmyk(row);
        rows.Done(y);
    }
    // Reads up to the end of the picture; a file that is cut off there is noticed here.
    jpeg_finish_decompress(&fJpeg);
    return true;
}

class JpegTranslator final : public Translator {
public:
    const char* Name() const override { return "JPEG images"; }
    const char* Info() const override { return "Baseline and progressive JPEG, by libjpeg-turbo"; }
    int32 Version() const override { return 100; }

    status_t Identify(Source& source, Format* format) override {
        uint8 head[3];
        if (source.ReadAt(0, head, sizeof(head)) != sizeof(head) ||
            memcmp(head, "\xff\xd8\xff", sizeof(head)) != 0)
            return B_NO_TRANSLATOR;
        *format = {'JPEG', "JPEG image", "image/jpeg", 0.7f, 0.9f};
        return B_OK;
    }

    std::unique_ptr<Decoder> Open(Source& source, uint64 memoryBudget, Problem* problem) override {
        auto decoder = std::make_unique<JpegDecoder>(source);
        if (decoder->ReadHeader(memoryBudget, problem) != B_OK)
            return nullptr;
        return decoder;
    }
};

}  // namespace

extern "C" [[gnu::visibility("default")]] Translator* lorivane_translator(uint32 version) {
    static JpegTranslator translator;
    return version == kInterfaceVersion ? &translator : nullptr;
}
