#include "iap/IAPWindow.h"

#include "iap/IAPPortManager.h"
#include "iap/IAPView.h"

#include <locale/Locale.h>

TIAPWindow::TIAPWindow(BRect frame)
    : TDialogWindow(frame, "", B_TITLED_WINDOW, B_NOT_RESIZABLE | B_NOT_ZOOMABLE),
      fView(new TIAPView(frame.OffsetToCopy(0, 0))) {
    ResizeTo(fView->Bounds().Width(), fView->Bounds().Height());
    AddChild(fView);
    SetWindowTitle();
}

TIAPWindow::~TIAPWindow() {
    if (fPortManager == nullptr)
        return;
    (void)fPortManager->Terminate();
    (void)fPortManager->PreventBlocking();
    (void)fPortManager->Wait(nullptr);
}

void TIAPWindow::Show() {
    TDialogWindow::Show();
    if (Lock()) {
        fView->FocusComponent();
        Unlock();
    }
    if (fPortManager != nullptr)
        return;
    // Only once the window runs: what arrives is for its thread.
    fPortManager = std::make_unique<TIAPPortManager>(BMessenger(fView));
    (void)fPortManager->Resume();
}

bool TIAPWindow::QuitRequested() {
    if (CurrentMessage() == nullptr)
        return true;
    fView->ButtonCancelClicked();
    return false;
}

void TIAPWindow::LanguageChanged() {
    SetWindowTitle();
}

void TIAPWindow::SetWindowTitle() {
    SetTitle(be_locale->GetString(kTitle));
}

port_id TIAPWindow::Port() const {
    return fPortManager != nullptr ? fPortManager->Port() : kIAPPortPending;
}
