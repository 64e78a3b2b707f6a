#include <cmath>
#include <cstring>
#include <interface/Bitmap.h>
#include <interface/View.h>

#include "kits/interface/BitmapAccess.h"
#include "kits/interface/BitmapData.h"
#include "kits/interface/FontAccess.h"
#include "kits/interface/Painter.h"
#include "kits/interface/ViewCanvas.h"

using BPrivate::BitmapAccess;
using BPrivate::BitmapData;
using BPrivate::CoveredPixels;
using BPrivate::FilledPixels;
using BPrivate::IsFinite;
using BPrivate::Paint;
using BPrivate::PixelBuffer;
using BPrivate::PixelRect;
using BPrivate::ViewCanvas;

namespace Painter = BPrivate::Painter;

void BView::SetViewColor(rgb_color color) {
    if (color == fViewColor)
        return;
    fViewColor = color;
    Invalidate();
}

void BView::SetFont(const BFont* font, uint32 mask) {
    if (font == nullptr)
        return;
    BPrivate::TakeFont(fFont, *font, mask);
}

void BView::GetFont(BFont* font) const {
    if (font != nullptr)
        *font = fFont;
}

void BView::SetFontSize(float size) {
    BFont font(fFont);
    font.SetSize(size);
    SetFont(&font, B_FONT_SIZE);
}

void BView::GetFontHeight(font_height* height) const {
    fFont.GetHeight(height);
}

float BView::StringWidth(const char* text) const {
    return fFont.StringWidth(text);
}

float BView::StringWidth(const char* text, int32 length) const {
    return fFont.StringWidth(text, length);
}

void BView::FillRect(BRect rect, pattern fill) {
    const ViewCanvas canvas(*this);
    const PixelRect pixels = canvas.ToPixels(FilledPixels(canvas.ToCanvas(rect)));
    const Paint paint{fHighColor, fLowColor, fDrawingMode, fill};
    const bool isSolid = fill == B_SOLID_HIGH || (fill == B_SOLID_LOW && fDrawingMode != B_OP_OVER);
    if (isSolid && canvas.IsWhole() && pixels.Contains(canvas.ToPixels(fRoot->CanvasFrame())) &&
        fRoot->TakeColor(fill == B_SOLID_HIGH ? fHighColor : fLowColor))
        return;
    canvas.Each(pixels,
        [&](const PixelBuffer& to, PixelRect clip) { Painter::FillRect(to, clip, pixels, paint); });
}

void BView::StrokeRect(BRect rect, pattern fill) {
    const ViewCanvas canvas(*this);
    const PixelRect units = FilledPixels(canvas.ToCanvas(rect));
    const PixelRect all = canvas.ToPixels(units);
    if (all.IsEmpty())
        return;
    const Paint paint{fHighColor, fLowColor, fDrawingMode, fill};
    // A unit wide, but no less than a pixel.
    PixelRect in = canvas.ToPixels(
        PixelRect{units.left + 1, units.top + 1, units.right - 1, units.bottom - 1});
    in = {std::max(in.left, all.left + 1), std::max(in.top, all.top + 1),
        std::min(in.right, all.right - 1), std::min(in.bottom, all.bottom - 1)};
    // No pixel belongs to two edges: one that is blended must be blended once.
    const PixelRect edges[] = {{all.left, all.top, all.right, in.top},
        {all.left, std::max(in.bottom, in.top), all.right, all.bottom},
        {all.left, in.top, in.left, in.bottom},
        {std::max(in.right, in.left), in.top, all.right, in.bottom}};
    for (const PixelRect& edge : edges) {
        canvas.Each(edge, [&](const PixelBuffer& to, PixelRect clip) {
            Painter::FillRect(to, clip, edge, paint);
        });
    }
}

void BView::StrokeLine(BPoint from, BPoint to, pattern fill) {
    const ViewCanvas canvas(*this);
    const BPoint start = canvas.ToCanvas(from);
    const BPoint end = canvas.ToCanvas(to);
    const Paint paint{fHighColor, fLowColor, fDrawingMode, fill};
    PixelRect around = canvas.ToPixels(FilledPixels({std::min(start.x, end.x),
        std::min(start.y, end.y), std::max(start.x, end.x), std::max(start.y, end.y)}));
    // A line is never thinner than a pixel.
    around.right = std::max(around.right, around.left + 1);
    around.bottom = std::max(around.bottom, around.top + 1);
    canvas.Each(around, [&](const PixelBuffer& pixels, PixelRect clip) {
        Painter::DrawLine(pixels, clip, start, end, paint);
    });
    fPen = to;
}

