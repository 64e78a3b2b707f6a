// The preferences dialog's buttons and last tab, and its notices to others and theirs to it.

#include <app/Application.h>
#include <app/Message.h>
#include <app/Messenger.h>
#include <interface/CheckBox.h>
#include <interface/Window.h>
#include <string>

#include "framework/DialogWindow.h"
#include "framework/HintedLabels.h"
#include "framework/MessageCodes.h"
#include "framework/WaitingMessages.h"
#include "iap/ItemNames.h"
#include "settings/DisplayOption.h"
#include "settings/PrefView.h"

void TPrefView::PopMItemDisplayOptionClicked(BMessage* message) {
    if (set_display_option(message) == B_OK)
        NotifyPrefChange(kPrefDisplayOption);
}

void TPrefView::CBoxEnablePreloadClicked() {
    gPrefs.fEnablePreload = fCBoxEnablePreload->Value() != B_CONTROL_OFF;
    NotifyPrefChange(kPrefEnablePreload);
}

void TPrefView::ButtonHelpClicked() {
    (void)BMessenger(be_app).SendMessage(kMsgShowHelp);
}

void TPrefView::ButtonOKClicked() {
    HideWindow();
    fRestore = gPrefs;
    (void)gPrefs.SaveToFile();
    // What was typed and brought into its range is shown so when the window appears again.
    UpdateCompos();
}

void TPrefView::ButtonCancelClicked() {
    const TPrefs edited = gPrefs;
    HideWindow();
    gPrefs = fRestore;
    (void)gPrefs.SaveToFile();
    NotifyPrefDiffe(edited, gPrefs);
    UpdateCompos();
}

void TPrefView::ButtonDefaultsClicked() {
    const TPrefs edited = gPrefs;
    gPrefs = TPrefs();
    NotifyPrefDiffe(edited, gPrefs);
    UpdateCompos();
}

void TPrefView::PrefDisplayOptionChanged(const BMessage& notice) {
    if (IsOwn(notice))
        return;
    fRestore.fDisplayOption = gPrefs.fDisplayOption;  // Cancel does not undo what others did
    MarkItem(fMFieldDispOpt, gPrefs.fDisplayOption);
}

void TPrefView::PrefEnableCommentChanged(const BMessage& notice) {
    if (IsOwn(notice))
        return;
    fRestore.fEnableComment = gPrefs.fEnableComment;
    fCBoxEnableComment->SetValue(gPrefs.fEnableComment ? B_CONTROL_ON : B_CONTROL_OFF);
    UpdateCommentCompos();
}

void TPrefView::IAPChanged(const BMessage& change) {
    const char* item = nullptr;
    if (change.FindString(kFieldSharedItem, &item) != B_OK ||
        item != std::string(kAccKeyFormatItem))
        return;
    // Once for all that wait, and not for what the labels show already.
    remove_waiting(*Window(), same_shared_item(change));
    if (THintedLabels().Format() != fLabelFormat)
        SetViewLabels();
}

bool TPrefView::IsOwn(const BMessage& notice) const {
    void* sender = nullptr;
    return notice.FindPointer(kFieldSender, &sender) == B_OK && sender == this;
}

void TPrefView::NotifyPrefChange(BMessage* notice) {
    (void)notice->AddPointer(kFieldSender, this);
    const auto* window = dynamic_cast<TDialogWindow*>(Window());
    if (window == nullptr)
        return;
    // An application that is about to end need not hear of it.
    (void)window->Target().SendMessage(notice, static_cast<BHandler*>(nullptr), B_INFINITE_TIMEOUT);
}

void TPrefView::NotifyPrefChange(uint32 what) {
    BMessage notice(what);
    NotifyPrefChange(&notice);
}

void TPrefView::NotifyPrefDiffe(const TPrefs& before, const TPrefs& after) {
    const auto notify_if = [this](bool differs, uint32 what) {
        if (differs)
            NotifyPrefChange(what);
    };
    bool colorDiffers = false;
    for (int32 i = 0; i < kPrefColorCount; i++)
        colorDiffers = colorDiffers || !(before.fColors[i].Get() == after.fColors[i].Get());

    // The sizes of the comment are not among them: they are shown with the next change.
    notify_if(before.fEnableComment != after.fEnableComment, kPrefEnableComment);
    notify_if(before.fCommentAlign != after.fCommentAlign, kPrefCommentAlign);
    notify_if(
        before.fCommentFontFamily.Get() != after.fCommentFontFamily.Get(), kPrefCommentFontFamily);
    notify_if(before.fCommentFileExts.Get() != after.fCommentFileExts.Get(), kPrefCommentFileExts);
    notify_if(before.fCommentEncoding != after.fCommentEncoding, kPrefCommentEncoding);
    notify_if(colorDiffers, kPrefColors);
    notify_if(before.fDisplayOption != after.fDisplayOption, kPrefDisplayOption);
    notify_if(before.fEnablePreload != after.fEnablePreload, kPrefEnablePreload);
}

void TPrefView::HideWindow() {
    // A second click may have been on its way when the window went.
    if (!Window()->IsHidden())
        Window()->Hide();
}
