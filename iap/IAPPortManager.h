#pragma once

#include "framework/Thread.h"

#include <app/Messenger.h>
#include <atomic>

/// By this port applications reach the one common preferences window of the session. Every message
/// on it is a flattened BMessage with the code 0.
inline constexpr char kIAPPortName[] = "ZELKANIAPPort";
inline constexpr int32 kIAPPortCapacity = 100;

// What stands for a port in Port().
inline constexpr port_id kIAPPortPending = -400;  ///< the thread has not tried yet
inline constexpr port_id kIAPPortFailed = -500;

/// The thread that makes the port, and gives what arrives there to the common preferences view.
///
/// Any program of the session can write to the port. What is no request of the protocol's, what is
/// far too large for one, and what comes faster than the view takes it is dropped here.
///
/// The target has to outlive the thread: its owner calls Terminate(), PreventBlocking() and Wait().
class TIAPPortManager final : public TThread {
public:
    explicit TIAPPortManager(const BMessenger& target);
    ~TIAPPortManager() override;

    /// The port's id once there is one. Any thread.
    port_id Port() const;
    /// Lets a thread that waits at the port look at its orders.
    status_t PreventBlocking() const;

    int32 Execute() override;

private:
    enum class Taken { kMessage, kNothing, kPortIsGone };

    /// Takes what is next at the port, and waits for it. Bytes that are no flattened message leave
    /// the message as it is, and count as one.
    Taken TakeNext(BMessage* message) const;
    void PassOn(BMessage* message) const;

    std::atomic<port_id> fPort;
    const BMessenger fTarget;
};
