#pragma once

#include <QtCore/qnamespace.h>
#include <interface/Window.h>

namespace BPrivate {

/// Qt's kind of window for a look, a feel and the flags of BWindow.
Qt::WindowFlags WindowStyle(window_look look, window_feel feel, uint32 flags);
/// What the window keeps the user from while it is shown.
Qt::WindowModality WindowModalityOf(window_feel feel);
/// Whether it stays above the window that was active when it was shown.
bool StaysAboveAnother(window_feel feel);

}  // namespace BPrivate
