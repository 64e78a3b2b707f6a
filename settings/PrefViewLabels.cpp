// The preferences dialog's texts.

#include <interface/Accessibility.h>
#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/ListView.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/RadioButton.h>
#include <interface/Slider.h>
#include <interface/TabView.h>
#include <interface/TextControl.h>
#include <interface/Window.h>
#include <locale/Locale.h>
#include <string>

#include "framework/HintedLabels.h"
#include "framework/LocalText.h"
#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "settings/PrefChoices.h"
#include "settings/PrefView.h"

namespace {

/// The field's menu, titled in the user's language.
BMenu* titled_menu(const BMenuField* field) {
    BMenu* menu = field->Menu();
    menu->SetName(be_locale->GetString("Select..."));
    return menu;
}

/// The same, without its items.
BMenu* emptied_menu(const BMenuField* field) {
    BMenu* menu = titled_menu(field);
    (void)menu->RemoveItems(0, menu->CountItems(), true);
    return menu;
}

}  // namespace

void TPrefView::SetViewLabels() {
    if (!LockLooper())
        return;
    const THintedLabels labels;
    fLabelFormat = labels.Format();

    fTabView->TabAt(0)->SetLabel(be_locale->GetString("Comment"));
    fCBoxEnableComment->SetLabel(labels("Enable Comment", "C").c_str());
    fBoxCommentAlign->SetLabel(be_locale->GetString("Position"));
    fRButtonCommentAlignTop->SetLabel(labels("Top", "T").c_str());
    fRButtonCommentAlignBottom->SetLabel(labels("Bottom", "B").c_str());
    fTxtCtrlCommentMargin->SetLabel(labels("Margin: ", "M").c_str());
    fTxtCtrlCommentPadding->SetLabel(labels("Padding: ", "P").c_str());
    fMFieldCommentFontFace->SetLabel(labels("Font: ", "F").c_str());
    fTxtCtrlCommentFontSize->SetLabel(labels("Size: ", "S").c_str());
    fTxtCtrlAddCommentFileExt->SetLabel(labels("Extension of Comment File: ", "X").c_str());
    set_accessible_name(
        fLViewCommentFileExts, local_caption("Extension of Comment File: ").c_str());
    fButtonAddCommentFileExt->SetLabel(labels("Add >>", "A").c_str());
    fButtonRemoveCommentFileExt->SetLabel(labels("<< Remove", "R").c_str());
    fMFieldCommentEncoding->SetLabel(labels("Encoding: ", "E").c_str());

    // A letter may be that of another tab's control, since only one tab is shown; "D" of a button
    // may not, since the buttons always are.
    fTabView->TabAt(1)->SetLabel(be_locale->GetString("Colors"));
    fMFieldColTarget->SetLabel(labels("Target: ", "T").c_str());
    fSliderColAlpha->SetLabel(be_locale->GetString("Opacity"));

    fTabView->TabAt(2)->SetLabel(be_locale->GetString("Etc."));
    fMFieldDispOpt->SetLabel(labels("Display Option: ", "I").c_str());
    fCBoxEnablePreload->SetLabel(labels("Enable Pre-load", "P").c_str());

    fButtonHelp->SetLabel(labels("Help", "F1").c_str());
    fButtonDefaults->SetLabel(labels("Defaults", "D").c_str());
    fButtonCancel->SetLabel(be_locale->GetString("Cancel"));
    fButtonOK->SetLabel(be_locale->GetString("OK"));

    FitToLabels();
    UnlockLooper();
}

void TPrefView::FillTranslatedMenus() {
    (void)titled_menu(fMFieldCommentFontFace);  // whose items are names
    BMenu* encodings = emptied_menu(fMFieldCommentEncoding);
    for (int32 i = 0; i < kCommentEncodingCount; i++) {
        if (i == kEncodingSeparator) {
            encodings->AddSeparatorItem();
            continue;
        }
        auto* message = new BMessage(kMsgCommentEncodingChosen);
        (void)message->AddInt32(kFieldEncoding, i);
        encodings->AddItem(new BMenuItem(be_locale->GetString(LKK_MITEM_ENCODING[i]), message));
    }

    BMenu* targets = emptied_menu(fMFieldColTarget);
    for (const char* target : LKK_POPMITEM_COL_TARGET) {
        targets->AddItem(
            new BMenuItem(be_locale->GetString(target), new BMessage(kMsgColorTargetChosen)));
    }

    BMenu* options = emptied_menu(fMFieldDispOpt);
    for (int32 i = 0; i < kDisplayOptionCount; i++) {
        options->AddItem(new BMenuItem(be_locale->GetString(LKK_MITEM_DO[i]),
            create_display_option_message(kMsgDisplayOptionChosen, i)));
    }
}

void TPrefView::LanguageChanged() {
    TDialogView::LanguageChanged();
    const pref_color target = ColorTarget();
    FillTranslatedMenus();
    MarkItem(fMFieldColTarget, target);
    MarkItem(fMFieldCommentEncoding, gPrefs.fCommentEncoding);
    MarkItem(fMFieldDispOpt, gPrefs.fDisplayOption);
    SetTargets();
    SetViewLabels();
    Invalidate();
}
