#pragma once

#include <app/Looper.h>
#include <app/Message.h>
#include <app/Messenger.h>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <vector>

#include "tests/Eventually.h"

/// A door that stays open once it was opened.
class Gate {
public:
    void Open() {
        const std::lock_guard guard(fLock);
        fOpen = true;
        fChanged.notify_all();
    }
    bool Wait() {
        std::unique_lock guard(fLock);
        return fChanged.wait_for(guard, std::chrono::seconds(30), [this] { return fOpen; });
    }

private:
    std::mutex fLock;
    std::condition_variable fChanged;
    bool fOpen = false;
};

/// Writes down the commands it hears, from any thread's view.
class Journal {
public:
    void Write(uint32 command) {
        const std::lock_guard guard(fLock);
        fCommands.push_back(command);
    }
    std::vector<uint32> Commands() const {
        const std::lock_guard guard(fLock);
        return fCommands;
    }
    bool WaitForCount(size_t count) const {
        return eventually([&] { return Commands().size() >= count; });
    }

private:
    mutable std::mutex fLock;
    std::vector<uint32> fCommands;
};

/// A handler that does with each message what the test says.
class TestHandler : public BHandler {
public:
    using Hook = std::function<void(BMessage*)>;

    explicit TestHandler(Hook hook, const char* name = nullptr)
        : BHandler(name), fHook(std::move(hook)) {}
    void MessageReceived(BMessage* message) override { fHook(message); }

private:
    Hook fHook;
};

/// A looper that does with each message what the test says.
class TestLooper : public BLooper {
public:
    using Hook = std::function<void(TestLooper&, BMessage*)>;

    explicit TestLooper(Hook hook = {}, const char* name = "test looper")
        : BLooper(name), fHook(std::move(hook)) {}
    ~TestLooper() override {
        if (fGone != nullptr)
            fGone->Open();
    }

    /// Opened when the looper is deleted.
    void TellWhenGone(Gate& gate) { fGone = &gate; }

    void MessageReceived(BMessage* message) override {
        if (fHook)
            fHook(*this, message);
        else
            BLooper::MessageReceived(message);
    }

private:
    Hook fHook;
    Gate* fGone = nullptr;
};

/// Locks and quits a looper.
inline void QuitLooper(BLooper* looper) {
    looper->Lock();
    looper->Quit();
}
