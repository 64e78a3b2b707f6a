#pragma once

// What this process answers on the bus for its ports. For the bus's thread only.

#include <map>
#include <string>

#include "kits/kernel/Bus.h"
#include "kits/kernel/PortBus.h"

namespace BPrivate {

class PortService {
public:
    static constexpr char kPath[] = "/org/lorivane/Ports";
    static constexpr char kInterface[] = "org.lorivane.Ports";

    static PortService& Get();

    /// Begins to answer, the first time it is called.
    void Begin(sd_bus* bus);

    /// Whether a peer's process belongs to this user.
    static bool IsTrusted(const std::string& peer);

    /// Answers a write that was held.
    void EndHeld(HeldWrite write, PortResult result);

    // The methods of the bus interface.
    int Open(sd_bus_message* call);
    int Write(sd_bus_message* call);
    int Withdraw(sd_bus_message* call);

private:
    /// A write that waits for room.
    struct Held {
        sd_bus_message* call;
        std::string sender;
        port_id port;
        uint32 serial;
        Bus::Later expiry;
    };
    using HeldWrites = std::map<HeldWrite, Held>;

    PortService() = default;
    void Hold(HeldWrite write, sd_bus_message* call, port_id port, uint32 serial, uint64 until);
    HeldWrites::iterator Drop(HeldWrites::iterator held);
    /// Takes a write out of its port that was not served yet, and answers it.
    void GiveUp(HeldWrites::iterator held, PortResult result);
    void DropAllOf(const std::string& sender);

    bool fBegun = false;
    HeldWrite fLastWrite = 0;
    HeldWrites fHeld;
    std::map<std::string, int32> fHeldBySender;
};

}  // namespace BPrivate
