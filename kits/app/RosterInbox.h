#pragma once

#include <app/Message.h>
#include <app/Messenger.h>
#include <deque>
#include <mutex>
#include <string>

namespace BPrivate {

/// The broadcasts of other processes on their way to the application.
///
/// Only a few at a time lie in the application's queue, so that a process that sends thousands
/// neither fills the memory nor pushes away what else the application has to do. The rest waits
/// here; where it is too much the oldest of whoever sent most is dropped, since it is the latest
/// that tells how things are.
///
/// May be used from any thread.
class RosterInbox {
public:
    /// In messages, and in bytes of memory.
    struct Amount {
        size_t messages = 0;
        size_t bytes = 0;
    };
    static constexpr Amount kMostQueued{64, 4 << 20};
    static constexpr Amount kMostWaiting{1024, 32 << 20};

    static RosterInbox& Get();

    /// Says who gets the messages. Those that wait for another target are dropped.
    void SetTarget(const BMessenger& target);

    /// Takes a message that has that many bytes.
    void Add(const std::string& sender, BMessage message, size_t size);

    /// What waits, in the application's queue and before it.
    Amount Waiting() const;

private:
    class Delivered;
    struct Letter {
        std::string sender;
        BMessage message;
        size_t size;
    };

    RosterInbox() = default;
    void MakeRoom();
    void Release(size_t size);
    void Deliver();

    mutable std::mutex fLock;
    BMessenger fTarget;
    std::deque<Letter> fLetters;
    size_t fLetterBytes = 0;
    Amount fQueued;
    bool fDelivering = false;
};

}  // namespace BPrivate
