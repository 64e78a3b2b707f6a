#include "kits/translation/AddOnModule.h"
#include "kits/translation/Sniff.h"
#include <algorithm>
#include <atomic>
#include <dlfcn.h>
#include <map>
#include <memory>
#include <storage/Directory.h>
#include <storage/Entry.h>
#include <string_view>

namespace BPrivate {

translator_id NextTranslatorId() {
    static std::atomic<translator_id> last{0};
    return ++last;
}

static bool MayBeAnything(const uint8*, size_t length) {
    return length > 0;
}

// The place in the table, or behind it.
static size_t Rank(const std::string& name) {
    return size_t(std::find_if(kCodecs, kCodecs + kCodecCount, [&](const Codec& codec) {
        return name == codec.fileName;
    }) - kCodecs);
}

std::vector<AddOnModule*> AddOnModule::In(const std::string& folder) {
    std::vector<std::string> names;
    BDirectory directory(folder.c_str());
    for (BEntry entry; directory.GetNextEntry(&entry) == B_OK;) {
        if (std::string_view(entry.Name()).ends_with(".so"))
            names.push_back(entry.Name());
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return std::pair(Rank(a), std::string_view(a)) < std::pair(Rank(b), std::string_view(b));
    });

    static std::mutex mutex;
    static auto& modules = *new std::map<std::string, std::unique_ptr<AddOnModule>>;
    const std::lock_guard lock(mutex);
    std::vector<AddOnModule*> found;
    for (const std::string& name : names) {
        const std::string path = folder + "/" + name;
        std::unique_ptr<AddOnModule>& module = modules[path];
        if (!module) {
            const size_t rank = Rank(name);
            module = std::make_unique<AddOnModule>(
                path, rank < kCodecCount ? kCodecs[rank].sniff : MayBeAnything, NextTranslatorId());
        }
        found.push_back(module.get());
    }
    return found;
}

AddOn::Translator* AddOnModule::Load() {
    std::call_once(fLoaded, [this] {
        void* module = dlopen(fPath.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (module == nullptr)
            return;
        const auto entry = reinterpret_cast<AddOn::EntryPoint>(dlsym(module, AddOn::kEntryPoint));
        if (entry != nullptr)
            fTranslator = entry(AddOn::kInterfaceVersion);
    });
    return fTranslator;
}

}  // namespace BPrivate
