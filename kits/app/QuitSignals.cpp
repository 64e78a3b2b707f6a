#include "kits/app/QuitSignals.h"

#include <app/AppDefs.h>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

#include "kits/interface/AlertAnswer.h"

namespace BPrivate {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

// What the handler may use: the descriptor to raise, -1 for none.
std::atomic<int> gEvents = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void Raise(int events) {
    const std::uint64_t one = 1;
    // A counter that is full is raised already.
    (void)!write(events, &one, sizeof(one));
}

extern "C" void HandleQuitSignal(int) {
    const int error = errno;
    if (const int events = gEvents; events >= 0)
        Raise(events);
    errno = error;
}

bool HasHandler(int signal, void (*handler)(int)) {
    struct sigaction action;
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == handler;
}

void SetHandler(int signal, void (*handler)(int), int flags) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

}  // namespace

QuitSignals::QuitSignals(const BMessenger& application)
    : fApplication(application), fEvents(eventfd(0, EFD_CLOEXEC)) {
    if (fEvents < 0)
        return;
    gEvents = fEvents;
    fThread = std::thread([this] { Watch(); });
    for (const int signal : kSignals) {
        if (HasHandler(signal, SIG_DFL))
            SetHandler(signal, HandleQuitSignal, SA_RESTART | SA_RESETHAND);
    }
}

QuitSignals::~QuitSignals() {
    if (fEvents < 0)
        return;
    for (const int signal : kSignals) {
        if (HasHandler(signal, HandleQuitSignal))
            SetHandler(signal, SIG_DFL, 0);
    }
    gEvents = -1;
    fEnding = true;
    Raise(fEvents);
    fThread.join();
    close(fEvents);
}

void QuitSignals::Watch() {
    std::uint64_t count = 0;
    for (;;) {
        const ssize_t size = read(fEvents, &count, sizeof(count));
        if (size < 0 && errno == EINTR)
            continue;
        if (size != sizeof(count) || fEnding)
            return;
        // The application's own thread may be waiting for an answer.
        AlertAnswer::SetApplicationEnds(true);
        (void)fApplication.SendMessage(B_QUIT_REQUESTED);
    }
}

}  // namespace BPrivate
