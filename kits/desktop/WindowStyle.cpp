#include "kits/desktop/WindowStyle.h"

namespace BPrivate {

Qt::WindowFlags WindowStyle(window_look look, window_feel feel, uint32 flags) {
    Qt::WindowFlags style = Qt::Window;
    switch (look) {
    case B_MODAL_WINDOW_LOOK: style = Qt::Dialog; break;
    case B_FLOATING_WINDOW_LOOK: style = Qt::Tool; break;
    case B_BORDERED_WINDOW_LOOK:
    case B_NO_BORDER_WINDOW_LOOK: style |= Qt::FramelessWindowHint; break;
    default: break;
    }
    if ((style & Qt::FramelessWindowHint) == 0) {
        style |= Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
        if ((flags & B_NOT_CLOSABLE) == 0)
            style |= Qt::WindowCloseButtonHint;
        if ((flags & B_NOT_MINIMIZABLE) == 0)
            style |= Qt::WindowMinimizeButtonHint;
        // A zoomed window has another size, which one that cannot be resized never has.
        const bool fixed = (flags & B_NOT_RESIZABLE) != 0;
        if ((flags & B_NOT_ZOOMABLE) == 0 && !fixed)
            style |= Qt::WindowMaximizeButtonHint;
    }
    if (feel == B_FLOATING_ALL_WINDOW_FEEL)
        style |= Qt::WindowStaysOnTopHint;
    if (flags & B_AVOID_FOCUS)
        style |= Qt::WindowDoesNotAcceptFocus;
    return style;
}

Qt::WindowModality WindowModalityOf(window_feel feel) {
    switch (feel) {
    case B_MODAL_APP_WINDOW_FEEL:
    case B_MODAL_ALL_WINDOW_FEEL: return Qt::ApplicationModal;
    case B_MODAL_SUBSET_WINDOW_FEEL: return Qt::WindowModal;
    default: return Qt::NonModal;
    }
}

bool StaysAboveAnother(window_feel feel) {
    return feel != B_NORMAL_WINDOW_FEEL;
}

}  // namespace BPrivate
