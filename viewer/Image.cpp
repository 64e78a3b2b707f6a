#include "viewer/Image.h"

#include <app/Message.h>
#include <storage/File.h>
#include <translation/BitmapStream.h>
#include <translation/TranslationDefs.h>

#include "settings/Additions.h"
#include "settings/Prefs.h"
#include "viewer/Geometry.h"
#include "viewer/Transparency.h"

namespace {

/// Knows no transparency: it is not worth looking for in the millions of pixels of a photograph.
constexpr uint32 kJpegFormat = 'JPEG';

}  // namespace

TImage::TImage(
    const std::string& fileName, BTranslatorRoster* roster, const translator_info& info) {
    BFile file(fileName.c_str(), B_READ_ONLY);
    // Of before it is read: what is written meanwhile makes it look old, not new.
    fStamp = TFileStamp(file);
    BBitmapStream stream;
    BMessage explanation;
    fInitStatus = roster->Translate(&file, &info, &explanation, &stream, B_TRANSLATOR_BITMAP);
    if (fInitStatus != B_OK) {
        fProblem = problem_with(
            fileName, file.InitCheck() != B_OK ? file.InitCheck() : fInitStatus, &explanation);
        return;
    }
    BBitmap* decoded = nullptr;
    fInitStatus = stream.DetachBitmap(&decoded);
    fDecoded.reset(decoded);
    if (fInitStatus != B_OK)
        return;
    fHasAlpha = info.type != kJpegFormat && has_transparency(*fDecoded);
    fFileName = fileName;
    fKind = info.name;
}

TImage::~TImage() = default;

bool TImage::IsUpToDate() const {
    // Of a file that is gone it is the last that there is.
    const TFileStamp now = TFileStamp::At(fFileName);
    return !now.IsSet() || now == fStamp;
}

void TImage::Resize(float width, float height) {
    Extent current = fScaled ? Extent(fScaled->Bounds()) : Extent(-1, -1);
    Extent natural(fDecoded->Bounds());
    Extent target = target_extent(gPrefs.fDisplayOption, natural, {width, height});
    if (target == current) {
        if (IsOutdated())
            Draw();
        return;
    }
    if (!ResizeImageParts(target.width, target.height)) {
        if (fScaled)
            return;
        if (!ResizeImageParts(natural.width, natural.height) && !ResizeImageParts(0, 0))
            return;
    }
    Draw();
}

void TImage::Draw() {
    fScaled->Lock();
    if (fHasAlpha) {
        fBackground = gPrefs.fColors[kColorBackground];
        fView->SetHighColor(fBackground.red, fBackground.green, fBackground.blue);
        fView->SetDrawingMode(B_OP_COPY);
        // To the last pixel, of which there may be a part only.
        fView->FillRect(fView->Bounds().InsetByCopy(-1, -1));
        fView->SetDrawingMode(B_OP_ALPHA);
    }
    fSmooth = gAdditions.fSmoothScaling;
    fView->DrawBitmap(fDecoded.get(), fDecoded->Bounds(), fView->Bounds(),
        fSmooth ? uint32{B_FILTER_BITMAP_BILINEAR} : 0);
    fView->Sync();
    fScaled->Unlock();
}

// Whether it was drawn when the user wanted it otherwise.
bool TImage::IsOutdated() const {
    return fSmooth != gAdditions.fSmoothScaling ||
        (fHasAlpha && fBackground != gPrefs.fColors[kColorBackground]);
}

bool TImage::IsBeside(const std::string& path, int32 delta) const {
    return !path.empty() && path == (delta > 0 ? fPrevImageFileName : fNextImageFileName);
}

void TImage::Unlink() {
    fNextImageFileName.clear();
    fPrevImageFileName.clear();
}

// Keeps what there is when there is no memory for the new size.
bool TImage::ResizeImageParts(float width, float height) {
    BRect frame(0, 0, width, height);
    auto scaled = std::make_unique<BBitmap>(frame, B_RGBA32, true, false);
    if (scaled->InitCheck() != B_OK)
        return false;
    fView = new BView(frame, "ImageView", B_FOLLOW_NONE, 0);
    scaled->AddChild(fView);
    fScaled = std::move(scaled);
    return true;
}
