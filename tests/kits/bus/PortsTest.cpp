// Ports of other processes.

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <kernel/OS.h>
#include <list>
#include <set>
#include <thread>

#include "tests/Eventually.h"
#include "tests/kits/bus/Session.h"
#include "tests/kits/bus/peer/Peer.h"

namespace {

class PortsTest : public testing::Test {
protected:
    void SetUp() override {
        Session::Get();
        ASSERT_EQ(fOwner.Ask("create port 3"), "1");
        fPort = find_port("port");
        ASSERT_GT(fPort, 0);
    }

    static status_t Write(port_id port, int32 code, size_t size, bigtime_t timeout) {
        const std::string bytes = Pattern(code, size);
        return write_port_etc(port, code, bytes.data(), size, B_RELATIVE_TIMEOUT, timeout);
    }
    status_t Write(int32 code, size_t size = 10, bigtime_t timeout = B_INFINITE_TIMEOUT) const {
        return Write(fPort, code, size, timeout);
    }

    void Fill() const {
        for (const int32 code : {1, 2, 3})
            ASSERT_EQ(Write(code), B_OK);
    }

    /// Until a thread waits in a call to the port, as the owner cannot tell.
    static bool IsWaiting(thread_id thread) {
        return eventually([thread] {
            thread_info info;
            return get_thread_info(thread, &info) == B_OK && info.state == B_THREAD_WAITING;
        });
    }

    Session& fSession = Session::Get();
    Peer fOwner;
    port_id fPort = 0;
};

}  // namespace

TEST_F(PortsTest, AreWrittenFromElsewhere) {
    EXPECT_EQ(Write(7, 100), B_OK);
    EXPECT_EQ(fOwner.Ask("count 1"), "1");
    EXPECT_EQ(Write(8, 0), B_OK);
    EXPECT_EQ(fOwner.Ask("read 1"), "7 100 good");
    EXPECT_EQ(fOwner.Ask("read 1"), "8 0 good");
}

TEST_F(PortsTest, MessagesOfAnySizeArrive) {
    for (const size_t size : {1, 65535, 65536, 65537, 1 << 20, (1 << 20) + 1, 100'000'000}) {
        EXPECT_EQ(Write(5, size), B_OK) << size;
        EXPECT_EQ(fOwner.Ask("read 1"), "5 " + std::to_string(size) + " good");
    }
}

TEST_F(PortsTest, TooLargeIsRefused) {
    const std::string byte("x");
    EXPECT_EQ(write_port(fPort, 1, byte.data(), (size_t{256} << 20) + 1), B_BAD_VALUE);
    EXPECT_EQ(write_port(fPort, 1, nullptr, 1), B_BAD_VALUE);
    EXPECT_EQ(fOwner.Ask("count 1"), "0");
}

TEST_F(PortsTest, AnIdIsTheSameForOnePort) {
    EXPECT_EQ(find_port("port"), fPort);
    ASSERT_GT(std::stoi(fOwner.Ask("create other 1")), 0);
    EXPECT_NE(find_port("other"), fPort);
    EXPECT_EQ(find_port("third"), B_NAME_NOT_FOUND);
}

TEST_F(PortsTest, AnyNameIsFound) {
    for (const std::string name : {"1", "a.b", "a_2eb", "/\\\"'", "\xc3\xa4\xe6\x97\xa5",
             "0123456789012345678901234567890123456789"}) {
        const std::string created = fOwner.Ask("create " + name + " 1");
        EXPECT_GT(std::stoi(created), 0) << name;
        EXPECT_GT(find_port(name.c_str()), 0) << name;
        EXPECT_EQ(fOwner.Ask("delete " + created), "0") << name;
        EXPECT_EQ(find_port(name.c_str()), B_NAME_NOT_FOUND) << name;
    }
}

TEST_F(PortsTest, ANameIsTakenOnce) {
    EXPECT_EQ(create_port(1, "port"), B_NAME_IN_USE);
    Peer other;
    EXPECT_EQ(other.Ask("create port 1"), std::to_string(B_NAME_IN_USE));
    EXPECT_EQ(fOwner.Ask("create port 1"), std::to_string(B_NAME_IN_USE));
    EXPECT_EQ(fOwner.Ask("delete 1"), "0");
    EXPECT_GT(std::stoi(other.Ask("create port 1")), 0);
}

