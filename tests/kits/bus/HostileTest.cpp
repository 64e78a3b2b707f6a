// What programs of another kind may send, and what they get.

#include <app/Message.h>
#include <app/Roster.h>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <list>
#include <random>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

#include "tests/Eventually.h"
#include "tests/kits/bus/Client.h"
#include "tests/kits/bus/Session.h"

namespace {

constexpr char kPortName[] = "org.lorivane.Port.nport";
constexpr char kSignature[] = "application/x-vnd.Test-Target";
constexpr char kApplicationName[] =
    "org.lorivane.Application.napplication_2fx_2dvnd_2etest_2dtarget";
constexpr uint64_t kForEver = UINT64_MAX;
constexpr uid_t kNobody = 65534;
constexpr char kRefused[] = "org.freedesktop.DBus.Error.AccessDenied";

// The results of Write.
constexpr char kWritten[] = "0", kNoPort[] = "1", kFull[] = "2", kTooLate[] = "3",
               kBadMessage[] = "5";

Client::Fill Write(
    const Client::Fill& body, int port = 1, uint64_t waitUntil = 0, uint64_t goodUntil = kForEver) {
    return [=](sd_bus_message* call) {
        const int result = sd_bus_message_append(call, "iuitt", port, 7, 5, waitUntil, goodUntil);
        return result < 0 ? result : body(call);
    };
}

Client::Fill Bytes(const std::string& bytes) {
    return [bytes](sd_bus_message* message) {
        sd_bus_message_open_container(message, 'v', "ay");
        sd_bus_message_append_array(message, 'y', bytes.data(), bytes.size());
        return sd_bus_message_close_container(message);
    };
}

Client::Fill Descriptor(int descriptor) {
    return [descriptor](sd_bus_message* message) {
        return sd_bus_message_append(message, "v", "h", descriptor);
    };
}

class File {
public:
    explicit File(int descriptor) : fDescriptor(descriptor) {}
    ~File() { close(fDescriptor); }
    operator int() const { return fDescriptor; }

private:
    const int fDescriptor;
};

constexpr int kSeals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;

/// Memory of that size, without any of it, and with these seals.
int Memory(off_t size, int seals) {
    const int descriptor = memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    EXPECT_EQ(ftruncate(descriptor, size), 0);
    EXPECT_EQ(fcntl(descriptor, F_ADD_SEALS, seals), 0);
    return descriptor;
}

/// Sealed memory of these bytes.
int Memory(const std::string& bytes) {
    const int descriptor = memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    EXPECT_EQ(write(descriptor, bytes.data(), bytes.size()), ssize_t(bytes.size()));
    EXPECT_EQ(fcntl(descriptor, F_ADD_SEALS, kSeals), 0);
    return descriptor;
}

class HostilePortsTest : public testing::Test {
protected:
    void SetUp() override {
        Session::Get();
        ASSERT_EQ(fOwner.Ask("create port 3"), "1");
    }

    std::string Send(const Client::Fill& fill) {
        return fClient.CallPorts(kPortName, "Write", fill);
    }

    Session& fSession = Session::Get();
    Peer fOwner;
    Client fClient;
};

std::string InterfaceOf(const std::string& text, const std::string& name) {
    const size_t start = text.find("<interface name=\"" + name + "\">");
    const std::string end = "</interface>";
    if (start == std::string::npos)
        return "no " + name;
    std::istringstream lines(text.substr(start, text.find(end, start) + end.size() - start));
    std::string interface;
    for (std::string line; std::getline(lines, line);)
        interface += line.substr(std::min(line.find_first_not_of(" \t"), line.size())) + "\n";
    return interface;
}

std::string Document() {
    std::ostringstream text;
    text << std::ifstream(BUS_DOCUMENT).rdbuf();
    return text.str();
}

}  // namespace

TEST_F(HostilePortsTest, TheInterfaceIsTheOneThatIsDescribed) {
    EXPECT_EQ(
        InterfaceOf(fClient.Introspect(kPortName, "/org/lorivane/Ports"), "org.lorivane.Ports"),
        InterfaceOf(Document(), "org.lorivane.Ports"));
}

