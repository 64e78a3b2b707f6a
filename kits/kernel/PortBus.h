#pragma once

// Ports of other processes, and this one's ports for them: docs/between-applications.md.

#include <string>

#include <kernel/OS.h>

#include "kits/kernel/Payload.h"

namespace BPrivate {

/// What came of a message that another process writes; what the bus method `Write` returns.
enum class PortResult : uint32 {
    kWritten = 0,
    kNoPort = 1,
    kFull = 2,
    kTooLate = 3,
    kNoMemory = 4,
    kBadMessage = 5,
};

/// Names a write of another process that waits for room, while it does. Never 0.
using HeldWrite = uint64;

/// The largest message, and how much a port may hold.
constexpr size_t kMostPortBytes = size_t{256} << 20;

/// Takes the name for a port of this process; waits. B_NAME_IN_USE; B_OK also without a bus.
/// B_INTERRUPTED when the calling thread has been killed: then the name is not taken.
[[nodiscard]] status_t claim_port_name(const std::string& name);

/// Gives it up; returns when the bus knows, also in a killed thread.
void release_port_name(const std::string& name);

/// A port of another process, found by its name.
struct FoundPort {
    std::string owner;  ///< its process, by the name that nobody else will ever have
    port_id port = 0;   ///< in that process
};
[[nodiscard]] status_t find_port_elsewhere(const std::string& name, FoundPort& found);

/// Writes to it, and waits until `deadline` for room; with `mayWait` false not at all.
[[nodiscard]] status_t write_port_elsewhere(const FoundPort& port, int32 code, const void* buffer,
    size_t size, bool mayWait, bigtime_t deadline);

/// Says what came of a write that waited. From any thread, also under the kernel kit's lock.
void end_held_write(HeldWrite write, PortResult result);

// What the bus asks of this process's ports. Each of them takes the kernel kit's lock.

enum class OfferResult { kWritten, kHeld, kFull, kNoPort };

/// The port of that name in this process, 0 for none.
port_id local_port_named(const std::string& name);
/// Puts a message into a port, or has it wait for room as `write` if it may.
OfferResult offer_to_port(port_id port, int32 code, Payload payload, bool mayWait, HeldWrite write);
/// Takes back a write that waits; false when it waits no longer.
bool withdraw_from_port(port_id port, HeldWrite write);

}  // namespace BPrivate
