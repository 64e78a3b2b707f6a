#pragma once

#include <interface/Font.h>

#include "kits/interface/Display.h"

namespace BPrivate {

/// The font as the display takes it.
FontSpec SpecOf(const BFont& font);

/// Text as it is drawn and measured: a tab is four blanks, other control characters are left out.
std::string Printable(const char* text, std::size_t length);

/// Takes those properties of `from` over that the mask of B_FONT_ALL's bits names.
void TakeFont(BFont& font, const BFont& from, uint32 mask);

}  // namespace BPrivate
