// Ports of this process. They are the same with a session bus and without one.

#include <gtest/gtest.h>
#include <kernel/OS.h>
#include <string>
#include <vector>

#include <unistd.h>

#include "tests/kits/kernel/Waiting.h"

namespace {

/// A name that no other process has.
std::string NameOf(const std::string& name) {
    return name + " " + std::to_string(getpid());
}

class PortTest : public testing::Test {
protected:
    void TearDown() override { delete_port(fPort); }

    status_t Write(int32 code, const std::string& text = "text", uint32 flags = 0,
        bigtime_t timeout = 0) const {
        return write_port_etc(fPort, code, text.data(), text.size(), flags, timeout);
    }

    std::string Read(int32 wantedCode) const {
        char buffer[100];
        int32 code = -1;
        const ssize_t size = read_port(fPort, &code, buffer, sizeof(buffer));
        EXPECT_EQ(code, wantedCode);
        return size < 0 ? "error" : std::string(buffer, size_t(size));
    }

    const port_id fPort = create_port(3, NameOf("port").c_str());
};

}  // namespace

TEST_F(PortTest, KeepsMessagesInOrder) {
    ASSERT_GT(fPort, 0);
    EXPECT_EQ(Write(1, "one"), B_OK);
    EXPECT_EQ(Write(2, ""), B_OK);
    EXPECT_EQ(Write(-3, std::string("a\0b", 3)), B_OK);
    EXPECT_EQ(port_count(fPort), 3);
    EXPECT_EQ(port_buffer_size(fPort), 3);
    EXPECT_EQ(Read(1), "one");
    EXPECT_EQ(port_buffer_size(fPort), 0);
    EXPECT_EQ(Read(2), "");
    EXPECT_EQ(Read(-3), std::string("a\0b", 3));
    EXPECT_EQ(port_count(fPort), 0);
}

TEST_F(PortTest, WhatDoesNotFitIsLost) {
    char buffer[3] = {'x', 'x', 'x'};
    EXPECT_EQ(Write(1, "long"), B_OK);
    EXPECT_EQ(Write(2, "next"), B_OK);
    EXPECT_EQ(read_port(fPort, nullptr, buffer, 2), 2);
    EXPECT_EQ(std::string(buffer, 3), "lox");
    EXPECT_EQ(read_port(fPort, nullptr, nullptr, 0), 0);
    EXPECT_EQ(port_count(fPort), 0);
}

TEST_F(PortTest, IsFoundByItsName) {
    EXPECT_EQ(find_port(NameOf("port").c_str()), fPort);
    EXPECT_EQ(find_port(NameOf("other").c_str()), B_NAME_NOT_FOUND);
    EXPECT_EQ(find_port(""), B_NAME_NOT_FOUND);
    EXPECT_EQ(find_port(nullptr), B_NAME_NOT_FOUND);
    EXPECT_EQ(create_port(1, NameOf("port").c_str()), B_NAME_IN_USE);
    EXPECT_EQ(delete_port(fPort), B_OK);
    EXPECT_EQ(find_port(NameOf("port").c_str()), B_NAME_NOT_FOUND);
    const port_id again = create_port(1, NameOf("port").c_str());
    EXPECT_GT(again, 0);
    EXPECT_NE(again, fPort);
    EXPECT_EQ(delete_port(again), B_OK);
}

TEST_F(PortTest, LongNamesAreCutAtACharacter) {
    // 30 bytes, and a character of two that would be split.
    const std::string cut = std::to_string(getpid()).substr(0, 10);
    const std::string name = cut + std::string(30 - cut.size(), 'n');
    const port_id port = create_port(1, (name + "\xc3\xa4").c_str());
    EXPECT_GT(port, 0);
    EXPECT_EQ(find_port(name.c_str()), port);
    EXPECT_EQ(find_port((name + "\xc3\xb6 and more").c_str()), port);
    EXPECT_EQ(delete_port(port), B_OK);
}

