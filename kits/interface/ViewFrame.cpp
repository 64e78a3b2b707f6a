#include <algorithm>
#include <app/AppDefs.h>
#include <app/Message.h>
#include <interface/ScrollBar.h>
#include <interface/View.h>
#include <interface/Window.h>

#include "kits/interface/ControlPeer.h"
#include "kits/interface/ViewReading.h"
#include "kits/interface/ViewRoot.h"

namespace {

/// Where an edge goes when the parent grows by `by`: `rule` names the parent's edge it follows,
/// `far` the one that moves.
float Follow(float edge, uint32 rule, uint32 far, float by) {
    if (rule == far)
        return edge + by;
    return rule == _VIEW_CENTER_ ? edge + by / 2 : edge;
}

}  // namespace

BRect BView::Bounds() const {
    return fFrame.OffsetToCopy(fScroll);
}

void BView::MoveTo(float x, float y) {
    _SetFrame(fFrame.OffsetToCopy(x, y));
}

void BView::MoveBy(float dx, float dy) {
    _SetFrame(fFrame.OffsetByCopy(dx, dy));
}

void BView::ResizeTo(float width, float height) {
    _SetFrame({fFrame.left, fFrame.top, fFrame.left + width, fFrame.top + height});
}

void BView::ResizeBy(float dx, float dy) {
    ResizeTo(fFrame.Width() + dx, fFrame.Height() + dy);
}

void BView::_SetFrame(BRect frame) {
    if (frame == fFrame)
        return;
    const bool moved = frame.LeftTop() != fFrame.LeftTop();
    const float dx = frame.Width() - fFrame.Width();
    const float dy = frame.Height() - fFrame.Height();
    Invalidate();
    fFrame = frame;
    Invalidate();
    _PlaceChanged();

    const bool tell = Window() != nullptr && (fFlags & B_FRAME_EVENTS) != 0;
    if (moved && tell && !fMovePending) {
        fMovePending = true;
        _Post(B_VIEW_MOVED);
    }
    if (dx == 0 && dy == 0)
        return;
    for (std::size_t i = 0; i < fChildren.size(); i++)
        fChildren[i]->_FollowParent(dx, dy);
    if (tell && !fResizePending) {
        fResizePending = true;
        _Post(B_VIEW_RESIZED);
    }
}

void BView::_FollowParent(float dx, float dy) {
    const uint32 top = (fResizingMode >> 12) & 15;
    const uint32 left = (fResizingMode >> 8) & 15;
    const uint32 bottom = (fResizingMode >> 4) & 15;
    const uint32 right = fResizingMode & 15;
    _SetFrame({Follow(fFrame.left, left, _VIEW_RIGHT_, dx),
        Follow(fFrame.top, top, _VIEW_BOTTOM_, dy), Follow(fFrame.right, right, _VIEW_RIGHT_, dx),
        Follow(fFrame.bottom, bottom, _VIEW_BOTTOM_, dy)});
}

void BView::_Post(uint32 what) {
    BMessage message(what);
    (void)message.AddInt64("when", system_time());
    (void)Window()->PostMessage(&message, this);
}

void BView::SetFlags(uint32 flags) {
    fFlags = flags;
    _PlaceChanged();
}

void BView::Show() {
    _SetHideLevel(std::max(0, fHideLevel - 1));
}

void BView::Hide() {
    _SetHideLevel(fHideLevel + 1);
}

void BView::_SetHideLevel(int32 level) {
    const bool changes = (level == 0) != (fHideLevel == 0);
    if (changes && level != 0)
        Invalidate();
    fHideLevel = level;
    if (!changes)
        return;
    if (level == 0)
        Invalidate();
    _PlaceChanged();
}

bool BView::IsHidden() const {
    return IsHidden(nullptr);
}