TEST_F(HostilePortsTest, AnyoneMayWriteWhatIsWellFormed) {
    const auto open = [](const char* name) {
        return [name](sd_bus_message* call) { return sd_bus_message_append(call, "s", name); };
    };
    EXPECT_EQ(fClient.CallPorts(kPortName, "Open", open("port")), "1");
    EXPECT_EQ(fClient.CallPorts(kPortName, "Open", open("other")), "org.lorivane.Error.NoSuchPort");
    EXPECT_EQ(Send(Write(Bytes("x"))), kWritten);
    const File memory(Memory(200000000, kSeals));
    EXPECT_EQ(Send(Write(Descriptor(memory))), kWritten);
    EXPECT_EQ(Send(Write(Bytes(""))), kWritten);
    EXPECT_EQ(Send(Write(Bytes("x"))), kFull);
    EXPECT_EQ(Send(Write(Bytes("x"), 2)), kNoPort);
    EXPECT_EQ(Send(Write(Bytes("x"), -1)), kNoPort);
    EXPECT_EQ(Send(Write(Bytes("x"), 1, kForEver, 1)), kTooLate);
    EXPECT_EQ(fOwner.Ask("count 1"), "3");
    EXPECT_EQ(fOwner.Ask("read 1"), "5 1 bad");  // none of its own bytes, but as many
    EXPECT_EQ(fOwner.Ask("read 1"), "5 200000000 bad");
    EXPECT_EQ(fOwner.Ask("read 1"), "5 0 good");
}

TEST_F(HostilePortsTest, OnlySealedMemoryIsRead) {
    int pipes[2];
    ASSERT_EQ(pipe2(pipes, O_CLOEXEC), 0);
    const File input(pipes[0]), output(pipes[1]);
    const File zero(open("/dev/zero", O_RDONLY | O_CLOEXEC)),
        file(open("/proc/self/exe", O_RDONLY | O_CLOEXEC)), folder(open("/", O_PATH | O_CLOEXEC));
    const File open(Memory(100, 0)), shrinking(Memory(100, F_SEAL_GROW | F_SEAL_WRITE)),
        changing(Memory(100, F_SEAL_GROW | F_SEAL_SHRINK)), huge(Memory(off_t{1} << 40, kSeals)),
        large(Memory((off_t{256} << 20) + 1, kSeals));
    for (const int descriptor : {int(input), int(output), int(zero), int(file), int(folder),
             int(open), int(shrinking), int(changing), int(huge), int(large)})
        EXPECT_EQ(Send(Write(Descriptor(descriptor))), kBadMessage) << descriptor;
    EXPECT_EQ(fOwner.Ask("count 1"), "0");
}

TEST_F(HostilePortsTest, AnotherBodyIsRefused) {
    EXPECT_EQ(Send(Write(Bytes(std::string(65537, 'x')))), kBadMessage);
    EXPECT_EQ(Send(Write(Bytes(std::string(30000000, 'x')))), kBadMessage);
    const auto body = [](const char* type, auto value) {
        return Write([=](sd_bus_message* m) { return sd_bus_message_append(m, "v", type, value); });
    };
    EXPECT_EQ(Send(body("s", "text")), kBadMessage);
    EXPECT_EQ(Send(body("t", uint64_t{1})), kBadMessage);
    EXPECT_EQ(Send(Write([](sd_bus_message* m) {
        return sd_bus_message_append(m, "v", "v", "v", "v", "ay", 1, 65);
    })),
        kBadMessage);
    EXPECT_EQ(Send([](sd_bus_message* m) { return sd_bus_message_append(m, "s", "text"); }),
        "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(fClient.CallPorts(kPortName, "Read", [](sd_bus_message*) { return 0; }),
        "org.freedesktop.DBus.Error.UnknownMethod");
    EXPECT_EQ(Send(Write(Bytes("x"))), kWritten);
}

