#pragma once

#include <QObject>
#include <array>
#include <atomic>
#include <interface/InterfaceDefs.h>
#include <support/SupportDefs.h>

class QKeyEvent;

namespace BPrivate {

/// Which keys are held, followed from the events of the process's windows.
///
/// Lives on the main thread and sees every event before its window does; Modifiers() and
/// GetKeyInfo() may be called from any thread and do not wait. Keys pressed while another program
/// has the keyboard are not known; losing the keyboard releases all.
class Keyboard : public QObject {
public:
    Keyboard();
    ~Keyboard() override;

    /// Until the first event the windowing system is asked, on the main thread.
    uint32 Modifiers() const;
    void GetKeyInfo(key_info& info) const;

    /// How often the key that was pressed last has repeated. Main thread only.
    int32 RepeatCount() const { return fRepeatCount; }

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void HandleKey(const QKeyEvent& event, bool press);
    bool IsRepeat(const QKeyEvent& press);
    void SetHeld(int32 key, bool held);
    bool IsHeld(int32 key) const;
    void ReleaseAll();
    void AskWindowSystem();

    std::atomic<uint32> fModifiers{0};
    std::array<std::atomic<uint8>, sizeof(key_info::key_states)> fHeld{};
    std::atomic<bool> fHeardEvent{false};
    int32 fRepeatCount = 0;
    uint64 fPressTime = 0;  // in milliseconds
};

}  // namespace BPrivate
