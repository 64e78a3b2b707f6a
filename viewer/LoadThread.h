#pragma once

#include <app/Messenger.h>
#include <memory>
#include <string>

#include "framework/Thread.h"
#include "viewer/Image.h"
#include "viewer/ImageList.h"

/// Decodes one image in the background, sends "imld" to its target and ends.
///
/// The thread touches nothing but this object and what it shares read-only with the list it was
/// made from. The image it has loaded belongs to the loader until the receiver of "imld" takes it,
/// so that a report nobody receives loses nothing. TakeImage() and the destructor are for the
/// receiver's thread, the former after the report only.
class TLoadThread : public TThread, public TImageList {
public:
    /// Made suspended, at low priority. The image is that at `index`, or the next one in steps of
    /// `step` (+1 or -1).
    /// @param prevName, nextName given to the loaded image as its neighbours; the one on the
    ///     side it is loaded from is the path of the image it is a neighbour of.
    TLoadThread(std::shared_ptr<const NameList> names, uint32 index, int32 step,
        const std::string& prevName, const std::string& nextName, BHandler* target);
    /// Waits for the thread when it has been started, at raised priority.
    ~TLoadThread() override;

    int32 Execute() override;

    std::string PrevImageFileName() const { return fPrevImageFileName; }
    std::string NextImageFileName() const { return fNextImageFileName; }

    /// Whether it loads the image after (delta above 0) or before the one of that path.
    bool IsBeside(const std::string& path, int32 delta) const;

    /// The image loaded, null when there was none.
    std::unique_ptr<TImage> TakeImage() { return std::move(fImage); }

private:
    std::unique_ptr<TImage> Load();
    status_t FindImage(BTranslatorRoster* roster, translator_info* info);

    int32 fStep;
    std::string fNextImageFileName;
    std::string fPrevImageFileName;
    BMessenger fTarget;
    std::unique_ptr<TImage> fImage;
};
