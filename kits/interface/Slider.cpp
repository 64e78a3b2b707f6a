#include <interface/Slider.h>

#include <algorithm>
#include <app/Message.h>
#include <cmath>

#include "kits/interface/ArchiveFields.h"
#include "kits/interface/LabelledPeer.h"

using namespace BPrivate;

namespace {

/// A number that archives have in two widths.
int32 Number(const BMessage& archive, const char* field, int32 fallback) {
    int16 narrow = 0;
    if (archive.FindInt16(field, &narrow) == B_OK)
        return narrow;
    return archive.GetInt32(field, fallback);
}

}  // namespace

class BSlider::Peer : public LabelledPeer {
public:
    explicit Peer(BSlider& slider) : LabelledPeer(slider), fSlider(slider) {}

    ControlState State() const override {
        SliderState state;
        state.label = fSlider.Label();
        state.minLabel = fSlider.fMinLabel;
        state.maxLabel = fSlider.fMaxLabel;
        state.min = fSlider.fMin;
        state.max = fSlider.fMax;
        state.value = fSlider.Value();
        state.step = fSlider.fStep;
        state.hashMarks = fSlider.fHashCount;
        state.hashesAbove = (fSlider.fHashMarks & B_HASH_MARKS_TOP) != 0;
        state.hashesBelow = (fSlider.fHashMarks & B_HASH_MARKS_BOTTOM) != 0;
        state.direction = fSlider.fOrientation;
        return state;
    }

    void UserChanged(const BMessage& event) override {
        int32 value = fSlider.Value();
        if (event.FindInt32("value", &value) != B_OK)
            return;
        fSlider.AdoptValue(std::clamp(value, fSlider.fMin, fSlider.fMax));
        if (event.GetBool("final", true))
            (void)fSlider.Invoke();
        else if (fSlider.fModification)
            (void)fSlider.Invoke(fSlider.fModification.get());
    }

private:
    BSlider& fSlider;
};

BSlider::BSlider(BRect frame, const char* name, const char* label, BMessage* message, int32 minimum,
    int32 maximum, thumb_style style, uint32 resizingMode, uint32 flags)
    : BSlider(frame, name, label, message, minimum, maximum, B_HORIZONTAL, style, resizingMode,
          flags) {}

BSlider::BSlider(BRect frame, const char* name, const char* label, BMessage* message, int32 minimum,
    int32 maximum, orientation direction, thumb_style style, uint32 resizingMode, uint32 flags)
    : BControl(frame, name, label, message, resizingMode, flags), fMin(minimum),
      fMax(std::max(minimum, maximum)), fOrientation(direction), fStyle(style) {
    AdoptValue(fMin);
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BSlider::BSlider(BMessage* archive)
    : BControl(archive), fMinLabel(archive->GetString("_minlbl", "")),
      fMaxLabel(archive->GetString("_maxlbl", "")),
      fModification(ArchivedMessage(*archive, "_mod_msg")), fMin(Number(*archive, "_min", 0)),
      fMax(std::max(fMin, Number(*archive, "_max", 100))),
      fStep(std::max(1, Number(*archive, "_incrementvalue", 1))),
      fHashCount(std::max(0, Number(*archive, "_hashcount", 0))),
      fSnoozeAmount(Number(*archive, "_sdelay", 20000)),
      fHashMarks(static_cast<hash_mark_location>(
          Number(*archive, "_hashloc", B_HASH_MARKS_NONE) & B_HASH_MARKS_BOTH)),
      fOrientation(
          Number(*archive, "_orient", B_HORIZONTAL) == B_VERTICAL ? B_VERTICAL : B_HORIZONTAL),
      fStyle(Number(*archive, "_sstyle", B_BLOCK_THUMB) == B_TRIANGLE_THUMB ? B_TRIANGLE_THUMB
                                                                            : B_BLOCK_THUMB) {
    AdoptValue(std::clamp(Value(), fMin, fMax));
    BSlider::SetBarThickness(archive->GetFloat("_bthickness", fBarThickness));
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BSlider::~BSlider() = default;

BArchivable* BSlider::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BSlider") ? new BSlider(archive) : nullptr;
}

status_t BSlider::Archive(BMessage* archive, bool deep) const {
    FirstFailure add(BControl::Archive(archive, deep));
    if (fModification)
        add(archive->AddMessage("_mod_msg", fModification.get()));
    if (!fMinLabel.empty())
        add(archive->AddString("_minlbl", fMinLabel.c_str()));
    if (!fMaxLabel.empty())
        add(archive->AddString("_maxlbl", fMaxLabel.c_str()));
    add(archive->AddInt32("_min", fMin));
    add(archive->AddInt32("_max", fMax));
    add(archive->AddInt32("_incrementvalue", fStep));
    add(archive->AddInt32("_hashcount", fHashCount));
    add(archive->AddInt16("_hashloc", static_cast<int16>(fHashMarks)));
    add(archive->AddInt16("_sstyle", static_cast<int16>(fStyle)));
    add(archive->AddInt32("_orient", fOrientation));
    add(archive->AddFloat("_bthickness", fBarThickness));
    add(archive->AddInt32("_sdelay", fSnoozeAmount));
    return add.Status();
}

void BSlider::SetValue(int32 value) {
    BControl::SetValue(std::clamp(value, fMin, fMax));
}

void BSlider::SetPosition(float position) {
    if (std::isnan(position))
        return;
    const double range = static_cast<double>(fMax) - fMin;
    SetValue(static_cast<int32>(
        std::lround(fMin + std::clamp(static_cast<double>(position), 0.0, 1.0) * range)));
}

float BSlider::Position() const {
    const double range = static_cast<double>(fMax) - fMin;
    return range > 0 ? static_cast<float>((static_cast<double>(Value()) - fMin) / range) : 0;
}

void BSlider::SetLimits(int32 minimum, int32 maximum) {
    fMin = minimum;
    fMax = std::max(minimum, maximum);
    AdoptValue(std::clamp(Value(), fMin, fMax));
    StateChanged();
}

void BSlider::GetLimits(int32* minimum, int32* maximum) const {
    if (minimum != nullptr)
        *minimum = fMin;
    if (maximum != nullptr)
        *maximum = fMax;
}

void BSlider::SetLimitLabels(const char* minLabel, const char* maxLabel) {
    fMinLabel = minLabel != nullptr ? minLabel : "";
    fMaxLabel = maxLabel != nullptr ? maxLabel : "";
    StateChanged();
}

void BSlider::SetKeyIncrementValue(int32 step) {
    fStep = std::max(1, step);
    StateChanged();
}

void BSlider::SetHashMarkCount(int32 count) {
    fHashCount = std::max(0, count);
    StateChanged();
}

void BSlider::SetHashMarks(hash_mark_location where) {
    fHashMarks = where;
    StateChanged();
}

void BSlider::SetOrientation(orientation direction) {
    if (direction == fOrientation)
        return;
    fOrientation = direction;
    StateChanged();
}

void BSlider::SetBarThickness(float thickness) {
    if (std::isfinite(thickness) && thickness >= 1)
        fBarThickness = thickness;
}

void BSlider::SetModificationMessage(BMessage* message) {
    fModification.reset(message);
}
