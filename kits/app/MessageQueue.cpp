#include <app/MessageQueue.h>

#include <app/Message.h>

#include <algorithm>

using Guard = std::lock_guard<std::recursive_mutex>;

BMessageQueue::BMessageQueue() = default;

BMessageQueue::~BMessageQueue() {
    for (BMessage* message : fMessages)
        delete message;
}

void BMessageQueue::AddMessage(BMessage* message) {
    if (message == nullptr)
        return;
    const Guard guard(fLock);
    fMessages.push_back(message);
    fChanged.notify_one();
}

bool BMessageQueue::RemoveMessage(BMessage* message) {
    const Guard guard(fLock);
    const auto found = std::find(fMessages.begin(), fMessages.end(), message);
    if (found == fMessages.end())
        return false;
    fMessages.erase(found);
    return true;
}

int32 BMessageQueue::CountMessages() const {
    const Guard guard(fLock);
    return int32(fMessages.size());
}

bool BMessageQueue::IsEmpty() const {
    return CountMessages() == 0;
}

BMessage* BMessageQueue::FindMessage(int32 index) const {
    const Guard guard(fLock);
    return index >= 0 && size_t(index) < fMessages.size() ? fMessages[size_t(index)] : nullptr;
}

BMessage* BMessageQueue::FindMessage(uint32 what, int32 index) const {
    const Guard guard(fLock);
    for (BMessage* message : fMessages) {
        if (message->what == what && index-- == 0)
            return message;
    }
    return nullptr;
}

bool BMessageQueue::IsNextMessage(const BMessage* message) const {
    const Guard guard(fLock);
    return !fMessages.empty() && fMessages.front() == message;
}

BMessage* BMessageQueue::NextMessage() {
    const Guard guard(fLock);
    if (fMessages.empty())
        return nullptr;
    BMessage* message = fMessages.front();
    fMessages.pop_front();
    return message;
}

bool BMessageQueue::Lock() {
    fLock.lock();
    return true;
}

void BMessageQueue::Unlock() {
    fLock.unlock();
}

void BMessageQueue::Wait() {
    std::unique_lock guard(fLock);
    fChanged.wait(guard, [this] { return !fMessages.empty() || fWoken; });
    fWoken = false;
}

void BMessageQueue::Wake() {
    const Guard guard(fLock);
    fWoken = true;
    fChanged.notify_one();
}
