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
    SetFolder(ref);
    SendAddHistoryRqtd(ref);
}

void TLorivaneView::SetFolder(const entry_ref& ref) {
    BEntry entry(&ref);
    BEntry folder = entry;
    if (!entry.IsDirectory())
        entry.GetParent(&folder);
    std::shared_ptr<const NameList> oldNames = SharedNames();
    ListFolder(folder);
    if (SharedNames() != oldNames)
        ClearCaches();
    fNothingBeside = {};
    fAwaitedThread = 0;

    BPath path;
    uint32 index = entry.GetPath(&path) == B_OK ? IndexOf(path.Path()) : kNoIndex;
    if (index != kNoIndex) {
        SetCurrentImage(index, nullptr);
    } else if (SetCurrentImage(0, nullptr) != B_OK) {
        translator_info info;
        if (GetNextImageIndex(&index, &fRoster, &info) == B_OK)
            SetCurrentImage(index, &info);
    }
    LaunchLoadThread();
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

status_t TLorivaneView::SetCurrentImage(uint32 index, const translator_info* info) {
    if (ShouldSkip())
        return B_ERROR;
    ResetScrollValues();
    if (index >= Count()) {
        ShowNothing();
        ResumeLoadThreads();
        fDisplayStamp = system_time();
        return B_ERROR;
    }
    fCurrentIndex = index;
    DrawProgressString();
    std::unique_ptr<TImage> image = DecodeImage(CurrentPath(), info);
    if (!image) {
        // The image that stays gets its own comment back.
        ReloadComment();
        return B_ERROR;
    }
    image->SetIndex(index);
    // What is dropped is deleted when the new image is on the screen already.
    std::unique_ptr<TImage> dropped = ReplaceCurrentImage(std::move(image), kPrevSlot);
    DisplayCurrentImage();
    fDisplayStamp = system_time();
    return B_OK;
}

// Null when it is no image or cannot be decoded.
std::unique_ptr<TImage> TLorivaneView::DecodeImage(
    const std::string& path, const translator_info* info) {
    translator_info identified;
    if (info == nullptr) {
        if (!IsImage(path, &fRoster, &identified))
            return nullptr;
        info = &identified;
    }
    auto image = std::make_unique<TImage>(path, &fRoster, *info);
    return image->InitCheck() == B_OK ? std::move(image) : nullptr;
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
    return dropped;
}

void TLorivaneView::SetNextImage() {
    StepImage(1);
}

void TLorivaneView::SetPrevImage() {
    StepImage(-1);
}

void TLorivaneView::StepImage(int32 delta) {
    if (ShouldSkip())
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
    uint32 index = kNoIndex;
    translator_info info;
    if (FindImageBeside(delta, &index, &info) != B_OK)
        return;
    std::string from = CurrentPath();
    int32 slot = 0;
    bool shown = true;
    if (IsCacheHit(index, &slot))
        SetCurrentImageFromCache(slot);
    else
        shown = SetCurrentImage(index, &info) == B_OK;
    if (shown)
        LinkNeighbours(delta, from);
    LaunchLoadThread(delta);
}

// Shows the cached image that was decoded as the neighbour of the current one.
bool TLorivaneView::StepToNeighbour(int32 delta) {
    std::string from = CurrentPath();
    for (int32 slot : {kPrevSlot, kNextSlot}) {
        const TImage* image = fCache[slot].get();
        if (image == nullptr || !image->IsBeside(from, delta))
            continue;
        SetCurrentImageFromCache(slot);
        LinkNeighbours(delta, from);
        return true;
    }
    return false;
}

status_t TLorivaneView::FindImageBeside(int32 delta, uint32* index, translator_info* info) {
    return delta > 0 ? GetNextImageIndex(index, &fRoster, info)
                     : GetPrevImageIndex(index, &fRoster, info);
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
    JumpToImage(0, 1);
}

// Where the last entry is no image nothing is found behind it, and the image stays.
void TLorivaneView::SetLastImage() {
    JumpToImage(Count() - 1, -1);
}

// Nothing is loaded ahead after a jump to the very entry: the user may jump back.
void TLorivaneView::JumpToImage(uint32 index, int32 preloadDelta) {
    if (ShouldSkip())
        return;
    int32 slot = 0;
    if (IsCacheHit(index, &slot)) {
        SetCurrentImageFromCache(slot);
        LaunchLoadThread(preloadDelta);
        return;
    }
    SuspendLoadThreads();
    if (SetCurrentImage(index, nullptr) == B_OK)
        return;
    translator_info info;
    if (GetNextImageIndex(&index, &fRoster, &info) != B_OK)
        return;
    SetCurrentImage(index, &info);
    LaunchLoadThread(preloadDelta);
}

void TLorivaneView::DisplayCurrentImage() {
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
