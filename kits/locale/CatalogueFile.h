#pragma once

#include <optional>
#include <string_view>

#include "kits/locale/Catalogue.h"

namespace BPrivate {

/// Reads a compiled catalogue (.qm, with its source texts, as lrelease writes it). Nothing when it
/// is broken.
std::optional<Catalogue> read_catalogue(std::string_view file);

}  // namespace BPrivate
