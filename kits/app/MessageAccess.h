#pragma once

#include <app/Message.h>
#include <memory>

namespace BPrivate {

/// What the kits do to messages and their users may not.
class MessageAccess {
public:
    /// The copy of a message that is put into a queue. It keeps whether it came from another
    /// process; a waiting sender is answered with B_NO_REPLY unless somebody else answers.
    static std::unique_ptr<BMessage> CopyForDelivery(const BMessage& message,
        const BMessenger& target, const BMessenger& replyTo, bool senderWaits, bool isReply);

    /// How much memory it takes, which may be many times its flattened size.
    static size_t MemoryOf(const BMessage& message);

    static const BMessenger& Target(const BMessage& message) { return message.fDelivery.target; }

    /// Marks a message as come from outside: from another process, the command line, a drop.
    static void SetSourceRemote(BMessage& message) { message.fDelivery.remote = true; }
};

}  // namespace BPrivate
