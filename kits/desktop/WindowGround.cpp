#include "kits/desktop/WindowGround.h"

#include <QColor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <qguiapplication_platform.h>
#include <xcb/xcb.h>

namespace BPrivate {

void SetWindowGround(const QWidget& window, const QColor& color) {
    // On other depths a pixel's value is not the colour's.
    constexpr int kDepth = 24;
    constexpr int kDepthWithAlpha = 32;
    // The platform without a screen has a connection too, and no windows there.
    if (QGuiApplication::platformName() != QLatin1String("xcb") || window.internalWinId() == 0)
        return;
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr)
        return;
    const int depth = window.screen()->depth();
    if (depth != kDepth && depth != kDepthWithAlpha)
        return;
    const uint32_t pixel = color.rgb() | 0xff000000U;
    xcb_change_window_attributes(x11->connection(),
        static_cast<xcb_window_t>(window.internalWinId()), XCB_CW_BACK_PIXEL, &pixel);
    xcb_flush(x11->connection());
}

}  // namespace BPrivate
