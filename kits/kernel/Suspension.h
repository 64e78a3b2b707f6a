#pragma once

// Stopping a thread where it is.
//
// A thread is asked to stop by a signal; its handler waits until the thread's `suspended` is 0
// again. Between hold_off_suspension() and allow_suspension() the signal has no effect, and the
// thread stops in the latter instead. Nothing here allocates or takes a lock, except as noted.

#include "kits/kernel/Thread.h"

namespace BPrivate {

/// Makes the calling thread, whose record this is, one that can be suspended; with null, one
/// that cannot any more.
void watch_for_suspension(Thread* self);

/// Keeps the calling thread from being suspended. May be nested.
void hold_off_suspension();
void allow_suspension(Thread* self);

/// Asks another thread to stop; needs the lock.
void ask_to_stop(Thread& thread);

/// Waits at most so many microseconds until a thread that was asked has stopped. Without the
/// lock, which the thread may want before it can.
void await_stop(Thread& thread, bigtime_t timeout);

/// Lets a suspended thread go on.
void let_go_on(Thread& thread);

}  // namespace BPrivate
