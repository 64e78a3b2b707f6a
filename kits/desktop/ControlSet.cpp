#include "kits/desktop/ControlSet.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>
#include <interface/InterfaceDefs.h>
#include <utility>

#include "kits/desktop/FrontImage.h"
#include "kits/desktop/Keys.h"

namespace BPrivate {

namespace {

/// Keys that a window, its dialog shortcuts and its navigation take before any control.
bool IsForKits(const QKeyEvent& event, const QObject* control) {
    const bool upOrDown = event.key() == Qt::Key_Down || event.key() == Qt::Key_Up;
    if (upOrDown && qobject_cast<const QComboBox*>(control) != nullptr)
        return false;  // with Alt it opens the menu
    const bool isArrow = upOrDown || event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
    if (isArrow && qobject_cast<const QPushButton*>(control) != nullptr)
        return true;  // it would go to the next widget, which the kits know better
    switch (event.key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return true;
    default: break;
    }
    if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F35)
        return true;
    return (KitModifiers(event.modifiers()) & B_CONTROL_KEY) != 0;
}

}  // namespace

ControlSet::ControlSet(QWidget& window, Listener listener)
    : fWindow(window), fListener(std::move(listener)), fMenuKeys(fWindow, fListener.key) {
    connect(qApp, &QApplication::focusChanged, this,
        [this](const QWidget*, const QWidget* now) { FocusChanged(now); });
    fWindow.installEventFilter(this);
}

ControlSet::~ControlSet() = default;

void ControlSet::Set(ControlId id, const ControlState& state, int32 serial) {
    if (const auto found = fControls.find(id); found != fControls.end()) {
        found->second.serial = serial;
        found->second.control->SetState(state);
        return;
    }
    const auto report = [this, id](BMessage& change) {
        const auto entry = fControls.find(id);
        if (entry == fControls.end())
            return;
        if (change.what == 0)
            change.what = kControlChanged;
        change.AddInt32("control", id);
        change.AddInt32("serial", entry->second.serial);
        fListener.send(change);
    };
    auto control = MakeControlWidget(state, &fWindow, report);
    for (QWidget* part : control->KeyWidgets())
        part->installEventFilter(this);
    // A higher id may be there already, made by a view that was attached before.
    if (const auto above = fControls.upper_bound(id); above != fControls.end())
        control->Widget().stackUnder(&above->second.control->Widget());
    fControls.emplace(id, Entry{std::move(control), serial, {}, {}});
}

void ControlSet::Place(ControlId id, const ControlPlace& place) {
    const auto found = fControls.find(id);
    if (found == fControls.end())
        return;
    ControlWidget& control = *found->second.control;
    QWidget& widget = control.Widget();
    widget.setObjectName(QString::fromStdString(place.view));
    // Qt tells of every call as of a change.
    if (std::exchange(found->second.description, place.description) != place.description)
        control.FocusWidget().setAccessibleDescription(QString::fromStdString(place.description));
    if (std::exchange(found->second.name, place.name) != place.name)
        control.SetAccessibleName(QString::fromStdString(place.name));
    widget.setEnabled(place.enabled);
    for (QWidget* part : control.KeyWidgets())
        part->setFocusPolicy(place.navigable ? Qt::StrongFocus : Qt::NoFocus);
    const QRect frame = PixelsOf(place.frame);
    const bool empty = frame.isEmpty();
    if (!empty)
        widget.setGeometry(frame);
    const QRect clip = place.clip.IsValid() ? PixelsOf(place.clip) & frame : frame;
    if (clip != frame)
        widget.setMask(clip.translated(-frame.topLeft()));
    else
        widget.clearMask();
    widget.setVisible(place.visible && !empty);
    if (place.focused)
        Focus(id);
    else if (fFocused == id)
        Focus(0);
}

void ControlSet::Remove(ControlId id) {
    if (fFocused == id)
        Focus(0);
    const auto found = fControls.find(id);
    if (found == fControls.end())
        return;
    found->second.control->CloseMenus();
    fControls.erase(found);
}

void ControlSet::OpenMenu(ControlId bar, int32 item) {
    if (const auto found = fControls.find(bar); found != fControls.end())
        found->second.control->OpenMenu(item);
}

bool ControlSet::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return false;
    if (fMenuKeys.IsMenus())
        return false;
    auto& key = *static_cast<QKeyEvent*>(event);
    if (event->type() == QEvent::KeyPress && IsForDesktop(key, receiver))
        return true;
    if (receiver == &fWindow)
        return false;
    const bool isForKits = IsForKits(key, receiver);
    // Every release is told, since whether a widget takes it says nothing about the press.
    if (isForKits || event->type() == QEvent::KeyRelease)
        fListener.key(key);
    return isForKits;
}

bool ControlSet::IsForDesktop(const QKeyEvent& key, const QObject* receiver) {
    for (const auto& [id, entry] : fControls) {
        if (entry.control->TakeWindowKey(key))
            return true;
    }
    const bool backward = key.key() == Qt::Key_Backtab;
    const auto focused = fControls.find(fFocused);
    if ((!backward && key.key() != Qt::Key_Tab) || focused == fControls.end())
        return false;
    // The kits know only the control as a whole.
    const std::vector<QWidget*> parts = focused->second.control->KeyWidgets();
    const auto at = std::ranges::find(parts, receiver);
    if (at == parts.end() || at == (backward ? parts.begin() : parts.end() - 1))
        return false;
    (*(backward ? at - 1 : at + 1))
        ->setFocus(backward ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    return true;
}

void ControlSet::FocusChanged(const QWidget* now) {
    // Another window having the keyboard changes nothing in this one.
    if (fMovingFocus || now == nullptr || now->window() != fWindow.window())
        return;
    ControlId id = 0;
    for (const auto& [candidate, entry] : fControls) {
        if (&entry.control->Widget() == now || entry.control->Widget().isAncestorOf(now))
            id = candidate;
    }
    if (id == fFocused)
        return;
    fFocused = id;
    BMessage message(kControlFocused);
    message.AddInt32("control", id);
    fListener.send(message);
}

void ControlSet::Focus(ControlId id) {
    if (fFocused == id)
        return;
    fFocused = id;
    const bool before = std::exchange(fMovingFocus, true);
    const auto found = fControls.find(id);
    QWidget& widget = found == fControls.end() ? fWindow : found->second.control->FocusWidget();
    widget.setFocus(Qt::TabFocusReason);  // for which a text field selects its text
    fMovingFocus = before;
}

}  // namespace BPrivate
