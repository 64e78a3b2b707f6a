#pragma once

#include <QObject>
#include <array>
#include <interface/GraphicsDefs.h>
#include <interface/InterfaceDefs.h>
#include <mutex>

namespace BPrivate {

/// What the kits ask of the desktop again and again: the theme's colours. Kept current on the main
/// thread; any thread may ask and does not wait for it.
class DesktopLook : public QObject {
public:
    DesktopLook();
    ~DesktopLook() override;

    rgb_color Color(color_which which) const;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void ReadColors();

    mutable std::mutex fLock;
    std::array<rgb_color, 16> fColors;  // by color_which
};

}  // namespace BPrivate
