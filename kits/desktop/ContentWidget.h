#pragma once

#include <QPointF>
#include <QWidget>
#include <functional>
#include <memory>

#include "kits/desktop/ControlSet.h"
#include "kits/desktop/FrontImage.h"
#include "kits/desktop/Keyboard.h"
#include "kits/desktop/Mouse.h"
#include "kits/desktop/ReadableViews.h"

class BMessage;

namespace BPrivate {

/// What is in a window: shows the front image with the controls on top of it, and turns what the
/// user does there into messages for the looper. Its coordinates are those of the kits' window,
/// wherever the screen has it. Main thread only.
class ContentWidget : public QWidget {
public:
    /// `send` sends a message for the looper; "when" is still missing.
    ContentWidget(QWidget& window, std::function<void(BMessage& message)> send,
        std::shared_ptr<FrontImage> image, const Keyboard& keyboard);
    ~ContentWidget() override;

    ControlSet& Controls() { return fControls; }
    ReadableViews& Readables() { return fReadables; }
    const ReadableViews& Readables() const { return fReadables; }
    /// Where the kits have the content's upper left corner on the screen.
    void SetOrigin(QPoint origin) { fOrigin = origin; }
    /// The colour of what nothing was presented for yet.
    void SetGround(const QColor& color);
    /// Tells the modifiers if they are others than were told.
    void TellModifiers();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
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
    void SendKey(const QKeyEvent& event);
    void SendChange(BMessage& change);
    void SendPressed(const QMouseEvent& event);
    void SendMoved(QPointF where, int32 buttons, bool inside);

    const std::function<void(BMessage& message)> fSend;
    const std::shared_ptr<FrontImage> fImage;
    const Keyboard& fKeyboard;
    ControlSet fControls;
    ReadableViews fReadables;
    ClickCounter fClicks;
    WheelCounter fWheel;
    QPoint fOrigin;
    QPointF fPointer;
    uint32 fLastModifiers = 0;
};

}  // namespace BPrivate
