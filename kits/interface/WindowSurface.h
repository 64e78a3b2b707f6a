#pragma once

#include <interface/View.h>
#include <memory>
#include <optional>

#include "kits/interface/PixelStorage.h"
#include "kits/interface/ViewRoot.h"

class BWindow;

namespace BPrivate {

/// A window's back buffer, and what of it is to be drawn and to be shown. The buffer has the
/// resolution of the screen the window is on.
///
/// Threads. Under the window's lock.
class WindowSurface final : public ViewRoot {
public:
    WindowSurface(BWindow& window, BRect bounds);
    ~WindowSurface() override;
    void DeleteViews();

    /// The scale of the window whose thread this is; one to one where it is none's.
    static PixelScale ScaleOfThread();

    /// Makes the buffer fit the window, with everything to be drawn.
    void Resize(BRect bounds);
    /// Takes over the ratio of the window's screen. At another one everything is drawn anew, and
    /// nothing shown until it is.
    void FollowScreen();
    /// Only a surface that is shown draws. Showing lets everything be drawn.
    void SetShown(bool shown);
    /// While there are more disables than enables nothing is drawn by views, or shown.
    void DisableUpdates() { fDisabled++; }
    void EnableUpdates();

    bool NeedsUpdate() const { return !fDirty.IsEmpty(); }
    /// Whether a message that lets the views draw is on its way.
    bool UpdateComes() const { return fShown && fUpdateComes && NeedsUpdate(); }
    /// Lets the views draw what is to be drawn, and shows it.
    void Update();
    /// Has what asks for an update delivered once more, after what waits by now; false when it has
    /// been put off already.
    bool PutOffUpdate();
    /// The message that asks for an update was delivered.
    void UpdateArrived() { fUpdateComes = false; }

    // ViewRoot
    BView& Top() override { return *fTop; }
    BWindow* Window() override { return &fWindow; }
    PixelRect CanvasFrame() const override;
    PixelScale Scale() const override { return fScale; }
    PixelBuffer Canvas() override;
    void Drawn(PixelRect pixels) override { fDrawn = fDrawn | pixels; }
    void Invalidate(PixelRect area) override;
    void Flush() override;
    const ClipRegion* UpdateClip() const override { return fUpdating ? &fUpdateClip : nullptr; }

private:
    void Draw(BView& view);
    void AskForUpdate();
    void TellGround();

    BWindow& fWindow;
    std::unique_ptr<BView> fTop;
    PixelRect fFrame;  // units
    PixelScale fScale;
    PixelStorage fBuffer;
    std::size_t fCapacity = 0;
    bool fIsStale = true;
    bool fScaleIsNew = false;  // and no update has drawn at it yet
    bool fShown = false;
    bool fUpdating = false;
    bool fUpdateComes = false;
    int32 fDisabled = 0;
    ClipRegion fDirty;       // units
    ClipRegion fUpdateClip;  // units
    PixelRect fDrawn;        // pixels
    bool fIsPutOff = false;
    std::optional<rgb_color> fGround;  // as the screen knows it
};

}  // namespace BPrivate
