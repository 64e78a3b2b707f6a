#include "tests/recording_display/RecordingWindow.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace recording {

namespace {

/// The pixels of a content of this frame.
std::size_t Extent(float kitSize) {
    return static_cast<std::size_t>(kitSize) + 1;
}

}  // namespace

std::string TextOf(const ControlState& state) {
    return std::visit(
        [](const auto& own) -> std::string {
            if constexpr (requires { own.label; })
                return own.label;
            else if constexpr (requires { own.text; })
                return own.text;
            else
                return "";
        },
        state);
}

RecordingWindow::~RecordingWindow() {
    fWindow->_Change([&] {
        fWindow->fOpen = false;
        fWindow->fShown = false;
        fWindow->fControls.clear();
    });
}

void RecordingWindow::SetTitle(const std::string& title) {
    fWindow->_Change([&] { fWindow->fTitle = title; });
    _Count();
}

void RecordingWindow::SetFrame(BRect frame, int32 serial) {
    fWindow->_Change([&] {
        fWindow->fFrame = frame;
        fWindow->fFrameSerial = serial;
    });
    _Count();
}

void RecordingWindow::SetSizeLimits(
    float minWidth, float maxWidth, float minHeight, float maxHeight) {
    fWindow->_Change([&] { fWindow->fLimits = {minWidth, maxWidth, minHeight, maxHeight}; });
}

void RecordingWindow::Show() {
    fWindow->_Change([&] { fWindow->fShown = true; });
}

void RecordingWindow::Hide() {
    fWindow->_Change([&] { fWindow->fShown = false; });
}

void RecordingWindow::Activate() {
    fWindow->_Change([&] { fWindow->fActivations++; });
}

void RecordingWindow::Minimize(bool minimize) {
    fWindow->_Change([&] { fWindow->fMinimized = minimize; });
}

BRect RecordingWindow::ScreenFrame() {
    std::optional<BRect> own;
    {
        const std::lock_guard guard(fWindow->fLock);
        own = fWindow->fScreenFrame;
    }
    return own.value_or(TheRecordingDisplay().MainScreenFrame());
}

float RecordingWindow::PixelRatio() {
    return fWindow->_PixelRatio();
}

void RecordingWindow::OpenMenu(BPrivate::ControlId bar, int32 item) {
    fWindow->_Change([&] { fWindow->fOpenedMenus.emplace_back(bar, item); });
}

void RecordingWindow::SetControl(ControlId id, const ControlState& state, int32 serial) {
    fWindow->_Change([&] {
        Control& control = fWindow->fControls[id];
        control.id = id;
        control.state = state;
        control.serial = serial;
    });
    _Count();
}

void RecordingWindow::PlaceControl(ControlId id, const ControlPlace& place) {
    fWindow->_Change([&] { fWindow->fControls.at(id).place = place; });
    _Count();
}

void RecordingWindow::RemoveControl(ControlId id) {
    fWindow->_Change([&] { fWindow->fControls.erase(id); });
    _Count();
}

void RecordingWindow::SetReadableView(int32 id, const BPrivate::ReadableView& view) {
    fWindow->_Change([&] { fWindow->fReadableViews[id] = view; });
}

void RecordingWindow::RemoveReadableView(int32 id) {
    fWindow->_Change([&] { fWindow->fReadableViews.erase(id); });
}

void RecordingWindow::Present(const BPrivate::PixelBuffer& backBuffer, BRect area) {
    fWindow->_Change([&] {
        Picture& picture = fWindow->fPicture;
        if (picture.width != backBuffer.width || picture.height != backBuffer.height) {
            picture.width = backBuffer.width;
            picture.height = backBuffer.height;
            picture.bits.assign(4 * static_cast<std::size_t>(picture.width) *
                    static_cast<std::size_t>(picture.height),
                0);
        }
        fWindow->fPresented.push_back(area);
        fWindow->fSeen.push_back({std::exchange(fWindow->fKept, 0), true});
        const auto left = static_cast<std::size_t>(area.left);
        const auto length = 4 * Extent(area.Width());
        for (auto y = static_cast<std::size_t>(area.top);
             y <= static_cast<std::size_t>(area.bottom); y++) {
            const std::size_t to = 4 * (y * static_cast<std::size_t>(picture.width) + left);
            const uint8* from =
                backBuffer.bits + y * static_cast<std::size_t>(backBuffer.bytesPerRow) + 4 * left;
            std::memcpy(picture.bits.data() + to, from, length);
            // The alpha of what is shown means nothing; here it tells that it was.
            for (std::size_t i = 3; i < length; i += 4)
                picture.bits[to + i] = 255;
        }
    });
}

void RecordingWindow::SetGround(rgb_color color) {
    fWindow->_Change([&] { fWindow->fGround = color; });
}

void RecordingWindow::Hold() {
    fWindow->_Change([&] { fWindow->fHolds = true; });
}

void RecordingWindow::Release() {
    fWindow->_Change([&] {
        fWindow->fHolds = false;
        if (const int kept = std::exchange(fWindow->fKept, 0); kept > 0)
            fWindow->fSeen.push_back({kept, false});
    });
}

void RecordingWindow::_Count() {
    fWindow->_Change([&] {
        if (fWindow->fHolds)
            fWindow->fKept++;
        else
            fWindow->fSeen.push_back({1, false});
    });
}

}  // namespace recording
