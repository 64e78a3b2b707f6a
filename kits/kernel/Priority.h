#pragma once

#include <optional>

#include <kernel/OS.h>

namespace BPrivate {

/// The nearest priority that there is.
int32 in_priority_range(int32 priority);

/// The nice value for a priority, in a process whose own is `base` and which may go down to
/// `lowest`; none if that does not reach `base`, so that a thread could not come back.
std::optional<int> nice_for_priority(int32 priority, int base, int lowest);

/// Tells the scheduler about a thread's priority, as far as that can be taken back.
void schedule_thread(pid_t kernelId, int32 priority);

}  // namespace BPrivate
