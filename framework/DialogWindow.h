#pragma once

#include "framework/BasicWindow.h"

#include <app/Message.h>
#include <app/Messenger.h>
#include <memory>

/// Base of every dialog window. It has a target and a message as a control has, runs at a raised
/// priority while it is shown, and hands the keys that may be shortcuts to its first child.
class TDialogWindow : public TBasicWindow {
public:
    TDialogWindow(BRect frame, const char* title, window_type type, uint32 flags,
        uint32 workspaces = B_CURRENT_WORKSPACE);
    TDialogWindow(BRect frame, const char* title, window_look look, window_feel feel, uint32 flags,
        uint32 workspaces = B_CURRENT_WORKSPACE);

    /// No view has the keyboard then when the window was hidden.
    void Show() override;
    void Hide() override;
    void MessageReceived(BMessage* message) override;

    /// A key press that may be a shortcut.
    virtual void KeyDown(BMessage* message);

    BMessenger Target() const;
    void SetTarget(const BMessenger& target);
    /// The stored message; null when there is none.
    BMessage* Message() const;
    /// Takes ownership of the message; null is allowed.
    void SetMessage(BMessage* message);
    /// Sends a copy of the message, or of the stored one when null, to the target.
    /// @return `B_BAD_VALUE` when there is neither, else the status of sending.
    status_t Invoke(BMessage* message = nullptr);

private:
    void Init();
    void ForgetFocus();

    BMessenger fTarget;
    std::unique_ptr<BMessage> fMessage;
};
