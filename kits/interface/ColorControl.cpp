#include <interface/ColorControl.h>

#include <app/Message.h>
#include <cmath>

#include "kits/interface/LabelledPeer.h"

using namespace BPrivate;

namespace {

color_control_layout KnownLayout(int32 layout) {
    switch (layout) {
    case B_CELLS_4x64:
    case B_CELLS_8x32:
    case B_CELLS_16x16:
    case B_CELLS_64x4: return static_cast<color_control_layout>(layout);
    default: return B_CELLS_32x8;
    }
}

/// The bits of a value that tell its colour.
int32 Opaque(int32 value) {
    return static_cast<int32>(static_cast<uint32>(value) & 0xffffff00U);
}

}  // namespace

class BColorControl::Peer : public LabelledPeer {
public:
    explicit Peer(BColorControl& control) : LabelledPeer(control), fControl(control) {}

    ControlState State() const override { return ColorControlState{fControl.ValueAsColor()}; }

    void UserChanged(const BMessage& event) override {
        int32 color = 0;
        if (event.FindInt32("color", &color) != B_OK)
            return;
        fControl.AdoptValue(static_cast<int32>(static_cast<uint32>(color) << 8));
        (void)fControl.Invoke();
    }

private:
    BColorControl& fControl;
};

BColorControl::BColorControl(BPoint leftTop, color_control_layout layout, float cellSize,
    const char* name, BMessage* message, bool bufferedDrawing)
    : BControl(BRect(leftTop, leftTop), name, nullptr, message, B_FOLLOW_LEFT | B_FOLLOW_TOP,
          B_WILL_DRAW | B_NAVIGABLE),
      fLayout(KnownLayout(layout)), fBuffered(bufferedDrawing) {
    BColorControl::SetCellSize(cellSize);
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
    ResizeToPreferred();
}

BColorControl::BColorControl(BMessage* archive)
    : BControl(archive), fLayout(KnownLayout(archive->GetInt32("_layout", B_CELLS_32x8))),
      fBuffered(archive->GetBool("_usebm", false)) {
    AdoptValue(Opaque(Value()));
    BColorControl::SetCellSize(archive->GetFloat("_csize", fCellSize));
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
    if (!(Frame().Width() > 0 && Frame().Height() > 0))
        ResizeToPreferred();
}

BColorControl::~BColorControl() = default;

BArchivable* BColorControl::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BColorControl") ? new BColorControl(archive) : nullptr;
}

status_t BColorControl::Archive(BMessage* archive, bool deep) const {
    status_t status = BControl::Archive(archive, deep);
    if (status == B_OK)
        status = archive->AddInt32("_layout", fLayout);
    if (status == B_OK)
        status = archive->AddFloat("_csize", fCellSize);
    if (status == B_OK)
        status = archive->AddBool("_usebm", fBuffered);
    return status;
}

void BColorControl::SetValue(int32 value) {
    BControl::SetValue(Opaque(value));
}

void BColorControl::SetValue(rgb_color color) {
    SetValue(static_cast<int32>(static_cast<uint32>(color.red) << 24 |
        static_cast<uint32>(color.green) << 16 | static_cast<uint32>(color.blue) << 8));
}

rgb_color BColorControl::ValueAsColor() const {
    const auto value = static_cast<uint32>(Value());
    return {static_cast<uint8>(value >> 24), static_cast<uint8>(value >> 16),
        static_cast<uint8>(value >> 8), 255};
}

void BColorControl::SetCellSize(float size) {
    if (std::isfinite(size) && size > 0)
        fCellSize = size;
}

void BColorControl::SetLayout(color_control_layout layout) {
    fLayout = KnownLayout(layout);
}