bool BView::IsHidden(const BView* lookingFrom) const {
    for (const BView* view = this; view != nullptr; view = view->fParent) {
        if (view == lookingFrom && view != this)
            return false;
        if (view->fHideLevel > 0)
            return true;
        if (view == lookingFrom)
            return false;
    }
    const BWindow* window = Window();
    return window != nullptr && window->IsHidden();
}

void BView::_PlaceChanged() {
    if (Window() == nullptr)
        return;
    if (fPeer != nullptr)
        fPeer->PlaceChanged();
    else if (fReading != nullptr)
        fReading->Update();
    for (const auto& child : fChildren)
        child->_PlaceChanged();
}

void BView::GetPreferredSize(float* width, float* height) {
    if (width != nullptr)
        *width = fFrame.Width();
    if (height != nullptr)
        *height = fFrame.Height();
}

void BView::ResizeToPreferred() {
    float width = 0;
    float height = 0;
    GetPreferredSize(&width, &height);
    ResizeTo(width, height);
}

void BView::ScrollBy(float dx, float dy) {
    ScrollTo(fScroll + BPoint(dx, dy));
}

void BView::ScrollTo(BPoint where) {
    if (where == fScroll || !BPrivate::IsFinite(where))
        return;
    fScroll = where;
    Invalidate();
    for (const auto& child : fChildren)
        child->_PlaceChanged();
    // The bars scroll their target in turn, which is then there already.
    if (fHorizontalBar != nullptr)
        fHorizontalBar->SetValue(where.x);
    if (fVerticalBar != nullptr)
        fVerticalBar->SetValue(where.y);
}

BScrollBar* BView::ScrollBar(orientation direction) const {
    return direction == B_HORIZONTAL ? fHorizontalBar : fVerticalBar;
}

void BView::_SetScrollBar(orientation direction, BScrollBar* bar) {
    (direction == B_HORIZONTAL ? fHorizontalBar : fVerticalBar) = bar;
}

BPoint BView::_RootOffset() const {
    BPoint offset;
    for (const BView* view = this; view != nullptr && !view->fIsTop; view = view->fParent)
        offset += view->fFrame.LeftTop() - view->fScroll;
    return offset;
}

BPoint BView::ConvertToParent(BPoint point) const {
    return point + fFrame.LeftTop() - fScroll;
}

BPoint BView::ConvertFromParent(BPoint point) const {
    return point - fFrame.LeftTop() + fScroll;
}

BRect BView::ConvertToParent(BRect rect) const {
    return rect.OffsetByCopy(fFrame.LeftTop() - fScroll);
}

BRect BView::ConvertFromParent(BRect rect) const {
    return rect.OffsetByCopy(fScroll - fFrame.LeftTop());
}

void BView::ConvertToParent(BPoint* point) const {
    *point = ConvertToParent(*point);
}

void BView::ConvertFromParent(BPoint* point) const {
    *point = ConvertFromParent(*point);
}

BPoint BView::ConvertToScreen(BPoint point) const {
    const BWindow* window = Window();
    return point + _RootOffset() + (window != nullptr ? window->Frame().LeftTop() : BPoint());
}

BPoint BView::ConvertFromScreen(BPoint point) const {
    return point - ConvertToScreen(BPoint());
}

BRect BView::ConvertToScreen(BRect rect) const {
    return rect.OffsetByCopy(ConvertToScreen(BPoint()));
}

BRect BView::ConvertFromScreen(BRect rect) const {
    return rect.OffsetByCopy(-ConvertToScreen(BPoint()));
}

void BView::ConvertToScreen(BPoint* point) const {
    *point = ConvertToScreen(*point);
}

void BView::ConvertFromScreen(BPoint* point) const {
    *point = ConvertFromScreen(*point);
}

void BView::ConvertToScreen(BRect* rect) const {
    *rect = ConvertToScreen(*rect);
}

void BView::ConvertFromScreen(BRect* rect) const {
    *rect = ConvertFromScreen(*rect);
}
