// The preferences dialog's comment tab, but for the extensions.

#include <app/Message.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/ListView.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/PopUpMenu.h>
#include <interface/RadioButton.h>
#include <interface/TextControl.h>

#include "framework/MessageCodes.h"
#include "settings/PrefChoices.h"
#include "settings/PrefText.h"
#include "settings/PrefView.h"

namespace {

constexpr float kLargestDistance = 100.0F;
constexpr float kSmallestFont = 5.0F;
constexpr float kLargestFont = 50.0F;

float distance_from(const BTextControl* control) {
    return adjust_value(whole_number(control->Text()), 0.0F, kLargestDistance);
}

}  // namespace

void TPrefView::CBoxEnableCommentClicked() {
    gPrefs.fEnableComment = fCBoxEnableComment->Value() != B_CONTROL_OFF;
    UpdateCommentCompos();
    NotifyPrefChange(kPrefEnableComment);
}

void TPrefView::RButtonCommentAlignTopClicked() {
    SetCommentAlign(kCommentAtTop);
}

void TPrefView::RButtonCommentAlignBottomClicked() {
    SetCommentAlign(kCommentAtBottom);
}

void TPrefView::SetCommentAlign(comment_align align) {
    gPrefs.fCommentAlign = align;
    NotifyPrefChange(kPrefCommentAlign);
}

void TPrefView::TxtCtrlCommentMarginChanged() {
    gPrefs.fCommentMargin = distance_from(fTxtCtrlCommentMargin);
    NotifyPrefChange(kPrefCommentMargin);
}

void TPrefView::TxtCtrlCommentPaddingChanged() {
    gPrefs.fCommentPadding = distance_from(fTxtCtrlCommentPadding);
    NotifyPrefChange(kPrefCommentPadding);
}

void TPrefView::TxtCtrlCommentFontSizeChanged() {
    gPrefs.fCommentFontSize =
        adjust_value(decimal_number(fTxtCtrlCommentFontSize->Text()), kSmallestFont, kLargestFont);
    NotifyPrefChange(kPrefCommentFontSize);
}

void TPrefView::PopMItemCommentFontFamilyClicked() {
    const BMenuItem* item = fMFieldCommentFontFace->MenuItem();
    if (item == nullptr)
        return;
    gPrefs.fCommentFontFamily = std::string(item->Label());
    NotifyPrefChange(kPrefCommentFontFamily);
}

void TPrefView::PopMItemCommentEncodingClicked(const BMessage& message) {
    int32 encoding = 0;
    if (message.FindInt32(kFieldEncoding, &encoding) != B_OK)
        return;
    gPrefs.fCommentEncoding = encoding;
    NotifyPrefChange(kPrefCommentEncoding);
}

void TPrefView::UpdateCommentValues() {
    const bool isTop = gPrefs.fCommentAlign == kCommentAtTop;
    (isTop ? fRButtonCommentAlignTop : fRButtonCommentAlignBottom)->SetValue(B_CONTROL_ON);
    fTxtCtrlCommentMargin->SetText(whole_text(gPrefs.fCommentMargin).c_str());
    fTxtCtrlCommentPadding->SetText(whole_text(gPrefs.fCommentPadding).c_str());
    fTxtCtrlCommentFontSize->SetText(decimal_text(gPrefs.fCommentFontSize).c_str());

    const std::string family = gPrefs.fCommentFontFamily;
    const BMenu* families = fMFieldCommentFontFace->Menu();
    BMenuItem* inForce = families->FindItem(family.c_str());
    if (inForce == nullptr)
        inForce = families->ItemAt(0);
    if (inForce != nullptr)
        inForce->SetMarked(true);
    MarkItem(fMFieldCommentEncoding, gPrefs.fCommentEncoding);
}

void TPrefView::UpdateCommentCompos() {
    const bool enabled = fCBoxEnableComment->Value() != B_CONTROL_OFF;
    for (BControl* control : {static_cast<BControl*>(fRButtonCommentAlignTop),
             static_cast<BControl*>(fRButtonCommentAlignBottom),
             static_cast<BControl*>(fTxtCtrlCommentMargin),
             static_cast<BControl*>(fTxtCtrlCommentPadding),
             static_cast<BControl*>(fTxtCtrlCommentFontSize),
             static_cast<BControl*>(fTxtCtrlAddCommentFileExt)})
        control->SetEnabled(enabled);
    fMFieldCommentFontFace->SetEnabled(enabled);
    fMFieldCommentEncoding->SetEnabled(enabled);
    fLViewCommentFileExts->SetEnabled(enabled);
    TxtCtrlAddCommentFileExtChanged();
    UpdateButtonRemoveCommentFileExt();
}
