#pragma once

#include <QFontMetrics>
#include <QMenu>

namespace BPrivate {

/// A menu whose entries may be commands and open a menu all the same: those are chosen by a click
/// or the Enter key, and their own menus opened by staying on them or by the Right key.
class Menu : public QMenu {
public:
    explicit Menu(QWidget* parent) : QMenu(parent) { setToolTipsVisible(true); }

    /// Highlights the first entry that can be chosen, as the Down key does.
    void HighlightFirst();

    /// Whether the entry sends something when it is chosen; not so a mere title of a menu.
    static bool IsCommand(const QAction& entry) { return entry.data().toBool(); }
    static void SetIsCommand(QAction& entry, bool is) { entry.setData(is); }

    /// A label in Qt's spelling. One that is too wide is shown short, and told whole.
    static void SetLabel(QAction& entry, const QString& label, const QFontMetrics& font);
    /// What was set, whole.
    static QString Label(const QAction& entry);

    /// Closes all open menus and triggers the entry.
    static void Choose(QAction& entry);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QAction* EntryOfEnter() const;
    QAction* EntryOfTrigger(const QKeyEvent& event) const;

    bool fPressed = false;  // a button was pressed in this menu, or dragged into it
};

}  // namespace BPrivate
