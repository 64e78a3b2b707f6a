#pragma once

#include <chrono>
#include <string>
#include <support/SupportDefs.h>

namespace BPrivate {

/// Opens an existing document with the application the desktop has for its type. Returns when that
/// was started, or after `patience`, which ends the attempt. Any thread.
///
/// B_LAUNCH_FAILED_NO_PREFERRED_APP when nothing opens its type, B_ENTRY_NOT_FOUND when it has just
/// gone, B_LAUNCH_FAILED for everything else.
[[nodiscard]] status_t OpenDocument(const std::string& path, std::chrono::milliseconds patience);

}  // namespace BPrivate
