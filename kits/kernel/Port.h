#pragma once

#include <condition_variable>
#include <deque>
#include <list>
#include <memory>
#include <string>
#include <utility>

#include "kits/kernel/PortBus.h"

namespace BPrivate {

struct PortMessage {
    int32 code = 0;
    Payload payload;
};

/// Who waits until his message finds room.
struct PortWriter {
    enum class Outcome { kNone, kWritten, kRefused };

    explicit PortWriter(PortMessage&& toWrite, HeldWrite heldWrite = 0)
        : message(std::move(toWrite)), held(heldWrite) {}

    PortMessage message;
    const HeldWrite held;  // of another process; 0: a thread of this one
    Outcome outcome = Outcome::kNone;
    std::condition_variable woken;
};

/// A port of this process. Guarded by the kernel kit's lock.
class Port {
public:
    Port(std::string portName, size_t portCapacity);

    const std::string name;

    /// Whether it can be found and used: its name has been claimed.
    bool isOpen = false;
    /// Whether it takes no more messages.
    bool isClosed = false;
    /// Whether it is gone, for those who still wait for it.
    bool isDeleted = false;
    /// Told when there is a message, and when the port is closed or deleted.
    std::condition_variable change;

    bool IsEmpty() const { return fMessages.empty(); }
    size_t CountMessages() const { return fMessages.size(); }
    const PortMessage& First() const { return fMessages.front(); }

    /// Puts a message in, unless it has to wait for room or for others who do.
    bool Put(PortMessage& message);
    PortMessage TakeFirst();

    void AddWriter(std::shared_ptr<PortWriter> writer);
    /// One who gives up.
    void RemoveWriter(const PortWriter* writer);
    /// Of another process; false when it does not wait here.
    bool RemoveHeld(HeldWrite write);

    /// Lets no more messages in.
    void Close();
    void Delete();

private:
    bool HasRoomFor(const PortMessage& message) const;
    void Add(PortMessage& message);
    /// Serves those who wait, in order, as far as there is room.
    void Serve();

    const size_t fCapacity;
    std::deque<PortMessage> fMessages;
    size_t fBytes = 0;
    std::list<std::shared_ptr<PortWriter>> fWriters;
};

}  // namespace BPrivate
