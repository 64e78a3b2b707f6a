// Broadcasts between running applications.

#include <app/Message.h>
#include <app/Roster.h>
#include <gtest/gtest.h>
#include <map>

#include "tests/Eventually.h"
#include "tests/kits/bus/Session.h"

namespace {

constexpr char kOne[] = "application/x-vnd.Test-One";
constexpr char kTwo[] = "application/x-vnd.Test-Two";

/// An application in its Run().
class RunningPeer : public Peer {
public:
    explicit RunningPeer(const char* signature, Environment environment = {})
        : Peer({}, With(std::move(environment), signature)) {
        EXPECT_EQ(Hear(), "ready");
    }

private:
    static Environment With(Environment environment, const char* signature) {
        environment["PEER_SIGNATURE"] = signature;
        return environment;
    }
};

class RosterTest : public testing::Test {
protected:
    /// Until it can be reached, which it cannot tell itself.
    static void Await(const char* signature) {
        EXPECT_TRUE(eventually([signature] { return be_roster->IsRunning(signature); }));
    }

    Session& fSession = Session::Get();
};

}  // namespace

TEST_F(RosterTest, ReachesEveryoneOnce) {
    RunningPeer one(kOne), two(kTwo), again(kTwo);
    Await(kOne);
    Await(kTwo);
    EXPECT_EQ(one.Ask("broadcast ping x 0"), "got ping x 0 pointer");
    EXPECT_EQ(two.Hear(), "got ping x 0 remote");
    // The second of the two waits for the name; what it broadcasts shows that it is there.
    again.Say("broadcast pong x 0");
    EXPECT_TRUE(again.HearUntil("got pong x 0 pointer"));
    EXPECT_EQ(one.Hear(), "got pong x 0 remote");
    EXPECT_EQ(two.Hear(), "got pong x 0 remote");

    EXPECT_EQ(one.Ask("broadcast last x 0"), "got last x 0 pointer");
    // This one reads its own without the bus, and nobody gets anything twice.
    EXPECT_EQ(two.Hear(), "got last x 0 remote");
    // It may have heard the pings as well, if it was there early enough.
    EXPECT_TRUE(again.HearUntil("got last x 0 remote"));
    EXPECT_EQ(one.Ask("broadcast more x 0"), "got more x 0 pointer");
    EXPECT_EQ(two.Hear(), "got more x 0 remote");
    EXPECT_EQ(again.Hear(), "got more x 0 remote");
    EXPECT_EQ(one.Ask("broadcast endX x 0"), "got endX x 0 pointer");
    EXPECT_EQ(two.Hear(), "got endX x 0 remote");
}

TEST_F(RosterTest, KeepsTheOrder) {
    RunningPeer one(kOne), two(kTwo);
    Await(kTwo);
    for (int i = 0; i < 500; ++i)
        one.Say("broadcast numb " + std::to_string(i) + " 0");
    for (int i = 0; i < 500; ++i)
        EXPECT_EQ(two.Hear(), "got numb " + std::to_string(i) + " 0 remote");
}

TEST_F(RosterTest, CarriesLargeMessages) {
    RunningPeer one(kOne), two(kTwo);
    Await(kTwo);
    for (const size_t size : {60000, 70000, 1 << 20, 10 << 20}) {
        one.Say("broadcast larg x " + std::to_string(size));
        EXPECT_EQ(two.Hear(), "got larg x " + std::to_string(size) + " remote");
        EXPECT_TRUE(one.HearUntil("got larg x " + std::to_string(size) + " pointer"));
    }
    // More than a message may have when it is flattened.
    EXPECT_EQ(one.Ask("broadcast larg x 20000000"), "refused " + std::to_string(B_BAD_VALUE));
    EXPECT_EQ(one.Ask("broadcast smal x 0"), "got smal x 0 pointer");
    EXPECT_EQ(two.Hear(), "got smal x 0 remote");
}

