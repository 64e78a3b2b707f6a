#include "kits/interface/WindowSurface.h"

#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <cstring>
#include <interface/Window.h>
#include <kernel/OS.h>
#include <utility>

#include "kits/interface/ControlPeer.h"
#include "kits/interface/ViewCanvas.h"
#include "kits/interface/WindowData.h"

namespace BPrivate {

WindowSurface::WindowSurface(BWindow& window, BRect bounds)
    : fWindow(window), fTop(std::make_unique<BView>(bounds, nullptr, 0, 0)),
      fFrame(CoveredPixels(bounds)) {
    fTop->fIsTop = true;
    fTop->fRoot = this;
}

WindowSurface::~WindowSurface() = default;

void WindowSurface::DeleteViews() {
    while (BView* child = fTop->ChildAt(fTop->CountChildren() - 1)) {
        fTop->RemoveChild(child);
        delete child;
    }
}

PixelScale WindowSurface::ScaleOfThread() {
    const auto* window = dynamic_cast<BWindow*>(BLooper::LooperForThread(find_thread(nullptr)));
    return window != nullptr ? window->fData->surface.Scale() : PixelScale();
}

void WindowSurface::Resize(BRect bounds) {
    fFrame = CoveredPixels(bounds);
    fIsStale = true;
    fTop->_SetFrame(bounds);
    fDrawn = {};
    fDirty.Clear();
    Invalidate(fFrame);
}

void WindowSurface::FollowScreen() {
    DisplayWindow* screen = fWindow.fData->Screen();
    const PixelScale scale(screen != nullptr ? screen->PixelRatio() : 1);
    if (scale == fScale)
        return;
    fScale = scale;
    fScaleIsNew = true;
    fIsStale = true;
    fDrawn = {};
    Invalidate(fFrame);
    Update();
}

void WindowSurface::SetShown(bool shown) {
    if (shown == fShown)
        return;
    const PixelScale before = fScale;
    if (shown)
        FollowScreen();
    // What was made for another resolution before has to be made anew.
    if (fScale != before) {
        BMessage changed(kScreenChanged);
        (void)changed.AddRect("frame", fWindow.fData->Screen()->ScreenFrame());
        (void)fWindow.PostMessage(&changed);
    }
    fShown = shown;
    fDrawn = {};
    fDirty = shown ? ClipRegion(fFrame) : ClipRegion();
}

void WindowSurface::EnableUpdates() {
    fDisabled = std::max(0, fDisabled - 1);
    if (fDisabled > 0)
        return;
    AskForUpdate();
    Flush();
}

PixelRect WindowSurface::CanvasFrame() const {
    return fShown ? fFrame : PixelRect{};
}

PixelBuffer WindowSurface::Canvas() {
    const PixelRect pixels = fScale.ToPixels(fFrame);
    const std::size_t size = std::size_t{4} * static_cast<std::size_t>(pixels.Width()) *
        static_cast<std::size_t>(pixels.Height());
    // Kept when the window shrinks, so that dragging its edge does not allocate at every step.
    if (size > fCapacity) {
        fBuffer = {};
        fBuffer = PixelStorage::Allocate(size);
        fCapacity = fBuffer ? size : 0;
    }
    const PixelBuffer canvas{fBuffer.Bits(), 4 * pixels.Width(), pixels.Width(), pixels.Height(),
        static_cast<float>(fScale.Ratio())};
    // Rows are of another length now: what no view paints would be a jumble.
    if (std::exchange(fIsStale, false) && canvas.bits != nullptr)
        std::memset(canvas.bits, 255, size);
    return canvas;
}

void WindowSurface::Invalidate(PixelRect area) {
    if (!fShown)
        return;
    fDirty.Include(area & fFrame);
    AskForUpdate();
}

void WindowSurface::AskForUpdate() {
    if (fUpdateComes || fDirty.IsEmpty() || fDisabled > 0)
        return;
    fUpdateComes = fWindow.PostMessage(_UPDATE_) == B_OK;
}

bool WindowSurface::PutOffUpdate() {
    if (!std::exchange(fIsPutOff, true))
        AskForUpdate();
    return fUpdateComes;
}

void WindowSurface::Update() {
    fIsPutOff = false;
    if (!fShown || fUpdating || fDisabled > 0 || fDirty.IsEmpty())
        return;
    // What becomes invalid while drawing is for the next update.
    fUpdateClip = std::move(fDirty);
    fDirty.Clear();
    fUpdating = true;
    fScaleIsNew = false;
    Draw(*fTop);
    fUpdating = false;
    TellGround();
    Flush();
}

// The user's new area has the background of what will be drawn there: the largest view's.
void WindowSurface::TellGround() {
    const BView* largest = nullptr;
    float most = 0;
    for (const auto& child : fTop->fChildren) {
        const float area = child->Bounds().Width() * child->Bounds().Height();
        if (child->fHideLevel > 0 || child->fPeer != nullptr || area <= most)
            continue;
        largest = child.get();
        most = area;
    }
    DisplayWindow* screen = fWindow.fData->Screen();
    if (largest == nullptr || screen == nullptr)
        return;
    const bool isErased = largest->fViewColor != B_TRANSPARENT_COLOR;
    const rgb_color ground = isErased ? largest->fViewColor : largest->fLowColor;
    if (fGround == ground)
        return;
    fGround = ground;
    screen->SetGround(ground);
}

void WindowSurface::Draw(BView& view) {
    if (view.fHideLevel > 0)
        return;
    const ViewCanvas canvas(view);
    if (!canvas.Clip().IsEmpty() && view.fPeer == nullptr) {
        const PixelRect area = canvas.Clip().Frame();
        if (view.fViewColor != B_TRANSPARENT_COLOR) {
            const Paint erase{view.fViewColor, view.fViewColor, B_OP_COPY, B_SOLID_HIGH};
            canvas.Each(canvas.ToPixels(area), [&](const PixelBuffer& to, PixelRect clip) {
                Painter::FillRect(to, clip, clip, erase);
            });
        }
        if ((view.fFlags & B_WILL_DRAW) != 0)
            view.Draw(canvas.FromCanvas(area.ToRect()));
    }
    for (std::size_t i = 0; i < view.fChildren.size(); i++)
        Draw(*view.fChildren[i]);
    if ((view.fFlags & B_DRAW_ON_CHILDREN) != 0 && !canvas.Clip().IsEmpty())
        view.DrawAfterChildren(canvas.FromCanvas(canvas.Clip().Frame().ToRect()));
}

void WindowSurface::Flush() {
    if (fUpdating || fDisabled > 0 || fScaleIsNew || fDrawn.IsEmpty())
        return;
    const PixelRect area = fDrawn & fScale.ToPixels(CanvasFrame());
    fDrawn = {};
    DisplayWindow* screen = fWindow.fData->Screen();
    if (!area.IsEmpty() && fBuffer && screen != nullptr)
        screen->Present(Canvas(), area.ToRect());
}

}  // namespace BPrivate
