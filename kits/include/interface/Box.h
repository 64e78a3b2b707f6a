#pragma once

#include <interface/GraphicsDefs.h>
#include <interface/View.h>
#include <optional>
#include <string>

/// A border, with a label in it, around the views that are its children. One that is at most two
/// units wide or high is a separator line.
///
/// A colour set by SetViewColor() is shown inside of the border, with its alpha over a checkered
/// ground, so that a box can be the sample of a colour. Views in such a box that draw themselves
/// are covered by it, controls are not.
///
/// Belongs to its window's thread.
class BBox : public BView {
public:
    explicit BBox(BRect frame, const char* name = nullptr,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_WILL_DRAW | B_FRAME_EVENTS | B_NAVIGABLE_JUMP,
        border_style border = B_FANCY_BORDER);
    /// From an archive: BView's fields and "_label" string, "_style" int32, and "_fill" the colour
    /// set by SetViewColor().
    explicit BBox(BMessage* archive);
    ~BBox() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    void SetBorder(border_style border);
    border_style Border() const { return fBorder; }

    /// Null or "" takes the label away.
    void SetLabel(const char* label);
    /// Null when there is none.
    const char* Label() const { return fLabel.empty() ? nullptr : fLabel.c_str(); }

    using BView::SetViewColor;
    /// B_TRANSPARENT_COLOR shows what lies behind again.
    void SetViewColor(rgb_color color) override;

private:
    class Peer;

    void _StateChanged();

    std::string fLabel;
    std::optional<rgb_color> fFill;
    border_style fBorder = B_FANCY_BORDER;
};
