#pragma once

#include <app/Message.h>
#include <deque>
#include <functional>
#include <kernel/OS.h>
#include <memory>

#include "viewer/LoadProblem.h"
#include "viewer/LoadThread.h"

/// What came of an image that was to be shown.
struct TLoadOutcome {
    enum End {
        kShown,
        kFailed,        ///< there was an entry, and it could not be shown
        kNothingFound,  ///< a search came to the end of the list
        kAbandoned,     ///< the user has gone elsewhere
    };

    End end = kFailed;
    TLoadProblem problem{};
};

/// The image that the user waits for, while a loader finds and decodes it: at most one at a time.
/// The window goes on meanwhile; what has to come after the image is kept here.
///
/// Belongs to the window's thread. Nothing is ever waited for: a loader whose image is not wanted
/// any more is left to itself.
class TForegroundLoad {
public:
    /// What is to be done when the outcome is known.
    using Continuation = std::function<void(const TLoadOutcome&)>;

    bool IsPending() const { return fLoader != nullptr; }
    /// Whether the entry is known that is to be shown.
    bool IsDecoding() const { return IsPending() && fIsFound; }
    void SetFound() { fIsFound = true; }
    bool IsBy(thread_id thread) const { return IsPending() && fLoader->ThreadID() == thread; }

    /// Starts the loader; there must be none. `isFound`: it has not to search.
    /// @return false when it could not be started; then nothing has changed.
    [[nodiscard]] bool Start(LoaderPtr loader, bool isFound, Continuation then);
    /// Ends the load: hands out the loader and what is to be done.
    std::pair<LoaderPtr, Continuation> Take();

    /// Keeps a command or a report until the image is there or has failed.
    void Hold(const BMessage& message) { fHeld.push_back(message); }
    /// The next that was kept, in the order they came. @return false when there is none
    bool TakeHeld(BMessage* message);
    /// Drops the commands that are held: they were meant for what was shown before.
    void DropHeldCommands();

private:
    LoaderPtr fLoader;
    bool fIsFound = false;
    Continuation fThen;
    std::deque<BMessage> fHeld;
};
