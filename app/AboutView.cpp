#include "app/AboutView.h"

#include "app/AppInfoView.h"
#include "framework/Accelerator.h"
#include "framework/LanguageChangedFilter.h"
#include "framework/MessageCodes.h"
#include "framework/WaitingMessages.h"
#include "iap/InterAppPrefs.h"

#include <algorithm>
#include <app/Message.h>
#include <app/Messenger.h>
#include <cmath>
#include <interface/Button.h>
#include <interface/InterfaceDefs.h>
#include <interface/Window.h>
#include <locale/Locale.h>

namespace {

constexpr float kMargin = 16.0F;
constexpr float kButtonWidth = 80.0F;
constexpr float kLeastContentWidth = 248.0F;  // so that the title has room beside the buttons

}  // namespace

TZELKANAboutView::TZELKANAboutView(BRect frame)
    : TDialogView(frame, "AboutView", B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW) {
    SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
}

void TZELKANAboutView::MessageReceived(BMessage* message) {
    switch (message->what) {
    case kMsgOK:
    case kMsgCancel: ButtonOKClicked(); break;
    case kMsgSharedItemChanged: IAPChanged(*message); break;
    default: TDialogView::MessageReceived(message); break;
    }
}

void TZELKANAboutView::SetAppInfo(const std::string& /*name*/, const std::string& /*version*/,
    const std::string& /*copyright*/) {}

void TZELKANAboutView::SetIAPRef(TInterAppPrefs* prefs) {
    (void)prefs->AddObserver(BMessenger(this));
}

void TZELKANAboutView::IAPChanged(const BMessage& /*change*/) {}

void TZELKANAboutView::FitToContent() {
    if (Window() != nullptr)
        Window()->ResizeTo(Bounds().Width(), Bounds().Height());
}

void TZELKANAboutView::ButtonOKClicked() {
    if (Window() != nullptr && !Window()->IsHidden())
        Window()->Hide();
}

TSimpleAboutView::TSimpleAboutView(BRect frame, TAppInfoView* infoView)
    : TZELKANAboutView(frame), fInfoView(infoView),
      fButtonOK(new BButton(BRect(), "ButtonOK", "", new BMessage(kMsgOK))) {
    AddChild(fInfoView);
    AddChild(fButtonOK);
    fButtonOK->MakeDefault(true);
    SetViewLabel();
    FitToContent();
}

void TSimpleAboutView::AttachedToWindow() {
    TZELKANAboutView::AttachedToWindow();
    SetTargetToThis(this);
    Window()->AddCommonFilter(new TLanguageChangedFilter(BMessenger(this)));
}

void TSimpleAboutView::LanguageChanged() {
    TZELKANAboutView::LanguageChanged();
    SetViewLabel();
    FitToContent();
}

void TSimpleAboutView::ShortCutDown(int32 rawChar, int32 key) const {
    if (rawChar == B_ESCAPE)
        click_button(fButtonOK);
    else
        TZELKANAboutView::ShortCutDown(rawChar, key);
}

void TSimpleAboutView::SetAppInfo(
    const std::string& name, const std::string& version, const std::string& copyright) {
    const bool isAttached = Window() != nullptr;
    if (isAttached && !LockLooper())
        return;
    fInfoView->SetAppInfo(name, version, copyright);
    FitToContent();
    if (isAttached)
        UnlockLooper();
}

void TSimpleAboutView::IAPChanged(const BMessage& change) {
    if (Window() != nullptr)
        remove_waiting(*Window(), same_shared_item(change));
    SetViewLabel();
    FitToContent();
}

void TSimpleAboutView::SetViewLabel() {
    fButtonOK->SetLabel(be_locale->GetString("OK"));
}

void TSimpleAboutView::FitToContent() {
    float buttonWidth = 0;
    float buttonHeight = 0;
    fButtonOK->GetPreferredSize(&buttonWidth, &buttonHeight);
    buttonWidth = std::max(kButtonWidth, std::ceil(buttonWidth));
    buttonHeight = std::ceil(buttonHeight);

    fInfoView->MoveTo(kMargin, kMargin);
    const BRect info = fInfoView->Frame();
    const float contentRight = kMargin + std::max({info.Width(), buttonWidth, kLeastContentWidth});
    fButtonOK->MoveTo(contentRight - buttonWidth, info.bottom + kMargin);
    fButtonOK->ResizeTo(buttonWidth, buttonHeight);
    ResizeTo(contentRight + kMargin, fButtonOK->Frame().bottom + kMargin);
    TZELKANAboutView::FitToContent();
}
