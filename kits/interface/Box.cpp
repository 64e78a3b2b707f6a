#include <interface/Box.h>

#include <app/Message.h>

#include "kits/interface/ControlPeer.h"

using namespace BPrivate;

namespace {

border_style ArchivedBorder(const BMessage& archive) {
    const int32 style = archive.GetInt32("_style", B_FANCY_BORDER);
    return style >= B_PLAIN_BORDER && style <= B_NO_BORDER ? static_cast<border_style>(style)
                                                           : B_FANCY_BORDER;
}

}  // namespace

class BBox::Peer : public ControlPeer {
public:
    explicit Peer(BBox& box) : fBox(box) {}

    ControlState State() const override { return BoxState{fBox.fBorder, fBox.fLabel, fBox.fFill}; }
    std::string AccessibleName() const override { return fBox.fLabel; }
    void UserChanged(const BMessage&) override {}

private:
    BBox& fBox;
};

BBox::BBox(BRect frame, const char* name, uint32 resizingMode, uint32 flags, border_style border)
    : BView(frame, name, resizingMode, flags), fBorder(border) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BBox::BBox(BMessage* archive)
    : BView(archive), fLabel(archive->GetString("_label", "")), fBorder(ArchivedBorder(*archive)) {
    rgb_color fill;
    if (archive->FindColor("_fill", &fill) == B_OK)
        BBox::SetViewColor(fill);
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BBox::~BBox() = default;

BArchivable* BBox::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BBox") ? new BBox(archive) : nullptr;
}

status_t BBox::Archive(BMessage* archive, bool deep) const {
    status_t status = BView::Archive(archive, deep);
    if (status == B_OK && !fLabel.empty())
        status = archive->AddString("_label", fLabel.c_str());
    if (status == B_OK)
        status = archive->AddInt32("_style", fBorder);
    if (status == B_OK && fFill)
        status = archive->AddColor("_fill", *fFill);
    return status;
}

void BBox::SetBorder(border_style border) {
    if (border == fBorder)
        return;
    fBorder = border;
    _StateChanged();
}

void BBox::SetLabel(const char* label) {
    const std::string text = label == nullptr ? "" : label;
    if (text == fLabel)
        return;
    fLabel = text;
    _StateChanged();
}

void BBox::SetViewColor(rgb_color color) {
    BView::SetViewColor(color);
    std::optional<rgb_color> fill;
    if (color != B_TRANSPARENT_COLOR)
        fill = color;
    if (fill == fFill)
        return;
    fFill = fill;
    _StateChanged();
}

void BBox::_StateChanged() {
    ControlPeer* peer = ControlPeer::Of(this);
    if (peer == nullptr)
        return;  // being made
    peer->StateChanged();
    peer->PlaceChanged();  // the label is the accessible name
}
