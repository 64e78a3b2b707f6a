#include "kits/desktop/WindowWidget.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QWindow>
#include <app/AppDefs.h>
#include <app/Message.h>
#include <kernel/OS.h>
#include <utility>

#include "kits/desktop/WindowStyle.h"

namespace BPrivate {

namespace {

void CallLater(QTimer& timer, int milliseconds, QObject& context, std::function<void()> call) {
    timer.setSingleShot(true);
    timer.setInterval(milliseconds);
    QObject::connect(&timer, &QTimer::timeout, &context, std::move(call));
}

// A busy window manager's answer takes no longer.
constexpr int kSettleTime = 300;
constexpr int kReappearTime = 100;
constexpr int kZoomTime = 150;

}  // namespace

bool HasPositions() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

WindowWidget::WindowWidget(const WindowSpec& spec, const BMessenger& target,
    std::shared_ptr<FrontImage> image, const Keyboard& keyboard, ScreenWatch& screens,
    std::shared_ptr<SharedPlace> place)
    : QWidget(nullptr, WindowStyle(spec.look, spec.feel, spec.flags)), fTarget(target),
      fScreens(screens), fPlace(std::move(place)),
      fContent(
          *this, [this](BMessage& message) { Send(message); }, std::move(image), keyboard),
      fFlags(spec.flags), fFeel(spec.feel), fSmallest(1, 1),
      fLargest(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX), fToldPlace(fPlace->Get()),
      fHold(*this, [this] { TellHeld(); }) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_ShowWithoutActivating, (spec.flags & (B_AVOID_FOCUS | B_AVOID_FRONT)) != 0);
    setWindowModality(WindowModalityOf(spec.feel));
    setFocusProxy(&fContent);
    setWindowTitle(QString::fromStdString(spec.title));
    CallLater(fSettling, kSettleTime, *this, [this] { Settle(); });
    CallLater(fMinimizing, kSettleTime, *this, [this] { SettleMinimized(); });
    CallLater(fReappeared, kReappearTime, *this, [this] { Restored(); });
    CallLater(fZooming, kZoomTime, *this, [this] { TellZoomed(); });
    screens.WhenChanged(*this, [this] { ScreensChanged(); });
    SetContentFrame(spec.frame, 0);
}

WindowWidget::~WindowWidget() = default;

void WindowWidget::SetContentFrame(BRect frame, int32 serial) {
    TellHeld();
    fFrameSerial = serial;
    const QRect wanted = PixelsOf(frame);
    fFrame = Grown(wanted);
    fContent.SetOrigin(fFrame.topLeft());
    const QRect screen = fScreens.Table()->Holding(fFrame).frame;
    if (CoversScreen(fFrame, screen)) {
        Cover(screen);
    } else if (fHeld && !fCovers) {
        // The kits did not know it yet when they wanted this.
        if (IsTelling()) {
            TellMoved();
            TellResized();
        }
    } else if (fCovers || fSettling.isActive() || isFullScreen() || isMaximized()) {
        Uncover();
    } else {
        ApplyLimits();
        setGeometry(fFrame);
    }
    if (fFrame != wanted)
        TellMoved();
    PlaceContent();
    FollowScreen();
}

void WindowWidget::SetSizeLimits(QSize smallest, QSize largest) {
    fSmallest = smallest;
    fLargest = largest;
    ApplyLimits();
}

// On a screen of 1.5 pixels to a unit Qt tells window managers that sizes come in steps of 2 pixels,
// one rounded up, and some keep to that. They count from a base, so one is told that leads here.
void WindowWidget::AdmitSize(QSize size) {
    const qreal ratio = devicePixelRatioF();
    const int step = qRound(ratio);
    const auto base = [=](int units) {
        int from = 0;
        while (from < step * 4 && qRound(from * ratio) % step != qRound(units * ratio) % step)
            ++from;
        return from;
    };
    if (QWindow* handle = windowHandle())
        handle->setBaseSize(QSize(base(size.width()), base(size.height())));
}

void WindowWidget::ApplyLimits() {
    AdmitSize(fFrame.size());
    // A window manager makes no window full-screen that may not have the size.
    if (fCovers) {
        setMinimumSize(1, 1);
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        return;
    }
    const bool fixed = fFlags & B_NOT_RESIZABLE;
    QSize smallest = fSmallest;
    QSize largest = fLargest;
    if (fixed || (fFlags & B_NOT_H_RESIZABLE)) {
        smallest.setWidth(fFrame.width());
        largest.setWidth(fFrame.width());
    }
    if (fixed || (fFlags & B_NOT_V_RESIZABLE)) {
        smallest.setHeight(fFrame.height());
        largest.setHeight(fFrame.height());
    }
    setMinimumSize(smallest.expandedTo(QSize(1, 1)));
    setMaximumSize(largest.expandedTo(smallest));
}

void WindowWidget::PlaceContent() {
    if (fCovers)
        fContent.setGeometry(fFrame.translated(-fCovered.topLeft()));
    else
        fContent.setGeometry(rect());
}

void WindowWidget::ShowOnScreen() {
    winId();  // makes the window's handle
    AdmitSize(fFrame.size());
    QWindow* active = QGuiApplication::focusWindow();
    if (StaysAboveAnother(fFeel) && active != nullptr && windowHandle() != active)
        windowHandle()->setTransientParent(active);
    BringOntoScreen();
    fAppears = true;
    show();
    FollowHandle();
}

void WindowWidget::BringToFront() {
    raise();
    activateWindow();
}

void WindowWidget::closeEvent(QCloseEvent* event) {
    // The looper decides, and destroys the window if it agrees.
    event->ignore();
    BMessage message(B_QUIT_REQUESTED);
    Send(message);
}

bool WindowWidget::IsTelling() const {
    return isVisible() && !isMinimized() && !fCovers && !fSettling.isActive();
}

QRect WindowWidget::CurrentFrame() const {
    return HasPositions() ? geometry() : QRect(fFrame.topLeft(), size());
}

void WindowWidget::moveEvent(QMoveEvent*) {
    TellHeld();
    if (IsTelling() && HasPositions())
        TellMoved();
    FollowScreen();
}

void WindowWidget::resizeEvent(QResizeEvent*) {
    TellHeld();
    PlaceContent();
    if (IsTelling())
        TellResized();
    FollowScreen();
    if (fZooming.isActive())
        TellZoomed();
}

void WindowWidget::TellMoved() {
    fFrame.moveTopLeft(CurrentFrame().topLeft());
    fContent.SetOrigin(fFrame.topLeft());
    BMessage message(B_WINDOW_MOVED);
    message.AddPoint(
        "where", BPoint(static_cast<float>(fFrame.left()), static_cast<float>(fFrame.top())));
    message.AddInt32("serial", fFrameSerial);
    Send(message);
}

void WindowWidget::TellResized() {
    fFrame.setSize(size());
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
        if (fActive) {
            fContent.TellModifiers();
            if (isMinimized())
                Restored();
        }
    }
    if (event->type() != QEvent::WindowStateChange)
        return;
    TellMinimized();
    TellHeld();
    FullScreenChanged();
    // Told when the window has the size.
    if (isMaximized() != fZoomed && !fMinimized)
        fZooming.start();
}

void WindowWidget::Send(BMessage& message) const {
    message.AddInt64("when", system_time());
    fTarget.SendMessage(&message);
}

}  // namespace BPrivate
