#include "kits/interface/ViewCanvas.h"

#include "kits/interface/ControlPeer.h"

namespace BPrivate {

namespace {

PixelRect RectOnCanvas(const BView& view, BPoint parentOffset) {
    return CoveredPixels(view.Frame().OffsetByCopy(parentOffset));
}

}  // namespace

PixelRect ViewCanvas::VisibleRect(const BView& view) {
    if (view.fRoot == nullptr)
        return {};
    PixelRect visible = view.fRoot->CanvasFrame();
    for (const BView* at = &view; at != nullptr && !at->fIsTop; at = at->fParent) {
        if (at->fHideLevel > 0)
            return {};
        visible = visible & RectOnCanvas(*at, at->fParent->_RootOffset());
    }
    return visible;
}

ViewCanvas::ViewCanvas(const BView& view)
    : fRoot(view.fRoot), fScale(fRoot != nullptr ? fRoot->Scale() : PixelScale()),
      fOffset(view._RootOffset()), fClip(VisibleRect(view)) {
    if (fClip.IsEmpty())
        return;
    if ((view.fFlags & B_DRAW_ON_CHILDREN) == 0)
        ExcludeChildren(view, 0, fClip.Frame());
    // Above a view lie its later siblings, and those of every view it lies in.
    for (const BView* at = &view; at->fParent != nullptr && !fClip.IsEmpty(); at = at->fParent) {
        const auto& siblings = at->fParent->fChildren;
        std::size_t above = 0;
        while (above < siblings.size() && siblings[above].get() != at)
            above++;
        ExcludeChildren(*at->fParent, above + 1, fClip.Frame());
    }
    if (const ClipRegion* update = fRoot->UpdateClip(); update != nullptr)
        fClip.IntersectWith(*update);
}

void ViewCanvas::ExcludeChildren(const BView& view, std::size_t from, PixelRect limit) {
    for (std::size_t i = from; i < view.fChildren.size(); i++)
        ExcludeView(*view.fChildren[i], limit);
}

void ViewCanvas::ExcludeView(const BView& view, PixelRect limit) {
    if (view.fHideLevel > 0)
        return;
    const PixelRect rect = RectOnCanvas(view, view.fParent->_RootOffset()) & limit;
    if (rect.IsEmpty())
        return;
    // A control on the screen may let what is behind it shine through, and a view that neither
    // erases nor draws is only a frame around its children.
    const bool paints = ControlPeer::Of(&view) == nullptr &&
        ((view.fFlags & B_WILL_DRAW) != 0 || view.fViewColor != B_TRANSPARENT_COLOR);
    if (paints)
        fClip.Exclude(rect);
    else
        ExcludeChildren(view, 0, rect);
}

bool ViewCanvas::IsWhole() const {
    return fRoot != nullptr && fClip.Rects().size() == 1 &&
        fClip.Rects().front() == fRoot->CanvasFrame();
}

}  // namespace BPrivate
