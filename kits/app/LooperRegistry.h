#pragma once

#include "kits/app/LooperCore.h"
#include "kits/app/ReplySlot.h"

#include <app/Messenger.h>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

class BHandler;

namespace BPrivate {

/// Knows every handler, looper and waiting sender of the process by a number that is never used
/// again. What messengers hold are these numbers.
///
/// May be used by any thread at any time, also while the process ends. Its own lock is the
/// innermost of the kit: nothing is called under it.
class LooperRegistry {
public:
    static LooperRegistry& Get();

    /// Returns the handler's token.
    int32 AddHandler(BHandler* handler);
    void RemoveHandler(int32 token);
    /// Says which looper a handler belongs to; null for none.
    void SetLooper(int32 token, std::shared_ptr<LooperCore> core);

    struct Target {
        BHandler* handler = nullptr;
        std::shared_ptr<LooperCore> core;  // null when the handler belongs to no looper
    };
    /// Without a handler when there is none of that token.
    Target Find(int32 token) const;

    /// The token of the looper the handler belongs to, 0 for none.
    int32 LooperTokenOf(int32 handlerToken) const;

    void AddLooper(int32 token, std::shared_ptr<LooperCore> core);
    void RemoveLooper(const LooperCore* core);
    /// In the order they were made.
    std::vector<std::shared_ptr<LooperCore>> Loopers() const;
    /// The tokens of the loopers that are windows.
    std::vector<int32> Windows() const;

    int32 AddReply(std::shared_ptr<ReplySlot> slot);
    /// Null when the sender waits no longer. A slot is found once.
    std::shared_ptr<ReplySlot> TakeReply(int32 token);

private:
    struct LooperEntry {
        int32 token;
        std::shared_ptr<LooperCore> core;
    };

    mutable std::mutex fLock;
    int32 fLastToken = 0;
    std::unordered_map<int32, Target> fHandlers;
    std::vector<LooperEntry> fLoopers;
    std::unordered_map<int32, std::shared_ptr<ReplySlot>> fReplies;
};

}  // namespace BPrivate
