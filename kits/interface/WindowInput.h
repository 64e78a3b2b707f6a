#pragma once

#include <interface/InterfaceDefs.h>
#include <interface/Point.h>
#include <interface/View.h>

class BHandler;
class BMessage;
class BWindow;

namespace BPrivate {

/// Which view gets the keys, the pointer and drops of a window, and how it is told.
///
/// Threads. Under the window's lock.
class WindowInput {
public:
    explicit WindowInput(BWindow& window) : fWindow(window) {}

    /// The view an input message is for, or the window itself.
    BHandler* Target(const BMessage& message);
    /// Whether the command is one of those Dispatch() takes.
    static bool IsInput(uint32 what);
    /// Calls the hooks of the view for an input message. The message gets the position in the
    /// view's coordinates.
    void Dispatch(BMessage& message, BView& view);

    /// Until the last button is released all pointer events are this view's. `B_NOT_ALLOWED` while
    /// none is held.
    status_t Capture(BView& view, uint32 mask, uint32 options);
    void GetMouse(BPoint& where, uint32& buttons, bool checkQueue) const;
    /// Nothing is sent to the view any more, or to those in it.
    void Forget(const BView& view);
    BView* ViewAt(BPoint where) const;

private:
    void DispatchKey(BMessage& message, BView& view);
    void DispatchMoved(BMessage& message, BView& view);
    void SendMoved(BMessage& message, BView& view, BPoint where, uint32 transit);
    bool IsOutdated(uint32 options) const;
    template <typename Call>
    void ForWatchers(uint32 mask, const BView& besides, Call call);

    BWindow& fWindow;
    BPoint fPointer;  // window coordinates
    uint32 fButtons = 0;
    BView* fUnder = nullptr;  // had the pointer at its last move
    BView* fCaptor = nullptr;
    uint32 fCaptorOptions = 0;
};

}  // namespace BPrivate
