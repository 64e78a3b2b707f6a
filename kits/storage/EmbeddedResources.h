#pragma once

#include <span>
#include <storage/Resources.h>

namespace BPrivate {

/// What the build has put into this program. A program that has resources defines this itself, in
/// a file that add_resources() of the build makes; the library's own definition is that of all
/// others, and has none. The linker takes the program's, since its object files come first.
std::span<const EmbeddedResource> embedded_resources();

}  // namespace BPrivate
