#include "kits/desktop/ScreenTable.h"

#include <algorithm>
#include <utility>

namespace BPrivate {

namespace {

int64_t Area(const QRect& rect) {
    return rect.isEmpty() ? 0 : int64_t{rect.width()} * rect.height();
}

}  // namespace

BRect KitRect(const QRect& rect) {
    return {static_cast<float>(rect.left()), static_cast<float>(rect.top()),
        static_cast<float>(rect.right()), static_cast<float>(rect.bottom())};
}

void ScreenTable::Set(std::vector<ScreenPlace> screens) {
    const std::lock_guard lock(fLock);
    fScreens = std::move(screens);
}

ScreenPlace ScreenTable::Main() const {
    const std::lock_guard lock(fLock);
    return fScreens.empty() ? ScreenPlace{} : fScreens.front();
}

ScreenPlace ScreenTable::Holding(const QRect& frame) const {
    const std::lock_guard lock(fLock);
    const auto most = std::ranges::max_element(
        fScreens, {}, [&](const ScreenPlace& screen) { return Area(screen.frame & frame); });
    return most == fScreens.end() ? ScreenPlace{} : *most;
}

bool ScreenTable::HasMiddle(const QRect& frame) const {
    const std::lock_guard lock(fLock);
    return std::ranges::any_of(
        fScreens, [&](const ScreenPlace& screen) { return screen.frame.contains(frame.center()); });
}

bool CoversScreen(const QRect& frame, const QRect& screen) {
    return !screen.isEmpty() && frame.contains(screen) &&
        (frame.top() < screen.top() || frame.bottom() > screen.bottom());
}

QRect BroughtOnto(const QRect& frame, const QRect& screen) {
    const auto within = [](int start, int length, int low, int room) {
        return std::max(low, std::min(start, low + room - length));
    };
    return {within(frame.x(), frame.width(), screen.x(), screen.width()),
        within(frame.y(), frame.height(), screen.y(), screen.height()), frame.width(),
        frame.height()};
}

QRect BroughtOnto(const QRect& frame, const QMargins& around, const QRect& screen) {
    return BroughtOnto(frame.marginsAdded(around), screen).marginsRemoved(around);
}

}  // namespace BPrivate
