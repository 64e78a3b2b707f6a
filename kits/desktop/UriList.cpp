#include "kits/desktop/UriList.h"

#include <algorithm>

#include "kits/storage/FileUrl.h"

namespace BPrivate {

std::vector<std::string> PathsOfUriList(std::string_view list) {
    std::vector<std::string> paths;
    while (!list.empty()) {
        const size_t end = std::min(list.find_first_of("\r\n"), list.size());
        const std::string_view line = list.substr(0, end);
        list.remove_prefix(std::min(end + 1, list.size()));
        // A line that starts with # is a comment; no URL does. Some senders end with a NUL.
        if (auto path = PathOfFileUrl(line.substr(0, line.find('\0'))))
            paths.push_back(std::move(*path));
    }
    return paths;
}

}  // namespace BPrivate