TEST_F(PortsTest, OfTwoThatRaceOneGetsTheName) {
    Peer one, two;
    for (int round = 0; round < 20; ++round) {
        one.Say("create race 1");
        two.Say("create race 1");
        const int first = std::stoi(one.Hear()), second = std::stoi(two.Hear());
        EXPECT_NE(first > 0, second > 0);
        EXPECT_EQ(std::min(first, second), B_NAME_IN_USE);
        Peer& winner = first > 0 ? one : two;
        EXPECT_EQ(winner.Ask("delete " + std::to_string(std::max(first, second))), "0");
    }
}

TEST_F(PortsTest, OnlyTheOwnerReadsAndDeletes) {
    char byte;
    EXPECT_EQ(read_port(fPort, nullptr, &byte, 1), B_NOT_ALLOWED);
    EXPECT_EQ(port_buffer_size(fPort), B_NOT_ALLOWED);
    EXPECT_EQ(port_count(fPort), B_NOT_ALLOWED);
    EXPECT_EQ(close_port(fPort), B_NOT_ALLOWED);
    EXPECT_EQ(delete_port(fPort), B_NOT_ALLOWED);
    EXPECT_EQ(Write(1), B_OK);
}

TEST_F(PortsTest, AFullPortLetsNobodyIn) {
    Fill();
    EXPECT_EQ(Write(4, 10, 0), B_WOULD_BLOCK);
    EXPECT_EQ(Write(4, 10, -5), B_WOULD_BLOCK);
    const bigtime_t start = system_time();
    EXPECT_EQ(Write(4, 10, 50000), B_TIMED_OUT);
    EXPECT_GE(system_time() - start, 50000);
    EXPECT_EQ(write_port_etc(fPort, 4, "", 0, B_ABSOLUTE_TIMEOUT, 1), B_TIMED_OUT);
    EXPECT_EQ(fOwner.Ask("count 1"), "3");
    EXPECT_EQ(fOwner.Ask("read 1"), "1 10 good");
    // There is room, so the time does not matter.
    EXPECT_EQ(Write(4, 10, 0), B_OK);
    EXPECT_EQ(fOwner.Ask("read 1"), "2 10 good");
    EXPECT_EQ(write_port_etc(fPort, 5, "", 0, B_ABSOLUTE_TIMEOUT, 1), B_OK);
}

TEST_F(PortsTest, WhoWaitsForRoomGetsIt) {
    Fill();
    std::atomic<status_t> status = 1;
    auto write = [&]() -> int32 { return status = Write(4, 200000); };
    const thread_id thread =
        spawn_thread([](void* data) -> int32 { return (*static_cast<decltype(write)*>(data))(); },
            "writer", B_NORMAL_PRIORITY, &write);
    resume_thread(thread);
    ASSERT_TRUE(IsWaiting(thread));
    // Behind one who waits nobody gets in, but he does not lose his turn.
    EXPECT_EQ(Write(5, 10, 100000), B_TIMED_OUT);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(fOwner.Ask("read 1"), "1 10 good");
    EXPECT_TRUE(eventually([&] { return status == B_OK; }));
    for (const char* rest : {"2 10 good", "3 10 good", "4 200000 good"})
        EXPECT_EQ(fOwner.Ask("read 1"), rest);
    status_t result;
    wait_for_thread(thread, &result);
}

TEST_F(PortsTest, ManyWritersAllArrive) {
    std::vector<std::thread> writers;
    std::atomic<int> written = 0;
    for (int writer = 0; writer < 40; ++writer) {
        writers.emplace_back([&, writer] {
            for (int i = 0; i < 5; ++i)
                written += Write(writer * 100 + i) == B_OK;
        });
    }
    std::map<int, int> last;
    for (int i = 0; i < 200; ++i) {
        const int code = std::stoi(fOwner.Ask("read 1"));
        const auto before = last.find(code / 100);
        EXPECT_EQ(code % 100, before == last.end() ? 0 : before->second + 1);
        last[code / 100] = code % 100;
    }
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(written, 200);
}

