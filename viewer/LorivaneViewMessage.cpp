// What is said when an image cannot be shown, until the user does something else.

#include <app/Terminal.h>

#include "settings/Prefs.h"
#include "viewer/LorivaneView.h"

// The band that is seen: a message stands where the comment would.
BBitmap* TLorivaneView::Band() const {
    if (fMessage.Image() != nullptr)
        return fMessage.Image();
    return fCurrentImage ? fCurrentImage->Comment()->Image() : nullptr;
}

// Where that band stands; invalid when there is none.
BRect TLorivaneView::BandFrame() const {
    const BBitmap* band = Band();
    return band != nullptr ? band->Bounds().OffsetToCopy(CommentPoint(band->Bounds())) : BRect();
}

float TLorivaneView::BandWidth() const {
    return ImageArea().width - 2 * gPrefs.fCommentMargin;
}

void TLorivaneView::ShowProblem(const TLoadProblem& problem) {
    if (problem.reason == TLoadProblem::kNone)
        return;
    print_on_terminal(problem_line(problem));
    const BRect before = BandFrame();
    fMessage.Show(problem, BandWidth());
    InvalidateBand(before);
    TellPicture();
}

void TLorivaneView::TakeMessageAway() {
    if (!fMessage.IsShown())
        return;
    const BRect before = BandFrame();
    fMessage.Clear();
    InvalidateBand(before);
    TellPicture();
}

// In another language, font or colour, or another width.
void TLorivaneView::RenewMessage() {
    if (!fMessage.IsShown())
        return;
    const BRect before = BandFrame();
    fMessage.Renew(BandWidth());
    InvalidateBand(before);
    TellPicture();
}

void TLorivaneView::InvalidateBand(BRect before) {
    for (const BRect changed : {before, BandFrame()}) {
        if (changed.IsValid())
            Invalidate(changed);
    }
}
