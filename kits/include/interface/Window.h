#pragma once

#include <app/Looper.h>
#include <interface/GraphicsDefs.h>
#include <interface/Point.h>
#include <interface/Rect.h>
#include <memory>

class BButton;
class BMenuBar;
class BView;

namespace BPrivate {
class ControlPeer;
class DisplayWindow;
class ViewReading;
class WindowData;
class WindowInput;
class WindowSurface;
}  // namespace BPrivate

/// A look and a feel in one.
enum window_type {
    B_UNTYPED_WINDOW = 0,
    B_TITLED_WINDOW = 1,
    B_MODAL_WINDOW = 3,
    B_DOCUMENT_WINDOW = 11,
    B_BORDERED_WINDOW = 20,
    B_FLOATING_WINDOW = 21,
};

enum window_look {
    B_BORDERED_WINDOW_LOOK = 20,
    B_NO_BORDER_WINDOW_LOOK = 19,
    B_TITLED_WINDOW_LOOK = 1,
    B_DOCUMENT_WINDOW_LOOK = 11,
    B_MODAL_WINDOW_LOOK = 3,
    B_FLOATING_WINDOW_LOOK = 7,
};

enum window_feel {
    B_NORMAL_WINDOW_FEEL = 0,
    B_MODAL_SUBSET_WINDOW_FEEL = 2,
    B_MODAL_APP_WINDOW_FEEL = 1,
    B_MODAL_ALL_WINDOW_FEEL = 3,
    B_FLOATING_SUBSET_WINDOW_FEEL = 5,
    B_FLOATING_APP_WINDOW_FEEL = 4,
    B_FLOATING_ALL_WINDOW_FEEL = 6,
};

/// Window flags.
enum : uint32 {
    B_NOT_MOVABLE = 0x00000001,
    B_NOT_RESIZABLE = 0x00000002,
    B_NOT_H_RESIZABLE = 0x00000004,
    B_NOT_V_RESIZABLE = 0x00000008,
    B_WILL_ACCEPT_FIRST_CLICK = 0x00000010,
    B_NOT_CLOSABLE = 0x00000020,
    B_NOT_ZOOMABLE = 0x00000040,
    B_AVOID_FRONT = 0x00000080,
    B_NO_WORKSPACE_ACTIVATION = 0x00000100,
    B_QUIT_ON_WINDOW_CLOSE = 0x00001000,  ///< quitting the window asks the application to quit
    B_AVOID_FOCUS = 0x00002000,
    B_NOT_MINIMIZABLE = 0x00004000,
    B_NOT_ANCHORED_ON_ACTIVATE = 0x00020000,
    B_ASYNCHRONOUS_CONTROLS = 0x00080000,
};

/// Given as workspaces: the one shown. Which workspace a window is on is the desktop's business.
inline constexpr uint32 B_CURRENT_WORKSPACE = 0;
inline constexpr uint32 B_ALL_WORKSPACES = 0xffffffff;

/// A window: a looper with a tree of views and a place on the screen.
///
/// Threads. The constructor leaves the window locked by the calling thread, and hidden. Its thread
/// starts with the first Show(), which unlocks it; from then on everything but Show(), Hide(),
/// Lock() and the messaging functions needs the window's lock. Hooks run on the window's thread;
/// the first drawing alone runs on the thread that calls Show(), so that the window appears with
/// its content in place.
///
/// Lifetime. Made with `new` and ended with Quit(), never with `delete`. The window owns its
/// views.
///
/// Frames are those of the content, in screen coordinates. A window covers whole pixels: given
/// positions and sizes are rounded.
class BWindow : public BLooper {
public:
    BWindow(BRect frame, const char* title, window_type type, uint32 flags,
        uint32 workspaces = B_CURRENT_WORKSPACE);
    BWindow(BRect frame, const char* title, window_look look, window_feel feel, uint32 flags,
        uint32 workspaces = B_CURRENT_WORKSPACE);
    ~BWindow() override;

    BWindow(const BWindow&) = delete;
    BWindow& operator=(const BWindow&) = delete;

    /// Takes the window from the screen and ends it, with its views. Needs the lock.
    void Quit() override;
    /// The same as Quit().
    void Close() { Quit(); }

    /// Puts the view on top of the window's views, or below `before`. The window owns it. Nothing
    /// happens when it has a parent already or `before` is not a child of the window's.
    void AddChild(BView* child, BView* before = nullptr);
    /// Takes the view out of the window; it belongs to the caller again. False when it is not a
    /// child of the window's.
    bool RemoveChild(BView* child);
    int32 CountChildren() const;
    /// Null when there is none of that index.
    BView* ChildAt(int32 index) const;
    /// The first view of that name in the whole tree, depth first; null when there is none.
    BView* FindView(const char* name) const;
    /// The deepest visible view at the point (window coordinates); null outside of all.
    BView* FindView(BPoint where) const;

