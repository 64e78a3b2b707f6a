#pragma once

#include <app/Invoker.h>
#include <interface/View.h>
#include <string>

inline constexpr int32 B_CONTROL_OFF = 0;
inline constexpr int32 B_CONTROL_ON = 1;

/// A view the user operates, with a label, a value and a message to send when operated.
///
/// Belongs to its window's thread, like every view: it is touched under the window's lock. The
/// control classes of the kit are drawn by the desktop, after their state, and not by Draw(); a
/// class of one's own derived from this one draws itself and is invalidated by a change of state.
class BControl : public BView, public BInvoker {
public:
    /// Takes ownership of the message.
    BControl(BRect frame, const char* name, const char* label, BMessage* message,
        uint32 resizingMode, uint32 flags);
    /// From an archive: BView's fields and "_label" string, "_val" int32, "_disable" bool and
    /// "_msg" message.
    explicit BControl(BMessage* archive);
    ~BControl() override;

    status_t Archive(BMessage* archive, bool deep = true) const override;

    virtual void SetLabel(const char* label);
    const char* Label() const { return fLabel.c_str(); }

    /// Changes the value; sends nothing.
    virtual void SetValue(int32 value);
    int32 Value() const { return fValue; }

    virtual void SetEnabled(bool enabled);
    bool IsEnabled() const { return fEnabled; }

    /// Sends the message given, or else the control's own, to the target, with "when" (int64),
    /// "source" (pointer to this) and "be:value" (int32) set in it. The message itself stays as it
    /// is. `B_BAD_VALUE` when there is neither.
    status_t Invoke(BMessage* message = nullptr) override;

    /// Without a target the window becomes it.
    void AttachedToWindow() override;
    /// The size the desktop wants for it.
    void GetPreferredSize(float* width, float* height) override;

protected:
    /// Takes the value over from the screen, which shows it already.
    void AdoptValue(int32 value) { fValue = value; }
    /// Shows the state again after a change.
    void StateChanged();

private:
    std::string fLabel;
    int32 fValue = B_CONTROL_OFF;
    bool fEnabled = true;
};
