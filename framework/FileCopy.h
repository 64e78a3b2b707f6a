#pragma once

#include <support/SupportDefs.h>

/// Copies a file's data and attributes. An existing destination is replaced; a destination that
/// is a folder receives a copy under the source's leaf name. An attribute that cannot be read or
/// written is skipped.
///
/// @return `B_OK`; `B_NAME_TOO_LONG` when a path does not fit into 511 bytes; `B_BAD_VALUE` when
///     a path is null or empty, or source and destination are the same file, which is left as it
///     is; else the error of the file that could not be opened, read or written. A copy that
///     fails leaves an existing destination as it was, unless it is the source that could not be
///     read to its end: then the destination has what could be read.
status_t copy_file(const char* source, const char* destination);
