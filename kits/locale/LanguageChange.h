#pragma once

#include <support/SupportDefs.h>

#include <string>

namespace BPrivate {

/// What every window is sent when the language has changed.
constexpr uint32 kLanguageChanged = '_BLC';

/// Exchanges the catalogue, then tells every window. Waits for none of them.
void change_language(const std::string& language);

}  // namespace BPrivate
