#include "kits/app/LooperRegistry.h"

#include <algorithm>
#include <utility>

namespace BPrivate {

LooperRegistry& LooperRegistry::Get() {
    // Never destroyed: threads may still send when the process's static objects are.
    static LooperRegistry& registry = *new LooperRegistry;
    return registry;
}

int32 LooperRegistry::AddHandler(BHandler* handler) {
    const std::lock_guard guard(fLock);
    const int32 token = ++fLastToken;
    fHandlers[token] = {handler, nullptr};
    return token;
}

void LooperRegistry::RemoveHandler(int32 token) {
    Target removed;  // dies after the lock: a core's end deletes messages
    const std::lock_guard guard(fLock);
    const auto found = fHandlers.find(token);
    if (found == fHandlers.end())
        return;
    removed = std::move(found->second);
    fHandlers.erase(found);
}

void LooperRegistry::SetLooper(int32 token, std::shared_ptr<LooperCore> core) {
    const std::lock_guard guard(fLock);
    const auto found = fHandlers.find(token);
    if (found != fHandlers.end())
        found->second.core.swap(core);
}

LooperRegistry::Target LooperRegistry::Find(int32 token) const {
    const std::lock_guard guard(fLock);
    const auto found = fHandlers.find(token);
    return found != fHandlers.end() ? found->second : Target{};
}

int32 LooperRegistry::LooperTokenOf(int32 handlerToken) const {
    const std::lock_guard guard(fLock);
    const auto found = fHandlers.find(handlerToken);
    if (found == fHandlers.end())
        return 0;
    const auto looper = std::find_if(fLoopers.begin(), fLoopers.end(),
        [core = found->second.core.get()](const auto& entry) { return entry.core.get() == core; });
    return looper != fLoopers.end() ? looper->token : 0;
}

void LooperRegistry::AddLooper(int32 token, std::shared_ptr<LooperCore> core) {
    const std::lock_guard guard(fLock);
    fLoopers.push_back({token, std::move(core)});
}

void LooperRegistry::RemoveLooper(const LooperCore* core) {
    std::shared_ptr<LooperCore> removed;
    const std::lock_guard guard(fLock);
    const auto found = std::find_if(fLoopers.begin(), fLoopers.end(),
        [core](const auto& entry) { return entry.core.get() == core; });
    if (found == fLoopers.end())
        return;
    removed = std::move(found->core);
    fLoopers.erase(found);
}

std::vector<std::shared_ptr<LooperCore>> LooperRegistry::Loopers() const {
    const std::lock_guard guard(fLock);
    std::vector<std::shared_ptr<LooperCore>> loopers;
    for (const LooperEntry& entry : fLoopers)
        loopers.push_back(entry.core);
    return loopers;
}

std::vector<int32> LooperRegistry::Windows() const {
    const std::lock_guard guard(fLock);
    std::vector<int32> tokens;
    for (const LooperEntry& entry : fLoopers) {
        if (entry.core->Window() != nullptr)
            tokens.push_back(entry.token);
    }
    return tokens;
}

int32 LooperRegistry::AddReply(std::shared_ptr<ReplySlot> slot) {
    const std::lock_guard guard(fLock);
    const int32 token = ++fLastToken;
    fReplies[token] = std::move(slot);
    return token;
}

std::shared_ptr<ReplySlot> LooperRegistry::TakeReply(int32 token) {
    const std::lock_guard guard(fLock);
    const auto found = fReplies.find(token);
    if (found == fReplies.end())
        return nullptr;
    std::shared_ptr<ReplySlot> slot = std::move(found->second);
    fReplies.erase(found);
    return slot;
}

}  // namespace BPrivate
