#include "tests/settings/PrefViewFixture.h"

#include <app/MessageQueue.h>
#include <interface/Control.h>
#include <interface/ListView.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/TextControl.h>

#include <filesystem>

#include "framework/MessageCodes.h"
#include "iap/IAPItemAccKeyFormat.h"
#include "iap/InterAppPrefs.h"
#include "kits/locale/Catalogue.h"

namespace {

constexpr uint32 kEcho = 'echo';
constexpr char kHints[] = "AccKeyFormat2";
constexpr char kFileName[] = "Lorivane_Prefs.arc";

std::string spelling(uint32 code) {
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        if (const auto character = static_cast<char>(code >> shift); character != '\0')
            text += character;
    }
    return text;
}

bool is_notice(uint32 code) {
    return code >> 24 == 'p';
}

}  // namespace

bool same_prefs(const TPrefs& a, const TPrefs& b) {
    bool same = a.fEnableComment == b.fEnableComment && a.fEnablePreload == b.fEnablePreload &&
        a.fCommentAlign == b.fCommentAlign && a.fCommentEncoding == b.fCommentEncoding &&
        a.fDisplayOption == b.fDisplayOption && a.fCommentFontSize == b.fCommentFontSize &&
        a.fCommentMargin == b.fCommentMargin && a.fCommentPadding == b.fCommentPadding &&
        a.fCommentFontFamily.Get() == b.fCommentFontFamily.Get() &&
        a.fCommentFileExts.Get() == b.fCommentFileExts.Get();
    for (int32 i = 0; i < kPrefColorCount; i++)
        same = same && a.fColors[i].Get() == b.fColors[i].Get();
    return same;
}

PrefViewFixture::PrefViewFixture() : fApp("application/x-vnd.ZELKAN-Test") {
    gPrefs = TPrefs();
    gPrefs.fCommentFontFamily = std::string("Serif");  // one that the display has
    // Takes the place of the one of the test before.
    (void)gIAPs.AddItem(new TIAPItemAccKeyFormat);
    (void)gIAPs.SetString(kHints, "");
}

PrefViewFixture::~PrefViewFixture() {
    Close();
    gPrefs = TPrefs();
    recording::TheRecordingDisplay().SetFontFamilies({"Sans", "Serif"});
    BPrivate::set_catalogue(BPrivate::catalogue_of("en"));
}

void PrefViewFixture::Open() {
    fWindow = new TPrefsWindow(BRect(100, 120, 500, 420));
    ASSERT_EQ(fWindow->InitCheck(), B_OK);
    fWindow->SetTarget(BMessenger(&fApp));
    fScreen = recording::TheRecordingDisplay().Windows().back();
    fWindow->Appear();
    Settle();
}

void PrefViewFixture::Reopen() {
    with_lock(fWindow, [&] { fWindow->Appear(); });
    Settle();
}

void PrefViewFixture::Close() {
    if (fWindow != nullptr && fWindow->Lock())
        fWindow->Quit();
    fWindow = nullptr;
}

// A message that nobody knows is answered when all before it is done. The first comes behind what
// the user did, the second behind what the controls sent then, and so on for what the window
// passes on.
void PrefViewFixture::Settle() {
    for (int i = 0; i < 3; i++) {
        BMessage reply;
        ASSERT_EQ(BMessenger(fWindow).SendMessage(kEcho, &reply), B_OK);
    }
}

void PrefViewFixture::SetHints(const std::string& format) {
    (void)gIAPs.SetString(kHints, format);
    BMessage change(kMsgSharedItemChanged);
    (void)change.AddString(kFieldSharedItem, kHints);
    Tell(change);
}

void PrefViewFixture::SetLanguage(const std::string& language) {
    BPrivate::set_catalogue(BPrivate::catalogue_of(language));
    Tell(BMessage(kMsgLanguageChanged));
}

bool PrefViewFixture::IsEnabled(const char* name) {
    BView* view = Find<BView>(name);
    return with_lock(fWindow, [&] {
        if (const auto* field = dynamic_cast<BMenuField*>(view))
            return field->IsEnabled();
        if (const auto* list = dynamic_cast<BListView*>(view))
            return list->IsEnabled();
        return dynamic_cast<BControl&>(*view).IsEnabled();
    });
}

