#include "app/AppInfoView.h"

#include "app/AboutView.h"
#include "framework/Icons.h"
#include "framework/LanguageChangedFilter.h"
#include "framework/LocalText.h"
#include "framework/Version.h"

#include <algorithm>
#include <cmath>
#include <interface/Bitmap.h>
#include <interface/Font.h>
#include <interface/StringView.h>
#include <interface/Window.h>

namespace {

constexpr float kIconSize = 32.0F;
constexpr float kIconSpace = 16.0F;
constexpr float kLineSpace = 4.0F;
constexpr float kNameFontSize = 18.0F;

std::unique_ptr<BBitmap> large_icon() {
    BBitmap* large = nullptr;
    BBitmap* small = nullptr;
    try {
        get_icons(&large, &small);
    } catch (const TIconError&) {
        return nullptr;  // the box does without
    }
    const std::unique_ptr<BBitmap> unused(small);
    return std::unique_ptr<BBitmap>(large);
}

}  // namespace

TAppInfoView::TAppInfoView(BPoint leftTop)
    : TDialogView(BRect(leftTop.x, leftTop.y, leftTop.x + kIconSize, leftTop.y + kIconSize),
          "AppInfoView", B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW),
      fLargeIcon(large_icon()), fName(AddLine("StrViewAppName")),
      fVersion(AddLine("StrViewAppVersion")), fCopyright(AddLine("StrViewCopyright")) {
    SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    BFont font(be_bold_font);
    font.SetSize(kNameFontSize);
    fName->SetFont(&font);
}

TAppInfoView::~TAppInfoView() = default;

BStringView* TAppInfoView::AddLine(const char* name) {
    auto* line = new BStringView(BRect(), name, "");
    AddChild(line);
    return line;
}

void TAppInfoView::AttachedToWindow() {
    TDialogView::AttachedToWindow();
    Window()->AddCommonFilter(new TLanguageChangedFilter(BMessenger(this)));
}

void TAppInfoView::Draw(BRect /*updateRect*/) {
    if (fLargeIcon == nullptr)
        return;
    SetDrawingMode(B_OP_ALPHA);
    DrawBitmap(fLargeIcon.get(), BPoint(0, 0));
    SetDrawingMode(B_OP_COPY);
}

void TAppInfoView::LanguageChanged() {
    TDialogView::LanguageChanged();
    SetViewLabels();
    if (auto* about = dynamic_cast<TZELKANAboutView*>(Parent()))
        about->FitToContent();
}

void TAppInfoView::SetAppInfo(
    const std::string& name, const std::string& version, const std::string& copyright) {
    const bool isAttached = Window() != nullptr;
    if (isAttached && !LockLooper())
        return;
    fNameKey = name;
    fVersionKey = version;
    fCopyrightKey = copyright;
    SetViewLabels();
    if (isAttached)
        UnlockLooper();
}

void TAppInfoView::SetViewLabels() {
    fName->SetText(local_name(fNameKey).c_str());
    fVersion->SetText(local_name(fVersionKey).c_str());
    fCopyright->SetText(
        local_text_with(fCopyrightKey.c_str(), "%AppAuthor%", local_name(kAppAuthor)).c_str());

    const float left = kIconSize + kIconSpace;
    float right = left;
    float top = 0;
    for (BStringView* line : {fName, fVersion, fCopyright}) {
        float width = 0;
        float height = 0;
        line->GetPreferredSize(&width, &height);
        line->MoveTo(left, top);
        line->ResizeTo(std::ceil(width), std::ceil(height));
        right = std::max(right, left + std::ceil(width));
        top += std::ceil(height) + kLineSpace;
    }
    ResizeTo(right, std::max(kIconSize, top - kLineSpace));
}
