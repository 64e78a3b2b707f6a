#pragma once

#include <string>
#include <vector>

/// Sorts paths of one folder ascending, byte by byte as unsigned bytes; a name that begins
/// another one comes first. The order is that of std::string's less-than.
///
/// @param folderLength how many bytes all of them have in common at least: the folder's path
///     with its separator. They are not compared.
void sort_names(std::vector<std::string>& paths, size_t folderLength);
