#pragma once

#include <support/SupportDefs.h>

namespace BPrivate {

/// The answer to an alert, for the thread that waits for it. Shared by that thread and the alert,
/// since either may be gone first. Any thread.
class AlertAnswer {
public:
    static constexpr int32 kNone = -1;

    AlertAnswer();

    /// Which button it is; the first one counts.
    void Give(int32 button);
    int32 Button() const;

    /// The alert is gone, answered or not.
    void Close();
    /// Waits until the alert is gone. False when the application ends first, or was to since this
    /// was made and thought better of it.
    bool WaitForClose();

    /// While the application ends nobody waits for an answer: who waits is let go, and so is who
    /// comes later. The windows of those who wait could not be closed otherwise, since a thread
    /// that waits keeps its window locked.
    static void SetApplicationEnds(bool ends);
    static bool ApplicationEnds();

private:
    int64 fEndsBefore;
    int32 fButton = kNone;
    bool fClosed = false;
};

}  // namespace BPrivate
