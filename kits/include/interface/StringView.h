#pragma once

#include <interface/GraphicsDefs.h>
#include <interface/View.h>
#include <string>

/// One line of text the user cannot edit, in the view's font and high colour (black: the text
/// colour of the desktop's theme). A text that is too long is cut and ends in an ellipsis.
///
/// Belongs to its window's thread.
class BStringView : public BView {
public:
    BStringView(BRect frame, const char* name, const char* text,
        uint32 resizingMode = B_FOLLOW_LEFT | B_FOLLOW_TOP, uint32 flags = B_WILL_DRAW);
    /// From an archive: BView's fields and "_text" string, "_align" int32.
    explicit BStringView(BMessage* archive);
    ~BStringView() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    void SetText(const char* text);
    const char* Text() const { return fText.c_str(); }

    void SetAlignment(alignment align);
    alignment Alignment() const { return fAlignment; }

    void SetHighColor(rgb_color color) override;
    using BView::SetHighColor;
    void SetFont(const BFont* font, uint32 mask = B_FONT_ALL) override;
    /// The size that shows the whole text.
    void GetPreferredSize(float* width, float* height) override;

private:
    class Peer;

    void _StateChanged();

    std::string fText;
    alignment fAlignment = B_ALIGN_LEFT;
};
