#include "examples/BarWindow.h"

#include "framework/Accelerator.h"
#include "framework/Adjust.h"
#include "framework/LocalText.h"
#include "framework/MessageCodes.h"
#include "iap/InterAppPrefs.h"
#include "iap/ItemNames.h"

#include <algorithm>
#include <app/AppDefs.h>
#include <app/Application.h>
#include <cctype>
#include <interface/Button.h>
#include <interface/MenuBar.h>
#include <interface/MenuItem.h>
#include <interface/TextControl.h>
#include <locale/Locale.h>
#include <string>

namespace {

constexpr uint32 kMsgUpperCase = 'uppr';
constexpr uint32 kMsgLowerCase = 'lowr';
constexpr uint32 kMsgCapitals = 'capt';

// Each with its letter and the key of its label in one, as the names of relabelled controls.
constexpr struct {
    const char* name;
    uint32 command;
} kCommands[] = {
    {"UUpper Case", kMsgUpperCase},
    {"LLower Case", kMsgLowerCase},
    {"CCapitals", kMsgCapitals},
};

constexpr float kMargin = 8;
constexpr float kButtonHeight = 24;
constexpr float kTextHeight = 26;

/// Plain letters only: what else there is stays.
char cased(char letter, bool upper) {
    const auto code = static_cast<unsigned char>(letter);
    return static_cast<char>(upper ? std::toupper(code) : std::tolower(code));
}

std::string changed(std::string text, uint32 command) {
    bool first = true;
    for (char& letter : text) {
        letter = cased(letter, command == kMsgUpperCase || (command == kMsgCapitals && first));
        first = letter == ' ';
    }
    return text;
}

}  // namespace

TBarWindow::TBarWindow(BRect frame, const TInterAppPrefs& prefs)
    : TBasicWindow(frame, "Labelled Bar", B_TITLED_WINDOW, B_NOT_RESIZABLE | B_NOT_ZOOMABLE),
      fPrefs(prefs) {
    fMenuBar = new BMenuBar(BRect(0, 0, frame.Width(), 20), "MenuBar");
    AddChild(fMenuBar);
    SetKeyMenuBar(fMenuBar);
    const float top = fMenuBar->Frame().bottom + 1;
    auto* content = new BView(
        BRect(0, top, frame.Width(), frame.Height()), "Content", B_FOLLOW_ALL, B_WILL_DRAW);
    content->SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    AddChild(content);
    for (const auto& command : kCommands) {
        fButtons.push_back(new BButton(
            BRect(0, 0, 0, kButtonHeight), command.name, "", new BMessage(command.command)));
        content->AddChild(fButtons.back());
    }
    fText = new BTextControl(BRect(kMargin, 0, frame.Width() - kMargin, kTextHeight), "Text", "",
        "the quick brown fox", nullptr, B_FOLLOW_LEFT | B_FOLLOW_TOP);
    fText->SetDivider(0);
    content->AddChild(fText);
    CreateMenu();
    SetLabels();
}

void TBarWindow::MessageReceived(BMessage* message) {
    switch (message->what) {
    case kMsgUpperCase:
    case kMsgLowerCase:
    case kMsgCapitals: ChangeText(message->what); break;
    case kMsgSharedItemChanged: LanguageChanged(); break;
    default: TBasicWindow::MessageReceived(message);
    }
}

bool TBarWindow::QuitRequested() {
    (void)be_app->PostMessage(B_QUIT_REQUESTED);
    return false;
}

void TBarWindow::LanguageChanged() {
    CreateMenu();
    SetLabels();
}

void TBarWindow::CreateMenu() {
    std::string format;
    (void)fPrefs.GetString(kAccKeyFormatItem, &format);
    const auto label = [&format](const std::string& name) {
        const TNamedLabel named = named_label(name);
        return merge_accelerator_key(
            format, named.shortcut, be_locale->GetString(named.key.c_str()));
    };
    fMenuBar->RemoveItems(0, fMenuBar->CountItems(), true);
    auto* file = new BMenu(label("FFile").c_str());
    file->AddItem(new BMenuItem(
        label("SZELKAN Common Preferences...").c_str(), new BMessage(kMsgShowSharedPrefs)));
    file->AddSeparatorItem();
    file->AddItem(new BMenuItem(label("QQuit").c_str(), new BMessage(B_QUIT_REQUESTED)));
    (void)file->SetTargetForItems(be_app);
    fMenuBar->AddItem(file);
    auto* text = new BMenu(label("TText").c_str());
    for (const auto& command : kCommands)
        text->AddItem(new BMenuItem(label(command.name).c_str(), new BMessage(command.command)));
    fMenuBar->AddItem(text);
    for (BButton* button : fButtons)
        button->SetLabel(label(button->Name()).c_str());
}

void TBarWindow::SetLabels() {
    bool flat = true;
    (void)fPrefs.GetBool(kFlatToolBarItem, &flat);
    float right = 0;
    for (BButton* button : fButtons) {
        button->SetFlat(flat);
        adjust_button_width(button);
        button->MoveTo(right + kMargin, kMargin);
        right = button->Frame().right;
    }
    fText->MoveTo(kMargin, kMargin + kButtonHeight + kMargin);
    fText->ResizeTo(std::max(right - kMargin, Bounds().Width() - 2 * kMargin), kTextHeight);
    ResizeTo(std::max(right + kMargin, Bounds().Width()),
        fText->ConvertToParent(fText->Bounds()).bottom + kMargin + fText->Parent()->Frame().top);
}

void TBarWindow::ChangeText(uint32 command) {
    fText->SetText(changed(fText->Text(), command).c_str());
}
