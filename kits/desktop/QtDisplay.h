#pragma once

#include <QApplication>
#include <memory>

#include "kits/desktop/DesktopLook.h"
#include "kits/desktop/Keyboard.h"
#include "kits/desktop/LanguageWatch.h"
#include "kits/desktop/MainThread.h"
#include "kits/desktop/ScreenWatch.h"
#include "kits/interface/Display.h"

namespace BPrivate {

/// The display over Qt. Made, run and destroyed on the main thread. The Qt application it makes
/// stays until the process has ended.
class QtDisplay : public Display {
public:
    QtDisplay();
    ~QtDisplay() override;

    void Run() override;
    void Quit() override;
    std::unique_ptr<DisplayWindow> CreateWindow(
        const WindowSpec& spec, const BMessenger& target) override;
    BRect MainScreenFrame() override;
    uint32 Modifiers() override;
    void GetKeyInfo(key_info& info) override;
    rgb_color UiColor(color_which which) override;
    std::vector<std::string> FontFamilies() override;
    FontMetrics Metrics(const FontSpec& font) override;
    float StringWidth(const FontSpec& font, const std::string& utf8) override;
    std::vector<int32> LineEnds(
        const FontSpec& font, const std::string& utf8, float width) override;
    void DrawText(const PixelBuffer& buffer, BRect clip, BPoint origin, rgb_color color,
        const FontSpec& font, const std::string& utf8) override;
    BPoint PreferredSize(const ControlState& state) override;

private:
    std::unique_ptr<QApplication> fApplication;
    std::shared_ptr<MainThread> fThread;
    std::unique_ptr<Keyboard> fKeyboard;
    std::unique_ptr<DesktopLook> fLook;
    std::unique_ptr<LanguageWatch> fLanguage;
    std::unique_ptr<ScreenWatch> fScreens;
};

}  // namespace BPrivate
