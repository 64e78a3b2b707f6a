#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "kits/interface/Display.h"

class QAction;

namespace BPrivate {

class Menu;

/// What the user does in menus.
struct MenuEvents {
    std::function<void(int32 item)> chosen;
    std::function<void()> shown;   ///< a menu is opened
    std::function<void()> hidden;  ///< a menu is closed
};

/// The entries of a menu bar or a menu, and of the menus below it. A change touches only what is
/// another than before: an open menu stays open, with what is highlighted in it.
class MenuTree : public QObject {
public:
    /// `owner` shows the entries; it and `events` outlive the tree.
    MenuTree(QWidget& owner, const MenuEvents& events) : fOwner(owner), fEvents(events) {}
    ~MenuTree() override;

    void Update(const std::vector<MenuItemState>& items);

    /// The entry of the item, of this level only; null when there is none.
    QAction* EntryOf(int32 item) const;

private:
    struct Node {
        QAction* entry = nullptr;  // belongs to the owner, or to the menu
        Menu* menu = nullptr;      // belongs to the owner
        std::unique_ptr<MenuTree> below;
        bool marked = false;
    };

    Node Take(const MenuItemState& item);
    Node Make(const MenuItemState& item);
    void Show(Node& node, const MenuItemState& item);
    void Retire(Node& node);
    /// Closes an open menu that would take the user's patience to change as it stands.
    void CloseIfSlow(const QList<QAction*>& wanted, size_t gone);
    void Arrange(const QList<QAction*>& wanted);
    void Triggered(int32 item);

    QWidget& fOwner;
    const MenuEvents& fEvents;
    std::unordered_map<int32, Node> fNodes;
};

}  // namespace BPrivate
