#include "tests/kits/bus/Session.h"

#include <cstdlib>

namespace {

std::vector<std::string> PeerWords(const std::vector<std::string>& words) {
    std::vector<std::string> all = {BUS_TEST_PEER};
    all.insert(all.end(), words.begin(), words.end());
    return all;
}

}  // namespace

Session::Session()
    : fDaemon({"dbus-daemon", "--config-file", BUS_TEST_CONFIGURATION, "--nofork", "--nopidfile",
          "--print-address=1"}),
      fAddress(fDaemon.Hear()) {}

Session& Session::Get() {
    static Session session;
    static const bool isSet = setenv("DBUS_SESSION_BUS_ADDRESS", session.Address().c_str(), 1) == 0;
    (void)isSet;
    return session;
}

Peer::Peer(const std::vector<std::string>& words, const Environment& environment,
    const std::string& folder)
    : Process(PeerWords(words), environment, folder) {}
