#include "viewer/NameSort.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace {

// The first bytes that may differ as one number that orders as they do. Most comparisons of a
// large folder end here, without a look at the names.
struct Key {
    std::uint64_t first;
    std::string* path;
};

size_t common_length(const std::vector<std::string>& paths, size_t known) {
    const std::string& model = paths.front();
    size_t length = model.size();
    for (const std::string& path : paths) {
        size_t end = std::min(length, path.size());
        length = std::min(known, end);
        while (length < end && path[length] == model[length])
            ++length;
    }
    return length;
}

std::uint64_t first_bytes(std::string_view text) {
    std::uint64_t number = 0;
    for (size_t i = 0; i < sizeof(number); ++i)
        number = number << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0);
    return number;
}

}  // namespace

void sort_names(std::vector<std::string>& paths, size_t folderLength) {
    if (paths.size() < 2)
        return;
    size_t common = common_length(paths, folderLength);
    std::vector<Key> keys;
    keys.reserve(paths.size());
    for (std::string& path : paths)
        keys.push_back({first_bytes(std::string_view(path).substr(common)), &path});
    std::sort(keys.begin(), keys.end(), [common](const Key& a, const Key& b) {
        if (a.first != b.first)
            return a.first < b.first;
        return std::string_view(*a.path).substr(common) < std::string_view(*b.path).substr(common);
    });
    std::vector<std::string> sorted;
    sorted.reserve(paths.size());
    for (const Key& key : keys)
        sorted.push_back(std::move(*key.path));
    paths.swap(sorted);
}
