#include "kits/desktop/ScreenWatch.h"

#include <QGuiApplication>
#include <QScreen>
#include <utility>

namespace BPrivate {

ScreenWatch::ScreenWatch() : fTable(std::make_shared<ScreenTable>()) {
    fChanged.setSingleShot(true);
    fChanged.setInterval(0);
    const auto follow = [this] { Follow(); };
    connect(qGuiApp, &QGuiApplication::screenAdded, this, follow);
    // Told when the screen is no longer among the others.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, follow);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, follow);
    Follow();
}

ScreenWatch::~ScreenWatch() = default;

void ScreenWatch::WhenChanged(QObject& listener, std::function<void()> call) {
    connect(&fChanged, &QTimer::timeout, &listener, std::move(call));
}

void ScreenWatch::Follow() {
    for (const auto& connection : std::exchange(fScreenConnections, {}))
        disconnect(connection);
    // The main one is Qt's first.
    std::vector<ScreenPlace> places;
    for (const QScreen* screen : QGuiApplication::screens()) {
        places.push_back({screen->geometry(), static_cast<float>(screen->devicePixelRatio())});
        const auto follow = [this] { Follow(); };
        fScreenConnections.push_back(connect(screen, &QScreen::geometryChanged, this, follow));
        // What the pixel ratio is made of; it has no signal of its own.
        fScreenConnections.push_back(
            connect(screen, &QScreen::logicalDotsPerInchChanged, this, follow));
        fScreenConnections.push_back(
            connect(screen, &QScreen::physicalDotsPerInchChanged, this, follow));
    }
    fTable->Set(std::move(places));
    fChanged.start();
}

}  // namespace BPrivate
