#pragma once

#include <app/Messenger.h>
#include <memory>
#include <string>

#include "framework/Thread.h"
#include "viewer/Image.h"
#include "viewer/ImageList.h"
#include "viewer/LoadProblem.h"

class TLoadThread;

/// Leaves a loader to itself: nobody waits for a decoder.
struct AbandonLoader {
    void operator()(TLoadThread* loader) const;
};
using LoaderPtr = std::unique_ptr<TLoadThread, AbandonLoader>;

/// Decodes one image in the background, sends "imld" to its target and ends.
///
/// The thread touches nothing but this object and what it shares read-only with the list it was
/// made from, so that it may outlive everyone else. The image it has loaded belongs to the loader
/// until the receiver of "imld" takes it, so that a report nobody receives loses nothing. What is
/// said of the result below is for the receiver's thread, after the report only.
class TLoadThread : public TThread, public TImageList {
public:
    /// Made suspended, at low priority, to load ahead. The image is that at `index`, or the next one
    /// in steps of `step` (+1 or -1).
    /// @param prevName, nextName given to the loaded image as its neighbours; the one on the
    ///     side it is loaded from is the path of the image it is a neighbour of.
    static LoaderPtr Ahead(std::shared_ptr<const NameList> names, uint32 index, int32 step,
        const std::string& prevName, const std::string& nextName, BHandler* target);
    /// Made suspended, at the priority of the display, for a user who waits. With a `step` of 0 the
    /// image is that at `index` and no other; else the loader tells with "imfd" what it has found
    /// before it decodes it.
    static LoaderPtr Awaited(
        std::shared_ptr<const NameList> names, uint32 index, int32 step, BHandler* target);

    int32 Execute() override;

    std::string PrevImageFileName() const { return fPrevImageFileName; }
    std::string NextImageFileName() const { return fNextImageFileName; }

    /// Whether it loads the image after (delta above 0) or before the one of that path.
    bool IsBeside(const std::string& path, int32 delta) const;

    /// The image loaded, null when there was none.
    std::unique_ptr<TImage> TakeImage() { return std::move(fImage); }
    /// Whether the image of the index was tried, be it in vain. False when a search found none.
    bool HasFound() const { return fFound; }
    /// Why there is no image.
    const TLoadProblem& Problem() const { return fProblem; }

private:
    TLoadThread(int32 priority, std::shared_ptr<const NameList> names, uint32 index, int32 step,
        BHandler* target);
    ~TLoadThread() override;

    void Load();
    status_t FindImage(BTranslatorRoster* roster, translator_info* info);
    void TellWhatIsFound();

    const int32 fStep;
    bool fTellsFound = false;
    std::string fNextImageFileName;
    std::string fPrevImageFileName;
    BMessenger fTarget;
    std::unique_ptr<TImage> fImage;
    bool fFound = false;
    TLoadProblem fProblem;
};
