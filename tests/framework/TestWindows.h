#pragma once

#include <app/AppDefs.h>
#include <app/Application.h>
#include <gtest/gtest.h>
#include <interface/Window.h>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/recording_display/RecordingDisplay.h"

/// What happened, written down by one thread and read by another.
class TLog {
public:
    void Add(const std::string& entry) {
        const std::lock_guard lock(fLock);
        fEntries.push_back(entry);
    }
    std::vector<std::string> Entries() const {
        const std::lock_guard lock(fLock);
        return fEntries;
    }
    /// Waits until there are so many entries and returns them all.
    std::vector<std::string> WaitFor(size_t count) const {
        EXPECT_TRUE(recording::WaitFor([&] { return Entries().size() >= count; }));
        return Entries();
    }

private:
    mutable std::mutex fLock;
    std::vector<std::string> fEntries;
};

/// Ends a window that a test has made, whatever its thread is doing.
class TWindowQuitter {
public:
    explicit TWindowQuitter(BWindow* window) : fWindow(window) {}
    ~TWindowQuitter() {
        if (fWindow->Lock())
            fWindow->Quit();
    }
    TWindowQuitter(const TWindowQuitter&) = delete;
    TWindowQuitter& operator=(const TWindowQuitter&) = delete;

private:
    BWindow* fWindow;
};

/// Runs `work` under the window's lock.
template <typename Function>
auto with_lock(BWindow* window, Function work) {
    EXPECT_TRUE(window->Lock());
    struct TUnlock {
        BWindow* window;
        ~TUnlock() { window->Unlock(); }
    } unlock{window};
    return work();
}
