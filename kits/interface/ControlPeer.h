#pragma once

#include <interface/View.h>
#include <string>

#include "kits/interface/Display.h"

namespace BPrivate {

/// To a window by itself: controls have changed outside of any message.
constexpr uint32 kControlsChanged = '_CCS';

/// What ties a view that the desktop shows by a control of its own to that control.
///
/// A control class derives from this (a small class in its source file that knows its view) and
/// gives an instance to Install() in its constructor. The view owns it from then on.
///
/// What it does by itself: when the view is attached it takes a new id and hands the state and the
/// place down; it hands the place down again whenever the view's frame, visibility or focus
/// changes, its own or through a view it lies in; it removes the control when the view is
/// detached or deleted. What is left to the control class: calling StateChanged() when something
/// State() tells has changed (and PlaceChanged() for IsEnabled() or AccessibleName()).
///
/// A view with a peer is not drawn by the kits: what lies behind it shows through where the
/// control does not paint. Its children may be controls, or views that are drawn.
///
/// Threads. Under the lock of the view's window.
class ControlPeer {
public:
    /// Makes `peer` the view's. Once in a view's life, before it is attached.
    static void Install(BView& view, std::unique_ptr<ControlPeer> peer);
    /// The view's peer; null for a view that draws itself.
    static ControlPeer* Of(const BView* view);

    virtual ~ControlPeer();

    ControlPeer(const ControlPeer&) = delete;
    ControlPeer& operator=(const ControlPeer&) = delete;

    /// Hands State() down. Nothing happens while the view is not attached; attaching does it.
    /// Events of the user's that crossed this change on their way are dropped from then on.
    void StateChanged();
    /// The same, but once for all the changes of the message that is being handled; for a window
    /// that was never shown, when it is.
    void StateChangesOften();
    /// Hands the place down where it differs from the last one.
    void PlaceChanged();

    /// What the control wants with the state it has; either may be null. Waits for the display.
    void GetPreferredSize(float* width, float* height) const;

    /// 0 while not attached.
    ControlId Id() const { return fId; }
    /// The screen's side of the view's window; null while not attached to a window.
    DisplayWindow* Screen() const;
    BView& View() const { return *fView; }

    // What the control class answers.

    virtual ControlState State() const = 0;
    virtual bool IsEnabled() const { return true; }
    /// What people call it where the program says nothing else: its label. Empty for what has
    /// none, or is called by what it shows.
    virtual std::string AccessibleName() const;
    /// The user changed the control: a fresh `kControlChanged`. Whether the change is to be handed
    /// down again is up to the control class (it need not be: the control shows it already).
    virtual void UserChanged(const BMessage& event) = 0;
    /// Whether a change of the user's counts also when the state has changed since: one that says
    /// which thing was chosen, whatever has become of the others. What is shown is another by then.
    virtual bool TakesLate(const BMessage& /*event*/) const { return false; }
    /// After the control was made on the screen, and before it is taken from it. When detaching
    /// is part of deleting the view, only BView is left of it.
    virtual void Attached() {}
    virtual void Detached() {}

protected:
    ControlPeer() = default;

private:
    friend class ::BView;
    friend class ::BWindow;
    friend class WindowData;

    void _Attach();
    void _Detach();
    bool _IsFresh(const BMessage& event) const;
    ControlPlace _Place() const;

    BView* fView = nullptr;
    ControlId fId = 0;
    int32 fSerial = 0;
    ControlPlace fLastPlace;
    bool fPlaced = false;
};

}  // namespace BPrivate
