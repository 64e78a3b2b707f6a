#include <algorithm>
#include <interface/TextView.h>
#include <limits>

#include "kits/interface/LineBreaker.h"

namespace BPrivate {

class TextLayout {
public:
    struct Line : TextLine {
        float width = 0;
    };

    std::vector<Line> lines;
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

const TextLayout& BTextView::_Layout() const {
    if (fLayout != nullptr)
        return *fLayout;
    BPrivate::MeasureText measure;
    if (fWrap) {
        measure = [this](int32 start, int32 end) {
            return StringWidth(fText.c_str() + start, end - start);
        };
    }
    fLayout = std::make_unique<TextLayout>();
    for (const auto& line : BPrivate::BreakLines(fText, fTextRect.Width(), measure)) {
        const float width = StringWidth(fText.c_str() + line.start, line.end - line.start);
        fLayout->lines.push_back({line, width});
    }
    return *fLayout;
}

int32 BTextView::CountLines() const {
    return static_cast<int32>(_Layout().lines.size());
}

float BTextView::LineWidth(int32 line) const {
    const auto& lines = _Layout().lines;
    return line >= 0 && line < CountLines() ? lines[static_cast<std::size_t>(line)].width : 0;
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
    const auto& lines = _Layout().lines;
    if (line < 0)
        return 0;
    return line < CountLines() ? lines[static_cast<std::size_t>(line)].start : TextLength();
}

int32 BTextView::LineAt(int32 offset) const {
    const auto& lines = _Layout().lines;
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
    for (const auto& line : _Layout().lines) {
        DrawString(
            fText.c_str() + line.start, line.end - line.start, BPoint(fTextRect.left, baseline));
        baseline += LineHeight();
    }
    SetDrawingMode(mode);
}
