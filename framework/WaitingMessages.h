#pragma once

#include <functional>

class BLooper;
class BMessage;

// What waits in a looper's queue behind the message that it handles. For the looper's own thread.

using message_predicate = std::function<bool(const BMessage&)>;

/// Whether a message of the kind waits.
bool is_waiting(const BLooper& looper, const message_predicate& matches);

/// Drops all messages of the kind that wait.
void remove_waiting(const BLooper& looper, const message_predicate& matches);

/// A change of the same shared item: its value is in the store by the time one of them is handled.
message_predicate same_shared_item(const BMessage& change);
