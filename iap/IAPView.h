#pragma once

#include "framework/DialogView.h"
#include "iap/InterAppPrefs.h"

#include <app/Message.h>
#include <string>

class BButton;

/// What the common preferences window shows: one below the other the components that the running
/// applications have contributed, and the buttons. Every change of a control is broadcast to the
/// applications at once; Cancel and Defaults broadcast what they bring back.
///
/// Lives on its window's thread.
class TIAPView final : public TDialogView {
public:
    /// Is as large as what it holds, wherever the frame ends.
    explicit TIAPView(BRect frame);

    void AttachedToWindow() override;
    void MessageReceived(BMessage* message) override;
    void LanguageChanged() override;
    void ShortCutDown(int32 rawChar, int32 key) const override;

    /// Makes the archived view and puts it at that height. The archive has been checked.
    /// @return null when it makes none
    BView* AddComponent(BMessage archive, float top);
    /// Shows of every component the archive of that index, and broadcasts it: 0 for the value at
    /// the last OK, 2 for the default.
    void SetComponents(int32 index);
    /// Fetches every label, with the shortcut hints in the format of the moment.
    void SetViewLabels();
    /// To every running application.
    void SendMessage(BMessage* message) const;

    /// The first component has the keyboard unless another view has. Its window is locked.
    void FocusComponent();

    void ButtonOKClicked();
    void ButtonCancelClicked();
    void ButtonDefaultsClicked();

private:
    void IAPAddComponentsRqtd(BMessage* request);
    void IAPControlChanged(BMessage* change);
    void IAPActivateWindowRqtd();

    /// Between what the view holds, and around it.
    static constexpr float kMargin = 10;

    BButton* AddButton(const char* name, uint32 command);
    bool AddComponentNamed(const BMessage& request, const char* name);
    /// Deletes the one before.
    void ReplaceComponent(BView* old, BView* component);
    /// Null for none.
    BView* FindComponent(const char* name) const;
    void HideWindow();

    void LabelComponent(BView& component, const std::string& format) const;
    void LabelButtons(const std::string& format);
    /// Gives every component and the buttons their places, and the window the size for them.
    void LayOut();
    void PlaceButtons();
    void FitTo(float width, float height);

    const std::string fAppSignature;
    BMessage fComponents;  // three archives a name: at the last OK, live, default
    TInterAppPrefs fPrefs;
    BView* fLastComponent = nullptr;  // the bottom-most one
    BView* fButtonContainer;
    BButton* fButtonDefaults;
    BButton* fButtonCancel;
    BButton* fButtonOK;
};
