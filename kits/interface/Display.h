#pragma once

// The narrow waist between the kits and the screen.
//
// Threads. The display lives on the process's main thread: it is created there by the first call
// of TheDisplay() and runs there in Run(). Every other function may be called from any thread and
// none of them waits for the main thread, except where "waits" is written. What is handed in is
// copied before the call returns. Calls made by one thread take effect in their order.
//
// Events come back as messages to the messenger the window was created with; they are listed
// beside DisplayWindow. A messenger to a window that is gone drops them, so neither side has to
// outlive the other.

#include <app/Messenger.h>
#include <interface/Alert.h>
#include <interface/GraphicsDefs.h>
#include <interface/InterfaceDefs.h>
#include <interface/Point.h>
#include <interface/Rect.h>
#include <interface/Window.h>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace BPrivate {

/// A block of 32-bit pixels in memory (B, G, R, A; alpha not premultiplied), rows top to bottom.
/// Borrowed: valid only as long as its owner says.
struct PixelBuffer {
    uint8* bits = nullptr;
    int32 bytesPerRow = 0;
    int32 width = 0;   ///< in pixels
    int32 height = 0;  ///< in pixels
    float ratio = 1;   ///< pixels of the buffer to one kit unit
};

/// A font as a view asks for it. `size` is in pixels.
struct FontSpec {
    std::string family;  ///< empty: the desktop's own
    float size = 12;
    bool bold = false;
    bool italic = false;

    bool operator==(const FontSpec&) const = default;
};

/// Distances from the baseline in pixels, all positive.
struct FontMetrics {
    float ascent = 0;
    float descent = 0;
    float leading = 0;
};

/// Names one control within its window. Never used again within the process.
using ControlId = int32;

// What a control shows. One structure a kind of control; the kind of an id never changes.

struct ScrollBarState {
    orientation direction = B_VERTICAL;
    float min = 0;
    float max = 0;
    float value = 0;
    float proportion = 0;  ///< visible part of the whole, 0 to 1; 0 when unknown
    float smallStep = 1;
    float bigStep = 10;
};

struct StringViewState {
    std::string text;
    alignment align = B_ALIGN_LEFT;
    FontSpec font = {};
    rgb_color color{0, 0, 0, 255};
    bool systemColor = true;  ///< the theme's own text colour instead of `color`
};

struct BoxState {
    border_style border = B_FANCY_BORDER;
    std::string label;
    std::optional<rgb_color> fill = {};  ///< painted inside of the border; none: what lies behind
};

struct ButtonState {
    std::string label;
    bool isDefault = false;
    bool pressed = false;
    bool flat = false;  ///< without edges while nobody presses it
};

struct CheckBoxState {
    std::string label;
    bool on = false;
};

struct RadioButtonState {
    std::string label;
    bool on = false;
    uint64 group = 0;  ///< of the window's radio buttons those with the same number are one choice
};

struct TextControlState {
    std::string label;
    std::string text;
    float divider = 0;  ///< where the text field starts, from the control's left edge
};

/// One item of a menu, with what is below it.
struct MenuItemState {
    int32 id = 0;  ///< names the item within its control; never used again within the process
    std::string label;
    bool separator = false;
    bool enabled = true;
    bool marked = false;
    bool radio = false;       ///< stands in a menu in radio mode
    bool hasSubmenu = false;  ///< opens `items`, which may be none
    bool command = true;      ///< can be chosen itself; false for a mere title of a submenu
    char shortcut = 0;        ///< the key shown as its shortcut, in upper case; 0 for none
    uint32 modifiers = 0;     ///< those of the shortcut, Command included
    int32 trigger = -1;       ///< byte of the label whose letter chooses it in the open menu; -1
    std::vector<MenuItemState> items = {};

    bool operator==(const MenuItemState&) const = default;
};

/// The keys of shortcuts reach the window as any others; the display only shows them.
struct MenuBarState {
    std::vector<MenuItemState> items = {};
};

/// A menu of its own, which OpenMenu() opens; nothing is seen of it before.
struct PopUpMenuState {
    BPoint where = {};        ///< its left top, in window coordinates
    bool byKeyboard = false;  ///< its first item is highlighted, as in all menus that keys open
    std::vector<MenuItemState> items = {};
};

