#pragma once

namespace BPrivate {

/// Gives the entries of menus to screen readers: a command that opens a menu can also be pressed.
/// More calls than one do nothing.
void TellMenusToScreenReaders();

}  // namespace BPrivate
