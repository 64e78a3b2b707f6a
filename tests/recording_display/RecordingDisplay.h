#pragma once

// A display for tests. Nothing is shown: what the kits ask for is written down, and what a user
// would do is sent by the test.
//
// Link `recording_display` and the kits find this display. It needs no thread of its own and does
// not mind which thread makes it; Run() waits for Quit().
//
//     auto& display = recording::TheRecordingDisplay();
//     auto* window = new MyWindow(...);
//     window->Show();
//     auto screen = display.WaitForWindow("My title");     // shown, by its title
//     ASSERT_TRUE(screen);
//     screen->PressKey(B_PAGE_DOWN);
//     EXPECT_TRUE(recording::WaitFor([&] { return screen->Title() == "Other title"; }));
//     EXPECT_EQ(screen->Shown().At(10, 10), (rgb_color{255, 0, 0, 255}));
//
// Fonts. Every character (code point) is half the font's size wide, and drawn as a block: columns
// 0 to size / 2 - 2 of its cell, from size * 3/4 above the baseline to the row above it, in the
// plain colour; on a buffer of another ratio, as in a font that much larger. Ascent is 3/4 of the
// size, descent 1/4, leading 0. Blanks draw nothing.
//
// Threads. Everything here may be called from any thread. Windows and pictures that were handed
// out stay valid after the kits' window is gone.

#include <chrono>
#include <condition_variable>
#include <functional>
#include <interface/Rect.h>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <storage/Entry.h>
#include <string>
#include <vector>

#include "kits/interface/Display.h"

namespace recording {

using BPrivate::ControlId;
using BPrivate::ControlPlace;
using BPrivate::ControlState;

/// What a window shows: pixels the kits presented. Those never presented are (0, 0, 0, 0).
struct Picture {
    int32 width = 0;
    int32 height = 0;
    std::vector<uint8> bits;  ///< B, G, R, A

    /// (0, 0, 0, 0) outside.
    rgb_color At(int32 x, int32 y) const;
    /// Whether all pixels of the area, edges included, have the colour (alpha not counted).
    bool IsAll(BRect area, rgb_color color) const;
};

struct Control {
    ControlId id = 0;
    ControlState state;
    ControlPlace place;
    int32 serial = 0;
};

/// The size limits a window was given last.
struct Limits {
    float minWidth = 0;
    float maxWidth = 0;
    float minHeight = 0;
    float maxHeight = 0;
};

/// What a window had seen of it at one moment.
struct Seen {
    int changes = 0;  ///< of the title, the frame and the controls
    bool picture = false;

    bool operator==(const Seen&) const = default;
};

/// Tells who waits in WaitFor() that something was written down.
void Changed();

/// One window as the screen has it.
class Window {
public:
    Window(BPrivate::WindowSpec spec, BMessenger target);

    // What the kits asked for.

    BPrivate::WindowSpec Spec() const;  ///< as it was made
    std::string Title() const;
    BRect Frame() const;
    bool IsShown() const;
    bool IsOpen() const;  ///< false once the kits' window is gone
    bool IsMinimized() const;
    int32 CountActivations() const;
    Limits SizeLimits() const;
    /// The menus the kits opened: the menu bar's or pop-up menu's id and the item's.
    std::vector<std::pair<ControlId, int32>> OpenedMenus() const;
    /// Every area presented so far.
    std::vector<BRect> Presented() const;
    Picture Shown() const;
    /// All that was seen so far, what was seen together in one entry.
    std::vector<Seen> Moments() const;
    rgb_color Ground() const;
    std::vector<Control> Controls() const;  ///< by id
    /// By label, or by the view's name; nothing when there is none.
    std::optional<Control> FindControl(const std::string& name) const;
    /// The views that assistive programs are told of besides the controls, oldest first.
    std::vector<BPrivate::ReadableView> ReadableViews() const;

    // What a user does. Each sends the message the display would; see DisplayWindow.

