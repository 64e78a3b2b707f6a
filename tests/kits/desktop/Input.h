#pragma once

// What a user does at a window, as the windowing system tells it to Qt.

#include <QWidget>
#include <string>

namespace desktop_test {

/// One key event. `scanCode` is the kernel's.
struct KeyAction {
    int key;
    std::string text = {};
    Qt::KeyboardModifiers modifiers = {};
    bool repeats = false;
    uint32_t scanCode = 0;
    uint64_t time = 0;  ///< in milliseconds; 0 when unknown
};

void PressKey(QWidget& window, const KeyAction& action);
void ReleaseKey(QWidget& window, const KeyAction& action);

/// How the wheel is turned where it is not plainly so.
struct WheelAction {
    QPointF where = {30, 40};
    QPoint pixels = {};
    Qt::ScrollPhase phase = Qt::NoScrollPhase;
};

/// Turns the wheel by the angle, as Qt has it.
void TurnWheel(QWidget& window, QPoint angle, const WheelAction& action = {});

/// Drops a list of URLs.
/// \return whether the window took it
bool Drop(QWidget& window, const std::string& uriList, Qt::DropActions offered);

}  // namespace desktop_test
