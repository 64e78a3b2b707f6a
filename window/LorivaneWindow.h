#pragma once

#include <array>

#include "framework/BasicWindow.h"
#include "settings/DisplayOption.h"
#include "window/MRUF.h"

class BMenu;
class BMenuBar;
class BMenuItem;
class TImage;
class TLorivaneView;

/// The application's one document window: the menu bar and, below it, the viewer view, to which it
/// relays what concerns it. Closing it quits the application.
class TLorivaneWindow : public TBasicWindow {
public:
    /// @param frame screen coordinates; brought onto the screen where it cannot be used as it is.
    explicit TLorivaneWindow(BRect frame);

    /// Relays to the view what is addressed to the window and meant for the view.
    void DispatchMessage(BMessage* message, BHandler* handler) override;
    void MessageReceived(BMessage* message) override;
    void ScreenChanged(BRect frame, color_space space) override;
    /// Asks the application to quit, too.
    bool QuitRequested() override;
    /// Remembers the frame for the next run; of a window in full screen, the one from before.
    void Quit() override;

    /// Builds the menus anew.
    void LanguageChanged() override;
    /// A shared preference has another value. Builds the menus anew when their labels show it.
    void IAPChanged(BMessage* message);

    // The marks of the menus follow the preferences.
    void PrefDisplayOptionChanged();
    void PrefEnableCommentChanged();
    void UpdateDisplayOptionCompos();
    void UpdateEnableCommentCompos();

    // The files that were opened before, in the "Open..." menu.

    /// Puts the list into the menu and saves it.
    void GenerateMenuMRUF();
    /// The entry of "refs" was opened, or is to be forgotten.
    void AddHistoryRqtd(BMessage* message);
    void RemoveHistoryRqtd(BMessage* message);
    /// Asks, and waits for the answer.
    void MItemDelAllMRUFClicked();

    /// Widens the menu bar to the window.
    void RefsReceived();

    /// The image shown; null when there is none. Borrowed, for as long as the window is locked.
    TImage* CurrentImage() const;

private:
    void InitHistory();
    void CreateMenu();
    void DestroyMenu();

    BRect UsableFrame(BRect wanted, BRect screen) const;
    void NoteForView(uint32 what);

    // The window owns its views, and the menu bar the menus.
    BMenu* fOpenMenu = nullptr;
    BMenuBar* fMenuBar;
    TLorivaneView* fView;
    std::array<BMenuItem*, kDisplayOptionCount> fDisplayOptionItems{};
    BMenuItem* fEnableCommentItem = nullptr;
    std::string fMenuFormat;  // of the hints that the menus have
    TMRUF fHistory;
};
