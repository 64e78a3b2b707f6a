#include "tests/kits/desktop/Input.h"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace desktop_test {

namespace {

void SendKey(QWidget& window, QEvent::Type type, const KeyAction& action) {
    QKeyEvent event(type, action.key, action.modifiers,
        action.scanCode == 0 ? 0 : action.scanCode + 8, 0, 0, QString::fromStdString(action.text),
        action.repeats);
    event.setTimestamp(action.time);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
}

/// The list as another program wrote it, which QMimeData would read and write anew.
class UriListData : public QMimeData {
public:
    explicit UriListData(const std::string& list) : fList(QByteArray::fromStdString(list)) {}
    QStringList formats() const override { return {QStringLiteral("text/uri-list")}; }

protected:
    QVariant retrieveData(const QString& format, QMetaType) const override {
        return format == QStringLiteral("text/uri-list") ? QVariant(fList) : QVariant();
    }

private:
    QByteArray fList;
};

}  // namespace

void PressKey(QWidget& window, const KeyAction& action) {
    SendKey(window, QEvent::KeyPress, action);
}

void ReleaseKey(QWidget& window, const KeyAction& action) {
    SendKey(window, QEvent::KeyRelease, action);
}

void TurnWheel(QWidget& window, QPoint angle, const WheelAction& action) {
    QWheelEvent event(action.where, window.mapToGlobal(action.where), action.pixels, angle,
        Qt::NoButton, Qt::NoModifier, action.phase, false);
    // Qt offers only a user's turns to the widgets around the one under the pointer.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(window.windowHandle(), &event);
}

bool Drop(QWidget& window, const std::string& uriList, Qt::DropActions offered) {
    const UriListData data(uriList);
    // As Qt does for a drag over the window.
    QWidget* under = window.childAt(30, 40);
    QWidget& target = under != nullptr ? *under : window;
    QDragEnterEvent enter(QPoint(30, 40), offered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(QPointF(30, 40), offered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

}  // namespace desktop_test
