#pragma once

#include "tests/recording_display/RecordingDisplay.h"

namespace recording {

/// The label of a control, or the text of one without; empty for one that has neither.
std::string TextOf(const ControlState& state);

/// The kits' side of a recorded window.
class RecordingWindow final : public BPrivate::DisplayWindow {
public:
    explicit RecordingWindow(std::shared_ptr<Window> window) : fWindow(std::move(window)) {}
    ~RecordingWindow() override;

    void SetTitle(const std::string& title) override;
    void SetFrame(BRect frame, int32 serial) override;
    void SetSizeLimits(float minWidth, float maxWidth, float minHeight, float maxHeight) override;
    void Show() override;
    void Hide() override;
    void Activate() override;
    void Minimize(bool minimize) override;
    BRect ScreenFrame() override;
    float PixelRatio() override;
    void SetControl(ControlId id, const ControlState& state, int32 serial) override;
    void PlaceControl(ControlId id, const ControlPlace& place) override;
    void RemoveControl(ControlId id) override;
    void OpenMenu(BPrivate::ControlId bar, int32 item) override;
    void SetReadableView(int32 id, const BPrivate::ReadableView& view) override;
    void RemoveReadableView(int32 id) override;
    void Present(const BPrivate::PixelBuffer& backBuffer, BRect area) override;
    void SetGround(rgb_color color) override;
    void Hold() override;
    void Release() override;

private:
    // Carried out at once all the same; only what would be seen together is written down.
    void _Count();

    const std::shared_ptr<Window> fWindow;
};

}  // namespace recording
