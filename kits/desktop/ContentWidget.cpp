#include "kits/desktop/ContentWidget.h"

#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleHints>
#include <app/AppDefs.h>
#include <app/Message.h>
#include <storage/Entry.h>
#include <utility>

#include "kits/app/MessageAccess.h"
#include "kits/desktop/Keys.h"
#include "kits/desktop/UriList.h"
#include "kits/desktop/WindowGround.h"

namespace BPrivate {

namespace {

// Qt numbers the buttons as the kits do; those beyond the first three are passed on as they are.
constexpr int kKnownButtons = 0x1f;

const QString kUriList = QStringLiteral("text/uri-list");

BPoint KitPoint(QPointF point) {
    return {static_cast<float>(point.x()), static_cast<float>(point.y())};
}

std::vector<std::string> DroppedPaths(const QMimeData& data) {
    const QByteArray list = data.data(kUriList);
    return PathsOfUriList({list.constData(), static_cast<size_t>(list.size())});
}

}  // namespace

ContentWidget::ContentWidget(QWidget& window, std::function<void(BMessage& message)> send,
    std::shared_ptr<FrontImage> image, const Keyboard& keyboard)
    : QWidget(&window), fSend(std::move(send)), fImage(std::move(image)), fKeyboard(keyboard),
      fControls(*this,
          {[this](BMessage& change) { SendChange(change); },
              [this](const QKeyEvent& event) { SendKey(event); }}),
      fReadables(*this), fClicks(QGuiApplication::styleHints()->mouseDoubleClickInterval(),
                             QGuiApplication::styleHints()->mouseDoubleClickDistance()) {
    // The front image covers everything, so Qt need not clear the window before.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setAcceptDrops(true);
    // The keys are for the content unless a control has been given them.
    setFocus();
}

ContentWidget::~ContentWidget() = default;

void ContentWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    fImage->Paint(painter, event->region(), size());
}

void ContentWidget::SetGround(const QColor& color) {
    fImage->SetGround(color);
    SetWindowGround(*window(), color);
    update();
}

void ContentWidget::showEvent(QShowEvent*) {
    // The window is made by now, and not seen yet.
    SetWindowGround(*window(), fImage->Ground());
}

void ContentWidget::keyPressEvent(QKeyEvent* event) {
    SendKey(*event);
}

void ContentWidget::keyReleaseEvent(QKeyEvent* event) {
    // One that comes from a control was told before the control saw it.
    if (fControls.Focused() == 0)
        SendKey(*event);
}

bool ContentWidget::focusNextPrevChild(bool) {
    // The kits know the order of the views, of which only some are controls.
    return false;
}

void ContentWidget::TellModifiers() {
    const uint32 modifiers = fKeyboard.Modifiers();
    if (modifiers == fLastModifiers)
        return;
    BMessage changed(B_MODIFIERS_CHANGED);
    changed.AddInt32("modifiers", static_cast<int32>(modifiers));
    changed.AddInt32(
        "be:old_modifiers", static_cast<int32>(std::exchange(fLastModifiers, modifiers)));
    fSend(changed);
}

void ContentWidget::SendKey(const QKeyEvent& event) {
    const bool press = event.type() == QEvent::KeyPress;
    // The releases between the repeats of a held key did not happen.
    if (!press && event.isAutoRepeat())
        return;
    const KeyInput input = TranslateKey(event);
    TellModifiers();

    const bool mapped = !input.bytes.empty();
    BMessage message(press ? (mapped ? B_KEY_DOWN : B_UNMAPPED_KEY_DOWN)
                           : (mapped ? B_KEY_UP : B_UNMAPPED_KEY_UP));
    message.AddInt32("key", input.key);
    message.AddInt32("modifiers", static_cast<int32>(fLastModifiers));
    if (mapped) {
        message.AddInt32("raw_char", input.rawChar);
        for (const char byte : input.bytes)
            message.AddInt8("byte", static_cast<int8>(byte));
        message.AddString("bytes", input.bytes.c_str());
    }
    if (press && fKeyboard.RepeatCount() > 0)
        message.AddInt32("be:key_repeat", fKeyboard.RepeatCount());
    if (fControls.Focused() != 0)
        message.AddInt32("control", fControls.Focused());
    fSend(message);
}

