#pragma once

class QColor;
class QWidget;

namespace BPrivate {

/// Has the screen itself fill new area of the window with the colour. An X server shows a window
/// that was made larger at once, some time before the program can paint there; without this the
/// area shows what was there before. Elsewhere a window is only seen as it was painted.
/// Does nothing for a window that is not made yet.
void SetWindowGround(const QWidget& window, const QColor& color);

}  // namespace BPrivate
