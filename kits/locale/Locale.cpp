#include <locale/Locale.h>

#include <memory>
#include <mutex>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "kits/locale/Catalogue.h"

namespace {

using Texts = std::unordered_map<std::string, const char*>;

struct Current {
    Current() { Set(BPrivate::catalogue_of("en")); }

    /// Under the lock.
    void Set(const BPrivate::Catalogue& catalogue) {
        auto all = std::make_shared<Texts>();
        for (const auto& [key, text] : catalogue)
            all->emplace(key, kept.insert(text).first->c_str());
        texts = std::move(all);
    }

    std::mutex lock;
    std::shared_ptr<const Texts> texts;
    // Everything that was ever handed out. Kept for good, since a caller on another thread may
    // be copying a text of the catalogue that is being replaced; changing to and fro between
    // languages finds its texts here again.
    std::unordered_set<std::string> kept;
};

Current& the_current() {
    static Current& current = *new Current;
    return current;
}

BLocale gLocale;

}  // namespace

BLocale* be_locale = &gLocale;

const char* BLocale::GetString(const char* key) const {
    if (key == nullptr)
        return "";
    std::shared_ptr<const Texts> texts;
    {
        const std::lock_guard lock(the_current().lock);
        texts = the_current().texts;
    }
    const auto found = texts->find(key);
    return found != texts->end() ? found->second : key;
}

void BPrivate::set_catalogue(const Catalogue& catalogue) {
    Current& current = the_current();
    const std::lock_guard lock(current.lock);
    current.Set(catalogue);
}
