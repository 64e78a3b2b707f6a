#pragma once

#include <app/Messenger.h>
#include <atomic>
#include <thread>

namespace BPrivate {

/// While it lives, asks the application to quit when the process is told to end (SIGTERM, SIGINT,
/// SIGHUP), so that a session that ends loses no settings. A signal that the process was started
/// to ignore stays ignored. A second signal of a kind ends the process at once, as it would
/// without this.
///
/// One at a time.
class QuitSignals {
public:
    /// Sends B_QUIT_REQUESTED to the application.
    explicit QuitSignals(const BMessenger& application);
    ~QuitSignals();

    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

private:
    void Watch();

    BMessenger fApplication;
    int fEvents = -1;  // counts signals, and is raised once more to end the thread
    std::atomic<bool> fEnding = false;
    std::thread fThread;
};

}  // namespace BPrivate