    /// Down and up. `key` is the key's number, for function keys.
    void PressKey(char rawChar, uint32 modifiers = 0, int32 key = 0);
    void KeyDown(char rawChar, uint32 modifiers = 0, int32 key = 0, ControlId control = 0);
    /// As a held key sends it, for the `count`th time.
    void KeyRepeated(char rawChar, int32 count);
    void KeyUp(char rawChar, uint32 modifiers = 0, int32 key = 0, ControlId control = 0);
    void MouseDown(BPoint where, int32 buttons = 1, int32 clicks = 1, uint32 modifiers = 0);
    void MouseMoved(BPoint where, int32 buttons = 0, uint32 modifiers = 0, bool inside = true);
    void MouseUp(BPoint where, int32 buttons = 0, uint32 modifiers = 0);
    void Wheel(BPoint where, float deltaX, float deltaY);
    void Drop(const std::vector<entry_ref>& refs, BPoint where);
    /// The user drags the edge, the title bar.
    void UserResize(float width, float height);
    void UserMove(BPoint where);
    void SetActive(bool active);
    void UserMinimize(bool minimize);
    /// The desktop maximises or tiles the window, or ends that. The frame it gets is told apart.
    void Hold(bool held);
    void PressCloseBox();
    void SetScrollBar(ControlId id, float value);
    void SetValue(ControlId id, int32 value);
    void SetText(ControlId id, const std::string& text);
    /// A list view's rows, ascending; `invoked` is opened too.
    void SelectRows(ControlId id, const std::vector<int32>& rows, int32 invoked = -1);
    /// `final` is false while the knob is dragged.
    void MoveSlider(ControlId id, int32 value, bool final = true);
    void ChooseTab(ControlId id, int32 tab);
    void SetColor(ControlId id, rgb_color color);
    void FocusControl(ControlId id);
    /// Chooses these in the file panel, gives it up, goes to another folder in it.
    void ChooseFiles(ControlId id, const std::vector<entry_ref>& refs);
    void CancelPanel(ControlId id);
    void EnterFolder(ControlId id, const std::string& path);
    /// Chooses the item of a menu bar, menu field or pop-up menu, which does not close it; the labels lead to it, from the outermost
    /// menu. False when there is none or it cannot be chosen.
    bool ChooseItem(ControlId id, const std::vector<std::string>& labels);
    /// A pop-up menu is closed, as also happens behind every choice in one.
    void ClosePopUp(ControlId id);
    /// The desktop moves the window to a screen of this frame and ratio.
    void ChangeScreen(BRect frame, float ratio);
    /// Any message as from the display, for events that crossed others on the way.
    void Send(BMessage& message);

private:
    friend class RecordingWindow;

    template <typename Function>
    void _Change(Function change) {
        {
            const std::lock_guard guard(fLock);
            change();
        }
        Changed();
    }
    /// Changes the control's state, if it is still there.
    template <typename State, typename Function>
    void _ChangeControl(ControlId id, Function change) {
        _Change([&] {
            if (const auto control = fControls.find(id); control != fControls.end())
                change(std::get<State>(control->second.state));
        });
    }
    void _SendControl(ControlId id, BMessage& message);
    float _PixelRatio() const;

    mutable std::mutex fLock;
    const BPrivate::WindowSpec fSpec;
    const BMessenger fTarget;
    std::string fTitle;
    BRect fFrame;
    int32 fFrameSerial = 0;
    bool fShown = false;
    bool fOpen = true;
    bool fMinimized = false;
    int32 fActivations = 0;
    Limits fLimits;
    std::vector<BRect> fPresented;
    Picture fPicture;
    std::vector<Seen> fSeen;
    bool fHolds = false;
    int fKept = 0;
    rgb_color fGround{0, 0, 0, 0};
    std::map<ControlId, Control> fControls;
    std::map<int32, BPrivate::ReadableView> fReadableViews;
    std::vector<std::pair<ControlId, int32>> fOpenedMenus;
    std::optional<BRect> fScreenFrame;  // none: the main screen's
    float fPixelRatio = 1;
};

class RecordingDisplay : public BPrivate::Display {
public:
    /// Windows that are open, oldest first.
    std::vector<std::shared_ptr<Window>> Windows() const;
    /// Waits until a window of that title is shown. Null when none comes in time.
    std::shared_ptr<Window> WaitForWindow(const std::string& title);

    /// What Modifiers() and GetKeyInfo() tell. Events carry what the test gives them.
    void SetModifiers(uint32 modifiers);
    void SetKeyHeld(int32 key, bool held);
    /// (0, 0) to (1919, 1079) at first.
    void SetMainScreenFrame(BRect frame);
    /// The installed families: "Sans" and "Serif" at first.
    void SetFontFamilies(std::vector<std::string> families);

    // BPrivate::Display
    void Run() override;
    void Quit() override;
    std::unique_ptr<BPrivate::DisplayWindow> CreateWindow(
        const BPrivate::WindowSpec& spec, const BMessenger& target) override;
    BRect MainScreenFrame() override;
    uint32 Modifiers() override;
    void GetKeyInfo(key_info& info) override;
    rgb_color UiColor(color_which which) override;
    std::vector<std::string> FontFamilies() override;
    BPrivate::FontMetrics Metrics(const BPrivate::FontSpec& font) override;
    float StringWidth(const BPrivate::FontSpec& font, const std::string& utf8) override;
    /// Breaks behind blanks, and within words wider than a line.
    std::vector<int32> LineEnds(
        const BPrivate::FontSpec& font, const std::string& utf8, float width) override;
    void DrawText(const BPrivate::PixelBuffer& buffer, BRect clip, BPoint origin, rgb_color color,
        const BPrivate::FontSpec& font, const std::string& utf8) override;
    BPoint PreferredSize(const ControlState& state) override;

private:
    mutable std::mutex fLock;
    std::condition_variable fQuitCondition;
    bool fQuit = false;
    std::vector<std::shared_ptr<Window>> fWindows;
    key_info fKeys;
    BRect fScreen{0, 0, 1919, 1079};
    std::vector<std::string> fFamilies{"Sans", "Serif"};
};

/// The display of this test program.
RecordingDisplay& TheRecordingDisplay();

/// Waits until the condition holds; looks whenever the display was asked for something, and every
/// few milliseconds. False when it does not hold in time.
bool WaitFor(const std::function<bool()>& condition,
    std::chrono::milliseconds timeout = std::chrono::seconds(20));

}  // namespace recording
