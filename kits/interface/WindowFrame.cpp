#include "kits/interface/WindowFrame.h"

#include <algorithm>
#include <app/AppDefs.h>
#include <app/Message.h>
#include <cmath>
#include <interface/View.h>
#include <interface/Window.h>

#include "kits/interface/PixelRule.h"
#include "kits/interface/WindowData.h"

namespace {

// Window systems keep positions and sizes in 16 bits.
constexpr float kFarthest = 32766;

float Whole(float value, float low, float high) {
    return std::isnan(value) ? std::max(low, 0.0F) : std::clamp(std::round(value), low, high);
}

/// The limit as a window keeps it.
float Limit(float value) {
    return Whole(value, 0, kFarthest);
}

}  // namespace

namespace BPrivate {

BRect WholeFrame(BRect frame) {
    const float left = Whole(frame.left, -kFarthest, kFarthest);
    const float top = Whole(frame.top, -kFarthest, kFarthest);
    return {left, top, left + Whole(frame.Width(), 0, kFarthest),
        top + Whole(frame.Height(), 0, kFarthest)};
}

}  // namespace BPrivate

void BWindow::_SetFrame(BRect wanted) {
    BRect frame = BPrivate::WholeFrame(wanted);
    frame.right = frame.left + std::clamp(frame.Width(), fData->minWidth, fData->maxWidth);
    frame.bottom = frame.top + std::clamp(frame.Height(), fData->minHeight, fData->maxHeight);
    frame = fData->hold.Granted(frame, fData->frame, fData->ScreenFrame());
    if (frame == fData->frame)
        return;
    const bool moved = frame.LeftTop() != fData->frame.LeftTop();
    const BRect bounds = frame.OffsetToCopy(B_ORIGIN);
    const bool resized = bounds != Bounds();
    fData->frame = frame;
    if (resized)
        fData->surface.Resize(bounds);
    fData->FrameChanged();
    // The hooks are told in the order of messages, as they are of the user's doings.
    if (moved)
        (void)PostMessage(B_WINDOW_MOVED);
    if (resized)
        (void)PostMessage(B_WINDOW_RESIZED);
}

void BWindow::_FrameReported(const BMessage& message) {
    int32 serial = 0;
    const bool fromScreen = message.FindInt32("serial", &serial) == B_OK;
    // One with an older serial crossed a change of the program's on its way.
    if (fromScreen && serial < fData->frameSerial)
        return;
    if (fromScreen) {
        BRect frame = fData->frame;
        BPoint where = frame.LeftTop();
        int32 width = frame.IntegerWidth();
        int32 height = frame.IntegerHeight();
        (void)message.FindPoint("where", &where);
        (void)message.FindInt32("width", &width);
        (void)message.FindInt32("height", &height);
        frame = BPrivate::WholeFrame({where.x, where.y, where.x + static_cast<float>(width),
            where.y + static_cast<float>(height)});
        const BRect bounds = frame.OffsetToCopy(B_ORIGIN);
        const bool resized = bounds != Bounds();
        fData->frame = frame;
        fData->hold.Reported();
        if (resized)
            fData->surface.Resize(bounds);
    }

    const BRect before = fData->reportedFrame;
    const BRect now = fData->frame;
    fData->reportedFrame = now;
    if (now.LeftTop() != before.LeftTop())
        FrameMoved(now.LeftTop());
    if (now.Width() != before.Width() || now.Height() != before.Height())
        FrameResized(now.Width(), now.Height());
}

void BWindow::MoveTo(float x, float y) {
    _SetFrame(fData->hold.Wanted(fData->frame).OffsetToCopy(x, y));
}

void BWindow::MoveBy(float dx, float dy) {
    _SetFrame(fData->frame.OffsetByCopy(dx, dy));
}

void BWindow::ResizeTo(float width, float height) {
    const BPoint at = fData->hold.Wanted(fData->frame).LeftTop();
    _SetFrame({at.x, at.y, at.x + width, at.y + height});
}

void BWindow::ResizeBy(float dx, float dy) {
    ResizeTo(fData->frame.Width() + dx, fData->frame.Height() + dy);
}

void BWindow::SetSizeLimits(float minWidth, float maxWidth, float minHeight, float maxHeight) {
    fData->minWidth = Limit(minWidth);
    fData->maxWidth = std::max(fData->minWidth, Limit(maxWidth));
    fData->minHeight = Limit(minHeight);
    fData->maxHeight = std::max(fData->minHeight, Limit(maxHeight));
    fData->Screen()->SetSizeLimits(
        fData->minWidth, fData->maxWidth, fData->minHeight, fData->maxHeight);
    _SetFrame(fData->frame);
}

void BWindow::GetSizeLimits(
    float* minWidth, float* maxWidth, float* minHeight, float* maxHeight) const {
    const auto give = [](float* to, float value) {
        if (to != nullptr)
            *to = value;
    };
    give(minWidth, fData->minWidth);
    give(maxWidth, fData->maxWidth);
    give(minHeight, fData->minHeight);
    give(maxHeight, fData->maxHeight);
}

BRect BWindow::Frame() const {
    return fData->frame;
}

BRect BWindow::NormalFrame() const {
    return fData->hold.Normal(fData->frame);
}

BRect BWindow::Bounds() const {
    return fData->frame.OffsetToCopy(B_ORIGIN);
}

BPoint BWindow::ConvertToScreen(BPoint point) const {
    return point + fData->frame.LeftTop();
}

BPoint BWindow::ConvertFromScreen(BPoint point) const {
    return point - fData->frame.LeftTop();
}

BRect BWindow::ConvertToScreen(BRect rect) const {
    return rect.OffsetByCopy(fData->frame.LeftTop());
}

BRect BWindow::ConvertFromScreen(BRect rect) const {
    return rect.OffsetByCopy(-fData->frame.LeftTop());
}

void BWindow::ConvertToScreen(BPoint* point) const {
    *point = ConvertToScreen(*point);
}

void BWindow::ConvertFromScreen(BPoint* point) const {
    *point = ConvertFromScreen(*point);
}