std::string PrefViewFixture::TextOf(const char* name) {
    return Of<BTextControl>(name, [](auto& control) { return std::string(control.Text()); });
}

std::string PrefViewFixture::ChoiceOf(const char* name) {
    return Of<BMenuField>(name, [](auto& field) {
        const BMenuItem* item = field.MenuItem();
        return std::string(item != nullptr ? item->Label() : "");
    });
}

PrefViewFixture::Texts PrefViewFixture::Rows() {
    return Of<BListView>("LViewCommentFileExts", [](auto& list) {
        Texts rows;
        for (int32 i = 0; const BListItem* item = list.ItemAt(i); i++)
            rows.push_back(item->RowText());
        return rows;
    });
}

void PrefViewFixture::Change(const std::string& name, BMessage change) {
    const auto control = fScreen->FindControl(name);
    ASSERT_TRUE(control) << name;
    ASSERT_TRUE(control->place.enabled) << name;
    change.what = BPrivate::kControlChanged;
    (void)change.AddInt32("control", control->id);
    (void)change.AddInt32("serial", control->serial);
    fScreen->Send(change);
    Settle();
}

void PrefViewFixture::ShowTab(int32 index) {
    BMessage change;
    (void)change.AddInt32("value", index);
    Change("TabViewPref", change);
}

void PrefViewFixture::Click(const std::string& control, int32 value) {
    BMessage change;
    (void)change.AddInt32("value", value);
    Change(control, change);
}

void PrefViewFixture::Type(const std::string& control, const std::string& text) {
    BMessage change;
    (void)change.AddString("text", text.c_str());
    Change(control, change);
}

void PrefViewFixture::Choose(const std::string& name, const std::string& item) {
    const auto control = fScreen->FindControl(name);
    ASSERT_TRUE(control) << name;
    ASSERT_TRUE(control->place.enabled) << name;
    ASSERT_TRUE(fScreen->ChooseItem(control->id, {item})) << item;
    Settle();
}

void PrefViewFixture::SelectRow(int32 row) {
    BMessage change;
    if (row >= 0)
        (void)change.AddInt32("selected", row);
    Change("LViewCommentFileExts", change);
}

void PrefViewFixture::SetSlider(int32 value, bool final) {
    BMessage change;
    (void)change.AddInt32("value", value);
    (void)change.AddBool("final", final);
    Change("Opacity", change);
}

void PrefViewFixture::SetColor(uint8 red, uint8 green, uint8 blue) {
    BMessage change;
    (void)change.AddInt32("color", red << 16 | green << 8 | blue);
    Change("ColCtrlCol", change);
}

void PrefViewFixture::Press(char rawChar, uint32 modifiers, int32 key) {
    fScreen->PressKey(rawChar, modifiers, key);
    Settle();
}

void PrefViewFixture::Tell(BMessage message) {
    (void)BMessenger(fWindow).SendMessage(&message);
    Settle();
}

void PrefViewFixture::TellView(BMessage message) {
    (void)BMessenger(Find<BView>("PrefsView")).SendMessage(&message);
    Settle();
}

PrefViewFixture::Texts PrefViewFixture::Notices() {
    Texts notices;
    while (const std::unique_ptr<BMessage> message{fApp.MessageQueue()->NextMessage()}) {
        void* sender = nullptr;
        const bool isOwn = message->FindPointer(kFieldSender, &sender) == B_OK &&
            sender == with_lock(fWindow, [&] { return fWindow->ChildAt(0); });
        notices.push_back(
            spelling(message->what) + (is_notice(message->what) && !isOwn ? "?" : ""));
    }
    return notices;
}

PrefViewFixture::Texts PrefViewFixture::NoticesOfTyping(
    const std::string& control, const std::string& text) {
    (void)Notices();
    Type(control, text);
    return Notices();
}

TPrefs PrefViewFixture::Saved() const {
    TPrefs saved;
    (void)saved.LoadFromFile();
    return saved;
}

bool PrefViewFixture::IsSaved() const {
    return std::filesystem::exists(fHome.File(kFileName));
}
