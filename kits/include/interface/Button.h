#pragma once

#include <interface/Control.h>

/// A push button: being clicked invokes it. A value other than 0 shows it pressed.
///
/// Belongs to its window's thread.
class BButton : public BControl {
public:
    BButton(BRect frame, const char* name, const char* label, BMessage* message,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
    /// From an archive: BControl's fields and "_default" bool.
    explicit BButton(BMessage* archive);
    ~BButton() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// Makes this the window's default button, the one Enter stands for, in place of the one
    /// before; or no longer. One that is in no window yet becomes it when it gets into one.
    virtual void MakeDefault(bool isDefault);
    bool IsDefault() const { return fIsDefault; }

    /// Shows it without edges, as in a tool bar; or with them. Not archived.
    void SetFlat(bool flat);
    bool IsFlat() const { return fIsFlat; }

    void AttachedToWindow() override;
    void DetachedFromWindow() override;

private:
    class Peer;

    bool fIsDefault = false;
    bool fIsFlat = false;
};
