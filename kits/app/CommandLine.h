#pragma once

#include <string>
#include <string_view>
#include <support/SupportDefs.h>
#include <vector>

namespace BPrivate {

/// The words the process was started with; the first is the program's.
std::vector<std::string> CommandLine();
/// Takes the place of the process's own.
void SetCommandLine(std::vector<std::string> words);

/// The last part of the first word, as Printable() makes it.
std::string ProgramName(const std::vector<std::string>& words);

/// The text as one line that a terminal shows and does not obey: control characters, and bytes
/// that are not UTF-8, are written as \xNN.
std::string Printable(std::string_view text);

}  // namespace BPrivate
