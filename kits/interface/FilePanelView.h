#pragma once

#include <functional>
#include <interface/View.h>
#include <string>

#include "kits/interface/Display.h"

namespace BPrivate {

/// The browser of folders that fills a file panel. Shown by the desktop's own control.
///
/// Belongs to its window's thread.
class FilePanelView : public BView {
public:
    /// What the user did.
    struct Listener {
        std::function<void(const BMessage& refs)> chosen;
        std::function<void()> cancelled;
    };

    FilePanelView(BRect frame, FilePanelState state, Listener listener);

    /// Goes to the folder, an absolute path.
    void SetFolder(const std::string& path);
    /// The one that is shown.
    const std::string& Folder() const { return fState.folder; }
    void SetOpenLabel(const std::string& label);
    void SetCancelLabel(const std::string& label);
    /// Waits for the display.
    void GetPreferredSize(float* width, float* height) override;

private:
    class Peer;

    FilePanelState fState;
    const Listener fListener;
};

}  // namespace BPrivate
