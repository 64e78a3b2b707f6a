#pragma once

// From a comment's file to its text.

#include <string>
#include <support/SupportDefs.h>

/// The whole file without the line ends at its end. Empty when it cannot be read, is no file, or
/// does not fit into memory.
std::string read_comment_file(const std::string& path);

/// The text in UTF-8, from the encoding that is given as the preferences keep it. Bytes that mean
/// nothing become B_SUBSTITUTE; a text that cannot be converted at all stays as it is.
std::string comment_to_utf8(const std::string& text, int32 encoding);
