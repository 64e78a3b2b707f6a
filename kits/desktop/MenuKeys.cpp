#include "kits/desktop/MenuKeys.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <utility>

namespace BPrivate {

namespace {

quint32 NumberOf(const QKeyEvent& event) {
    return event.nativeScanCode() != 0 ? event.nativeScanCode() : static_cast<quint32>(event.key());
}

/// Whether the widget is in a dialog of the desktop's that is a part of the window: it has shortcuts
/// of its own, and knows nothing of the window's menus.
bool IsInDialog(const QObject* widget, const QObject& content) {
    for (; widget != nullptr && widget != &content; widget = widget->parent()) {
        if (qobject_cast<const QDialog*>(widget) != nullptr)
            return true;
    }
    return false;
}

}  // namespace

MenuKeys::MenuKeys(QWidget& content, std::function<void(const QKeyEvent& event)> released)
    : fContent(content), fReleased(std::move(released)) {
    qApp->installEventFilter(this);
}

MenuKeys::~MenuKeys() = default;

bool MenuKeys::eventFilter(QObject* receiver, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool isKey = type == QEvent::KeyPress || type == QEvent::KeyRelease;
    if (!isKey && type != QEvent::ShortcutOverride)
        return false;
    // An event passes here for its window first, and then for each widget it is offered to.
    if (receiver->isWindowType())
        Follow(*static_cast<QKeyEvent*>(event));
    if (!receiver->isWidgetType() || static_cast<QWidget*>(receiver)->window() != fContent.window())
        return false;
    // Not the receiver: what a part has no use for is offered to those around it.
    if (IsInDialog(QApplication::focusWidget(), fContent))
        return false;
    if (type == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    // An open menu passes keys on to its bar, which is one of the window's widgets; what the bar
    // has no use for goes on to the content, and no further.
    return fIsMenus && (!HasMenuOpen() || receiver == &fContent);
}

bool MenuKeys::HasMenuOpen() const {
    for (const QWidget* open = QApplication::activePopupWidget(); open != nullptr;
         open = open->parentWidget()) {
        if (open == &fContent)
            return true;
    }
    return false;
}

void MenuKeys::Follow(const QKeyEvent& event) {
    const quint32 number = NumberOf(event);
    const bool isOpen = HasMenuOpen();
    if (event.type() == QEvent::ShortcutOverride) {
        fOffered = isOpen ? number : 0;
        return;
    }
    if (event.type() == QEvent::KeyPress) {
        // A menu may close already when it is asked whether the key is a shortcut.
        if (std::exchange(fOffered, 0) == number || isOpen)
            fTaken.insert(number);
        else if (!event.isAutoRepeat())
            fTaken.erase(number);
        fIsMenus = fTaken.contains(number);
        return;
    }
    fIsMenus = fTaken.contains(number);
    if (event.isAutoRepeat())
        return;
    fTaken.erase(number);
    if (isOpen && !fIsMenus)
        fReleased(event);
}

}  // namespace BPrivate
