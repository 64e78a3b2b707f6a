#include "kits/interface/AlertText.h"

#include "kits/interface/ControlPeer.h"

namespace BPrivate {

class AlertTextView::Peer : public ControlPeer {
public:
    explicit Peer(AlertTextView& view) : fView(view) {}

    ControlState State() const override { return AlertTextState{fView.fText, fView.fType}; }
    std::string AccessibleName() const override { return fView.fText; }
    void UserChanged(const BMessage&) override {}

private:
    AlertTextView& fView;
};

AlertTextView::AlertTextView(const char* text, alert_type type)
    : BView(BRect(0, 0, 0, 0), "text", B_FOLLOW_NONE, 0), fText(text != nullptr ? text : ""),
      fType(type) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

void AlertTextView::GetPreferredSize(float* width, float* height) {
    ControlPeer::Of(this)->GetPreferredSize(width, height);
}

}  // namespace BPrivate
