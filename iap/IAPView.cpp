#include "iap/IAPView.h"

#include "framework/Accelerator.h"
#include "framework/BasicWindow.h"
#include "framework/FindChild.h"
#include "framework/LanguageChangedFilter.h"
#include "framework/MessageCodes.h"
#include "iap/ComponentArchive.h"
#include "iap/IAPItemAccKeyFormat.h"

#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Roster.h>
#include <cstring>
#include <interface/Button.h>
#include <interface/InterfaceDefs.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>

namespace {

// The archives of a component.
constexpr int32 kAtLastOK = 0;
constexpr int32 kLive = 1;
constexpr int32 kDefault = 2;
constexpr int32 kArchives = 3;

// No screen has room for more.
constexpr int32 kMaxComponents = 32;

void set_targets_of_items(BMenu& menu, const BMessenger& target) {
    (void)menu.SetTargetForItems(target);
    for (int32 i = 0; i < menu.CountItems(); i++) {
        if (BMenu* submenu = menu.SubmenuAt(i); submenu != nullptr)
            set_targets_of_items(*submenu, target);
    }
}

/// A menu field in a component is a choice of one among its items.
void set_up_menu_fields(BView& view, const BMessenger& target) {
    for (int32 i = 0; BView* child = view.ChildAt(i); i++) {
        auto* field = dynamic_cast<BMenuField*>(child);
        if (field == nullptr) {
            set_up_menu_fields(*child, target);
        } else if (BMenu* menu = field->Menu(); menu != nullptr) {
            menu->SetRadioMode(true);
            menu->SetLabelFromMarked(true);
            set_targets_of_items(*menu, target);
        }
    }
}

std::string own_signature() {
    return be_app != nullptr ? be_app->Signature() : "";
}

}  // namespace

TIAPView::TIAPView(BRect frame)
    : TDialogView(frame, "IAPView", B_FOLLOW_ALL, B_WILL_DRAW), fAppSignature(own_signature()) {
    SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    (void)fPrefs.SetAppSignatureRef(fAppSignature.c_str());
    (void)fPrefs.AddItem(new TIAPItemAccKeyFormat);

    fButtonContainer =
        new BView(BRect(), "ButtonContainer", B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW);
    fButtonContainer->SetViewColor(ViewColor());
    AddChild(fButtonContainer);
    fButtonDefaults = AddButton("ButtonDefaults", kMsgDefaults);
    fButtonCancel = AddButton("ButtonCancel", kMsgCancel);
    fButtonOK = AddButton("ButtonOK", kMsgOK);
    fButtonOK->MakeDefault(true);
    SetViewLabels();
}

BButton* TIAPView::AddButton(const char* name, uint32 command) {
    auto* button = new BButton(BRect(), name, "", new BMessage(command));
    fButtonContainer->AddChild(button);
    return button;
}

void TIAPView::AttachedToWindow() {
    TDialogView::AttachedToWindow();
    Window()->AddCommonFilter(new TLanguageChangedFilter(BMessenger(this)));
    SetTargetToThis(this);
}

void TIAPView::MessageReceived(BMessage* message) {
    switch (message->what) {
    case kMsgAddSharedComponents: IAPAddComponentsRqtd(message); break;
    case kMsgActivateSharedWindow: IAPActivateWindowRqtd(); break;
    case kMsgSharedControlChanged: IAPControlChanged(message); break;
    case kMsgOK: ButtonOKClicked(); break;
    case kMsgCancel: ButtonCancelClicked(); break;
    case kMsgDefaults: ButtonDefaultsClicked(); break;
    case B_QUIT_REQUESTED: (void)Window()->PostMessage(B_QUIT_REQUESTED); break;
    default: TDialogView::MessageReceived(message);
    }
}

void TIAPView::LanguageChanged() {
    SetViewLabels();
}

void TIAPView::ShortCutDown(int32 rawChar, int32 key) const {
    if (rawChar == B_ESCAPE)
        click_button(fButtonCancel);
    else
        TDialogView::ShortCutDown(rawChar, key);
}

void TIAPView::IAPAddComponentsRqtd(BMessage* request) {
    bool isAny = false;
    char* name = nullptr;
    type_code type = 0;
    for (int32 i = 0; request->GetInfo(B_MESSAGE_TYPE, i, &name, &type) == B_OK; i++)
        isAny |= AddComponentNamed(*request, name);
    if (!isAny)
        return;
    SetTargetToThis(this);
    SetViewLabels();
    FocusComponent();
}

