#include <QKeyEvent>
#include <QMenuBar>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/Menu.h"
#include "kits/desktop/MenuReading.h"
#include "kits/desktop/MenuTree.h"

namespace BPrivate {

namespace {

class Bar : public QMenuBar {
public:
    explicit Bar(QWidget* parent) : QMenuBar(parent) {}

    /// As high without menus as with them.
    QSize sizeHint() const override {
        const QSize hint = QMenuBar::sizeHint();
        QMenuBar filled;
        filled.setFont(font());
        filled.addAction(QStringLiteral("M"));
        return {hint.width(), std::max(hint.height(), filled.sizeHint().height())};
    }

    /// Keeps Qt from giving the bar the keyboard when the Alt key is pressed alone.
    bool eventFilter(QObject* receiver, QEvent* event) override {
        const bool isKey = event->type() == QEvent::ShortcutOverride ||
            event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
        return !isKey && QMenuBar::eventFilter(receiver, event);
    }
};

class MenuBarWidget : public ControlWidget {
public:
    MenuBarWidget(Bar* bar, ControlReport report)
        : ControlWidget(bar), fBar(*bar),
          fReport(std::move(report)), fEvents{[this](int32 item) { ReportChosen(item); },
                                          [this] { Shown(); }, [this] { fClosing.start(0); }},
          fMenus(fBar, fEvents) {
        // One menu is closed before the next is opened.
        fClosing.setSingleShot(true);
        QObject::connect(&fClosing, &QTimer::timeout, &fBar, [this] { TellClosed(); });
    }

    void SetState(const ControlState& state) override {
        fMenus.Update(std::get<MenuBarState>(state).items);
    }

    void OpenMenu(int32 item) override {
        QAction* title = item == 0 ? FirstMenu() : fMenus.EntryOf(item);
        if (title == nullptr || !title->isEnabled() || !fBar.isVisible() || !fBar.isEnabled())
            return;
        if (title->menu() == nullptr) {
            title->trigger();
            return;
        }
        fBar.setActiveAction(title);
        static_cast<Menu*>(title->menu())->HighlightFirst();
    }

    void CloseMenus() override {
        for (const QAction* title : fBar.actions()) {
            if (title->menu() != nullptr)
                title->menu()->close();
        }
        TellClosed();
    }

private:
    QAction* FirstMenu() const {
        for (QAction* title : fBar.actions()) {
            if (title->menu() != nullptr && title->isEnabled())
                return title;
        }
        return nullptr;
    }

    bool IsAnyOpen() const {
        return std::ranges::any_of(fBar.actions(), [](const QAction* title) {
            return title->menu() != nullptr && title->menu()->isVisible();
        });
    }

    void ReportChosen(int32 item) {
        BMessage change;
        change.AddInt32("item", item);
        fReport(change);
    }

    void Shown() {
        fClosing.stop();
        if (!std::exchange(fOpen, true))
            ReportOpen();
    }

    void TellClosed() {
        fClosing.stop();
        if (fOpen && !IsAnyOpen()) {
            fOpen = false;
            ReportOpen();
        }
    }

    void ReportOpen() {
        BMessage change(kMenusOpen);
        change.AddBool("open", fOpen);
        fReport(change);
    }

    Bar& fBar;
    const ControlReport fReport;
    const MenuEvents fEvents;
    QTimer fClosing;
    MenuTree fMenus;
    bool fOpen = false;
};

}  // namespace

std::unique_ptr<ControlWidget> MakeMenuBar(QWidget* parent, ControlReport report) {
    TellMenusToScreenReaders();
    return std::make_unique<MenuBarWidget>(new Bar(parent), std::move(report));
}

}  // namespace BPrivate
