#pragma once

#include <span>
#include <string_view>

namespace BPrivate {

/// A compiled catalogue that the build has put into the program.
struct EmbeddedCatalogue {
    const char* language;
    std::string_view file;
};

/// All of them, in the order of their languages' names.
std::span<const EmbeddedCatalogue> embedded_catalogues();

}  // namespace BPrivate
