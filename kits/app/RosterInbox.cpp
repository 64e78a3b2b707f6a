#include "kits/app/RosterInbox.h"

#include "kits/app/LooperRegistry.h"
#include "kits/app/MessageAccess.h"
#include "kits/app/MessengerAccess.h"

#include <algorithm>
#include <map>
#include <utility>

namespace BPrivate {

/// A message in the application's queue. However it ends, the next may come.
class RosterInbox::Delivered : public BMessage {
public:
    Delivered(BMessage&& message, size_t size) : BMessage(std::move(message)), fSize(size) {}
    ~Delivered() override { RosterInbox::Get().Release(fSize); }

private:
    const size_t fSize;
};

RosterInbox& RosterInbox::Get() {
    static RosterInbox& inbox = *new RosterInbox;
    return inbox;
}

void RosterInbox::SetTarget(const BMessenger& target) {
    const std::lock_guard guard(fLock);
    fTarget = target;
    fLetters.clear();
    fLetterBytes = 0;
}

void RosterInbox::Add(const std::string& sender, BMessage message, size_t size) {
    {
        const std::lock_guard guard(fLock);
        fLetters.push_back({sender, std::move(message), size});
        fLetterBytes += size;
        MakeRoom();
    }
    Deliver();
}

void RosterInbox::MakeRoom() {
    while (fLetters.size() > kMostWaiting.messages || fLetterBytes > kMostWaiting.bytes) {
        std::map<std::string_view, size_t> counts;
        for (const Letter& letter : fLetters)
            counts[letter.sender] += letter.size + sizeof(Letter);
        const auto most = std::max_element(counts.begin(), counts.end(),
            [](const auto& a, const auto& b) { return a.second < b.second; });
        const std::string sender(most->first);
        const auto oldest = std::find_if(fLetters.begin(), fLetters.end(),
            [&sender](const Letter& letter) { return letter.sender == sender; });
        fLetterBytes -= oldest->size;
        fLetters.erase(oldest);
    }
}

void RosterInbox::Release(size_t size) {
    {
        const std::lock_guard guard(fLock);
        --fQueued.messages;
        fQueued.bytes -= size;
    }
    Deliver();
}

void RosterInbox::Deliver() {
    std::unique_lock guard(fLock);
    // One thread at a time, to keep the order; also when a message that nobody takes is released
    // in here.
    if (std::exchange(fDelivering, true))
        return;
    while (!fLetters.empty() && fQueued.messages < kMostQueued.messages &&
        fQueued.bytes < kMostQueued.bytes) {
        Letter letter = std::move(fLetters.front());
        fLetters.pop_front();
        fLetterBytes -= letter.size;
        ++fQueued.messages;
        fQueued.bytes += letter.size;
        const BMessenger target = fTarget;

        guard.unlock();
        MessageAccess::SetSourceRemote(letter.message);
        auto message = std::make_unique<Delivered>(
            std::move(*MessageAccess::CopyForDelivery(letter.message, target, {}, false, false)),
            letter.size);
        const auto core = LooperRegistry::Get().Find(MessengerAccess::HandlerToken(target)).core;
        if (core != nullptr)
            (void)core->Post(std::move(message));
        message.reset();
        guard.lock();
    }
    fDelivering = false;
}

RosterInbox::Amount RosterInbox::Waiting() const {
    const std::lock_guard guard(fLock);
    return {fQueued.messages + fLetters.size(), fQueued.bytes + fLetterBytes};
}

}  // namespace BPrivate
