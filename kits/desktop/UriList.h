#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BPrivate {

/// The paths of the local files in a list of the type text/uri-list, in order. A path is the bytes
/// the list encodes, in whatever encoding the file's name is. What is no URL of a local file, or
/// is broken, is left out.
std::vector<std::string> PathsOfUriList(std::string_view list);

}  // namespace BPrivate
