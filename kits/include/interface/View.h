#pragma once

#include <app/Handler.h>
#include <interface/Font.h>
#include <interface/GraphicsDefs.h>
#include <interface/InterfaceDefs.h>
#include <interface/Point.h>
#include <interface/Rect.h>
#include <memory>
#include <string>
#include <vector>

class BBitmap;
class BMessage;
class BScrollBar;
class BWindow;

namespace BPrivate {
class BitmapData;
class ControlPeer;
class ViewCanvas;
class ViewReading;
class ViewRoot;
class WindowData;
class WindowInput;
class WindowSurface;
}  // namespace BPrivate

// How a view follows its parent when that is resized: which edge each of its own keeps its
// distance from. One nibble an edge: top, left, bottom, right.
inline constexpr uint32 _VIEW_TOP_ = 1;
inline constexpr uint32 _VIEW_LEFT_ = 2;
inline constexpr uint32 _VIEW_BOTTOM_ = 3;
inline constexpr uint32 _VIEW_RIGHT_ = 4;
inline constexpr uint32 _VIEW_CENTER_ = 5;

constexpr uint32 _rule_(uint32 top, uint32 left, uint32 bottom, uint32 right) {
    return (top << 12) | (left << 8) | (bottom << 4) | right;
}

inline constexpr uint32 B_FOLLOW_NONE = 0;
inline constexpr uint32 B_FOLLOW_ALL_SIDES =
    _rule_(_VIEW_TOP_, _VIEW_LEFT_, _VIEW_BOTTOM_, _VIEW_RIGHT_);
inline constexpr uint32 B_FOLLOW_ALL = B_FOLLOW_ALL_SIDES;
inline constexpr uint32 B_FOLLOW_LEFT = _rule_(0, _VIEW_LEFT_, 0, _VIEW_LEFT_);
inline constexpr uint32 B_FOLLOW_RIGHT = _rule_(0, _VIEW_RIGHT_, 0, _VIEW_RIGHT_);
inline constexpr uint32 B_FOLLOW_LEFT_RIGHT = _rule_(0, _VIEW_LEFT_, 0, _VIEW_RIGHT_);
inline constexpr uint32 B_FOLLOW_H_CENTER = _rule_(0, _VIEW_CENTER_, 0, _VIEW_CENTER_);
inline constexpr uint32 B_FOLLOW_TOP = _rule_(_VIEW_TOP_, 0, _VIEW_TOP_, 0);
inline constexpr uint32 B_FOLLOW_BOTTOM = _rule_(_VIEW_BOTTOM_, 0, _VIEW_BOTTOM_, 0);
inline constexpr uint32 B_FOLLOW_TOP_BOTTOM = _rule_(_VIEW_TOP_, 0, _VIEW_BOTTOM_, 0);
inline constexpr uint32 B_FOLLOW_V_CENTER = _rule_(_VIEW_CENTER_, 0, _VIEW_CENTER_, 0);

/// View flags.
enum : uint32 {
    B_FULL_UPDATE_ON_RESIZE = 0x80000000,  ///< a change of size makes all of it invalid
    B_WILL_DRAW = 0x20000000,              ///< Draw() is called
    B_PULSE_NEEDED = 0x10000000,           ///< kept, but views are sent no pulse
    B_NAVIGABLE_JUMP = 0x08000000,
    B_FRAME_EVENTS = 0x04000000,  ///< FrameMoved() and FrameResized() are called
    B_NAVIGABLE = 0x02000000,     ///< the Tab key moves the focus here
    B_SUBPIXEL_PRECISE = 0x01000000,
    B_DRAW_ON_CHILDREN = 0x00800000,  ///< its drawing is not kept off its children
};

/// Options of DrawBitmap().
enum : uint32 {
    /// What is scaled is smoothed, instead of sampled from the nearest pixel.
    B_FILTER_BITMAP_BILINEAR = 0x00000100,
};

/// Eight rows of eight pixels; a set bit takes the high colour, others the low one.
struct pattern {
    uint8 data[8] = {};

    constexpr bool operator==(const pattern&) const = default;
};
inline constexpr pattern B_SOLID_HIGH{{255, 255, 255, 255, 255, 255, 255, 255}};
inline constexpr pattern B_MIXED_COLORS{{0xaa, 0x55, 0xaa, 0x55, 0xaa, 0x55, 0xaa, 0x55}};
inline constexpr pattern B_SOLID_LOW{};

