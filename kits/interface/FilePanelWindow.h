#pragma once

#include <app/AppDefs.h>
#include <app/Message.h>
#include <interface/Window.h>
#include <storage/FilePanel.h>

#include "kits/interface/FilePanelView.h"

namespace BPrivate {
class AlertAsker;
}

/// The window of a panel. It tells the panel what the user did. What the panel is set to is kept
/// here, under the window's lock.
class BFilePanel::PanelWindow : public BWindow {
public:
    PanelWindow(BFilePanel& panel, const BPrivate::FilePanelState& state, bool modal);

    BPrivate::FilePanelView& View() { return *fView; }
    /// Shows the window at the place it was left at, the first time over who asks; or brings it to
    /// the front. Waits for the display.
    void Appear(const BPrivate::AlertAsker& asker);

    /// True when the application quits; a panel the user closes hides and stays.
    bool QuitRequested() override;

    BMessenger target;
    BMessage message{B_REFS_RECEIVED};
    BRefFilter* filter = nullptr;  // borrowed
    bool hidesWhenDone = true;

private:
    void Chosen(const BMessage& refs);
    void Cancelled();
    void HideForUser();
    bool IsAdmitted(const entry_ref& ref) const;

    BFilePanel& fPanel;
    BPrivate::FilePanelView* const fView;  // the window's
    bool fWasPlaced = false;
};
