// Where the preferences dialog's controls stand. The layout tells which there are; how much room
// they need depends on the language, the format of the hints and the desktop's font.

#include <algorithm>
#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/ColorControl.h>
#include <interface/MenuField.h>
#include <interface/RadioButton.h>
#include <interface/ScrollView.h>
#include <interface/Slider.h>
#include <interface/TabView.h>
#include <interface/TextControl.h>
#include <interface/Window.h>

#include "framework/Adjust.h"
#include "framework/Placing.h"
#include "settings/PrefView.h"

namespace {

constexpr float kMargin = 10.0F;
// One more than is seen: a view covers its right and bottom edge.
constexpr float kGap = 9.0F;
constexpr float kColumnGap = 17.0F;
constexpr float kFontWidth = 150.0F;  // a usual name of a font
constexpr float kListWidth = 120.0F;
constexpr float kSampleWidth = 60.0F;
constexpr float kButtonWidth = 74.0F;  // for buttons with a short label

void place(BView* view, float left, float top) {
    const BPoint size = preferred_size(view);
    place(view, left, top, size.x, size.y);
}

/// Where the next view below begins.
float below(const BView* view) {
    return view->Frame().bottom + kGap;
}

float right_of(const BView* view) {
    return view->Frame().right + kGap;
}

/// Lets fields that stand in a column begin at the same place.
template <typename... Fields>
void align_dividers(Fields*... fields) {
    const float widest = std::max({fields->Divider()...});
    (fields->SetDivider(widest), ...);
}

float widest_button(std::initializer_list<BButton*> buttons) {
    float width = 0;
    for (BButton* button : buttons)
        width = std::max(width, preferred_size(button).x);
    return width;
}

}  // namespace

void TPrefView::FitToLabels() {
    FitDividers();
    const float width = NeededWidth();
    const float height = std::max({FitCommentPage(width), FitColorPage(width), FitEtcPage()});
    for (BView* page : {fCommentPage, fColorPage, fEtcPage})
        place(page, 0, 0, width + 2 * kMargin, height + kMargin);

    place(fTabView, kMargin, kMargin);
    FitButtons(fTabView->Frame());
    place(this, 0, 0, fTabView->Frame().right + kMargin, fButtonOK->Frame().bottom + kMargin);
    Window()->ResizeTo(Bounds().Width(), Bounds().Height());
}

void TPrefView::FitDividers() {
    for (BTextControl* control : {fTxtCtrlCommentMargin, fTxtCtrlCommentPadding,
             fTxtCtrlCommentFontSize, fTxtCtrlAddCommentFileExt})
        adjust_txtctrl_divider(control);
    for (BMenuField* field :
        {fMFieldCommentFontFace, fMFieldCommentEncoding, fMFieldColTarget, fMFieldDispOpt})
        adjust_mfield_divider(field);
    align_dividers(fTxtCtrlCommentMargin, fMFieldCommentFontFace, fMFieldCommentEncoding);
    align_dividers(fTxtCtrlCommentPadding, fTxtCtrlCommentFontSize);
}

float TPrefView::NeededWidth() const {
    const float menus = std::max(
        fMFieldCommentFontFace->Divider() + kFontWidth, preferred_size(fMFieldCommentEncoding).x);
    const float extensions = std::max(preferred_size(fTxtCtrlAddCommentFileExt).x,
        widest_button({fButtonAddCommentFileExt, fButtonRemoveCommentFileExt}));
    const float buttons =
        4 * (widest_button({fButtonHelp, fButtonDefaults, fButtonCancel, fButtonOK}) + kGap);
    return std::max({
        preferred_size(fCBoxEnableComment).x,
        preferred_size(fRButtonCommentAlignTop).x + kColumnGap +
            preferred_size(fRButtonCommentAlignBottom).x + 2 * kMargin,
        menus + kColumnGap + preferred_size(fTxtCtrlCommentFontSize).x,
        extensions + kGap + kListWidth,
        preferred_size(fMFieldColTarget).x + kGap + kSampleWidth,
        preferred_size(fColCtrlCol).x,
        preferred_size(fSliderColAlpha).x,
        preferred_size(fMFieldDispOpt).x,
        preferred_size(fCBoxEnablePreload).x,
        buttons,
    });
}

