#include <interface/TextView.h>

#include <algorithm>
#include <vector>

#include "kits/interface/FontAccess.h"
#include "kits/interface/LineBreaker.h"

namespace BPrivate {

/// The lines of a text, made as they are asked for.
class TextLayout {
public:
    struct Line : TextLine {
        float width = 0;
    };

    TextLayout(const std::string& text, const BFont& font, float width, bool wrap)
        : fText(text), fFont(font), fBreaker(text, SpecOf(font), width, wrap) {}

    /// Null when there are not so many.
    const Line* At(int32 index) {
        while (static_cast<std::size_t>(index) >= fLines.size() && Add()) {
        }
        return index >= 0 && static_cast<std::size_t>(index) < fLines.size()
            ? &fLines[static_cast<std::size_t>(index)]
            : nullptr;
    }

    const std::vector<Line>& All() {
        while (Add()) {
        }
        return fLines;
    }

    /// As many as it takes to reach the byte.
    const std::vector<Line>& UpTo(int32 offset) {
        while ((fLines.empty() || fLines.back().start < offset) && Add()) {
        }
        return fLines;
    }

private:
    bool Add() {
        Line line;
        if (!fBreaker.Next(line))
            return false;
        line.width = fFont.StringWidth(fText.c_str() + line.start, line.end - line.start);
        fLines.push_back(line);
        return true;
    }

    const std::string& fText;
    const BFont fFont;
    LineBreaker fBreaker;
    std::vector<Line> fLines;
};

}  // namespace BPrivate

using BPrivate::TextLayout;

BTextView::BTextView(
    BRect frame, const char* name, BRect textRect, uint32 resizingMode, uint32 flags)
    : BTextView(frame, name, textRect, nullptr, nullptr, resizingMode, flags) {}

BTextView::BTextView(BRect frame, const char* name, BRect textRect, const BFont* initialFont,
    const rgb_color* initialColor, uint32 resizingMode, uint32 flags)
    : BView(frame, name, resizingMode, flags), fTextRect(textRect) {
    SetFontAndColor(initialFont, B_FONT_ALL, initialColor);
}

BTextView::~BTextView() = default;

void BTextView::SetText(const char* text) {
    fText = text != nullptr ? text : "";
    fLayout.reset();
    Invalidate();
}

void BTextView::SetText(const char* text, int32 length) {
    SetText(text != nullptr && length > 0
            ? std::string(text, static_cast<std::size_t>(length)).c_str()
            : nullptr);
}

void BTextView::SetTextRect(BRect rect) {
    if (rect == fTextRect)
        return;
    fTextRect = rect;
    fLayout.reset();
    Invalidate();
}

void BTextView::SetWordWrap(bool wrap) {
    if (wrap == fWrap)
        return;
    fWrap = wrap;
    fLayout.reset();
    Invalidate();
}

void BTextView::SetFont(const BFont* font, uint32 mask) {
    BView::SetFont(font, mask);
    fLayout.reset();
    Invalidate();
}

void BTextView::SetFontAndColor(const BFont* font, uint32 mask, const rgb_color* color) {
    if (font != nullptr)
        SetFont(font, mask);
    if (color != nullptr)
        SetHighColor(*color);
}

void BTextView::GetFontAndColor(int32, BFont* font, rgb_color* color) const {
    if (font != nullptr)
        GetFont(font);
    if (color != nullptr)
        *color = HighColor();
}

TextLayout& BTextView::_Layout() const {
    if (fLayout == nullptr) {
        BFont font;
        GetFont(&font);
        fLayout = std::make_unique<TextLayout>(fText, font, fTextRect.Width(), fWrap);
    }
    return *fLayout;
}

int32 BTextView::CountLines() const {
    return static_cast<int32>(_Layout().All().size());
}

float BTextView::LineWidth(int32 line) const {
    const TextLayout::Line* found = _Layout().At(line);
    return found != nullptr ? found->width : 0;
}

float BTextView::LineHeight(int32) const {
    font_height height;
    GetFontHeight(&height);
    return height.ascent + height.descent + height.leading;
}

float BTextView::TextHeight(int32 startLine, int32 endLine) const {
    const int32 first = std::max(startLine, 0);
    const int32 last = std::min(endLine, CountLines() - 1);
    return static_cast<float>(std::max(0, last - first + 1)) * LineHeight();
}

int32 BTextView::OffsetAt(int32 line) const {
    if (line < 0)
        return 0;
    const TextLayout::Line* found = _Layout().At(line);
    return found != nullptr ? found->start : TextLength();
}

int32 BTextView::LineAt(int32 offset) const {
    const auto& lines = _Layout().UpTo(offset);
    const auto after = std::upper_bound(lines.begin(), lines.end(), offset,
        [](int32 at, const TextLayout::Line& line) { return at < line.start; });
    return std::max<int32>(0, static_cast<int32>(after - lines.begin()) - 1);
}

void BTextView::Draw(BRect) {
    font_height height;
    GetFontHeight(&height);
    const drawing_mode mode = DrawingMode();
    SetDrawingMode(B_OP_ALPHA);
    float baseline = fTextRect.top + height.ascent;
    for (const auto& line : _Layout().All()) {
        DrawString(
            fText.c_str() + line.start, line.end - line.start, BPoint(fTextRect.left, baseline));
        baseline += LineHeight();
    }
    SetDrawingMode(mode);
}
