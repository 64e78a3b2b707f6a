// Scrolling: the bars, the steps over the image, and the wheel.

#include <app/AppDefs.h>
#include <app/Message.h>
#include <interface/Window.h>
#include <kernel/OS.h>

#include "framework/WaitingMessages.h"
#include "settings/DisplayOption.h"
#include "settings/Prefs.h"
#include "viewer/LorivaneView.h"

bigtime_t TLorivaneView::ScrollTime() const {
    return system_time();
}

void TLorivaneView::ScrollUp() {
    ScrollBack(fScrollBarV);
}

void TLorivaneView::ScrollDown() {
    ScrollForward(fScrollBarV);
}

void TLorivaneView::ScrollLeft() {
    ScrollBack(fScrollBarH);
}

void TLorivaneView::ScrollRight() {
    ScrollForward(fScrollBarH);
}

bool TLorivaneView::IsNewPress() {
    // The first repeat of a held key may come later than the time between two presses.
    const BMessage* message = Window() != nullptr ? Window()->CurrentMessage() : nullptr;
    const bool isRepeat = message != nullptr && message->what == B_KEY_DOWN &&
        message->GetInt32("be:key_repeat", 0) > 0;
    return fScrollTiming.IsNewPress(ScrollTime()) && !isRepeat;
}

// At the edge a held key goes on through images that were not scrolled, but stops at one that was.
void TLorivaneView::ScrollBack(BScrollBar* bar) {
    bool isNewPress = IsNewPress();
    if (bar->IsHidden(this) || (IsScrollBarMin(bar) && (isNewPress || !fScrolled)))
        SetPrevImage();
    else if (!IsScrollBarMin(bar))
        bar->SetValue(bar->Value() - BigStep(bar));
}

// At the edge a held key stops, so that it does not run past the end of the image being read.
void TLorivaneView::ScrollForward(BScrollBar* bar) {
    bool isNewPress = IsNewPress();
    if (bar->IsHidden(this) || (IsScrollBarMax(bar) && isNewPress))
        SetNextImage();
    else
        bar->SetValue(bar->Value() + BigStep(bar));
}

void TLorivaneView::MouseWheelChanged(BMessage* message) {
    float delta = 0;
    if (message->FindFloat("be:wheel_delta_y", &delta) != B_OK)
        return;
    ShownBars bars = Bars();
    if (bars.horizontal && !bars.vertical)
        delta < 0 ? ScrollLeft() : ScrollRight();
    else
        delta < 0 ? ScrollUp() : ScrollDown();
}

void TLorivaneView::ScrollTo(BPoint) {
    fScrolled = true;
    Invalidate();
}

void TLorivaneView::SetScrollBarRange(TImage* image) {
    int32 option = gPrefs.fDisplayOption;
    if (option == kFitImageToWindow || option == kScaleImageToWindow)
        return;
    Extent scaled(image->Image()->Bounds());
    Extent area = ImageArea();
    auto apply = [](BScrollBar* bar, ScrollRange range) {
        bar->SetRange(0, range.max);
        bar->SetProportion(range.proportion);
        bar->SetSteps(kSmallScrollStep, range.bigStep);
    };
    apply(fScrollBarH, scroll_range(scaled.width, area.width));
    apply(fScrollBarV, scroll_range(scaled.height, area.height));
}

// Half of what is visible of the image in the bar's direction.
float TLorivaneView::BigStep(BScrollBar* bar) const {
    if (!fCurrentImage)
        return 0;
    return bar == fScrollBarV ? ScrollBarVBigStep(fCurrentImage.get())
                              : ScrollBarHBigStep(fCurrentImage.get());
}

float TLorivaneView::ScrollBarVBigStep(TImage* image) const {
    return half_visible(image->Image()->Bounds().Height(), fScrollBarV->Proportion());
}

float TLorivaneView::ScrollBarHBigStep(TImage* image) const {
    return half_visible(image->Image()->Bounds().Width(), fScrollBarH->Proportion());
}

void TLorivaneView::ShowScrollBars(BRect imageBounds, BRect area) {
    float valueH = fScrollBarH->Value();
    float valueV = fScrollBarV->Value();
    HideScrollBars();
    ShownBars needed = needed_scroll_bars(Extent(imageBounds), Extent(area), Frame().top);
    if (needed.horizontal)
        ShowScrollBarH();
    if (needed.vertical)
        ShowScrollBarV();
    if (needed.horizontal && needed.vertical) {
        ShowScrollBarH();  // again: it was sized when the vertical bar was still hidden
        fCornerView->Show();
    }
    if (needed.horizontal)
        fScrollBarH->SetValue(valueH);
    if (needed.vertical)
        fScrollBarV->SetValue(valueV);
}

void TLorivaneView::ShowScrollBarV() {
    Extent size = vertical_bar_extent(Extent(Bounds()), Bars().horizontal);
    fScrollBarV->ResizeTo(size.width, size.height);
    if (fScrollBarV->IsHidden(this))
        fScrollBarV->Show();
}

void TLorivaneView::ShowScrollBarH() {
    Extent size = horizontal_bar_extent(Extent(Bounds()), Bars().vertical);
    fScrollBarH->ResizeTo(size.width, size.height);
    if (fScrollBarH->IsHidden(this))
        fScrollBarH->Show();
}

void TLorivaneView::HideScrollBars() {
    if (!fCornerView->IsHidden(this))
        fCornerView->Hide();
    HideScrollBar(fScrollBarH);
    HideScrollBar(fScrollBarV);
}

void TLorivaneView::HideScrollBar(BScrollBar* bar) {
    if (bar->IsHidden(this))
        return;
    bar->SetValue(0);
    bar->Hide();
}

bool TLorivaneView::IsScrollBarMin(BScrollBar* bar) const {
    float min = 0;
    float max = 0;
    bar->GetRange(&min, &max);
    return bar->Value() <= min;
}

bool TLorivaneView::IsScrollBarMax(BScrollBar* bar) const {
    float min = 0;
    float max = 0;
    bar->GetRange(&min, &max);
    return bar->Value() >= max;
}

void TLorivaneView::ResetScrollValues() {
    fScrolled = false;
}

void TLorivaneView::ResetScrollBarPosition() {
    fScrollBarH->SetValue(0);
    fScrollBarV->SetValue(0);
}

void TLorivaneView::RemoveScrollMessages() {
    remove_waiting(*Window(), [](const BMessage& message) {
        return message.what == B_MOUSE_WHEEL_CHANGED || message.what == B_KEY_DOWN;
    });
}
