#include "kits/interface/ClipRegion.h"

namespace BPrivate {

namespace {

// A region of more pieces than this costs more to keep than drawing the pixels between them.
constexpr std::size_t kMostPieces = 64;

}  // namespace

ClipRegion::ClipRegion(PixelRect rect) {
    if (!rect.IsEmpty())
        fRects.push_back(rect);
}

PixelRect ClipRegion::Frame() const {
    PixelRect frame;
    for (const PixelRect& rect : fRects)
        frame = frame | rect;
    return frame;
}

bool ClipRegion::Intersects(PixelRect rect) const {
    return std::any_of(fRects.begin(), fRects.end(),
        [&](const PixelRect& own) { return !(own & rect).IsEmpty(); });
}

void ClipRegion::Include(PixelRect rect) {
    if (rect.IsEmpty())
        return;
    for (const PixelRect& own : fRects) {
        if (own.Contains(rect))
            return;
    }
    Exclude(rect);
    fRects.push_back(rect);
    if (fRects.size() > kMostPieces)
        fRects = {Frame()};
}

void ClipRegion::Exclude(PixelRect rect) {
    if (rect.IsEmpty() || !Intersects(rect))
        return;
    std::vector<PixelRect> rest;
    for (const PixelRect& own : fRects) {
        const PixelRect common = own & rect;
        if (common.IsEmpty()) {
            rest.push_back(own);
            continue;
        }
        const PixelRect pieces[] = {{own.left, own.top, own.right, common.top},
            {own.left, common.top, common.left, common.bottom},
            {common.right, common.top, own.right, common.bottom},
            {own.left, common.bottom, own.right, own.bottom}};
        for (const PixelRect& piece : pieces) {
            if (!piece.IsEmpty())
                rest.push_back(piece);
        }
    }
    fRects = std::move(rest);
}

void ClipRegion::IntersectWith(PixelRect rect) {
    for (PixelRect& own : fRects)
        own = own & rect;
    std::erase_if(fRects, [](const PixelRect& own) { return own.IsEmpty(); });
}

void ClipRegion::IntersectWith(const ClipRegion& other) {
    std::vector<PixelRect> common;
    for (const PixelRect& own : fRects) {
        for (const PixelRect& rect : other.fRects) {
            if (const PixelRect both = own & rect; !both.IsEmpty())
                common.push_back(both);
        }
    }
    fRects = std::move(common);
}

}  // namespace BPrivate
