#include "framework/WaitingMessages.h"

#include "framework/MessageCodes.h"

#include <app/Looper.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <memory>
#include <string>

bool is_waiting(const BLooper& looper, const message_predicate& matches) {
    BMessageQueue* queue = looper.MessageQueue();
    if (!queue->Lock())
        return false;
    bool found = false;
    for (int32 index = 0; !found && index < queue->CountMessages(); ++index)
        found = matches(*queue->FindMessage(index));
    queue->Unlock();
    return found;
}

void remove_waiting(const BLooper& looper, const message_predicate& matches) {
    BMessageQueue* queue = looper.MessageQueue();
    if (!queue->Lock())
        return;
    for (int32 index = queue->CountMessages() - 1; index >= 0; --index) {
        BMessage* message = queue->FindMessage(index);
        if (!matches(*message))
            continue;
        const std::unique_ptr<BMessage> removed(message);
        queue->RemoveMessage(message);
    }
    queue->Unlock();
}

message_predicate same_shared_item(const BMessage& change) {
    const std::string item = change.GetString(kFieldSharedItem, "");
    return [item](const BMessage& other) {
        return other.what == kMsgSharedItemChanged && other.GetString(kFieldSharedItem, "") == item;
    };
}
