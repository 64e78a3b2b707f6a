#include <QCloseEvent>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleHints>
#include <QWindow>
#include <app/AppDefs.h>
#include <app/Message.h>
#include <kernel/OS.h>
#include <utility>

#include "kits/desktop/WindowStyle.h"
#include "kits/desktop/WindowWidget.h"

namespace BPrivate {

namespace {

BPoint KitPoint(QPoint point) {
    return {static_cast<float>(point.x()), static_cast<float>(point.y())};
}

}  // namespace

WindowWidget::WindowWidget(const WindowSpec& spec, const BMessenger& target,
    std::shared_ptr<FrontImage> image, const Keyboard& keyboard)
    : QWidget(nullptr, WindowStyle(spec.look, spec.feel, spec.flags)), fTarget(target),
      fImage(std::move(image)), fKeyboard(keyboard),
      fControls(*this,
          {[this](BMessage& message) { Send(message); },
              [this](const QKeyEvent& event) { SendKey(event); }}),
      fClicks(QGuiApplication::styleHints()->mouseDoubleClickInterval(),
          QGuiApplication::styleHints()->mouseDoubleClickDistance()),
      fFlags(spec.flags), fFeel(spec.feel), fSmallest(1, 1),
      fLargest(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) {
    // The front image covers everything, so Qt need not clear the window before.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_ShowWithoutActivating, (spec.flags & (B_AVOID_FOCUS | B_AVOID_FRONT)) != 0);
    setWindowModality(WindowModalityOf(spec.feel));
    setMouseTracking(true);
    setAcceptDrops(true);
    // The keys are for the content unless a control has been given them.
    setFocus();
    setWindowTitle(QString::fromStdString(spec.title));
    SetContentFrame(spec.frame, 0);
}

WindowWidget::~WindowWidget() = default;

void WindowWidget::SetContentFrame(BRect frame, int32 serial) {
    fFrameSerial = serial;
    const QRect pixels = PixelsOf(frame);
    fAsked = pixels.size();
    ApplyLimits();
    if (windowState() & Qt::WindowMaximized)
        setWindowState(windowState() & ~Qt::WindowMaximized);
    setGeometry(pixels);
}

void WindowWidget::SetSizeLimits(QSize smallest, QSize largest) {
    fSmallest = smallest;
    fLargest = largest;
    ApplyLimits();
}

void WindowWidget::ApplyLimits() {
    const bool fixed = fFlags & B_NOT_RESIZABLE;
    QSize smallest = fSmallest;
    QSize largest = fLargest;
    if (fixed || (fFlags & B_NOT_H_RESIZABLE)) {
        smallest.setWidth(fAsked.width());
        largest.setWidth(fAsked.width());
    }
    if (fixed || (fFlags & B_NOT_V_RESIZABLE)) {
        smallest.setHeight(fAsked.height());
        largest.setHeight(fAsked.height());
    }
    setMinimumSize(smallest.expandedTo(QSize(1, 1)));
    setMaximumSize(largest.expandedTo(smallest));
}

void WindowWidget::ShowOnScreen() {
    QWindow* active = QGuiApplication::focusWindow();
    if (StaysAboveAnother(fFeel) && active != nullptr) {
        winId();  // makes the window's handle
        if (windowHandle() != active)
            windowHandle()->setTransientParent(active);
    }
    show();
}

void WindowWidget::BringToFront() {
    raise();
    activateWindow();
}

void WindowWidget::Minimize(bool minimize) {
    fMinimized = minimize;
    setWindowState(
        minimize ? windowState() | Qt::WindowMinimized : windowState() & ~Qt::WindowMinimized);
}

void WindowWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    fImage->Paint(painter, event->region(), size());
}

void WindowWidget::closeEvent(QCloseEvent* event) {
    // The looper decides, and destroys the window if it agrees.
    event->ignore();
    BMessage message(B_QUIT_REQUESTED);
    Send(message);
}

void WindowWidget::moveEvent(QMoveEvent*) {
    if (!isVisible() || isMinimized())
        return;
    BMessage message(B_WINDOW_MOVED);
    message.AddPoint("where", KitPoint(geometry().topLeft()));
    message.AddInt32("serial", fFrameSerial);
    Send(message);
}

void WindowWidget::resizeEvent(QResizeEvent*) {
    if (!isVisible() || isMinimized())
        return;
    BMessage message(B_WINDOW_RESIZED);
    message.AddInt32("width", width() - 1);
    message.AddInt32("height", height() - 1);
    message.AddInt32("serial", fFrameSerial);
    Send(message);
}

void WindowWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() != fActive) {
        fActive = isActiveWindow();
        BMessage message(B_WINDOW_ACTIVATED);
        message.AddBool("active", fActive);
        Send(message);
    }
    if (event->type() != QEvent::WindowStateChange)
        return;
    if (isMinimized() != fMinimized) {
        fMinimized = isMinimized();
        BMessage message(B_MINIMIZE);
        message.AddBool("minimize", fMinimized);
        Send(message);
    }
    if (isMaximized() != fZoomed) {
        fZoomed = isMaximized();
        BMessage message(B_ZOOM);
        Send(message);
    }
}

void WindowWidget::Send(BMessage& message) const {
    message.AddInt64("when", system_time());
    fTarget.SendMessage(&message);
}

}  // namespace BPrivate
