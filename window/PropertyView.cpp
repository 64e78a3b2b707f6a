#include "window/PropertyView.h"

#include <algorithm>
#include <app/AppDefs.h>
#include <app/Message.h>
#include <app/Messenger.h>
#include <interface/Accessibility.h>
#include <interface/Bitmap.h>
#include <interface/Button.h>
#include <interface/InterfaceDefs.h>
#include <interface/StringView.h>
#include <interface/Window.h>
#include <locale/Locale.h>

#include "framework/Accelerator.h"
#include "framework/Adjust.h"
#include "framework/FileName.h"
#include "framework/FindChild.h"
#include "framework/LanguageChangedFilter.h"
#include "framework/LocalText.h"
#include "framework/MessageCodes.h"
#include "framework/Placing.h"
#include "viewer/Image.h"
#include "viewer/StatusView.h"
#include "window/FormatNum.h"

namespace {

/// A window wider than this would hide the image it tells of.
constexpr float kWidestValue = 460.0F;

// The rows from top to bottom: the views of each are named by a word of their own.
enum { kFileNameRow, kFolderRow, kKindRow, kSizeRow, kMemoryRow };
constexpr const char* kRowNames[] = {"FileName", "FolderName", "Kind", "Size", "Memory"};
constexpr const char* LKK_STRVIEW_PROPERTY[] = {
    "File Name: ", "Folder: ", "Format: ", "Size: ", "Memory Usage: "};

}  // namespace

TPropertyView::TPropertyView(BMessage* archive, const TImage* image)
    : TDialogView(archive), fFilePath(image->FileName()), fKind(image->Kind()) {
    SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    if (const BBitmap* bitmap = image->OrgImage()) {
        fBounds = bitmap->Bounds();
        fMemory = static_cast<double>(bitmap->BitsLength());
    }
    if (!FindViews())
        return;
    fInitStatus = B_OK;
    fSpacing = Measure();
    fButtonOK->SetMessage(new BMessage(kMsgOK));  // the button's from here on
    UpdateImageCompos();
    SetViewLabels();
}

bool TPropertyView::FindViews() {
    fButtonOK = find_child<BButton>(this, "ButtonOK");
    bool areThere = fButtonOK != nullptr;
    for (size_t i = 0; i < fRows.size(); i++) {
        const std::string name = std::string("StrView") + kRowNames[i];
        fRows[i].label = find_child<BStringView>(this, (name + "Label").c_str());
        fRows[i].value = find_child<BStringView>(this, (name + "Value").c_str());
        areThere = areThere && fRows[i].label != nullptr && fRows[i].value != nullptr;
    }
    return areThere;
}

TPropertyView::TSpacing TPropertyView::Measure() const {
    const BRect label = fRows.front().label->Frame();
    const BRect value = fRows.front().value->Frame();
    const BRect last = fRows.back().label->Frame();
    const BRect button = fButtonOK->Frame();
    return {.margin = label.left,
        .betweenColumns = value.left - label.right,
        .betweenRows = fRows[1].label->Frame().top - label.bottom,
        .aboveButton = button.top - last.bottom,
        .labelWidth = label.Width(),
        .valueWidth = value.Width(),
        .rowHeight = label.Height(),
        .buttonWidth = button.Width(),
        .buttonHeight = button.Height()};
}

void TPropertyView::AttachedToWindow() {
    TDialogView::AttachedToWindow();
    Window()->AddCommonFilter(new TLanguageChangedFilter(BMessenger(this)));
}

void TPropertyView::AllAttached() {
    TDialogView::AllAttached();
    SetTargetToThis(this);
}

void TPropertyView::MessageReceived(BMessage* message) {
    if (message->what == kMsgOK)
        (void)Window()->PostMessage(B_QUIT_REQUESTED);
    else
        TDialogView::MessageReceived(message);
}

void TPropertyView::LanguageChanged() {
    TDialogView::LanguageChanged();
    SetViewLabels();
}

void TPropertyView::ShortCutDown(int32 rawChar, int32 key) const {
    if (rawChar == B_ESCAPE)
        click_button(fButtonOK);
    else
        TDialogView::ShortCutDown(rawChar, key);
}

void TPropertyView::UpdateImageCompos() {
    const auto set = [this](size_t row, const std::string& text) {
        fRows[row].value->SetText(text.c_str());
    };
    set(kFileNameRow, extract_file_name(fFilePath));
    set(kFolderRow, extract_file_folder_path_kernel(fFilePath, 0));
    set(kKindRow, fKind);
    set(kSizeRow, size_text(fBounds));
    set(kMemoryRow, memory_text(fMemory));
}

void TPropertyView::SetViewLabels() {
    const bool isAttached = Window() != nullptr;
    if (isAttached && !LockLooper())
        return;
    for (size_t i = 0; i < fRows.size(); i++) {
        fRows[i].label->SetText(be_locale->GetString(LKK_STRVIEW_PROPERTY[i]));
        set_accessible_description(fRows[i].value, local_caption(LKK_STRVIEW_PROPERTY[i]).c_str());
    }
    fButtonOK->SetLabel(be_locale->GetString("OK"));
    FitToTexts();
    if (isAttached)
        UnlockLooper();
}

void TPropertyView::FitToTexts() {
    float labelWidth = fSpacing.labelWidth;
    float valueWidth = fSpacing.valueWidth;
    for (const TRow& row : fRows) {
        labelWidth = std::max(labelWidth, preferred_size(row.label).x);
        valueWidth = std::max(valueWidth, preferred_size(row.value).x);
    }
    valueWidth = std::min(valueWidth, std::max(kWidestValue, fSpacing.valueWidth));

    const float bottom = PlaceRows(labelWidth, valueWidth);
    PlaceButton(fRows.back().value->Frame().right, bottom + fSpacing.aboveButton);
    ResizeTo(
        fButtonOK->Frame().right + fSpacing.margin, fButtonOK->Frame().bottom + fSpacing.margin);
    if (Window() != nullptr)
        Window()->ResizeTo(Bounds().Width(), Bounds().Height());
}

/// Returns the bottom of the last one.
float TPropertyView::PlaceRows(float labelWidth, float valueWidth) {
    const float valueLeft = fSpacing.margin + labelWidth + fSpacing.betweenColumns;
    float top = fSpacing.margin;
    float bottom = top;
    for (const TRow& row : fRows) {
        const float height = std::max(
            {fSpacing.rowHeight, preferred_size(row.label).y, preferred_size(row.value).y});
        place(row.label, fSpacing.margin, top, labelWidth, height);
        adjust_strview_width(row.label);
        place(row.value, valueLeft, top, valueWidth, height);
        bottom = top + height;
        top = bottom + fSpacing.betweenRows;
    }
    return bottom;
}

void TPropertyView::PlaceButton(float right, float top) {
    const BPoint preferred = preferred_size(fButtonOK);
    const float width = std::max(fSpacing.buttonWidth, preferred.x);
    place(fButtonOK, right - width, top, width, std::max(fSpacing.buttonHeight, preferred.y));
}
