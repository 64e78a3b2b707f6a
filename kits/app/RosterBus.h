#pragma once

// The running applications, as they know each other over the session bus:
// docs/between-applications.md. Without a bus there is only this one.

#include <app/Message.h>
#include <app/Messenger.h>
#include <string>

namespace BPrivate {

/// The bus name that stands for the running applications of a signature.
std::string application_bus_name(const std::string& signature);

/// Counts this process among the running applications; broadcasts go to the target. Does not
/// wait for the bus.
void join_roster(const std::string& signature, const BMessenger& target);

/// Ends that. Returns when everything that was broadcast is on its way, after a second at most.
void leave_roster();

/// Whether an application of that signature runs; waits for the bus.
bool is_running(const std::string& signature);

/// Whether another process may send that command: not those that only the kits themselves send.
bool may_come_from_outside(uint32 what);

/// Sends the message to all other running applications, without what means something in this
/// process only. Does not wait. B_BAD_VALUE when it is too large, B_NO_MEMORY when far too much
/// is already on its way.
[[nodiscard]] status_t broadcast_to_others(const BMessage& message);

}  // namespace BPrivate
