#pragma once

#include "framework/DialogView.h"

#include <array>
#include <interface/Rect.h>
#include <string>

class BButton;
class BStringView;
class TImage;

/// The content of an image information window: a row of label and value for each property of the
/// image, and an OK button. Tells of the image as it was when the view was made; nothing of the
/// image is kept.
///
/// The labels' column is as wide as the widest label. That of the values follows the widest value
/// up to a limit; what is longer is cut by its string view, which shows all of it as its tool tip.
///
/// Belongs to its window's thread.
class TPropertyView final : public TDialogView {
public:
    /// @param archive the layout: a view with ten string views and a button
    /// @param image is only read here
    TPropertyView(BMessage* archive, const TImage* image);

    /// `B_OK`, or `B_NO_INIT` when the layout lacks a view: then the view may only be deleted.
    status_t InitCheck() const { return fInitStatus; }

    void AttachedToWindow() override;
    void AllAttached() override;
    void MessageReceived(BMessage* message) override;
    void LanguageChanged() override;
    /// Escape presses the button, too.
    void ShortCutDown(int32 rawChar, int32 key) const override;

    /// Fetches the labels, and fits the view and its window to them.
    void SetViewLabels();
    /// The image's path.
    std::string FileName() const { return fFilePath; }

private:
    struct TRow {
        BStringView* label;
        BStringView* value;
    };
    static constexpr size_t kRowCount = 5;

    /// What the layout says of the space around the texts, and the least they get.
    struct TSpacing {
        float margin;
        float betweenColumns;
        float betweenRows;
        float aboveButton;
        float labelWidth;
        float valueWidth;
        float rowHeight;
        float buttonWidth;
        float buttonHeight;
    };

    bool FindViews();
    TSpacing Measure() const;
    void UpdateImageCompos();
    void FitToTexts();
    float PlaceRows(float labelWidth, float valueWidth);
    void PlaceButton(float right, float top);

    status_t fInitStatus = B_NO_INIT;
    std::array<TRow, kRowCount> fRows{};  // the views are children
    BButton* fButtonOK = nullptr;
    TSpacing fSpacing{};

    std::string fFilePath;
    std::string fKind;
    BRect fBounds;
    double fMemory = 0;  // in bytes
};
