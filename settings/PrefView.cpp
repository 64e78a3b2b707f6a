// The preferences dialog's content: its controls, and what becomes of their messages.

#include "settings/PrefView.h"

#include <app/Message.h>
#include <app/Messenger.h>
#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/ColorControl.h>
#include <interface/ListView.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/PopUpMenu.h>
#include <interface/RadioButton.h>
#include <interface/ScrollView.h>
#include <interface/Slider.h>
#include <interface/TabView.h>
#include <interface/TextControl.h>
#include <interface/Window.h>
#include <locale/Locale.h>

#include "framework/Accelerator.h"
#include "framework/FindChild.h"
#include "framework/LanguageChangedFilter.h"
#include "framework/MessageCodes.h"

namespace {

/// Sets `child` to the parent's own child of that name. False when there is none of that class.
template <typename View>
bool find(BView* parent, const char* name, View** child) {
    *child = find_child<View>(parent, name);
    return *child != nullptr && (*child)->Parent() == parent;
}

BMenuField* make_menu_field(const char* name) {
    auto* menu = new BPopUpMenu(be_locale->GetString("Select..."), true, true);
    return new BMenuField(BRect(0, 0, 0, 0), name, "", menu, true);
}

}  // namespace

TPrefView::TPrefView(BMessage* archive)
    : TDialogView(archive), fInitStatus(B_NO_INIT), fRestore(gPrefs) {
    if (!FindControls())
        return;
    CreateControls();
    SetMessages();
    for (BView* view : {static_cast<BView*>(this), fCommentPage, fColorPage, fEtcPage})
        view->SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    fInitStatus = B_OK;
}

TPrefView::~TPrefView() {
    if (fLViewCommentFileExts != nullptr)
        fLViewCommentFileExts->MakeEmpty();
}

bool TPrefView::FindControls() {
    return FindPages() && FindCommentControls() && FindOtherControls();
}

bool TPrefView::FindPages() {
    if (!find(this, "TabViewPref", &fTabView) || fTabView->CountTabs() != kPageCount)
        return false;
    fCommentPage = fTabView->ViewForTab(0);
    fColorPage = fTabView->ViewForTab(1);
    fEtcPage = fTabView->ViewForTab(2);
    return fCommentPage != nullptr && fColorPage != nullptr && fEtcPage != nullptr;
}

bool TPrefView::FindCommentControls() {
    BView* page = fCommentPage;
    return find(page, "CBoxEnableComment", &fCBoxEnableComment) &&
        find(page, "BoxCommentAlign", &fBoxCommentAlign) &&
        find(fBoxCommentAlign, "RButtonCommentAlignTop", &fRButtonCommentAlignTop) &&
        find(fBoxCommentAlign, "RButtonCommentAlignBottom", &fRButtonCommentAlignBottom) &&
        find(page, "TxtCtrlCommentMargin", &fTxtCtrlCommentMargin) &&
        find(page, "TxtCtrlCommentPadding", &fTxtCtrlCommentPadding) &&
        find(page, "TxtCtrlCommentFontSize", &fTxtCtrlCommentFontSize) &&
        find(page, "TxtCtrlAddCommentFileExt", &fTxtCtrlAddCommentFileExt) &&
        find(page, "ButtonAddCommentFileExt", &fButtonAddCommentFileExt) &&
        find(page, "ButtonRemoveCommentFileExt", &fButtonRemoveCommentFileExt);
}

bool TPrefView::FindOtherControls() {
    return find(fColorPage, "BoxColSample", &fBoxColSample) &&
        find(fColorPage, "ColCtrlCol", &fColCtrlCol) &&
        find(fColorPage, "SliderColAlpha", &fSliderColAlpha) &&
        find(fEtcPage, "CBoxEnablePreload", &fCBoxEnablePreload) &&
        find(this, "ButtonHelp", &fButtonHelp) && find(this, "ButtonDefaults", &fButtonDefaults) &&
        find(this, "ButtonCancel", &fButtonCancel) && find(this, "ButtonOK", &fButtonOK);
}

