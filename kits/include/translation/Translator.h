#pragma once

#include <atomic>
#include <translation/TranslationDefs.h>

class BMessage;
class BPositionIO;

/// A translator: it knows a format by its contents and turns it into another, mostly an image file
/// into a bitmap. One object may be used by several threads at a time, so it keeps no state of a
/// translation. Objects are counted: they are made with one reference and deleted with the last.
class BTranslator {
public:
    BTranslator(const BTranslator&) = delete;
    BTranslator& operator=(const BTranslator&) = delete;

    virtual const char* TranslatorName() const = 0;
    virtual const char* TranslatorInfo() const = 0;
    virtual int32 TranslatorVersion() const = 0;

    /// Fills `*info` but for its `translator` if the source's beginning is of a format it knows and
    /// can turn into `outType` (0: any). Reads little and no pixels. B_NO_TRANSLATOR if it is not.
    virtual status_t Identify(BPositionIO* source, const translation_format* format,
        BMessage* ioExtension, translator_info* info, uint32 outType) = 0;
    /// Turns the source, identified as `info`, into `outType`, written to `destination`.
    virtual status_t Translate(BPositionIO* source, const translator_info* info,
        BMessage* ioExtension, uint32 outType, BPositionIO* destination) = 0;

    BTranslator* Acquire();
    /// Drops a reference; returns null when it was the last and the object is gone.
    BTranslator* Release();

protected:
    BTranslator() = default;
    virtual ~BTranslator() = default;

private:
    std::atomic<int32> fReferences{1};
};
