#include "kits/translators/ColorTransform.h"
#include "kits/translators/Orientation.h"
#include "kits/translators/Problem.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <png.h>
#include <vector>

using namespace BPrivate::AddOn;

namespace {

constexpr size_t kSignatureSize = 8;

// For what a file says about itself beside the pixels: colour profiles are the largest of it.
constexpr png_alloc_size_t kMaxChunkMemory = 16 * 1024 * 1024;

class PngDecoder final : public Decoder {
public:
    explicit PngDecoder(Source& source) : fSource(source) {}
    ~PngDecoder() override { png_destroy_read_struct(&fPng, &fInfo, nullptr); }

    [[nodiscard]] status_t ReadHeader(uint64 memoryBudget, Problem* problem);

    Size PictureSize() const override {
        return fOrientation >= 5 ? Size{fHeight, fWidth} : Size{fWidth, fHeight};
    }

    status_t Decode(uint8* bits, size_t bytesPerRow, Problem* problem) override;

private:
    static void Read(png_structp png, png_bytep buffer, size_t size);
    [[noreturn]] static void Stop(png_structp png, png_const_charp text);
    static void Ignore(png_structp, png_const_charp) {}
    static png_voidp Allocate(png_structp png, png_alloc_size_t size);
    static void Free(png_structp, png_voidp memory) { free(memory); }

    bool GuardedReadInfo();
    bool GuardedSetUp(bool sixteenBits);
    bool GuardedDecode(UprightRows& rows);
    void ReadOrientation();
    std::unique_ptr<ColorTransform> MakeColors() const;
    bool IsSixteenBits() const { return fStoredRowSize == size_t(fWidth) * 8; }