TEST_F(PortsTest, MoreOfAProcessWaitThanTheOwnerLetsAtOnce) {
    Fill();
    struct Writer {
        port_id port;
        int32 code;
        thread_id thread;
    };
    constexpr int32 kFirst = 4, kLast = 73;
    std::list<Writer> writers;
    for (int32 code = kFirst; code <= kLast; ++code) {
        Writer& writer = writers.emplace_back(fPort, code, -1);
        const auto write = [](void* data) -> int32 {
            const auto& self = *static_cast<Writer*>(data);
            return Write(self.port, self.code, 10, B_INFINITE_TIMEOUT);
        };
        writer.thread = spawn_thread(write, "writer", B_NORMAL_PRIORITY, &writer);
        resume_thread(writer.thread);
    }
    for (const Writer& writer : writers)
        EXPECT_TRUE(IsWaiting(writer.thread));
    std::set<int> codes;
    for (int32 i = 1; i <= kLast; ++i)
        codes.insert(std::stoi(fOwner.Ask("read 1")));
    EXPECT_EQ(codes.size(), size_t{kLast});
    for (const Writer& writer : writers) {
        status_t result = B_ERROR;
        EXPECT_EQ(wait_for_thread(writer.thread, &result), B_OK);
        EXPECT_EQ(result, B_OK);
    }
}

TEST_F(PortsTest, AKilledOwnersPortIsGone) {
    Fill();
    std::atomic<int> refused = 0;
    std::vector<std::thread> writers;
    for (int i = 0; i < 20; ++i)
        writers.emplace_back([&] { refused += Write(4) == B_BAD_PORT_ID; });
    EXPECT_EQ(Write(5, 10, 50000), B_TIMED_OUT);
    fOwner.Kill();
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(refused, 20);
    EXPECT_EQ(Write(1), B_BAD_PORT_ID);
    EXPECT_EQ(find_port("port"), B_NAME_NOT_FOUND);

    Peer heir;
    EXPECT_GT(std::stoi(heir.Ask("create port 3")), 0);
    EXPECT_EQ(Write(1), B_BAD_PORT_ID);
    EXPECT_NE(find_port("port"), fPort);
}

TEST_F(PortsTest, ADeletedPortIsGoneAlsoWhenItsNameIsThereAgain) {
    Fill();
    std::thread writer([&] { EXPECT_EQ(Write(4), B_BAD_PORT_ID); });
    EXPECT_EQ(Write(5, 10, 50000), B_TIMED_OUT);
    EXPECT_EQ(fOwner.Ask("delete 1"), "0");
    writer.join();
    EXPECT_EQ(fOwner.Ask("create port 3"), "2");
    EXPECT_EQ(Write(1), B_BAD_PORT_ID);
    const port_id again = find_port("port");
    EXPECT_NE(again, fPort);
    EXPECT_EQ(Write(again, 6, 10, B_INFINITE_TIMEOUT), B_OK);
    EXPECT_EQ(fOwner.Ask("read 2"), "6 10 good");
}

TEST_F(PortsTest, WhoLearnsThatAPortIsGoneMayTakeItsName) {
    for (int round = 0; round < 20; ++round) {
        const std::string own = fOwner.Ask("create heir 1");
        const port_id port = find_port("heir");
        EXPECT_EQ(Write(port, 1, 10, 0), B_OK);
        port_id heir = 0;
        std::thread writer([&] {
            EXPECT_EQ(Write(port, 2, 10, B_INFINITE_TIMEOUT), B_BAD_PORT_ID);
            heir = create_port(1, "heir");
        });
        // Behind the one that waits.
        EXPECT_EQ(Write(port, 3, 10, 20000), B_TIMED_OUT);
        EXPECT_EQ(fOwner.Ask("delete " + own), "0");
        writer.join();
        EXPECT_GT(heir, 0);
        EXPECT_EQ(delete_port(heir), B_OK);
    }
}

