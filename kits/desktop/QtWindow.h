#pragma once

#include <app/Messenger.h>
#include <functional>
#include <memory>

#include "kits/desktop/FrontImage.h"
#include "kits/desktop/Keyboard.h"
#include "kits/desktop/MainThread.h"
#include "kits/desktop/ScreenTable.h"
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

private:
    /// Where the main thread keeps the widget once it has made it.
    struct Slot {
        WindowWidget* widget = nullptr;
    };

    void Post(std::function<void(WindowWidget&)> work);
    ScreenPlace Place() const;

    const std::shared_ptr<MainThread> fThread;
    const std::shared_ptr<FrontImage> fImage;
    const std::shared_ptr<Slot> fSlot;
    const std::shared_ptr<ScreenTable> fScreens;
    const std::shared_ptr<SharedPlace> fPlace;
    // Until it is first shown, a window is where the kits want it.
    BRect fFrame;
    bool fWasShown = false;
};

}  // namespace BPrivate
