#pragma once

// The desktop's own display with an ear to what is drawn. Linking it with
// -Wl,--wrap=_ZN8BPrivate13CreateDisplayEv puts it in the place of the real one, which it calls.

#include <app/Messenger.h>
#include <functional>
#include <string>

#include "bench/Report.h"

namespace bench {

/// One finished drawing, as the window's thread handed it to the screen.
struct Drawing {
    Clock::time_point finished;
    double threadMilliseconds = 0;  ///< processor time its thread has used so far
    unsigned centre = 0;            ///< the pixel in the middle of the window, without alpha
    int thread = 0;                 ///< the kernel's number of the window's thread
};

/// Called on the window's thread after each drawing of a window; set before the display is made.
void SetDrawingListener(std::function<void(const Drawing&)> listener);

/// Where the events of the first window go.
BMessenger FirstWindow();

}  // namespace bench
