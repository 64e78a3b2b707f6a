#include "kits/interface/FilePanelView.h"

#include <app/Message.h>
#include <utility>

#include "kits/interface/ControlPeer.h"

namespace BPrivate {

class FilePanelView::Peer : public ControlPeer {
public:
    explicit Peer(FilePanelView& view) : fView(view) {}

    ControlState State() const override { return fView.fState; }

    void UserChanged(const BMessage& event) override {
        const char* folder = nullptr;
        if (event.FindString("folder", &folder) == B_OK)
            fView.fState.folder = folder;  // which the control shows already
        else if (event.HasRef("refs"))
            fView.fListener.chosen(event);
        else if (event.GetBool("cancel", false))
            fView.fListener.cancelled();
    }

    bool TakesLate(const BMessage& event) const override {
        return event.HasRef("refs") || event.HasBool("cancel");
    }

private:
    FilePanelView& fView;
};

FilePanelView::FilePanelView(BRect frame, FilePanelState state, Listener listener)
    : BView(frame, "files", B_FOLLOW_ALL, B_NAVIGABLE), fState(std::move(state)),
      fListener(std::move(listener)) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

void FilePanelView::SetFolder(const std::string& path) {
    fState.folder = path;
    fState.folderSerial++;
    ControlPeer::Of(this)->StateChanged();
}

void FilePanelView::SetOpenLabel(const std::string& label) {
    fState.openLabel = label;
    ControlPeer::Of(this)->StateChanged();
}

void FilePanelView::SetCancelLabel(const std::string& label) {
    fState.cancelLabel = label;
    ControlPeer::Of(this)->StateChanged();
}

void FilePanelView::GetPreferredSize(float* width, float* height) {
    ControlPeer::Of(this)->GetPreferredSize(width, height);
}

}  // namespace BPrivate
