#include "viewer/LoadThread.h"

#include <app/Message.h>
#include <exception>
#include <interface/InterfaceDefs.h>
#include <kernel/OS.h>

#include "framework/FileName.h"
#include "framework/MessageCodes.h"

void AbandonLoader::operator()(TLoadThread* loader) const {
    loader->Abandon();
}

LoaderPtr TLoadThread::Ahead(std::shared_ptr<const NameList> names, uint32 index, int32 step,
    const std::string& prevName, const std::string& nextName, BHandler* target) {
    LoaderPtr loader(new TLoadThread(B_LOW_PRIORITY, std::move(names), index, step, target));
    loader->fPrevImageFileName = prevName;
    loader->fNextImageFileName = nextName;
    return loader;
}

LoaderPtr TLoadThread::Awaited(
    std::shared_ptr<const NameList> names, uint32 index, int32 step, BHandler* target) {
    LoaderPtr loader(new TLoadThread(B_DISPLAY_PRIORITY, std::move(names), index, step, target));
    loader->fTellsFound = step != 0;
    return loader;
}

TLoadThread::TLoadThread(int32 priority, std::shared_ptr<const NameList> names, uint32 index,
    int32 step, BHandler* target)
    : TThread("", priority), TImageList(std::move(names)), fStep(step), fTarget(target) {
    fCurrentIndex = index;
}

TLoadThread::~TLoadThread() {
    KillThread();
}

int32 TLoadThread::Execute() {
    BMessage report(kMsgImageLoaded);
    std::string name = "LoadThread_" + extract_file_name(CurrentPath());
    SetName(name.c_str());
    try {
        Load();
    } catch (const std::exception&) {
        fImage.reset();
        fProblem = problem_with(CurrentPath(), B_NO_MEMORY);
    }
    if (fImage)
        report.AddPointer(kFieldImage, fImage.get());
    report.AddInt32(kFieldThread, ThreadID());
    fTarget.SendMessage(&report);
    return 0;
}

bool TLoadThread::IsBeside(const std::string& path, int32 delta) const {
    return !path.empty() && path == (delta > 0 ? fPrevImageFileName : fNextImageFileName);
}

void TLoadThread::Load() {
    BTranslatorRoster roster;
    roster.AddTranslators(nullptr);
    translator_info info;
    if (FindImage(&roster, &info) != B_OK)
        return;
    if (fTellsFound)
        TellWhatIsFound();
    auto image = std::make_unique<TImage>(CurrentPath(), &roster, info);
    if (image->InitCheck() != B_OK) {
        fProblem = image->Problem();
        return;
    }
    image->SetIndex(fCurrentIndex);
    image->SetPrevImageFileName(fPrevImageFileName);
    image->SetNextImageFileName(fNextImageFileName);
    fImage = std::move(image);
}

// The entry to load, or the first image after it in the direction of the step. The search ends
// early when nobody waits for it any more.
status_t TLoadThread::FindImage(BTranslatorRoster* roster, translator_info* info) {
    while (fCurrentIndex < Count() && !IsTerminateRequested()) {
        const status_t status = IdentifyImage(CurrentPath(), roster, info);
        fFound = status == B_OK || fStep == 0;
        if (fFound) {
            if (status != B_OK)
                fProblem = problem_with(CurrentPath(), status);
            return status;
        }
        fCurrentIndex += static_cast<uint32>(fStep);
    }
    return B_ERROR;
}

void TLoadThread::TellWhatIsFound() {
    BMessage found(kMsgImageFound);
    found.AddInt32(kFieldThread, ThreadID());
    found.AddInt32(kFieldIndex, static_cast<int32>(fCurrentIndex));
    fTarget.SendMessage(&found);
}
