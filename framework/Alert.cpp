#include "framework/Alert.h"

#include "framework/Accelerator.h"
#include "framework/HintedLabels.h"
#include "framework/LocalText.h"

#include <app/AppDefs.h>
#include <app/Message.h>
#include <app/MessageFilter.h>
#include <interface/Button.h>
#include <interface/InterfaceDefs.h>
#include <string>

namespace {

bool is_letter(char character, char letter) {
    if (character >= 'A' && character <= 'Z')
        character = static_cast<char>(character - 'A' + 'a');
    return character == letter;
}

/// Lets a letter press the button as well. An alert has one shortcut for each button, and that of
/// this one is Escape.
class TLetterFilter : public BMessageFilter {
public:
    /// @param button of the window the filter is added to
    TLetterFilter(BButton* button, char letter)
        : BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE, B_KEY_DOWN), fButton(button),
          fLetter(letter) {}

    filter_result Filter(BMessage* message, BHandler** /*target*/) override {
        if (!IsMeant(*message))
            return B_DISPATCH_MESSAGE;
        // A key that was held when the alert appeared is no answer.
        if (!message->HasInt32("be:key_repeat"))
            (void)fButton->Invoke();
        return B_SKIP_MESSAGE;
    }

private:
    /// As with the alert's own shortcuts: by the key itself or by what the modifiers make of it,
    /// whichever are held but Command.
    bool IsMeant(const BMessage& keyDown) const {
        int32 modifiers = 0;
        if (keyDown.FindInt32("modifiers", &modifiers) == B_OK && (modifiers & B_COMMAND_KEY) != 0)
            return false;
        int32 rawChar = 0;
        if (keyDown.FindInt32("raw_char", &rawChar) == B_OK && rawChar > 0 && rawChar < 128 &&
            is_letter(static_cast<char>(rawChar), fLetter))
            return true;
        const char* bytes = nullptr;
        return keyDown.FindString("bytes", &bytes) == B_OK && bytes[0] != '\0' &&
            bytes[1] == '\0' && is_letter(bytes[0], fLetter);
    }

    BButton* const fButton;  // goes with the window, as this does
    const char fLetter;
};

/// The button that changes nothing: Escape stands for it, and so does Enter.
void set_harmless(BAlert* alert, int32 index, const char* label) {
    alert->SetShortcut(index, B_ESCAPE);
    BButton* button = alert->ButtonAt(index);
    alert->SetDefaultButton(button);
    button->MakeFocus(true);
    if (const char letter = short_cut_from_label(label); letter != 0)
        alert->AddCommonFilter(new TLetterFilter(button, letter));
}

std::string message_of(const char* text, const char* hint) {
    return std::string(text != nullptr ? text : "") + "\n\n" + (hint != nullptr ? hint : "");
}

}  // namespace

int32 show_alert(const char* text, const char* hint, const char* button0, const char* button1,
    const char* button2, int32 escapeIndex, alert_type type) {
    auto* alert = new BAlert(local_text_with_app("* %AppName% *").c_str(),
        message_of(text, hint).c_str(), button0, button1, button2, B_WIDTH_AS_USUAL, type);
    const char* const labels[] = {button0, button1, button2};
    for (int32 i = 0; i < alert->CountButtons(); i++) {
        const char* label = labels[i] != nullptr ? labels[i] : "";
        if (i == escapeIndex)
            set_harmless(alert, i, label);
        else
            alert->SetShortcut(i, short_cut_from_label(label));
    }
    const int32 count = alert->CountButtons();
    const int32 button = alert->Go();  // the alert is gone
    if (button < 0 && escapeIndex >= 0 && escapeIndex < count)
        return escapeIndex;
    return button;
}

void show_error(const char* text, const char* hint) {
    const THintedLabels labels;
    const std::string label = labels("Understand", "U");
    (void)show_alert(text, hint, label.c_str(), nullptr, nullptr, 0, B_WARNING_ALERT);
}
