#pragma once

#include "kits/translation/AddOnModule.h"
#include <memory>
#include <translation/Translator.h>

class BBitmap;

namespace BPrivate {

/// An add-on as a translator of a roster. The only place that calls add-ons: it checks the size of
/// the picture and makes the memory before a pixel is decoded.
class AddOnTranslator : public BTranslator {
public:
    explicit AddOnTranslator(AddOnModule& module) : fModule(module) {}

    const AddOnModule& Module() const { return fModule; }

    const char* TranslatorName() const override;
    const char* TranslatorInfo() const override;
    int32 TranslatorVersion() const override;
    status_t Identify(BPositionIO* source, const translation_format* format, BMessage* ioExtension,
        translator_info* info, uint32 outType) override;
    status_t Translate(BPositionIO* source, const translator_info* info, BMessage* ioExtension,
        uint32 outType, BPositionIO* destination) override;

private:
    ~AddOnTranslator() override = default;

    AddOnModule& fModule;
};

/// Decodes the source into a new bitmap. B_BAD_DATA and the like are described in `problem`.
[[nodiscard]] status_t DecodeBitmap(AddOn::Translator& translator, AddOn::Source& source,
    std::unique_ptr<BBitmap>* bitmap, AddOn::Problem* problem);

}  // namespace BPrivate
