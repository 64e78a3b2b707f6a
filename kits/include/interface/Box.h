#pragma once

#include <interface/GraphicsDefs.h>
#include <interface/View.h>
#include <string>

/// A border, with a label in it, around the views that are its children. One that is at most two
/// units wide or high is a separator line.
///
/// Belongs to its window's thread.
class BBox : public BView {
public:
    explicit BBox(BRect frame, const char* name = nullptr,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP,
        uint32 flags = B_WILL_DRAW | B_FRAME_EVENTS | B_NAVIGABLE_JUMP,
        border_style border = B_FANCY_BORDER);
    /// From an archive: BView's fields and "_label" string, "_style" int32.
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

private:
    class Peer;

    void _StateChanged();

    std::string fLabel;
    border_style fBorder = B_FANCY_BORDER;
};