TEST_F(RosterTest, OnlyTheKitsSendTheirOwnCommands) {
    RunningPeer one(kOne), two(kTwo);
    Await(kTwo);
    for (const char* code : {"_QRQ", "_RRC", "_CCH", "_KYD", "RPLY"})
        EXPECT_EQ(one.Ask(std::string("broadcast ") + code + " x 0"),
            "refused " + std::to_string(B_NOT_ALLOWED));
    EXPECT_EQ(one.Ask("broadcast _Sic x 0"), "got _Sic x 0 pointer");
    EXPECT_EQ(two.Hear(), "got _Sic x 0 remote");
    BMessage quit('_QRQ');
    EXPECT_EQ(be_roster->Broadcast(&quit), B_NOT_ALLOWED);
    EXPECT_EQ(be_roster->Broadcast(nullptr), B_BAD_VALUE);
}

TEST_F(RosterTest, AProcessThatIsNoApplicationReachesThem) {
    RunningPeer two(kTwo);
    Await(kTwo);
    BMessage message('hiya');
    message.AddString("text", "there");
    message.AddPointer("pointer", &message);
    BMessage inner('innr');
    inner.AddPointer("pointer", &message);
    message.AddMessage("inner", &inner);
    EXPECT_EQ(be_roster->Broadcast(&message), B_OK);
    EXPECT_EQ(two.Hear(), "got hiya there 0 remote");
    // The sender's own is as it was.
    EXPECT_TRUE(message.HasPointer("pointer"));
}

TEST_F(RosterTest, KnowsWhoRuns) {
    EXPECT_FALSE(be_roster->IsRunning(kOne));
    EXPECT_FALSE(be_roster->IsRunning(nullptr));
    RunningPeer two(kTwo);
    {
        RunningPeer one(kOne), again(kOne);
        Await(kOne);
        EXPECT_TRUE(be_roster->IsRunning("Application/x-VND.test-one"));
        EXPECT_EQ(two.Ask(std::string("running ") + kOne), "yes");
        EXPECT_EQ(two.Ask(std::string("running ") + kTwo), "yes");
        EXPECT_EQ(two.Ask("running application/x-vnd.Test"), "no");
        one.Say("quit");
        EXPECT_TRUE(one.HearUntil("ended"));
        EXPECT_EQ(one.Wait(), 0);
        // The other one still does.
        Await(kOne);
    }
    EXPECT_TRUE(eventually([] { return !be_roster->IsRunning(kOne); }));
}

TEST_F(RosterTest, WhatIsSentAtTheEndArrives) {
    RunningPeer two(kTwo);
    Await(kTwo);
    for (int i = 0; i < 20; ++i) {
        RunningPeer one(kOne);
        one.Say("broadcast byeX " + std::to_string(i) + " 100000");
        one.Say("quit");
        EXPECT_EQ(two.Hear(), "got byeX " + std::to_string(i) + " 100000 remote");
        EXPECT_EQ(one.Wait(), 0);
    }
}

TEST_F(RosterTest, AnApplicationThatHangsHoldsNobodyUp) {
    RunningPeer one(kOne), two(kTwo);
    Await(kOne);
    Await(kTwo);
    EXPECT_EQ(one.Ask("hang"), "hangs");
    for (int i = 0; i < 1500; ++i)
        two.Say("broadcast numb " + std::to_string(i) + " 70000");
    EXPECT_TRUE(two.HearUntil("got numb 1499 70000 pointer"));
}

TEST_F(RosterTest, WithoutABusOneIsAlone) {
    const Process::Environment garbage[] = {
        {{"DBUS_SESSION_BUS_ADDRESS", ""}, {"XDG_RUNTIME_DIR", ""}},
        {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus"}},
        {{"DBUS_SESSION_BUS_ADDRESS", "garbage"}},
        {{"DBUS_SESSION_BUS_ADDRESS", "unix:abstract="}},
    };
    for (const Process::Environment& environment : garbage) {
        RunningPeer one(kOne, environment);
        EXPECT_EQ(one.Ask("broadcast ping x 0"), "got ping x 0 pointer");
        EXPECT_EQ(one.Ask(std::string("running ") + kOne), "yes");
        EXPECT_EQ(one.Ask(std::string("running ") + kTwo), "no");
        one.Say("quit");
        EXPECT_TRUE(one.HearUntil("ended"));
        EXPECT_EQ(one.Wait(), 0);
        EXPECT_EQ(one.Errors(), "");
    }
}
