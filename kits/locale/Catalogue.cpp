#include "kits/locale/Catalogue.h"

#include <string_view>

#include "kits/locale/EmbeddedCatalogues.h"

namespace BPrivate {

namespace {

Catalogue EmbeddedTexts(std::string_view language) {
    Catalogue catalogue;
    for (const EmbeddedCatalogue& embedded : embedded_catalogues()) {
        if (embedded.language != language)
            continue;
        for (const auto& [key, text] : embedded.texts)
            catalogue.emplace(key, text);
    }
    return catalogue;
}

}  // namespace

const std::vector<std::string>& known_languages() {
    static const auto& languages = *new std::vector<std::string>([] {
        std::vector<std::string> names;
        for (const EmbeddedCatalogue& embedded : embedded_catalogues())
            names.emplace_back(embedded.language);
        return names;
    }());
    return languages;
}

Catalogue catalogue_of(const std::string& language) {
    Catalogue catalogue = EmbeddedTexts(language);
    catalogue.merge(EmbeddedTexts("en"));
    return catalogue;
}

}  // namespace BPrivate
