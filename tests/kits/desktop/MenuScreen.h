#pragma once

#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>
#include <string>
#include <vector>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

namespace desktop_test {

constexpr BPrivate::ControlId kBar = 1;

inline BPrivate::MenuItemState Item(int32 id, const char* label) {
    BPrivate::MenuItemState item;
    item.id = id;
    item.label = label;
    return item;
}

inline BPrivate::MenuItemState SubmenuOf(
    int32 id, const char* label, std::vector<BPrivate::MenuItemState> items) {
    BPrivate::MenuItemState item = Item(id, label);
    item.hasSubmenu = true;
    item.command = false;
    item.items = std::move(items);
    return item;
}

inline BPrivate::MenuItemState Separator(int32 id) {
    BPrivate::MenuItemState item = Item(id, "");
    item.separator = true;
    return item;
}

/// A window with a menu bar, and what its user does there.
class Menus : public testing::Test {
protected:
    void SetUp() override { fScreen.Show(); }

    void Set(std::vector<BPrivate::MenuItemState> items) {
        fScreen.Window().SetControl(kBar, BPrivate::MenuBarState{std::move(items)}, ++fSerial);
        if (fSerial == 1) {
            BPrivate::ControlPlace place;
            place.name = "MainMenu";
            place.frame = BRect(0, 0, 299, 24);
            fScreen.Window().PlaceControl(kBar, place);
        }
        Pump();
    }

    /// A bar with one menu of those items.
    void SetMenu(std::vector<BPrivate::MenuItemState> items) {
        Set({SubmenuOf(1, "Menu", std::move(items))});
    }

    /// A bar as a program has it.
    void SetUsual() {
        BPrivate::MenuItemState open =
            SubmenuOf(10, "Open...", {Item(11, "a.png"), Item(12, "b.png")});
        open.command = true;
        open.trigger = 0;
        BPrivate::MenuItemState quit = Item(14, "Quit");
        quit.trigger = 0;
        BPrivate::MenuItemState file = SubmenuOf(1, "File", {open, Separator(13), quit});
        file.trigger = 0;
        BPrivate::MenuItemState off = Item(20, "Off");
        off.enabled = false;
        Set({file, SubmenuOf(2, "View", {off, Item(21, "On"), SubmenuOf(22, "More", {})})});
    }

    QMenuBar& Bar() { return *fScreen.Find<QMenuBar>("MainMenu"); }
    static QMenu& MenuOf(const QWidget& owner, int index) {
        return *owner.actions()[index]->menu();
    }
    QMenu& FirstMenu() { return MenuOf(Bar(), 0); }
    QAction& Entry(int index) { return *FirstMenu().actions()[index]; }

    void Open(int32 item) {
        fScreen.Window().OpenMenu(kBar, item);
        Pump();
    }
    void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(fScreen.Widget().windowHandle(), key, modifiers);
    }
    static void Click(QMenu& menu, int index) {
        const QPoint where = menu.actionGeometry(menu.actions()[index]).center();
        QTest::mouseMove(&menu, where);
        QTest::mouseClick(&menu, Qt::LeftButton, {}, where);
    }

    /// The items chosen so far.
    std::vector<int32> Chosen() {
        Settle();
        std::vector<int32> items;
        for (const BMessage& change : fScreen.Messages().All(BPrivate::kControlChanged))
            items.push_back(change.GetInt32("item", -1));
        return items;
    }
    /// What was told of menus being open.
    std::vector<bool> OpenTold() {
        Settle();
        std::vector<bool> open;
        for (const BMessage& told : fScreen.Messages().All(BPrivate::kMenusOpen))
            open.push_back(told.GetBool("open", false));
        return open;
    }
    /// Until all that was sent has arrived.
    void Settle() {
        Pump();
        BMessenger(&fScreen.Messages()).SendMessage('last');
        fScreen.Expect('last', ++fSettled);
    }

    Screen fScreen;
    int32 fSerial = 0;
    size_t fSettled = 0;
};

inline std::vector<std::string> Texts(const QWidget& owner) {
    std::vector<std::string> texts;
    for (const QAction* entry : owner.actions())
        texts.push_back(entry->text().toStdString());
    return texts;
}

}  // namespace desktop_test
