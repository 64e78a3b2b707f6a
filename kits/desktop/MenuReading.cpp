#include "kits/desktop/MenuReading.h"

#include <QAccessible>
#include <QAction>
#include <QPointer>

#include "kits/desktop/Menu.h"
#include "kits/desktop/MenuText.h"

namespace BPrivate {

namespace {

class EntryReading : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    EntryReading(Menu& owner, QAction& entry) : fOwner(&owner), fEntry(&entry) {}

    bool isValid() const override { return fOwner != nullptr && fEntry != nullptr; }
    QObject* object() const override { return fEntry; }
    QWindow* window() const override { return fOwner->windowHandle(); }

    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(fOwner);
    }
    int childCount() const override { return fEntry->menu() == nullptr ? 0 : 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 && fEntry->menu() != nullptr
            ? QAccessible::queryAccessibleInterface(fEntry->menu())
            : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return fEntry->menu() != nullptr && child->object() == fEntry->menu() ? 0 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        QAccessibleInterface* menu = child(0);
        return menu != nullptr && menu->rect().contains(x, y) ? menu : nullptr;
    }

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name: return WithoutMarks(Menu::Label(*fEntry));
        case QAccessible::Accelerator: return fEntry->shortcut().toString(QKeySequence::NativeText);
        default: return {};
        }
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override {
        const QRect area = fOwner->actionGeometry(fEntry);
        return {fOwner->mapToGlobal(area.topLeft()), area.size()};
    }

    QAccessible::Role role() const override {
        return fEntry->isSeparator() ? QAccessible::Separator : QAccessible::MenuItem;
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.disabled = !fEntry->isEnabled();
        state.invisible = !fOwner->isVisible();
        state.checkable = fEntry->isCheckable();
        state.checked = fEntry->isChecked();
        state.hasPopup = fEntry->menu() != nullptr;
        state.focusable = !fEntry->isSeparator();
        state.focused = fOwner->activeAction() == fEntry;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override {
        QStringList names;
        if (fEntry->isSeparator() || !fEntry->isEnabled())
            return names;
        if (Menu::IsCommand(*fEntry))
            names << pressAction();
        if (fEntry->menu() != nullptr)
            names << showMenuAction();
        return names;
    }

    void doAction(const QString& name) override {
        if (!actionNames().contains(name))
            return;
        if (name == pressAction())
            Menu::Choose(*fEntry);
        else if (fOwner->isVisible())
            fOwner->setActiveAction(fEntry);
    }

    QStringList keyBindingsForAction(const QString& name) const override {
        const QString keys = text(QAccessible::Accelerator);
        return name == pressAction() && !keys.isEmpty() ? QStringList(keys) : QStringList();
    }

private:
    const QPointer<Menu> fOwner;
    const QPointer<QAction> fEntry;
};

QAccessibleInterface* MakeMenuReading(const QString&, QObject* object) {
    auto* entry = qobject_cast<QAction*>(object);
    if (entry == nullptr)
        return nullptr;
    // The entry of a menu belongs to that, any other to the menu it stands in.
    const QObject* holder = entry;
    if (entry->menu() != nullptr)
        holder = entry->menu();
    auto* owner = dynamic_cast<Menu*>(holder->parent());
    return owner == nullptr ? nullptr : new EntryReading(*owner, *entry);
}

}  // namespace

void TellMenusToScreenReaders() {
    static const bool told = (QAccessible::installFactory(MakeMenuReading), true);
    (void)told;
}

}  // namespace BPrivate
