#include "kits/desktop/MenuTree.h"

#include <QAction>
#include <QActionGroup>
#include <QMenuBar>
#include <utility>

#include "kits/desktop/Menu.h"
#include "kits/desktop/MenuText.h"

namespace BPrivate {

namespace {

// An open menu is laid out whole for each entry that comes or goes: entries laid out in a tenth of
// a second.
constexpr qsizetype kMostWork = 20000;

void SetRadio(QAction& entry, bool radio) {
    if (radio == (entry.actionGroup() != nullptr))
        return;
    // The group is for the look alone, since the kits know what a mark takes away.
    if (radio)
        entry.setActionGroup(new QActionGroup(&entry));
    else
        delete entry.actionGroup();
}

void SetMark(QAction& entry, bool radio, bool marked) {
    entry.setCheckable(radio || marked || entry.isChecked());
    entry.setChecked(marked);
    entry.setCheckable(radio || marked);
}

}  // namespace

MenuTree::~MenuTree() {
    for (auto& [id, node] : fNodes)
        Retire(node);
}

void MenuTree::Update(const std::vector<MenuItemState>& items) {
    std::unordered_map<int32, Node> now;
    QList<QAction*> wanted;
    now.reserve(items.size());
    wanted.reserve(static_cast<qsizetype>(items.size()));
    for (const MenuItemState& item : items) {
        if (now.contains(item.id))
            continue;
        Node& node = now.emplace(item.id, Take(item)).first->second;
        Show(node, item);
        wanted.append(node.entry);
    }
    std::swap(fNodes, now);
    CloseIfSlow(wanted, now.size());
    for (auto& [id, gone] : now)
        Retire(gone);
    Arrange(wanted);
}

QAction* MenuTree::EntryOf(int32 item) const {
    const auto found = fNodes.find(item);
    return found == fNodes.end() ? nullptr : found->second.entry;
}

MenuTree::Node MenuTree::Take(const MenuItemState& item) {
    const auto found = fNodes.find(item.id);
    if (found == fNodes.end())
        return Make(item);
    if ((found->second.menu != nullptr) != item.hasSubmenu)
        return Make(item);
    Node node = std::move(found->second);
    fNodes.erase(found);
    return node;
}

MenuTree::Node MenuTree::Make(const MenuItemState& item) {
    Node node;
    if (item.hasSubmenu) {
        node.menu = new Menu(&fOwner);
        node.entry = node.menu->menuAction();
        node.below = std::make_unique<MenuTree>(*node.menu, fEvents);
        connect(node.menu, &QMenu::aboutToShow, this, [this] { fEvents.shown(); });
        connect(node.menu, &QMenu::aboutToHide, this, [this] { fEvents.hidden(); });
    } else {
        node.entry = new QAction(&fOwner);
    }
    // Shown, and told to screen readers, but never acted on: no menu has the keyboard focus, which
    // this context asks for. The keys are the kits'.
    node.entry->setShortcutContext(Qt::WidgetShortcut);
    connect(node.entry, &QAction::triggered, this, [this, id = item.id] { Triggered(id); });
    return node;
}

void MenuTree::Show(Node& node, const MenuItemState& item) {
    QAction& entry = *node.entry;
    entry.setSeparator(item.separator);
    if (item.separator)
        return;
    Menu::SetLabel(entry, MenuLabel(item), fOwner.fontMetrics());
    entry.setShortcut(MenuShortcut(item));
    SetRadio(entry, item.radio);
    SetMark(entry, item.radio, item.marked);
    node.marked = item.marked;
    // A menu overrides its entry's own setting when it is shown or its bar is enabled.
    if (node.menu != nullptr)
        node.menu->setEnabled(item.enabled);
    else
        entry.setEnabled(item.enabled);
    const bool isTitle = qobject_cast<QMenuBar*>(&fOwner) != nullptr && node.menu != nullptr;
    Menu::SetIsCommand(entry, item.command && !isTitle);
    if (node.below)
        node.below->Update(item.items);
}

void MenuTree::Retire(Node& node) {
    if (node.menu != nullptr)
        node.menu->close();
    node.entry->disconnect(this);
    fOwner.removeAction(node.entry);
    node.below.reset();
    // It may be what is running this.
    if (node.menu != nullptr) {
        node.menu->disconnect(this);
        node.menu->deleteLater();
    } else {
        node.entry->deleteLater();
    }
}

void MenuTree::CloseIfSlow(const QList<QAction*>& wanted, size_t gone) {
    auto* menu = dynamic_cast<Menu*>(&fOwner);
    if (menu == nullptr || !menu->isVisible())
        return;
    const qsizetype kept = menu->actions().size() - static_cast<qsizetype>(gone);
    const qsizetype changes = static_cast<qsizetype>(gone) + wanted.size() - kept;
    if (changes * wanted.size() > kMostWork)
        menu->close();
}

void MenuTree::Arrange(const QList<QAction*>& wanted) {
    QList<QAction*> shown = fOwner.actions();
    for (qsizetype i = 0; i < wanted.size(); ++i) {
        QAction* entry = wanted[i];
        if (i < shown.size() && shown[i] == entry)
            continue;
        // Takes out one that has moved down, which would make all between move up.
        if (i + 1 < shown.size() && shown[i + 1] == entry) {
            fOwner.removeAction(shown[i]);
            shown.removeAt(i);
            continue;
        }
        shown.removeOne(entry);
        fOwner.insertAction(i < shown.size() ? shown[i] : nullptr, entry);
        shown.insert(i, entry);
    }
}

void MenuTree::Triggered(int32 item) {
    const auto found = fNodes.find(item);
    if (found == fNodes.end() || !Menu::IsCommand(*found->second.entry))
        return;
    // Qt has changed the mark already; whether it does the kits decide.
    found->second.entry->setChecked(found->second.marked);
    fEvents.chosen(item);
}

}  // namespace BPrivate