/// A rectangle of a window, or of a bitmap that accepts views, that draws and takes part in
/// input.
///
/// Threads. A view that is attached is used under its window's lock (its bitmap's), one that is
/// not by one thread at a time. Hooks run on the window's thread.
///
/// Lifetime. Made with `new`; AddChild() hands it over to the parent, which deletes it with
/// itself. Deleting an attached view takes it out of its parent first.
///
/// Pixels. A filled rectangle covers the pixels from floor(left) to floor(right) and from
/// floor(top) to floor(bottom); one that is invalid or not finite covers nothing. A bitmap drawn
/// at its own size starts at the floor of its left top. One drawn into a rectangle of width w
/// covers ceil(w) + 1 columns from floor(left) on, each sampled from the nearest pixel. See
/// `kits/interface/PixelRule.h`.
class BView : public BHandler {
public:
    /// The frame is in the parent's coordinates.
    BView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);
    /// From an archive: "_name" string, "_frame" rect, "_resize_mode" and "_flags" int32, "_color"
    /// three colours (high, low, view), the font as "_fname" string (family), "_fsize" float and
    /// "_fface" int32, and "_views" messages: the children, lowest first, made by their "class".
    /// All are optional; the frame is invalid when missing.
    explicit BView(BMessage* archive);
    ~BView() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    // The tree.

    /// Puts the view above the other children, or below `before`. This view owns it then. Nothing
    /// happens when it has a parent already or `before` is not a child.
    void AddChild(BView* child, BView* before = nullptr);
    /// The child belongs to the caller again. False when it is no child of this view.
    bool RemoveChild(BView* child);
    bool RemoveSelf();
    /// Null for one that hangs from a window or bitmap itself, or from nothing.
    BView* Parent() const;
    int32 CountChildren() const;
    BView* ChildAt(int32 index) const;
    BView* NextSibling() const;
    BView* PreviousSibling() const;
    /// This view or the first below it of that name, depth first; null when there is none.
    BView* FindView(const char* name) const;
    /// Null while not attached to a window. LockLooper() locks it.
    BWindow* Window() const;

    // Hooks. Attaching runs from parents to children, AllAttached() from children to parents; the
    // same with detaching.
    virtual void AttachedToWindow() {}
    virtual void AllAttached() {}
    virtual void DetachedFromWindow() {}
    virtual void AllDetached() {}
    virtual void Draw(BRect updateRect);
    virtual void DrawAfterChildren(BRect updateRect);
    /// `where` is in the view's coordinates; buttons and modifiers are in the current message.
    virtual void MouseDown(BPoint where);
    virtual void MouseUp(BPoint where);
    /// `transit` is B_ENTERED_VIEW and so on; `dragMessage` is always null.
    virtual void MouseMoved(BPoint where, uint32 transit, const BMessage* dragMessage);
    /// Not called while Command is held: such a key is a shortcut or nothing. The base moves the
    /// focus on for Tab, and opens a menu of the window's for Control and its letter or for F10.
    virtual void KeyDown(const char* bytes, int32 numBytes);
    virtual void KeyUp(const char* bytes, int32 numBytes);
    virtual void WindowActivated(bool active);
    virtual void FrameMoved(BPoint newPosition);
    virtual void FrameResized(float newWidth, float newHeight);
    /// The size the view would like; the base answers its present one.
    virtual void GetPreferredSize(float* width, float* height);
    virtual void ResizeToPreferred();
    /// The base scrolls the view's scroll bars for B_MOUSE_WHEEL_CHANGED, and passes on what it
    /// does not know.
    void MessageReceived(BMessage* message) override;

    // Place and visibility.

    BRect Frame() const { return fFrame; }
    /// The view's own coordinates; the left top is where it is scrolled to.
    BRect Bounds() const;
    void MoveTo(BPoint where) { MoveTo(where.x, where.y); }
    void MoveTo(float x, float y);
    void MoveBy(float dx, float dy);
    /// Children follow by their resizing modes.
    void ResizeTo(float width, float height);
    void ResizeBy(float dx, float dy);
    void SetResizingMode(uint32 mode) { fResizingMode = mode; }
    uint32 ResizingMode() const { return fResizingMode; }
    virtual void SetFlags(uint32 flags);
    uint32 Flags() const { return fFlags; }

    /// Hides and shows nest, also before the view is attached.
    virtual void Show();
    virtual void Hide();
    /// Whether the view, or one it lies in, or the window is hidden.
    bool IsHidden() const;
    /// The same, but leaves out what hides `lookingFrom` and all above it.
    bool IsHidden(const BView* lookingFrom) const;

    void ScrollBy(float dx, float dy);
    void ScrollTo(float x, float y) { ScrollTo(BPoint(x, y)); }
    /// Makes the point the left top of the bounds, and tells the view's scroll bars.
    virtual void ScrollTo(BPoint where);
    /// The scroll bar whose target the view is; null when there is none.
    BScrollBar* ScrollBar(orientation direction) const;

    void ConvertToParent(BPoint* point) const;
    BPoint ConvertToParent(BPoint point) const;
    void ConvertFromParent(BPoint* point) const;
    BPoint ConvertFromParent(BPoint point) const;
    BRect ConvertToParent(BRect rect) const;
    BRect ConvertFromParent(BRect rect) const;
    void ConvertToScreen(BPoint* point) const;
    BPoint ConvertToScreen(BPoint point) const;
    void ConvertFromScreen(BPoint* point) const;
    BPoint ConvertFromScreen(BPoint point) const;
    void ConvertToScreen(BRect* rect) const;
    BRect ConvertToScreen(BRect rect) const;
    void ConvertFromScreen(BRect* rect) const;
    BRect ConvertFromScreen(BRect rect) const;

    // Input.

    /// Gives the view the keys of its window, or takes them from it.
    virtual void MakeFocus(bool focused = true);
    bool IsFocus() const;
    /// The view gets all events of the kinds in its window.
    status_t SetEventMask(uint32 mask, uint32 options = 0);
    uint32 EventMask() const { return fEventMask; }
    /// The same, from a MouseDown() to the release of the last button. `B_NOT_ALLOWED` while no
    /// button is held.
    status_t SetMouseEventMask(uint32 mask, uint32 options = 0);
    /// The pointer, in the view's coordinates, and the buttons, as the window last heard; with
    /// `checkQueue` the messages that still wait count.
    void GetMouse(BPoint* where, uint32* buttons, bool checkQueue = true);

    // Drawing state.

    virtual void SetViewColor(rgb_color color);
    void SetViewColor(uint8 red, uint8 green, uint8 blue, uint8 alpha = 255) {
        SetViewColor(rgb_color{red, green, blue, alpha});
    }
    rgb_color ViewColor() const { return fViewColor; }
    virtual void SetHighColor(rgb_color color) { fHighColor = color; }
    void SetHighColor(uint8 red, uint8 green, uint8 blue, uint8 alpha = 255) {
        SetHighColor(rgb_color{red, green, blue, alpha});
    }
    rgb_color HighColor() const { return fHighColor; }
    virtual void SetLowColor(rgb_color color) { fLowColor = color; }
    void SetLowColor(uint8 red, uint8 green, uint8 blue, uint8 alpha = 255) {
        SetLowColor(rgb_color{red, green, blue, alpha});
    }
    rgb_color LowColor() const { return fLowColor; }
    virtual void SetDrawingMode(drawing_mode mode) { fDrawingMode = mode; }
    drawing_mode DrawingMode() const { return fDrawingMode; }
    virtual void SetFont(const BFont* font, uint32 mask = B_FONT_ALL);
    void GetFont(BFont* font) const;
    void SetFontSize(float size);
    void GetFontHeight(font_height* height) const;
    float StringWidth(const char* text) const;
    float StringWidth(const char* text, int32 length) const;
    void MovePenTo(BPoint where) { fPen = where; }
    void MovePenTo(float x, float y) { fPen.Set(x, y); }
    void MovePenBy(float dx, float dy) { fPen += BPoint(dx, dy); }
    BPoint PenLocation() const { return fPen; }

    // Drawing. Clipped to the view's visible part. Outside of Draw() the result is shown at
    // Flush(), Sync() or the end of the message.

    void FillRect(BRect rect, pattern fill = B_SOLID_HIGH);
    /// A frame of one pixel along the edges of what FillRect() would cover.
    void StrokeRect(BRect rect, pattern fill = B_SOLID_HIGH);
    /// One pixel wide, both ends included.
    void StrokeLine(BPoint from, BPoint to, pattern fill = B_SOLID_HIGH);
    /// From the pen, which moves to `to`.
    void StrokeLine(BPoint to, pattern fill = B_SOLID_HIGH);
    void InvertRect(BRect rect);
    /// The bitmap at its own size.
    void DrawBitmap(const BBitmap* bitmap) { DrawBitmap(bitmap, fPen); }
    void DrawBitmap(const BBitmap* bitmap, BPoint where);
    void DrawBitmap(const BBitmap* bitmap, BRect destination);
    /// A part of the bitmap. What of `source` lies outside of the bitmap draws nothing. Nor does
    /// a bitmap that is drawn into itself.
    void DrawBitmap(const BBitmap* bitmap, BRect source, BRect destination) {
        DrawBitmap(bitmap, source, destination, 0);
    }
    /// `options`: 0 or B_FILTER_BITMAP_BILINEAR.
    void DrawBitmap(const BBitmap* bitmap, BRect source, BRect destination, uint32 options);
    /// The same as DrawBitmap(): all drawing is done when the call returns.
    void DrawBitmapAsync(const BBitmap* bitmap, BPoint where) { DrawBitmap(bitmap, where); }
    void DrawBitmapAsync(const BBitmap* bitmap, BRect destination) {
        DrawBitmap(bitmap, destination);
    }
    void DrawBitmapAsync(const BBitmap* bitmap, BRect source, BRect destination) {
        DrawBitmap(bitmap, source, destination);
    }
    /// UTF-8 in the high colour, its baseline starting at the pen, which moves to its end. A tab
    /// is four blanks wide; other control characters are left out.
    void DrawString(const char* text);
    void DrawString(const char* text, int32 length);
    void DrawString(const char* text, BPoint where);
    void DrawString(const char* text, int32 length, BPoint where);

    /// Lets the area be drawn again soon: the whole view, or a part of it.
    void Invalidate();
    void Invalidate(BRect rect);
    void Flush() const;
    void Sync() const;

