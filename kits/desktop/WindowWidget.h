#pragma once

#include <QTimer>
#include <QWidget>
#include <app/Messenger.h>
#include <memory>

#include "kits/desktop/ContentWidget.h"
#include "kits/desktop/FrontImage.h"
#include "kits/desktop/Keyboard.h"
#include "kits/desktop/ScreenTable.h"
#include "kits/desktop/ScreenWatch.h"
#include "kits/desktop/WindowHold.h"
#include "kits/interface/Display.h"

namespace BPrivate {

/// A window on the screen with the kits' content in it, and what the user and the window manager
/// do to it as messages for the looper. Main thread only.
///
/// A content that covers its whole screen and more is shown by the desktop's full-screen state:
/// this widget is as large as the screen then, and the content in it where the kits want it.
///
/// Window managers carry out requests some time later, and Qt may hear in between of states that
/// are past already. So what is heard soon after a request is not believed; when that time is over
/// a request that failed is made again, and then what there is is told to the kits.
class WindowWidget : public QWidget {
public:
    /// `place` is kept at the screen the window is on. `screens` and `keyboard` outlive the window.
    WindowWidget(const WindowSpec& spec, const BMessenger& target,
        std::shared_ptr<FrontImage> image, const Keyboard& keyboard, ScreenWatch& screens,
        std::shared_ptr<SharedPlace> place);
    ~WindowWidget() override;

    void SetContentFrame(BRect frame, int32 serial);
    void SetSizeLimits(QSize smallest, QSize largest);
    void ShowOnScreen();
    void BringToFront();
    /// Whether what the window manager says is believed: no request of the kits' is still on its way.
    bool IsSettled() const { return !fSettling.isActive(); }
    void Minimize(bool minimize);
    ContentWidget& Content() { return fContent; }
    /// Whether it asks or tells something, and has the size that takes.
    bool IsDialog() const { return (fFlags & B_NOT_ZOOMABLE) != 0; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    /// Of the window's handle: Qt tells the widget not of all.
    bool eventFilter(QObject* handle, QEvent* event) override;

private:
    // Its frame (WindowWidget.cpp).
    void ApplyLimits();
    void AdmitSize(QSize size);
    void PlaceContent();
    void TellMoved();
    void TellResized();
    /// Whether moves and sizes are the window's own, and not those of another state.
    bool IsTelling() const;
    QRect CurrentFrame() const;
    /// Adds "when" and sends it.
    void Send(BMessage& message) const;

    // Its states (WindowStates.cpp).
    void Cover(const QRect& screen);
    void Uncover();
    void FullScreenChanged();
    /// Believes nothing for a while, and then asks anew that many times for what is not so.
    void BeginSettling(int tries);
    void Settle();
    bool HasSettled() const;
    void TellMinimized();
    void SettleMinimized();
    void Restored();
    void TellZoomed();
    /// Also one that is full-screen by the desktop's own command.
    bool IsHeld() const;
    /// Tells whether the desktop holds the window, before anything of the frame it gives it.
    void TellHeld();

    // Its screen (WindowScreens.cpp).
    void FollowHandle();
    void FollowScreen();
    void ScreensChanged();
    ScreenPlace CurrentPlace() const;

    // A dialog's place on it (DialogPlaces.cpp).
    QMargins Decorations() const;
    /// Where a dialog of that frame is seen whole, with its decorations; any other stays.
    QRect SeenWhole(const QRect& frame) const;
    void BringOntoScreen();
    /// Before it gets the frame: one that grows stays whole on the screen.
    QRect Grown(const QRect& frame) const;

    const BMessenger fTarget;
    ScreenWatch& fScreens;
    const std::shared_ptr<SharedPlace> fPlace;
    ContentWidget fContent;

    const uint32 fFlags;
    const window_feel fFeel;
    QSize fSmallest;
    QSize fLargest;
    QRect fFrame;  // of the content, as the kits know it
    int32 fFrameSerial = 0;
    ScreenPlace fToldPlace;
    bool fActive = false;
    bool fAppears = false;  // shown, and not yet on the screen

    bool fCovers = false;  // shown by the full-screen state
    QRect fCovered;        // the screen it covers
    QTimer fSettling;
    int fTriesLeft = 0;

    bool fMinimized = false;
    QTimer fMinimizing;
    bool fTriedMinimize = false;
    QTimer fReappeared;
    bool fZoomed = false;
    QTimer fZooming;
    WindowHold fHold;
    bool fHeld = false;  // as the kits know it
};

/// Whether the desktop tells and takes the positions of windows.
bool HasPositions();

}  // namespace BPrivate
