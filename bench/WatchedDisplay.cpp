#include "bench/WatchedDisplay.h"

#include <ctime>
#include <mutex>
#include <unistd.h>

#include "kits/interface/Display.h"

// The linker's names for the function that makes the real display and for ours.
std::unique_ptr<BPrivate::Display> RealCreateDisplay() asm("__real__ZN8BPrivate13CreateDisplayEv");
std::unique_ptr<BPrivate::Display> WrapCreateDisplay() asm("__wrap__ZN8BPrivate13CreateDisplayEv");

namespace bench {

namespace {

std::function<void(const Drawing&)> gListener;
std::mutex gLock;
BMessenger gFirstWindow;

double ThreadMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

unsigned CentreOf(const BPrivate::PixelBuffer& buffer) {
    const uint8* pixel = buffer.bits + size_t(buffer.height / 2) * size_t(buffer.bytesPerRow) +
        size_t(buffer.width / 2) * 4;
    return unsigned(pixel[0]) | unsigned(pixel[1]) << 8 | unsigned(pixel[2]) << 16;
}

class WatchedWindow : public BPrivate::DisplayWindow {
public:
    explicit WatchedWindow(std::unique_ptr<BPrivate::DisplayWindow> window)
        : fWindow(std::move(window)) {}

    void SetTitle(const std::string& title) override { fWindow->SetTitle(title); }
    void SetFrame(BRect frame, int32 serial) override { fWindow->SetFrame(frame, serial); }
    void SetSizeLimits(float minWidth, float maxWidth, float minHeight, float maxHeight) override {
        fWindow->SetSizeLimits(minWidth, maxWidth, minHeight, maxHeight);
    }
    void Show() override { fWindow->Show(); }
    void Hide() override { fWindow->Hide(); }
    void Activate() override { fWindow->Activate(); }
    void Minimize(bool minimize) override { fWindow->Minimize(minimize); }
    BRect ScreenFrame() override { return fWindow->ScreenFrame(); }
    float PixelRatio() override { return fWindow->PixelRatio(); }
    void SetControl(
        BPrivate::ControlId id, const BPrivate::ControlState& state, int32 serial) override {
        fWindow->SetControl(id, state, serial);
    }
    void PlaceControl(BPrivate::ControlId id, const BPrivate::ControlPlace& place) override {
        fWindow->PlaceControl(id, place);
    }
    void RemoveControl(BPrivate::ControlId id) override { fWindow->RemoveControl(id); }
    void OpenMenu(BPrivate::ControlId bar, int32 item) override { fWindow->OpenMenu(bar, item); }
    void SetReadableView(int32 id, const BPrivate::ReadableView& view) override {
        fWindow->SetReadableView(id, view);
    }
    void RemoveReadableView(int32 id) override { fWindow->RemoveReadableView(id); }
    void Present(const BPrivate::PixelBuffer& backBuffer, BRect area) override {
        fWindow->Present(backBuffer, area);
        if (gListener)
            gListener({Clock::now(), ThreadMilliseconds(), CentreOf(backBuffer), gettid()});
    }
    void SetGround(rgb_color color) override { fWindow->SetGround(color); }
    void Hold() override { fWindow->Hold(); }
    void Release() override { fWindow->Release(); }

private:
    std::unique_ptr<BPrivate::DisplayWindow> fWindow;
};

class WatchedDisplay : public BPrivate::Display {
public:
    explicit WatchedDisplay(std::unique_ptr<BPrivate::Display> display)
        : fDisplay(std::move(display)) {}

    void Run() override { fDisplay->Run(); }
    void Quit() override { fDisplay->Quit(); }
    std::unique_ptr<BPrivate::DisplayWindow> CreateWindow(
        const BPrivate::WindowSpec& spec, const BMessenger& target) override {
        {
            std::lock_guard lock(gLock);
            if (!gFirstWindow.IsValid())
                gFirstWindow = target;
        }
        return std::make_unique<WatchedWindow>(fDisplay->CreateWindow(spec, target));
    }
    BRect MainScreenFrame() override { return fDisplay->MainScreenFrame(); }
    uint32 Modifiers() override { return fDisplay->Modifiers(); }
    void GetKeyInfo(key_info& info) override { fDisplay->GetKeyInfo(info); }
    rgb_color UiColor(color_which which) override { return fDisplay->UiColor(which); }
    std::vector<std::string> FontFamilies() override { return fDisplay->FontFamilies(); }
    BPrivate::FontMetrics Metrics(const BPrivate::FontSpec& font) override {
        return fDisplay->Metrics(font);
    }
    float StringWidth(const BPrivate::FontSpec& font, const std::string& utf8) override {
        return fDisplay->StringWidth(font, utf8);
    }
    std::vector<int32> LineEnds(
        const BPrivate::FontSpec& font, const std::string& utf8, float width) override {
        return fDisplay->LineEnds(font, utf8, width);
    }
    void DrawText(const BPrivate::PixelBuffer& buffer, BRect clip, BPoint origin, rgb_color color,
        const BPrivate::FontSpec& font, const std::string& utf8) override {
        fDisplay->DrawText(buffer, clip, origin, color, font, utf8);
    }
    BPoint PreferredSize(const BPrivate::ControlState& state) override {
        return fDisplay->PreferredSize(state);
    }

private:
    std::unique_ptr<BPrivate::Display> fDisplay;
};

}  // namespace

void SetDrawingListener(std::function<void(const Drawing&)> listener) {
    gListener = std::move(listener);
}

BMessenger FirstWindow() {
    std::lock_guard lock(gLock);
    return gFirstWindow;
}

}  // namespace bench

std::unique_ptr<BPrivate::Display> WrapCreateDisplay() {
    return std::make_unique<bench::WatchedDisplay>(RealCreateDisplay());
}
