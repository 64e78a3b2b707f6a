#include "kits/interface/Display.h"

namespace BPrivate {

Display& TheDisplay() {
    static const std::unique_ptr<Display> display = CreateDisplay();
    return *display;
}

}  // namespace BPrivate