void ContentWidget::SendChange(BMessage& change) {
    if (change.what == kControlChanged)
        change.AddInt32("modifiers", static_cast<int32>(fKeyboard.Modifiers()));
    fSend(change);
}

void ContentWidget::mousePressEvent(QMouseEvent* event) {
    SendPressed(*event);
}

void ContentWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    SendPressed(*event);
}

void ContentWidget::SendPressed(const QMouseEvent& event) {
    const auto time = static_cast<int64>(event.timestamp());
    const int32 clicks = fClicks.Press(static_cast<int>(event.button()), event.position(), time);
    BMessage message(B_MOUSE_DOWN);
    message.AddPoint("be:window_where", KitPoint(event.position()));
    message.AddInt32("buttons", static_cast<int32>(event.buttons()) & kKnownButtons);
    message.AddInt32("clicks", clicks);
    message.AddInt32("modifiers", static_cast<int32>(fKeyboard.Modifiers()));
    fSend(message);
}

void ContentWidget::mouseReleaseEvent(QMouseEvent* event) {
    BMessage message(B_MOUSE_UP);
    message.AddPoint("be:window_where", KitPoint(event->position()));
    message.AddInt32("buttons", static_cast<int32>(event->buttons()) & kKnownButtons);
    message.AddInt32("modifiers", static_cast<int32>(fKeyboard.Modifiers()));
    fSend(message);
}

void ContentWidget::mouseMoveEvent(QMouseEvent* event) {
    const bool inside = rect().contains(event->position().toPoint());
    SendMoved(event->position(), static_cast<int32>(event->buttons()), inside);
}

void ContentWidget::leaveEvent(QEvent*) {
    SendMoved(fPointer, 0, false);
}

void ContentWidget::SendMoved(QPointF where, int32 buttons, bool inside) {
    fPointer = where;
    BMessage message(B_MOUSE_MOVED);
    message.AddPoint("be:window_where", KitPoint(where));
    message.AddInt32("buttons", buttons & kKnownButtons);
    message.AddInt32("modifiers", static_cast<int32>(fKeyboard.Modifiers()));
    message.AddBool("be:inside", inside);
    fSend(message);
}

void ContentWidget::wheelEvent(QWheelEvent* event) {
    event->accept();
    // What a touchpad adds after the finger has left it would leaf through a folder by itself.
    if (event->phase() == Qt::ScrollMomentum)
        return;
    const QPoint notches = fWheel.Turn(event->angleDelta(), event->pixelDelta());
    if (notches.isNull())
        return;
    BMessage message(B_MOUSE_WHEEL_CHANGED);
    message.AddFloat("be:wheel_delta_x", static_cast<float>(notches.x()));
    message.AddFloat("be:wheel_delta_y", static_cast<float>(notches.y()));
    message.AddPoint("be:window_where", KitPoint(event->position()));
    fSend(message);
}

void ContentWidget::dragEnterEvent(QDragEnterEvent* event) {
    if ((event->possibleActions() & Qt::CopyAction) == 0 ||
        DroppedPaths(*event->mimeData()).empty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void ContentWidget::dropEvent(QDropEvent* event) {
    BMessage message(B_SIMPLE_DATA);
    for (const std::string& path : DroppedPaths(*event->mimeData())) {
        entry_ref ref;
        if (get_ref_for_path(path.c_str(), &ref) == B_OK)
            message.AddRef("refs", &ref);
    }
    if (!message.HasRef("refs"))
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    message.AddPoint("_drop_point_", KitPoint(event->position() + fOrigin));
    message.AddPoint("be:window_where", KitPoint(event->position()));
    MessageAccess::SetSourceRemote(message);
    fSend(message);
}

}  // namespace BPrivate