TEST_F(PortTest, RefusesNonsense) {
    EXPECT_EQ(create_port(0, "name"), B_BAD_VALUE);
    EXPECT_EQ(create_port(-1, "name"), B_BAD_VALUE);
    EXPECT_EQ(create_port(1, nullptr), B_BAD_VALUE);
    EXPECT_EQ(create_port(1, ""), B_BAD_VALUE);
    EXPECT_EQ(write_port(fPort, 0, nullptr, 1), B_BAD_VALUE);
    EXPECT_EQ(write_port(fPort, 0, "", size_t{1} << 40), B_BAD_VALUE);
    EXPECT_EQ(read_port(fPort, nullptr, nullptr, 1), B_BAD_VALUE);
    for (const port_id port : {-400, -1, 0, 12345678}) {
        char byte;
        EXPECT_EQ(write_port(port, 0, "", 0), B_BAD_PORT_ID);
        EXPECT_EQ(read_port(port, nullptr, &byte, 1), B_BAD_PORT_ID);
        EXPECT_EQ(port_buffer_size(port), B_BAD_PORT_ID);
        EXPECT_EQ(port_count(port), B_BAD_PORT_ID);
        EXPECT_EQ(close_port(port), B_BAD_PORT_ID);
        EXPECT_EQ(delete_port(port), B_BAD_PORT_ID);
    }
}

TEST_F(PortTest, AProcessHasOnlySoMany) {
    constexpr size_t kMost = 4096;
    std::vector<port_id> ports;
    port_id port = fPort;
    while (port > 0 && ports.size() < 2 * kMost) {
        ports.push_back(port);
        port = create_port(1, NameOf(std::to_string(ports.size())).c_str());
    }
    EXPECT_EQ(port, B_NO_MORE_PORTS);
    EXPECT_EQ(ports.size(), kMost);
    EXPECT_EQ(delete_port(ports.back()), B_OK);
    ports.back() = create_port(1, NameOf("another").c_str());
    EXPECT_GT(ports.back(), 0);
    for (size_t i = 1; i < ports.size(); ++i)
        EXPECT_EQ(delete_port(ports[i]), B_OK);
}

TEST_F(PortTest, WaitsNoLongerThanItMay) {
    char byte;
    EXPECT_EQ(read_port_etc(fPort, nullptr, &byte, 1, B_RELATIVE_TIMEOUT, 0), B_WOULD_BLOCK);
    EXPECT_EQ(port_buffer_size_etc(fPort, B_RELATIVE_TIMEOUT, -1), B_WOULD_BLOCK);
    bigtime_t start = system_time();
    EXPECT_EQ(port_buffer_size_etc(fPort, B_RELATIVE_TIMEOUT, 20000), B_TIMED_OUT);
    EXPECT_GE(system_time() - start, 20000);
    EXPECT_EQ(port_buffer_size_etc(fPort, B_ABSOLUTE_TIMEOUT, 1), B_TIMED_OUT);
    for (const int32 code : {1, 2, 3})
        EXPECT_EQ(Write(code, "text", B_RELATIVE_TIMEOUT, 0), B_OK);
    EXPECT_EQ(Write(4, "text", B_RELATIVE_TIMEOUT, 0), B_WOULD_BLOCK);
    start = system_time();
    EXPECT_EQ(Write(4, "text", B_ABSOLUTE_TIMEOUT, start + 20000), B_TIMED_OUT);
    EXPECT_GE(system_time() - start, 20000);
    EXPECT_EQ(port_count(fPort), 3);
}

TEST_F(PortTest, ReadersWaitForMessages) {
    std::atomic<ssize_t> size = -1;
    auto read = [&]() -> int32 {
        size = port_buffer_size(fPort);
        return B_OK;
    };
    const thread_id reader = spawn(read);
    resume_thread(reader);
    ASSERT_TRUE(eventually([reader] { return state_of(reader) == B_THREAD_RECEIVING; }));
    EXPECT_EQ(Write(1, "12345"), B_OK);
    EXPECT_EQ(run_to_end(reader), B_OK);
    EXPECT_EQ(size, 5);
}

TEST_F(PortTest, WritersAreServedInTheOrderTheyCame) {
    for (const int32 code : {1, 2, 3})
        EXPECT_EQ(Write(code), B_OK);
    auto four = [&]() -> int32 { return Write(4); };
    auto five = [&]() -> int32 { return Write(5, "x"); };
    const thread_id threads[] = {spawn(four), spawn(five)};
    for (const thread_id thread : threads) {
        resume_thread(thread);
        ASSERT_TRUE(eventually([thread] { return state_of(thread) == B_THREAD_WAITING; }));
    }
    for (const int32 code : {1, 2, 3, 4})
        EXPECT_EQ(Read(code), "text");
    EXPECT_EQ(Read(5), "x");
    for (const thread_id thread : threads)
        EXPECT_EQ(run_to_end(thread), B_OK);
}

