#include <QTimer>
#include <cmath>
#include <utility>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/Menu.h"
#include "kits/desktop/MenuReading.h"
#include "kits/desktop/MenuTree.h"

namespace BPrivate {

namespace {

/// A menu that stands nowhere until it is opened. The control itself is never seen.
class PopUpMenuWidget : public ControlWidget {
public:
    PopUpMenuWidget(QWidget* anchor, ControlReport report)
        : ControlWidget(anchor), fAnchor(*anchor), fMenu(*new Menu(anchor)),
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
    return std::make_unique<PopUpMenuWidget>(new QWidget(parent), std::move(report));
}

}  // namespace BPrivate
