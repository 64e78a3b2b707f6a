#pragma once

#include "framework/DialogView.h"

#include <memory>
#include <string>

class BBitmap;
class BStringView;

/// The application's large icon, and beside it its name, its version and a copyright line. As
/// large as its texts are in the language of the moment.
///
/// Belongs to its window's thread; SetAppInfo() locks the window itself.
class TAppInfoView : public TDialogView {
public:
    explicit TAppInfoView(BPoint leftTop);
    ~TAppInfoView() override;

    void AttachedToWindow() override;
    void Draw(BRect updateRect) override;
    /// Fetches the texts again, and asks the about view around it to fit.
    void LanguageChanged() override;

    /// The keys of the name and the version, and of a line with "%AppAuthor%" in it. The size is
    /// right afterwards.
    void SetAppInfo(
        const std::string& name, const std::string& version, const std::string& copyright);

private:
    BStringView* AddLine(const char* name);
    void SetViewLabels();

    std::unique_ptr<BBitmap> fLargeIcon;  // null when there is none to be had
    BStringView* fName;                   // the lines are children
    BStringView* fVersion;
    BStringView* fCopyright;
    std::string fNameKey;
    std::string fVersionKey;
    std::string fCopyrightKey;
};
