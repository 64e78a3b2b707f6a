#pragma once

#include "kits/translation/AddOn.h"
#include <mutex>
#include <string>
#include <translation/TranslationDefs.h>
#include <vector>

namespace BPrivate {

/// Whether the beginning of a file could be of an add-on's formats. `head` are the first bytes, up
/// to kSniffLength.
using SniffFunction = bool (*)(const uint8* head, size_t length);
constexpr size_t kSniffLength = 512;

/// A translator add-on on the disk, the same object for all rosters of the process; never deleted.
/// It is loaded by the first file whose beginning might be its own, and stays loaded. Any thread
/// may use it.
class AddOnModule {
public:
    /// The add-ons of a folder in the order they are asked: those of the table first, as they stand
    /// there, then others by name.
    static std::vector<AddOnModule*> In(const std::string& folder);

    AddOnModule(std::string path, SniffFunction sniff, translator_id id)
        : fPath(std::move(path)), fSniff(sniff), fId(id) {}

    translator_id Id() const { return fId; }
    bool MayBeItsOwn(const uint8* head, size_t length) const { return fSniff(head, length); }
    /// Loads the module if it is not. Null if it cannot be loaded, which is not tried again.
    AddOn::Translator* Load();

private:
    const std::string fPath;
    const SniffFunction fSniff;
    const translator_id fId;
    std::once_flag fLoaded;
    AddOn::Translator* fTranslator = nullptr;
};

/// A number for a translator, used once in the process.
translator_id NextTranslatorId();

}  // namespace BPrivate
