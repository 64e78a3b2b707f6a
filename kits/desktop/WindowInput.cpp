// A window's keys, pointer and drops.

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <app/AppDefs.h>
#include <app/Message.h>
#include <storage/Entry.h>
#include <utility>

#include "kits/app/MessageAccess.h"
#include "kits/desktop/Keys.h"
#include "kits/desktop/UriList.h"
#include "kits/desktop/WindowWidget.h"

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

void WindowWidget::keyPressEvent(QKeyEvent* event) {
    SendKey(*event);
}

void WindowWidget::keyReleaseEvent(QKeyEvent* event) {
    // One that comes from a control was told before the control saw it.
    if (fControls.Focused() == 0)
        SendKey(*event);
}

bool WindowWidget::focusNextPrevChild(bool) {
    // The kits know the order of the views, of which only some are controls.
    return false;
}

void WindowWidget::SendKey(const QKeyEvent& event) {
    const bool press = event.type() == QEvent::KeyPress;
    // The releases between the repeats of a held key did not happen.
    if (!press && event.isAutoRepeat())
        return;
    const KeyInput input = TranslateKey(event);
    const uint32 modifiers = fKeyboard.Modifiers();
    if (modifiers != fLastModifiers) {
        BMessage changed(B_MODIFIERS_CHANGED);
        changed.AddInt32("modifiers", static_cast<int32>(modifiers));
        changed.AddInt32(
            "be:old_modifiers", static_cast<int32>(std::exchange(fLastModifiers, modifiers)));
        Send(changed);
    }

    const bool mapped = !input.bytes.empty();
    BMessage message(press ? (mapped ? B_KEY_DOWN : B_UNMAPPED_KEY_DOWN)
                           : (mapped ? B_KEY_UP : B_UNMAPPED_KEY_UP));
    message.AddInt32("key", input.key);
    message.AddInt32("modifiers", static_cast<int32>(modifiers));
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
    Send(message);
}

void WindowWidget::mousePressEvent(QMouseEvent* event) {
    SendPressed(*event);
}

void WindowWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    SendPressed(*event);
}

void WindowWidget::SendPressed(const QMouseEvent& event) {
    const auto time = static_cast<int64>(event.timestamp());
    const int32 clicks = fClicks.Press(static_cast<int>(event.button()), event.position(), time);
    BMessage message(B_MOUSE_DOWN);
    message.AddPoint("be:window_where", KitPoint(event.position()));
    message.AddInt32("buttons", static_cast<int32>(event.buttons()) & kKnownButtons);
    message.AddInt32("clicks", clicks);
    message.AddInt32("modifiers", static_cast<int32>(fKeyboard.Modifiers()));
    Send(message);
}

void WindowWidget::mouseReleaseEvent(QMouseEvent* event) {
    BMessage message(B_MOUSE_UP);
    message.AddPoint("be:window_where", KitPoint(event->position()));
    message.AddInt32("buttons", static_cast<int32>(event->buttons()) & kKnownButtons);
    message.AddInt32("modifiers", static_cast<int32>(fKeyboard.Modifiers()));
    Send(message);
}

void WindowWidget::mouseMoveEvent(QMouseEvent* event) {
    const bool inside = rect().contains(event->position().toPoint());
    SendMoved(event->position(), static_cast<int32>(event->buttons()), inside);
}

void WindowWidget::leaveEvent(QEvent*) {
    SendMoved(fPointer, 0, false);
}

void WindowWidget::SendMoved(QPointF where, int32 buttons, bool inside) {
    fPointer = where;
    BMessage message(B_MOUSE_MOVED);
    message.AddPoint("be:window_where", KitPoint(where));
    message.AddInt32("buttons", buttons & kKnownButtons);
    message.AddInt32("modifiers", static_cast<int32>(fKeyboard.Modifiers()));
    message.AddBool("be:inside", inside);
    Send(message);
}

void WindowWidget::wheelEvent(QWheelEvent* event) {
    event->accept();
    const QPoint notches = fWheel.Turn(event->angleDelta(), event->pixelDelta());
    if (notches.isNull())
        return;
    BMessage message(B_MOUSE_WHEEL_CHANGED);
    message.AddFloat("be:wheel_delta_x", static_cast<float>(notches.x()));
    message.AddFloat("be:wheel_delta_y", static_cast<float>(notches.y()));
    message.AddPoint("be:window_where", KitPoint(event->position()));
    Send(message);
}

void WindowWidget::dragEnterEvent(QDragEnterEvent* event) {
    if ((event->possibleActions() & Qt::CopyAction) == 0 ||
        DroppedPaths(*event->mimeData()).empty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void WindowWidget::dropEvent(QDropEvent* event) {
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
    message.AddPoint("_drop_point_", KitPoint(mapToGlobal(event->position())));
    message.AddPoint("be:window_where", KitPoint(event->position()));
    MessageAccess::SetSourceRemote(message);
    Send(message);
}

}  // namespace BPrivate
