#include "tests/recording_display/RecordingDisplay.h"

#include <algorithm>
#include <cmath>

#include "kits/interface/PixelOps.h"
#include "tests/recording_display/RecordingWindow.h"

namespace recording {

using BPrivate::FontMetrics;
using BPrivate::FontSpec;
using BPrivate::PixelBuffer;

namespace {

std::mutex sChangeLock;
std::condition_variable sChange;

template <typename Visit>
void ForEachCharacter(const std::string& utf8, Visit visit) {
    for (const char byte : utf8) {
        if ((static_cast<unsigned char>(byte) & 0xc0) != 0x80)
            visit(byte == ' ');
    }
}

}  // namespace

void Changed() {
    const std::lock_guard guard(sChangeLock);
    sChange.notify_all();
}

bool WaitFor(const std::function<bool()>& condition, std::chrono::milliseconds timeout) {
    const auto end = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        // What is waited for need not be a matter of the display's.
        std::unique_lock guard(sChangeLock);
        sChange.wait_for(guard, std::chrono::milliseconds(5));
    }
    return true;
}

RecordingDisplay& TheRecordingDisplay() {
    return static_cast<RecordingDisplay&>(BPrivate::TheDisplay());
}

std::vector<std::shared_ptr<Window>> RecordingDisplay::Windows() const {
    const std::lock_guard guard(fLock);
    std::vector<std::shared_ptr<Window>> open;
    std::copy_if(fWindows.begin(), fWindows.end(), std::back_inserter(open),
        [](const auto& window) { return window->IsOpen(); });
    return open;
}

std::shared_ptr<Window> RecordingDisplay::WaitForWindow(const std::string& title) {
    std::shared_ptr<Window> found;
    WaitFor([&] {
        for (const auto& window : Windows()) {
            if (window->IsShown() && window->Title() == title)
                found = window;
        }
        return found != nullptr;
    });
    return found;
}

void RecordingDisplay::SetModifiers(uint32 modifiers) {
    const std::lock_guard guard(fLock);
    fKeys.modifiers = modifiers;
}

void RecordingDisplay::SetKeyHeld(int32 key, bool held) {
    const std::lock_guard guard(fLock);
    const auto bit = static_cast<uint8>(1 << (7 - key % 8));
    uint8& states = fKeys.key_states[key / 8];
    states = held ? static_cast<uint8>(states | bit) : static_cast<uint8>(states & ~bit);
}

void RecordingDisplay::SetMainScreenFrame(BRect frame) {
    const std::lock_guard guard(fLock);
    fScreen = frame;
}

void RecordingDisplay::SetFontFamilies(std::vector<std::string> families) {
    const std::lock_guard guard(fLock);
    fFamilies = std::move(families);
}

void RecordingDisplay::Run() {
    std::unique_lock guard(fLock);
    fQuitCondition.wait(guard, [this] { return fQuit; });
    fQuit = false;  // a test program may run several applications, one after the other
}

void RecordingDisplay::Quit() {
    const std::lock_guard guard(fLock);
    fQuit = true;
    fQuitCondition.notify_all();
}

std::unique_ptr<BPrivate::DisplayWindow> RecordingDisplay::CreateWindow(
    const BPrivate::WindowSpec& spec, const BMessenger& target) {
    auto window = std::make_shared<Window>(spec, target);
    const std::lock_guard guard(fLock);
    std::erase_if(fWindows, [](const auto& other) { return !other->IsOpen(); });
    fWindows.push_back(window);
    return std::make_unique<RecordingWindow>(std::move(window));
}

BRect RecordingDisplay::MainScreenFrame() {
    const std::lock_guard guard(fLock);
    return fScreen;
}

uint32 RecordingDisplay::Modifiers() {
    const std::lock_guard guard(fLock);
    return fKeys.modifiers;
}

void RecordingDisplay::GetKeyInfo(key_info& info) {
    const std::lock_guard guard(fLock);
    info = fKeys;
}

rgb_color RecordingDisplay::UiColor(color_which which) {
    switch (which) {
    case B_PANEL_BACKGROUND_COLOR: return {216, 216, 216, 255};
    case B_DOCUMENT_BACKGROUND_COLOR:
    case B_CONTROL_BACKGROUND_COLOR: return {255, 255, 255, 255};
    case B_MENU_BACKGROUND_COLOR: return {220, 220, 220, 255};
    default: return {0, 0, 0, 255};
    }
}

