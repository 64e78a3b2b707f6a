#pragma once

#include <interface/Menu.h>
#include <interface/View.h>
#include <memory>
#include <string>

/// A label and, from the divider on, a field that shows the menu's marked item (or else the menu's
/// title) and lets the user choose another.
///
/// Owns its menu. Belongs to its window's thread.
class BMenuField : public BView {
public:
    BMenuField(BRect frame, const char* name, const char* label, BMenu* menu,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
    /// With `fixedSize` the field keeps the control's width instead of that of its longest item.
    BMenuField(BRect frame, const char* name, const char* label, BMenu* menu, bool fixedSize,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
    /// From an archive: BView's fields and "_label" string, "_disable" and "be:fixeds" bool,
    /// "_divide" float, and the menu as the first of that kind in "_views".
    explicit BMenuField(BMessage* archive);
    ~BMenuField() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    virtual void SetLabel(const char* label);
    const char* Label() const { return fLabel.c_str(); }

    virtual void SetEnabled(bool enabled);
    bool IsEnabled() const { return fEnabled; }

    /// Where the field begins, from the control's left edge. At first the middle with a label, the
    /// left edge without.
    virtual void SetDivider(float position);
    float Divider() const { return fDivider; }

    BMenu* Menu() const { return fMenu.get(); }
    /// The marked item; null for none.
    BMenuItem* MenuItem() const { return fMenu ? fMenu->FindMarked() : nullptr; }

    /// Waits for the display.
    void GetPreferredSize(float* width, float* height) override;

private:
    class Peer;

    void _Install();

    std::string fLabel;
    std::unique_ptr<BMenu> fMenu;
    float fDivider = 0;
    bool fEnabled = true;
    bool fFixedSize = false;
};