float TPrefView::FitCommentPage(float width) {
    const float right = kMargin + width;
    const float row = std::max({preferred_size(fTxtCtrlCommentMargin).y,
        preferred_size(fMFieldCommentEncoding).y, preferred_size(fButtonAddCommentFileExt).y});
    place(fCBoxEnableComment, kMargin, kMargin);

    // The box's own label stands above the buttons and is about as high.
    constexpr float kLabelGap = 4.0F;
    place(fRButtonCommentAlignTop, kMargin, preferred_size(fRButtonCommentAlignTop).y + kLabelGap);
    place(fRButtonCommentAlignBottom, fRButtonCommentAlignTop->Frame().right + kColumnGap,
        fRButtonCommentAlignTop->Frame().top);
    place(fBoxCommentAlign, kMargin, below(fCBoxEnableComment), width,
        fRButtonCommentAlignTop->Frame().bottom + kGap);

    // Two columns: the fields of the second end where the page does.
    const float second = right -
        std::max(
            preferred_size(fTxtCtrlCommentPadding).x, preferred_size(fTxtCtrlCommentFontSize).x);
    float top = below(fBoxCommentAlign);
    place(fTxtCtrlCommentMargin, kMargin, top, preferred_size(fTxtCtrlCommentMargin).x, row);
    place(fTxtCtrlCommentPadding, second, top, right - second, row);
    top = below(fTxtCtrlCommentMargin);
    place(fMFieldCommentFontFace, kMargin, top, second - kColumnGap - kMargin, row);
    place(fTxtCtrlCommentFontSize, second, top, right - second, row);
    top = below(fMFieldCommentFontFace);
    place(fMFieldCommentEncoding, kMargin, top, second - kColumnGap - kMargin, row);

    // What is typed at the left goes into the list at the right.
    top = below(fMFieldCommentEncoding) + kGap;
    const float list = right - kListWidth;
    place(fTxtCtrlAddCommentFileExt, kMargin, top, list - kGap - kMargin, row);
    const float button = widest_button({fButtonAddCommentFileExt, fButtonRemoveCommentFileExt});
    place(fButtonAddCommentFileExt, list - kGap - button, below(fTxtCtrlAddCommentFileExt), button,
        row);
    place(fButtonRemoveCommentFileExt, list - kGap - button, below(fButtonAddCommentFileExt),
        button, row);
    const float bottom = fButtonRemoveCommentFileExt->Frame().bottom;
    place(fScrlView, list, top, kListWidth, bottom - top);
    return bottom;
}

float TPrefView::FitColorPage(float width) {
    const float row = preferred_size(fMFieldColTarget).y;
    place(fMFieldColTarget, kMargin, kMargin, preferred_size(fMFieldColTarget).x, row);
    const float sample = right_of(fMFieldColTarget);
    place(fBoxColSample, sample, kMargin, kMargin + width - sample, row);
    place(fColCtrlCol, kMargin, below(fMFieldColTarget), width, preferred_size(fColCtrlCol).y);
    place(fSliderColAlpha, kMargin, below(fColCtrlCol), width, preferred_size(fSliderColAlpha).y);
    return fSliderColAlpha->Frame().bottom;
}

float TPrefView::FitEtcPage() {
    place(fMFieldDispOpt, kMargin, kMargin);
    place(fCBoxEnablePreload, kMargin, below(fMFieldDispOpt));
    return fCBoxEnablePreload->Frame().bottom;
}

void TPrefView::FitButtons(BRect above) {
    const float width = std::max(
        kButtonWidth, widest_button({fButtonHelp, fButtonDefaults, fButtonCancel, fButtonOK}));
    // Styles give the default button another size.
    const float height = std::max(preferred_size(fButtonHelp).y, preferred_size(fButtonOK).y);
    const float top = above.bottom + kGap;
    place(fButtonHelp, above.left, top, width, height);
    place(fButtonDefaults, right_of(fButtonHelp), top, width, height);
    place(fButtonOK, above.right - width, top, width, height);
    place(fButtonCancel, fButtonOK->Frame().left - kGap - width, top, width, height);
}
