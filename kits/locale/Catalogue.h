#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace BPrivate {

/// The texts of one language, by key.
using Catalogue = std::unordered_map<std::string, std::string>;

/// The languages that have a catalogue, English among them.
const std::vector<std::string>& known_languages();

/// All texts in a language: its catalogue, and what that lacks from the English one. Of an unknown
/// language, the English ones.
Catalogue catalogue_of(const std::string& language);

/// Makes this the catalogue that `BLocale::GetString()` looks texts up in; before the first call
/// it is the English one. From any thread, at any time; texts that were handed out before stay
/// valid.
void set_catalogue(const Catalogue& catalogue);

}  // namespace BPrivate
