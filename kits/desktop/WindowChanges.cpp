#include "kits/desktop/WindowChanges.h"

#include <iterator>
#include <utility>

namespace BPrivate {

void WindowChanges::Hold() {
    const std::lock_guard lock(fLock);
    fHolds = true;
}

bool WindowChanges::Add(Change change) {
    const std::lock_guard lock(fLock);
    fKept.push_back(std::move(change));
    return !fHolds && MakeReady();
}

bool WindowChanges::Present(const PixelBuffer& buffer, QRect area) {
    const std::lock_guard lock(fLock);
    const bool isNew = fImage->Present(buffer, area);
    return (isNew || !fKept.empty()) && MakeReady();
}

bool WindowChanges::Release() {
    const std::lock_guard lock(fLock);
    fHolds = false;
    return !fKept.empty() && MakeReady();
}

bool WindowChanges::MakeReady() {
    fReady.insert(
        fReady.end(), std::make_move_iterator(fKept.begin()), std::make_move_iterator(fKept.end()));
    fKept.clear();
    return !std::exchange(fTold, true);
}

std::vector<WindowChanges::Change> WindowChanges::Take(QRect& changed) {
    const std::lock_guard lock(fLock);
    fTold = false;
    changed = fImage->TakeChanged();
    return std::exchange(fReady, {});
}

}  // namespace BPrivate
