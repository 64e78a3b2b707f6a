#pragma once

#include <QAbstractNativeEventFilter>
#include <functional>

class QWidget;

namespace BPrivate {

/// Whether the desktop keeps a window maximised. Main thread only.
///
/// On X11 that may be in one direction alone, of which Qt says nothing: there the window manager's
/// own note at the window is read. What Wayland tells of tiled windows Qt 6.4 keeps to itself, unless
/// the compositor calls them maximised.
class WindowHold : public QAbstractNativeEventFilter {
public:
    /// `changed` is called on X11 when the note may say something else.
    WindowHold(const QWidget& window, std::function<void()> changed);
    ~WindowHold() override;

    /// On X11 the server is asked, so this is true before Qt has heard of it.
    bool IsHeld() const;

    bool nativeEventFilter(const QByteArray& type, void* event, qintptr* result) override;

private:
    bool IsMaximizedByNote() const;

    const QWidget& fWindow;
    const std::function<void()> fChanged;
};

}  // namespace BPrivate