void BView::StrokeLine(BPoint to, pattern fill) {
    StrokeLine(fPen, to, fill);
}

void BView::InvertRect(BRect rect) {
    const ViewCanvas canvas(*this);
    const PixelRect pixels = canvas.ToPixels(FilledPixels(canvas.ToCanvas(rect)));
    canvas.Each(pixels,
        [&](const PixelBuffer& to, PixelRect clip) { Painter::InvertRect(to, clip, pixels); });
}

void BView::DrawBitmap(const BBitmap* bitmap, BPoint where) {
    if (bitmap == nullptr)
        return;
    const BRect bounds = bitmap->Bounds();
    DrawBitmap(bitmap, bounds, bounds.OffsetToCopy(where));
}

void BView::DrawBitmap(const BBitmap* bitmap, BRect destination) {
    if (bitmap != nullptr)
        DrawBitmap(bitmap, bitmap->Bounds(), destination);
}

void BView::DrawBitmap(const BBitmap* bitmap, BRect source, BRect destination, uint32 options) {
    if (bitmap == nullptr || bitmap->InitCheck() != B_OK)
        return;
    // A bitmap's own coordinates start at its bounds' left top.
    const PixelRect from = CoveredPixels(source.OffsetByCopy(-bitmap->Bounds().LeftTop()));
    const ViewCanvas canvas(*this);
    const PixelRect to = CoveredPixels(canvas.ToCanvas(destination));
    if (from.IsEmpty() || to.IsEmpty())
        return;

    const BitmapData& data = BitmapAccess::Data(*bitmap);
    if (static_cast<BPrivate::ViewRoot*>(const_cast<BitmapData*>(&data)) == fRoot)
        return;
    if (canvas.IsWhole() && to == fRoot->CanvasFrame() &&
        fRoot->TakePicture(*bitmap, from, fDrawingMode, options))
        return;
    canvas.Each(canvas.ToPixels(to), [&](const PixelBuffer& pixels, PixelRect clip) {
        data.DrawInto(pixels, clip, from, to, fDrawingMode, options);
    });
}

void BView::DrawString(const char* text) {
    DrawString(text, fPen);
}

void BView::DrawString(const char* text, int32 length) {
    DrawString(text, length, fPen);
}

void BView::DrawString(const char* text, BPoint where) {
    if (text != nullptr)
        DrawString(text, static_cast<int32>(std::strlen(text)), where);
}

void BView::DrawString(const char* text, int32 length, BPoint where) {
    if (text == nullptr || length <= 0 || !IsFinite(where))
        return;
    const std::string string = BPrivate::Printable(text, static_cast<std::size_t>(length));
    BPrivate::Display& display = BPrivate::TheDisplay();
    const BPrivate::FontSpec font = BPrivate::SpecOf(fFont);
    const float width = display.StringWidth(font, string);

    const ViewCanvas canvas(*this);
    const BPoint origin = canvas.ToCanvas(where);
    // Glyphs may reach out of their cells, by less than the font's size on each side.
    const float size = fFont.Size();
    const PixelRect around = canvas.ToPixels(FilledPixels(
        {origin.x - size, origin.y - 2 * size, origin.x + width + size, origin.y + size}));
    const BPoint start = canvas.Scale().ToPixels(origin);
    rgb_color color = fHighColor;
    if (fDrawingMode != B_OP_ALPHA)
        color.alpha = 255;
    canvas.Each(around, [&](const PixelBuffer& to, PixelRect clip) {
        display.DrawText(to, clip.ToRect(), start, color, font, string);
    });
    fPen = where + BPoint(width, 0);
}

void BView::Invalidate() {
    if (fRoot != nullptr)
        fRoot->Invalidate(ViewCanvas::VisibleRect(*this));
}

void BView::Invalidate(BRect rect) {
    if (fRoot == nullptr)
        return;
    const PixelRect pixels = FilledPixels(rect.OffsetByCopy(_RootOffset()));
    fRoot->Invalidate(ViewCanvas::VisibleRect(*this) & pixels);
}

void BView::Flush() const {
    if (fRoot != nullptr)
        fRoot->Flush();
}

void BView::Sync() const {
    Flush();
}
