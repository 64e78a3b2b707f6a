#pragma once

#include <interface/Alert.h>
#include <memory>
#include <string>
#include <vector>

#include "kits/interface/AlertAnswer.h"
#include "kits/interface/AlertAsker.h"

namespace BPrivate {
class AlertTextView;
}

/// What is in an alert. Under the window's lock.
class BAlert::Content {
public:
    Content(BAlert& alert, const char* text, const std::vector<const char*>& labels,
        button_width width, button_spacing spacing, alert_type type);
    ~Content();

    BButton* ButtonAt(int32 index) const;
    int32 CountButtons() const { return static_cast<int32>(fButtons.size()); }
    const std::string& Text() const;

    void SetShortcut(int32 button, char key);
    char Shortcut(int32 button) const;
    /// -1 for none.
    int32 ButtonOfShortcut(char key) const;

    /// Gives all parts their frames, and the window its own. Waits for the display.
    void LayOut(const BPrivate::AlertAsker& asker);

    /// What the key means here; false when it means nothing.
    bool TakeKey(const BMessage& keyDown);
    /// Tells the answer to who waits for it.
    void Answer(int32 button);
    /// Answers and ends the alert.
    void Choose(int32 button);

    void SetInvoker(BInvoker* invoker) { fInvoker = invoker; }
    std::shared_ptr<BPrivate::AlertAnswer> SharedAnswer() const { return fAnswer; }

private:
    int32 FocusedButton() const;

    BAlert& fAlert;
    const button_width fWidth;
    const button_spacing fSpacing;
    BView* fBackground;  // the window's, as all views here
    BPrivate::AlertTextView* fText;
    std::vector<BButton*> fButtons;
    std::vector<char> fShortcuts;  // 0 for none
    BInvoker* fInvoker = nullptr;  // borrowed
    const std::shared_ptr<BPrivate::AlertAnswer> fAnswer;
};
