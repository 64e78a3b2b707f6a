#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace BPrivate {

/// Whether it begins as the URL of a file with a whole path does: "file:/".
bool IsFileUrl(std::string_view text);

/// The path a file: URL names on this computer. It is the bytes the URL encodes, in whatever
/// encoding the file's name is. Nothing where it is no such URL, names another computer, or is
/// broken.
std::optional<std::string> PathOfFileUrl(std::string_view url);

}  // namespace BPrivate