TEST_F(HostilePortsTest, OnlySoManyWritesOfOneProcessWait) {
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Send(Write(Bytes("x"))), kWritten);
    int written = 0, full = 0;
    for (int i = 0; i < 1000; ++i) {
        fClient.SendToPorts(
            kPortName, "Write", Write(Bytes("x"), 1, kForEver), [&](unsigned result) {
                written += result == 0;
                full += result == 2;
            });
    }
    EXPECT_TRUE(fClient.AwaitAnswers([&] { return full == 1000 - 64; }));
    EXPECT_EQ(written, 0);
    // Others are not kept from waiting.
    Peer other;
    EXPECT_EQ(
        other.Ask("write " + other.Ask("find port") + " 6 10 20000"), std::to_string(B_TIMED_OUT));
    for (int i = 0; i < 64 + 3; ++i)
        EXPECT_EQ(fOwner.Ask("read 1"), "5 1 bad");
    EXPECT_TRUE(fClient.AwaitAnswers([&] { return written == 64; }));
    EXPECT_EQ(fOwner.Ask("count 1"), "0");
}

TEST_F(HostilePortsTest, OnlySoManyWritesOfAllProcessesWait) {
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Send(Write(Bytes("x"))), kWritten);
    {
        std::list<Client> clients(4);
        for (Client& client : clients) {
            for (int i = 0; i < 64; ++i)
                client.SendToPorts(kPortName, "Write", Write(Bytes("y"), 1, kForEver), [](auto) {});
            client.Flush();
        }
        EXPECT_EQ(Send(Write(Bytes("x"), 1, kForEver)), kFull);
    }
    // When they have left, which the owner is told before it gets this, others wait again.
    int written = 0;
    fClient.SendToPorts(kPortName, "Write", Write(Bytes("z"), 1, kForEver),
        [&](unsigned result) { written += result == 0; });
    EXPECT_EQ(Send(Write(Bytes("x"))), kFull);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(fOwner.Ask("read 1"), "5 1 bad");
    EXPECT_TRUE(fClient.AwaitAnswers([&] { return written == 1; }));
}

TEST_F(HostilePortsTest, WritesOfWhoLeavesAreForgotten) {
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Send(Write(Bytes("x"))), kWritten);
    {
        Client leaving;
        for (int i = 0; i < 10; ++i)
            leaving.SendToPorts(
                kPortName, "Write", Write(Bytes("longer"), 1, kForEver), [](unsigned) {});
        leaving.Flush();
    }
    // The owner is told of it before it gets this.
    EXPECT_EQ(Send(Write(Bytes("x"))), kFull);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(fOwner.Ask("read 1"), "5 1 bad");
    EXPECT_EQ(fOwner.Ask("read 1 0"), std::to_string(B_WOULD_BLOCK));
}

TEST_F(HostilePortsTest, NobodyElseWrites) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be another user";
    Client stranger(kNobody);
    const auto open = [](sd_bus_message* call) { return sd_bus_message_append(call, "s", "port"); };
    EXPECT_EQ(stranger.CallPorts(kPortName, "Open", open), kRefused);
    EXPECT_EQ(stranger.CallPorts(kPortName, "Write", Write(Bytes("x"))), kRefused);
    EXPECT_EQ(fOwner.Ask("count 1"), "0");
    EXPECT_EQ(Send(Write(Bytes("x"))), kWritten);
}

namespace {

class HostileApplicationTest : public testing::Test {
protected:
    void SetUp() override {
        EXPECT_EQ(fTarget.Hear(), "ready");
        EXPECT_TRUE(eventually([] { return be_roster->IsRunning(kSignature); }));
    }

    static std::string Flattened(BMessage message) {
        std::string bytes(size_t(message.FlattenedSize()), '\0');
        EXPECT_EQ(message.Flatten(bytes.data(), ssize_t(bytes.size())), B_OK);
        return bytes;
    }

