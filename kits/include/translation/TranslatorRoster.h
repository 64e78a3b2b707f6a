#pragma once

#include <memory>
#include <translation/TranslationDefs.h>
#include <translation/Translator.h>
#include <vector>

/// Finds the translator for a source.
///
/// A roster is one thread's own: each thread makes its own and adds the translators it wants, which
/// costs little, since add-ons are loaded once in the process and not before the first source that
/// might be theirs is met. Add-ons stay loaded.
class BTranslatorRoster {
public:
    BTranslatorRoster();
    BTranslatorRoster(const BTranslatorRoster&) = delete;
    BTranslatorRoster& operator=(const BTranslatorRoster&) = delete;
    virtual ~BTranslatorRoster();

    /// The roster of the process, with the default translators; owned by the kit. It alone may be
    /// used from any thread.
    static BTranslatorRoster* Default();

    /// Adds the add-ons of the folders `path` (separated by ':'), or, if it is null, those that
    /// belong to the program: `add-ons/translators` beside the executable, else above its folder,
    /// else `lib/lorivane/add-ons/translators` above its folder. Translators that are there already
    /// are not added again. B_ENTRY_NOT_FOUND if there are none.
    status_t AddTranslators(const char* path = nullptr);
    /// Adds a translator of the caller's, asked before those added so far. Takes a reference.
    status_t AddTranslator(BTranslator* translator);

    /// Asks the translators in turn what the source is, by its contents alone. `*outInfo` is
    /// cleared if nobody knows it: B_NO_TRANSLATOR. `hintType` and `hintMIME` limit the answer to
    /// that format, `wantType` to translators that make it; 0 and null do not. Leaves the source at
    /// its beginning.
    virtual status_t Identify(BPositionIO* source, BMessage* ioExtension, translator_info* outInfo,
        uint32 hintType = 0, const char* hintMIME = nullptr, uint32 wantType = 0);

    /// Turns the source into `wantOutType` (B_TRANSLATOR_BITMAP, or 0 for that). `info` is what
    /// Identify said; null has it identified first. A BBitmapStream as destination gets its bitmap
    /// without a copy. On an error nothing is left in it: B_NO_TRANSLATOR, B_BAD_DATA for a broken
    /// or truncated file, B_NO_MEMORY for one whose picture is too large, or the source's own
    /// error.
    virtual status_t Translate(BPositionIO* source, const translator_info* info,
        BMessage* ioExtension, BPositionIO* destination, uint32 wantOutType, uint32 hintType = 0,
        const char* hintMIME = nullptr);

    /// A new array of the translators' numbers, in the order they are asked; the caller deletes it
    /// with delete[].
    status_t GetAllTranslators(translator_id** outList, int32* outCount);
    /// The strings belong to the roster. Any pointer may be null. Loads the add-on.
    status_t GetTranslatorInfo(
        translator_id translator, const char** outName, const char** outInfo, int32* outVersion);

private:
    class Implementation;
    std::unique_ptr<Implementation> fImplementation;
};
