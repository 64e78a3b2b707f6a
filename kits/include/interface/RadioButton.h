#pragma once

#include <interface/Control.h>

/// One of several choices: of the radio buttons that share a parent at most one is on. Being
/// clicked turns it on and invokes it.
///
/// Belongs to its window's thread.
class BRadioButton : public BControl {
public:
    BRadioButton(BRect frame, const char* name, const char* label, BMessage* message,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
    explicit BRadioButton(BMessage* archive);
    ~BRadioButton() override;

    static BArchivable* Instantiate(BMessage* archive);

    /// Turning one on turns its siblings off.
    void SetValue(int32 value) override;

private:
    class Peer;

    void _TurnSiblingsOff();
};
