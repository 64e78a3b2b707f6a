#include "kits/kernel/BusPeers.h"

#include <cstdint>
#include <optional>
#include <utility>

#include <systemd/sd-bus.h>
#include <unistd.h>

#include "kits/kernel/Bus.h"

namespace BPrivate {

namespace {

// How many answers are remembered. Asking again costs a little time, no more.
constexpr size_t kMostOwners = 512;

// The bus answers within microseconds. If it does not it has been stopped, and so has everything.
constexpr uint64_t kTimeout = 1000000;

/// Nothing when the bus did not tell.
std::optional<BusPeers::Owner> ask_for_owner(sd_bus* bus, const std::string& peer) {
    sd_bus_message* call = nullptr;
    sd_bus_message* answer = nullptr;
    sd_bus_error error{};
    uint32_t uid = 0;
    std::optional<BusPeers::Owner> owner;
    if (sd_bus_message_new_method_call(bus, &call, "org.freedesktop.DBus", "/org/freedesktop/DBus",
            "org.freedesktop.DBus", "GetConnectionUnixUser") >= 0 &&
        sd_bus_message_append(call, "s", peer.c_str()) >= 0) {
        if (sd_bus_call(bus, call, kTimeout, &error, &answer) < 0) {
            if (sd_bus_error_has_name(&error, SD_BUS_ERROR_NAME_HAS_NO_OWNER) != 0)
                owner = BusPeers::Owner::kGone;
        } else if (sd_bus_message_read(answer, "u", &uid) > 0) {
            owner = uid == geteuid() ? BusPeers::Owner::kUser : BusPeers::Owner::kSomebodyElse;
        }
    }
    sd_bus_error_free(&error);
    sd_bus_message_unref(answer);
    sd_bus_message_unref(call);
    return owner;
}

}  // namespace

struct BusPeers::Watched {
    std::string peer;
    std::function<void()> gone;
    sd_bus_slot* slot = nullptr;

    ~Watched() { sd_bus_slot_unref(slot); }
};

BusPeers::BusPeers() {
    Bus::Get().WhenLost([this] {
        for (const auto& [peer, watched] : std::exchange(fWatched, {}))
            watched->gone();
    });
}

BusPeers& BusPeers::Get() {
    static BusPeers& peers = *new BusPeers;
    return peers;
}

BusPeers::Owner BusPeers::OwnerOf(sd_bus* bus, const std::string& peer) {
    const auto found = fOwners.find(peer);
    if (found != fOwners.end())
        return found->second;
    const std::optional<Owner> owner = ask_for_owner(bus, peer);
    // What is not known is not remembered: a bus that was too slow once may answer the next time.
    if (owner && *owner != Owner::kGone) {
        if (fOwners.size() >= kMostOwners)
            fOwners.clear();
        fOwners.emplace(peer, *owner);
    }
    return owner.value_or(Owner::kSomebodyElse);
}

void BusPeers::Watch(sd_bus* bus, const std::string& peer, std::function<void()> gone) {
    auto watched = std::make_unique<Watched>();
    watched->peer = peer;
    watched->gone = std::move(gone);
    const auto changed = [](sd_bus_message* message, void* data, sd_bus_error*) {
        const char *name, *before, *after;
        if (sd_bus_message_read(message, "sss", &name, &before, &after) > 0 && *after == '\0')
            Get().Gone(std::string(static_cast<Watched*>(data)->peer));
        return 0;
    };
    // Without a handler of its own a refusal would close the connection.
    const auto installed = [](sd_bus_message*, void*, sd_bus_error*) { return 0; };
    const std::string match =
        "type='signal',sender='org.freedesktop.DBus',"
        "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='" +
        peer + "'";
    sd_bus_add_match_async(bus, &watched->slot, match.c_str(), changed, installed, watched.get());
    fWatched[peer] = std::move(watched);

    // It may have left before the bus knew that we want to hear of it.
    Bus::Get().CallBus("NameHasOwner", peer.c_str(), [peer](sd_bus_message* answer) {
        // A bus that does not say is no reason to forget the peer: it waits for an answer.
        int owned = 0;
        if (answer == nullptr || (sd_bus_message_read(answer, "b", &owned) > 0 && owned == 0))
            Get().Gone(peer);
    });
}

void BusPeers::Unwatch(const std::string& peer) {
    fWatched.erase(peer);
}

void BusPeers::Gone(const std::string& peer) {
    const auto watched = fWatched.extract(peer);
    if (!watched.empty())
        watched.mapped()->gone();
}

}  // namespace BPrivate
