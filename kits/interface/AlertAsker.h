#pragma once

#include <interface/Rect.h>
#include <support/SupportDefs.h>

class BWindow;

namespace BPrivate {

/// Who asks the user, when the calling thread does.
class AlertAsker {
public:
    AlertAsker();

    /// What the alert is to lie over: the window whose thread this is, or else the application's
    /// active one. The screen when there is neither.
    BRect Place() const { return fPlace; }
    /// The screen that is on.
    BRect Screen() const { return fScreen; }

    /// Shows what the window has drawn so far: it draws no more while its thread waits.
    void ShowWindow() const;
    /// Forgets the keys, clicks and menu items that the user gave the waiting window since that
    /// time. What he meant to happen then is not to happen after his answer.
    void DropInputSince(bigtime_t start) const;

private:
    void LieOver(BWindow& window);
    void LieOverActiveWindow();

    BWindow* fWindow = nullptr;  // whose thread this is, so that it cannot go; null for none
    BRect fPlace;
    BRect fScreen;
};

}  // namespace BPrivate
