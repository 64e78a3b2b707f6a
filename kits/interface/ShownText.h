#pragma once

#include <string>
#include <string_view>
#include <support/SupportDefs.h>
#include <vector>

namespace BPrivate {

/// A text as it is drawn: valid UTF-8 without control characters. A tab is four blanks; what is no
/// UTF-8, and the character that stands for bytes without a meaning, become U+FFFD.
///
/// `sources`, if it is given, gets the byte of `text` that each byte of the result comes from, and
/// the length of `text` at its end.
std::string ShownText(std::string_view text, std::vector<int32>* sources = nullptr);

}  // namespace BPrivate
