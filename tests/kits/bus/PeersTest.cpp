// What the bus says of the others on it, with a bus that the test plays.

#include <deque>
#include <future>
#include <gtest/gtest.h>
#include <string>
#include <sys/socket.h>
#include <systemd/sd-bus.h>
#include <thread>
#include <unistd.h>

#include "kits/kernel/Bus.h"
#include "kits/kernel/BusPeers.h"

using BPrivate::Bus;
using BPrivate::BusPeers;

namespace {

constexpr sd_id128_t kServer =
    SD_ID128_MAKE(01, 02, 03, 04, 05, 06, 07, 10, 11, 12, 13, 14, 15, 16, 17, 20);

/// A bus of two: who is asked, and who asks.
class PlayedBus {
public:
    PlayedBus() {
        int sockets[2];
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets) != 0)
            std::abort();
        sd_bus_new(&fServer);
        sd_bus_set_fd(fServer, sockets[0], sockets[0]);
        sd_bus_set_server(fServer, 1, kServer);
        sd_bus_add_filter(
            fServer, nullptr,
            [](sd_bus_message* call, void* data, sd_bus_error*) {
                return static_cast<PlayedBus*>(data)->Answer(call);
            },
            this);
        sd_bus_new(&fClient);
        sd_bus_set_fd(fClient, sockets[1], sockets[1]);
        if (sd_bus_start(fServer) < 0 || sd_bus_start(fClient) < 0)
            std::abort();
        fThread = std::thread([this] {
            int result = 0;
            while ((result = sd_bus_process(fServer, nullptr)) >= 0) {
                if (result == 0)
                    sd_bus_wait(fServer, UINT64_MAX);
            }
        });
    }
    ~PlayedBus() {
        sd_bus_close_unref(fClient);
        fThread.join();
        sd_bus_close_unref(fServer);
    }
    PlayedBus(const PlayedBus&) = delete;
    PlayedBus& operator=(const PlayedBus&) = delete;

    sd_bus* Client() const { return fClient; }

    /// What it answers, one after the other: a user's id, or an error.
    std::deque<std::string> fAnswers;

private:
    int Answer(sd_bus_message* call) {
        if (sd_bus_message_is_method_call(call, nullptr, "GetConnectionUnixUser") <= 0)
            return 0;
        const std::string answer = fAnswers.front();
        fAnswers.pop_front();
        return isdigit(answer[0]) != 0
            ? sd_bus_reply_method_return(call, "u", unsigned(std::stoul(answer)))
            : sd_bus_reply_method_errorf(call, answer.c_str(), "no");
    }

    sd_bus* fServer = nullptr;
    sd_bus* fClient = nullptr;
    std::thread fThread;
};

/// Asked on the thread of the process's own bus, as always.
BusPeers::Owner OwnerOf(const PlayedBus& bus, const std::string& peer) {
    std::promise<BusPeers::Owner> owner;
    Bus::Get().Post([&](sd_bus*) { owner.set_value(BusPeers::Get().OwnerOf(bus.Client(), peer)); });
    return owner.get_future().get();
}

const std::string kOwn = std::to_string(geteuid());
const std::string kOther = std::to_string(geteuid() + 1);

}  // namespace

TEST(PeersTest, IsAskedOnceForEachPeer) {
    PlayedBus bus;
    bus.fAnswers = {kOwn, kOther};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(OwnerOf(bus, ":9.1"), BusPeers::Owner::kUser);
        EXPECT_EQ(OwnerOf(bus, ":9.2"), BusPeers::Owner::kSomebodyElse);
    }
}

TEST(PeersTest, WhatTheBusDidNotSayIsNotRemembered) {
    PlayedBus bus;
    bus.fAnswers = {"org.freedesktop.DBus.Error.NameHasNoOwner",
        "org.freedesktop.DBus.Error.LimitsExceeded", kOwn};
    EXPECT_EQ(OwnerOf(bus, ":9.3"), BusPeers::Owner::kGone);
    EXPECT_EQ(OwnerOf(bus, ":9.3"), BusPeers::Owner::kSomebodyElse);
    EXPECT_EQ(OwnerOf(bus, ":9.3"), BusPeers::Owner::kUser);
}