private:
    friend class BScrollBar;
    friend class BWindow;
    friend class BPrivate::BitmapData;
    friend class BPrivate::ControlPeer;
    friend class BPrivate::ViewCanvas;
    friend class BPrivate::ViewReading;
    friend class BPrivate::WindowData;
    friend class BPrivate::WindowInput;
    friend class BPrivate::WindowSurface;

    // Which hook was called last, so that a view that a hook adds or removes is not told twice.
    enum class Hooks : uint8 { kNone, kAttached, kAllAttached, kDetached };

    void _Attach(BPrivate::ViewRoot* root);
    void _AttachHooks();
    void _AllAttachedHooks();
    void _Detach();
    void _DetachHooks();
    void _AllDetachedHooks();
    void _Activate(bool active);

    void _SetFrame(BRect frame);
    void _FollowParent(float dx, float dy);
    void _SetHideLevel(int32 level);
    void _PlaceChanged();
    void _Post(uint32 what);
    void _SetScrollBar(orientation direction, BScrollBar* bar);  // for BScrollBar; null removes
    BPoint _RootOffset() const;
    bool _IsIn(const BView& ancestor) const;

    BRect fFrame;    // in the parent's coordinates
    BPoint fScroll;  // left top of the bounds
    uint32 fResizingMode = B_FOLLOW_NONE;
    uint32 fFlags = 0;
    int32 fHideLevel = 0;
    uint32 fEventMask = 0;
    uint32 fEventOptions = 0;
    BView* fParent = nullptr;  // also the invisible top view of a window or bitmap
    std::vector<std::unique_ptr<BView>> fChildren;
    BPrivate::ViewRoot* fRoot = nullptr;  // while attached
    Hooks fHooks = Hooks::kNone;
    bool fIsTop = false;        // the invisible top view itself
    bool fMovePending = false;  // a message for FrameMoved() is on its way
    bool fResizePending = false;
    std::unique_ptr<BPrivate::ControlPeer> fPeer;
    std::unique_ptr<BPrivate::ViewReading> fReading;  // null: the program says nothing of it
    BScrollBar* fHorizontalBar = nullptr;
    BScrollBar* fVerticalBar = nullptr;

    rgb_color fViewColor{255, 255, 255, 255};
    rgb_color fHighColor{0, 0, 0, 255};
    rgb_color fLowColor{255, 255, 255, 255};
    drawing_mode fDrawingMode = B_OP_COPY;
    BFont fFont;
    BPoint fPen;
};
