#pragma once

#include <string>

namespace BPrivate {

/// The path of something that comes with the running program, "add-ons/..." as the build lays it
/// out: looked for in the executable's folder, above that for the programs in a folder below it,
/// and in the places of an installed system. Empty when it is in none.
std::string FindOfProgram(const std::string& name);

}  // namespace BPrivate
