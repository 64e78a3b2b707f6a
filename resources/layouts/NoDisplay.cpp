// Views that are only archived are never shown: a build needs no screen, and no toolkit. What they
// measure themselves by is the desktop's matter, and not kept in a layout.

#include "kits/interface/Display.h"

namespace {

using namespace BPrivate;

class NoDisplay : public Display {
public:
    void Run() override {}
    void Quit() override {}
    std::unique_ptr<DisplayWindow> CreateWindow(const WindowSpec&, const BMessenger&) override {
        return nullptr;
    }
    BRect MainScreenFrame() override { return {}; }
    uint32 Modifiers() override { return 0; }
    void GetKeyInfo(key_info& info) override { info = {}; }
    rgb_color UiColor(color_which) override { return {}; }
    std::vector<std::string> FontFamilies() override { return {}; }
    FontMetrics Metrics(const FontSpec&) override { return {}; }
    float StringWidth(const FontSpec&, const std::string&) override { return 0; }
    std::vector<int32> LineEnds(const FontSpec&, const std::string& utf8, float) override {
        return {static_cast<int32>(utf8.size())};
    }
    void DrawText(const PixelBuffer&, BRect, BPoint, rgb_color, const FontSpec&,
        const std::string&) override {}
    BPoint PreferredSize(const ControlState&) override { return {}; }
};

}  // namespace

std::unique_ptr<Display> BPrivate::CreateDisplay() {
    return std::make_unique<NoDisplay>();
}
