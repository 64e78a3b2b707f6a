#pragma once

#include <interface/Bitmap.h>
#include <interface/View.h>
#include <memory>
#include <string>
#include <translation/TranslatorRoster.h>

#include "comment/Comment.h"
#include "viewer/FileStamp.h"
#include "viewer/LoadProblem.h"

/// One image file in memory: as it was decoded, and a copy scaled for the window, in which the
/// background colour of the preferences shows through what is transparent.
///
/// Built by one thread, a loader's or the window's, and from then on used by the window's alone.
class TImage {
public:
    static constexpr uint32 kNoIndex = 0xFFFFFFFF;

    /// Decodes the file. `info` is what identifying it has given.
    TImage(const std::string& fileName, BTranslatorRoster* roster, const translator_info& info);
    ~TImage();

    TImage(const TImage&) = delete;
    TImage& operator=(const TImage&) = delete;

    /// `B_OK`, or why the file could not be opened or decoded. A failed image has no bitmaps, no
    /// file name and no kind; only this and Problem() may be asked of it.
    status_t InitCheck() const { return fInitStatus; }
    const TLoadProblem& Problem() const { return fProblem; }

    /// Whether the file is as it was when it was decoded. One that is gone counts as such.
    bool IsUpToDate() const;

    /// Scales the image for an area of these extents (right minus left, bottom minus top) by the
    /// display option in force. Does nothing when it has the size already, and the background
    /// colour in force where that shows through. Without the memory for
    /// the size asked for, the image is shown as large as it was or else as it was decoded.
    void Resize(float width, float height);
    /// Renders the decoded image into the scaled one again, at the size it has.
    void Draw();

    /// Position in the folder's list; kNoIndex until it is set.
    uint32 Index() const { return fIndex; }
    void SetIndex(uint32 index) { fIndex = index; }

    std::string FileName() const { return fFileName; }
    /// The format's name as its translator gives it.
    std::string Kind() const { return fKind; }

    /// The images on either side, as far as they are known.
    std::string NextImageFileName() const { return fNextImageFileName; }
    void SetNextImageFileName(const std::string& name) { fNextImageFileName = name; }
    std::string PrevImageFileName() const { return fPrevImageFileName; }
    void SetPrevImageFileName(const std::string& name) { fPrevImageFileName = name; }

    /// Whether it is known to come after (delta above 0) or before the image of that path.
    bool IsBeside(const std::string& path, int32 delta) const;
    /// Forgets the images on either side.
    void Unlink();

    /// The decoded image, as the translator made it. Belongs to this.
    BBitmap* OrgImage() const { return fDecoded.get(); }
    /// The scaled image, null before the first Resize(). Belongs to this.
    BBitmap* Image() const { return fScaled.get(); }

    /// The image's comment; empty until it is loaded.
    TComment* Comment() { return &fComment; }

private:
    bool ResizeImageParts(float width, float height);
    bool IsOutdated() const;

    uint32 fIndex = kNoIndex;
    status_t fInitStatus;
    TLoadProblem fProblem;
    TFileStamp fStamp;
    std::string fFileName;
    std::string fKind;
    std::string fNextImageFileName;
    std::string fPrevImageFileName;
    std::unique_ptr<BBitmap> fDecoded;
    bool fHasAlpha = false;
    std::unique_ptr<BBitmap> fScaled;
    rgb_color fBackground;   // that the scaled image was drawn on
    bool fSmooth = false;    // whether it was smoothed
    BView* fView = nullptr;  // draws into the scaled image and belongs to it
    TComment fComment;
};
