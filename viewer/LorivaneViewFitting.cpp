// Fitting: the window's size and title, and the display option.

#include <app/Application.h>
#include <app/Message.h>
#include <interface/Screen.h>
#include <interface/Window.h>
#include <locale/Locale.h>

#include "framework/FileName.h"
#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "settings/Prefs.h"
#include "viewer/LorivaneView.h"

float TLorivaneView::BarsWidth(bool withBars) const {
    return withBars && Bars().vertical ? kScrollBarThickness : 0;
}

float TLorivaneView::BarsHeight(bool withBars) const {
    return kStatusBarHeight + (withBars && Bars().horizontal ? kScrollBarExtent : 0);
}

// The scroll bars, shown or not, take nothing from the space an image is scaled for.
void TLorivaneView::ScaleToView(TImage* image) {
    BRect bounds = Bounds();
    image->Resize(bounds.Width() - BarsWidth(false), bounds.Height() - BarsHeight(false));
}

void TLorivaneView::ResizeWindow(TImage* image) {
    switch (gPrefs.fDisplayOption) {
    case kFitWindowToImage:
        if (fFullScreen)
            ShowScrollBars(image->Image()->Bounds(), Window()->Bounds());
        else
            FitWindow(image);
        break;
    case kDontFitAnything:
    case kScaleImageToWindowWidth:
    case kScaleImageToWindowHeight: break;
    default: return;
    }
    // At once, not when the new size is reported.
    FrameResized(Bounds().Width(), Bounds().Height());
}

void TLorivaneView::FitWindow(TImage* image) {
    BRect limit = window_limit(BScreen(B_MAIN_SCREEN_ID).Frame());
    ShowScrollBars(image->Image()->Bounds(), limit);
    Extent size =
        fitted_window(Extent(image->OrgImage()->Bounds()), Extent(limit), Frame().top, Bars());
    BWindow* window = Window();
    window->ResizeTo(size.width, size.height);
    BRect frame = window->Frame();
    BPoint place = moved_onto_screen(frame, limit);
    if (place != frame.LeftTop())
        window->MoveTo(place);
}

void TLorivaneView::SetWinTitle(const std::string& path) {
    std::string title = be_locale->GetString("Lorivane");
    if (!path.empty())
        title = extract_file_name(path) + " - " + title;
    Window()->SetTitle(title.c_str());
}

void TLorivaneView::PrefDisplayOptionChanged() {
    if (!fCurrentImage)
        return;
    TImage* image = fCurrentImage.get();
    ScaleToView(image);
    switch (gPrefs.fDisplayOption) {
    case kFitWindowToImage: ResizeWindow(image); break;
    case kFitImageToWindow:
    case kScaleImageToWindow: HideScrollBars(); break;
    default:
        ShowScrollBars(image->Image()->Bounds(), Window()->Bounds());
        SetScrollBarRange(image);
        break;
    }
    LayOutComment();
    ResizeOffscreen();
    ResetScrollBarPosition();
    fStatusView->SetScale(image);
    Invalidate();
}

void TLorivaneView::MItemDisplayOptionClicked(BMessage* message) {
    if (set_display_option(message) != B_OK)
        return;
    gPrefs.SaveToFile();
    be_app_messenger.SendMessage(kPrefDisplayOption);
}
