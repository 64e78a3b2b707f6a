#pragma once

// Threads, semaphores and time.
//
// Every function here may be called from any thread, also from one that the kits did not start
// (it gets an id the first time it asks for anything).
//
// A thread ends when its function returns, when it calls exit_thread(), or when it is killed.
// exit_thread() and kill_thread() unwind the thread's stack, so its destructors run; code of
// such a thread must not swallow everything with `catch (...)`, and must not call exit_thread(),
// snooze() or acquire_sem() from a destructor or another `noexcept` function.

#include <support/SupportDefs.h>

using thread_id = int32;
using team_id = int32;
using sem_id = int32;
using port_id = int32;

/// A thread's function; what it returns is the thread's exit status.
using thread_func = int32 (*)(void* data);

constexpr bigtime_t B_INFINITE_TIMEOUT = INT64_MAX;

/// How `acquire_sem_etc()` takes its timeout, and how `release_sem_etc()` hands over.
enum : uint32 {
    B_DO_NOT_RESCHEDULE = 0x02,
    B_RELATIVE_TIMEOUT = 0x08,
    B_TIMEOUT = B_RELATIVE_TIMEOUT,
    B_ABSOLUTE_TIMEOUT = 0x10,
};

/// The timebase of `snooze_until()`: that of `system_time()`.
constexpr int32 B_SYSTEM_TIMEBASE = 0;

enum : int32 {
    B_IDLE_PRIORITY = 0,
    B_LOWEST_ACTIVE_PRIORITY = 1,
    B_LOW_PRIORITY = 5,
    B_NORMAL_PRIORITY = 10,
    B_DISPLAY_PRIORITY = 15,
    B_URGENT_DISPLAY_PRIORITY = 20,
    B_REAL_TIME_DISPLAY_PRIORITY = 100,
    B_URGENT_PRIORITY = 110,
    B_REAL_TIME_PRIORITY = 120,
};

enum thread_state : int32 {
    B_THREAD_RUNNING = 1,  // the calling thread
    B_THREAD_READY,        // runs, or would if a processor were free
    B_THREAD_RECEIVING,
    B_THREAD_ASLEEP,     // in snooze()
    B_THREAD_SUSPENDED,  // not resumed yet, or suspended
    B_THREAD_WAITING,    // for a semaphore
};

struct thread_info {
    thread_id thread;
    team_id team;
    char name[B_OS_NAME_LENGTH];
    thread_state state;
    int32 priority;
    sem_id sem;  // the semaphore it waits for, or -1
};

struct sem_info {
    sem_id sem;
    team_id team;
    char name[B_OS_NAME_LENGTH];
    int32 count;  // negative: so many are missing for those who wait
    thread_id latest_holder;
};

// #pragma mark - Threads

/// Creates a thread that waits, suspended, for its first `resume_thread()` before it calls
/// `func(data)`. A name longer than 31 bytes is cut at a character's end; the priority is
/// brought into 1 to 120. Returns its id (positive, not used again soon), `B_BAD_VALUE` without
/// a function, or `B_NO_MORE_THREADS`.
thread_id spawn_thread(thread_func func, const char* name, int32 priority, void* data);

/// Starts a spawned thread, or lets a suspended one go on. `B_BAD_THREAD_STATE` if it is not
/// suspended, in which case nothing happens; `B_BAD_THREAD_ID`.
status_t resume_thread(thread_id thread);

/// Stops a thread where it is until `resume_thread()`. A thread other than the calling one
/// stops a little after the call returned, but its state is `B_THREAD_SUSPENDED` at once. It
/// keeps what it has locked, the C library's own locks included, so this is for threads known
/// to hold nothing. Suspending a suspended thread changes nothing.
status_t suspend_thread(thread_id thread);

/// Ends another thread and returns when it has ended; its exit status is `B_INTERRUPTED` and its
/// `on_exit_thread()` hooks are not called, so that the owner of an object can end the thread
/// that works on it and then free the object.
///
/// A thread that was never resumed ends without having run. A running one ends as soon as it is
/// in snooze() or acquire_sem(), or returns from its function. If it does neither within a
/// second it is stopped for good where it is: it never touches anything again, but what it had
/// locked stays locked and what it had allocated stays allocated. Do not hold a lock that the
/// thread may want.
///
/// `B_BAD_THREAD_ID` if there is no such thread any more; `B_NOT_ALLOWED` for a thread that
/// `spawn_thread()` did not create. A thread that kills itself ends as by exit_thread(), without
/// its hooks.
status_t kill_thread(thread_id thread);

/// Gives a thread another name. It is cut as in `spawn_thread()`.
status_t rename_thread(thread_id thread, const char* name);

/// Sets a thread's priority (1 to 120; brought into that range) and returns the one it had. The
/// number is always kept. It changes what the scheduler does only where this user may also
/// raise a priority again, so that a thread is never lowered for ever.
status_t set_thread_priority(thread_id thread, int32 priority);

/// Waits until a thread has ended and stores its exit status. Resumes it if it is suspended. The
/// status of a thread that ended earlier is kept for those who wait later, until it has been
/// asked for once or very many threads have ended since. `B_BAD_THREAD_ID` if there is none
/// such; `B_NOT_ALLOWED` for the calling thread.
status_t wait_for_thread(thread_id thread, status_t* returnValue);

