#pragma once

#include "framework/DialogView.h"

#include <string>

class BButton;
class TAppInfoView;
class TInterAppPrefs;

/// Base of an about box's content, in the colour of panels. It is as large as what it holds, and
/// so is its window.
///
/// Belongs to its window's thread; SetAppInfo() and SetIAPRef() lock the window themselves.
class TZELKANAboutView : public TDialogView {
public:
    explicit TZELKANAboutView(BRect frame);

    void MessageReceived(BMessage* message) override;

    /// What the box tells of the application: the keys of its name and version, and of a copyright
    /// line with "%AppAuthor%" in it.
    virtual void SetAppInfo(
        const std::string& name, const std::string& version, const std::string& copyright);
    /// Lets the view hear of every change of the shared preferences, which must outlive it.
    virtual void SetIAPRef(TInterAppPrefs* prefs);
    /// A shared preference has changed.
    virtual void IAPChanged(const BMessage& change);
    /// Lays the content out anew and makes the window fit; after any text has changed.
    virtual void FitToContent();
    /// Hides the window.
    virtual void ButtonOKClicked();
};

/// The ordinary about box: what is told of the application, and below it an OK button.
class TSimpleAboutView : public TZELKANAboutView {
public:
    /// Takes ownership of `infoView`.
    TSimpleAboutView(BRect frame, TAppInfoView* infoView);

    void AttachedToWindow() override;
    void LanguageChanged() override;
    /// Escape presses the button, too.
    void ShortCutDown(int32 rawChar, int32 key) const override;

    void SetAppInfo(
        const std::string& name, const std::string& version, const std::string& copyright) override;
    void IAPChanged(const BMessage& change) override;
    void FitToContent() override;

private:
    void SetViewLabel();

    TAppInfoView* fInfoView;  // both are children
    BButton* fButtonOK;
};
