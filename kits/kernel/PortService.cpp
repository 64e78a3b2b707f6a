#include "kits/kernel/PortService.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include <systemd/sd-bus.h>

#include "kits/kernel/BusPeers.h"

namespace BPrivate {

namespace {

// How many writes of one process may wait here. One of this kind has at most 16 on their way to a
// port; a process of another kind cannot fill the memory by not waiting for answers.
constexpr int32 kMostHeldBySender = 64;

// How many of all processes. Large ones have a file descriptor each, and a process may have many
// connections to the bus.
constexpr size_t kMostHeld = 256;

int handle_open(sd_bus_message* call, void*, sd_bus_error*) {
    return PortService::Get().Open(call);
}

int handle_write(sd_bus_message* call, void*, sd_bus_error*) {
    return PortService::Get().Write(call);
}

int handle_withdraw(sd_bus_message* call, void*, sd_bus_error*) {
    return PortService::Get().Withdraw(call);
}

const sd_bus_vtable kMethods[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS("Open", SD_BUS_ARGS("s", name), SD_BUS_RESULT("i", port), handle_open,
        SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS("Write",
        SD_BUS_ARGS("i", port, "u", serial, "i", code, "t", wait_until, "t", good_until, "v", body),
        SD_BUS_RESULT("u", result), handle_write, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_ARGS("Withdraw", SD_BUS_ARGS("i", port, "u", serial), SD_BUS_NO_RESULT,
        handle_withdraw, SD_BUS_VTABLE_UNPRIVILEGED | SD_BUS_VTABLE_METHOD_NO_REPLY),
    SD_BUS_VTABLE_END,
};

std::string sender_of(sd_bus_message* call) {
    const char* const sender = sd_bus_message_get_sender(call);
    return sender != nullptr ? sender : "";
}

int answer(sd_bus_message* call, PortResult result) {
    return sd_bus_reply_method_return(call, "u", uint32_t(result));
}

int refuse(sd_bus_message* call) {
    return sd_bus_reply_method_errorf(
        call, SD_BUS_ERROR_ACCESS_DENIED, "Only for processes of this user");
}

}  // namespace

PortService& PortService::Get() {
    static PortService& service = *new PortService;
    return service;
}

void PortService::Begin(sd_bus* bus) {
    if (bus == nullptr || std::exchange(fBegun, true))
        return;
    (void)sd_bus_add_object_vtable(bus, nullptr, kPath, kInterface, kMethods, nullptr);
}

bool PortService::IsTrusted(const std::string& peer) {
    sd_bus* const bus = Bus::Get().Connection();
    return bus != nullptr && BusPeers::Get().OwnerOf(bus, peer) == BusPeers::Owner::kUser;
}

int PortService::Open(sd_bus_message* call) {
    const char* name = nullptr;
    const int result = sd_bus_message_read(call, "s", &name);
    if (result < 0)
        return result;
    if (!IsTrusted(sender_of(call)))
        return refuse(call);
    const port_id port = local_port_named(name);
    if (port == 0)
        return sd_bus_reply_method_errorf(
            call, "org.lorivane.Error.NoSuchPort", "There is no port of that name");
    return sd_bus_reply_method_return(call, "i", port);
}

int PortService::Write(sd_bus_message* call) {
    int32_t port = 0, code = 0;
    uint32_t serial = 0;
    uint64_t waitUntil = 0, goodUntil = 0;
    const int result =
        sd_bus_message_read(call, "iuitt", &port, &serial, &code, &waitUntil, &goodUntil);
    if (result < 0)
        return result;
    const std::string sender = sender_of(call);
    if (!IsTrusted(sender))
        return refuse(call);

    Payload payload;
    switch (Payload::ReadFrom(call, kMostPortBytes, payload)) {
    case B_OK: break;
    case B_NO_MEMORY: return answer(call, PortResult::kNoMemory);
    default: return answer(call, PortResult::kBadMessage);
    }
    if (goodUntil < uint64(system_time()))
        return answer(call, PortResult::kTooLate);

    const auto bySender = fHeldBySender.find(sender);
    const bool mayWait = waitUntil > uint64(system_time()) &&
        sd_bus_message_get_expect_reply(call) > 0 && fHeld.size() < kMostHeld &&
        (bySender == fHeldBySender.end() || bySender->second < kMostHeldBySender);
    const HeldWrite write = ++fLastWrite;
    switch (offer_to_port(port, code, std::move(payload), mayWait, write)) {
    case OfferResult::kWritten: return answer(call, PortResult::kWritten);
    case OfferResult::kNoPort: return answer(call, PortResult::kNoPort);
    case OfferResult::kFull: return answer(call, PortResult::kFull);
    case OfferResult::kHeld: break;
    }
    Hold(write, call, port, serial, waitUntil);
    return 1;
}

int PortService::Withdraw(sd_bus_message* call) {
    int32_t port = 0;
    uint32_t serial = 0;
    const int result = sd_bus_message_read(call, "iu", &port, &serial);
    if (result < 0)
        return result;
    const std::string sender = sender_of(call);
    const auto found = std::find_if(fHeld.begin(), fHeld.end(), [&](const auto& entry) {
        const Held& held = entry.second;
        return held.port == port && held.serial == serial && held.sender == sender;
    });
    if (found != fHeld.end())
        GiveUp(found, PortResult::kFull);
    return 1;
}

// #pragma mark - Held writes

void PortService::Hold(
    HeldWrite write, sd_bus_message* call, port_id port, uint32 serial, uint64 until) {
    const std::string sender = sender_of(call);
    Held held{sd_bus_message_ref(call), sender, port, serial, {}};
    if (until < uint64(INT64_MAX)) {
        held.expiry = Bus::Get().PostAt(bigtime_t(until), [write](sd_bus*) {
            PortService& service = Get();
            const auto found = service.fHeld.find(write);
            if (found != service.fHeld.end())
                service.GiveUp(found, PortResult::kFull);
        });
    }
    fHeld.emplace(write, std::move(held));
    if (fHeldBySender[sender]++ == 0)
        BusPeers::Get().Watch(
            Bus::Get().Connection(), sender, [sender] { Get().DropAllOf(sender); });
}

PortService::HeldWrites::iterator PortService::Drop(HeldWrites::iterator held) {
    Bus::Get().Forget(held->second.expiry);
    sd_bus_message_unref(held->second.call);
    const auto bySender = fHeldBySender.find(held->second.sender);
    if (--bySender->second == 0) {
        BusPeers::Get().Unwatch(bySender->first);
        fHeldBySender.erase(bySender);
    }
    return fHeld.erase(held);
}

void PortService::EndHeld(HeldWrite write, PortResult result) {
    const auto held = fHeld.find(write);
    if (held == fHeld.end())
        return;
    (void)answer(held->second.call, result);
    Drop(held);
}

void PortService::GiveUp(HeldWrites::iterator held, PortResult result) {
    // Else it has been served, and its answer is on its way to this thread.
    if (!withdraw_from_port(held->second.port, held->first))
        return;
    (void)answer(held->second.call, result);
    Drop(held);
}

void PortService::DropAllOf(const std::string& sender) {
    for (auto held = fHeld.begin(); held != fHeld.end();) {
        if (held->second.sender != sender) {
            ++held;
            continue;
        }
        withdraw_from_port(held->second.port, held->first);
        held = Drop(held);
    }
}

void end_held_write(HeldWrite write, PortResult result) {
    Bus::Get().Post([write, result](sd_bus*) { PortService::Get().EndHeld(write, result); });
}

}  // namespace BPrivate
