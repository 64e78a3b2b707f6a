#include "kits/app/RosterBus.h"

#include "kits/app/MessageAccess.h"
#include "kits/app/MessageField.h"
#include "kits/app/MessageFormat.h"
#include "kits/app/RosterInbox.h"
#include "kits/app/SingleLaunch.h"
#include "kits/interface/Display.h"
#include "kits/kernel/Bus.h"
#include "kits/kernel/BusPeers.h"
#include "kits/kernel/Payload.h"

#include <algorithm>
#include <app/AppDefs.h>
#include <atomic>
#include <cstdio>
#include <mutex>
#include <new>
#include <systemd/sd-bus.h>
#include <utility>
#include <vector>

namespace BPrivate {

namespace {

constexpr char kPath[] = "/org/lorivane/Roster";
constexpr char kInterface[] = "org.lorivane.Roster";

// As much may be on its way to the bus. More comes together only when the bus takes nothing.
constexpr size_t kMostUnsent = 64 << 20;

constexpr bigtime_t kBusTimeout = 1000000;

// A bus name has at most 255 characters.
constexpr size_t kMostNamePart = 200;

std::atomic<size_t> gUnsent = 0;
std::atomic<bool> gHasSent = false;

/// What this process is in the roster. `subscription` is the bus thread's.
struct Membership {
    std::mutex lock;
    std::string name;  // on the bus; empty: none
    sd_bus_slot* subscription = nullptr;
};

Membership& the_membership() {
    static Membership& membership = *new Membership;
    return membership;
}

/// Takes out what means something in one process only.
void remove_process_bound(BMessage& message) {
    std::vector<std::string> doomed, nested;
    char* name;
    type_code type;
    for (int32 i = 0; message.GetInfo(B_ANY_TYPE, i, &name, &type) == B_OK; ++i) {
        if (IsProcessBound(type))
            doomed.emplace_back(name);
        else if (type == B_MESSAGE_TYPE)
            nested.emplace_back(name);
    }
    for (const std::string& field : doomed)
        message.RemoveName(field.c_str());
    for (const std::string& field : nested) {
        BMessage inner;
        for (int32 i = 0; message.FindMessage(field.c_str(), i, &inner) == B_OK; ++i) {
            remove_process_bound(inner);
            message.ReplaceMessage(field.c_str(), i, &inner);
        }
    }
}

/// The message of a payload; B_BAD_DATA when it is anything else, or more.
status_t unflatten(const Payload& payload, BMessage& message) try {
    std::string bytes(payload.Size(), '\0');
    size_t size = 0;
    if (payload.Read(bytes.data(), bytes.size()) != B_OK ||
        FlattenedSizeFromLead(bytes, size) != B_OK || size != bytes.size())
        return B_BAD_DATA;
    const status_t status = message.Unflatten(bytes.data(), ssize_t(size));
    // Somebody may have learnt this process's identity and claim to have its pointers.
    remove_process_bound(message);
    return status;
} catch (const std::bad_alloc&) {
    return B_NO_MEMORY;
}

bool is_own(sd_bus* bus, const std::string& sender) {
    const char* own = nullptr;
    return sd_bus_get_unique_name(bus, &own) >= 0 && sender == own;
}

int handle_broadcast(sd_bus_message* signal, void*, sd_bus_error*) {
    const char* const name = sd_bus_message_get_sender(signal);
    sd_bus* const bus = sd_bus_message_get_bus(signal);
    const std::string sender = name != nullptr ? name : "";
    // An application that broadcasts as it quits may have left the bus already; the bus itself
    // lets nobody on but its own user's processes.
    if (sender.empty() || is_own(bus, sender) ||
        BusPeers::Get().OwnerOf(bus, sender) == BusPeers::Owner::kSomebodyElse)
        return 0;
    Payload payload;
    BMessage message;
    if (Payload::ReadFrom(signal, kMaxFlattenedSize, payload) == B_OK &&
        unflatten(payload, message) == B_OK && may_come_from_outside(message.what))
        RosterInbox::Get().Add(sender, message, MessageAccess::MemoryOf(message));
    return 0;
}

void ignore(sd_bus_message*) {}

void subscribe(sd_bus* bus) {
    // Without a handler of its own a refusal would close the connection.
    const auto installed = [](sd_bus_message*, void*, sd_bus_error*) { return 0; };
    sd_bus_slot*& slot = the_membership().subscription;
    if (bus != nullptr && slot == nullptr)
        sd_bus_match_signal_async(bus, &slot, nullptr, kPath, kInterface, "Broadcast",
            handle_broadcast, installed, nullptr);
}

void request_name(sd_bus* bus, const std::string& name) {
    sd_bus_message* call = nullptr;
    if (bus == nullptr ||
        sd_bus_message_new_method_call(bus, &call, "org.freedesktop.DBus", "/org/freedesktop/DBus",
            "org.freedesktop.DBus", "RequestName") < 0)
        return;
    // Waits for the name behind others of the same signature, so that it is taken as long as
    // one of them runs.
    if (sd_bus_message_append(call, "su", name.c_str(), uint32_t(0)) >= 0)
        Bus::Get().Call(call, B_INFINITE_TIMEOUT, ignore);
    sd_bus_message_unref(call);
}

void send_signal(sd_bus* bus, const Payload& payload) {
    sd_bus_message* signal = nullptr;
    if (bus == nullptr ||
        sd_bus_message_new_signal(bus, &signal, kPath, kInterface, "Broadcast") < 0)
        return;
    if (payload.AppendTo(signal))
        (void)sd_bus_send(bus, signal, nullptr);
    sd_bus_message_unref(signal);
}

}  // namespace

std::string application_bus_name(const std::string& signature) {
    // MIME types are the same in any case.
    std::string type = signature;
    std::transform(type.begin(), type.end(), type.begin(),
        [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    std::string part = bus_name_part(type);
    if (part.size() > kMostNamePart) {
        uint64 hash = 0xcbf29ce484222325;  // FNV-1a
        for (const char c : part)
            hash = (hash ^ uint8(c)) * 0x100000001b3;
        char digits[20];
        std::snprintf(digits, sizeof(digits), "-%016llx", static_cast<unsigned long long>(hash));
        part = part.substr(0, kMostNamePart) + digits;
    }
    return "org.lorivane.Application." + part;
}

void join_roster(const std::string& signature, const BMessenger& target) {
    const std::string name = application_bus_name(signature);
    {
        const std::lock_guard guard(the_membership().lock);
        the_membership().name = name;
    }
    RosterInbox::Get().SetTarget(target);
    Bus::Get().Post([name](sd_bus* bus) {
        // In this order, so that who sees the name can be heard.
        subscribe(bus);
        request_name(bus, name);
    });
}

void leave_roster() {
    std::string name;
    {
        const std::lock_guard guard(the_membership().lock);
        name = std::exchange(the_membership().name, {});
    }
    if (name.empty())
        return;
    RosterInbox::Get().SetTarget({});
    Bus::Get().Post([name](sd_bus*) {
        Bus::Get().CallBus("ReleaseName", name.c_str(), ignore);
        sd_bus_slot_unref(std::exchange(the_membership().subscription, nullptr));
    });
    if (gHasSent.exchange(false))
        (void)Bus::Get().Flush(system_time() + kBusTimeout);
}

bool is_running(const std::string& signature) {
    const std::string name = application_bus_name(signature);
    {
        const std::lock_guard guard(the_membership().lock);
        if (the_membership().name == name)
            return true;
    }
    const auto question = std::make_shared<BusQuestion>();
    Bus::Get().Post([name, question](sd_bus*) {
        Bus::Get().CallBus("NameHasOwner", name.c_str(), [question](sd_bus_message* answer) {
            int owned = 0;
            const bool known = answer != nullptr && sd_bus_message_read(answer, "b", &owned) > 0;
            answer_question(*question, known && owned != 0 ? B_OK : B_NAME_NOT_FOUND);
        });
    });
    return await_answer(*question, system_time() + kBusTimeout) == B_OK;
}

bool may_come_from_outside(uint32 what) {
    switch (what) {
    case B_ABOUT_REQUESTED:
    case B_WINDOW_ACTIVATED:
    case B_ARGV_RECEIVED:
    case B_QUIT_REQUESTED:
    case B_CANCEL:
    case B_KEY_DOWN:
    case B_KEY_UP:
    case B_UNMAPPED_KEY_DOWN:
    case B_UNMAPPED_KEY_UP:
    case B_MODIFIERS_CHANGED:
    case B_MINIMIZE:
    case B_MOUSE_DOWN:
    case B_MOUSE_MOVED:
    case B_MOUSE_ENTER_EXIT:
    case B_MOUSE_UP:
    case B_MOUSE_WHEEL_CHANGED:
    case B_PULSE:
    case B_READY_TO_RUN:
    case B_REFS_RECEIVED:
    case B_SCREEN_CHANGED:
    case B_VALUE_CHANGED:
    case B_VIEW_MOVED:
    case B_VIEW_RESIZED:
    case B_WINDOW_MOVED:
    case B_WINDOW_RESIZED:
    case B_WORKSPACES_CHANGED:
    case B_WORKSPACE_ACTIVATED:
    case B_ZOOM:
    case _UPDATE_:
    case _MESSAGE_DROPPED_:
    case B_REPLY:
    case B_NO_REPLY:
    case B_MESSAGE_NOT_UNDERSTOOD:
    case kControlChanged:
    case kControlFocused:
    case kMenusOpen:
    case kWindowHeld:
    case kBringToFront:
    case kLaunchMarker: return false;
    default: return true;
    }
}

status_t broadcast_to_others(const BMessage& message) {
    BMessage plain(message);
    remove_process_bound(plain);
    std::string bytes(size_t(plain.FlattenedSize()), '\0');
    status_t status = plain.Flatten(bytes.data(), ssize_t(bytes.size()));
    if (status != B_OK)
        return status;
    const size_t cost = bytes.size() + sizeof(Payload);
    if (gUnsent > kMostUnsent)
        return B_NO_MEMORY;
    const auto payload = std::make_shared<Payload>();
    status = Payload::ForBus(bytes.data(), bytes.size(), *payload);
    if (status != B_OK)
        return status;
    gHasSent = true;
    gUnsent += cost;
    Bus::Get().Post([payload, cost](sd_bus* bus) {
        send_signal(bus, *payload);
        gUnsent -= cost;
    });
    return B_OK;
}

}  // namespace BPrivate
