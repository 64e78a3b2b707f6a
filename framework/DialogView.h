#pragma once

#include "framework/BasicView.h"

/// Base of a dialog window's content. Its controls answer to the shortcuts their labels show.
class TDialogView : public TBasicView {
public:
    TDialogView(BRect frame, const char* name, uint32 resizingMode, uint32 flags);
    explicit TDialogView(BMessage* archive);

    /// A key that may be a shortcut: Enter presses the focused button or else the window's
    /// default one; any other goes to the first control whose label shows it.
    virtual void ShortCutDown(int32 rawChar, int32 key) const;

    /// Acts on the first control below `parent`, depth first, whose label shows `rawChar`.
    /// @return 0, or -1 when none does.
    int32 ApplyShortCut(const BView* parent, int32 rawChar, int32 key) const;

    /// Makes this view the target of `root`, and of all below it, where they are controls.
    void SetTargetToThis(BView* root) const;
};
