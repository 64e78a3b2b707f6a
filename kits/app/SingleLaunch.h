#pragma once

// An application that runs once: docs/between-applications.md.
//
// The first process of a signature takes its name on the session bus. A later one hands its
// command line over and ends. Without a bus every process is the first.

#include <app/Messenger.h>
#include <optional>
#include <string>
#include <support/SupportDefs.h>
#include <vector>

class BMessage;

namespace BPrivate {

/// The launch flags of the program: its resource, or what was set.
uint32 launch_flags();
/// Takes the place of the resource.
void set_launch_flags(std::optional<uint32> flags);

/// How long the process that runs is waited for, in microseconds.
struct LaunchLimits {
    bigtime_t answer = 5000000;  ///< once it has started
    bigtime_t start = 30000000;  ///< while it is starting
};

/// For begin_single_launch() from now on.
void set_launch_limits(const LaunchLimits& limits);

/// What a start was asked to do.
struct LaunchRequest {
    std::vector<std::string> words;   ///< of the command line; the first is the program's
    std::string folder;               ///< that they were written in
    std::vector<std::string> files;   ///< among the words, as absolute paths
    std::vector<std::string> errors;  ///< a line each for those that do not exist
    std::string activationToken;      ///< the desktop's permission to take the focus
};

/// That of this process.
LaunchRequest launch_request_of_command_line();
/// Says on standard error which files do not exist.
void report_errors(const LaunchRequest& request);

/// Makes this process the one that runs, whose command lines of later ones go to `target`, or
/// hands this one's over to the process that is. Returns whether this process is to go on: false
/// when another one has taken its command line over.
///
/// When it is false the errors of the command line have been reported. It goes on as well, and
/// says so on standard error, when the other one does not answer.
[[nodiscard]] bool begin_single_launch(const std::string& signature, const BMessenger& target);

/// Lets the command lines of later processes into the target's queue, which has this process's
/// own by now.
void open_single_launch();

/// Says that the application is done with starting, so that it answers soon from now on.
void single_launch_is_ready();

/// The command line's words and its files as messages, in the order in which they are posted.
std::vector<BMessage> launch_messages(const LaunchRequest& request);

/// Follows the files of a command line in the application's queue. When it is dispatched the
/// process that sent them is told so and ends; when it never is, that process goes on itself.
constexpr uint32 kLaunchMarker = '_LCH';

/// Dispatches it: brings the application's window to the front.
void launch_marker_dispatched(BMessage& marker);

}  // namespace BPrivate
