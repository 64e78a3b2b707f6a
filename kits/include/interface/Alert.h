#pragma once

#include <interface/InterfaceDefs.h>
#include <interface/Window.h>
#include <memory>
#include <string>
#include <vector>

class BButton;
class BInvoker;
class BTextView;

/// What the alert is about: which picture it shows, and which sound the desktop plays.
enum alert_type {
    B_EMPTY_ALERT = 0,
    B_INFO_ALERT,
    B_IDEA_ALERT,
    B_WARNING_ALERT,
    B_STOP_ALERT,
};

enum button_spacing {
    B_EVEN_SPACING = 0,
    B_OFFSET_SPACING,
};

/// A window with a message and up to three buttons. Its last button is the default one.
///
///     auto* alert = new BAlert("Title", "Really?", "No", "Yes");
///     alert->SetShortcut(0, B_ESCAPE);
///     const int32 button = alert->Go();
///
/// Lifetime. Made with `new`; Go() ends it. Modal to the thread that calls Go(): every other
/// window goes on.
class BAlert : public BWindow {
public:
    /// A null button ends the list; without any there is one labelled "OK".
    BAlert(const char* title, const char* text, const char* button0, const char* button1 = nullptr,
        const char* button2 = nullptr, button_width width = B_WIDTH_AS_USUAL,
        alert_type type = B_INFO_ALERT);
    BAlert(const char* title, const char* text, const char* button0, const char* button1,
        const char* button2, button_width width, button_spacing spacing,
        alert_type type = B_INFO_ALERT);
    ~BAlert() override;

    /// Lets the key press the button while the alert is open, whatever modifiers are held; 0 takes
    /// it away. Letters match in either case.
    void SetShortcut(int32 button, char key);
    /// 0 for none.
    char Shortcut(int32 button) const;

    /// Null when there is none of that index. Borrowed.
    BButton* ButtonAt(int32 index) const;
    int32 CountButtons() const;
    const char* Text() const;

    /// Shows the alert and waits for the answer, the index of a button. -1 when the alert was
    /// quit without one.
    int32 Go();
    /// Shows the alert and returns at once. The invoker, which may be null and stays the caller's,
    /// is invoked with the button's index in "which" of a copy of its message.
    status_t Go(BInvoker* invoker);

    /// The close box stands for the button whose shortcut is Escape, when there is one.
    bool QuitRequested() override;
    void MessageReceived(BMessage* message) override;
    void DispatchMessage(BMessage* message, BHandler* handler) override;

private:
    class Content;

    std::unique_ptr<Content> fContent;
};
