#pragma once

#include <app/MessageFilter.h>

/// A window's filter for the key presses that may be shortcuts of its controls: those with the
/// Control key, Escape, Enter and the function keys. They go to one handler, even when a view has
/// the focus; all other keys pass.
class TShortCutFilter : public BMessageFilter {
public:
    /// @param handler receives the keys; null for the looper the filter was added to. Must
    ///     outlive the filter.
    explicit TShortCutFilter(BHandler* handler);

    filter_result Filter(BMessage* message, BHandler** target) override;

private:
    BHandler* fHandler;
};
