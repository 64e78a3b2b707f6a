#pragma once

namespace BPrivate {

/// From now on assistive programs are told what a window, its content and the views in that are.
/// Main thread only.
void TellWindowsToScreenReaders();

}  // namespace BPrivate
