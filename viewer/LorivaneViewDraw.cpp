// Drawing: the image in its area, and what a change of size does to it.

#include <interface/Window.h>

#include "settings/DisplayOption.h"
#include "settings/Prefs.h"
#include "viewer/LorivaneView.h"

ShownBars TLorivaneView::Bars() const {
    // Asked from here: a hidden window hides everything, but changes nothing in the layout.
    return {!fScrollBarH->IsHidden(this), !fScrollBarV->IsHidden(this)};
}

Extent TLorivaneView::ImageArea() const {
    return image_area(Extent(Bounds()), Bars());
}

// With a comment the two are put together off the screen, so that it is never seen half drawn.
void TLorivaneView::Draw(BRect) {
    // It is also what a window that is being made larger has where nothing was drawn yet.
    SetLowColor(gPrefs.fColors[kColorBackground]);
    bool locked = fOffscreenBitmap && fOffscreenBitmap->Lock();
    const bool hasBand = Band() != nullptr;
    // Without an image it keeps a size from before.
    if (hasBand && fCurrentImage && fOffscreenView != nullptr) {
        DrawImage(fOffscreenView);
        DrawBand(fOffscreenView);
        fOffscreenView->Sync();
        SetDrawingMode(B_OP_COPY);
        DrawBitmap(fOffscreenBitmap.get(), B_ORIGIN);
    } else {
        DrawImage(this);
        // Without the memory for the bitmap.
        if (hasBand)
            DrawBand(this);
    }
    if (locked)
        fOffscreenBitmap->Unlock();
}

void TLorivaneView::DrawBand(BView* target) {
    BBitmap* band = Band();
    target->SetDrawingMode(B_OP_ALPHA);
    target->DrawBitmap(band, CommentPoint(band->Bounds()));
}

// Paints every pixel of the image area, with the image or the background.
void TLorivaneView::DrawImage(BView* target) {
    Extent area = ImageArea();
    ImagePlacement placement;
    if (fCurrentImage) {
        BPoint scrolled(fScrollBarH->Value(), fScrollBarV->Value());
        placement = place_image(area, Extent(fCurrentImage->Image()->Bounds()), scrolled);
    }
    target->SetDrawingMode(B_OP_COPY);
    target->SetHighColor(gPrefs.fColors[kColorBackground]);
    Margins margins = margins_around(area, placement.destination);
    for (BRect band : {margins.left, margins.right, margins.top, margins.bottom}) {
        if (band.IsValid())
            target->FillRect(band);
    }
    if (fCurrentImage && placement.destination.IsValid())
        target->DrawBitmap(fCurrentImage->Image(), placement.source, placement.destination);
}

void TLorivaneView::FrameResized(float width, float height) {
    NoticeEndOfFullScreen();
    if (!fCurrentImage) {
        if (fMessage.IsShown()) {
            RenewMessage();
            Invalidate();  // where it stood is not known any more
        }
        return;
    }
    fCurrentImage->Resize(width, height - BarsHeight(false));
    int32 option = gPrefs.fDisplayOption;
    bool scrolls = option != kFitImageToWindow && option != kScaleImageToWindow;
    bool scales = option != kDontFitAnything && option != kFitWindowToImage;
    if (scrolls) {
        ShowScrollBars(fCurrentImage->Image()->Bounds(), Window()->Bounds());
        SetScrollBarRange(fCurrentImage.get());
    }
    if (scales)
        fStatusView->SetScale(fCurrentImage.get());
    LayOutComment();
    RenewMessage();
    ResizeOffscreen();
    Invalidate();
}

void TLorivaneView::ResizeOffscreen() {
    Extent area = ImageArea();
    if (fOffscreenBitmap && Extent(fOffscreenBitmap->Bounds()) == area)
        return;
    BRect frame(0, 0, area.width, area.height);
    fOffscreenBitmap = std::make_unique<BBitmap>(frame, B_RGBA32, true, false);
    fOffscreenView = nullptr;
    if (fOffscreenBitmap->InitCheck() != B_OK)
        return;
    fOffscreenView = new BView(frame, "OSImageView", B_FOLLOW_NONE, 0);
    fOffscreenBitmap->AddChild(fOffscreenView);
}

// What is put together off the screen has the resolution of the screen it was made for.
void TLorivaneView::ScreenChanged() {
    fOffscreenBitmap.reset();
    fOffscreenView = nullptr;
    ResizeOffscreen();
    RenewCommentFont();
}

void TLorivaneView::RedrawImage() {
    if (!fCurrentImage)
        return;
    fCurrentImage->Draw();
    Invalidate();
}

void TLorivaneView::PrefColChanged() {
    RenewMessage();
    if (!fCurrentImage)
        return;
    fCurrentImage->Draw();
    fCurrentImage->Comment()->Draw();
    Invalidate();
}
