// Navigation: which image becomes the current one, and where it comes from.

#include <app/AppDefs.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <interface/InterfaceDefs.h>
#include <interface/Window.h>
#include <kernel/OS.h>
#include <storage/Entry.h>
#include <storage/Path.h>
#include <string>

#include "framework/Alert.h"
#include "framework/HintedLabels.h"
#include "framework/LocalText.h"
#include "framework/MessageCodes.h"
#include "viewer/LorivaneView.h"

namespace {

/// Why the entry that was handed in, or its folder, cannot be shown; its path in any case.
/// @param listed what listing the folder gave
TLoadProblem problem_of_entry(const entry_ref& ref, status_t listed) {
    const BEntry entry(&ref);
    struct stat status = {};
    const status_t found = entry.InitCheck() == B_OK ? entry.GetStat(&status) : entry.InitCheck();
    std::string path = ref.folder() + "/" + (ref.name != nullptr ? ref.name : "");
    if (found != B_OK)
        return problem_with(path, found);
    if (listed == B_OK)
        return {TLoadProblem::kNone, path, ""};
    return {TLoadProblem::kUnreadableFolder, entry.IsDirectory() ? path : ref.folder(), ""};
}

/// Whether an entry of the menu of recent files sent it. What else is handed in from within the
/// program was chosen in its file panel, whose buttons answer to letters with the same key held.
bool is_from_menu(const BMessage& message) {
    return !message.IsSourceRemote() && message.HasPointer(kFieldSource);
}

/// Asks whether the entry is to leave the list of recent files.
bool wants_to_forget(const entry_ref& ref) {
    const THintedLabels labels;
    const std::string no = labels("No", "N");
    const std::string yes = labels("Yes", "Y");
    const char* name = ref.name != nullptr ? ref.name : "";
    const std::string text = local_text_with("@Ask_Del_One_MRUF %FileName%@", "%FileName%", name);
    return show_alert(text.c_str(), "", no.c_str(), yes.c_str(), nullptr, 0, B_WARNING_ALERT) == 1;
}

}  // namespace

void TLorivaneView::RefsReceived(BMessage* message) {
    entry_ref ref;
    if (message->FindRef(kFieldRefs, &ref) != B_OK)
        return;
    if (is_from_menu(*message) && (modifiers() & B_CONTROL_KEY) != 0) {
        if (wants_to_forget(ref))
            SendRemoveHistoryRqtd(ref);
        return;
    }
    SetFolder(ref, [this, ref](const TLoadOutcome&) { SendAddHistoryRqtd(ref); });
}

void TLorivaneView::SetFolder(const entry_ref& ref, const TForegroundLoad::Continuation& then) {
    AbandonForeground();
    BEntry entry(&ref);
    const bool isFolder = entry.IsDirectory();
    BEntry folder = entry;
    if (!isFolder)
        entry.GetParent(&folder);
    std::shared_ptr<const NameList> oldNames = SharedNames();
    const status_t listed = ListFolder(folder);
    if (SharedNames() != oldNames) {
        RenumberImages();
        // What they load would have a place and neighbours of before.
        fLoadThreads.clear();
    }
    DropOutdatedNeighbours();
    fNothingBeside = {};
    fAwaitedThread = 0;

    const TLoadProblem problem = problem_of_entry(ref, listed);
    auto finish = [this, isFolder, problem, then](TLoadOutcome outcome) {
        if (problem.reason != TLoadProblem::kNone)
            outcome.problem = problem;
        else if (isFolder && outcome.end != TLoadOutcome::kShown && !outcome.problem.IsOfImage())
            outcome.problem = {TLoadProblem::kNoImageInFolder, problem.path, ""};
        if (outcome.end != TLoadOutcome::kAbandoned) {
            ShowProblem(outcome.problem);
            LaunchLoadThread();
        }
        if (then)
            then(outcome);
    };
    BPath path;
    const uint32 index = entry.GetPath(&path) == B_OK ? IndexOf(path.Path()) : kNoIndex;
    if (index != kNoIndex)
        SetCurrentImage(index, finish);
    else
        ShowFirstFrom(0, finish);
}

// After another listing each image has the place that its file has now, and no neighbours that
// nobody has looked for. Nothing is kept whose file is not among the names.
void TLorivaneView::RenumberImages() {
    for (std::unique_ptr<TImage>* image :
        {&fCurrentImage, &fCache[kPrevSlot], &fCache[kNextSlot]}) {
        if (!*image)
            continue;
        (*image)->SetIndex(IndexOf((*image)->FileName()));
        (*image)->Unlink();
        if (*image != fCurrentImage && (*image)->Index() == kNoIndex)
            image->reset();
    }
}

void TLorivaneView::DropOutdatedNeighbours() {
    for (auto& image : fCache) {
        if (image && !image->IsUpToDate())
            image.reset();
    }
}

// A command that was queued while an image was loading is dropped, with all keys and wheel events
// that pile up behind it. What the user hands in is no such command.
bool TLorivaneView::ShouldSkip() {
    BMessage* command = Window()->CurrentMessage();
    int64 when = 0;
    if (command == nullptr || command->what == B_REFS_RECEIVED || command->what == B_SIMPLE_DATA ||
        command->FindInt64("when", &when) != B_OK)
        return false;
    if (when >= fDisplayStamp)
        return false;
    RemoveScrollMessages();
    return true;
}

void TLorivaneView::SetCurrentImageFromCache(int32 slot) {
    int32 oldSlot = slot == kNextSlot ? kPrevSlot : kNextSlot;
    std::unique_ptr<TImage> dropped = ReplaceCurrentImage(std::move(fCache[slot]), oldSlot);
    fCurrentIndex = fCurrentImage->Index();
    ResetScrollValues();
    DisplayCurrentImage();
}