struct MenuFieldState {
    std::string label;
    float divider = 0;  ///< where the field starts, from the control's left edge
    std::string title;  ///< shown while no item is marked
    bool fixedSize = false;
    std::vector<MenuItemState> items = {};
    int32 choice = 0;  ///< the last "choice" of the user's that `items` takes into account
};

struct SliderState {
    std::string label;
    std::string minLabel;
    std::string maxLabel;
    int32 min = 0;
    int32 max = 100;
    int32 value = 0;
    int32 step = 1;       ///< of the arrow keys
    int32 hashMarks = 0;  ///< how many, both ends included
    bool hashesAbove = false;
    bool hashesBelow = false;
    orientation direction = B_HORIZONTAL;
};

struct ListViewState {
    std::vector<std::string> rows;
    std::vector<int32> selected;       ///< rows, ascending
    std::vector<int32> disabled = {};  ///< rows that cannot be selected, ascending
    bool multiple = false;             ///< more than one row can be selected
    bool scrollBar = false;            ///< shows a scroll bar of its own when it needs one
    border_style border = B_NO_BORDER;
    int32 scrollSerial = 0;  ///< the first selected row is scrolled to when this is another one
};

/// Thickness of what is painted around a tab view's page, in kit units.
constexpr float kTabPaneFrame = 3;

/// The strip of tabs and the frame around what the chosen one shows, which is views of the kits'
/// and is not painted over: all from kTabPaneFrame below the strip, and that far from the other
/// edges. The preferred size is that of the strip alone.
struct TabViewState {
    std::vector<std::string> tabs;
    int32 selected = 0;                ///< -1 for none
    std::vector<int32> disabled = {};  ///< tabs that cannot be chosen, ascending
};

struct ColorControlState {
    rgb_color value{0, 0, 0, 255};  ///< alpha is not shown
};

/// The text of an alert beside its picture. Broken into lines as wide as the control.
struct AlertTextState {
    std::string text;
    alert_type type = B_INFO_ALERT;
};

/// A browser of folders to choose files in, with its own buttons. Fills its window.
struct FilePanelState {
    std::string folder;      ///< where it starts, absolute; empty: where the display likes
    int32 folderSerial = 0;  ///< `folder` is gone to again when this is another one
    uint32 flavors = 0;      ///< B_FILE_NODE and so on: what can be chosen
    bool multiple = false;
    std::string openLabel;    ///< empty: the desktop's own
    std::string cancelLabel;  ///< empty: the desktop's own
};

using ControlState = std::variant<ScrollBarState, StringViewState, BoxState, ButtonState,
    CheckBoxState, RadioButtonState, TextControlState, MenuBarState, PopUpMenuState, MenuFieldState,
    SliderState, ListViewState, TabViewState, ColorControlState, AlertTextState, FilePanelState>;

/// What every control has besides its state.
struct ControlPlace {
    std::string name;  ///< what assistive programs call it; empty: as the desktop does by itself
    BRect frame;       ///< in window coordinates
    BRect clip;        ///< the part the views around it leave; invalid: all of it
    bool visible = true;
    bool enabled = true;
    bool focused = false;          ///< has the window's keyboard focus
    bool navigable = false;        ///< a click gives it the keyboard focus
    std::string description = {};  ///< what assistive programs tell besides
    std::string view = {};         ///< the view's name in the program, which no one is told
};

/// A view that draws itself, as assistive programs are told of it: a picture.
struct ReadableView {
    std::string name;
    std::string description;
    BRect frame;           ///< what is seen of it, in window coordinates
    bool focused = false;  ///< has the window's keyboard focus

    bool operator==(const ReadableView&) const = default;
};

/// How a window is made. The frame is that of its content, in screen coordinates.
struct WindowSpec {
    BRect frame;
    std::string title;
    window_look look = B_TITLED_WINDOW_LOOK;
    window_feel feel = B_NORMAL_WINDOW_FEEL;
    uint32 flags = 0;
};

