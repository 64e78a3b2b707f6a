#include "framework/FileName.h"

#include <algorithm>

namespace {

/// Positions are compared signed, with -1 for "none", so that a path with neither character or
/// with only a dot needs no case of its own.
using Position = std::string::difference_type;

Position last_position(const std::string& path, char character) {
    const std::string::size_type at = path.rfind(character);
    return at == std::string::npos ? -1 : static_cast<Position>(at);
}

bool leaf_has_dot(const std::string& path) {
    return last_position(path, '.') > last_position(path, '/');
}

}  // namespace

std::string extract_file_name(const std::string& path) {
    return path.substr(last_position(path, '/') + 1);
}

std::string extract_file_ext(const std::string& path) {
    const Position dot = last_position(path, '.');
    return dot < 0 ? std::string() : path.substr(dot + 1);
}

std::string extract_file_body(const std::string& path) {
    std::string leaf = extract_file_name(path);
    if (leaf_has_dot(path))
        leaf.erase(leaf.rfind('.'));
    return leaf;
}

std::string extract_file_folder_path_kernel(const std::string& path, int32 extra) {
    const Position slash = last_position(path, '/');
    if (slash < 0)
        return {};
    return path.substr(0, std::max<Position>(slash + extra, 0));
}

std::string add_ext(const std::string& path, const std::string& ext) {
    return leaf_has_dot(path) ? path : path + "." + ext;
}

std::string reext(const std::string& path, const std::string& ext) {
    if (!leaf_has_dot(path))
        return path + "." + ext;
    return path.substr(0, path.rfind('.') + 1) + ext;
}

std::string trim(const std::string& text) {
    constexpr char kBlanks[] = " \t";
    const std::string::size_type first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}
