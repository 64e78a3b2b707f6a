#pragma once

#include <span>

namespace BPrivate {

/// A text of a catalogue, in UTF-8.
struct CatalogueEntry {
    const char* key;
    const char* text;
};

/// A catalogue that the build has put into the program.
struct EmbeddedCatalogue {
    const char* language;
    std::span<const CatalogueEntry> texts;
};

/// All of them, in the order of their languages' names.
std::span<const EmbeddedCatalogue> embedded_catalogues();

}  // namespace BPrivate
