// The comment: where it stands, what changes it, and the text shown in its place while one waits.

#include <app/Application.h>
#include <interface/Window.h>
#include <locale/Locale.h>

#include "framework/MessageCodes.h"
#include "settings/Prefs.h"
#include "viewer/LorivaneView.h"

BPoint TLorivaneView::CommentPoint(BRect commentBounds) const {
    return comment_point(
        gPrefs.fCommentAlign, gPrefs.fCommentMargin, ImageArea(), Extent(commentBounds));
}

// Breaks the comment into lines for the width there is now.
void TLorivaneView::LayOutComment() {
    fCurrentImage->Comment()->Resize(ImageArea().width - 2 * gPrefs.fCommentMargin);
}

// The width and the font come first, so that the text is laid out once.
void TLorivaneView::LoadComment() {
    TComment* comment = fCurrentImage->Comment();
    comment->Clear();
    LayOutComment();
    comment->SetFont();
    (void)comment->Load(fCurrentImage->FileName());  // most images have none
}

void TLorivaneView::DrawProgressString() {
    if (!fCurrentImage)
        return;
    TComment* comment = fCurrentImage->Comment();
    BRect changed;
    if (comment->Image() != nullptr)
        changed = comment->Image()->Bounds().OffsetToCopy(CommentPoint(comment->Image()->Bounds()));
    comment->SetProgressMessage(be_locale->GetString("Just a moment..."));
    if (comment->Image() != nullptr) {
        BRect bounds = comment->Image()->Bounds();
        BRect drawn = bounds.OffsetToCopy(CommentPoint(bounds));
        changed = changed.IsValid() ? changed | drawn : drawn;
    }
    if (!changed.IsValid())
        return;
    Invalidate(changed);
    Window()->UpdateIfNeeded();
}

// While one waits for an image the progress text stands there.
void TLorivaneView::ReloadComment() {
    if (!fCurrentImage || fForeground.IsDecoding())
        return;
    (void)fCurrentImage->Comment()->Load(fCurrentImage->FileName());
    TellPicture();
    Invalidate();
}

void TLorivaneView::RenewCommentFont() {
    RenewMessage();
    if (!fCurrentImage)
        return;
    fCurrentImage->Comment()->SetFont();
    Invalidate();
}

void TLorivaneView::MItemEnableCommentClicked() {
    gPrefs.fEnableComment = !gPrefs.fEnableComment;
    (void)gPrefs.SaveToFile();
    (void)be_app_messenger.SendMessage(kPrefEnableComment);
}

void TLorivaneView::PrefEnableCommentChanged() {
    ReloadComment();
}

void TLorivaneView::PrefCommentEncodingChanged() {
    ReloadComment();
}

void TLorivaneView::PrefCommentFileExtsChanged() {
    ReloadComment();
}

void TLorivaneView::PrefCommentFontFamilyChanged() {
    RenewCommentFont();
}

void TLorivaneView::PrefCommentFontSizeChanged() {
    RenewCommentFont();
}

void TLorivaneView::PrefCommentPaddingChanged() {
    if (!fCurrentImage)
        return;
    LayOutComment();
    Invalidate();
}

// The band moves at once, and keeps its lines until it is laid out for something else.
void TLorivaneView::PrefCommentMarginChanged() {
    Invalidate();
}

void TLorivaneView::PrefCommentAlignChanged() {
    Invalidate();
}
