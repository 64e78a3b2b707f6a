#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include <support/SupportDefs.h>

struct sd_bus;

namespace BPrivate {

/// The others on the session bus, by the unique names that the bus gives them and never gives
/// again. For the bus's thread only.
class BusPeers {
public:
    enum class Owner { kUser, kSomebodyElse, kGone };

    static BusPeers& Get();

    /// Whose process it is; somebody else's while the bus does not say. Asks the bus, and waits for
    /// its answer, when it is a new one.
    Owner OwnerOf(sd_bus* bus, const std::string& peer);

    /// Has `gone()` called once when the peer has left the bus, if it has not already, or the bus
    /// itself is gone. A peer is watched for one at a time.
    void Watch(sd_bus* bus, const std::string& peer, std::function<void()> gone);
    void Unwatch(const std::string& peer);

private:
    struct Watched;

    BusPeers();
    void Gone(const std::string& peer);

    std::map<std::string, Owner> fOwners;
    std::map<std::string, std::unique_ptr<Watched>> fWatched;
};

}  // namespace BPrivate