void TPrefView::CreateControls() {
    // The keyboard goes from control to control in the order they stand in.
    fMFieldCommentFontFace = make_menu_field("MFieldCommentFontFace");
    fCommentPage->AddChild(fMFieldCommentFontFace, fTxtCtrlCommentFontSize);
    fMFieldCommentEncoding = make_menu_field("MFieldCommentEncoding");
    fCommentPage->AddChild(fMFieldCommentEncoding, fTxtCtrlAddCommentFileExt);
    fLViewCommentFileExts =
        new BListView(BRect(0, 0, 99, 99), "LViewCommentFileExts", B_SINGLE_SELECTION_LIST);
    fScrlView = new BScrollView(
        "ScrlView", fLViewCommentFileExts, B_FOLLOW_LEFT | B_FOLLOW_TOP, 0, false, true);
    fCommentPage->AddChild(fScrlView);

    fMFieldColTarget = make_menu_field("MFieldColTarget");
    fColorPage->AddChild(fMFieldColTarget, fColorPage->ChildAt(0));
    fMFieldDispOpt = make_menu_field("MFieldDispOpt");
    fEtcPage->AddChild(fMFieldDispOpt, fCBoxEnablePreload);

    FillFontMenu();
    FillTranslatedMenus();
}

void TPrefView::FillFontMenu() {
    const int32 count = count_font_families();
    for (int32 i = 0; i < count; i++) {
        font_family name;
        if (get_font_family(i, &name) == B_OK) {
            fMFieldCommentFontFace->Menu()->AddItem(
                new BMenuItem(name, new BMessage(kMsgCommentFontFamilyChosen)));
        }
    }
}

void TPrefView::SetMessages() {
    const auto set = [](BInvoker* control, uint32 what) {
        (void)control->SetMessage(new BMessage(what));
    };
    set(fCBoxEnableComment, kMsgEnableCommentClicked);
    set(fRButtonCommentAlignTop, kMsgCommentAtTop);
    set(fRButtonCommentAlignBottom, kMsgCommentAtBottom);
    set(fButtonAddCommentFileExt, kMsgAddCommentFileExt);
    set(fButtonRemoveCommentFileExt, kMsgRemoveCommentFileExt);
    set(fColCtrlCol, kMsgColorChanged);
    set(fSliderColAlpha, kMsgColorAlphaChanged);
    set(fCBoxEnablePreload, kMsgEnablePreloadClicked);
    set(fButtonHelp, kMsgShowHelp);
    set(fButtonDefaults, kMsgDefaults);
    set(fButtonCancel, kMsgCancel);
    set(fButtonOK, kMsgOK);

    // What is typed and dragged takes effect while it is. A message at the end would only tell
    // the same again.
    const auto set_live = [](BTextControl* control, uint32 what) {
        (void)control->SetMessage(nullptr);
        control->SetModificationMessage(new BMessage(what));
    };
    set_live(fTxtCtrlCommentMargin, kMsgCommentMarginChanged);
    set_live(fTxtCtrlCommentPadding, kMsgCommentPaddingChanged);
    set_live(fTxtCtrlCommentFontSize, kMsgCommentFontSizeChanged);
    set_live(fTxtCtrlAddCommentFileExt, kMsgNewCommentFileExtChanged);
    fSliderColAlpha->SetModificationMessage(new BMessage(kMsgColorAlphaChanged));
    fLViewCommentFileExts->SetSelectionMessage(new BMessage(kMsgCommentFileExtSelected));
    fButtonOK->MakeDefault(true);
}

void TPrefView::AttachedToWindow() {
    TDialogView::AttachedToWindow();
    Window()->AddCommonFilter(new TLanguageChangedFilter(BMessenger(this)));
}

void TPrefView::AllAttached() {
    TDialogView::AllAttached();
    fTabView->Select(0);
    SetViewLabels();
    UpdateCompos();
    SetTargets();
}

