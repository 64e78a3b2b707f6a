#include "kits/app/SingleLaunch.h"

#include "kits/app/CommandLine.h"
#include "kits/app/MessengerAccess.h"
#include "kits/app/RosterBus.h"
#include "kits/app/SingleLaunchService.h"
#include "kits/interface/Display.h"
#include "kits/kernel/Bus.h"

#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/LaunchFiles.h>
#include <app/Message.h>
#include <app/Roster.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <mutex>
#include <storage/Entry.h>
#include <storage/Resources.h>
#include <system_error>
#include <systemd/sd-bus.h>
#include <utility>

namespace BPrivate {

namespace {

// How long the bus is waited for: it answers at once, or not at all.
constexpr bigtime_t kBusTimeout = 2000000;

// How often the process that runs may end under our hands.
constexpr int kMostAttempts = 10;

constexpr uint32_t kDoNotQueue = 4;

std::mutex gLock;
std::optional<uint32> gFlags;
LaunchLimits gLimits;

LaunchLimits launch_limits() {
    const std::lock_guard guard(gLock);
    return gLimits;
}

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// B_OK when this process has the name now, or there is no bus to have it on.
status_t claim_name(const std::string& name, const BMessenger& target) {
    const auto question = std::make_shared<BusQuestion>();
    Bus::Get().Post([name, target, question](sd_bus* bus) {
        // Whoever sees the name has to find somebody who answers.
        SingleLaunchService::Get().Begin(bus, name, target);
        sd_bus_message* call = nullptr;
        const auto then = [question](sd_bus_message* answer) {
            uint32_t result = 0;
            const bool isTaken = answer != nullptr &&
                sd_bus_message_read(answer, "u", &result) > 0 && result != 1 && result != 4;
            answer_question(*question, isTaken ? B_NAME_IN_USE : B_OK);
        };
        if (bus == nullptr ||
            sd_bus_message_new_method_call(bus, &call, "org.freedesktop.DBus",
                "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName") < 0)
            return then(nullptr);
        if (sd_bus_message_append(call, "su", name.c_str(), kDoNotQueue) >= 0)
            Bus::Get().Call(call, B_INFINITE_TIMEOUT, then);
        else
            then(nullptr);
        sd_bus_message_unref(call);
    });
    const status_t status = await_answer(*question, system_time() + kBusTimeout);
    return status == B_NAME_IN_USE ? status : B_OK;
}

sd_bus_message* new_call(sd_bus* bus, const std::string& name, const char* method) {
    sd_bus_message* call = nullptr;
    if (bus == nullptr ||
        sd_bus_message_new_method_call(bus, &call, name.c_str(), SingleLaunchService::kPath,
            SingleLaunchService::kInterface, method) < 0)
        return nullptr;
    sd_bus_message_set_auto_start(call, 0);
    return call;
}

bool append_bytes(sd_bus_message* call, const std::string& text) {
    return sd_bus_message_append_array(call, 'y', text.data(), text.size()) >= 0;
}

bool append_list(sd_bus_message* call, const std::vector<std::string>& list) {
    if (sd_bus_message_open_container(call, SD_BUS_TYPE_ARRAY, "ay") < 0)
        return false;
    for (const std::string& text : list) {
        if (!append_bytes(call, text))
            return false;
    }
    return sd_bus_message_close_container(call) >= 0;
}

/// B_OK: taken over. B_CANCELED: whoever had the name has it no longer. Any other error: it is no
/// use to ask again.
status_t launch_status(sd_bus_message* answer) {
    uint32_t result = 0;
    if (answer == nullptr)
        return B_ERROR;
    if (const sd_bus_error* error = sd_bus_message_get_error(answer)) {
        const bool isGone = sd_bus_error_has_name(error, SD_BUS_ERROR_NO_REPLY) != 0 ||
            sd_bus_error_has_name(error, SD_BUS_ERROR_SERVICE_UNKNOWN) != 0 ||
            sd_bus_error_has_name(error, SD_BUS_ERROR_NAME_HAS_NO_OWNER) != 0;
        return isGone ? B_CANCELED : B_ERROR;
    }
    if (sd_bus_message_read(answer, "u", &result) <= 0)
        return B_ERROR;
    return LaunchResult(result) == LaunchResult::kTaken ? B_OK : B_CANCELED;
}

void send_request(sd_bus* bus, const std::string& name, const LaunchRequest& request,
    bigtime_t goodUntil, const BusQuestionPtr& question) {
    sd_bus_message* const call = new_call(bus, name, "Launch");
    if (call == nullptr)
        return answer_question(*question, B_ERROR);
    if (append_list(call, request.words) && append_bytes(call, request.folder) &&
        append_list(call, request.files) && append_bytes(call, request.activationToken) &&
        sd_bus_message_append(call, "t", uint64_t(goodUntil)) >= 0)
        Bus::Get().Call(call, B_INFINITE_TIMEOUT, [question](sd_bus_message* answer) {
            answer_question(*question, launch_status(answer));
        });
    else
        answer_question(*question, B_ERROR);
    sd_bus_message_unref(call);
}

/// Whether the process that has the name is still starting.
bool is_starting(const std::string& name) {
    const auto question = std::make_shared<BusQuestion>();
    Bus::Get().Post([name, question](sd_bus* bus) {
        sd_bus_message* const call = new_call(bus, name, "IsReady");
        if (call == nullptr)
            return answer_question(*question, B_ERROR);
        Bus::Get().Call(call, kBusTimeout, [question](sd_bus_message* answer) {
            int ready = 1;
            if (answer != nullptr)
                (void)sd_bus_message_read(answer, "b", &ready);
            answer_question(*question, ready == 0 ? B_OK : B_ERROR);
        });
        sd_bus_message_unref(call);
    });
    return await_answer(*question, system_time() + kBusTimeout) == B_OK;
}

/// As launch_status(), or B_TIMED_OUT.
status_t hand_over(const std::string& name, const std::shared_ptr<const LaunchRequest>& request) {
    const auto question = std::make_shared<BusQuestion>();
    const LaunchLimits limits = launch_limits();
    const bigtime_t start = system_time();
    Bus::Get().Post(
        [=](sd_bus* bus) { send_request(bus, name, *request, start + limits.answer, question); });
    const status_t status = await_answer(*question, start + limits.answer);
    if (status != B_TIMED_OUT || !is_starting(name))
        return status;
    return await_answer(*question, start + limits.start);
}

}  // namespace

uint32 launch_flags() {
    {
        const std::lock_guard guard(gLock);
        if (gFlags)
            return *gFlags;
    }
    size_t size = 0;
    const void* const resource =
        BApplication::AppResources()->LoadResource('APPF', "BEOS:APP_FLAGS", &size);
    uint32 flags = B_MULTIPLE_LAUNCH;
    if (resource != nullptr && size == sizeof(flags))
        std::memcpy(&flags, resource, sizeof(flags));
    return flags;
}

void set_launch_flags(std::optional<uint32> flags) {
    const std::lock_guard guard(gLock);
    gFlags = flags;
}

void set_launch_limits(const LaunchLimits& limits) {
    const std::lock_guard guard(gLock);
    gLimits = limits;
}

LaunchRequest launch_request_of_command_line() {
    LaunchRequest request;
    request.words = CommandLine();
    std::error_code error;
    request.folder = std::filesystem::current_path(error).string();
    launch_files files = find_launch_files(request.words);
    request.errors = std::move(files.errors);
    for (const std::string& path : files.paths) {
        // Without the folder, which was removed, a path that exists is absolute.
        const bool isWhole = path.starts_with('/') || request.folder.empty();
        request.files.push_back(isWhole ? path : request.folder + "/" + path);
    }
    request.activationToken = variable("XDG_ACTIVATION_TOKEN");
    if (request.activationToken.empty())
        request.activationToken = variable("DESKTOP_STARTUP_ID");
    return request;
}

void report_errors(const LaunchRequest& request) {
    for (const std::string& line : request.errors)
        std::fprintf(stderr, "%s\n", line.c_str());
}

std::vector<BMessage> launch_messages(const LaunchRequest& request) {
    std::vector<BMessage> messages;
    if (request.words.size() > 1) {
        BMessage arguments(B_ARGV_RECEIVED);
        arguments.AddInt32("argc", int32(request.words.size()));
        for (const std::string& word : request.words)
            arguments.AddString("argv", word.c_str());
        arguments.AddString("cwd", request.folder.c_str());
        messages.push_back(std::move(arguments));
    }
    BMessage refs(B_REFS_RECEIVED);
    for (const std::string& path : request.files) {
        entry_ref ref;
        if (get_ref_for_path(path.c_str(), &ref) == B_OK)
            refs.AddRef("refs", &ref);  // else gone since it was looked for
    }
    if (!refs.IsEmpty())
        messages.push_back(std::move(refs));
    return messages;
}

bool begin_single_launch(const std::string& signature, const BMessenger& target) {
    const std::string name = application_bus_name(signature);
    std::shared_ptr<const LaunchRequest> request;
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        if (claim_name(name, target) == B_OK)
            return true;
        if (request == nullptr)
            request = std::make_shared<LaunchRequest>(launch_request_of_command_line());
        const status_t status = hand_over(name, request);
        if (status == B_OK) {
            report_errors(*request);
            return false;
        }
        if (status != B_CANCELED)
            break;
    }
    std::fprintf(stderr, "%s: the one that runs already does not answer; starting another\n",
        ProgramName(request->words).c_str());
    return true;
}

void open_single_launch() {
    Bus::Get().Post([](sd_bus*) { SingleLaunchService::Get().Open(); });
}

void single_launch_is_ready() {
    SingleLaunchService::Get().SetReady();
}

void launch_marker_dispatched(BMessage& message) {
    // One that somebody else made is of no use.
    auto* const marker = dynamic_cast<LaunchMarker*>(&message);
    if (marker == nullptr)
        return;
    marker->SetDispatched();
    // The first window that is shown takes it; each knows only of itself whether it is.
    const std::vector<BMessenger> windows = MessengerAccess::ForWindows();
    BMessage toFront(kBringToFront);
    toFront.AddString("token", message.GetString("token", ""));
    for (const BMessenger& window : windows)
        toFront.AddMessenger("windows", window);
    if (!windows.empty())
        (void)windows.front().SendMessage(&toFront);
}

}  // namespace BPrivate
