#pragma once

#include <app/MessageFilter.h>

class TLorivaneView;

/// Brings the arrow and page keys held with Command to the viewer, which the window would
/// otherwise keep as shortcuts. For the list of common filters of the view's window.
class TKeyDownFilter : public BMessageFilter {
public:
    explicit TKeyDownFilter(TLorivaneView* view);

    filter_result Filter(BMessage* message, BHandler** target) override;

private:
    TLorivaneView* fView;  // borrowed; goes with the window, as the filter does
};
