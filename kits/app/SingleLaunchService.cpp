#include "kits/app/SingleLaunchService.h"

#include "kits/app/LooperRegistry.h"
#include "kits/app/MessageAccess.h"
#include "kits/app/MessengerAccess.h"
#include "kits/kernel/Bus.h"
#include "kits/kernel/BusPeers.h"

#include <systemd/sd-bus.h>
#include <utility>

namespace BPrivate {

namespace {

// What a command line may be. The kernel's own limit is below that.
constexpr size_t kMostWords = 1 << 18;
constexpr size_t kMostBytes = 8 << 20;

// How many processes may wait at a time until their command lines have been taken over, and how
// much these may have together.
constexpr size_t kMostLaunches = 256;
constexpr size_t kMostWaitingBytes = 64 << 20;

int handle_launch(sd_bus_message* call, void*, sd_bus_error*) {
    return SingleLaunchService::Get().Launch(call);
}

int handle_is_ready(sd_bus_message* call, void*, sd_bus_error*) {
    return SingleLaunchService::Get().IsReady(call);
}

const sd_bus_vtable kMethods[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS("Launch",
        SD_BUS_ARGS(
            "aay", words, "ay", folder, "aay", files, "ay", activation_token, "t", good_until),
        SD_BUS_RESULT("u", result), handle_launch, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS("IsReady", SD_BUS_NO_ARGS, SD_BUS_RESULT("b", ready), handle_is_ready,
        SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

bool is_trusted(sd_bus_message* call) {
    const char* const sender = sd_bus_message_get_sender(call);
    return sender != nullptr &&
        BusPeers::Get().OwnerOf(sd_bus_message_get_bus(call), sender) == BusPeers::Owner::kUser;
}

bool read_bytes(sd_bus_message* call, size_t& left, std::string& text) {
    const void* bytes = nullptr;
    size_t size = 0;
    if (sd_bus_message_read_array(call, 'y', &bytes, &size) < 0 || size > left)
        return false;
    left -= size;
    if (size > 0)
        text.assign(static_cast<const char*>(bytes), size);
    // No file and no word of a command line has one.
    return text.find('\0') == std::string::npos;
}

bool read_list(sd_bus_message* call, size_t& left, std::vector<std::string>& list) {
    if (sd_bus_message_enter_container(call, SD_BUS_TYPE_ARRAY, "ay") < 0)
        return false;
    while (sd_bus_message_at_end(call, 0) == 0) {
        if (list.size() >= kMostWords || !read_bytes(call, left, list.emplace_back()))
            return false;
    }
    return sd_bus_message_exit_container(call) >= 0;
}

bool read_request(sd_bus_message* call, LaunchRequest& request, uint64_t& goodUntil) {
    size_t left = kMostBytes;
    return read_list(call, left, request.words) && read_bytes(call, left, request.folder) &&
        read_list(call, left, request.files) && read_bytes(call, left, request.activationToken) &&
        sd_bus_message_read(call, "t", &goodUntil) > 0;
}

size_t memory_of(const LaunchRequest& request) {
    size_t size = request.folder.size() + request.activationToken.size();
    for (const auto* list : {&request.words, &request.files}) {
        for (const std::string& text : *list)
            size += sizeof(text) + text.size();
    }
    return size;
}

void post(const BMessenger& target, std::unique_ptr<BMessage> message) {
    const auto core = LooperRegistry::Get().Find(MessengerAccess::HandlerToken(target)).core;
    if (core != nullptr)
        (void)core->Post(std::move(message));
}

std::unique_ptr<BMessage> copy_for(const BMessenger& target, BMessage& message) {
    MessageAccess::SetSourceRemote(message);
    return MessageAccess::CopyForDelivery(message, target, {}, false, false);
}

}  // namespace

LaunchMarker::LaunchMarker(BMessage&& message, uint64 launch)
    : BMessage(std::move(message)), fLaunch(launch) {}

LaunchMarker::~LaunchMarker() {
    const LaunchResult result = fDispatched ? LaunchResult::kTaken : LaunchResult::kEnds;
    Bus::Get().Post(
        [launch = fLaunch, result](sd_bus*) { SingleLaunchService::Get().End(launch, result); });
}

SingleLaunchService& SingleLaunchService::Get() {
    static SingleLaunchService& service = *new SingleLaunchService;
    return service;
}

void SingleLaunchService::Begin(sd_bus* bus, const std::string& name, const BMessenger& target) {
    fName = name;
    fTarget = target;
    fIsReady = false;
    fIsOpen = false;
    if (bus != nullptr && !std::exchange(fBegun, true))
        (void)sd_bus_add_object_vtable(bus, nullptr, kPath, kInterface, kMethods, nullptr);
}

int SingleLaunchService::Launch(sd_bus_message* call) {
    LaunchRequest request;
    uint64_t goodUntil = 0;
    if (!is_trusted(call) || fLaunches.size() >= kMostLaunches)
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_ACCESS_DENIED, "Not from there");
    if (!read_request(call, request, goodUntil))
        return sd_bus_reply_method_errorf(
            call, SD_BUS_ERROR_INVALID_ARGS, "This is no command line");
    // Whoever sent it has gone on by itself; this process had been stopped.
    if (goodUntil < uint64(system_time()))
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_TIMEOUT, "Too late");
    const size_t size = memory_of(request);
    if (fWaitingBytes + size > kMostWaitingBytes)
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_LIMITS_EXCEEDED, "Too many at once");

    const uint64 launch = ++fLastLaunch;
    fLaunches.emplace(launch, Waiting{sd_bus_message_ref(call), size});
    fWaitingBytes += size;
    if (fIsOpen)
        Deliver(request, launch);
    else
        fEarly.emplace_back(std::move(request), launch);
    return 1;
}

void SingleLaunchService::Open() {
    fIsOpen = true;
    for (const auto& [request, launch] : std::exchange(fEarly, {}))
        Deliver(request, launch);
}

void SingleLaunchService::Deliver(const LaunchRequest& request, uint64 launch) {
    for (BMessage& message : launch_messages(request))
        post(fTarget, copy_for(fTarget, message));
    BMessage marker(kLaunchMarker);
    marker.AddString("token", request.activationToken.c_str());
    post(fTarget, std::make_unique<LaunchMarker>(std::move(*copy_for(fTarget, marker)), launch));
}

int SingleLaunchService::IsReady(sd_bus_message* call) {
    return sd_bus_reply_method_return(call, "b", int(fIsReady));
}

void SingleLaunchService::End(uint64 launch, LaunchResult result) {
    const auto found = fLaunches.extract(launch);
    if (found.empty())
        return;
    // Before the answer, so that who gets it finds the name free.
    if (result == LaunchResult::kEnds)
        Bus::Get().CallBus("ReleaseName", fName.c_str(), [](sd_bus_message*) {});
    const Waiting& waiting = found.mapped();
    fWaitingBytes -= waiting.size;
    (void)sd_bus_reply_method_return(waiting.call, "u", uint32_t(result));
    sd_bus_message_unref(waiting.call);
}

}  // namespace BPrivate
