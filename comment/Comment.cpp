#include "comment/Comment.h"

#include <algorithm>
#include <storage/Entry.h>
#include <support/String.h>
#include <vector>

#include "comment/CommentText.h"
#include "framework/FileName.h"
#include "settings/Prefs.h"

namespace {

// Room for more text than any screen shows; what does not fit is not laid out.
constexpr float kLayoutHeight = 10000;

bool exists(const std::string& path) {
    return BEntry(path.c_str(), false).Exists();
}

}  // namespace

TComment::TComment()
    : fTextView(
          std::make_unique<BTextView>(BRect(), "OffscreenTextView", BRect(), B_FOLLOW_NONE, 0)) {
    fTextView->GetFontAndColor(0, &fFont);
}

TComment::~TComment() = default;

status_t TComment::GetTextFileName(
    const std::string& imageFileName, const std::string& ext, std::string* textFileName) {
    *textFileName = reext(imageFileName, ext);
    if (exists(*textFileName))
        return B_OK;
    *textFileName = reext(imageFileName, BString(ext.c_str()).ToUpper().String());
    return exists(*textFileName) ? B_OK : -1;
}

status_t TComment::Load(const std::string& imageFileName) {
    Clear();
    if (!gPrefs.fEnableComment)
        return B_OK;
    const std::vector<std::string> extensions = gPrefs.fCommentFileExts;
    std::string path;
    const auto has = [&](const std::string& ext) {
        return GetTextFileName(imageFileName, ext, &path) == B_OK;
    };
    if (std::ranges::none_of(extensions, has))
        return -1;
    // A text ends at its first NUL.
    fText = comment_to_utf8(read_comment_file(path), gPrefs.fCommentEncoding).c_str();
    Resize(fWidth);
    return B_OK;
}

void TComment::Clear() {
    fText.clear();
    DropBand();
}

void TComment::Resize(float width) {
    const float padding = gPrefs.fCommentPadding;
    fWidth = std::max(width, 2 * padding + 1);
    if (fBand && fWidth == fLaidOutWidth && padding == fLaidOutPadding)
        return;
    DropBand();
    fTextView->SetText(fText.c_str());
    fTextView->SetTextRect(BRect(0, 0, fWidth - 2 * padding, kLayoutHeight));
    if (fText.empty())
        return;
    float widest = 0;
    fLines = 0;
    // Lines are asked for one by one: most of a long text is never laid out.
    const float lineHeight = LineHeight();
    do {
        widest = std::max(widest, fTextView->LineWidth(fLines));
        fLines++;
    } while (fTextView->OffsetAt(fLines) < fTextView->TextLength() &&
        lineHeight * static_cast<float>(fLines) < kLayoutHeight);
    const float height = lineHeight * static_cast<float>(fLines);
    fLaidOutWidth = fWidth;
    fLaidOutPadding = padding;
    if (MakeBand(2 * padding + widest, 2 * padding + height))
        Draw();
}

void TComment::Draw() {
    if (!fBand || fTextView->TextRect().Width() <= 0 || !fBand->Lock())
        return;
    fBandView->SetDrawingMode(B_OP_COPY);
    fBandView->SetHighColor(gPrefs.fColors[kColorCommentBackground]);
    fBandView->FillRect(fBandView->Bounds());

    fBandView->SetDrawingMode(B_OP_ALPHA);
    fBandView->SetHighColor(gPrefs.fColors[kColorComment]);
    font_height height;
    fFont.GetHeight(&height);
    const float padding = gPrefs.fCommentPadding;
    BPoint baseline(padding, padding + height.ascent);
    for (int32 line = 0; line < fLines; line++) {
        const int32 start = fTextView->OffsetAt(line);
        const int32 length = fTextView->OffsetAt(line + 1) - start;
        fBandView->DrawString(fTextView->Text() + start, length, baseline);
        baseline.y += LineHeight();
    }
    fBandView->Sync();
    fBand->Unlock();
}

void TComment::SetFont() {
    BFont font;
    // Where the family is not installed, the plain font stands in.
    (void)font.SetFamilyAndStyle(std::string(gPrefs.fCommentFontFamily).c_str(), nullptr);
    font.SetSize(gPrefs.fCommentFontSize);
    fFont = font;
    fTextView->SetFontAndColor(&fFont);
    LayOutAgain();
}

void TComment::LayOutAgain() {
    DropBand();
    Resize(fWidth);
}

void TComment::SetProgressMessage(const std::string& message) {
    fText = message;
    LayOutAgain();
}

float TComment::LineHeight() const {
    font_height height;
    fFont.GetHeight(&height);
    return height.ascent + height.descent + height.leading;
}

bool TComment::MakeBand(float width, float height) {
    const BRect frame(0, 0, width, height);
    auto band = std::make_unique<BBitmap>(frame, B_RGBA32, true, false);
    if (band->InitCheck() != B_OK)
        return false;
    fBandView = new BView(frame, "ImageView", B_FOLLOW_NONE, 0);
    fBandView->SetFont(&fFont);
    band->AddChild(fBandView);
    fBand = std::move(band);
    return true;
}

void TComment::DropBand() {
    fBand.reset();
    fBandView = nullptr;
}
