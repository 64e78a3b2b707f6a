#pragma once

#include <interface/Window.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "kits/interface/Display.h"
#include "kits/interface/FrameHold.h"
#include "kits/interface/KeyStroke.h"
#include "kits/interface/WindowInput.h"
#include "kits/interface/WindowSurface.h"

namespace BPrivate {

class ControlPeer;

/// What a BWindow is made of. Under the window's lock.
class WindowData {
public:
    /// A largest size no window reaches.
    static constexpr float kNoLimit = 32768;

    WindowData(BWindow& window, const WindowSpec& spec, window_type type);
    ~WindowData();
    /// The end: takes the window from the screen and deletes its views.
    void DeleteViews();

    BView& Top() { return surface.Top(); }
    /// The screen's side; null once the window ends.
    DisplayWindow* Screen() const { return fScreen.get(); }
    /// The frame of the screen it is on; invalid once the window ends.
    BRect ScreenFrame() const { return fScreen ? fScreen->ScreenFrame() : BRect(); }

    /// The view (null: none) gets the keys.
    void SetFocus(BView* view);
    /// The user gave the focus to the control of that id, or to the window's own content.
    void FocusTakenByUser(ControlId id);
    /// To the next navigable view, or the one before; false when there is none.
    bool MoveFocus(bool backward);
    /// Gives the focus, which no view has, to the first navigable view when the B_KEY_DOWN is Tab,
    /// to the last with Shift. False for other keys, and when there is none.
    bool TakeFocusBy(const BMessage& keyDown);
    /// The view, with those in it, is about to be detached.
    void ViewLeaves(const BView& view);

    void AddPeer(ControlPeer& peer, ControlId id);
    void RemovePeer(ControlId id);
    ControlPeer* PeerOf(ControlId id) const;

    /// Hands the control's state down when the message that is being handled is done.
    void HandDownSoon(ControlId id);
    /// The frame is another one. Within a message it is handed down when that is done: to move and
    /// to resize a window is one change on the screen.
    void FrameChanged();
    void HandDownChanges();

    struct Shortcut {
        KeyStroke stroke;
        std::unique_ptr<BMessage> message;
        BMessenger target;
    };
    void AddShortcut(
        uint32 key, uint32 modifiers, std::unique_ptr<BMessage> message, const BMessenger& target);
    /// Invokes the menu item, or posts the message, of the shortcut that a B_KEY_DOWN is; false
    /// when it is none.
    bool InvokeShortcut(const BMessage& keyDown);
    std::vector<Shortcut>::iterator FindShortcut(uint32 key, uint32 modifiers);

    /// A B_KEY_DOWN that nothing knew opens a menu of the key menu bar if it is meant to.
    void OpenMenuBy(const BMessage& keyDown);
    /// The screen opened the first menu, or closed the last one.
    void MenusAre(bool open);

    BWindow& window;
    WindowSpec spec;
    window_type type;
    WindowInput input;

    BRect frame;
    BRect reportedFrame;  // what the hooks were last told
    int32 frameSerial = 0;
    FrameHold hold;
    float minWidth = 0;
    float maxWidth = kNoLimit;
    float minHeight = 0;
    float maxHeight = kNoLimit;
    int32 hideLevel = 1;
    bool active = false;
    bool minimized = false;
    BView* focus = nullptr;
    BView* contentFocus = nullptr;  // of the views that draw themselves, the one last focused
    BButton* defaultButton = nullptr;
    BMenuBar* keyMenuBar = nullptr;
    std::vector<Shortcut> shortcuts;

    WindowSurface surface;

private:
    void HandDownFrame();

    std::unique_ptr<DisplayWindow> fScreen;
    std::map<ControlId, ControlPeer*> fPeers;
    std::vector<ControlId> fChanged;  // their states are to be handed down
    bool fMenusOpen = false;
    bool fFrameChanged = false;
};

}  // namespace BPrivate
