#pragma once

#include <interface/Rect.h>

namespace BPrivate {

/// The nearest frame a window can have: of whole positions, its size not negative nor beyond what
/// any screen can show.
BRect WholeFrame(BRect frame);

}  // namespace BPrivate
