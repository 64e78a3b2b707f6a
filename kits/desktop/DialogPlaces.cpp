// Dialogs are seen whole: the kits place the content only, and not what is around it.

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include "kits/desktop/WindowWidget.h"

namespace BPrivate {

namespace {

// A title bar and borders, as long as nobody has told what they take.
constexpr QMargins kLikelyDecorations(5, 32, 5, 5);

/// The screen without the desktop's panels.
QRect FreePart(const QRect& screen) {
    for (const QScreen* one : QGuiApplication::screens()) {
        if (one->geometry() == screen)
            return one->availableGeometry();
    }
    return screen;
}

}  // namespace

QMargins WindowWidget::Decorations() const {
    if ((windowFlags() & Qt::FramelessWindowHint) != 0)
        return {};
    if (windowHandle() != nullptr && windowHandle()->isExposed())
        return windowHandle()->frameMargins();
    // Before it is shown they are those of another window of the program. One in full screen has
    // none.
    for (const QWindow* other : QGuiApplication::topLevelWindows()) {
        const bool hasTitle =
            other->isVisible() && (other->flags() & Qt::WindowTitleHint) != 0 && other->isExposed();
        if (hasTitle && other->frameMargins().top() > 0)
            return other->frameMargins();
    }
    return kLikelyDecorations;
}

QRect WindowWidget::SeenWhole(const QRect& frame) const {
    if (!IsDialog() || !HasPositions() || fCovers)
        return frame;
    const QRect screen = fScreens.Table()->Holding(frame).frame;
    return screen.isEmpty() ? frame : BroughtOnto(frame, Decorations(), FreePart(screen));
}

void WindowWidget::BringOntoScreen() {
    const QRect place = SeenWhole(fFrame);
    if (place == fFrame)
        return;
    setGeometry(place);
    TellMoved();
}

QRect WindowWidget::Grown(const QRect& frame) const {
    // What the user has pushed over an edge stays there.
    const bool wasWhole = isVisible() && SeenWhole(fFrame) == fFrame;
    return wasWhole && frame.size() != fFrame.size() ? SeenWhole(frame) : frame;
}

}  // namespace BPrivate
