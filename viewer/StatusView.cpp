#include "viewer/StatusView.h"

#include <cmath>
#include <interface/Accessibility.h>
#include <interface/Bitmap.h>
#include <interface/Box.h>
#include <interface/InterfaceDefs.h>
#include <iterator>
#include <locale/Locale.h>

#include "settings/DisplayOption.h"
#include "settings/Prefs.h"
#include "viewer/Image.h"

namespace {

constexpr float kFieldHeight = 14;
// The desktop's own size would cut "100% x 100%" short. What is longer is set smaller, and what
// does not fit then ends in an ellipsis.
constexpr float kFontSize = 10;
constexpr float kSmallestFontSize = 8;
constexpr float kFieldGap = 2;
constexpr BRect kSeparatorFrame(0, 0, 1, 18);
constexpr float kSeparatorTop = -2;

constexpr const char* LKK_STRVIEW_STATUS[] = {"Position in Folder", "Format", "Size", "Scale"};

void show_text(BStringView* field, const std::string& text) {
    BFont font;
    field->GetFont(&font);
    float size = kFontSize;
    for (; size > kSmallestFontSize; --size) {
        font.SetSize(size);
        if (font.StringWidth(text.c_str()) <= field->Bounds().Width() + 1)
            break;
    }
    field->SetFontSize(size);
    field->SetText(text.c_str());
}

}  // namespace

std::string position_text(uint32 index, uint32 count) {
    return std::to_string(uint64{index} + 1) + "/" + std::to_string(count);
}

std::string size_text(BRect bounds) {
    return std::to_string(static_cast<int64>(bounds.Width() + 1)) + " x " +
        std::to_string(static_cast<int64>(bounds.Height() + 1));
}

int64 scale_percent(float scaled, float decoded) {
    return static_cast<int64>(100 * (double{scaled} + 1) / (double{decoded} + 1));
}

std::string scale_text(BRect scaled, BRect decoded, int32 displayOption) {
    int64 horizontal = scale_percent(scaled.Width(), decoded.Width());
    int64 vertical = displayOption == kFitImageToWindow
        ? scale_percent(scaled.Height(), decoded.Height())
        : horizontal;
    return std::to_string(horizontal) + "% x " + std::to_string(vertical) + "%";
}

TStatusView::TStatusView(BRect frame)
    : TBasicView(frame, "StatusView", B_FOLLOW_LEFT_RIGHT | B_FOLLOW_BOTTOM, B_WILL_DRAW) {
    SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    float left = kFieldGap;
    fIndexView = AddField("StrViewIdx", &left, 45);
    fKindView = AddField("StrViewKind", &left, 70);
    fSizeView = AddField("StrViewSize", &left, 70);
    fScaleView = AddField("StrViewScale", &left, 80);
    LanguageChanged();
}

void TStatusView::SetImageInfo(uint32 index, uint32 count, TImage* image) {
    show_text(fIndexView, position_text(index, count));
    show_text(fKindView, image->Kind());
    show_text(fSizeView, size_text(image->OrgImage()->Bounds()));
    SetScale(image);
}

void TStatusView::SetScale(TImage* image) {
    show_text(fScaleView,
        scale_text(image->Image()->Bounds(), image->OrgImage()->Bounds(), gPrefs.fDisplayOption));
}

// What a text stands for is seen from its place, and has to be told to those who do not see it.
void TStatusView::LanguageChanged() {
    BStringView* const fields[] = {fIndexView, fKindView, fSizeView, fScaleView};
    for (size_t i = 0; i < std::size(fields); i++)
        set_accessible_description(fields[i], be_locale->GetString(LKK_STRVIEW_STATUS[i]));
}

void TStatusView::Clear() {
    for (BStringView* field : {fIndexView, fKindView, fSizeView, fScaleView})
        show_text(field, "");
}

// A text field at `left`, which moves on to where the next one starts.
BStringView* TStatusView::AddField(const char* name, float* left, float width) {
    BRect frame(*left, 0, *left + width, kFieldHeight);
    auto* field = new BStringView(frame, name, "", B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW);
    AddChild(field);

    BRect line = kSeparatorFrame.OffsetToCopy(frame.right + kFieldGap, kSeparatorTop);
    AddChild(new BBox(
        line, "", B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW | B_FRAME_EVENTS, B_FANCY_BORDER));
    *left = line.right + kFieldGap;
    return field;
}
