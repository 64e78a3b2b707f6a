// The screen a window is on.

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <app/Message.h>
#include <utility>

#include "kits/desktop/WindowWidget.h"

namespace BPrivate {

void WindowWidget::FollowHandle() {
    QWindow* handle = windowHandle();
    if (handle == nullptr)
        return;
    handle->removeEventFilter(this);
    handle->installEventFilter(this);
    disconnect(handle, &QWindow::screenChanged, this, nullptr);
    connect(handle, &QWindow::screenChanged, this, [this] { FollowScreen(); });
    FollowScreen();
}

bool WindowWidget::eventFilter(QObject* handle, QEvent* event) {
    const bool isSeen =
        event->type() == QEvent::Expose && handle == windowHandle() && windowHandle()->isExposed();
    if (isSeen && std::exchange(fAppears, false))
        BringOntoScreen();  // the desktop has told by now what it puts around the window
    // Only X11 leaves a restored window in doubt; see Restored().
    static const bool isX11 = QGuiApplication::platformName() == QLatin1String("xcb");
    if (isX11 && isSeen && isMinimized())
        fReappeared.start();
    return false;
}

ScreenPlace WindowWidget::CurrentPlace() const {
    const ScreenTable& table = *fScreens.Table();
    const QWindow* handle = windowHandle();
    if (!isVisible() || handle == nullptr || handle->screen() == nullptr)
        return table.Holding(fFrame);
    const auto ratio = static_cast<float>(handle->devicePixelRatio());
    if (!HasPositions())
        return {handle->screen()->geometry(), ratio};
    // While a request is on its way the window is where it is going to be.
    return {table.Holding(fSettling.isActive() ? fFrame : geometry()).frame, ratio};
}

void WindowWidget::FollowScreen() {
    const ScreenPlace place = CurrentPlace();
    if (place == fToldPlace)
        return;
    fToldPlace = place;
    fPlace->Set(place);
    BMessage message(kScreenChanged);
    message.AddRect("frame", KitRect(place.frame));
    message.AddFloat("ratio", place.ratio);
    Send(message);
}

void WindowWidget::ScreensChanged() {
    FollowScreen();
    const ScreenTable& table = *fScreens.Table();
    if (!HasPositions() || !isVisible() || fCovers || table.HasMiddle(geometry()))
        return;
    // The screen it was on has gone. Window managers leave it there, or let an edge be seen.
    setGeometry(BroughtOnto(geometry(), table.Main().frame));
}

}  // namespace BPrivate
