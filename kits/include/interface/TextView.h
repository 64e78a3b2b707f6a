#pragma once

#include <interface/View.h>

namespace BPrivate {
class TextLayout;
}

/// Text broken into lines within a rectangle.
///
/// Lines break at line ends of the text and, where a line would be wider than the text rectangle,
/// where its language lets one end; a word wider than the rectangle breaks within. Offsets are bytes
/// of the UTF-8 text and always lie between characters.
///
/// Lines are laid out as far as they are asked for: LineWidth() and OffsetAt() of the first lines of
/// a long text cost little, CountLines() costs all of it.
///
/// Threads. As every view. It need not be attached to anything.
class BTextView : public BView {
public:
    BTextView(BRect frame, const char* name, BRect textRect, uint32 resizingMode, uint32 flags);
    BTextView(BRect frame, const char* name, BRect textRect, const BFont* initialFont,
        const rgb_color* initialColor, uint32 resizingMode, uint32 flags);
    ~BTextView() override;

    void SetText(const char* text);
    void SetText(const char* text, int32 length);
    /// Valid until the text changes.
    const char* Text() const { return fText.c_str(); }
    int32 TextLength() const { return static_cast<int32>(fText.size()); }

    /// Where the text goes, in the view's coordinates. Lines are as wide as the rectangle.
    void SetTextRect(BRect rect);
    BRect TextRect() const { return fTextRect; }
    void SetWordWrap(bool wrap);
    bool DoesWordWrap() const { return fWrap; }

    void SetFontAndColor(
        const BFont* font, uint32 mask = B_FONT_ALL, const rgb_color* color = nullptr);
    void GetFontAndColor(int32 offset, BFont* font, rgb_color* color = nullptr) const;

    /// At least 1. A text that ends with a line end has an empty last line.
    int32 CountLines() const;
    /// The width of the line's text without its line end and without the spaces it was broken at.
    float LineWidth(int32 line = 0) const;
    float LineHeight(int32 line = 0) const;
    /// The height of the lines together, both included.
    float TextHeight(int32 startLine, int32 endLine) const;
    /// The first byte of the line; for a line past the last, the length of the text.
    int32 OffsetAt(int32 line) const;
    /// The line a byte lies in.
    int32 LineAt(int32 offset) const;

    void SetFont(const BFont* font, uint32 mask = B_FONT_ALL) override;
    void Draw(BRect updateRect) override;

private:
    BPrivate::TextLayout& _Layout() const;

    std::string fText;
    BRect fTextRect;
    bool fWrap = true;
    // Made when it is asked for, after a change of anything it depends on.
    mutable std::unique_ptr<BPrivate::TextLayout> fLayout;
};
