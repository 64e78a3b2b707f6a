#include "kits/translation/AddOnTranslator.h"

#include "kits/interface/BitmapAccess.h"
#include "kits/translation/ImageLimits.h"
#include <algorithm>
#include <app/Message.h>
#include <cstdio>
#include <cstring>
#include <interface/Bitmap.h>
#include <new>
#include <support/DataIO.h>
#include <translation/BitmapStream.h>

namespace BPrivate {

namespace {

// The file as the add-on reads it.
class IOSource final : public AddOn::Source {
public:
    explicit IOSource(BPositionIO& io) : fIO(io) {}

    int64 ReadAt(int64 offset, void* buffer, size_t size) override {
        size_t done = 0;
        while (done < size) {
            const ssize_t step =
                fIO.ReadAt(offset + int64(done), static_cast<char*>(buffer) + done, size - done);
            if (step < 0)
                return step;
            if (step == 0)
                break;
            done += size_t(step);
        }
        return int64(done);
    }

    int64 Size() override {
        off_t size = 0;
        const status_t status = fIO.GetSize(&size);
        return status == B_OK ? size : status;
    }

private:
    BPositionIO& fIO;
};

template <size_t N>
void CopyString(char (&to)[N], const char* from) {
    snprintf(to, N, "%s", from);
}

void Explain(const AddOn::Problem& problem, BMessage* extension) {
    if (extension == nullptr)
        return;
    (void)extension->AddString(B_TRANSLATOR_EXT_PROBLEM, problem.text);
    (void)extension->AddBool(B_TRANSLATOR_EXT_INCOMPLETE, problem.incomplete);
}

}  // namespace

status_t DecodeBitmap(AddOn::Translator& translator, AddOn::Source& source,
    std::unique_ptr<BBitmap>* bitmap, AddOn::Problem* problem) {
    const std::unique_ptr<AddOn::Decoder> decoder =
        translator.Open(source, AvailableImageMemory(), problem);
    if (!decoder)
        return problem->status != B_OK ? problem->status : B_ERROR;
    const AddOn::Size size = decoder->PictureSize();
    std::unique_ptr<BBitmap> made;
    if (status_t status = MakeCheckedBitmap(size.width, size.height, &made); status != B_OK) {
        problem->status = status;
        snprintf(problem->text, sizeof(problem->text), "%u by %u pixels are too many", size.width,
            size.height);
        return status;
    }
    const PixelBuffer pixels = BitmapAccess::PixelsForWriting(*made);
    if (pixels.bits == nullptr)
        return B_NO_MEMORY;
    if (status_t status = decoder->Decode(pixels.bits, size_t(pixels.bytesPerRow), problem);
        status != B_OK)
        return status;
    *bitmap = std::move(made);
    return B_OK;
}

const char* AddOnTranslator::TranslatorName() const {
    const AddOn::Translator* translator = fModule.Load();
    return translator != nullptr ? translator->Name() : "";
}

const char* AddOnTranslator::TranslatorInfo() const {
    const AddOn::Translator* translator = fModule.Load();
    return translator != nullptr ? translator->Info() : "";
}

int32 AddOnTranslator::TranslatorVersion() const {
    const AddOn::Translator* translator = fModule.Load();
    return translator != nullptr ? translator->Version() : 0;
}

status_t AddOnTranslator::Identify(BPositionIO* source, const translation_format*, BMessage*,
    translator_info* info, uint32 outType) {
    if (outType != 0 && outType != B_TRANSLATOR_BITMAP)
        return B_NO_TRANSLATOR;
    IOSource file(*source);
    uint8 head[kSniffLength];
    const int64 length = file.ReadAt(0, head, sizeof(head));
    if (length < 0)
        return status_t(length);
    if (!fModule.MayBeItsOwn(head, size_t(length)))
        return B_NO_TRANSLATOR;
    AddOn::Translator* translator = fModule.Load();
    if (translator == nullptr)
        return B_NO_TRANSLATOR;
    AddOn::Format format{};
    if (status_t status = translator->Identify(file, &format); status != B_OK)
        return status;
    info->type = format.type;
    info->group = B_TRANSLATOR_BITMAP;
    info->quality = format.quality;
    info->capability = format.capability;
    CopyString(info->name, format.name);
    CopyString(info->MIME, format.mime);
    return B_OK;
}

status_t AddOnTranslator::Translate(BPositionIO* source, const translator_info*,
    BMessage* ioExtension, uint32 outType, BPositionIO* destination) {
    if (outType != 0 && outType != B_TRANSLATOR_BITMAP)
        return B_NO_TRANSLATOR;
    AddOn::Translator* translator = fModule.Load();
    if (translator == nullptr)
        return B_NO_TRANSLATOR;
    IOSource file(*source);
    AddOn::Problem problem;
    std::unique_ptr<BBitmap> bitmap;
    if (status_t status = DecodeBitmap(*translator, file, &bitmap, &problem); status != B_OK) {
        Explain(problem, ioExtension);
        return status;
    }
    if (auto* stream = dynamic_cast<BBitmapStream*>(destination)) {
        stream->Adopt(std::move(bitmap));
        return B_OK;
    }
    BBitmapStream stream(bitmap.release());
    std::vector<uint8> buffer(64 * 1024);
    for (off_t at = 0; at < stream.Size();) {
        const ssize_t bytes = stream.ReadAt(at, buffer.data(), buffer.size());
        if (bytes <= 0)
            return bytes < 0 ? status_t(bytes) : B_ERROR;
        if (status_t status = destination->WriteExactly(buffer.data(), size_t(bytes));
            status != B_OK)
            return status;
        at += bytes;
    }
    return B_OK;
}

}  // namespace BPrivate
