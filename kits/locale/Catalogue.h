#pragma once

#include <string>
#include <unordered_map>

namespace BPrivate {

/// The texts of one language, by key.
using Catalogue = std::unordered_map<std::string, std::string>;

/// Makes this the catalogue that `BLocale::GetString()` looks texts up in. From any thread, at
/// any time; texts that were handed out before stay valid.
void set_catalogue(const Catalogue& catalogue);

}  // namespace BPrivate
