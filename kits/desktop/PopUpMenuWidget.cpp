#include <QAccessibleWidget>
#include <QTimer>
#include <cmath>
#include <utility>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/Menu.h"
#include "kits/desktop/MenuReading.h"
#include "kits/desktop/MenuTree.h"

namespace BPrivate {

namespace {

/// What a menu that stands nowhere belongs to, in the window. It is never seen itself.
class Anchor : public QWidget {
public:
    explicit Anchor(QWidget* parent) : QWidget(parent), fMenu(*new Menu(this)) {}

    Menu& OwnMenu() const { return fMenu; }

private:
    Menu& fMenu;
};

/// Leads screen readers to the menu, since Qt takes a menu for a window and no part of another.
class AnchorReading : public QAccessibleWidget {
public:
    explicit AnchorReading(Anchor& anchor) : QAccessibleWidget(&anchor), fAnchor(anchor) {}

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(&fAnchor.OwnMenu()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == &fAnchor.OwnMenu() ? 0 : -1;
    }

private:
    const Anchor& fAnchor;
};

QAccessibleInterface* MakePopUpReading(const QString&, QObject* object) {
    auto* anchor = dynamic_cast<Anchor*>(object);
    return anchor != nullptr ? new AnchorReading(*anchor) : nullptr;
}

void TellAnchorsToScreenReaders() {
    static const bool told = (QAccessible::installFactory(MakePopUpReading), true);
    (void)told;
}

/// A menu that stands nowhere until it is opened.
class PopUpMenuWidget : public ControlWidget {
public:
    PopUpMenuWidget(Anchor* anchor, ControlReport report)
        : ControlWidget(anchor), fAnchor(*anchor), fMenu(anchor->OwnMenu()),
          fReport(std::move(report)), fEvents{
                                          [this](int32 item) { TellChosen(item); }, [] {}, [] {}},
          fItems(fMenu, fEvents) {
        // What is chosen is told when the menu is closed already, and has to arrive first.
        fClosing.setSingleShot(true);
        QObject::connect(&fClosing, &QTimer::timeout, &fMenu, [this] { TellClosed(); });
        QObject::connect(&fMenu, &QMenu::aboutToHide, &fMenu, [this] { fClosing.start(0); });
    }

    void SetState(const ControlState& state) override {
        const auto& menu = std::get<PopUpMenuState>(state);
        fWhere = {
            static_cast<int>(std::floor(menu.where.x)), static_cast<int>(std::floor(menu.where.y))};
        fByKeyboard = menu.byKeyboard;
        fItems.Update(menu.items);
    }

    void OpenMenu(int32) override {
        if (fMenu.isVisible())
            fMenu.close();
        TellClosed();
        fTellsClosed = true;
        // A window that has gone from the screen meanwhile opens none.
        if (!fAnchor.parentWidget()->isVisible() || fAnchor.window()->isMinimized()) {
            TellClosed();
            return;
        }
        fMenu.popup(fAnchor.parentWidget()->mapToGlobal(fWhere));
        if (!fMenu.isVisible())
            TellClosed();
        else if (fByKeyboard)
            fMenu.HighlightFirst();
    }

    void CloseMenus() override { fMenu.close(); }

    void SetAccessibleName(const QString& name) override { fMenu.setAccessibleName(name); }

private:
    void TellChosen(int32 item) {
        BMessage change;
        change.AddInt32("item", item);
        fReport(change);
    }

    void TellClosed() {
        fClosing.stop();
        if (!std::exchange(fTellsClosed, false))
            return;
        BMessage change;
        change.AddBool("closed", true);
        fReport(change);
    }

    QWidget& fAnchor;
    Menu& fMenu;
    const ControlReport fReport;
    const MenuEvents fEvents;
    QTimer fClosing;
    MenuTree fItems;
    QPoint fWhere;
    bool fByKeyboard = false;
    bool fTellsClosed = false;
};

}  // namespace

std::unique_ptr<ControlWidget> MakePopUpMenu(QWidget* parent, ControlReport report) {
    TellMenusToScreenReaders();
    TellAnchorsToScreenReaders();
    return std::make_unique<PopUpMenuWidget>(new Anchor(parent), std::move(report));
}

}  // namespace BPrivate
