#pragma once

#include "tests/kits/bus/Process.h"

#include <memory>
#include <string>

/// A session bus for the tests. Its address is in the environment of this process and of those it
/// starts.
class Session {
public:
    Session();

    const std::string& Address() const { return fAddress; }
    Process& Daemon() { return fDaemon; }

    /// The one that this process's own connection is on; begun by the first call.
    static Session& Get();

private:
    Process fDaemon;
    std::string fAddress;
};

/// A process of the kits, which takes the commands listed in peer/Peer.cpp.
class Peer : public Process {
public:
    explicit Peer(const std::vector<std::string>& words = {}, const Environment& environment = {},
        const std::string& folder = "");
};