/// The screen's side of one window. Destroying it closes the window on the screen.
///
/// Messages sent to the window's messenger. Every one has "when" (int64, `system_time()` at its
/// arrival). Positions are in window coordinates.
///
/// | what | fields |
/// |---|---|
/// | `B_KEY_DOWN`, `B_KEY_UP`, `B_UNMAPPED_KEY_DOWN`, `B_UNMAPPED_KEY_UP` | "key" int32, "modifiers" int32, "raw_char" int32, "byte" int8 array, "bytes" string, "be:key_repeat" int32 count when repeated; "control" int32 when one had the focus |
/// | `B_MODIFIERS_CHANGED` | "modifiers", "be:old_modifiers" int32 |
/// | `B_MOUSE_DOWN` | "be:window_where" point, "buttons", "clicks", "modifiers" int32 |
/// | `B_MOUSE_UP` | "be:window_where" point, "buttons", "modifiers" int32 (buttons still held) |
/// | `B_MOUSE_MOVED` | "be:window_where" point, "buttons", "modifiers" int32, "be:inside" bool |
/// | `B_MOUSE_WHEEL_CHANGED` | "be:wheel_delta_x", "be:wheel_delta_y" float, in notches; down and right are positive; "be:window_where" point |
/// | `B_SIMPLE_DATA` (a drop) | "refs" refs; "_drop_point_" point (screen), "be:window_where" point |
/// | `B_WINDOW_RESIZED` | "width", "height" int32 (kit units: pixels less one), "serial" int32 |
/// | `B_WINDOW_MOVED` | "where" point (screen), "serial" int32 |
/// | `B_WINDOW_ACTIVATED` | "active" bool |
/// | `B_MINIMIZE` | "minimize" bool: the desktop did it already |
/// | `B_ZOOM` | none: the desktop did it already |
/// | `kWindowHeld` | "held" bool: the desktop keeps the window maximised or tiled from now on, and does not give it the frames the program wants; told before the frame it gets |
/// | `B_QUIT_REQUESTED` | none: the close box |
/// | `kControlChanged` | "control" int32, "serial" int32, "modifiers" int32, and "value" float (scroll bar), "value" int32 (check box, radio button, button: always 1; a radio button's is told whatever the serial), "text" string (text control) "value" int32 (slider; "final" bool: false while the knob is dragged), "selected" int32 array, ascending, none for no row (list view; "invoked" int32: the row that was opened), "value" int32 (tab view: the tab), "color" int32 0xRRGGBB (color control), "refs" refs or "cancel" bool (file panel: chosen, or given up; told whatever the serial), "folder" string (file panel: it shows another one), or "item" int32 (menu bar, menu field: the item chosen; told whatever the serial; "choice" int32, menu field: numbers the choices, upwards; each has to be answered by a state with its number or a later one, until which the field shows what was chosen), or "item" int32 (pop-up menu: as a menu bar) or "closed" bool (pop-up menu: it was closed, behind the choice if there was one; told whatever the serial) |
/// | `kMenusOpen` | "control" int32, "open" bool: the first menu of a menu bar was opened, the last one closed |
/// | `kScreenChanged` | "frame" rect, "ratio" float: the window is on another screen now, or its screen is another than it was; see ScreenFrame() and PixelRatio() |
/// | `kControlFocused` | "control" int32: the user moved the focus to it; 0: to the window's own content |
///
/// "serial" is that of the last SetFrame or SetControl the display had carried out: an event with
/// an older one than the window's latest crossed it on the way, and the window ignores it.
class DisplayWindow {
public:
    virtual ~DisplayWindow() = default;

    virtual void SetTitle(const std::string& title) = 0;
    virtual void SetFrame(BRect frame, int32 serial) = 0;
    /// Smallest and largest width and height, in kit units.
    virtual void SetSizeLimits(
        float minWidth, float maxWidth, float minHeight, float maxHeight) = 0;

    virtual void Show() = 0;
    virtual void Hide() = 0;
    /// Brings the window to the front and gives it the focus.
    virtual void Activate() = 0;
    /// The same, with the permission that the desktop gave to another program for it.
    virtual void ActivateWith(const std::string& /*token*/) { Activate(); }
    virtual void Minimize(bool minimize) = 0;

    /// The rectangle of the screen that holds most of the window, in screen coordinates.
    virtual BRect ScreenFrame() = 0;
    /// Pixels of that screen to one kit unit; fractions are possible.
    virtual float PixelRatio() = 0;

