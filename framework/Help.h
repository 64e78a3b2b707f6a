#pragma once

#include <support/SupportDefs.h>

/// Opens a document with the application the desktop has for its type. Waits until that has been
/// found and started, not until it shows the document.
/// @return the launch's own error: `B_ENTRY_NOT_FOUND` when there is no such document,
///     `B_LAUNCH_FAILED_NO_PREFERRED_APP` when nothing opens its type
status_t show_help(const char* path);
