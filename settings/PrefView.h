#pragma once

#include "framework/DialogView.h"
#include "settings/Prefs.h"

#include <memory>
#include <string>
#include <vector>

class BBox;
class BButton;
class BCheckBox;
class BColorControl;
class BListItem;
class BListView;
class BMenuField;
class BRadioButton;
class BScrollView;
class BSlider;
class BTabView;
class BTextControl;

/// The content of the preferences dialog: three tabs of controls over four buttons. What the user
/// changes goes into the preferences in force at once, and a notice of it to the target of the
/// dialog window; Cancel goes back to what was there before.
///
/// Only the page of the selected tab is attached to the window. The controls of the others work
/// all the same and are shown as they are then.
///
/// Belongs to its window's thread.
class TPrefView final : public TDialogView {
public:
    /// @param archive the layout: a view with all the controls that can be archived. The menus and
    ///     the list of extensions are added.
    explicit TPrefView(BMessage* archive);
    ~TPrefView() override;

    /// `B_OK`, or `B_NO_INIT` when the layout lacks a control: then the view may only be deleted.
    status_t InitCheck() const { return fInitStatus; }

    void AttachedToWindow() override;
    void AllAttached() override;
    void MessageReceived(BMessage* message) override;
    void LanguageChanged() override;
    /// F1 stands for Help and Escape for Cancel.
    void ShortCutDown(int32 rawChar, int32 key) const override;

    /// Hides the window and goes back to the preferences as they were when it was confirmed last.
    void ButtonCancelClicked();

private:
    // PrefView.cpp: making the controls, and bringing them in step with the preferences.
    bool FindControls();
    bool FindPages();
    bool FindCommentControls();
    bool FindOtherControls();
    void CreateControls();
    void FillFontMenu();
    void SetMessages();
    void SetTargets();
    bool HandleCommentMessage(BMessage* message);
    bool HandleOtherMessage(BMessage* message);
    void UpdateCompos();
    /// Marks the item of that index, and no other; none where there is no such choice.
    static void MarkItem(const BMenuField* field, int32 index);

    // PrefViewLabels.cpp: all that is in the user's language.
    void SetViewLabels();
    void FillTranslatedMenus();

    // PrefViewLayout.cpp: giving the controls the room their labels need.
    void FitToLabels();
    /// Each answers where its last control ends.
    float FitCommentPage(float width);
    float FitColorPage(float width);
    float FitEtcPage();
    void FitButtons(BRect above);
    void FitDividers();
    float NeededWidth() const;

    // PrefViewComment.cpp: the comment tab.
    void CBoxEnableCommentClicked();
    void RButtonCommentAlignTopClicked();
    void RButtonCommentAlignBottomClicked();
    void TxtCtrlCommentMarginChanged();
    void TxtCtrlCommentPaddingChanged();
    void TxtCtrlCommentFontSizeChanged();
    void PopMItemCommentFontFamilyClicked();
    void PopMItemCommentEncodingClicked(const BMessage& message);
    void SetCommentAlign(comment_align align);
    /// Shows the values, and what may be operated.
    void UpdateCommentValues();
    void UpdateCommentCompos();

    // PrefViewExts.cpp: the list of the comment files' extensions.
    void ButtonAddCommentFileExtClicked();
    void ButtonRemoveCommentFileExtClicked();
    void TxtCtrlAddCommentFileExtChanged();
    void UpdateButtonRemoveCommentFileExt();
    void UpdateCommentFileExts();

    // PrefViewColors.cpp: the colours tab.
    void PopMItemColTargetClicked();
    void ColCtrlColChanged();
    void SliderColAlphaChanged();
    pref_color ColorTarget() const;
    void SetColor();
    void UpdateColorCompos();

    // PrefViewNotices.cpp: the other tab, the buttons, and what is told to and by others.
    void PopMItemDisplayOptionClicked(BMessage* message);
    void CBoxEnablePreloadClicked();
    void ButtonHelpClicked();
    void ButtonDefaultsClicked();
    void ButtonOKClicked();
    void PrefDisplayOptionChanged(const BMessage& notice);
    void PrefEnableCommentChanged(const BMessage& notice);
    void IAPChanged(const BMessage& change);
    bool IsOwn(const BMessage& notice) const;
    void NotifyPrefChange(BMessage* notice);
    void NotifyPrefChange(uint32 what);
    void NotifyPrefDiffe(const TPrefs& before, const TPrefs& after);
    void HideWindow();

    static constexpr int32 kPageCount = 3;

    status_t fInitStatus;
    TPrefs fRestore;           // what Cancel goes back to
    std::string fLabelFormat;  // of the hints that the labels have

    // All below are children, of this view or of a tab's page.
    BTabView* fTabView = nullptr;
    BView* fCommentPage = nullptr;
    BView* fColorPage = nullptr;
    BView* fEtcPage = nullptr;

    BCheckBox* fCBoxEnableComment = nullptr;
    BBox* fBoxCommentAlign = nullptr;
    BRadioButton* fRButtonCommentAlignTop = nullptr;
    BRadioButton* fRButtonCommentAlignBottom = nullptr;
    BTextControl* fTxtCtrlCommentMargin = nullptr;
    BTextControl* fTxtCtrlCommentPadding = nullptr;
    BMenuField* fMFieldCommentFontFace = nullptr;
    BTextControl* fTxtCtrlCommentFontSize = nullptr;
    BMenuField* fMFieldCommentEncoding = nullptr;
    BTextControl* fTxtCtrlAddCommentFileExt = nullptr;
    BButton* fButtonAddCommentFileExt = nullptr;
    BButton* fButtonRemoveCommentFileExt = nullptr;
    BScrollView* fScrlView = nullptr;
    BListView* fLViewCommentFileExts = nullptr;

    BMenuField* fMFieldColTarget = nullptr;
    BBox* fBoxColSample = nullptr;
    BColorControl* fColCtrlCol = nullptr;
    BSlider* fSliderColAlpha = nullptr;

    BMenuField* fMFieldDispOpt = nullptr;
    BCheckBox* fCBoxEnablePreload = nullptr;

    BButton* fButtonHelp = nullptr;
    BButton* fButtonDefaults = nullptr;
    BButton* fButtonCancel = nullptr;
    BButton* fButtonOK = nullptr;

    std::vector<std::unique_ptr<BListItem>> fCommentFileExtItems;  // those in the list
};
