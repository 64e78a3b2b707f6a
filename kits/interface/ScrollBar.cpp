#include <interface/ScrollBar.h>

#include <algorithm>
#include <app/Message.h>
#include <cmath>
#include <interface/Window.h>
#include <limits>

#include "kits/interface/ControlPeer.h"

using namespace BPrivate;

namespace {

/// What a calculation may have made of a distance: no number counts as 0, and none is infinite.
float Finite(float value) {
    constexpr float kLimit = std::numeric_limits<float>::max() / 4;
    return std::isnan(value) ? 0 : std::clamp(value, -kLimit, kLimit);
}

}  // namespace

class BScrollBar::Peer : public ControlPeer {
public:
    explicit Peer(BScrollBar& bar) : fBar(bar) {}

    ControlState State() const override {
        return ScrollBarState{fBar.fOrientation, fBar.fMin, fBar.fMax, fBar.fValue,
            fBar.fProportion, fBar.fSmallStep, fBar.fBigStep};
    }

    void UserChanged(const BMessage& event) override {
        float value = fBar.fValue;
        if (event.FindFloat("value", &value) != B_OK || std::isnan(value))
            return;
        value = std::clamp(value, fBar.fMin, fBar.fMax);
        if (value == fBar.fValue)
            return;
        fBar.fValue = value;
        fBar.ValueChanged(value);
    }

private:
    BScrollBar& fBar;
};

BScrollBar::BScrollBar(
    BRect frame, const char* name, BView* target, float min, float max, orientation direction)
    : BView(frame, name,
          direction == B_VERTICAL ? B_FOLLOW_TOP_BOTTOM | B_FOLLOW_RIGHT
                                  : B_FOLLOW_LEFT_RIGHT | B_FOLLOW_BOTTOM,
          B_WILL_DRAW | B_FULL_UPDATE_ON_RESIZE | B_FRAME_EVENTS),
      fMin(Finite(min)), fMax(std::max(fMin, Finite(max))), fValue(std::clamp(0.0F, fMin, fMax)),
      fOrientation(direction) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
    SetTarget(target);
}

BScrollBar::BScrollBar(BMessage* archive)
    : BView(archive), fMin(Finite(archive->GetFloat("_range", 0, 0.0F))),
      fMax(std::max(fMin, Finite(archive->GetFloat("_range", 1, 0.0F)))),
      fValue(std::clamp(Finite(archive->GetFloat("_val", 0.0F)), fMin, fMax)),
      fProportion(std::clamp(Finite(archive->GetFloat("_prop", 0.0F)), 0.0F, 1.0F)),
      fSmallStep(Finite(archive->GetFloat("_steps", 0, 1.0F))),
      fBigStep(Finite(archive->GetFloat("_steps", 1, 10.0F))),
      fOrientation(
          archive->GetInt32("_orient", B_VERTICAL) == B_HORIZONTAL ? B_HORIZONTAL : B_VERTICAL) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BScrollBar::~BScrollBar() {
    SetTarget(static_cast<BView*>(nullptr));
}

BArchivable* BScrollBar::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BScrollBar") ? new BScrollBar(archive) : nullptr;
}

status_t BScrollBar::Archive(BMessage* archive, bool deep) const {
    status_t status = BView::Archive(archive, deep);
    for (const float bound : {fMin, fMax}) {
        if (status == B_OK)
            status = archive->AddFloat("_range", bound);
    }
    for (const float step : {fSmallStep, fBigStep}) {
        if (status == B_OK)
            status = archive->AddFloat("_steps", step);
    }
    if (status == B_OK)
        status = archive->AddFloat("_val", fValue);
    if (status == B_OK)
        status = archive->AddFloat("_prop", fProportion);
    if (status == B_OK)
        status = archive->AddInt32("_orient", fOrientation);
    return status;
}

void BScrollBar::SetValue(float value) {
    if (std::isnan(value))
        return;
    value = std::clamp(value, fMin, fMax);
    if (value == fValue)
        return;
    fValue = value;
    _StateChanged();
    ValueChanged(value);
}

void BScrollBar::SetProportion(float proportion) {
    proportion = std::clamp(Finite(proportion), 0.0F, 1.0F);
    if (proportion == fProportion)
        return;
    fProportion = proportion;
    _StateChanged();
}

void BScrollBar::ValueChanged(float newValue) {
    if (fTarget == nullptr)
        return;
    const BPoint place = fTarget->Bounds().LeftTop();
    if (fOrientation == B_VERTICAL)
        fTarget->ScrollTo(BPoint(place.x, newValue));
    else
        fTarget->ScrollTo(BPoint(newValue, place.y));
}

void BScrollBar::SetRange(float min, float max) {
    min = Finite(min);
    max = std::max(min, Finite(max));
    if (min == fMin && max == fMax)
        return;
    fMin = min;
    fMax = max;
    const float value = std::clamp(fValue, fMin, fMax);
    const bool moved = value != fValue;
    fValue = value;
    _StateChanged();
    if (moved)
        ValueChanged(value);
}

void BScrollBar::GetRange(float* min, float* max) const {
    if (min != nullptr)
        *min = fMin;
    if (max != nullptr)
        *max = fMax;
}

void BScrollBar::SetSteps(float smallStep, float bigStep) {
    smallStep = Finite(smallStep);
    bigStep = Finite(bigStep);
    if (smallStep == fSmallStep && bigStep == fBigStep)
        return;
    fSmallStep = smallStep;
    fBigStep = bigStep;
    _StateChanged();
}

void BScrollBar::GetSteps(float* smallStep, float* bigStep) const {
    if (smallStep != nullptr)
        *smallStep = fSmallStep;
    if (bigStep != nullptr)
        *bigStep = fBigStep;
}

void BScrollBar::SetTarget(BView* target) {
    fTargetName.clear();
    if (target == fTarget)
        return;
    if (fTarget != nullptr && fTarget->ScrollBar(fOrientation) == this)
        fTarget->_SetScrollBar(fOrientation, nullptr);
    fTarget = target;
    if (fTarget == nullptr)
        return;
    if (BScrollBar* other = fTarget->ScrollBar(fOrientation))
        other->fTarget = nullptr;
    fTarget->_SetScrollBar(fOrientation, this);
}

void BScrollBar::SetTarget(const char* targetName) {
    SetTarget(static_cast<BView*>(nullptr));
    if (targetName == nullptr)
        return;
    if (Window() != nullptr)
        SetTarget(Window()->FindView(targetName));
    if (fTarget == nullptr)
        fTargetName = targetName;
}

void BScrollBar::AttachedToWindow() {
    BView::AttachedToWindow();
    if (!fTargetName.empty())
        SetTarget(std::string(fTargetName).c_str());
}

void BScrollBar::GetPreferredSize(float* width, float* height) {
    const BPoint size = TheDisplay().PreferredSize(ControlPeer::Of(this)->State());
    const bool vertical = fOrientation == B_VERTICAL;
    if (width != nullptr)
        *width = vertical ? size.x : Bounds().Width();
    if (height != nullptr)
        *height = vertical ? Bounds().Height() : size.y;
}

void BScrollBar::_StateChanged() {
    ControlPeer::Of(this)->StateChanged();
}