// Whoever waited for an image has another one now. Returns what had to leave the cache.
std::unique_ptr<TImage> TLorivaneView::ReplaceCurrentImage(
    std::unique_ptr<TImage> image, int32 oldSlot) {
    std::unique_ptr<TImage> dropped = std::move(fCache[oldSlot]);
    fCache[oldSlot] = std::move(fCurrentImage);
    fCurrentImage = std::move(image);
    fAwaitedThread = 0;
    // The image of another folder is no neighbour.
    if (fCache[oldSlot] && fCache[oldSlot]->Index() == kNoIndex)
        dropped = std::move(fCache[oldSlot]);
    return dropped;
}

void TLorivaneView::SetNextImage() {
    StepImage(1);
}

void TLorivaneView::SetPrevImage() {
    StepImage(-1);
}

void TLorivaneView::StepImage(int32 delta) {
    if (ShouldSkip() || HoldWhileLoading(BMessage(delta > 0 ? kMsgNextImage : kMsgPrevImage)))
        return;
    if (StepToNeighbour(delta)) {
        LaunchLoadThread(delta);
        return;
    }
    if (fAwaitedThread != 0)
        return;
    if (TLoadThread* loader = FindLoader(delta)) {
        fAwaitedThread = loader->ThreadID();
        loader->SetPriority(B_URGENT_DISPLAY_PRIORITY);
        DrawProgressString();
        return;
    }
    SuspendLoadThreads();
    const std::string from = CurrentPath();
    SearchAndShow(fCurrentIndex + static_cast<uint32>(delta), delta,
        [this, delta, from](const TLoadOutcome& outcome) {
            if (outcome.end == TLoadOutcome::kShown)
                LinkNeighbours(delta, from);
            else if (outcome.end != TLoadOutcome::kFailed)
                return;
            ShowProblem(outcome.problem);
            LaunchLoadThread(delta);
        });
}

// Shows the cached image that was decoded as the neighbour of the current one.
bool TLorivaneView::StepToNeighbour(int32 delta) {
    std::string from = CurrentPath();
    for (int32 slot : {kPrevSlot, kNextSlot}) {
        const TImage* image = fCache[slot].get();
        if (image == nullptr || !image->IsBeside(from, delta))
            continue;
        if (!image->IsUpToDate()) {
            fCache[slot].reset();
            continue;
        }
        SetCurrentImageFromCache(slot);
        LinkNeighbours(delta, from);
        return true;
    }
    return false;
}

// After a step, makes the image that was left a valid neighbour of the one shown, on the side it
// was left on, so that it is not decoded again on the way back.
void TLorivaneView::LinkNeighbours(int32 delta, const std::string& from) {
    auto isLeft = [&](const auto& image) { return image && image->FileName() == from; };
    int32 side = SlotOf(-delta);
    int32 otherSide = SlotOf(delta);
    if (!isLeft(fCache[side]) && isLeft(fCache[otherSide]))
        std::swap(fCache[side], fCache[otherSide]);
    if (!isLeft(fCache[side]))
        return;
    if (delta > 0) {
        fCache[side]->SetNextImageFileName(fCurrentImage->FileName());
        fCurrentImage->SetPrevImageFileName(from);
    } else {
        fCache[side]->SetPrevImageFileName(fCurrentImage->FileName());
        fCurrentImage->SetNextImageFileName(from);
    }
}

void TLorivaneView::SetFirstImage() {
    if (!ShouldSkip() && !HoldWhileLoading(BMessage(kMsgFirstImage)))
        JumpToImage(0, 1);
}

// Where the last entry is no image nothing is found behind it, and the image stays.
void TLorivaneView::SetLastImage() {
    if (!ShouldSkip() && !HoldWhileLoading(BMessage(kMsgLastImage)))
        JumpToImage(Count() - 1, -1);
}

// Nothing is loaded ahead after a jump to the very entry: the user may jump back.
void TLorivaneView::JumpToImage(uint32 index, int32 preloadDelta) {
    int32 slot = 0;
    if (IsCacheHit(index, &slot)) {
        SetCurrentImageFromCache(slot);
        LaunchLoadThread(preloadDelta);
        return;
    }
    SuspendLoadThreads();
    ShowFirstFrom(index, [this, index, preloadDelta](const TLoadOutcome& outcome) {
        if (outcome.end == TLoadOutcome::kAbandoned)
            return;
        if (outcome.problem.IsOfImage())
            ShowProblem(outcome.problem);
        if (fCurrentIndex != index && outcome.end != TLoadOutcome::kNothingFound)
            LaunchLoadThread(preloadDelta);
    });
}

void TLorivaneView::DisplayCurrentImage() {
    fMessage.Clear();
    fCurrentImage->Comment()->Clear();
    HideScrollBars();
    ScaleToView(fCurrentImage.get());
    ResizeWindow(fCurrentImage.get());
    LoadComment();
    ResizeOffscreen();
    ResetScrollBarPosition();
    ResetScrollValues();
    SetWinTitle(CurrentPath());
    fStatusView->SetImageInfo(fCurrentIndex, Count(), fCurrentImage.get());
    TellPicture();
    Invalidate();
    Window()->UpdateIfNeeded();
}

void TLorivaneView::SendAddHistoryRqtd(const entry_ref& ref) {
    SendHistoryRqtd(kMsgAddHistory, ref);
}

void TLorivaneView::SendRemoveHistoryRqtd(const entry_ref& ref) {
    SendHistoryRqtd(kMsgRemoveHistory, ref);
}

void TLorivaneView::SendHistoryRqtd(uint32 what, const entry_ref& ref) {
    BMessage request(what);
    request.AddRef(kFieldRefs, &ref);
    Window()->PostMessage(&request);
}
