#pragma once

#include <QObject>
#include <app/Message.h>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "kits/desktop/ControlWidget.h"
#include "kits/desktop/MenuKeys.h"
#include "kits/interface/Display.h"

class QKeyEvent;

namespace BPrivate {

/// The controls of one window. Main thread only.
class ControlSet : public QObject {
public:
    /// What the set tells its window.
    struct Listener {
        /// A message for the looper; "when" is still missing.
        std::function<void(BMessage& message)> send;
        /// A key event that is not for the control but for the kits.
        std::function<void(const QKeyEvent& event)> key;
    };

    ControlSet(QWidget& window, Listener listener);
    ~ControlSet() override;

    void Set(ControlId id, const ControlState& state, int32 serial);
    void Place(ControlId id, const ControlPlace& place);
    void Remove(ControlId id);
    void OpenMenu(ControlId bar, int32 item);

    /// The control that has the keyboard, 0 when it is the window's own content.
    ControlId Focused() const { return fFocused; }

    /// Gives the kits the keys that mean something in every control, and controls those that they
    /// answer to in the whole window.
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Entry {
        std::unique_ptr<ControlWidget> control;
        int32 serial = 0;
        std::string name;  // as was told
        std::string description;
    };

    /// Takes a key that moves the focus within a control, or that a control answers to wherever in
    /// the window the focus is.
    bool IsForDesktop(const QKeyEvent& key, const QObject* receiver);
    void FocusChanged(const QWidget* now);
    void Focus(ControlId id);

    QWidget& fWindow;
    Listener fListener;
    MenuKeys fMenuKeys;
    std::map<ControlId, Entry> fControls;
    ControlId fFocused = 0;
    bool fMovingFocus = false;  // by the program
};

}  // namespace BPrivate
