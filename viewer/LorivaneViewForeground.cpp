// The image that the user waits for: it is decoded by a loader of its own while the window goes on,
// and shown when that reports.

#include <app/Message.h>
#include <interface/InterfaceDefs.h>
#include <kernel/OS.h>
#include <utility>

#include "framework/MessageCodes.h"
#include "viewer/LorivaneView.h"

status_t TLorivaneView::SetCurrentImage(uint32 index, const TForegroundLoad::Continuation& then) {
    if (ShouldSkip()) {
        then({});
        return B_ERROR;
    }
    if (index >= Count()) {
        ResetScrollValues();
        ShowNothing();
        ResumeLoadThreads();
        fDisplayStamp = system_time();
        then({});
        return B_ERROR;
    }
    BeginImage(index);
    if (fForeground.Start(TLoadThread::Awaited(SharedNames(), index, 0, this), true, then))
        return B_OK;
    ReloadComment();
    then({TLoadOutcome::kFailed, problem_with(CurrentPath(), B_NO_MEMORY)});
    return B_ERROR;
}

// Shows the image at that index, or the first beyond it in steps of +1 or -1.
void TLorivaneView::SearchAndShow(
    uint32 from, int32 step, const TForegroundLoad::Continuation& then) {
    if (from >= Count() ||
        !fForeground.Start(TLoadThread::Awaited(SharedNames(), from, step, this), false, then))
        then({TLoadOutcome::kNothingFound});
}

// Shows the entry or, where that cannot be, the first image after it. What is wrong with the entry
// is told even when another image is shown.
void TLorivaneView::ShowFirstFrom(uint32 index, const TForegroundLoad::Continuation& then) {
    SetCurrentImage(index, [this, then](const TLoadOutcome& first) {
        if (first.end != TLoadOutcome::kFailed) {
            then(first);
            return;
        }
        SearchAndShow(fCurrentIndex + 1, 1, [first, then](TLoadOutcome outcome) {
            if (outcome.problem.reason == TLoadProblem::kNone)
                outcome.problem = first.problem;
            if (outcome.end == TLoadOutcome::kShown && !outcome.problem.IsOfImage())
                outcome.problem = {};
            then(outcome);
        });
    });
}

// From here on the entry is the current one, whether it can be shown or not.
void TLorivaneView::BeginImage(uint32 index) {
    ResetScrollValues();
    fCurrentIndex = index;
    DrawProgressString();
}

// The loader has found what it was to search for, and decodes it now.
void TLorivaneView::ImageFound(BMessage* message) {
    int32 thread = 0;
    int32 index = 0;
    if (message->FindInt32(kFieldThread, &thread) != B_OK ||
        message->FindInt32(kFieldIndex, &index) != B_OK || !fForeground.IsBy(thread))
        return;
    int32 slot = 0;
    if (!IsCacheHit(static_cast<uint32>(index), &slot)) {
        fForeground.SetFound();
        BeginImage(static_cast<uint32>(index));
        return;
    }
    const auto [loader, then] = fForeground.Take();
    SetCurrentImageFromCache(slot);
    EndForeground(then, {TLoadOutcome::kShown});
}

void TLorivaneView::ForegroundLoaded() {
    const auto [loader, then] = fForeground.Take();
    if (std::unique_ptr<TImage> image = loader->TakeImage()) {
        // What is dropped is deleted when the new image is on the screen already.
        std::unique_ptr<TImage> dropped = ReplaceCurrentImage(std::move(image), kPrevSlot);
        DisplayCurrentImage();
        fDisplayStamp = system_time();
        fForeground.DropHeldCommands();
        EndForeground(then, {TLoadOutcome::kShown});
    } else if (loader->HasFound()) {
        // The image that stays gets its own comment back.
        ReloadComment();
        EndForeground(then, {TLoadOutcome::kFailed, loader->Problem()});
    } else {
        EndForeground(then, {TLoadOutcome::kNothingFound});
    }
}

// Goes on with what had to come after the image, unless there is another one to wait for.
void TLorivaneView::EndForeground(
    const TForegroundLoad::Continuation& then, const TLoadOutcome& outcome) {
    then(outcome);
    BMessage held;
    while (!fForeground.IsPending() && fForeground.TakeHeld(&held))
        MessageReceived(&held);
}

// The user has chosen something else.
void TLorivaneView::AbandonForeground() {
    if (!fForeground.IsPending())
        return;
    fForeground.DropHeldCommands();
    const auto [loader, then] = fForeground.Take();
    then({TLoadOutcome::kAbandoned});
}

// Keeps what has to come after the image that the user waits for. False when there is none.
bool TLorivaneView::HoldWhileLoading(const BMessage& message) {
    if (!fForeground.IsPending())
        return false;
    fForeground.Hold(message);
    return true;
}
