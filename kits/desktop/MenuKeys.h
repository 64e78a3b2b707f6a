#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <set>

class QKeyEvent;

namespace BPrivate {

/// Keeps a window's keys and those of its open menus apart, and Qt's shortcuts from both: a key
/// that was pressed in a menu is not released, nor repeated, in the window after the menu has
/// closed, and one that was pressed in the window is released there though a menu has opened.
class MenuKeys : public QObject {
public:
    /// \param released takes the release of a key that a menu got and the window is owed
    MenuKeys(QWidget& content, std::function<void(const QKeyEvent& event)> released);
    ~MenuKeys() override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

    /// Whether the key event that is being handled is an open menu's, which offers those it has no
    /// use for to its bar.
    bool IsMenus() const { return fIsMenus; }

private:
    bool HasMenuOpen() const;
    void Follow(const QKeyEvent& event);

    QWidget& fContent;
    const std::function<void(const QKeyEvent& event)> fReleased;
    std::set<quint32> fTaken;  // keys that went to a menu and are held
    quint32 fOffered = 0;      // the key a menu was asked about before it was pressed
    bool fIsMenus = false;     // the event that is being handled is none of the window's
};

}  // namespace BPrivate