void TPrefView::SetTargets() {
    SetTargetToThis(this);
    for (BView* page : {fCommentPage, fColorPage, fEtcPage})
        SetTargetToThis(page);
    (void)fLViewCommentFileExts->SetTarget(BMessenger(this));
    for (const BMenuField* field :
        {fMFieldCommentFontFace, fMFieldCommentEncoding, fMFieldColTarget, fMFieldDispOpt})
        (void)field->Menu()->SetTargetForItems(BMessenger(this));
}

void TPrefView::MessageReceived(BMessage* message) {
    if (!HandleCommentMessage(message) && !HandleOtherMessage(message))
        TDialogView::MessageReceived(message);
}

bool TPrefView::HandleCommentMessage(BMessage* message) {
    switch (message->what) {
    case kMsgEnableCommentClicked: CBoxEnableCommentClicked(); return true;
    case kMsgCommentAtTop: RButtonCommentAlignTopClicked(); return true;
    case kMsgCommentAtBottom: RButtonCommentAlignBottomClicked(); return true;
    case kMsgCommentMarginChanged: TxtCtrlCommentMarginChanged(); return true;
    case kMsgCommentPaddingChanged: TxtCtrlCommentPaddingChanged(); return true;
    case kMsgCommentFontFamilyChosen: PopMItemCommentFontFamilyClicked(); return true;
    case kMsgCommentFontSizeChanged: TxtCtrlCommentFontSizeChanged(); return true;
    case kMsgCommentEncodingChosen: PopMItemCommentEncodingClicked(*message); return true;
    case kMsgNewCommentFileExtChanged: TxtCtrlAddCommentFileExtChanged(); return true;
    case kMsgAddCommentFileExt: ButtonAddCommentFileExtClicked(); return true;
    case kMsgRemoveCommentFileExt: ButtonRemoveCommentFileExtClicked(); return true;
    case kMsgCommentFileExtSelected: UpdateButtonRemoveCommentFileExt(); return true;
    default: return false;
    }
}

bool TPrefView::HandleOtherMessage(BMessage* message) {
    switch (message->what) {
    case kMsgColorTargetChosen: PopMItemColTargetClicked(); return true;
    case kMsgColorChanged: ColCtrlColChanged(); return true;
    case kMsgColorAlphaChanged: SliderColAlphaChanged(); return true;
    case kMsgDisplayOptionChosen: PopMItemDisplayOptionClicked(message); return true;
    case kMsgEnablePreloadClicked: CBoxEnablePreloadClicked(); return true;
    case kMsgShowHelp: ButtonHelpClicked(); return true;
    case kMsgDefaults: ButtonDefaultsClicked(); return true;
    case kMsgCancel: ButtonCancelClicked(); return true;
    case kMsgOK: ButtonOKClicked(); return true;
    case kPrefDisplayOption: PrefDisplayOptionChanged(*message); return true;
    case kPrefEnableComment: PrefEnableCommentChanged(*message); return true;
    case kMsgSharedItemChanged: IAPChanged(*message); return true;
    default: return false;
    }
}

void TPrefView::ShortCutDown(int32 rawChar, int32 key) const {
    if (rawChar == B_ESCAPE)
        click_button(fButtonCancel);
    else if (rawChar == B_FUNCTION_KEY && key == B_F1_KEY)
        click_button(fButtonHelp);
    else
        TDialogView::ShortCutDown(rawChar, key);
}

void TPrefView::UpdateCompos() {
    fCBoxEnableComment->SetValue(gPrefs.fEnableComment ? B_CONTROL_ON : B_CONTROL_OFF);
    UpdateCommentValues();
    UpdateCommentFileExts();
    UpdateColorCompos();
    MarkItem(fMFieldDispOpt, gPrefs.fDisplayOption);
    fCBoxEnablePreload->SetValue(gPrefs.fEnablePreload ? B_CONTROL_ON : B_CONTROL_OFF);
    UpdateCommentCompos();
}

void TPrefView::MarkItem(const BMenuField* field, int32 index) {
    const BMenu* menu = field->Menu();
    for (int32 i = 0; BMenuItem* item = menu->ItemAt(i); i++)
        item->SetMarked(i == index && dynamic_cast<BSeparatorItem*>(item) == nullptr);
}
