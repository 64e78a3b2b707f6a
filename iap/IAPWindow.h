#pragma once

#include "framework/DialogWindow.h"

#include <kernel/OS.h>
#include <memory>

class TIAPPortManager;
class TIAPView;

/// The common preferences window: the one place where the preferences shared by the maker's running
/// applications are edited. See TInterAppPrefs::ShowWindow().
///
/// The user only ever hides it; it lives until its application quits, and as long as it lives, from
/// its first Show() on, it has the port that the others reach it by.
class TIAPWindow final : public TDialogWindow {
public:
    static constexpr char kTitle[] = "ZELKAN Common Preferences";  // to be translated

    /// @param frame its left top corner counts; the size is that of the content.
    explicit TIAPWindow(BRect frame);
    ~TIAPWindow() override;

    void Show() override;
    /// Closed by its user, or at another application's request, it hides and takes back what was
    /// changed since the last OK.
    bool QuitRequested() override;
    void LanguageChanged() override;
    void SetWindowTitle();

    /// As TIAPPortManager::Port(); pending before the first Show().
    port_id Port() const;
    TIAPView* View() const { return fView; }

private:
    std::unique_ptr<TIAPPortManager> fPortManager;  // null until the first Show()
    TIAPView* fView;
};
