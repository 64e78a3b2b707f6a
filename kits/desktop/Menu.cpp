#include "kits/desktop/Menu.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenuBar>
#include <QMouseEvent>

#include "kits/desktop/MenuText.h"

namespace BPrivate {

namespace {

bool IsCommandWithMenu(const QAction* entry) {
    return entry != nullptr && entry->menu() != nullptr && entry->isEnabled() &&
        Menu::IsCommand(*entry);
}

constexpr char kWholeLabel[] = "wholeLabel";
constexpr qsizetype kLongestTip = 1000;

}  // namespace

void Menu::SetLabel(QAction& entry, const QString& label, const QFontMetrics& font) {
    const QString shown = ShortLabel(label, font);
    const bool isCut = shown != label;
    entry.setText(shown);
    entry.setProperty(kWholeLabel, isCut ? QVariant(label) : QVariant());
    // Tags, lest the text's own be taken for some. No file has so long a name that its tip would
    // cover the screen.
    entry.setToolTip(isCut && label.size() <= kLongestTip
            ? QStringLiteral("<span>%1</span>").arg(WithoutMarks(label).toHtmlEscaped())
            : QString());
}

QString Menu::Label(const QAction& entry) {
    const QVariant whole = entry.property(kWholeLabel);
    return whole.isValid() ? whole.toString() : entry.text();
}

void Menu::HighlightFirst() {
    // Not setActiveAction(), which opens the entry's menu as well.
    for (qsizetype i = 0; i < actions().size(); ++i) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QMenu::keyPressEvent(&down);
        if (activeAction() == nullptr || activeAction()->isEnabled())
            break;
    }
}

void Menu::Choose(QAction& entry) {
    while (auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        if (!open->close())
            break;
    }
    entry.trigger();
}

void Menu::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (QAction* entry = EntryOfEnter()) {
            Choose(*entry);
            return;
        }
        break;
    case Qt::Key_Alt:
        // Qt would close the menu, but what an entry does may depend on the modifiers that are held.
        return;
    case Qt::Key_Escape:
        // Qt would leave the keyboard with the menu bar.
        if (qobject_cast<QMenuBar*>(parentWidget()) != nullptr) {
            close();
            return;
        }
        break;
    default:
        if (QAction* entry = EntryOfTrigger(*event)) {
            Choose(*entry);
            return;
        }
        break;
    }
    QMenu::keyPressEvent(event);
}

QAction* Menu::EntryOfEnter() const {
    // A menu opened by the pointer on its entry has nothing highlighted: Enter means the entry.
    QAction* entry = activeAction() != nullptr ? activeAction() : menuAction();
    const bool inMenu = entry != menuAction() || dynamic_cast<Menu*>(parentWidget()) != nullptr;
    return inMenu && IsCommandWithMenu(entry) ? entry : nullptr;
}

QAction* Menu::EntryOfTrigger(const QKeyEvent& event) const {
    const QString typed = event.text().toUpper();
    if (typed.isEmpty() || (event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier)))
        return nullptr;
    for (QAction* entry : actions()) {
        if (!IsCommandWithMenu(entry))
            continue;
        const QKeySequence trigger = QKeySequence::mnemonic(entry->text());
        if (!trigger.isEmpty() && trigger[0].key() == static_cast<Qt::Key>(typed[0].unicode()))
            return entry;
    }
    return nullptr;
}

void Menu::mousePressEvent(QMouseEvent* event) {
    fPressed = rect().contains(event->position().toPoint());
    QMenu::mousePressEvent(event);
}

void Menu::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() != Qt::NoButton && rect().contains(event->position().toPoint()))
        fPressed = true;
    QMenu::mouseMoveEvent(event);
}

void Menu::mouseReleaseEvent(QMouseEvent* event) {
    QAction* entry = actionAt(event->position().toPoint());
    if (fPressed && IsCommandWithMenu(entry)) {
        Choose(*entry);
        return;
    }
    QMenu::mouseReleaseEvent(event);
}

void Menu::hideEvent(QHideEvent* event) {
    fPressed = false;
    QMenu::hideEvent(event);
}

}  // namespace BPrivate
