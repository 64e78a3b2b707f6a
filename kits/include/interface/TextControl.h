#pragma once

#include <interface/Control.h>
#include <memory>
#include <string>

/// A label and a field with one line of text. The modification message is sent at every change
/// the user makes to the text; the control's own message when Enter is pressed or the focus leaves
/// the field, if the user changed the text since it was last sent.
///
/// Belongs to its window's thread.
class BTextControl : public BControl {
public:
    BTextControl(BRect frame, const char* name, const char* label, const char* initialText,
        BMessage* message, uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_WILL_DRAW | B_NAVIGABLE);
    /// From an archive: BControl's fields and "_text" string, "_divide" float, "_mod_msg" message.
    explicit BTextControl(BMessage* archive);
    ~BTextControl() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// Changes the text; sends nothing. Line breaks become blanks.
    virtual void SetText(const char* text);
    const char* Text() const { return fText.c_str(); }

    /// Takes ownership; null for none.
    virtual void SetModificationMessage(BMessage* message);
    BMessage* ModificationMessage() const { return fModification.get(); }

    /// Where the field begins, from the control's left edge. At first the middle with a label, the
    /// left edge without.
    virtual void SetDivider(float position);
    float Divider() const { return fDivider; }

    void KeyDown(const char* bytes, int32 numBytes) override;
    void MakeFocus(bool focused = true) override;

private:
    class Peer;

    void _InvokeIfChanged();

    std::string fText;
    std::unique_ptr<BMessage> fModification;
    float fDivider = 0;
    bool fChanged = false;  // by the user, since the message was last sent
};
