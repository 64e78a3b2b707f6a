#pragma once

#include "framework/DialogWindow.h"

class TImage;
class TPropertyView;

/// The image information: tells of one image, as it is when the window is made, until it is
/// closed. There may be several. Its content is built from the layout among the application's
/// resources.
///
/// Ends itself, its object included, when the user closes it or presses OK, and with the
/// application. Like any window, one that was never shown is quit by who made it.
class TPropertyWindow final : public TDialogWindow {
public:
    /// A hidden window; its size is that of its content, whatever the frame says.
    /// @param image is only read here
    TPropertyWindow(BRect frame, const TImage* image);

    /// `B_OK`; `B_NO_INIT` when the layout is missing or broken: then the window is empty and not
    /// to be shown. Any thread.
    status_t InitCheck() const { return fInitStatus; }

    /// Always true: a close by the user ends the window.
    bool QuitRequested() override;
    void LanguageChanged() override;

private:
    void BuildView(const TImage* image);
    void SetWindowTitle();

    status_t fInitStatus;
    TPropertyView* fView;  // owned by the window; null without a layout
};
