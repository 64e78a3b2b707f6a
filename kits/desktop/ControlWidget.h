#pragma once

#include <QString>
#include <QWidget>
#include <app/Message.h>
#include <functional>
#include <memory>
#include <vector>

#include "kits/interface/Display.h"

class QKeyEvent;

namespace BPrivate {

/// Ends a widget once nothing of it is running any more: a control may be removed from within an
/// event loop of its own, as that of a menu.
struct DeleteLater {
    void operator()(QWidget* widget) const {
        widget->hide();
        widget->deleteLater();
    }
};

/// Tells that the user changed the control; the message has the fields of the new value, and a
/// `what` only when it is something else that happened.
using ControlReport = std::function<void(BMessage& change)>;

/// One control on the screen. Main thread only. Only what the user does is reported.
class ControlWidget {
public:
    virtual ~ControlWidget() = default;
    ControlWidget(const ControlWidget&) = delete;
    ControlWidget& operator=(const ControlWidget&) = delete;

    QWidget& Widget() { return *fWidget; }
    /// The part that takes the keys.
    virtual QWidget& FocusWidget() { return *fWidget; }
    /// All parts that take the keys, in the order the Tab key goes through them.
    virtual std::vector<QWidget*> KeyWidgets() { return {&FocusWidget()}; }
    /// Whether the press of a key, in whichever control, was for this one.
    virtual bool TakeWindowKey(const QKeyEvent& /*event*/) { return false; }
    /// Shows the state, which is of the control's own kind.
    virtual void SetState(const ControlState& state) = 0;
    /// Only a menu bar has menus: opens that of the item, of the first for 0. A pop-up menu is one.
    virtual void OpenMenu(int32 /*item*/) {}
    /// Closes its open menus and tells it.
    virtual void CloseMenus() {}
    virtual void SetAccessibleName(const QString& name) { fWidget->setAccessibleName(name); }

protected:
    explicit ControlWidget(QWidget* widget) : fWidget(widget) {}

private:
    std::unique_ptr<QWidget, DeleteLater> fWidget;
};

/// Makes the control that shows states of this kind, hidden, on top of the parent's other ones.
std::unique_ptr<ControlWidget> MakeControlWidget(
    const ControlState& state, QWidget* parent, ControlReport report);

/// The text as a widget's label: an ampersand marks no shortcut of Qt's.
QString LabelText(const std::string& utf8);

// One for each kind, called by MakeControlWidget().
std::unique_ptr<ControlWidget> MakeScrollBar(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeStringView(QWidget* parent);
std::unique_ptr<ControlWidget> MakeBox(QWidget* parent);
std::unique_ptr<ControlWidget> MakeButton(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeCheckBox(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeRadioButton(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeTextControl(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeMenuBar(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakePopUpMenu(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeMenuField(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeSlider(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeListView(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeTabView(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeColorControl(QWidget* parent, ControlReport report);
std::unique_ptr<ControlWidget> MakeAlertText(QWidget* parent);
std::unique_ptr<ControlWidget> MakeFilePanel(QWidget* parent, ControlReport report);

}  // namespace BPrivate
