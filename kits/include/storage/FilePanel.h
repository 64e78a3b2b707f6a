#pragma once

#include <app/Messenger.h>
#include <memory>
#include <storage/Entry.h>
#include <support/SupportDefs.h>

class BDirectory;
class BEntry;
class BMessage;
class BNode;
class BWindow;

/// What can be chosen in a panel.
enum node_flavor : uint32 {
    B_FILE_NODE = 1,
    B_SYMLINK_NODE = 2,
    B_DIRECTORY_NODE = 4,
    B_ANY_NODE = 7,
};

/// What a panel is for.
enum file_panel_mode {
    B_OPEN_PANEL = 0,
};

/// Which button of a panel is meant.
enum file_panel_button {
    B_CANCEL_BUTTON = 0,
    B_DEFAULT_BUTTON = 1,
};

/// Says what may be chosen in a panel besides its flavours. Called on the panel's window's thread.
class BRefFilter {
public:
    virtual ~BRefFilter() = default;

    /// False: the entry cannot be chosen. `mimeType` is always empty: types are not looked up.
    virtual bool Filter(
        const entry_ref* ref, BNode* node, struct stat* st, const char* mimeType) = 0;
};

/// A window in which the user chooses files. It is made hidden, and can be shown again and again;
/// it comes back with the folder, size and place it was left with.
///
/// What is chosen is sent to the target: a copy of the message (B_REFS_RECEIVED without one) with
/// "refs". Giving up (the button, Escape, the close box) hides the panel and sends it B_CANCEL,
/// with "source" pointer (the panel) and "old_what" int32 (the code of the message).
///
/// Threads. Every function may be called from any thread. The hooks run on the window's.
///
/// Lifetime. The user never ends a panel. Quitting the application closes its window; the object
/// is the owner's to delete all the same, and does nothing from then on.
class BFilePanel {
public:
    /// @param target who is told; null for the application. Copied.
    /// @param start the folder shown first; null for the working folder. Copied.
    /// @param flavors what can be chosen, node_flavor; 0 for files. Choosing a folder does not
    ///     go into it where folders can be chosen; opening one with a double click always does.
    /// @param message copied.
    /// @param filter borrowed; must outlive the panel. Null for none.
    /// @param modal stays above all windows of the application.
    /// @param hideWhenDone whether the panel goes when something was chosen.
    explicit BFilePanel(file_panel_mode mode = B_OPEN_PANEL, BMessenger* target = nullptr,
        const entry_ref* start = nullptr, uint32 flavors = 0, bool multiple = true,
        BMessage* message = nullptr, BRefFilter* filter = nullptr, bool modal = false,
        bool hideWhenDone = true);
    virtual ~BFilePanel();

    BFilePanel(const BFilePanel&) = delete;
    BFilePanel& operator=(const BFilePanel&) = delete;

    /// Shows the panel, or brings it to the front.
    void Show();
    void Hide();
    bool IsShowing() const;

    /// The user hid the panel.
    virtual void WasHidden();
    /// Sends what was chosen, or that nothing was.
    virtual void SendMessage(const BMessenger* target, BMessage* message);

    /// Null once the application has closed it. Only for use under its lock.
    BWindow* Window() const;
    BMessenger Target() const;
    file_panel_mode PanelMode() const;

    void SetTarget(BMessenger target);
    /// Copied; null for B_REFS_RECEIVED.
    void SetMessage(BMessage* message);
    /// Borrowed; must outlive the panel. Null for none.
    void SetRefFilter(BRefFilter* filter);
    /// Shows that folder; one that is none is ignored.
    void SetPanelDirectory(const BEntry* folder);
    void SetPanelDirectory(const BDirectory* folder);
    void SetPanelDirectory(const entry_ref* folder);
    void SetPanelDirectory(const char* folder);
    /// The folder that is shown; before the panel was shown, the one it will start in.
    void GetPanelDirectory(entry_ref* folder) const;
    /// Null or "" for the desktop's own label.
    void SetButtonLabel(file_panel_button button, const char* label);
    void SetHideWhenDone(bool hideWhenDone);
    bool HidesWhenDone() const;

private:
    class PanelWindow;

    BMessenger fWindow;
    const file_panel_mode fMode;
};
