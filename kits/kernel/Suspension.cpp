#include "kits/kernel/Suspension.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <mutex>

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace BPrivate {

namespace {

static_assert(std::atomic<int32>::is_always_lock_free && sizeof(std::atomic<int32>) == 4,
    "a futex is a plain 32-bit word, and a signal handler may use nothing that locks");

constinit thread_local std::atomic<Thread*> tWatched{nullptr};
constinit thread_local std::atomic<int32> tHeldOff{0};

/// The signal that asks. The first real-time signals are the ones other libraries take.
int stop_signal() {
    return SIGRTMIN + 7;
}

// The system call itself: it may be used in a signal handler.
void futex_wait(std::atomic<int32>& word, int32 whileValue, const timespec* timeout = nullptr) {
    syscall(SYS_futex, &word, FUTEX_WAIT_PRIVATE, whileValue, timeout, nullptr, 0);
}

void futex_wake(std::atomic<int32>& word) {
    syscall(SYS_futex, &word, FUTEX_WAKE_PRIVATE, INT32_MAX, nullptr, nullptr, 0);
}

void stay(Thread& self) {
    if (self.suspended == 0)
        return;
    self.parked = 1;
    futex_wake(self.parked);
    while (self.suspended != 0)
        futex_wait(self.suspended, 1);
    self.parked = 0;
}

void handle_stop(int) {
    const int error = errno;
    Thread* const self = tWatched;
    // Held off: the thread stops by itself when it allows it again.
    if (self != nullptr && tHeldOff == 0)
        stay(*self);
    errno = error;
}

void install_handler() {
    struct sigaction action = {};
    action.sa_handler = handle_stop;
    action.sa_flags = SA_RESTART;
    // A stopped thread runs no other handler either.
    sigfillset(&action.sa_mask);
    sigaction(stop_signal(), &action, nullptr);
}

}  // namespace

void watch_for_suspension(Thread* self) {
    tWatched = self;
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, stop_signal());
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

void hold_off_suspension() {
    tHeldOff++;
}

void allow_suspension(Thread* self) {
    if (--tHeldOff == 0 && self != nullptr)
        stay(*self);
}

void ask_to_stop(Thread& thread) {
    static std::once_flag installed;
    std::call_once(installed, install_handler);
    thread.suspended = 1;
    pthread_kill(thread.handle, stop_signal());
}

void await_stop(Thread& thread, bigtime_t timeout) {
    const bigtime_t deadline = system_time() + timeout;
    while (thread.parked == 0) {
        const bigtime_t left = deadline - system_time();
        if (left <= 0)
            return;
        const timespec time = {left / 1000000, left % 1000000 * 1000};
        futex_wait(thread.parked, 0, &time);
    }
}

void let_go_on(Thread& thread) {
    thread.suspended = 0;
    futex_wake(thread.suspended);
}

}  // namespace BPrivate
