#pragma once

#include <support/SupportDefs.h>

/// Tells a fresh press of a key or turn of the wheel from the run that follows one: key repeat,
/// or a steady stream of wheel events.
class TScrollTiming {
public:
    /// Takes the time of a scroll request in microseconds and says whether it is a new press.
    bool IsNewPress(bigtime_t now);

private:
    bigtime_t fLastScrollTime = 0;
    bigtime_t fAverageInterval = 0;  // of the run; 0 when there is none
};
