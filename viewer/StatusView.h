#pragma once

#include <interface/StringView.h>
#include <string>

#include "framework/BasicView.h"

class TImage;

/// The bar that says where in the folder the image is, its format, its size and the scale it is
/// shown at. Belongs to its window's thread.
class TStatusView : public TBasicView {
public:
    explicit TStatusView(BRect frame);

    /// Fills all texts. The image must have been resized once.
    void SetImageInfo(uint32 index, uint32 count, TImage* image);
    /// Fills the scale alone; the image as above.
    void SetScale(TImage* image);
    void Clear();

    void LanguageChanged() override;

private:
    BStringView* AddField(const char* name, float* left, float width);

    BStringView* fIndexView;  // the children belong to the view
    BStringView* fKindView;
    BStringView* fSizeView;
    BStringView* fScaleView;
};

// The texts, as functions of numbers.

/// "3/120" for index 2 of 120.
std::string position_text(uint32 index, uint32 count);
/// "640 x 480" for a bitmap's bounds.
std::string size_text(BRect bounds);
/// How many percent of the decoded extent the scaled one is, truncated.
int64 scale_percent(float scaled, float decoded);
/// "50% x 50%". The vertical scale counts only under the option that does not keep the shape.
std::string scale_text(BRect scaled, BRect decoded, int32 displayOption);
