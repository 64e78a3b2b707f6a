#pragma once

#include <interface/GraphicsDefs.h>
#include <interface/View.h>
#include <string>

inline constexpr float B_V_SCROLL_BAR_WIDTH = 14.0F;
inline constexpr float B_H_SCROLL_BAR_HEIGHT = 14.0F;

/// A scroll bar. Whenever its value changes, by the program or by the user, ValueChanged() is
/// called with the new one, which scrolls the target.
///
/// Belongs to its window's thread. The target is borrowed; either may be deleted first.
class BScrollBar : public BView {
public:
    /// `target` may be null.
    BScrollBar(
        BRect frame, const char* name, BView* target, float min, float max, orientation direction);
    /// From an archive: BView's fields and "_range" and "_steps" (two floats each), "_val" and
    /// "_prop" float, "_orient" int32. The target is not archived.
    explicit BScrollBar(BMessage* archive);
    ~BScrollBar() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// The value is kept within the range; one that is no number is ignored.
    void SetValue(float value);
    float Value() const { return fValue; }

    /// The visible part of the whole, 0 to 1; 0 when unknown. Values outside are brought in.
    void SetProportion(float proportion);
    float Proportion() const { return fProportion; }

    /// Hook: scrolls the target so that its left or top edge is at the value.
    virtual void ValueChanged(float newValue);

    /// A maximum below the minimum counts as equal to it. The value follows into the range.
    void SetRange(float min, float max);
    void GetRange(float* min, float* max) const;

    /// By how much the arrows and a click beside the thumb change the value.
    void SetSteps(float smallStep, float bigStep);
    void GetSteps(float* smallStep, float* bigStep) const;

    /// Null for none. A view has one scroll bar of each orientation: its last.
    void SetTarget(BView* target);
    /// By the name of a view in the same window, looked up now or else once the bar is attached.
    void SetTarget(const char* targetName);
    BView* Target() const { return fTarget; }

    orientation Orientation() const { return fOrientation; }

    void AttachedToWindow() override;
    /// The desktop's thickness for scroll bars, and the present length.
    void GetPreferredSize(float* width, float* height) override;

private:
    friend class BView;  // a target that is deleted calls _TargetGone()
    class Peer;

    void _TargetGone() { fTarget = nullptr; }
    void _StateChanged();

    BView* fTarget = nullptr;
    std::string fTargetName;
    float fMin = 0;
    float fMax = 0;
    float fValue = 0;
    float fProportion = 0;
    float fSmallStep = 1;
    float fBigStep = 10;
    orientation fOrientation = B_VERTICAL;
};