    /// Hides and shows nest: the window is on the screen when there were as many calls of Show()
    /// as of Hide(), and one more. The first Show() starts the thread and unlocks the window.
    virtual void Show();
    virtual void Hide();
    bool IsHidden() const;

    virtual void Minimize(bool minimize);
    bool IsMinimized() const;
    /// The user pressed the zoom box and the desktop has done it; told with the new frame.
    virtual void Zoom(BPoint origin, float width, float height);
    /// Brings the window to the front and gives it the keyboard.
    void Activate(bool active = true);
    bool IsActive() const;
    /// Whether the window is the active one: a desktop does not tell more.
    bool IsFront() const;

    void MoveTo(float x, float y);
    void MoveTo(BPoint where) { MoveTo(where.x, where.y); }
    void MoveBy(float dx, float dy);
    /// Sizes are kit units (pixels less one), kept within the size limits. A window that the desktop
    /// holds, maximised or tiled, is neither moved nor resized unless it is to cover the whole screen.
    void ResizeTo(float width, float height);
    void ResizeBy(float dx, float dy);
    /// Takes effect at once on a window that lies outside of the limits.
    void SetSizeLimits(float minWidth, float maxWidth, float minHeight, float maxHeight);
    void GetSizeLimits(float* minWidth, float* maxWidth, float* minHeight, float* maxHeight) const;

    /// Content in screen coordinates.
    BRect Frame() const;
    /// The frame from before the desktop held the window; the same as Frame() while it does not.
    BRect NormalFrame() const;
    /// Content in window coordinates: its left top is (0, 0).
    BRect Bounds() const;
    void ConvertToScreen(BPoint* point) const;
    BPoint ConvertToScreen(BPoint point) const;
    void ConvertFromScreen(BPoint* point) const;
    BPoint ConvertFromScreen(BPoint point) const;
    BRect ConvertToScreen(BRect rect) const;
    BRect ConvertFromScreen(BRect rect) const;

    const char* Title() const;
    void SetTitle(const char* title);
    window_type Type() const;
    window_look Look() const;
    window_feel Feel() const;
    uint32 Flags() const;
    bool IsModal() const;
    bool IsFloating() const;

    /// The view that gets the keys; null for none.
    BView* CurrentFocus() const;
    /// The button Enter stands for; null for none. Borrowed.
    void SetDefaultButton(BButton* button);
    BButton* DefaultButton() const;
    /// The menus that keys open, and whose shortcuts go before those of AddShortcut(). Borrowed;
    /// null for none.
    void SetKeyMenuBar(BMenuBar* bar);
    BMenuBar* KeyMenuBar() const;

    /// Lets the key, together with Command (always added) and the other modifiers, post the
    /// message to the window, or to `target`. Owns the message. Letters match in either case.
    void AddShortcut(uint32 key, uint32 modifiers, BMessage* message);
    void AddShortcut(uint32 key, uint32 modifiers, BMessage* message, BHandler* target);
    void RemoveShortcut(uint32 key, uint32 modifiers);
    bool HasShortcut(uint32 key, uint32 modifiers) const;

    /// Whether something waits to be drawn.
    bool NeedsUpdate() const;
    /// Draws now what is invalid and shows it. Nothing happens while the window is hidden.
    void UpdateIfNeeded();
    /// Shows what was drawn so far.
    void Flush() const;
    void Sync() const;
    void DisableUpdates();
    void EnableUpdates();
    /// Nothing is shown between the two; calls nest.
    void BeginViewTransaction() { DisableUpdates(); }
    void EndViewTransaction() { EnableUpdates(); }

    // Hooks, on the window's thread.
    virtual void FrameMoved(BPoint newPosition);
    virtual void FrameResized(float newWidth, float newHeight);
    virtual void WindowActivated(bool active);
    /// The first menu of a menu bar was opened, the last one closed.
    virtual void MenusBeginning() {}
    virtual void MenusEnded() {}
    virtual void ScreenChanged(BRect, color_space) {}

    bool QuitRequested() override;
    void DispatchMessage(BMessage* message, BHandler* handler) override;
    void MessageReceived(BMessage* message) override;

protected:
    BHandler* DetermineTarget(BMessage* message, BHandler* target) override;
    void MessageDispatched() override;

private:
    friend class BScreen;
    friend class BView;
    friend class BPrivate::ControlPeer;
    friend class BPrivate::ViewReading;
    friend class BPrivate::WindowData;
    friend class BPrivate::WindowInput;
    friend class BPrivate::WindowSurface;

    void _SetFrame(BRect frame);
    void _FrameReported(const BMessage& message);

    std::unique_ptr<BPrivate::WindowData> fData;
};
