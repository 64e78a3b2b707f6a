#include "kits/interface/AlertContent.h"

#include <algorithm>
#include <app/Invoker.h>
#include <app/Message.h>
#include <interface/Button.h>
#include <interface/InterfaceDefs.h>
#include <interface/View.h>

#include "kits/interface/AlertLayout.h"
#include "kits/interface/AlertMessages.h"
#include "kits/interface/AlertText.h"

using namespace BPrivate;

namespace {

constexpr float kBesides = 16;    // at least both borders
constexpr float kHighest = 0.7F;  // of the screen

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The characters a key press may be meant as: the key's own, and the one the modifiers make it.
std::string CharactersOf(const BMessage& keyDown) {
    std::string characters;
    const int32 raw = keyDown.GetInt32("raw_char", 0);
    if (raw > 0 && raw < 128)
        characters += static_cast<char>(raw);
    const std::string bytes = keyDown.GetString("bytes", "");
    if (bytes.size() == 1)
        characters += bytes;
    return characters;
}

}  // namespace

BAlert::Content::Content(BAlert& alert, const char* text, const std::vector<const char*>& labels,
    button_width width, button_spacing spacing, alert_type type)
    : fAlert(alert), fWidth(width), fSpacing(spacing),
      fBackground(new BView(alert.Bounds(), "background", B_FOLLOW_ALL, B_WILL_DRAW)),
      fText(new AlertTextView(text, type)), fAnswer(std::make_shared<AlertAnswer>()) {
    fBackground->SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    fAlert.AddChild(fBackground);
    fBackground->AddChild(fText);
    for (const char* label : labels) {
        if (label == nullptr)
            break;
        auto* message = new BMessage(kAlertButton);
        (void)message->AddInt32("which", CountButtons());
        const std::string name = "button" + std::to_string(CountButtons());
        auto* button = new BButton(BRect(0, 0, 0, 0), name.c_str(), label, message);
        fBackground->AddChild(button);
        fButtons.push_back(button);
        fShortcuts.push_back(0);
    }
    fAlert.SetDefaultButton(fButtons.back());
    fButtons.back()->MakeFocus(true);
}

BAlert::Content::~Content() {
    fAnswer->Close();
}

BButton* BAlert::Content::ButtonAt(int32 index) const {
    return index >= 0 && index < CountButtons() ? fButtons[static_cast<std::size_t>(index)]
                                                : nullptr;
}

const std::string& BAlert::Content::Text() const {
    return fText->Text();
}

void BAlert::Content::SetShortcut(int32 button, char key) {
    if (ButtonAt(button) != nullptr)
        fShortcuts[static_cast<std::size_t>(button)] = key;
}

char BAlert::Content::Shortcut(int32 button) const {
    return ButtonAt(button) != nullptr ? fShortcuts[static_cast<std::size_t>(button)] : '\0';
}

int32 BAlert::Content::ButtonOfShortcut(char key) const {
    const auto found = std::ranges::find(fShortcuts, Lower(key), Lower);
    return key != 0 && found != fShortcuts.end() ? static_cast<int32>(found - fShortcuts.begin())
                                                 : AlertAnswer::kNone;
}

void BAlert::Content::LayOut(const AlertAsker& asker) {
    const BRect screen = asker.Screen();
    AlertParts parts;
    fText->GetPreferredSize(&parts.text.x, &parts.text.y);
    for (BButton* button : fButtons) {
        BPoint& size = parts.buttons.emplace_back();
        button->GetPreferredSize(&size.x, &size.y);
    }
    parts.width = fWidth;
    parts.spacing = fSpacing;
    // Even the longest text leaves something of what it is about to be seen.
    parts.largest = {screen.Width() - kBesides, screen.Height() * kHighest};

    const AlertLayout layout = LayOutAlert(parts);
    const BPoint place = PlaceOfAlert(layout.size, asker.Place(), screen);
    fAlert.MoveTo(place);
    fAlert.ResizeTo(layout.size.x, layout.size.y);
    const auto give = [](BView& view, BRect frame) {
        view.MoveTo(frame.LeftTop());
        view.ResizeTo(frame.Width(), frame.Height());
    };
    give(*fText, layout.text);
    for (std::size_t i = 0; i < fButtons.size(); i++)
        give(*fButtons[i], layout.buttons[i]);
    // Reached by keys only where there is something to be scrolled.
    fText->SetFlags(layout.textIsCut ? uint32{B_NAVIGABLE} : 0);
}

bool BAlert::Content::TakeKey(const BMessage& keyDown) {
    // Whoever selects or copies the text has not agreed to what a button's letter stands for.
    if ((keyDown.GetInt32("modifiers", 0) & B_COMMAND_KEY) != 0)
        return false;
    // A key that was held when the alert appeared is no answer.
    const bool repeats = keyDown.HasInt32("be:key_repeat");
    const std::string characters = CharactersOf(keyDown);
    for (const char c : characters) {
        const int32 button = ButtonOfShortcut(c);
        if (button == AlertAnswer::kNone)
            continue;
        if (!repeats)
            Choose(button);
        return true;
    }
    if (characters.empty())
        return false;

    const int32 focused = FocusedButton();
    switch (characters.front()) {
    case B_ENTER: {
        const auto standing = std::ranges::find(fButtons, fAlert.DefaultButton());
        const int32 button = focused != AlertAnswer::kNone
            ? focused
            : static_cast<int32>(standing - fButtons.begin());
        if (!repeats && ButtonAt(button) != nullptr)
            Choose(button);
        return true;
    }
    case B_LEFT_ARROW:
    case B_UP_ARROW:
    case B_RIGHT_ARROW:
    case B_DOWN_ARROW: {
        if (focused == AlertAnswer::kNone)
            return false;
        const bool back = characters.front() == B_LEFT_ARROW || characters.front() == B_UP_ARROW;
        if (BButton* next = ButtonAt(focused + (back ? -1 : 1)); next != nullptr)
            next->MakeFocus(true);
        return true;
    }
    default: return false;
    }
}

int32 BAlert::Content::FocusedButton() const {
    // Compared as views: the focus may be on something else.
    const BView* focus = fAlert.CurrentFocus();
    const auto found =
        std::ranges::find_if(fButtons, [focus](const BButton* button) { return button == focus; });
    return found != fButtons.end() ? static_cast<int32>(found - fButtons.begin())
                                   : AlertAnswer::kNone;
}

void BAlert::Content::Answer(int32 button) {
    if (fAnswer->Button() != AlertAnswer::kNone)
        return;
    fAnswer->Give(button);
    if (fInvoker == nullptr)
        return;
    BMessage message(fInvoker->Command());
    if (fInvoker->Message() != nullptr)
        message = *fInvoker->Message();
    (void)message.RemoveName("which");
    (void)message.AddInt32("which", button);
    (void)fInvoker->Invoke(&message);
}

void BAlert::Content::Choose(int32 button) {
    Answer(button);
    fAlert.Quit();
}
