// A second start hands its files to the first, and ends.

#include <csignal>
#include <deque>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <kernel/OS.h>

#include "tests/Eventually.h"
#include "tests/kits/bus/Client.h"
#include "tests/kits/bus/Session.h"

namespace {

constexpr char kBusName[] = "org.lorivane.Application.napplication_2fx_2dvnd_2etest_2dsingle";

constexpr char kSilence[] =
    "bus_test_peer: the one that runs already does not answer; starting "
    "another\n";

class SinglePeer : public Peer {
public:
    explicit SinglePeer(const std::vector<std::string>& words = {}, const std::string& folder = "",
        Environment environment = {})
        : Peer(words, With(std::move(environment)), folder) {}

private:
    static Environment With(Environment environment) {
        environment["PEER_SIGNATURE"] = "application/x-vnd.Test-Single";
        environment["PEER_SINGLE"] = "yes";
        return environment;
    }
};

class SingleLaunchTest : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "single-XXXXXX").string();
        fFolder = mkdtemp(pattern.data());
        for (const char* name : {"a.png", "b c.png", "-d.png", "\xff\xfe.png"})
            std::ofstream(fFolder / name) << "x";
    }
    void TearDown() override { std::filesystem::remove_all(fFolder); }

    std::string Path(const char* name) const { return fFolder / name; }
    std::string Ref(const char* name) const { return "ref " + Path(name); }

    Session& fSession = Session::Get();
    std::filesystem::path fFolder;
};

}  // namespace

TEST_F(SingleLaunchTest, HandsItsFilesOver) {
    SinglePeer first({Path("a.png")});
    EXPECT_EQ(first.Hear(), "argv 2");
    EXPECT_EQ(first.Hear(), Ref("a.png"));
    EXPECT_EQ(first.Hear(), "ready");

    SinglePeer second({"b c.png", "--", "-d.png", "\xff\xfe.png", Path("a.png")}, fFolder);
    EXPECT_EQ(second.Wait(), 0);
    EXPECT_EQ(second.Hear(), "(end)");
    EXPECT_EQ(second.Errors(), "");
    EXPECT_EQ(first.Hear(), "argv 6");
    for (const char* name : {"b c.png", "-d.png", "\xff\xfe.png", "a.png"})
        EXPECT_EQ(first.Hear(), Ref(name));
    first.Say("quit");
    EXPECT_EQ(first.Hear(), "ended");
    EXPECT_EQ(first.Wait(), 0);
}

TEST_F(SingleLaunchTest, ReportsItsErrorsItself) {
    SinglePeer first;
    EXPECT_EQ(first.Hear(), "ready");
    SinglePeer second({"none.png", "a.png", "--none"}, fFolder);
    EXPECT_EQ(second.Wait(), 0);
    EXPECT_EQ(second.Errors(),
        "bus_test_peer: none.png: No such file or directory\n"
        "bus_test_peer: unknown option: --none\n");
    EXPECT_EQ(first.Hear(), "argv 4");
    EXPECT_EQ(first.Hear(), Ref("a.png"));
    EXPECT_EQ(first.Errors(), "");

    SinglePeer third;
    EXPECT_EQ(third.Wait(), 0);
    EXPECT_EQ(third.Errors(), "");
}

TEST_F(SingleLaunchTest, OfManyAtOnceOneRuns) {
    for (int round = 0; round < 5; ++round) {
        std::deque<SinglePeer> peers;
        constexpr int kCount = 8;
        for (int i = 0; i < kCount; ++i)
            peers.emplace_back(std::vector<std::string>{Path("a.png")});
        int running = 0;
        for (SinglePeer& peer : peers) {
            std::string line = peer.Hear();
            if (line == "(end)") {
                EXPECT_EQ(peer.Wait(), 0);
                EXPECT_EQ(peer.Errors(), "");
                continue;
            }
            ++running;
            int files = line == Ref("a.png");
            while (files < kCount) {
                line = peer.Hear();
                ASSERT_NE(line, "(nothing)");
                files += line == Ref("a.png");
            }
        }
        EXPECT_EQ(running, 1);
    }
}

TEST_F(SingleLaunchTest, TakesThePlaceOfOneThatDied) {
    {
        SinglePeer first;
        EXPECT_EQ(first.Hear(), "ready");
        first.Kill();
    }
    SinglePeer second({Path("a.png")});
    EXPECT_EQ(second.Hear(), "argv 2");
    EXPECT_EQ(second.Hear(), Ref("a.png"));
    EXPECT_EQ(second.Hear(), "ready");
    EXPECT_EQ(second.Errors(), "");
}

TEST_F(SingleLaunchTest, TakesThePlaceOfOneThatDiesBeforeItAnswers) {
    SinglePeer first;
    EXPECT_EQ(first.Hear(), "ready");
    EXPECT_EQ(first.Ask("hang"), "hangs");
    SinglePeer second({Path("a.png")});
    // Else it dies before it is asked, which is the other test.
    EXPECT_EQ(first.Hear(), "asked");
    first.Kill();
    EXPECT_EQ(second.Hear(), "argv 2");
    EXPECT_EQ(second.Hear(), Ref("a.png"));
    EXPECT_EQ(second.Hear(), "ready");
    EXPECT_EQ(second.Errors(), "");
}

