// Where the preferences dialog's controls stand. The layout tells which there are; how much room
// they need depends on the language, the format of the hints and the desktop's font.

#include <algorithm>
#include <cmath>
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

float preferred_width(BView* view) {
    float width = 0;
    view->GetPreferredSize(&width, nullptr);
    return std::ceil(width);
}

float preferred_height(BView* view) {
    float height = 0;
    view->GetPreferredSize(nullptr, &height);
    return std::ceil(height);
}

void place(BView* view, float left, float top, float width, float height) {
    view->MoveTo(left, top);
    view->ResizeTo(width, height);
}

void place(BView* view, float left, float top) {
    place(view, left, top, preferred_width(view), preferred_height(view));
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
        width = std::max(width, preferred_width(button));
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
        fMFieldCommentFontFace->Divider() + kFontWidth, preferred_width(fMFieldCommentEncoding));
    const float extensions = std::max(preferred_width(fTxtCtrlAddCommentFileExt),
        widest_button({fButtonAddCommentFileExt, fButtonRemoveCommentFileExt}));
    const float buttons =
        4 * (widest_button({fButtonHelp, fButtonDefaults, fButtonCancel, fButtonOK}) + kGap);
    return std::max({
        preferred_width(fCBoxEnableComment),
        preferred_width(fRButtonCommentAlignTop) + kColumnGap +
            preferred_width(fRButtonCommentAlignBottom) + 2 * kMargin,
        menus + kColumnGap + preferred_width(fTxtCtrlCommentFontSize),
        extensions + kGap + kListWidth,
        preferred_width(fMFieldColTarget) + kGap + kSampleWidth,
        preferred_width(fColCtrlCol),
        preferred_width(fSliderColAlpha),
        preferred_width(fMFieldDispOpt),
        preferred_width(fCBoxEnablePreload),
        buttons,
    });
}

float TPrefView::FitCommentPage(float width) {
    const float right = kMargin + width;
    const float row = std::max({preferred_height(fTxtCtrlCommentMargin),
        preferred_height(fMFieldCommentEncoding), preferred_height(fButtonAddCommentFileExt)});
    place(fCBoxEnableComment, kMargin, kMargin);

    // The box's own label stands above the buttons and is about as high.
    constexpr float kLabelGap = 4.0F;
    place(fRButtonCommentAlignTop, kMargin, preferred_height(fRButtonCommentAlignTop) + kLabelGap);
    place(fRButtonCommentAlignBottom, fRButtonCommentAlignTop->Frame().right + kColumnGap,
        fRButtonCommentAlignTop->Frame().top);
    place(fBoxCommentAlign, kMargin, below(fCBoxEnableComment), width,
        fRButtonCommentAlignTop->Frame().bottom + kGap);

    // Two columns: the fields of the second end where the page does.
    const float second = right -
        std::max(preferred_width(fTxtCtrlCommentPadding), preferred_width(fTxtCtrlCommentFontSize));
    float top = below(fBoxCommentAlign);
    place(fTxtCtrlCommentMargin, kMargin, top, preferred_width(fTxtCtrlCommentMargin), row);
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
    const float row = preferred_height(fMFieldColTarget);
    place(fMFieldColTarget, kMargin, kMargin, preferred_width(fMFieldColTarget), row);
    const float sample = right_of(fMFieldColTarget);
    place(fBoxColSample, sample, kMargin, kMargin + width - sample, row);
    place(fColCtrlCol, kMargin, below(fMFieldColTarget), width, preferred_height(fColCtrlCol));
    place(fSliderColAlpha, kMargin, below(fColCtrlCol), width, preferred_height(fSliderColAlpha));
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
    const float height = std::max(preferred_height(fButtonHelp), preferred_height(fButtonOK));
    const float top = above.bottom + kGap;
    place(fButtonHelp, above.left, top, width, height);
    place(fButtonDefaults, right_of(fButtonHelp), top, width, height);
    place(fButtonOK, above.right - width, top, width, height);
    place(fButtonCancel, fButtonOK->Frame().left - kGap - width, top, width, height);
}
