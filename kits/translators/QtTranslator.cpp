#include "kits/translators/Completeness.h"
#include "kits/translators/Problem.h"
#include "kits/translators/QtChatter.h"
#include "kits/translators/QtFormats.h"
#include "kits/translators/QtSvg.h"
#include <QBuffer>
#include <QColorSpace>
#include <QImage>
#include <QImageReader>
#include <algorithm>
#include <cstring>
#include <mutex>

using namespace BPrivate::AddOn;

namespace {

class QtDecoder final : public Decoder {
public:
    explicit QtDecoder(Source& source) : fSource(source), fDevice(source) {}

    [[nodiscard]] status_t ReadHeader(uint64 memoryBudget, Problem* problem);

    Size PictureSize() const override { return {uint32(fSize.width()), uint32(fSize.height())}; }
    status_t Decode(uint8* bits, size_t bytesPerRow, Problem* problem) override;

private:
    [[nodiscard]] status_t ReadImage(Problem* problem);
    [[nodiscard]] status_t MakeSrgb(Problem* problem);

    Source& fSource;
    SourceDevice fDevice;
    QByteArray fText;
    QBuffer fTextDevice;
    QByteArray fFormat;
    QImageReader fReader;
    QSize fSize;
    QImage fImage;
};

status_t QtDecoder::ReadHeader(uint64 memoryBudget, Problem* problem) {
    fFormat = FindFormat(fSource);
    QuietLibraryOf(fFormat);
    if (fFormat.isEmpty())
        return Fail(problem, B_NO_TRANSLATOR, "the format is not known");
    if (!IsComplete(std::string_view(fFormat.data(), size_t(fFormat.size())), fSource))
        return FailIncomplete(problem);
    if (fFormat.startsWith("svg")) {
        if (status_t status = ReadSvg(fSource, memoryBudget, &fText, problem); status != B_OK)
            return status;
        fFormat = "svg";
        fTextDevice.setBuffer(&fText);
        fTextDevice.open(QIODevice::ReadOnly);
        fReader.setDevice(&fTextDevice);
    } else {
        fReader.setDevice(&fDevice);
    }
    // The format is decided; an extension, of which there is none, is not asked.
    fReader.setAutoDetectImageFormat(false);
    fReader.setFormat(fFormat);
    fReader.setAutoTransform(true);

    fSize = fReader.size();
    if (!fSize.isValid()) {
        // Only reading tells, under Qt's own limit.
        if (status_t status = ReadImage(problem); status != B_OK)
            return status;
        fSize = fImage.size();
    } else {
        // The reader's picture, and the one it is copied to.
        constexpr uint64 kBytesPerPixel = 8;
        const uint64 pixels = uint64(fSize.width()) * uint64(fSize.height());
        if (pixels > memoryBudget / kBytesPerPixel)
            return Fail(problem, B_NO_MEMORY, "%d by %d pixels are too many", fSize.width(),
                fSize.height());
        if (fReader.transformation().testFlag(QImageIOHandler::TransformationRotate90))
            fSize.transpose();
    }
    if (fSize.isEmpty())
        return Fail(problem, B_BAD_DATA, "the picture is empty");
    return B_OK;
}

status_t QtDecoder::ReadImage(Problem* problem) {
    if (fReader.read(&fImage) && !fImage.isNull())
        return B_OK;
    return Fail(problem, B_BAD_DATA, "%s", fReader.errorString().toUtf8().constData());
}

status_t QtDecoder::MakeSrgb(Problem* problem) {
    const QColorSpace colors = fImage.colorSpace();
    const QColorSpace srgb(QColorSpace::SRgb);
    if (colors.isValid() && colors != srgb) {
        // Colours of an index are converted as those of pixels.
        if (fImage.format() == QImage::Format_Indexed8)
            fImage.convertTo(QImage::Format_ARGB32);
        fImage.convertToColorSpace(srgb);
    }
    // In memory B, G, R, A.
    fImage.convertTo(QImage::Format_ARGB32);
    if (fImage.isNull())
        return Fail(problem, B_NO_MEMORY, "not enough memory");
    return B_OK;
}

status_t QtDecoder::Decode(uint8* bits, size_t bytesPerRow, Problem* problem) {
    const QuietCodecs quiet;
    if (fImage.isNull()) {
        if (status_t status = ReadImage(problem); status != B_OK)
            return status;
    }
    if (fImage.size() != fSize)
        return Fail(problem, B_BAD_DATA, "the picture is not as large as the file says");
    if (status_t status = MakeSrgb(problem); status != B_OK)
        return status;
    const size_t rowSize = std::min(bytesPerRow, size_t(fSize.width()) * 4);
    for (int y = 0; y < fSize.height(); y++)
        memcpy(bits + size_t(y) * bytesPerRow, fImage.constScanLine(y), rowSize);
    return B_OK;
}

class QtTranslator final : public Translator {
public:
    const char* Name() const override { return "Images known to Qt"; }
    const char* Info() const override { return "Every format Qt has a plug-in for"; }
    int32 Version() const override { return 100; }

    status_t Identify(Source& source, Format* format) override {
        const QuietCodecs quiet;
        const QByteArray name = FindFormat(source);
        if (name.isEmpty())
            return B_NO_TRANSLATOR;
        *format = DescribeFormat(name);
        return B_OK;
    }

    std::unique_ptr<Decoder> Open(Source& source, uint64 memoryBudget, Problem* problem) override {
        // Sizes are checked before a pixel is decoded. Where Qt cannot tell the size, its own limit
        // stands in, which is one for the whole process.
        static std::once_flag once;
        std::call_once(once, [&] {
            constexpr uint64 kMegabyte = 1024 * 1024;
            QImageReader::setAllocationLimit(
                int(std::clamp<uint64>(memoryBudget / 2 / kMegabyte, 64, 4096)));
        });
        const QuietCodecs quiet;
        auto decoder = std::make_unique<QtDecoder>(source);
        if (decoder->ReadHeader(memoryBudget, problem) != B_OK)
            return nullptr;
        return decoder;
    }
};

}  // namespace

extern "C" [[gnu::visibility("default")]] Translator* lorivane_translator(uint32 version) {
    static QtTranslator translator;
    return version == kInterfaceVersion ? &translator : nullptr;
}
