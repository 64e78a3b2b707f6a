#pragma once

#include <app/Messenger.h>
#include <vector>

namespace BPrivate {

class ReplySlot;

/// How a message is sent, beside what and where to.
struct SendFlags {
    bool senderWaits = false;
    bool isReply = false;
};

/// What the kits do with messengers and their users may not.
class MessengerAccess {
public:
    /// Sends a copy. No `replyTo` is the application.
    static status_t Send(const BMessenger& target, const BMessage& message,
        const BMessenger& replyTo, SendFlags flags = {});

    /// The address under which a waiting sender is answered.
    static BMessenger ForReply(int32 replyToken);

    /// The addresses of all windows that run. From any thread; nobody's lock is waited for.
    static std::vector<BMessenger> ForWindows();

    /// The messenger itself, or the application's where it addresses nothing.
    static BMessenger OrApplication(const BMessenger& messenger);

    /// The handler's token, 0 for the preferred one.
    static int32 HandlerToken(const BMessenger& messenger) { return messenger.fHandler; }
};

}  // namespace BPrivate
