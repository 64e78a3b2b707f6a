#include "kits/interface/FilePanelWindow.h"

#include <algorithm>
#include <storage/Node.h>
#include <sys/stat.h>

#include "kits/interface/AlertAsker.h"
#include "kits/interface/AlertLayout.h"

using BPrivate::FilePanelState;
using BPrivate::FilePanelView;

namespace {

constexpr BRect kFirstFrame(100, 100, 799, 579);

constexpr float kLeastWidth = 320;
constexpr float kLeastHeight = 240;
constexpr float kBesides = 16;  // at least both borders

}  // namespace

BFilePanel::PanelWindow::PanelWindow(BFilePanel& panel, const FilePanelState& state, bool modal)
    : BWindow(kFirstFrame, "Open", B_TITLED_WINDOW_LOOK,
          modal ? B_MODAL_APP_WINDOW_FEEL : B_NORMAL_WINDOW_FEEL, B_ASYNCHRONOUS_CONTROLS),
      fPanel(panel),
      fView(new FilePanelView(Bounds(), state,
          {[this](const BMessage& refs) { Chosen(refs); }, [this] { Cancelled(); }})) {
    AddChild(fView);
    fView->MakeFocus(true);
    SetSizeLimits(kLeastWidth, kFirstFrame.Width() * 100, kLeastHeight, kFirstFrame.Height() * 100);
}

void BFilePanel::PanelWindow::Appear(const BPrivate::AlertAsker& asker) {
    if (!IsHidden()) {
        Activate(true);
        return;
    }
    if (!fWasPlaced) {
        fWasPlaced = true;
        const BRect screen = asker.Screen();
        BPoint size;
        fView->GetPreferredSize(&size.x, &size.y);
        size.x = std::min(std::max(size.x, Bounds().Width()), screen.Width() - kBesides);
        size.y = std::min(std::max(size.y, Bounds().Height()),
            screen.Height() - BPrivate::kLikelyTitleBar - kBesides);
        MoveTo(BPrivate::PlaceOfAlert(size, asker.Place(), screen));
        ResizeTo(size.x, size.y);
    }
    Show();
    Activate(true);
}

void BFilePanel::PanelWindow::Chosen(const BMessage& refs) {
    BMessage copy(message);
    entry_ref ref;
    for (int32 i = 0; refs.FindRef("refs", i, &ref) == B_OK; i++) {
        if (IsAdmitted(ref))
            (void)copy.AddRef("refs", &ref);
    }
    if (!copy.HasRef("refs"))
        return;
    const BMessenger to = target;
    fPanel.SendMessage(&to, &copy);
    if (hidesWhenDone)
        HideForUser();
}

void BFilePanel::PanelWindow::Cancelled() {
    HideForUser();
    BMessage cancel(B_CANCEL);
    (void)cancel.AddPointer("source", &fPanel);
    (void)cancel.AddInt32("old_what", static_cast<int32>(message.what));
    const BMessenger to = target;
    fPanel.SendMessage(&to, &cancel);
}

void BFilePanel::PanelWindow::HideForUser() {
    if (IsHidden())
        return;
    Hide();
    fPanel.WasHidden();
}

bool BFilePanel::PanelWindow::IsAdmitted(const entry_ref& ref) const {
    if (filter == nullptr)
        return true;
    BNode node(&ref);
    struct stat st = {};
    (void)node.GetStat(&st);
    return filter->Filter(&ref, &node, &st, "");
}

bool BFilePanel::PanelWindow::QuitRequested() {
    // The application asks its windows directly when it quits; the user's close box is a message.
    if (CurrentMessage() == nullptr)
        return true;
    Cancelled();
    return false;
}
