// The preferences dialog's list of extensions of comment files.

#include <algorithm>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/ListView.h>
#include <interface/TextControl.h>

#include "framework/MessageCodes.h"
#include "settings/PrefText.h"
#include "settings/PrefView.h"

void TPrefView::ButtonAddCommentFileExtClicked() {
    const std::string ext = comment_file_ext(fTxtCtrlAddCommentFileExt->Text());
    if (ext.empty())
        return;
    fTxtCtrlAddCommentFileExt->SetText("");
    std::vector<std::string> exts = gPrefs.fCommentFileExts;
    if (std::find(exts.begin(), exts.end(), ext) == exts.end()) {
        exts.push_back(ext);
        std::sort(exts.begin(), exts.end());
        gPrefs.fCommentFileExts = std::move(exts);
    }
    UpdateCommentFileExts();
    // The button is about to be disabled: the keyboard goes where the next one is typed.
    fTxtCtrlAddCommentFileExt->MakeFocus(true);
    TxtCtrlAddCommentFileExtChanged();
    NotifyPrefChange(kPrefCommentFileExts);
}

void TPrefView::ButtonRemoveCommentFileExtClicked() {
    const int32 row = fLViewCommentFileExts->CurrentSelection();
    std::vector<std::string> exts = gPrefs.fCommentFileExts;
    if (row < 0 || static_cast<size_t>(row) >= exts.size())
        return;
    exts.erase(exts.begin() + row);
    gPrefs.fCommentFileExts = std::move(exts);
    fLViewCommentFileExts->MakeFocus(true);
    UpdateCommentFileExts();
    NotifyPrefChange(kPrefCommentFileExts);
}

void TPrefView::TxtCtrlAddCommentFileExtChanged() {
    fButtonAddCommentFileExt->SetEnabled(fCBoxEnableComment->Value() != B_CONTROL_OFF &&
        !comment_file_ext(fTxtCtrlAddCommentFileExt->Text()).empty());
}

void TPrefView::UpdateButtonRemoveCommentFileExt() {
    fButtonRemoveCommentFileExt->SetEnabled(fCBoxEnableComment->Value() != B_CONTROL_OFF &&
        fLViewCommentFileExts->CurrentSelection() >= 0);
}

void TPrefView::UpdateCommentFileExts() {
    fLViewCommentFileExts->MakeEmpty();
    fCommentFileExtItems.clear();
    for (const std::string& ext : gPrefs.fCommentFileExts.Get()) {
        fCommentFileExtItems.push_back(std::make_unique<BStringItem>(ext.c_str()));
        fLViewCommentFileExts->AddItem(fCommentFileExtItems.back().get());
    }
    UpdateButtonRemoveCommentFileExt();
}