    /// While the application does nothing.
    void Flood(const Client::Fill& body, int count) {
        EXPECT_EQ(fTarget.Ask("hang"), "hangs");
        for (int i = 0; i < count; ++i) {
            fClient.Broadcast(body);
            if (i % 100 == 0)
                fClient.Flush();
        }
        // Its bus thread has handled all of them when it answers.
        EXPECT_EQ(Call("Nothing", [](sd_bus_message*) { return 0; }),
            "org.freedesktop.DBus.Error.UnknownMethod");
    }
    void ExpectLittleMemory() const {
        std::ifstream status("/proc/" + std::to_string(fTarget.Id()) + "/status");
        size_t kilobytes = 0;
        for (std::string line; std::getline(status, line);) {
            if (line.starts_with("VmRSS:"))
                kilobytes = size_t(std::stoul(line.substr(6)));
        }
        EXPECT_GT(kilobytes, 1000U);
#if !defined(__SANITIZE_THREAD__) && !defined(__SANITIZE_ADDRESS__)
        EXPECT_LT(kilobytes, 150'000U);
#endif
    }

    std::string Call(const char* method, const Client::Fill& fill) {
        return fClient.CallApplication(kApplicationName, method, fill);
    }

    /// A command line of the program's name and this word.
    static Client::Fill Words(std::string_view word, uint64_t goodUntil = kForEver) {
        return [=](sd_bus_message* m) {
            sd_bus_message_open_container(m, 'a', "ay");
            sd_bus_message_append_array(m, 'y', "program", 7);
            sd_bus_message_append_array(m, 'y', word.data(), word.size());
            sd_bus_message_close_container(m);
            return sd_bus_message_append(m, "ayaayayt", 0, 0, 0, goodUntil);
        };
    }

    Session& fSession = Session::Get();
    Client fClient;
    Peer fTarget{{}, {{"PEER_SIGNATURE", kSignature}, {"PEER_SINGLE", "yes"}}};
};

}  // namespace

TEST_F(HostileApplicationTest, TheInterfaceIsTheOneThatIsDescribed) {
    EXPECT_EQ(InterfaceOf(fClient.Introspect(kApplicationName, "/org/lorivane/Application"),
                  "org.lorivane.Application"),
        InterfaceOf(Document(), "org.lorivane.Application"));
}

TEST_F(HostileApplicationTest, WhatIsNoMessageIsDropped) {
    BMessage good('good');
    good.AddString("text", "all");
    const std::string bytes = Flattened(good);
    for (size_t size = 0; size < bytes.size(); ++size)
        fClient.Broadcast(Bytes(bytes.substr(0, size)));
    std::mt19937 random(1);
    for (int i = 0; i < 500; ++i) {
        std::string damaged = bytes;
        damaged[random() % damaged.size()] ^= char(1 + random() % 255);
        fClient.Broadcast(Bytes(damaged));
    }
    fClient.Broadcast(Bytes(bytes + "x"));
    fClient.Broadcast([](sd_bus_message* m) { return sd_bus_message_append(m, "s", "text"); });
    fClient.Broadcast([](sd_bus_message*) { return 0; });
    const File huge(Memory(off_t{1} << 40, kSeals)), empty(Memory(0, kSeals)), open(Memory(100, 0));
    for (const int descriptor : {int(huge), int(empty), int(open)})
        fClient.Broadcast(Descriptor(descriptor));
    for (const uint32 code : {'_QRQ', '_CCH', '_CBF', '_LCH', '_RRC', '_CNC', 'NONE'})
        fClient.Broadcast(Bytes(Flattened(BMessage(code))));
    fClient.Broadcast(Bytes(bytes));
    EXPECT_EQ(fTarget.Hear(), "got good all 0 remote");
    EXPECT_EQ(fTarget.Ask("broadcast last x 0"), "got last x 0 pointer");
}

TEST_F(HostileApplicationTest, AFloodLeavesTheMemoryBounded) {
    BMessage message('flod');
    message.AddData("data", B_RAW_TYPE, std::string(20000, 'x').data(), 20000);
    Flood(Bytes(Flattened(message)), 10000);  // 200 MB
    ExpectLittleMemory();
}

// Each of them has many times the memory that its bytes have.
TEST_F(HostileApplicationTest, AFloodOfManyItemsLeavesTheMemoryBounded) {
    BMessage message('flod');
    for (int i = 0; i < 1 << 18; ++i)
        message.AddInt8("item", 1);
    const File memory(Memory(Flattened(message)));
    Flood(Descriptor(memory), 60);
    ExpectLittleMemory();
}

TEST_F(HostileApplicationTest, WhatIsNoCommandLineIsRefused) {
    const auto launch = [&](const Client::Fill& fill) { return Call("Launch", fill); };
    EXPECT_EQ(launch([](sd_bus_message* m) { return sd_bus_message_append(m, "s", "text"); }),
        "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(launch(Words(std::string_view("a\0b", 3))), "org.freedesktop.DBus.Error.InvalidArgs");
    const std::string large(9 << 20, 'x');
    EXPECT_EQ(launch(Words(large)), "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(launch(Words("late", 1)), "org.freedesktop.DBus.Error.Timeout");
    EXPECT_EQ(launch(Words("good")), "0");
    EXPECT_EQ(fTarget.Hear(), "argv 2");
    EXPECT_EQ(fTarget.Ask("broadcast last x 0"), "got last x 0 pointer");
}

TEST_F(HostileApplicationTest, OnlySoMuchOfCommandLinesWaits) {
    // Whose process this is the target asks once, and would not wait for the answer to come behind
    // all that is sent here.
    EXPECT_EQ(Call("Launch", Words("good")), "0");
    EXPECT_EQ(fTarget.Hear(), "argv 2");
    EXPECT_EQ(fTarget.Ask("hang"), "hangs");
    const std::string large(8000000, 'x');
    for (int i = 0; i < 8; ++i)
        fClient.SendToApplication(kApplicationName, "Launch", Words(large), [](auto) {});
    EXPECT_EQ(Call("Launch", Words(large)), "org.freedesktop.DBus.Error.LimitsExceeded");
}

TEST_F(HostileApplicationTest, NobodyElseIsHeard) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can be another user";
    Client stranger(kNobody);
    EXPECT_EQ(stranger.CallApplication(kApplicationName, "Launch", Words("bad")), kRefused);
    BMessage message('text');
    message.AddString("text", "bad");
    stranger.Broadcast(Bytes(Flattened(message)));
    // By then the bus has passed that on.
    EXPECT_EQ(stranger.CallApplication(kApplicationName, "Launch", Words("bad")), kRefused);
    EXPECT_EQ(Call("Launch", Words("good")), "0");
    EXPECT_EQ(fTarget.Hear(), "argv 2");
    message.ReplaceString("text", "good");
    fClient.Broadcast(Bytes(Flattened(message)));
    EXPECT_EQ(fTarget.Hear(), "got text good 0 remote");
}

TEST(BusTest, ABusThatGoesAwayTakesTheOthersWithIt) {
    auto session = std::make_unique<Session>();
    const Process::Environment environment = {{"DBUS_SESSION_BUS_ADDRESS", session->Address()}};
    Process::Environment application = environment;
    application["PEER_SIGNATURE"] = kSignature;
    Peer owner({}, environment), writer({}, environment), running({}, application);
    ASSERT_EQ(owner.Ask("create port 1"), "1");
    const std::string port = writer.Ask("find port");
    EXPECT_EQ(writer.Ask("write " + port + " 1 10"), "0");
    writer.Say("write " + port + " 2 10");
    EXPECT_EQ(running.Hear(), "ready");
    session.reset();

    EXPECT_EQ(writer.Hear(), std::to_string(B_BAD_PORT_ID));
    EXPECT_EQ(writer.Ask("write " + port + " 3 10"), std::to_string(B_BAD_PORT_ID));
    EXPECT_EQ(writer.Ask("find port"), std::to_string(B_NAME_NOT_FOUND));
    // The first may still have been asked; at the second one the owner knows.
    EXPECT_EQ(owner.Ask("find other"), std::to_string(B_NAME_NOT_FOUND));
    EXPECT_EQ(owner.Ask("find other"), std::to_string(B_NAME_NOT_FOUND));
    EXPECT_EQ(owner.Ask("read 1"), "1 10 good");
    EXPECT_EQ(owner.Ask("write 1 4 10"), "0");
    EXPECT_EQ(owner.Ask("delete 1"), "0");
    EXPECT_EQ(owner.Ask("create port 1"), "2");
    EXPECT_EQ(owner.Ask("find port"), "2");
    EXPECT_EQ(running.Ask("broadcast ping x 0"), "got ping x 0 pointer");
    running.Say("quit");
    EXPECT_EQ(running.Hear(), "ended");
    EXPECT_EQ(running.Wait(), 0);
}
