#include "viewer/LoadThread.h"

#include <app/Message.h>
#include <exception>
#include <interface/InterfaceDefs.h>
#include <kernel/OS.h>

#include "framework/FileName.h"
#include "framework/MessageCodes.h"

TLoadThread::TLoadThread(std::shared_ptr<const NameList> names, uint32 index, int32 step,
    const std::string& prevName, const std::string& nextName, BHandler* target)
    : TThread("", B_LOW_PRIORITY), TImageList(std::move(names)), fStep(step),
      fNextImageFileName(nextName), fPrevImageFileName(prevName), fTarget(target) {
    fCurrentIndex = index;
}

// A thread killed in a decoder would lose the decoder's memory and the locks it holds.
TLoadThread::~TLoadThread() {
    if (IsTerminated() || IsSuspended())
        return;
    Terminate();
    SetPriority(B_URGENT_DISPLAY_PRIORITY);
    Wait(nullptr);
}

int32 TLoadThread::Execute() {
    BMessage report(kMsgImageLoaded);
    std::string name = "LoadThread_" + extract_file_name(CurrentPath());
    SetName(name.c_str());
    try {
        fImage = Load();
    } catch (const std::exception&) {
        // Out of memory: a failed load like any other.
    }
    if (fImage)
        report.AddPointer("Image", fImage.get());
    report.AddInt32("Thread", ThreadID());
    fTarget.SendMessage(&report);
    return 0;
}

bool TLoadThread::IsBeside(const std::string& path, int32 delta) const {
    return !path.empty() && path == (delta > 0 ? fPrevImageFileName : fNextImageFileName);
}

std::unique_ptr<TImage> TLoadThread::Load() {
    BTranslatorRoster roster;
    roster.AddTranslators(nullptr);
    translator_info info;
    if (FindImage(&roster, &info) != B_OK)
        return nullptr;
    auto image = std::make_unique<TImage>(CurrentPath(), &roster, info);
    if (image->InitCheck() != B_OK)
        return nullptr;
    image->SetIndex(fCurrentIndex);
    image->SetPrevImageFileName(fPrevImageFileName);
    image->SetNextImageFileName(fNextImageFileName);
    return image;
}

// The entry to load, or the first image after it in the direction of the step. The search ends
// early when the loader is being deleted: a long row of other files must not hold up the end.
status_t TLoadThread::FindImage(BTranslatorRoster* roster, translator_info* info) {
    while (fCurrentIndex < Count() && !IsTerminateRequested()) {
        if (IsImage(CurrentPath(), roster, info))
            return B_OK;
        fCurrentIndex += static_cast<uint32>(fStep);
    }
    return B_ERROR;
}
