#pragma once

#include <interface/GraphicsDefs.h>
#include <interface/View.h>

class BScrollBar;

/// A frame around another view, its target, with scroll bars for it.
///
/// Made around a view that hangs from nothing yet: the scroll view takes it as its child, lies
/// where it lay, and is as much larger as the border and the scroll bars need (two units a side
/// for a fancy border, one for a plain one). The target follows its size from then on.
///
/// A BListView as the target shows the desktop's own scroll bar and border and fills the scroll
/// view, so that ScrollBar() has none to tell. It shows the bar only while it needs one.
///
/// Belongs to its window's thread.
class BScrollView : public BView {
public:
    /// Takes ownership of the target, which may be null.
    BScrollView(const char* name, BView* target, uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = 0, bool horizontal = false, bool vertical = false,
        border_style border = B_FANCY_BORDER);
    /// From an archive: BView's fields, "_style" int32 and "_native_bar" bool (a list shows its
    /// own). The scroll bars are found among the children; the first other one is the target.
    explicit BScrollView(BMessage* archive);
    ~BScrollView() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// Null for a side without one, and for a BListView, which has its own.
    BScrollBar* ScrollBar(orientation direction) const;

    virtual void SetBorder(border_style border);
    border_style Border() const { return fBorder; }
    /// A highlighted border has the colour of the keyboard's focus.
    virtual status_t SetBorderHighlighted(bool highlighted);
    bool IsBorderHighlighted() const { return fHighlighted; }

    /// Deletes the target before, and takes ownership of the new one.
    void SetTarget(BView* target);
    BView* Target() const { return fTarget; }

    void Draw(BRect updateRect) override;

private:
    void _AdoptTarget();
    void _Layout();
    BRect _Inside() const;

    BView* fTarget = nullptr;  // a child, as the bars are
    BScrollBar* fHorizontal = nullptr;
    BScrollBar* fVertical = nullptr;
    border_style fBorder = B_FANCY_BORDER;
    bool fHighlighted = false;
    bool fNativeBar = false;  // a list's own stands for fVertical
};
