#pragma once

// What an addition is to the view, and the view to an addition: neither knows more of the other.
// How one is made is told in docs/architecture.md.

class BMenu;
class BMessage;
class THintedLabels;
class TImage;

/// The view, as the additions see it. On the window's thread.
class TAdditionHost {
public:
    /// Null when nothing is shown. Borrowed, while the window is locked.
    virtual TImage* CurrentImage() const = 0;
    /// Renders the current image anew and draws it.
    virtual void RedrawImage() = 0;

protected:
    ~TAdditionHost() = default;
};

/// Something that the viewer can do beside what its menus and keys tell of. It is chosen in the
/// picture's context menu and changes nothing while it is not used. On the window's thread.
class TAddition {
public:
    virtual ~TAddition() = default;

    /// Adds its items to a menu that is about to open, as they are at that moment. Their messages
    /// come back to MessageReceived().
    virtual void AddItems(BMenu* menu, const THintedLabels& labels) = 0;
    /// False when the message means nothing to it.
    virtual bool MessageReceived(BMessage* message) = 0;
};
