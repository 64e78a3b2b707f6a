#pragma once

#include "framework/DialogWindow.h"

class TPrefView;

/// The preferences dialog: edits the preferences in force while they are used, and tells of every
/// change by a notice to its target (TDialogWindow::SetTarget()), which must be set before the
/// dialog is shown. It hides when it is closed and lives as long as the application.
///
/// Its content is built from the layout among the application's resources.
class TPrefsWindow final : public TDialogWindow {
public:
    /// A hidden window; its size is that of its content, whatever the frame says.
    explicit TPrefsWindow(BRect frame);

    /// `B_OK`; `B_NO_INIT` when the layout is missing or broken: then the window is empty and not
    /// to be shown. Any thread.
    status_t InitCheck() const { return fInitStatus; }

    void MessageReceived(BMessage* message) override;
    /// A close by the user is the Cancel button.
    bool QuitRequested() override;
    void LanguageChanged() override;

private:
    void BuildView();
    void SetWinTitle();

    status_t fInitStatus;
    TPrefView* fView;  // owned by the window; null without a layout
};
