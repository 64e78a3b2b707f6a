#pragma once

#include <QMargins>
#include <QRect>
#include <interface/Rect.h>
#include <mutex>
#include <vector>

namespace BPrivate {

/// One screen: its place among the others, and the pixels of it to one kit unit.
struct ScreenPlace {
    QRect frame;
    float ratio = 1;

    bool operator==(const ScreenPlace&) const = default;
};

BRect KitRect(const QRect& rect);

/// The screens there are, the main one first. Any thread; nobody waits for more than a copy.
class ScreenTable {
public:
    void Set(std::vector<ScreenPlace> screens);

    ScreenPlace Main() const;
    /// The screen that holds most of a window of that frame; the main one when none holds any.
    ScreenPlace Holding(const QRect& frame) const;
    /// Whether the middle of a window of that frame can be seen.
    bool HasMiddle(const QRect& frame) const;

private:
    mutable std::mutex fLock;
    std::vector<ScreenPlace> fScreens;
};

/// The screen one window is on. Set by the main thread, asked by any.
class SharedPlace {
public:
    explicit SharedPlace(const ScreenPlace& place) : fPlace(place) {}

    void Set(const ScreenPlace& place) {
        const std::lock_guard lock(fLock);
        fPlace = place;
    }
    ScreenPlace Get() const {
        const std::lock_guard lock(fLock);
        return fPlace;
    }

private:
    mutable std::mutex fLock;
    ScreenPlace fPlace;
};

/// Whether a content of that frame leaves nothing of the screen free and goes beyond its upper or
/// lower edge: a window that wants to be seen without what it has there.
bool CoversScreen(const QRect& frame, const QRect& screen);

/// The frame moved as little as it takes to lie on the screen, its upper left corner at any rate.
QRect BroughtOnto(const QRect& frame, const QRect& screen);
/// The same with what is around it, of which as much has to be on the screen.
QRect BroughtOnto(const QRect& frame, const QMargins& around, const QRect& screen);

}  // namespace BPrivate