/// Ends the calling thread with this exit status, after its hooks.
[[noreturn]] void exit_thread(status_t returnValue);

/// Has `callback(data)` called on the calling thread when it ends by returning or by
/// exit_thread(). The last one given is called first. `B_NOT_ALLOWED` on a thread that
/// `spawn_thread()` did not create.
status_t on_exit_thread(void (*callback)(void* data), void* data);

/// The thread of that name, or the calling thread if `name` is null. `B_NAME_NOT_FOUND`.
thread_id find_thread(const char* name);

/// What is known about a thread. `B_BAD_THREAD_ID` if it has ended.
status_t get_thread_info(thread_id thread, thread_info* info);

/// Goes through this program's threads: start with a cookie of 0, and `B_BAD_VALUE` ends the
/// round. `team` is 0 or this program's own id.
status_t get_next_thread_info(team_id team, int32* cookie, thread_info* info);

// #pragma mark - Time

/// Microseconds since the system started; never goes back.
bigtime_t system_time();

/// Seconds, or microseconds, since 1970 (UTC).
uint32 real_time_clock();
bigtime_t real_time_clock_usecs();

/// Sleeps for so many microseconds; returns at once if that is not positive.
status_t snooze(bigtime_t microseconds);

/// Sleeps until `system_time()` has reached `time`.
status_t snooze_until(bigtime_t time, int32 timebase);

// #pragma mark - Semaphores

/// Creates a semaphore with that many units. `B_BAD_VALUE` for a negative count,
/// `B_NO_MORE_SEMS`.
sem_id create_sem(int32 count, const char* name);

/// Deletes a semaphore; who waits for it gets `B_BAD_SEM_ID`.
status_t delete_sem(sem_id sem);

/// Takes one unit, waiting as long as it needs. Threads are served in the order they came.
status_t acquire_sem(sem_id sem);

/// Takes `count` units together. With `B_RELATIVE_TIMEOUT` waits at most `timeout`
/// microseconds, with `B_ABSOLUTE_TIMEOUT` until `system_time()` has reached it, with neither
/// for ever. `B_WOULD_BLOCK` if it would have had to wait but may not, `B_TIMED_OUT`,
/// `B_BAD_SEM_ID`, `B_BAD_VALUE` for a count below 1.
status_t acquire_sem_etc(sem_id sem, int32 count, uint32 flags, bigtime_t timeout);

/// Gives one unit back, or `count`. Any thread may.
status_t release_sem(sem_id sem);
status_t release_sem_etc(sem_id sem, int32 count, uint32 flags);

/// The semaphore's units at this moment.
status_t get_sem_count(sem_id sem, int32* count);
status_t get_sem_info(sem_id sem, sem_info* info);

// #pragma mark - Ports

// Queues of messages, found by name by every process of the user's session. A port ends with
// delete_port() and with the process that made it, however that ends. Where there is no session
// bus a port is found by the process that made it, and by no other.
//
// Messages are bytes, at most 256 MiB, each with a code. They come out in the order they went in.
// A port is full when it has as many messages as its capacity, or 256 MiB in them.
//
// What waits here ends a killed thread as acquire_sem() does. A timeout is in microseconds and
// taken as in acquire_sem_etc(): with B_RELATIVE_TIMEOUT or B_ABSOLUTE_TIMEOUT, without either
// for ever. B_WOULD_BLOCK if it would have had to wait but may not, B_TIMED_OUT.

/// Makes a port for `capacity` messages. A name longer than 31 bytes is cut at a character's end.
/// `B_BAD_VALUE` for less than one and for no name, `B_NAME_IN_USE` when this process or another
/// one of the session has a port of that name, `B_NO_MORE_PORTS`.
port_id create_port(int32 capacity, const char* name);
/// The port of that name, here or in another process; `B_NAME_NOT_FOUND` when there is none. The
/// id means this one port: it is of no use once that has ended, also when another has its name.
port_id find_port(const char* name);
/// Puts a message at the end, and waits while the port is full. `B_BAD_PORT_ID` when there is no
/// such port (any more), `B_BAD_VALUE` for a message that is too large, `B_NO_MEMORY`.
status_t write_port(port_id port, int32 code, const void* buffer, size_t size);
status_t write_port_etc(port_id port, int32 code, const void* buffer, size_t size, uint32 flags,
    bigtime_t timeout);

// Only the process that made a port can do what follows; in others it is `B_NOT_ALLOWED`.

/// Takes the first message, and waits for one. Only as many bytes as fit are copied, the rest is
/// lost. `code` may be null. @return the bytes copied, or an error.
ssize_t read_port(port_id port, int32* code, void* buffer, size_t size);
ssize_t read_port_etc(port_id port, int32* code, void* buffer, size_t size, uint32 flags,
    bigtime_t timeout);
/// The size of the first message; waits for one.
ssize_t port_buffer_size(port_id port);
ssize_t port_buffer_size_etc(port_id port, uint32 flags, bigtime_t timeout);
/// The number of messages waiting.
ssize_t port_count(port_id port);
/// Nothing more can be written, and who waits to gets `B_BAD_PORT_ID`; what is in the port can
/// still be read.
status_t close_port(port_id port);
/// Who waits for the port gets `B_BAD_PORT_ID`.
status_t delete_port(port_id port);
