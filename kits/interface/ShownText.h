#pragma once

#include <string>
#include <string_view>
#include <support/SupportDefs.h>
#include <vector>

namespace BPrivate {

/// A byte order mark, wherever it stands: nothing is seen of it. Layouts drop it silently, and would
/// then count fewer characters than the text has.
constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";  // U+FEFF

/// A text as it is drawn: valid UTF-8 without control characters and byte order marks. A tab is four blanks; what is no
/// UTF-8, and the character that stands for bytes without a meaning, become U+FFFD.
///
/// `sources`, if it is given, gets the byte of `text` that each byte of the result comes from, and
/// the length of `text` at its end.
std::string ShownText(std::string_view text, std::vector<int32>* sources = nullptr);

}  // namespace BPrivate
