#pragma once

#include <interface/View.h>
#include <memory>

#include "kits/interface/PixelStorage.h"
#include "kits/interface/ViewRoot.h"

class BWindow;

namespace BPrivate {

/// A window's back buffer, and what of it is to be drawn and to be shown.
///
/// Threads. Under the window's lock.
class WindowSurface final : public ViewRoot {
public:
    WindowSurface(BWindow& window, BRect bounds);
    ~WindowSurface() override;
    void DeleteViews();

    /// Makes the buffer fit the window, with everything to be drawn.
    void Resize(BRect bounds);
    /// Only a surface that is shown draws. Showing lets everything be drawn.
    void SetShown(bool shown);
    /// While there are more disables than enables nothing is drawn by views, or shown.
    void DisableUpdates() { fDisabled++; }
    void EnableUpdates();

    bool NeedsUpdate() const { return !fDirty.IsEmpty(); }
    /// Lets the views draw what is to be drawn, and shows it.
    void Update();
    /// The message that asks for an update was delivered.
    void UpdateArrived() { fUpdateComes = false; }

    // ViewRoot
    BView& Top() override { return *fTop; }
    BWindow* Window() override { return &fWindow; }
    PixelRect CanvasFrame() const override;
    PixelBuffer Canvas() override;
    void Drawn(PixelRect area) override { fDrawn = fDrawn | area; }
    void Invalidate(PixelRect area) override;
    void Flush() override;
    const ClipRegion* UpdateClip() const override { return fUpdating ? &fUpdateClip : nullptr; }

private:
    void Draw(BView& view);
    void AskForUpdate();

    BWindow& fWindow;
    std::unique_ptr<BView> fTop;
    PixelRect fFrame;
    PixelStorage fBuffer;
    std::size_t fCapacity = 0;
    bool fIsStale = true;
    bool fShown = false;
    bool fUpdating = false;
    bool fUpdateComes = false;
    int32 fDisabled = 0;
    ClipRegion fDirty;
    ClipRegion fUpdateClip;
    PixelRect fDrawn;
};

}  // namespace BPrivate