TEST_F(PortsTest, AClosedPortIsReadToItsEnd) {
    Fill();
    std::thread writer([&] { EXPECT_EQ(Write(4), B_BAD_PORT_ID); });
    EXPECT_EQ(Write(5, 10, 50000), B_TIMED_OUT);
    EXPECT_EQ(fOwner.Ask("close 1"), "0");
    writer.join();
    EXPECT_EQ(Write(1), B_BAD_PORT_ID);
    for (const char* rest : {"1 10 good", "2 10 good", "3 10 good"})
        EXPECT_EQ(fOwner.Ask("read 1"), rest);
    EXPECT_EQ(fOwner.Ask("read 1"), std::to_string(B_BAD_PORT_ID));
}

TEST_F(PortsTest, AKilledWritersMessageDoesNotComeLater) {
    Fill();
    {
        Peer writer;
        ASSERT_GT(std::stoi(writer.Ask("create mark 1")), 0);
        const std::string port = writer.Ask("find port");
        writer.Say("write " + port + " 4 2000000");
        // It stands behind the other's, when that has arrived.
        EXPECT_EQ(Write(5, 10, 100000), B_TIMED_OUT);
    }
    // The owner is told before the name is gone for us.
    EXPECT_TRUE(eventually([] { return find_port("mark") == B_NAME_NOT_FOUND; }));
    EXPECT_EQ(Write(5, 10, 0), B_WOULD_BLOCK);
    for (const char* rest : {"1 10 good", "2 10 good", "3 10 good"})
        EXPECT_EQ(fOwner.Ask("read 1"), rest);
    EXPECT_EQ(fOwner.Ask("read 1 0"), std::to_string(B_WOULD_BLOCK));
}

TEST_F(PortsTest, AKilledThreadsMessageDoesNotComeLater) {
    Fill();
    auto write = [&]() -> int32 { return Write(4); };
    const thread_id thread =
        spawn_thread([](void* data) -> int32 { return (*static_cast<decltype(write)*>(data))(); },
            "writer", B_NORMAL_PRIORITY, &write);
    resume_thread(thread);
    ASSERT_TRUE(IsWaiting(thread));
    // Sent by the same connection, so he is there by now.
    EXPECT_EQ(Write(5, 10, 0), B_WOULD_BLOCK);
    EXPECT_EQ(kill_thread(thread), B_OK);
    EXPECT_EQ(Write(5, 10, 0), B_WOULD_BLOCK);
    for (const char* rest : {"1 10 good", "2 10 good", "3 10 good"})
        EXPECT_EQ(fOwner.Ask("read 1"), rest);
    EXPECT_EQ(fOwner.Ask("read 1 0"), std::to_string(B_WOULD_BLOCK));
}

TEST_F(PortsTest, AStoppedOwnerFindsNothingThatWasGivenUp) {
    fOwner.Signal(SIGSTOP);
    EXPECT_EQ(Write(1, 10, 0), B_WOULD_BLOCK);
    EXPECT_EQ(Write(2, 10, 1000), B_TIMED_OUT);
    fOwner.Signal(SIGCONT);
    EXPECT_EQ(Write(3), B_OK);
    EXPECT_EQ(fOwner.Ask("read 1"), "3 10 good");
    EXPECT_EQ(fOwner.Ask("count 1"), "0");
}

TEST_F(PortsTest, TwoProcessesWriteToEachOther) {
    const port_id own = create_port(2, "own");
    ASSERT_GT(own, 0);
    const std::string found = fOwner.Ask("find own");
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(Write(i, 1000), B_OK);
        EXPECT_EQ(fOwner.Ask("write " + found + " " + std::to_string(i) + " 70000"), "0");
        EXPECT_EQ(fOwner.Ask("read 1"), std::to_string(i) + " 1000 good");
        EXPECT_EQ(Read(own), std::to_string(i) + " 70000 good");
    }
    EXPECT_EQ(delete_port(own), B_OK);
    EXPECT_EQ(fOwner.Ask("write " + found + " 1 10"), std::to_string(B_BAD_PORT_ID));
}
