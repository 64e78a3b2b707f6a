#include "app/AboutWindow.h"

#include "app/AppInfoView.h"
#include "framework/LocalText.h"

TZELKANAboutWindow::TZELKANAboutWindow(BRect frame, TZELKANAboutView* aboutView)
    : TDialogWindow(frame, "", B_TITLED_WINDOW, B_NOT_RESIZABLE | B_NOT_ZOOMABLE),
      fView(aboutView != nullptr
              ? aboutView
              : new TSimpleAboutView(frame.OffsetToCopy(0, 0), new TAppInfoView(BPoint()))) {
    fView->MoveTo(0, 0);
    ResizeTo(fView->Bounds().Width(), fView->Bounds().Height());
    AddChild(fView);
    SetWinTitle();
}

void TZELKANAboutWindow::LanguageChanged() {
    TDialogWindow::LanguageChanged();
    SetWinTitle();
}

void TZELKANAboutWindow::SetAppInfo(
    const std::string& name, const std::string& version, const std::string& copyright) {
    if (!Lock())
        return;
    fView->SetAppInfo(name, version, copyright);
    // It may have grown over the edge of the screen; where the user has seen it, it stays.
    if (IsHidden())
        (void)IntelligentMoveTo(Frame().LeftTop());
    Unlock();
}

void TZELKANAboutWindow::SetIAPRef(TInterAppPrefs* prefs) {
    fView->SetIAPRef(prefs);
}

void TZELKANAboutWindow::SetWinTitle() {
    if (!Lock())
        return;
    SetTitle(local_text_with_app("About %AppName%").c_str());
    Unlock();
}
