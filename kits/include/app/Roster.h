#pragma once

#include <app/Messenger.h>
#include <kernel/OS.h>
#include <storage/Entry.h>
#include <support/SupportDefs.h>

class BMessage;

/// The longest MIME type in bytes, with its terminating NUL.
constexpr int32 B_MIME_TYPE_LENGTH = 241;

/// How an application is launched; the "APPF" resource "BEOS:APP_FLAGS" of a program, an uint32.
enum : uint32 {
    B_SINGLE_LAUNCH = 0x0,    ///< a second start hands its files to the one that runs, and ends
    B_MULTIPLE_LAUNCH = 0x1,  ///< as many as are started; also a program without that resource
    B_EXCLUSIVE_LAUNCH = 0x2,
    B_LAUNCH_MASK = 0x3,
};

/// A running application.
struct app_info {
    thread_id thread = -1;  ///< that its messages are handled in
    team_id team = -1;
    uint32 flags = B_MULTIPLE_LAUNCH;
    entry_ref ref;  ///< the program
    char signature[B_MIME_TYPE_LENGTH] = "";
};

/// The running applications of the user's session, and the way to start others.
///
/// All functions may be called from any thread.
class BRoster {
public:
    /// Opens the document with the application the desktop has for its type. Waits until that is
    /// started, and at most ten seconds. Applications here take no `message`, and what is started
    /// belongs to no team of this process: `team` is set to -1. Programs are not started.
    ///
    /// B_ENTRY_NOT_FOUND when there is no such file, B_LAUNCH_FAILED_NO_PREFERRED_APP when nothing
    /// that is installed opens its type, B_LAUNCH_FAILED when starting it failed.
    status_t Launch(
        const entry_ref* ref, const BMessage* message = nullptr, team_id* team = nullptr) const;

    /// Sends a copy of the message to every running application, the caller's own included, each
    /// of which gets it once. Does not wait for them. Without a session bus only the caller's own
    /// gets it. Messages of one sender arrive in order; an application that is far behind with
    /// its messages loses the older ones.
    ///
    /// Others get it without pointers and messengers, as a message whose source is remote. Their
    /// replies do not come back; those of the caller's own application go to `replyTo`.
    ///
    /// B_NOT_ALLOWED for a command that only the kits send, such as B_QUIT_REQUESTED; B_BAD_VALUE
    /// for a message that cannot be flattened; B_NO_MEMORY. Then nobody gets it.
    status_t Broadcast(BMessage* message) const;
    status_t Broadcast(BMessage* message, BMessenger replyTo) const;

    /// Whether an application of that signature, in any case of letters, is in its Run().
    bool IsRunning(const char* signature) const;
};

/// The roster of this process; always there.
extern const BRoster* be_roster;