    /// Makes the control, or changes it. An event of the user's carries the serial back.
    virtual void SetControl(ControlId id, const ControlState& state, int32 serial) = 0;
    /// Only for an id already given to SetControl. Later ids lie above earlier ones.
    virtual void PlaceControl(ControlId id, const ControlPlace& place) = 0;
    virtual void RemoveControl(ControlId id) = 0;
    /// Opens the menu of that item of a menu bar as the keyboard does, 0 for the first; or the
    /// pop-up menu, for which `item` means nothing.
    virtual void OpenMenu(ControlId menu, int32 item) = 0;

    /// Tells assistive programs of the view from now on, or that it has changed. What is drawn and
    /// what the user does there stays as it is. The id is the view's own, and no control's.
    virtual void SetReadableView(int32 id, const ReadableView& view) = 0;
    virtual void RemoveReadableView(int32 id) = 0;

    /// Shows the given area of the back buffer on the screen. The buffer covers the whole window
    /// content and its alpha is ignored; the area is in pixels of the buffer, edges included.
    virtual void Present(const PixelBuffer& backBuffer, BRect area) = 0;
    /// What the window shows where nothing was presented yet, as after the user made it larger.
    virtual void SetGround(rgb_color color) = 0;

    /// From Hold() on changes of the title, the frame and the controls are kept. The next Present()
    /// has them seen together with its picture, in one paint, Release() without one. A Release()
    /// ends the holding; so do the calls that show, hide, activate or minimize the window.
    virtual void Hold() = 0;
    virtual void Release() = 0;
};

// Private to the kits.
constexpr uint32 kControlChanged = '_CCH';
constexpr uint32 kControlFocused = '_CFO';
constexpr uint32 kMenusOpen = '_CMO';
constexpr uint32 kScreenChanged = '_SCH';
constexpr uint32 kWindowHeld = '_WHD';
/// From the application, since the program was started once more: "windows", messengers to all of
/// them, the receiver's first. The first that is shown comes to the front, with "token".
constexpr uint32 kBringToFront = '_CBF';

/// The display of the process.
class Display {
public:
    virtual ~Display() = default;

    /// Serves the screen until Quit() was called, also when that was before. Main thread only.
    virtual void Run() = 0;
    virtual void Quit() = 0;

    /// A hidden window.
    virtual std::unique_ptr<DisplayWindow> CreateWindow(
        const WindowSpec& spec, const BMessenger& target) = 0;

    /// The rectangle of the main screen in screen coordinates.
    virtual BRect MainScreenFrame() = 0;

    /// The modifier keys held now: `B_SHIFT_KEY` and so on.
    virtual uint32 Modifiers() = 0;
    /// The modifiers and the keys held now.
    virtual void GetKeyInfo(key_info& info) = 0;

    virtual rgb_color UiColor(color_which which) = 0;

    /// The names of the installed scalable font families: first the one that is drawn where a family
    /// is not installed, then the others, sorted.
    virtual std::vector<std::string> FontFamilies() = 0;
    virtual FontMetrics Metrics(const FontSpec& font) = 0;
    /// The advance of the text in pixels.
    virtual float StringWidth(const FontSpec& font, const std::string& utf8) = 0;
    /// Breaks the text, which has no line ends, into lines of at most `width` pixels: where its
    /// language lets a line end, and elsewhere only when there is no such place. Blanks belong to
    /// the line they are broken at. Every line has at least one character.
    /// @return for every line the byte it ends before; the last is the length of the text
    virtual std::vector<int32> LineEnds(
        const FontSpec& font, const std::string& utf8, float width) = 0;
    /// Blends the text into the buffer, its baseline starting at `origin`, nothing outside `clip`
    /// (both in pixels of the buffer, edges inclusive). The font is scaled by the buffer's ratio.
    virtual void DrawText(const PixelBuffer& buffer, BRect clip, BPoint origin, rgb_color color,
        const FontSpec& font, const std::string& utf8) = 0;
    /// The size a control with this state wants, as width and height in kit units. Waits for the
    /// main thread.
    virtual BPoint PreferredSize(const ControlState& state) = 0;
};

/// The display of this process, made by the first call, which must come from the main thread.
/// Destroyed by the end of the process.
Display& TheDisplay();

/// Makes the display TheDisplay() hands out. Defined once by the library that has a display:
/// `kits/desktop`, or a test's recording one.
std::unique_ptr<Display> CreateDisplay();

}  // namespace BPrivate
