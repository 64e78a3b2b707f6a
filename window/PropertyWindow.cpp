#include "window/PropertyWindow.h"

#include <app/Message.h>
#include <memory>

#include "framework/FileName.h"
#include "framework/Layout.h"
#include "framework/LocalText.h"
#include "window/PropertyView.h"

namespace {

constexpr char kLayoutName[] = "PropertyViewRsrc";

}  // namespace

TPropertyWindow::TPropertyWindow(BRect frame, const TImage* image)
    : TDialogWindow(frame, "PropertyWin", B_TITLED_WINDOW, B_NOT_ZOOMABLE | B_NOT_RESIZABLE,
          B_CURRENT_WORKSPACE),
      fInitStatus(B_NO_INIT), fView(nullptr) {
    BuildView(image);
}

void TPropertyWindow::BuildView(const TImage* image) {
    BMessage layout;
    if (load_layout(kLayoutName, &layout) != B_OK)
        return;
    auto view = std::make_unique<TPropertyView>(&layout, image);
    if (view->InitCheck() != B_OK)
        return;
    fView = view.release();
    ResizeTo(fView->Frame().Width(), fView->Frame().Height());
    AddChild(fView);
    SetWindowTitle();
    fInitStatus = B_OK;
}

bool TPropertyWindow::QuitRequested() {
    return true;
}

void TPropertyWindow::LanguageChanged() {
    TDialogWindow::LanguageChanged();
    SetWindowTitle();
}

void TPropertyWindow::SetWindowTitle() {
    if (fView == nullptr)
        return;
    const std::string name = extract_file_name(fView->FileName());
    SetTitle(local_text_with("%FileName% Information", "%FileName%", name).c_str());
}
