#pragma once

#include <app/Messenger.h>
#include <deque>
#include <memory>

#include "kits/desktop/FrontImage.h"
#include "kits/desktop/Keyboard.h"
#include "kits/desktop/MainThread.h"
#include "kits/desktop/ScreenTable.h"
#include "kits/desktop/WindowChanges.h"
#include "kits/interface/Display.h"

namespace BPrivate {

class ScreenWatch;
class WindowWidget;

/// The kits' hold on a window of the display: passes every call on to the main thread, in order.
/// Any thread, but one at a time.
class QtWindow : public DisplayWindow {
public:
    /// `keyboard` and `screens` must live as long as `thread` is open.
    QtWindow(std::shared_ptr<MainThread> thread, const Keyboard& keyboard, ScreenWatch& screens,
        const WindowSpec& spec, const BMessenger& target, QColor empty);
    ~QtWindow() override;

    void SetTitle(const std::string& title) override;
    void SetFrame(BRect frame, int32 serial) override;
    void SetSizeLimits(float minWidth, float maxWidth, float minHeight, float maxHeight) override;
    void Show() override;
    void Hide() override;
    void Activate() override;
    void ActivateWith(const std::string& token) override;
    void Minimize(bool minimize) override;
    BRect ScreenFrame() override;
    float PixelRatio() override;
    void SetControl(ControlId id, const ControlState& state, int32 serial) override;
    void PlaceControl(ControlId id, const ControlPlace& place) override;
    void RemoveControl(ControlId id) override;
    void OpenMenu(ControlId bar, int32 item) override;
    void SetReadableView(int32 id, const ReadableView& view) override;
    void RemoveReadableView(int32 id) override;
    void Present(const PixelBuffer& backBuffer, BRect area) override;
    void SetGround(rgb_color color) override;
    void Hold() override;
    void Release() override;

private:
    /// The main thread's side.
    struct Carrier {
        explicit Carrier(std::shared_ptr<FrontImage> image) : changes(std::move(image)) {}

        WindowChanges changes;
        WindowWidget* widget = nullptr;           // once it is made
        std::deque<WindowChanges::Change> taken;  // and not carried out yet

        /// Carries out what is on its way.
        void Carry();
    };

    /// A change that is kept while changes are.
    void Change(WindowChanges::Change change);
    /// One that is carried out at once, after all before it.
    void Do(WindowChanges::Change change);
    void CarryIf(bool isToBeTold);
    ScreenPlace Place() const;

    const std::shared_ptr<MainThread> fThread;
    const std::shared_ptr<FrontImage> fImage;
    const std::shared_ptr<Carrier> fCarrier;
    const std::shared_ptr<ScreenTable> fScreens;
    const std::shared_ptr<SharedPlace> fPlace;
    // Until it is first shown, a window is where the kits want it.
    BRect fFrame;
    bool fWasShown = false;
};

}  // namespace BPrivate