std::vector<std::string> RecordingDisplay::FontFamilies() {
    const std::lock_guard guard(fLock);
    return fFamilies;
}

FontMetrics RecordingDisplay::Metrics(const FontSpec& font) {
    return {font.size * 3 / 4, font.size / 4, 0};
}

float RecordingDisplay::StringWidth(const FontSpec& font, const std::string& utf8) {
    float width = 0;
    ForEachCharacter(utf8, [&](bool) { width += font.size / 2; });
    return width;
}

std::vector<int32> RecordingDisplay::LineEnds(
    const FontSpec& font, const std::string& utf8, float width) {
    const auto isTrail = [&](std::size_t at) {
        return at < utf8.size() && (static_cast<unsigned char>(utf8[at]) & 0xc0) == 0x80;
    };
    std::vector<int32> ends;
    std::size_t blanksEnd = 0;  // behind the last blanks of the line
    std::size_t start = 0;
    float used = 0;
    std::size_t at = 0;
    while (at < utf8.size()) {
        std::size_t next = at + 1;
        while (isTrail(next))
            next++;
        const bool blank = utf8[at] == ' ';
        if (!blank && at > start && !(used + font.size / 2 <= width)) {
            start = blanksEnd > start ? blanksEnd : at;
            ends.push_back(static_cast<int32>(start));
            at = start;
            used = 0;
            continue;
        }
        used += font.size / 2;
        at = next;
        if (blank)
            blanksEnd = at;
    }
    ends.push_back(static_cast<int32>(utf8.size()));
    return ends;
}

void RecordingDisplay::DrawText(const PixelBuffer& buffer, BRect clip, BPoint origin,
    rgb_color color, const FontSpec& font, const std::string& utf8) {
    BPoint at = origin;
    const float size = font.size * buffer.ratio;
    ForEachCharacter(utf8, [&](bool blank) {
        const auto left = static_cast<int32>(std::floor(at.x));
        const auto bottom = static_cast<int32>(std::floor(at.y));
        const auto right = left + static_cast<int32>(size / 2) - 2;
        const auto top = bottom - static_cast<int32>(size * 3 / 4);
        at.x += size / 2;
        for (int32 y = top; y < bottom && !blank; y++) {
            for (int32 x = left; x <= right; x++) {
                const bool inside = x >= 0 && y >= 0 && x < buffer.width && y < buffer.height &&
                    clip.Contains(BPoint(static_cast<float>(x), static_cast<float>(y)));
                if (!inside)
                    continue;
                uint8* pixel = buffer.bits + static_cast<std::ptrdiff_t>(y) * buffer.bytesPerRow +
                    std::ptrdiff_t{4} * x;
                const BPrivate::Pixel blended = BPrivate::BlendPixel(
                    BPrivate::ToPixel(color), BPrivate::ReadRgba32::At(pixel, 0));
                std::memcpy(pixel, &blended, sizeof(blended));
            }
        }
    });
}

BPoint RecordingDisplay::PreferredSize(const ControlState& state) {
    const auto widthOf = [this](const std::string& text) {
        return StringWidth(FontSpec(), text) + 19;
    };
    if (const auto* bar = std::get_if<BPrivate::MenuBarState>(&state)) {
        float width = 0;
        for (const auto& item : bar->items)
            width += widthOf(item.label);
        return {width, 22};
    }
    if (const auto* field = std::get_if<BPrivate::MenuFieldState>(&state)) {
        float width = widthOf(field->title);
        for (const auto& item : field->items)
            width = std::max(width, widthOf(item.label));
        return {field->divider + width, 24};
    }
    if (const auto* control = std::get_if<BPrivate::TextControlState>(&state)) {
        constexpr float kField = 60;
        return {std::max(StringWidth(FontSpec(), control->label), control->divider) + kField, 23};
    }
    // Room for the text in the plain font, and a margin.
    return {widthOf(TextOf(state)), 23};
}

}  // namespace recording

namespace BPrivate {

std::unique_ptr<Display> CreateDisplay() {
    return std::make_unique<recording::RecordingDisplay>();
}

}  // namespace BPrivate
