#pragma once

#include <QWidget>
#include <app/Messenger.h>
#include <memory>

#include "kits/desktop/ControlSet.h"
#include "kits/desktop/FrontImage.h"
#include "kits/desktop/Keyboard.h"
#include "kits/desktop/Mouse.h"
#include "kits/interface/Display.h"

namespace BPrivate {

/// A window on the screen: shows the front image with the controls on top of it, and turns what
/// the user and the window manager do into messages for the looper. Main thread only.
class WindowWidget : public QWidget {
public:
    WindowWidget(const WindowSpec& spec, const BMessenger& target,
        std::shared_ptr<FrontImage> image, const Keyboard& keyboard);
    ~WindowWidget() override;

    void SetContentFrame(BRect frame, int32 serial);
    void SetSizeLimits(QSize smallest, QSize largest);
    void ShowOnScreen();
    void BringToFront();
    void Minimize(bool minimize);
    ControlSet& Controls() { return fControls; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void ApplyLimits();
    void SendKey(const QKeyEvent& event);
    void SendPressed(const QMouseEvent& event);
    void SendMoved(QPointF where, int32 buttons, bool inside);
    /// Adds "when" and sends it.
    void Send(BMessage& message) const;

    const BMessenger fTarget;
    const std::shared_ptr<FrontImage> fImage;
    const Keyboard& fKeyboard;
    ControlSet fControls;
    ClickCounter fClicks;
    WheelCounter fWheel;

    const uint32 fFlags;
    const window_feel fFeel;
    QSize fSmallest;
    QSize fLargest;
    QSize fAsked;  // by the kits; what a window of fixed size is fixed to
    int32 fFrameSerial = 0;
    uint32 fLastModifiers = 0;
    QPointF fPointer;
    bool fActive = false;
    bool fMinimized = false;
    bool fZoomed = false;
};

}  // namespace BPrivate
