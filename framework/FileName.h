#pragma once

// Taking file paths apart and putting them together. Paths are byte strings with "/" as their
// only separator. None of these functions touches the disk.

#include <string>
#include <support/SupportDefs.h>

/// The text after the last "/"; the whole path if there is none.
std::string extract_file_name(const std::string& path);

/// The text after the last "." of the whole path; empty if there is none. A path whose leaf has
/// no extension but whose folder has one yields the folder's: callers pass paths of files that
/// carry one.
std::string extract_file_ext(const std::string& path);

/// The leaf without its extension.
std::string extract_file_body(const std::string& path);

/// The text before the last "/" and `extra` characters more (1: with the separator); empty if
/// there is no "/".
std::string extract_file_folder_path_kernel(const std::string& path, int32 extra);

/// The path with "." and `ext` appended, unless its leaf has a "." already.
std::string add_ext(const std::string& path, const std::string& ext);

/// The path with the extension of its leaf replaced by `ext`, or appended where there is none.
std::string reext(const std::string& path, const std::string& ext);

/// The text without leading and trailing spaces and tabs.
std::string trim(const std::string& text);