    Source& fSource;
    uint64 fMemoryBudget = 0;
    Problem* fProblem = nullptr;
    int64 fOffset = 0;
    png_structp fPng = nullptr;
    png_infop fInfo = nullptr;
    uint32 fWidth = 0;
    uint32 fHeight = 0;
    int fDepth = 0;
    int fColorType = 0;
    int fInterlace = 0;
    int fPasses = 1;
    size_t fStoredRowSize = 0;
    Orientation fOrientation = 1;
    std::unique_ptr<ColorTransform> fColors;
    // One row, or all of them where they come in passes and cannot be built up in place.
    std::vector<uint8> fStored;
};

void PngDecoder::Read(png_structp png, png_bytep buffer, size_t size) {
    auto& self = *static_cast<PngDecoder*>(png_get_io_ptr(png));
    const int64 bytes = self.fSource.ReadAt(self.fOffset, buffer, size);
    if (bytes < 0) {
        self.fProblem->status = status_t(bytes);
        png_error(png, "the file cannot be read");
    }
    self.fProblem->incomplete = size_t(bytes) < size;
    if (self.fProblem->incomplete)
        png_error(png, "the file ends before the picture does");
    self.fOffset += bytes;
}

void PngDecoder::Stop(png_structp png, png_const_charp text) {
    auto& self = *static_cast<PngDecoder*>(png_get_error_ptr(png));
    const status_t status = self.fProblem->status != B_OK ? self.fProblem->status : B_BAD_DATA;
    Fail(self.fProblem, status, "%s", text);
    png_longjmp(png, 1);
}

// libpng limits what most chunks take, but not all.
png_voidp PngDecoder::Allocate(png_structp png, png_alloc_size_t size) {
    const auto& self = *static_cast<PngDecoder*>(png_get_mem_ptr(png));
    return size <= self.fMemoryBudget ? malloc(size) : nullptr;
}

status_t PngDecoder::ReadHeader(uint64 memoryBudget, Problem* problem) {
    fProblem = problem;
    fMemoryBudget = memoryBudget;
    fPng =
        png_create_read_struct_2(PNG_LIBPNG_VER_STRING, this, Stop, Ignore, this, Allocate, Free);
    if (fPng == nullptr)
        return Fail(problem, B_NO_MEMORY, "not enough memory");
    fInfo = png_create_info_struct(fPng);
    if (fInfo == nullptr)
        return Fail(problem, B_NO_MEMORY, "not enough memory");
    if (!GuardedReadInfo())
        return problem->status;
    ReadOrientation();
    return B_OK;
}

// Nothing with a destructor lives in the Guarded functions: libpng leaves them by a jump.
bool PngDecoder::GuardedReadInfo() {
    if (setjmp(png_jmpbuf(fPng)) != 0)
        return false;
    png_set_read_fn(fPng, this, Read);
    png_set_chunk_malloc_max(fPng, kMaxChunkMemory);
    // A damaged chunk is a damaged file, whatever is in it.
    png_set_crc_action(fPng, PNG_CRC_ERROR_QUIT, PNG_CRC_ERROR_QUIT);
    // Nobody reads what is not known here, nor texts, which may be compressed a thousandfold. The
    // orientation is looked up without libpng.
    static constexpr png_byte kSkipped[] =
        "tEXt\0zTXt\0iTXt\0sPLT\0hIST\0tIME\0pCAL\0sCAL\0oFFs\0eXIf";
    png_set_keep_unknown_chunks(fPng, PNG_HANDLE_CHUNK_NEVER, nullptr, 0);
    png_set_keep_unknown_chunks(fPng, PNG_HANDLE_CHUNK_NEVER, kSkipped, sizeof(kSkipped) / 5);
    png_read_info(fPng, fInfo);
    png_get_IHDR(
        fPng, fInfo, &fWidth, &fHeight, &fDepth, &fColorType, &fInterlace, nullptr, nullptr);
    return true;
}

void PngDecoder::ReadOrientation() {
    // Before the pixels, or after them, where tools that add it put it. The lengths of the chunks
    // lead there; that they are sound is found out when the pixels are read.
    constexpr int kMaxChunks = 1'000'000;
    int64 offset = kSignatureSize;
    uint8 head[8];
    for (int i = 0; i < kMaxChunks; i++) {
        if (fSource.ReadAt(offset, head, sizeof(head)) != sizeof(head))
            return;
        const uint32 size = png_get_uint_32(head);
        if (size > PNG_UINT_31_MAX || memcmp(head + 4, "IEND", 4) == 0)
            return;
        if (memcmp(head + 4, "eXIf", 4) == 0) {
            // The first directory is all that is needed of it.
            uint8 begin[4096];
            const int64 got =
                fSource.ReadAt(offset + 8, begin, std::min<size_t>(size, sizeof(begin)));
            if (got > 0)
                fOrientation = OrientationFromExif(begin, size_t(got));
            return;
        }
        offset += 12 + int64(size);
    }
}

// An embedded profile goes before the statement that the colours are sRGB, and that before the
// numbers (PNG, section 4.3).
std::unique_ptr<ColorTransform> PngDecoder::MakeColors() const {
    const PixelKind kind = fDepth == 16 ? PixelKind::kBgra16 : PixelKind::kBgra8;
    const bool gray = (fColorType & PNG_COLOR_MASK_COLOR) == 0;
    if (png_get_valid(fPng, fInfo, PNG_INFO_iCCP) != 0) {
        png_charp name = nullptr;
        int compression = 0;
        png_bytep profile = nullptr;
        png_uint_32 length = 0;
        if (png_get_iCCP(fPng, fInfo, &name, &compression, &profile, &length) != 0)
            return ColorTransform::FromProfile(
                profile, length, gray ? PixelKind::kBgra8 : kind, gray);
    }
    double gamma = 0;
    if (png_get_valid(fPng, fInfo, PNG_INFO_sRGB) != 0 ||
        png_get_valid(fPng, fInfo, PNG_INFO_gAMA) == 0 || png_get_gAMA(fPng, fInfo, &gamma) == 0)
        return nullptr;
    Primaries from;
    const bool hasPrimaries = !gray && png_get_valid(fPng, fInfo, PNG_INFO_cHRM) != 0 &&
        png_get_cHRM(fPng, fInfo, &from.whiteX, &from.whiteY, &from.redX, &from.redY, &from.greenX,
            &from.greenY, &from.blueX, &from.blueY) != 0;
    return ColorTransform::FromGamma(gamma, hasPrimaries ? &from : nullptr, kind);
}

status_t PngDecoder::Decode(uint8* bits, size_t bytesPerRow, Problem* problem) {
    fProblem = problem;
    fColors = MakeColors();
    const bool gray = (fColorType & PNG_COLOR_MASK_COLOR) == 0;
    const bool hasProfile = png_get_valid(fPng, fInfo, PNG_INFO_iCCP) != 0;
    if (!GuardedSetUp(fDepth == 16 && fColors && !(gray && hasProfile)))
        return problem->status;
    const bool inPlace = !IsSixteenBits() && (fPasses == 1 || fOrientation < 5);
    if (!inPlace) {
        const uint64 size = uint64(fStoredRowSize) * (fPasses > 1 ? fHeight : 1);
        if (size > fMemoryBudget)
            return Fail(problem, B_NO_MEMORY, "not enough memory for an interlaced picture");
        fStored.resize(size);
    }
    UprightRows rows(bits, bytesPerRow, fWidth, fHeight, fOrientation);
    return GuardedDecode(rows) ? B_OK : problem->status;
}

// Whatever the file holds comes out as B, G, R, A of 8 bits, or 16.
bool PngDecoder::GuardedSetUp(bool sixteenBits) {
    if (setjmp(png_jmpbuf(fPng)) != 0)
        return false;
    png_set_expand(fPng);
    if (sixteenBits)
        png_set_swap(fPng);
    else
        png_set_scale_16(fPng);
    png_set_gray_to_rgb(fPng);
    png_set_add_alpha(fPng, 0xffff, PNG_FILLER_AFTER);
    png_set_bgr(fPng);
    fPasses = png_set_interlace_handling(fPng);
    png_read_update_info(fPng, fInfo);
    fStoredRowSize = png_get_rowbytes(fPng, fInfo);
    if (fStoredRowSize != size_t(fWidth) * (sixteenBits ? 8 : 4))
        png_error(fPng, "the rows have an unexpected size");
    return true;
}

bool PngDecoder::GuardedDecode(UprightRows& rows) {
    if (setjmp(png_jmpbuf(fPng)) != 0)
        return false;
    const bool all = fStored.size() > fStoredRowSize;
    for (int pass = 0; pass < fPasses; pass++) {
        const bool last = pass == fPasses - 1;
        for (uint32 y = 0; y < fHeight; y++) {
            uint8* row = fStored.empty() ? rows.Row(y)
                                         : fStored.data() + (all ? size_t(y) * fStoredRowSize : 0);
            png_read_row(fPng, row, nullptr);
            if (!last)
                continue;
            uint8* out = rows.Row(y);
            if (fColors)
                fColors->Convert(row, out, fWidth);
            else if (out != row)
                memcpy(out, row, fStoredRowSize);
            rows.Done(y);
        }
    }
    png_read_end(fPng, nullptr);
    return true;
}

class PngTranslator final : public Translator {
public:
    const char* Name() const override { return "PNG images"; }
    const char* Info() const override { return "Portable Network Graphics, by libpng"; }
    int32 Version() const override { return 100; }

    status_t Identify(Source& source, Format* format) override {
        uint8 head[kSignatureSize];
        if (source.ReadAt(0, head, sizeof(head)) != sizeof(head) ||
            png_sig_cmp(head, 0, sizeof(head)) != 0)
            return B_NO_TRANSLATOR;
        *format = {'PNG ', "PNG image", "image/png", 1.0f, 0.9f};
        return B_OK;
    }

    std::unique_ptr<Decoder> Open(Source& source, uint64 memoryBudget, Problem* problem) override {
        auto decoder = std::make_unique<PngDecoder>(source);
        if (decoder->ReadHeader(memoryBudget, problem) != B_OK)
            return nullptr;
        return decoder;
    }
};

}  // namespace

extern "C" [[gnu::visibility("default")]] Translator* lorivane_translator(uint32 version) {
    static PngTranslator translator;
    return version == kInterfaceVersion ? &translator : nullptr;
}
