#pragma once

#include <interface/Control.h>
#include <interface/GraphicsDefs.h>
#include <memory>
#include <string>

enum thumb_style { B_BLOCK_THUMB, B_TRIANGLE_THUMB };

/// On which sides of the bar the hash marks are.
enum hash_mark_location {
    B_HASH_MARKS_NONE = 0,
    B_HASH_MARKS_TOP = 1,
    B_HASH_MARKS_LEFT = 1,
    B_HASH_MARKS_BOTTOM = 2,
    B_HASH_MARKS_RIGHT = 2,
    B_HASH_MARKS_BOTH = 3
};

/// A knob on a bar, with a label above it, labels for both ends below it, and marks along it. Its
/// value lies between its limits.
///
/// While the knob is dragged the modification message is sent at every step; the control's own
/// message at the end of a drag, and for every change by the keys, the wheel or a click on the
/// bar.
///
/// The theme draws the knob; the thumb's style, the bar's thickness and the delay are kept.
/// Belongs to its window's thread.
class BSlider : public BControl {
public:
    BSlider(BRect frame, const char* name, const char* label, BMessage* message, int32 minimum,
        int32 maximum, thumb_style style = B_BLOCK_THUMB,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_NAVIGABLE | B_WILL_DRAW | B_FRAME_EVENTS);
    BSlider(BRect frame, const char* name, const char* label, BMessage* message, int32 minimum,
        int32 maximum, orientation direction, thumb_style style = B_BLOCK_THUMB,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_NAVIGABLE | B_WILL_DRAW | B_FRAME_EVENTS);
    /// From an archive: BControl's fields and "_mod_msg" message, "_minlbl" and "_maxlbl" string,
    /// "_min", "_max", "_incrementvalue", "_hashcount", "_orient", "_sdelay" int32, "_bthickness"
    /// float, "_hashloc" and "_sstyle" int16 or int32.
    explicit BSlider(BMessage* archive);
    ~BSlider() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// Brought within the limits.
    void SetValue(int32 value) override;
    /// The place between the limits, 0 to 1; one outside is brought in, no number is ignored.
    virtual void SetPosition(float position);
    float Position() const;

    /// A maximum below the minimum counts as equal to it. The value follows into the limits.
    virtual void SetLimits(int32 minimum, int32 maximum);
    void GetLimits(int32* minimum, int32* maximum) const;

    /// Null or "" for none.
    virtual void SetLimitLabels(const char* minLabel, const char* maxLabel);
    const char* MinLimitLabel() const { return fMinLabel.c_str(); }
    const char* MaxLimitLabel() const { return fMaxLabel.c_str(); }

    /// The step of the arrow keys, at least 1.
    virtual void SetKeyIncrementValue(int32 step);
    int32 KeyIncrementValue() const { return fStep; }

    /// How many marks there are, one at each end included, at equal distances.
    virtual void SetHashMarkCount(int32 count);
    int32 HashMarkCount() const { return fHashCount; }
    virtual void SetHashMarks(hash_mark_location where);
    hash_mark_location HashMarks() const { return fHashMarks; }

    virtual void SetOrientation(orientation direction);
    orientation Orientation() const { return fOrientation; }
    virtual void SetStyle(thumb_style style) { fStyle = style; }
    thumb_style Style() const { return fStyle; }
    virtual void SetBarThickness(float thickness);
    float BarThickness() const { return fBarThickness; }
    virtual void SetSnoozeAmount(int32 microseconds) { fSnoozeAmount = microseconds; }
    int32 SnoozeAmount() const { return fSnoozeAmount; }

    /// Takes ownership; null for none.
    virtual void SetModificationMessage(BMessage* message);
    BMessage* ModificationMessage() const { return fModification.get(); }

private:
    class Peer;

    std::string fMinLabel;
    std::string fMaxLabel;
    std::unique_ptr<BMessage> fModification;
    int32 fMin = 0;
    int32 fMax = 100;
    int32 fStep = 1;
    int32 fHashCount = 0;
    int32 fSnoozeAmount = 20000;
    float fBarThickness = 6;
    hash_mark_location fHashMarks = B_HASH_MARKS_NONE;
    orientation fOrientation = B_HORIZONTAL;
    thumb_style fStyle = B_BLOCK_THUMB;
};