TEST_F(SingleLaunchTest, NoFileIsLostToOneThatEnds) {
    for (int round = 0; round < 30; ++round) {
        SinglePeer first;
        EXPECT_EQ(first.Hear(), "ready");
        first.Say("quit");
        SinglePeer second({Path("a.png")});
        const std::string line = second.Hear();
        if (line == "(end)") {
            EXPECT_EQ(second.Wait(), 0);
            EXPECT_EQ(first.Hear(), "argv 2");
            EXPECT_EQ(first.Hear(), Ref("a.png"));
        } else {
            EXPECT_EQ(line, "argv 2");
            EXPECT_EQ(second.Hear(), Ref("a.png"));
            EXPECT_EQ(second.Hear(), "ready");
        }
        EXPECT_TRUE(first.HearUntil("ended"));
        EXPECT_EQ(second.Errors(), "");
    }
}

TEST_F(SingleLaunchTest, GoesOnAloneWhenTheOtherIsStopped) {
    SinglePeer first;
    EXPECT_EQ(first.Hear(), "ready");
    first.Signal(SIGSTOP);
    const bigtime_t start = system_time();
    SinglePeer second({Path("a.png")});
    EXPECT_EQ(second.Hear(), "argv 2");
    EXPECT_GT(system_time() - start, 4900000);
    EXPECT_LT(system_time() - start, 15000000);
    EXPECT_EQ(second.Hear(), Ref("a.png"));
    EXPECT_EQ(second.Errors(), kSilence);
    // What it finds when it goes on has been shown.
    first.Signal(SIGCONT);
    EXPECT_EQ(first.Ask("broadcast ping x 0"), "got ping x 0 pointer");
}

TEST_F(SingleLaunchTest, GoesOnAloneWhenTheOtherHangs) {
    SinglePeer first;
    EXPECT_EQ(first.Hear(), "ready");
    EXPECT_EQ(first.Ask("hang"), "hangs");
    SinglePeer second({Path("a.png"), "/none"}, "", {{"PEER_ANSWER_LIMIT", "500"}});
    EXPECT_EQ(second.Hear(), "argv 3");
    EXPECT_EQ(second.Hear(), Ref("a.png"));
    EXPECT_EQ(second.Errors(),
        std::string(kSilence) + "bus_test_peer: /none: No such file or directory\n");
}

TEST_F(SingleLaunchTest, OneThatStartsSlowlyShowsItsOwnFilesFirst) {
    SinglePeer first({Path("b c.png")}, "", {{"PEER_SLOW", "yes"}});
    EXPECT_EQ(first.Hear(), "starts");
    SinglePeer second({Path("a.png")});
    first.Say("go on");
    EXPECT_EQ(second.Wait(), 0);
    EXPECT_EQ(first.Hear(), "argv 2");
    EXPECT_EQ(first.Hear(), Ref("b c.png"));
    EXPECT_EQ(first.Hear(), "ready");
    EXPECT_EQ(first.Hear(), "argv 2");
    EXPECT_EQ(first.Hear(), Ref("a.png"));
    EXPECT_EQ(second.Errors(), "");
}

TEST_F(SingleLaunchTest, TellsWhetherItIsReady) {
    Client client;
    const auto isReady = [&] {
        return client.CallApplication(kBusName, "IsReady", [](sd_bus_message*) { return 0; });
    };
    SinglePeer first({}, "", {{"PEER_SLOW", "yes"}});
    EXPECT_EQ(first.Hear(), "starts");
    EXPECT_EQ(isReady(), "0");
    first.Say("go on");
    EXPECT_EQ(first.Hear(), "ready");
    EXPECT_TRUE(eventually([&] { return isReady() == "1"; }));
}

TEST_F(SingleLaunchTest, WaitsLongerForOneThatIsStarting) {
    Client first;
    sd_bus_message* launch = nullptr;
    int questions = 0;
    ASSERT_TRUE(first.ServeApplication(kBusName, [&](sd_bus_message* call) {
        if (sd_bus_message_is_method_call(call, nullptr, "Launch") > 0) {
            launch = sd_bus_message_ref(call);
            return 1;
        }
        ++questions;
        return sd_bus_reply_method_return(call, "b", 0);
    }));
    SinglePeer second({Path("a.png")}, "", {{"PEER_ANSWER_LIMIT", "200"}});
    EXPECT_TRUE(first.AwaitAnswers([&] { return questions > 0; }));
    ASSERT_NE(launch, nullptr);
    EXPECT_GE(sd_bus_reply_method_return(launch, "u", 0u), 0);
    sd_bus_message_unref(launch);
    first.Flush();
    EXPECT_EQ(second.Wait(), 0);
    EXPECT_EQ(second.Hear(), "(end)");
    EXPECT_EQ(second.Errors(), "");
}

TEST_F(SingleLaunchTest, WithoutABusEveryoneIsTheFirst) {
    for (const char* address : {"", "garbage", "unix:path=/nonexistent"}) {
        const Process::Environment environment = {
            {"DBUS_SESSION_BUS_ADDRESS", address}, {"XDG_RUNTIME_DIR", ""}};
        SinglePeer first({}, "", environment), second({}, "", environment);
        EXPECT_EQ(first.Hear(), "ready");
        EXPECT_EQ(second.Hear(), "ready");
        EXPECT_EQ(first.Errors() + second.Errors(), "");
    }
}

TEST_F(SingleLaunchTest, WhoMayRunTwiceDoes) {
    const Process::Environment environment = {{"PEER_SIGNATURE", "application/x-vnd.Test-Many"}};
    Peer first({}, environment), second({}, environment);
    EXPECT_EQ(first.Hear(), "ready");
    EXPECT_EQ(second.Hear(), "ready");
}