bool TIAPView::AddComponentNamed(const BMessage& request, const char* name) {
    for (int32 i = 0; const BView* child = ChildAt(i); i++) {
        if (std::strcmp(child->Name(), name) == 0)
            return false;
    }
    if (fComponents.CountNames(B_MESSAGE_TYPE) >= kMaxComponents)
        return false;
    BMessage archives[kArchives];
    for (int32 i = 0; i < kArchives; i++) {
        if (request.FindMessage(name, i, &archives[i]) != B_OK ||
            !is_component_archive(archives[i], name))
            return false;
    }
    archives[kLive] = archives[kAtLastOK];
    const float above = fLastComponent != nullptr ? fLastComponent->Frame().bottom : 0;
    BView* component = AddComponent(archives[kLive], above + kMargin);
    if (component == nullptr)
        return false;
    fLastComponent = component;
    for (const BMessage& archive : archives)
        (void)fComponents.AddMessage(name, &archive);
    return true;
}

BView* TIAPView::AddComponent(BMessage archive, float top) {
    BArchivable* object = instantiate_object(&archive);
    auto* component = dynamic_cast<BView*>(object);
    if (component == nullptr) {
        delete object;
        return nullptr;
    }
    component->SetResizingMode(B_FOLLOW_LEFT | B_FOLLOW_TOP);
    component->MoveTo(kMargin, top);
    component->SetViewColor(ViewColor());
    set_up_menu_fields(*component, BMessenger(this));
    AddChild(component, fButtonContainer);
    return component;
}

void TIAPView::IAPControlChanged(BMessage* change) {
    const char* item = nullptr;
    if (change->FindString(kFieldSharedItem, &item) != B_OK)
        return;
    const std::string name = item;
    const BView* component = FindComponent(name.c_str());
    if (component == nullptr || component->Archive(change, true) != B_OK)
        return;
    change->what = kMsgSharedItemChanged;
    if (!is_component_archive(*change, name.c_str()))
        return;
    (void)fComponents.ReplaceMessage(name.c_str(), kLive, change);
    SendMessage(change);
    (void)fPrefs.SetValue(*change);
    SetViewLabels();
}

void TIAPView::IAPActivateWindowRqtd() {
    if (auto* window = dynamic_cast<TBasicWindow*>(Window()); window != nullptr)
        window->Appear();
}

void TIAPView::ButtonOKClicked() {
    HideWindow();
    char* name = nullptr;
    type_code type = 0;
    BMessage live;
    for (int32 i = 0; fComponents.GetInfo(B_MESSAGE_TYPE, i, &name, &type) == B_OK; i++) {
        if (fComponents.FindMessage(name, kLive, &live) == B_OK)
            (void)fComponents.ReplaceMessage(name, kAtLastOK, &live);
    }
}

void TIAPView::ButtonCancelClicked() {
    HideWindow();
    SetComponents(kAtLastOK);
}

void TIAPView::ButtonDefaultsClicked() {
    SetComponents(kDefault);
}

void TIAPView::SetComponents(int32 index) {
    char* name = nullptr;
    type_code type = 0;
    BMessage archive;
    for (int32 i = 0; fComponents.GetInfo(B_MESSAGE_TYPE, i, &name, &type) == B_OK; i++) {
        BView* old = FindComponent(name);
        if (old == nullptr || fComponents.FindMessage(name, index, &archive) != B_OK)
            continue;
        BView* component = AddComponent(archive, old->Frame().top);
        if (component == nullptr)
            continue;
        ReplaceComponent(old, component);
        (void)fComponents.ReplaceMessage(name, kLive, &archive);
        SendMessage(&archive);
        // The hints in this window's own labels follow, too.
        (void)fPrefs.SetValue(archive);
    }
    SetTargetToThis(this);
    SetViewLabels();
    FocusComponent();
}

void TIAPView::FocusComponent() {
    // Whoever is at one already stays there, or at a button.
    if (Window() == nullptr || Window()->CurrentFocus() != nullptr)
        return;
    if (BView* first = first_component(this))
        first->MakeFocus(true);
}

void TIAPView::ReplaceComponent(BView* old, BView* component) {
    if (fLastComponent == old)
        fLastComponent = component;
    RemoveChild(old);
    delete old;
}

void TIAPView::SendMessage(BMessage* message) const {
    (void)be_roster->Broadcast(message);
}

void TIAPView::HideWindow() {
    // Hides nest, and two clicks may be under way.
    if (!Window()->IsHidden())
        Window()->Hide();
}

BView* TIAPView::FindComponent(const char* name) const {
    for (int32 i = 0; BView* child = ChildAt(i); i++) {
        if (child != fButtonContainer && std::strcmp(child->Name(), name) == 0)
            return child;
    }
    return nullptr;
}