TEST_F(PortTest, DeletingItEndsAllWaits) {
    const port_id empty = create_port(1, NameOf("empty").c_str());
    for (const int32 code : {1, 2, 3})
        EXPECT_EQ(Write(code), B_OK);
    auto write = [&]() -> int32 { return Write(4); };
    auto read = [&]() -> int32 { return int32(port_buffer_size(empty)); };
    const thread_id writer = spawn(write), reader = spawn(read);
    resume_thread(writer);
    resume_thread(reader);
    ASSERT_TRUE(eventually([writer] { return state_of(writer) == B_THREAD_WAITING; }));
    ASSERT_TRUE(eventually([reader] { return state_of(reader) == B_THREAD_RECEIVING; }));
    EXPECT_EQ(delete_port(fPort), B_OK);
    EXPECT_EQ(delete_port(empty), B_OK);
    EXPECT_EQ(run_to_end(writer), B_BAD_PORT_ID);
    EXPECT_EQ(run_to_end(reader), B_BAD_PORT_ID);
    EXPECT_EQ(delete_port(fPort), B_BAD_PORT_ID);
}

TEST_F(PortTest, AClosedOneIsReadToItsEnd) {
    for (const int32 code : {1, 2, 3})
        EXPECT_EQ(Write(code), B_OK);
    auto write = [&]() -> int32 { return Write(4); };
    const thread_id writer = spawn(write);
    resume_thread(writer);
    ASSERT_TRUE(eventually([writer] { return state_of(writer) == B_THREAD_WAITING; }));
    EXPECT_EQ(close_port(fPort), B_OK);
    EXPECT_EQ(run_to_end(writer), B_BAD_PORT_ID);
    EXPECT_EQ(Write(5), B_BAD_PORT_ID);
    for (const int32 code : {1, 2, 3})
        EXPECT_EQ(Read(code), "text");
    EXPECT_EQ(port_buffer_size(fPort), B_BAD_PORT_ID);
    EXPECT_EQ(read_port(fPort, nullptr, nullptr, 0), B_BAD_PORT_ID);
}

TEST_F(PortTest, AKilledThreadLeavesNothingBehind) {
    for (const int32 code : {1, 2, 3})
        EXPECT_EQ(Write(code), B_OK);
    auto write = [&]() -> int32 { return Write(4); };
    const thread_id writer = spawn(write);
    resume_thread(writer);
    ASSERT_TRUE(eventually([writer] { return state_of(writer) == B_THREAD_WAITING; }));
    EXPECT_EQ(kill_thread(writer), B_OK);
    for (const int32 code : {1, 2, 3})
        EXPECT_EQ(Read(code), "text");
    EXPECT_EQ(port_count(fPort), 0);

    auto read = [&]() -> int32 { return int32(port_buffer_size(fPort)); };
    const thread_id reader = spawn(read);
    resume_thread(reader);
    ASSERT_TRUE(eventually([reader] { return state_of(reader) == B_THREAD_RECEIVING; }));
    EXPECT_EQ(kill_thread(reader), B_OK);
    EXPECT_EQ(Write(5), B_OK);
    EXPECT_EQ(Read(5), "text");
}

TEST_F(PortTest, HoldsOnlySoManyBytes) {
    const std::vector<char> large(100 << 20);
    const auto write = [&] {
        return write_port_etc(fPort, 1, large.data(), large.size(), B_RELATIVE_TIMEOUT, 0);
    };
    EXPECT_EQ(write(), B_OK);
    EXPECT_EQ(write(), B_OK);
    EXPECT_EQ(write(), B_WOULD_BLOCK);
    EXPECT_EQ(Write(2, "small", B_RELATIVE_TIMEOUT, 0), B_OK);
    EXPECT_EQ(port_buffer_size(fPort), ssize_t(large.size()));
    char byte;
    EXPECT_EQ(read_port(fPort, nullptr, &byte, 1), 1);
    EXPECT_EQ(write(), B_OK);
}

TEST_F(PortTest, ManyThreadsUseItAtOnce) {
    constexpr int kThreads = 8, kMessages = 200;
    std::atomic<int> written = 0, read = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int k = 0; k < kMessages; ++k)
                written += Write(k) == B_OK;
        });
        threads.emplace_back([&] {
            char buffer[10];
            for (int k = 0; k < kMessages; ++k)
                read += read_port(fPort, nullptr, buffer, sizeof(buffer)) == 4;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(written, kThreads * kMessages);
    EXPECT_EQ(read, kThreads * kMessages);
    EXPECT_EQ(port_count(fPort), 0);
}
