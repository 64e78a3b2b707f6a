#pragma once

#include <interface/View.h>

/// Base of every view: turns mouse events into clicks and drags, and hears of a change of the
/// system's language. Lives on its window's thread.
class TBasicView : public BView {
public:
    TBasicView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);
    explicit TBasicView(BMessage* archive);

    void MessageReceived(BMessage* message) override;
    void MouseDown(BPoint where) override;
    void MouseUp(BPoint where) override;
    void MouseMoved(BPoint where, uint32 transit, const BMessage* dragMessage) override;

    /// Fetches every text that is shown again.
    virtual void LanguageChanged();

    // Clicks are counted in threes: of five quick ones, the first and fourth are single, the
    // second and fifth double, the third nothing. A press that became a drag is no click.
    virtual void MouseClickLeftDouble(BPoint where);
    virtual void MouseClickLeftSingle(BPoint where);
    virtual void MouseClickRightDouble(BPoint where);
    virtual void MouseClickRightSingle(BPoint where);
    /// The button went down for what may become a single click.
    virtual void MouseDownLeft(BPoint where);
    virtual void MouseDownRight(BPoint where);
    /// The mouse left the place of the press; once a press.
    virtual void MouseDragLeft(BPoint where);
    virtual void MouseDragRight(BPoint where);

private:
    void Init();

    bool fDragging;
    int32 fButtons;  // of the press under way, 0 when there is none
    int32 fClicks;
    BPoint fDownPoint;
};
