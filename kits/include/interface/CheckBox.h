#pragma once

#include <interface/Control.h>

/// A box to tick: its value is `B_CONTROL_ON` or `B_CONTROL_OFF`. Being clicked changes the value
/// and invokes it.
///
/// Belongs to its window's thread.
class BCheckBox : public BControl {
public:
    BCheckBox(BRect frame, const char* name, const char* label, BMessage* message,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
    explicit BCheckBox(BMessage* archive);
    ~BCheckBox() override;

    static BArchivable* Instantiate(BMessage* archive);

    /// Anything but `B_CONTROL_OFF` counts as on.
    void SetValue(int32 value) override;

private:
    class Peer;
};
