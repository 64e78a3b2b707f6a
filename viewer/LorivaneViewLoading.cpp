// Loading ahead: the loaders, the two cached neighbours and the image the user waits for.

#include <algorithm>
#include <app/Message.h>
#include <app/MessageRunner.h>
#include <interface/InterfaceDefs.h>
#include <kernel/OS.h>

#include "framework/MessageCodes.h"
#include "settings/Prefs.h"
#include "viewer/LorivaneView.h"

namespace {

constexpr bigtime_t kRetryInterval = 100'000;

// Raw key codes: Backspace, Page Up, Page Down, Up, Space, Left, Down, Right.
constexpr uint8 kNavigationKeys[] = {0x1e, 0x21, 0x36, 0x57, 0x5e, 0x61, 0x62, 0x63};

bool is_navigation_key_held() {
    key_info keys;
    if (get_key_info(&keys) != B_OK)
        return false;
    return std::ranges::any_of(kNavigationKeys,
        [&](uint8 key) { return (keys.key_states[key / 8] & (0x80 >> key % 8)) != 0; });
}

}  // namespace

status_t TLorivaneView::LaunchLoadThread(int32 delta) {
    if (!gPrefs.fEnablePreload)
        return B_ERROR;
    int32 step = delta > 0 ? 1 : -1;
    // Before the first entry wraps to an index beyond the last.
    uint32 index = fCurrentIndex + static_cast<uint32>(step);
    if (index >= Count())
        return B_ERROR;
    if (is_navigation_key_held()) {
        DeferLaunch(step);
        return B_ERROR;
    }
    std::string path = CurrentPath();
    const TImage* cached = fCache[SlotOf(step)].get();
    if (cached != nullptr && cached->IsBeside(path, step))
        return B_ERROR;
    if (FindLoader(step) != nullptr || fNothingBeside[SlotOf(step)] == path)
        return B_ERROR;
    fLoadThreads.push_back(TLoadThread::Ahead(SharedNames(), index, step,
        step > 0 ? path : std::string(), step > 0 ? std::string() : path, this));
    ResumeLoadThreads();
    return B_OK;
}

void TLorivaneView::LaunchLoadThread() {
    if (!IsLoading() && LaunchLoadThread(1) != B_OK)
        LaunchLoadThread(-1);
}

// Leaves the disk and the processor to a user who flips through the folder with a key held down.
void TLorivaneView::DeferLaunch(int32 delta) {
    if (fRetryRunner)
        return;
    BMessage retry(kMsgRetryLoad);
    retry.AddInt32(kFieldDelta, delta);
    fRetryRunner = std::make_unique<BMessageRunner>(BMessenger(this), &retry, kRetryInterval, 1);
}

status_t TLorivaneView::LaunchLoadThreadRqtd(BMessage* message) {
    int32 delta = 0;
    status_t status = message->FindInt32(kFieldDelta, &delta);
    if (status != B_OK || HoldWhileLoading(*message))
        return status;
    fRetryRunner.reset();
    return LaunchLoadThread(delta);
}

void TLorivaneView::ImageLoaded(BMessage* message) {
    int32 thread = 0;
    if (message->FindInt32(kFieldThread, &thread) != B_OK)
        return;
    if (fForeground.IsBy(thread)) {
        ForegroundLoaded();
        return;
    }
    if (HoldWhileLoading(*message))
        return;
    bool awaited = thread == fAwaitedThread;
    LoaderPtr loader = TakeLoader(thread);
    if (!loader)
        return;
    std::unique_ptr<TImage> image = loader->TakeImage();
    if (!image) {
        for (int32 delta : {1, -1}) {
            if (loader->IsBeside(CurrentPath(), delta))
                fNothingBeside[SlotOf(delta)] = CurrentPath();
        }
    }
    if (awaited) {
        fAwaitedThread = 0;
        if (image) {
            ShowAwaitedImage(std::move(image));
        } else {
            ShowNothing();
            ShowAwaitedProblem(loader->Problem());
        }
    } else if (image) {
        CacheImage(std::move(image));
    }
    if (!gPrefs.fEnablePreload)
        ClearCaches();
    else if (!awaited)
        LaunchLoadThread();
}

void TLorivaneView::ShowAwaitedImage(std::unique_ptr<TImage> image) {
    int32 delta = image->IsBeside(CurrentPath(), -1) ? -1 : 1;
    std::string from = CurrentPath();
    ResetScrollValues();
    std::unique_ptr<TImage> dropped = ReplaceCurrentImage(std::move(image), SlotOf(-delta));
    fCurrentIndex = fCurrentImage->Index();
    LinkNeighbours(delta, from);
    DisplayCurrentImage();
    LaunchLoadThread(delta);
}

// There is nothing to tell of a loader that has come to the end of the list but that.
void TLorivaneView::ShowAwaitedProblem(TLoadProblem problem) {
    if (problem.reason == TLoadProblem::kNone)
        problem = {TLoadProblem::kNoFurtherImage, CurrentPath(), ""};
    ShowProblem(problem);
}

// Keeps the image as a neighbour, or drops it when the user has moved on. It is scaled now, so
// that stepping onto it has only to draw.
void TLorivaneView::CacheImage(std::unique_ptr<TImage> image) {
    for (int32 delta : {1, -1}) {
        if (image->IsBeside(CurrentPath(), delta)) {
            ScaleToView(image.get());
            fCache[SlotOf(delta)] = std::move(image);
            return;
        }
    }
}

bool TLorivaneView::IsCacheHit(uint32 index, int32* slot) const {
    for (int32 candidate : {kPrevSlot, kNextSlot}) {
        const TImage* image = fCache[candidate].get();
        if (image != nullptr && index < Count() && image->FileName() == Names()[index] &&
            image->IsUpToDate()) {
            *slot = candidate;
            return true;
        }
    }
    return false;
}

bool TLorivaneView::IsLoading(uint32 index, TLoadThread** thread) const {
    for (const auto& loader : fLoadThreads) {
        thread_info info;
        if (get_thread_info(loader->ThreadID(), &info) == B_OK &&
            loader->IsBeside(PathAt(index), 1)) {
            *thread = loader.get();
            return true;
        }
    }
    return false;
}

// The loader that is decoding the neighbour of the current entry; null when there is none.
TLoadThread* TLorivaneView::FindLoader(int32 delta) const {
    std::string path = CurrentPath();
    for (const auto& loader : fLoadThreads) {
        if (loader->IsBeside(path, delta))
            return loader.get();
    }
    return nullptr;
}

LoaderPtr TLorivaneView::TakeLoader(thread_id thread) {
    auto found = std::ranges::find(
        fLoadThreads, thread, [](const LoaderPtr& loader) { return loader->ThreadID(); });
    if (found == fLoadThreads.end())
        return nullptr;
    LoaderPtr loader = std::move(*found);
    fLoadThreads.erase(found);
    return loader;
}

void TLorivaneView::ClearCaches() {
    for (auto& image : fCache)
        image.reset();
}

void TLorivaneView::SuspendLoadThreads() {
    if (!fLoadThreads.empty())
        fLoadThreads.back()->SetPriority(B_LOWEST_ACTIVE_PRIORITY);
}

void TLorivaneView::ResumeLoadThreads() {
    for (const auto& loader : fLoadThreads)
        loader->Resume();
}

void TLorivaneView::PrefEnablePreloadChanged() {
    if (HoldWhileLoading(BMessage(kPrefEnablePreload)))
        return;
    if (!gPrefs.fEnablePreload)
        ClearCaches();
    else
        LaunchLoadThread();
}
